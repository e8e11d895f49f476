#include "desk/runner/CommandLine.h"
#include "desk/runner/LedgerAccess.h"
#include "desk/runner/Runner.h"
#include "desk/runner/Session.h"
#include "desk/window/DeskApplication.h"
#include "desk/window/DeskBooks.h"
#include "desk/window/DeskWindow.h"

#include <QApplication>
#include <QFile>
#include <QLoggingCategory>

#include <csignal>
#include <cstdio>

namespace {

QStringList argumentsOf(int argc, char** argv)
{
    QStringList arguments;
    for (int i = 1; i < argc; ++i) {
        arguments.append(QFile::decodeName(argv[i]));
    }
    return arguments;
}

/// Needs no display: everything is drawn off screen, and logs keep silent unless QT_LOGGING_RULES asks for
/// them.
int runHeadless(int& argc, char** argv, const QStringList& arguments)
{
    qputenv("QT_QPA_PLATFORM", "offscreen");
    std::signal(SIGPIPE, SIG_IGN); // a reader that went away is told by a status, like a full disk
    QLoggingCategory::setFilterRules(QStringLiteral("*.debug=false\n*.info=false\n*.warning=false"));
    QApplication application(argc, argv);
    QFile out;
    QFile err;
    if (!out.open(stdout, QIODevice::WriteOnly) || !err.open(stderr, QIODevice::WriteOnly)) {
        return runner::Refused;
    }
    return runner::run(arguments, out, err);
}

int complain(const QString& error)
{
    std::fprintf(stderr, "%s\n", error.toUtf8().constData());
    return runner::Refused;
}

/// Off screen nobody would answer a box.
int complainInWindow(const QString& error)
{
    const int status = complain(error);
    if (QGuiApplication::platformName() != QLatin1String("offscreen")) {
        desk_application::tellFault(error);
    }
    return status;
}

bool hasDisplay()
{
    return qEnvironmentVariableIsSet("DISPLAY") || qEnvironmentVariableIsSet("WAYLAND_DISPLAY") ||
           qEnvironmentVariableIsSet("QT_QPA_PLATFORM");
}

int runDesk(int& argc, char** argv, const QStringList& arguments)
{
    QString error;
    const runner::Command desk = {QStringLiteral("algodesk"),
                                  {QStringLiteral("data"), QStringLiteral("home"), QStringLiteral("ledger")},
                                  {}};
    const auto line = runner::parseCommandLine(arguments, desk, error);
    if (!line) {
        return complain(error);
    }
    if (line->help) {
        std::printf("%s", qUtf8Printable(runner::usage()));
        return runner::Done;
    }
    const Outcome<ledger::Address> address = runner::ledgerAddress(*line);
    if (!address.ok()) {
        return complain(address.error);
    }
    if (!hasDisplay()) {
        return complain(
            QStringLiteral("没有可用的显示环境，无法打开窗口；不需要窗口的命令见 algodesk --help"));
    }
    QLoggingCategory::setFilterRules(QStringLiteral("algo.*.debug=false"));
    QApplication application(argc, argv);
    desk_application::prepare(application);
    const std::unique_ptr<EmbeddedHost> host = runner::openDeskHost(*line, error);
    if (!host) {
        return complainInWindow(error);
    }
    const auto books =
        openDeskBooks(address.value, runner::homeFolder(*line), runner::referenceDataFolder(*line), error);
    if (!books) {
        return complainInWindow(error);
    }
    DeskWindow window(*host, *books);
    window.show();
    return QApplication::exec();
}

} // namespace

int main(int argc, char** argv)
{
    QCoreApplication::setApplicationName(QStringLiteral("algodesk"));
    QCoreApplication::setApplicationVersion(QStringLiteral(ALGODESK_VERSION));
    const QStringList arguments = argumentsOf(argc, argv);
    return runner::isAsked(arguments) ? runHeadless(argc, argv, arguments) : runDesk(argc, argv, arguments);
}
