#include "desk/runner/CommandLine.h"

#include <QCommandLineParser>

namespace runner {

namespace {

/// Every option of every subcommand; one without a value name is a switch.
struct OptionText {
    const char* name;
    const char* valueName;
    const char* description;
};

constexpr OptionText Options[] = {
    {"strategy", "CODE", "strategy, such as AITWAP"},
    {"account", "ACCOUNT", "trading account"},
    {"data", "DIR", "reference data folder instead of the shipped one"},
    {"home", "DIR", "folder of settings and ledger"},
    {"answer", "yes|no", "answer to the row-limit question (yes)"},
    {"switch-account", "ACCOUNT", "choose this account after the import"},
    {"confirm", "", "press 确定 at the end"},
    {"encoding", "NAME", "encoding of a csv file, such as Big5, instead of the one that its bytes tell"},
    {"rejects", "OUT", "write the refused rows with their reasons to OUT (xlsx or csv)"},
    {"create", "", "create the confirmed batch in the ledger, past the guard"},
    {"yes", "", "create in spite of the guard's warnings (never of its refusals)"},
    {"amount", "AMOUNT", "the gross amount, where the guard wants it typed once more"},
    {"batch", "N", "only this batch"},
    {"all", "", "the templates of all strategies"},
};

QCommandLineOption toOption(const OptionText& text)
{
    return QCommandLineOption(QString::fromUtf8(text.name), QString::fromUtf8(text.description),
                              QString::fromUtf8(text.valueName));
}

bool readAnswer(const QString& answer, bool& yes)
{
    yes = answer == QLatin1String("yes");
    return yes || answer == QLatin1String("no");
}

CommandLine collected(const QCommandLineParser& parser)
{
    const auto value = [&](const char* name) {
        const QString option = QString::fromLatin1(name);
        return parser.optionNames().contains(option) ? parser.value(option) : QString();
    };
    const auto isSet = [&](const char* name) {
        return parser.optionNames().contains(QString::fromLatin1(name));
    };
    CommandLine line;
    line.files = parser.positionalArguments();
    line.strategy = value("strategy");
    line.account = value("account");
    line.switchAccount = value("switch-account");
    line.dataFolder = value("data");
    line.home = value("home");
    line.encoding = value("encoding");
    line.rejects = value("rejects");
    line.batch = value("batch");
    line.amount = value("amount");
    line.confirm = isSet("confirm");
    line.create = isSet("create");
    line.yes = isSet("yes");
    line.allTemplates = isSet("all");
    line.help = isSet("help");
    return line;
}

} // namespace

std::optional<CommandLine> parseCommandLine(const QStringList& arguments, const QStringList& accepted,
                                            int fileCount, QString& error)
{
    QCommandLineParser parser;
    parser.addHelpOption();
    parser.setSingleDashWordOptionMode(QCommandLineParser::ParseAsLongOptions);
    for (const OptionText& text : Options) {
        if (accepted.contains(QString::fromLatin1(text.name))) {
            parser.addOption(toOption(text));
        }
    }
    if (!parser.parse(QStringList{QStringLiteral("algodesk")} + arguments)) {
        error = parser.errorText();
        return std::nullopt;
    }
    CommandLine line = collected(parser);
    const QString answer = QStringLiteral("answer");
    if (parser.optionNames().contains(answer) && !readAnswer(parser.value(answer), line.answerYes)) {
        error = QStringLiteral("--answer takes yes or no, not '%1'").arg(parser.value(answer));
        return std::nullopt;
    }
    if (!line.help && line.files.size() != fileCount) {
        error = QStringLiteral("expected %1 file argument(s), got %2").arg(fileCount).arg(line.files.size());
        return std::nullopt;
    }
    return line;
}

QString usage()
{
    QString text = QStringLiteral(
        "Usage: algodesk                     open the desk window\n"
        "       algodesk import FILE --strategy CODE --account ACCOUNT [--data DIR] [--answer yes|no]\n"
        "                            [--switch-account ACCOUNT] [--confirm [--create [--yes] [--amount "
        "AMOUNT]]]\n"
        "                            [--rejects OUT]\n"
        "       algodesk rows FILE [--encoding NAME]\n"
        "       algodesk check FILE [--strategy CODE --account ACCOUNT] [--data DIR] [--encoding NAME]\n"
        "       algodesk strategies | accounts | securities [--data DIR]\n"
        "       algodesk template --strategy CODE OUT | --all OUT [--data DIR]\n"
        "       algodesk batches\n"
        "       algodesk instances [--batch N]\n"
        "       algodesk undo N\n"
        "       algodesk diff N FILE [--data DIR]\n"
        "       algodesk --help | --version\n"
        "\n"
        "Subcommands need no display and print JSON on standard output. Exit status: 0 done, 1 a message "
        "came up,\n"
        "2 wrong usage, unknown strategy or account, bad reference data. check: 0 clean, 1 warnings, 3 "
        "errors,\n"
        "4 unreadable.\n"
        "\n"
        "Options:\n");
    for (const OptionText& option : Options) {
        const QString name = QStringLiteral("--%1 %2").arg(QString::fromUtf8(option.name),
                                                           QString::fromUtf8(option.valueName));
        text +=
            QStringLiteral("  %1 %2\n").arg(name.trimmed(), -26).arg(QString::fromUtf8(option.description));
    }
    return text;
}

} // namespace runner
