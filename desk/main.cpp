#include "desk/demo/Demo.h"
#include "desk/runner/CommandLine.h"
#include "desk/runner/LedgerAccess.h"
#include "desk/runner/Runner.h"
#include "desk/runner/Session.h"
#include "desk/window/DeskApplication.h"
#include "desk/window/DeskBooks.h"
#include "desk/window/DeskSettings.h"
#include "desk/window/DeskWindow.h"
#include "gateway/program/Gateway.h"
#include "words/Language.h"
#include "words/Words.h"

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

/// What the command line or the environment asked for.
using Chosen = std::optional<words::Language>;

/// Programs read what is printed, under whatever locale they run: it changes only where it was asked for.
words::Language ofPrograms(Chosen language)
{
    return language.value_or(words::Language::Chinese);
}

words::Language ofWindow(Chosen language)
{
    return language.value_or(words::languageOf(QLocale::system()));
}

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
int runHeadless(int& argc, char** argv, const QStringList& arguments, Chosen language)
{
    qputenv("QT_QPA_PLATFORM", "offscreen");
    std::signal(SIGPIPE, SIG_IGN); // a reader that went away is told by a status, like a full disk
    QLoggingCategory::setFilterRules(QStringLiteral("*.debug=false\n*.info=false\n*.warning=false"));
    QApplication application(argc, argv);
    words::speak(ofPrograms(language));
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
        error = Words::tr("--pace 应为大于 0 的倍数");
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

/// A line that was read, or what the program ends with.
struct Start {
    std::optional<runner::CommandLine> line;
    int status;
};

/// Before there is a window, with an application that needs no display: what is wrong with a line is told in
/// the window's language too.
Start readLine(int& argc, char** argv, const QStringList& arguments, const runner::Command& command,
               Chosen language)
{
    const QCoreApplication application(argc, argv);
    words::speak(ofWindow(language));
    QString error;
    const auto line = runner::parseCommandLine(arguments, command, error);
    if (!line) {
        return {std::nullopt, complain(error)};
    }
    if (line->help) {
        std::printf("%s", qUtf8Printable(runner::usage()));
        return {std::nullopt, runner::Done};
    }
    if (!runner::ledgerAddress(*line).ok()) {
        return {std::nullopt, complain(runner::ledgerAddress(*line).error)};
    }
    if (command.name != Demo && !hasDisplay()) {
        return {std::nullopt,
                complain(Words::tr("没有可用的显示环境，无法打开窗口；不需要窗口的命令见 algodesk --help"))};
    }
    return {line, runner::Done};
}

/// A demonstration writes into no ledger but its own.
int tellDemo(int& argc, char** argv, const runner::CommandLine& line, Chosen language)
{
    QCoreApplication application(argc, argv);
    words::speak(ofPrograms(language));
    if (!line.headless) {
        complain(Words::tr("没有可用的显示环境，改以文字演示（--headless）"));
    }
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
int openWindow(const runner::CommandLine& line, const ledger::Address& ledger, DeskWindow::Page page,
               Chosen language)
{
    QString error;
    const std::unique_ptr<EmbeddedHost> host = runner::openDeskHost(line, error);
    if (!host) {
        return complainInWindow(error);
    }
    const Chosen remembered = words::languageNamed(DeskSettings(*host).language());
    if (!language && remembered) {
        desk_application::prepare(*remembered);
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

int showDemo(int& argc, char** argv, runner::CommandLine line, Chosen language)
{
    QApplication application(argc, argv);
    desk_application::prepare(ofWindow(language));
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
                      DeskWindow::InstancesPageIndex, language);
}

int runDemo(int& argc, char** argv, const QStringList& arguments, Chosen language)
{
    const runner::Command command = {
        Demo, {QStringLiteral("home"), QStringLiteral("pace"), QStringLiteral("headless")}, {}};
    const Start start = readLine(argc, argv, arguments, command, language);
    if (!start.line) {
        return start.status;
    }
    const runner::CommandLine& line = *start.line;
    QLoggingCategory::setFilterRules(QStringLiteral("*.debug=false\n*.info=false"));
    gateway::isAskedToEndBySignal();
    return !line.headless && hasDisplay() ? showDemo(argc, argv, line, language)
                                          : tellDemo(argc, argv, line, language);
}

int runDesk(int& argc, char** argv, const QStringList& arguments, Chosen language)
{
    const runner::Command desk = {QStringLiteral("algodesk"),
                                  {QStringLiteral("data"), QStringLiteral("home"), QStringLiteral("ledger")},
                                  {}};
    const Start start = readLine(argc, argv, arguments, desk, language);
    if (!start.line) {
        return start.status;
    }
    QLoggingCategory::setFilterRules(QStringLiteral("algo.*.debug=false"));
    QApplication application(argc, argv);
    desk_application::prepare(ofWindow(language));
    return openWindow(*start.line, runner::ledgerAddress(*start.line).value, DeskWindow::ImportPageIndex,
                      language);
}

} // namespace

int main(int argc, char** argv)
{
    QCoreApplication::setAttribute(Qt::AA_EnableHighDpiScaling);
    QCoreApplication::setAttribute(Qt::AA_UseHighDpiPixmaps);
    QCoreApplication::setApplicationName(QStringLiteral("algodesk"));
    QCoreApplication::setApplicationVersion(QStringLiteral(ALGODESK_VERSION));
    QStringList arguments = argumentsOf(argc, argv);
    const words::Asked asked = words::takeAsked(arguments);
    if (!asked.error.isEmpty()) {
        return complain(asked.error);
    }
    if (arguments.value(0) == Demo) {
        return runDemo(argc, argv, arguments.mid(1), asked.language);
    }
    return runner::isAsked(arguments) ? runHeadless(argc, argv, arguments, asked.language)
                                      : runDesk(argc, argv, arguments, asked.language);
}
