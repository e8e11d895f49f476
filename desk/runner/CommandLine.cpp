#include "desk/runner/CommandLine.h"

#include "desk/runner/GatewayCommands.h"

#include <QCommandLineParser>
#include <QDir>

#include <algorithm>

namespace runner {

namespace {

/// Every option of every subcommand: one with a value, or a switch.
struct Option {
    const char* name;
    const char* valueName;
    QString CommandLine::*value;
    bool CommandLine::*isOn;
    const char* description;

    QString shownName() const { return QLatin1String("--") + QString::fromLatin1(name); }
};

constexpr Option Options[] = {
    {"strategy", "CODE", &CommandLine::strategy, nullptr, "strategy, such as AITWAP"},
    {"account", "ACCOUNT", &CommandLine::account, nullptr, "trading account"},
    {"data", "DIR", &CommandLine::dataFolder, nullptr, "reference data folder instead of the shipped one"},
    {"home", "DIR", &CommandLine::home, nullptr, "folder of settings and ledger"},
    {"ledger", "ADDRESS", &CommandLine::ledger, nullptr,
     "ledger instead of ALGODESK_LEDGER, else of the one in the home: a file, or "
     "postgresql://[USER@]HOST[:PORT]/DATABASE"},
    {"wait", "SECONDS", &CommandLine::wait, nullptr, "for another program's change of the ledger (5)"},
    {"answer", "yes|no", &CommandLine::answer, nullptr, "answer to the row-limit question (yes)"},
    {"switch-account", "ACCOUNT", &CommandLine::switchAccount, nullptr,
     "choose this account after the import"},
    {"confirm", "", nullptr, &CommandLine::confirm, "press 确定 at the end"},
    {"encoding", "NAME", &CommandLine::encoding, nullptr,
     "encoding of a csv file, such as Big5, instead of the one that its bytes tell"},
    {"mapping", "FILE.json", &CommandLine::mapping, nullptr,
     "tell FILE in the strategy's words by this mapping, such as check suggests"},
    {"rejects", "OUT", &CommandLine::rejects, nullptr,
     "write the refused rows with their reasons to OUT (xlsx or csv)"},
    {"faults", "", nullptr, &CommandLine::faults,
     "tell what is wrong with the file and the batch as data, beside the messages"},
    {"create", "", nullptr, &CommandLine::create,
     "create the confirmed batch in the ledger, if the guard lets it pass"},
    {"yes", "", nullptr, &CommandLine::yes, "create in spite of messages"},
    {"accept", "RULE[,RULE]", &CommandLine::accept, nullptr,
     "create in spite of what these rules found (never of a refusal); each is named, there is no yes to all"},
    {"amount", "AMOUNT", &CommandLine::amount, nullptr,
     "the gross amount, where the guard wants it typed once more"},
    {"duplicates", "leave-out|changed-only|replace", &CommandLine::duplicates, nullptr,
     "of orders that the ledger holds already: leave them out, create only what differs from batch N of "
     "--against, or withdraw that batch in the same transaction"},
    {"against", "N", &CommandLine::against, nullptr, "the batch of changed-only and replace"},
    {"batch", "N", &CommandLine::batch, nullptr, "only this batch"},
    {"reason", "TEXT", &CommandLine::reason, nullptr, "why it is halted, resumed, refused or settled"},
    {"as", "STATE", &CommandLine::settleAs, nullptr,
     "what became of an instance: running, stopped, finished, rejected or queued"},
    {"verify", "", nullptr, &CommandLine::verify, "check that no entry was changed, dropped or swapped"},
    {"from", "N", &CommandLine::from, nullptr, "entries from this number on"},
    {"day", "DAY", &CommandLine::day, nullptr, "exchange day of a report, such as 2026-11-23 (today)"},
    {"out", "OUT", &CommandLine::out, nullptr, "write the report to OUT (xlsx or csv) too"},
    {"pace", "FACTOR", &CommandLine::pace, nullptr,
     "how much faster than the clock a demonstration goes (600)"},
    {"headless", "", nullptr, &CommandLine::headless, "tell a demonstration as text, and end by itself"},
    {"all", "", nullptr, &CommandLine::allTemplates, "the templates of all strategies"},
};

constexpr uint LongestWait = 3600;

/// Not the parser's own: that one is known by several names, and brings a second option along.
constexpr Option Help = {"help", "", nullptr, &CommandLine::help, "this text"};

QStringList namesOf(const Option& option)
{
    const QString name = QString::fromLatin1(option.name);
    return option.isOn == Help.isOn ? QStringList{QStringLiteral("h"), name} : QStringList{name};
}

QList<Option> optionsOf(const Command& command)
{
    QList<Option> options{Help};
    for (const Option& option : Options) {
        if (command.options.contains(QString::fromLatin1(option.name))) {
            options.append(option);
        }
    }
    return options;
}

/// A path as the shell means it: to Qt, what begins with a colon is a resource of the program's own.
QString asFile(const QString& path)
{
    return path.startsWith(QLatin1Char(':')) ? QDir::currentPath() + QLatin1Char('/') + path : path;
}

/// Takes an option over where it was given; false where its value is empty, or the option that follows.
bool take(const QCommandLineParser& parser, const Option& option, CommandLine& line)
{
    const QString name = QString::fromLatin1(option.name);
    if (!parser.isSet(name)) {
        return true;
    }
    if (option.isOn != nullptr) {
        line.*option.isOn = true;
        return true;
    }
    const QString value = parser.value(name);
    line.*option.value = value;
    return !value.isEmpty() && !value.startsWith(QLatin1String("--"));
}

bool takesAnyNumber(const Command& command)
{
    return !command.arguments.isEmpty() && command.arguments.last().endsWith(QChar(0x2026)); // …
}

QString wrongArguments(const Command& command, int count)
{
    const QString wanted = command.arguments.isEmpty() ? QStringLiteral("no argument")
                                                       : command.arguments.join(QLatin1Char(' '));
    return QStringLiteral("%1 takes %2, but was given %3 argument(s)")
        .arg(command.name, wanted, QString::number(count));
}

/// What is wrong with a line whose options are known; empty when nothing is.
QString faultOf(const CommandLine& line, const Command& command)
{
    if (line.answer != QLatin1String("yes") && line.answer != QLatin1String("no")) {
        return QStringLiteral("--answer takes yes or no, not '%1'").arg(line.answer);
    }
    bool isNumber = false;
    const uint seconds = line.wait.toUInt(&isNumber);
    if (!isNumber || seconds > LongestWait) {
        return QStringLiteral("--wait takes seconds from 0 to %1, not '%2'").arg(LongestWait).arg(line.wait);
    }
    if (line.files.size() != command.arguments.size() && !takesAnyNumber(command)) {
        return wrongArguments(command, line.files.size());
    }
    const int empty = line.files.indexOf(QString());
    return empty < 0 ? QString()
                     : QStringLiteral("%1 must not be empty")
                           .arg(command.arguments.value(empty, command.arguments.last()));
}

} // namespace

std::optional<CommandLine> parseCommandLine(const QStringList& arguments, const Command& command,
                                            QString& error)
{
    const QList<Option> options = optionsOf(command);
    QCommandLineParser parser;
    parser.setSingleDashWordOptionMode(QCommandLineParser::ParseAsLongOptions);
    for (const Option& option : options) {
        parser.addOption({namesOf(option), QString(), QString::fromUtf8(option.valueName)});
    }
    if (!parser.parse(QStringList{command.name} + arguments)) {
        error = parser.errorText();
        return std::nullopt;
    }
    CommandLine line;
    line.files = parser.positionalArguments();
    for (const Option& option : options) {
        if (!take(parser, option, line)) {
            error = QStringLiteral("%1 needs a value").arg(option.shownName());
            return std::nullopt;
        }
    }
    if (line.ledger.isEmpty() && command.options.contains(QLatin1String("ledger"))) {
        line.ledger = qEnvironmentVariable("ALGODESK_LEDGER");
    }
    for (QString* path :
         {&line.dataFolder, &line.home, &line.ledger, &line.rejects, &line.mapping, &line.out}) {
        *path = asFile(*path);
    }
    std::transform(line.files.begin(), line.files.end(), line.files.begin(), asFile);
    error = line.help ? QString() : faultOf(line, command);
    return error.isEmpty() ? std::make_optional(line) : std::nullopt;
}

QString usage()
{
    QString text =
        QStringLiteral(
            "Usage: algodesk                     open the desk window\n"
            "       algodesk demo [--headless] [--home DIR] [--pace FACTOR]\n"
            "       algodesk import FILE --strategy CODE --account ACCOUNT [--data DIR] [--answer yes|no]\n"
            "                            [--switch-account ACCOUNT] [--confirm [--create [--yes] [--accept "
            "RULE[,RULE]]\n"
            "                            [--amount AMOUNT] [--duplicates leave-out|changed-only|replace "
            "[--against N]]]]\n"
            "                            [--faults] [--rejects OUT] [--mapping FILE.json]\n"
            "       algodesk rows FILE [--encoding NAME]\n"
            "       algodesk check FILE [--strategy CODE --account ACCOUNT] [--data DIR] [--encoding NAME]\n"
            "                           [--mapping FILE.json]\n"
            "       algodesk strategies | accounts | securities [--data DIR]\n"
            "       algodesk template --strategy CODE OUT | --all OUT [--data DIR]\n"
            "       algodesk atdl FILE.xml OUT\n"
            "       algodesk batches\n"
            "       algodesk instances [--batch N]\n"
            "       algodesk undo N\n"
            "       algodesk approve N [--data DIR] | refuse N --reason TEXT\n"
            "       algodesk start | stop | withdraw ID… | --batch N\n"
            "       algodesk settle ID --as running|stopped|finished|rejected|queued --reason TEXT\n"
            "       algodesk audit [--verify | --from N]\n"
            "       algodesk backup FILE | restore FILE | vacuum\n"
            "       algodesk diff N FILE [--data DIR]\n"
            "       algodesk halt | resume [--account ACCOUNT] --reason TEXT\n"
            "       algodesk ledger init ADDRESS | ledger copy FROM TO | ledger limits ADDRESS [--data DIR]\n"
            "       algodesk status\n"
            "       algodesk report [--day DAY] [--out OUT]\n"
            "%1"
            "       algodesk --help | --version\n"
            "\n"
            "Subcommands need no display and print JSON on standard output. Exit status: 0 done, 1 a message "
            "came up,\n"
            "2 wrong usage, unknown strategy or account, bad reference data. check: 0 clean, 1 warnings, 3 "
            "errors,\n"
            "4 unreadable. 5 it was done, but standard output took no more. 6 the batch waits for approval.\n"
            "\n"
            "Options:\n")
            .arg(gatewayUsage());
    for (const Option& option : Options) {
        const QString name = option.shownName() + QLatin1Char(' ') + QString::fromUtf8(option.valueName);
        text +=
            QStringLiteral("  %1 %2\n").arg(name.trimmed(), -26).arg(QString::fromUtf8(option.description));
    }
    return text;
}

} // namespace runner
