#include "desk/runner/CommandLine.h"

#include "desk/runner/GatewayCommands.h"
#include "desk/runner/Suggestion.h"
#include "words/Words.h"

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
    {"strategy", "CODE", &CommandLine::strategy, nullptr, QT_TRANSLATE_NOOP("Words", "算法，例如 AITWAP")},
    {"account", "ACCOUNT", &CommandLine::account, nullptr, QT_TRANSLATE_NOOP("Words", "交易账号")},
    {"data", "DIR", &CommandLine::dataFolder, nullptr,
     QT_TRANSLATE_NOOP("Words", "代替自带资料的参考数据文件夹")},
    {"home", "DIR", &CommandLine::home, nullptr, QT_TRANSLATE_NOOP("Words", "设置和台账所在的文件夹")},
    {"ledger", "ADDRESS", &CommandLine::ledger, nullptr,
     QT_TRANSLATE_NOOP(
         "Words",
         "代替 ALGODESK_LEDGER 或文件夹中台账的台账：文件，或 postgresql://[USER@]HOST[:PORT]/DATABASE")},
    {"wait", "SECONDS", &CommandLine::wait, nullptr,
     QT_TRANSLATE_NOOP("Words", "等待其他程序改动台账的秒数（5）")},
    {"answer", "yes|no", &CommandLine::answer, nullptr,
     QT_TRANSLATE_NOOP("Words", "对行数上限提问的回答（yes）")},
    {"switch-account", "ACCOUNT", &CommandLine::switchAccount, nullptr,
     QT_TRANSLATE_NOOP("Words", "导入后换成该账号")},
    {"confirm", "", nullptr, &CommandLine::confirm, QT_TRANSLATE_NOOP("Words", "最后按“确定”")},
    {"encoding", "NAME", &CommandLine::encoding, nullptr,
     QT_TRANSLATE_NOOP("Words", "csv 文件的编码，例如 Big5，代替自动识别的")},
    {"mapping", "FILE.json", &CommandLine::mapping, nullptr,
     QT_TRANSLATE_NOOP("Words", "按该映射读取 FILE，例如 check 建议的映射")},
    {"rejects", "OUT", &CommandLine::rejects, nullptr,
     QT_TRANSLATE_NOOP("Words", "把未导入的行连同原因写到 OUT（xlsx 或 csv）")},
    {"faults", "", nullptr, &CommandLine::faults,
     QT_TRANSLATE_NOOP("Words", "除提示外，把文件和批次的问题也作为数据给出")},
    {"create", "", nullptr, &CommandLine::create,
     QT_TRANSLATE_NOOP("Words", "核对通过后，把确定的批次创建到台账")},
    {"yes", "", nullptr, &CommandLine::yes, QT_TRANSLATE_NOOP("Words", "有提示也创建")},
    {"accept", "RULE[,RULE]", &CommandLine::accept, nullptr,
     QT_TRANSLATE_NOOP("Words",
                       "不顾这些规则的发现而创建（不能放行“不能创建”的）；须逐条写明，没有全部同意")},
    {"amount", "AMOUNT", &CommandLine::amount, nullptr, QT_TRANSLATE_NOOP("Words", "要求再次输入时的总金额")},
    {"duplicates", "leave-out|changed-only|replace", &CommandLine::duplicates, nullptr,
     QT_TRANSLATE_NOOP(
         "Words",
         "台账中已有的委托：不再创建，或只创建与 --against 的批次 N 不同的，或在同一事务中撤回该批次")},
    {"against", "N", &CommandLine::against, nullptr,
     QT_TRANSLATE_NOOP("Words", "changed-only 和 replace 所指的批次")},
    {"batch", "N", &CommandLine::batch, nullptr, QT_TRANSLATE_NOOP("Words", "只限该批次")},
    {"reason", "TEXT", &CommandLine::reason, nullptr,
     QT_TRANSLATE_NOOP("Words", "暂停、恢复、拒绝或核对的原因")},
    {"as", "STATE", &CommandLine::settleAs, nullptr,
     QT_TRANSLATE_NOOP("Words", "实例的结果：running、stopped、finished、rejected 或 queued")},
    {"verify", "", nullptr, &CommandLine::verify,
     QT_TRANSLATE_NOOP("Words", "核对没有记录被改动、删去或调换")},
    {"from", "N", &CommandLine::from, nullptr, QT_TRANSLATE_NOOP("Words", "从该编号起的记录")},
    {"day", "DAY", &CommandLine::day, nullptr,
     QT_TRANSLATE_NOOP("Words", "报告的交易日，例如 2026-11-23（今天）")},
    {"out", "OUT", &CommandLine::out, nullptr,
     QT_TRANSLATE_NOOP("Words", "同时把报告写到 OUT（xlsx 或 csv）")},
    {"pace", "FACTOR", &CommandLine::pace, nullptr, QT_TRANSLATE_NOOP("Words", "演示比时钟快的倍数（600）")},
    {"headless", "", nullptr, &CommandLine::headless, QT_TRANSLATE_NOOP("Words", "以文字演示，并自行结束")},
    {"all", "", nullptr, &CommandLine::allTemplates, QT_TRANSLATE_NOOP("Words", "全部算法的模板")},
};

