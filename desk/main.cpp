#include "desk/demo/Demo.h"
#include "desk/runner/CommandLine.h"
#include "desk/runner/LedgerAccess.h"
#include "desk/runner/Runner.h"
#include "desk/runner/Session.h"
#include "desk/window/DeskApplication.h"
#include "desk/window/DeskBooks.h"
#include "desk/window/DeskWindow.h"
#include "gateway/program/Gateway.h"

#include <QApplication>
#include <QFile>
#include <QLoggingCategory>
#include <QTimer>

#include <csignal>
#include <cstdio>
#include <memory>
#include <optional>

namespace {

constexpr int SignalPollMs = 100;

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

const QString Demo = QStringLiteral("demo");

std::optional<demo::Options> demoOptions(const runner::CommandLine& line, QString& error)
{
    demo::Options options;
    options.home = line.home;
    options.program = QCoreApplication::applicationFilePath();
    options.share = QCoreApplication::applicationDirPath() + QStringLiteral("/../share/algodesk");
    options.pace = line.pace.toDouble();
    if (!(options.pace > 0.0)) {
        error = QStringLiteral("--pace takes a factor above 0");
        return std::nullopt;
    }
    return options;
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
    return !(qEnvironmentVariableIsEmpty("DISPLAY") && qEnvironmentVariableIsEmpty("WAYLAND_DISPLAY") &&
             qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM"));
}

/// A demonstration writes into no ledger but its own.
int tellDemo(int& argc, char** argv, const runner::CommandLine& line)
{
    QCoreApplication application(argc, argv);
    QString error;
    const std::optional<demo::Options> options = demoOptions(line, error);
    QFile out;
    QFile err;
    if (!options || !out.open(stdout, QIODevice::WriteOnly) || !err.open(stderr, QIODevice::WriteOnly)) {
        return complain(error);
    }
    return demo::runHeadless(*options, gateway::isAskedToEndBySignal, out, err);
}

/// The desk on what a line names, until it is closed.
int openWindow(const runner::CommandLine& line, const ledger::Address& ledger, DeskWindow::Page page)
{
    QString error;
    const std::unique_ptr<EmbeddedHost> host = runner::openDeskHost(line, error);
    if (!host) {
        return complainInWindow(error);
    }
    const auto books =
        openDeskBooks(ledger, runner::homeFolder(line), runner::referenceDataFolder(line), error);
    if (!books) {
        return complainInWindow(error);
    }
    DeskWindow window(*host, *books);
    if (page != DeskWindow::ImportPageIndex) {
        window.showPage(page);
    }
    window.show();
    return QApplication::exec();
}

int showDemo(int& argc, char** argv, runner::CommandLine line)
{
    QApplication application(argc, argv);
    desk_application::prepare(application);
    QString error;
    const std::optional<demo::Options> options = demoOptions(line, error);
    const std::unique_ptr<demo::Stage> stage = options ? demo::openStage(*options, error) : nullptr;
    if (!stage) {
        return complainInWindow(error);
    }
    QTimer signalled;
    QObject::connect(&signalled, &QTimer::timeout, [] {
        if (gateway::isAskedToEndBySignal()) {
            QCoreApplication::quit();
        }
    });
    signalled.start(SignalPollMs);
    line.home = stage->home();
    return openWindow(line, ledger::Address::ofFile(ledger::Ledger::pathIn(line.home)),
                      DeskWindow::InstancesPageIndex);
}

int runDemo(int& argc, char** argv, const QStringList& arguments)
{
    QString error;
    const runner::Command command = {
        Demo, {QStringLiteral("home"), QStringLiteral("pace"), QStringLiteral("headless")}, {}};
    const auto line = runner::parseCommandLine(arguments, command, error);
    if (!line) {
        return complain(error);
    }
    if (line->help) {
        std::printf("%s", qUtf8Printable(runner::usage()));
        return runner::Done;
    }
    QLoggingCategory::setFilterRules(QStringLiteral("*.debug=false\n*.info=false"));
    gateway::isAskedToEndBySignal();
    if (!line->headless && hasDisplay()) {
        return showDemo(argc, argv, *line);
    }
    if (!line->headless) {
        complain(QStringLiteral("没有可用的显示环境，改以文字演示（--headless）"));
    }
    return tellDemo(argc, argv, *line);
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
    return openWindow(*line, address.value, DeskWindow::ImportPageIndex);
}

} // namespace

int main(int argc, char** argv)
{
    QCoreApplication::setApplicationName(QStringLiteral("algodesk"));
    QCoreApplication::setApplicationVersion(QStringLiteral(ALGODESK_VERSION));
    const QStringList arguments = argumentsOf(argc, argv);
    if (arguments.value(0) == Demo) {
        return runDemo(argc, argv, arguments.mid(1));
    }
    return runner::isAsked(arguments) ? runHeadless(argc, argv, arguments) : runDesk(argc, argv, arguments);
}
