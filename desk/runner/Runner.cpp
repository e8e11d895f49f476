#include "desk/runner/Runner.h"

#include "desk/runner/CommandLine.h"
#include "desk/runner/Commands.h"
#include "desk/runner/GatewayCommands.h"
#include "desk/runner/LedgerAccess.h"
#include "desk/runner/Output.h"
#include "desk/runner/StandardInput.h"
#include "desk/runner/Suggestion.h"
#include "words/Words.h"

#include <QIODevice>
#include <QList>

#include <algorithm>
#include <optional>
#include <utility>

namespace runner {

namespace {

struct Subcommand {
    Command command;
    Result (*run)(const CommandLine& line);
};

const QList<Subcommand>& subcommands()
{
    const QString file = QStringLiteral("FILE");
    const QString out = QStringLiteral("OUT");
    const QString batch = QStringLiteral("N");
    const QString data = QStringLiteral("data");
    const QString home = QStringLiteral("home");
    const QString ledger = QStringLiteral("ledger");
    const QString wait = QStringLiteral("wait");
    const QString reason = QStringLiteral("reason");
    const QString ofBatch = QStringLiteral("batch");
    const QString ids = QStringLiteral("ID…");
    const QString strategy = QStringLiteral("strategy");
    const QString account = QStringLiteral("account");
    const QString encoding = QStringLiteral("encoding");
    static const QList<Subcommand> table = {
        {{QStringLiteral("import"),
          {data, home, ledger, wait, strategy, account, QStringLiteral("answer"),
           QStringLiteral("switch-account"), QStringLiteral("confirm"), QStringLiteral("create"),
           QStringLiteral("yes"), QStringLiteral("accept"), QStringLiteral("amount"),
           QStringLiteral("duplicates"), QStringLiteral("against"), QStringLiteral("rejects"),
           QStringLiteral("faults"), QStringLiteral("mapping")},
          {file}},
         importFile},
        {{QStringLiteral("rows"), {home, encoding}, {file}}, readRows},
        {{QStringLiteral("check"),
          {data, home, strategy, account, encoding, QStringLiteral("mapping")},
          {file}},
         checkFile},
        {{QStringLiteral("strategies"), {data, home}, {}}, listStrategies},
        {{QStringLiteral("accounts"), {data, home}, {}}, listAccounts},
        {{QStringLiteral("securities"), {data, home}, {}}, listSecurities},
        {{QStringLiteral("template"), {data, home, strategy, QStringLiteral("all")}, {out}}, writeTemplate},
        {{QStringLiteral("atdl"), {home}, {file, out}}, readBrokersFile},
        {{QStringLiteral("batches"), {home, ledger, wait}, {}}, listBatches},
        {{QStringLiteral("instances"), {home, ledger, wait, QStringLiteral("batch")}, {}}, listInstances},
        {{QStringLiteral("undo"), {home, ledger, wait}, {batch}}, undoBatch},
        {{QStringLiteral("approve"), {data, home, ledger, wait}, {batch}}, approveBatch},
        {{QStringLiteral("refuse"), {home, ledger, wait, reason}, {batch}}, refuseBatch},
        {{QStringLiteral("start"), {home, ledger, wait, ofBatch}, {ids}}, startInstances},
        {{QStringLiteral("stop"), {home, ledger, wait, ofBatch}, {ids}}, stopInstances},
        {{QStringLiteral("withdraw"), {home, ledger, wait, ofBatch}, {ids}}, withdrawInstances},
        {{QStringLiteral("settle"),
          {home, ledger, wait, QStringLiteral("as"), reason},
          {QStringLiteral("ID")}},
         settleInstance},
        {{QStringLiteral("audit"),
          {home, ledger, wait, QStringLiteral("verify"), QStringLiteral("from")},
          {}},
         auditLedger},
        {{QStringLiteral("backup"), {home, ledger, wait}, {file}}, backupLedger},
        {{QStringLiteral("restore"), {home, ledger}, {file}}, restoreBackup},
        {{QStringLiteral("vacuum"), {home, ledger, wait}, {}}, vacuumLedger},
        {{QStringLiteral("diff"), {data, home, ledger, wait}, {batch, file}}, diffBatch},
        {{QStringLiteral("ledger init"), {}, {QStringLiteral("ADDRESS")}}, initLedger},
        {{QStringLiteral("ledger copy"), {}, {QStringLiteral("FROM"), QStringLiteral("TO")}}, copyLedger},
        {{QStringLiteral("ledger limits"), {data, wait}, {QStringLiteral("ADDRESS")}}, setLedgerLimits},
        {{QStringLiteral("halt"), {home, ledger, wait, account, QStringLiteral("reason")}, {}}, haltTrading},
        {{QStringLiteral("resume"), {home, ledger, wait, account, QStringLiteral("reason")}, {}},
         resumeTrading},
        {{QStringLiteral("status"), {home, ledger, wait}, {}}, showStatus},
        {{QStringLiteral("report"), {home, ledger, wait, QStringLiteral("day"), QStringLiteral("out")}, {}},
         reportDay},
    };
    return table;
}

/// How many words a name has, where the arguments begin with it; else 0.
int wordsOf(const QString& name, const QStringList& arguments)
{
    const QStringList words = name.split(QLatin1Char(' '));
    return arguments.mid(0, words.size()) == words ? words.size() : 0;
}

QStringList commandNames()
{
    QStringList names = gatewayCommands();
    for (const Subcommand& command : subcommands()) {
        names.append(command.command.name.section(QLatin1Char(' '), 0, 0));
    }
    return names;
}

/// With `-` for FILE the command reads what stands on standard input.
Result runOn(CommandLine line, const Subcommand& subcommand)
{
    static const QStringList readers = {QStringLiteral("import"), QStringLiteral("check"),
                                        QStringLiteral("rows"), QStringLiteral("diff")};
    if (!readers.contains(subcommand.command.name) || line.files.last() != StandardInput::name()) {
        return subcommand.run(line);
    }
    StandardInput input;
    const Outcome<QString> kept = input.keep();
    if (!kept.ok()) {
        return refuse(kept.error);
    }
    line.inputName = StandardInput::name();
    line.files.last() = kept.value;
    return subcommand.run(line);
}

Result dispatch(const QStringList& arguments)
{
    const auto found =
        std::find_if(subcommands().begin(), subcommands().end(), [&](const Subcommand& candidate) {
            return wordsOf(candidate.command.name, arguments) > 0;
        });
    if (found == subcommands().end()) {
        return refuse(didYouMean(Words::tr("没有命令“%1”，见 algodesk --help").arg(arguments.first()),
                                 arguments.first(), commandNames()));
    }
    QString error;
    const std::optional<CommandLine> line =
        parseCommandLine(arguments.mid(wordsOf(found->command.name, arguments)), found->command, error);
    if (!line) {
        return refuse(error);
    }
    if (!line->help && !ledgerAddress(*line).ok()) {
        return refuse(ledgerAddress(*line).error);
    }
    return line->help ? Result{Done, usage().toUtf8(), QString()} : runOn(*line, *found);
}

Result answer(const QStringList& arguments)
{
    const QString& first = arguments.first();
    if (first == QLatin1String("--help") || first == QLatin1String("-h")) {
        return {Done, usage().toUtf8(), QString()};
    }
    if (first == QLatin1String("--version")) {
        return {Done, "algodesk " ALGODESK_VERSION "\n", QString()};
    }
    return dispatch(arguments);
}

/// What cannot be read before anything was printed is told as ever. Behind that the array stays open, so that
/// nobody takes it for whole.
bool writeElements(Result& result, QIODevice& out)
{
    JsonArrayWriter array(out);
    const Outcome<void> read =
        result.elements([&array](const QJsonObject& element) { return array.add(element); });
    if (read.ok()) {
        return array.end();
    }
    result.status = Complained;
    if (array.isBegun()) {
        result.error = read.error;
        return true;
    }
    return write(out, complain(read.error).output);
}

} // namespace

Result refuse(const QString& error)
{
    return {Refused, QByteArray(), error};
}

Result print(int status, const QJsonDocument& json)
{
    return {status, json.toJson(), QString()};
}

Result printEach(Elements elements)
{
    Result result;
    result.elements = std::move(elements);
    return result;
}

bool isAsked(const QStringList& arguments)
{
    return !arguments.isEmpty() && arguments.first() != QLatin1String("--home") &&
           arguments.first() != QLatin1String("--data") && arguments.first() != QLatin1String("--ledger");
}

int run(const QStringList& arguments, QIODevice& out, QIODevice& err)
{
    if (isGatewayCommand(arguments.first())) {
        return runGatewayCommand(arguments, out, err);
    }
    Result result = answer(arguments);
    const bool isTaken = result.elements ? writeElements(result, out) : write(out, result.output);
    if (!isTaken) {
        result.status = Unprinted;
        result.error = Words::tr("无法写到标准输出：%1").arg(out.errorString());
    } else if (result.told) {
        result.told();
    }
    if (!result.error.isEmpty()) {
        write(err, result.error.replace(QLatin1Char('\n'), QLatin1Char(' ')).toUtf8() + '\n');
    }
    return result.status;
}

} // namespace runner