constexpr uint LongestWait = 3600;

/// Taken before a line is parsed (words/Language.h); here it is only told.
constexpr Option Language = {"language", "zh|en", nullptr, nullptr,
                             QT_TRANSLATE_NOOP("Words", "命令的语言：zh（默认）或 en；窗口默认按系统语言")};

/// Not the parser's own: that one is known by several names, and brings a second option along.
constexpr Option Help = {"help", "", nullptr, &CommandLine::help, QT_TRANSLATE_NOOP("Words", "显示本说明")};

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
    const QString given = QString::number(count);
    return command.arguments.isEmpty()
               ? Words::tr("%1 不带参数，却给了 %2 个").arg(command.name, given)
               : Words::tr("%1 的参数应为 %2，却给了 %3 个")
                     .arg(command.name, command.arguments.join(QLatin1Char(' ')), given);
}

/// What the parser says of an option that the command does not have, and which one may be meant.
QString unknownOption(const QCommandLineParser& parser, const QList<Option>& options)
{
    QStringList known{QStringLiteral("language")};
    for (const Option& option : options) {
        known.append(QString::fromLatin1(option.name));
    }
    return didYouMean(parser.errorText(), parser.unknownOptionNames().value(0), known);
}

/// What is wrong with a line whose options are known; empty when nothing is.
QString faultOf(const CommandLine& line, const Command& command)
{
    if (line.answer != QLatin1String("yes") && line.answer != QLatin1String("no")) {
        return Words::tr("--answer 应为 yes 或 no，而不是“%1”").arg(line.answer);
    }
    bool isNumber = false;
    const uint seconds = line.wait.toUInt(&isNumber);
    if (!isNumber || seconds > LongestWait) {
        return Words::tr("--wait 应为 0 到 %1 秒，而不是“%2”").arg(LongestWait).arg(line.wait);
    }
    if (line.files.size() != command.arguments.size() && !takesAnyNumber(command)) {
        return wrongArguments(command, line.files.size());
    }
    const int empty = line.files.indexOf(QString());
    return empty < 0 ? QString()
                     : Words::tr("%1 不能为空").arg(command.arguments.value(empty, command.arguments.last()));
}

QString described(const Option& option)
{
    const QString name = option.shownName() + QLatin1Char(' ') + QString::fromUtf8(option.valueName);
    return QStringLiteral("  %1 %2\n").arg(name.trimmed(), -26).arg(Words::tr(option.description));
}

/// What may be typed, which is the same in every language.
QString synopsis()
{
    return QStringLiteral(
               "       algodesk demo [--headless] [--home DIR] [--pace FACTOR]\n"
               "       algodesk import FILE --strategy CODE --account ACCOUNT [--data DIR] [--answer "
               "yes|no]\n"
               "                            [--switch-account ACCOUNT] [--confirm [--create [--yes] "
               "[--accept RULE[,RULE]]\n"
               "                            [--amount AMOUNT] [--duplicates leave-out|changed-only|replace "
               "[--against N]]]]\n"
               "                            [--faults] [--rejects OUT] [--mapping FILE.json]\n"
               "       algodesk rows FILE [--encoding NAME]\n"
               "       algodesk check FILE [--strategy CODE --account ACCOUNT] [--data DIR] [--encoding "
               "NAME]\n"
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
               "       algodesk ledger init ADDRESS | ledger copy FROM TO | ledger limits ADDRESS [--data "
               "DIR]\n"
               "       algodesk status\n"
               "       algodesk report [--day DAY] [--out OUT]\n"
               "%1"
               "       algodesk --help | --version\n")
        .arg(gatewayUsage());
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
        error = unknownOption(parser, options);
        return std::nullopt;
    }
    CommandLine line;
    line.files = parser.positionalArguments();
    for (const Option& option : options) {
        if (!take(parser, option, line)) {
            error = Words::tr("%1 缺少取值").arg(option.shownName());
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
    const QString paragraph = QStringLiteral("%1\n\n");
    QString text = Words::tr("用法：algodesk                      打开交易台窗口") + QLatin1Char('\n') +
                   synopsis() + QLatin1Char('\n') +
                   paragraph.arg(Words::tr("命令不需要显示环境，在标准输出上打印 JSON。退出状态：0 完成；1 "
                                           "有提示；2 用法错误、没有该算法或账户、参考数据有误。\n"
                                           "check：0 无问题，1 有警告，3 有错误，4 无法读取。5 "
                                           "已完成，但标准输出写不进去。6 批次等待复核。")) +
                   Words::tr("选项：") + QLatin1Char('\n');
    for (const Option& option : Options) {
        text += described(option);
    }
    return text + described(Language);
}

} // namespace runner
