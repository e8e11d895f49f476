#include "desk/runner/Runner.h"

#include "desk/runner/CommandLine.h"
#include "desk/runner/Commands.h"

#include <QIODevice>
#include <QList>

#include <algorithm>
#include <optional>

namespace runner {

namespace {

/// A subcommand: the options that it takes and the files that it needs.
struct Command {
    QString name;
    QStringList options;
    int fileCount;
    Outcome (*run)(const CommandLine& line);
};

const QList<Command>& commands()
{
    const QString data = QStringLiteral("data");
    const QString home = QStringLiteral("home");
    static const QList<Command> table = {
        {QStringLiteral("import"),
         {data, home, QStringLiteral("strategy"), QStringLiteral("account"), QStringLiteral("answer"),
          QStringLiteral("switch-account"), QStringLiteral("confirm"), QStringLiteral("create"),
          QStringLiteral("yes"), QStringLiteral("amount"), QStringLiteral("rejects")},
         1,
         importFile},
        {QStringLiteral("rows"), {home, QStringLiteral("encoding")}, 1, readRows},
        {QStringLiteral("check"),
         {data, home, QStringLiteral("strategy"), QStringLiteral("account"), QStringLiteral("encoding")},
         1,
         checkFile},
        {QStringLiteral("strategies"), {data, home}, 0, listStrategies},
        {QStringLiteral("accounts"), {data, home}, 0, listAccounts},
        {QStringLiteral("securities"), {data, home}, 0, listSecurities},
        {QStringLiteral("template"),
         {data, home, QStringLiteral("strategy"), QStringLiteral("all")},
         1,
         writeTemplate},
        {QStringLiteral("batches"), {home}, 0, listBatches},
        {QStringLiteral("instances"), {home, QStringLiteral("batch")}, 0, listInstances},
        {QStringLiteral("undo"), {home}, 1, undoBatch},
        {QStringLiteral("diff"), {data, home}, 2, diffBatch},
    };
    return table;
}

void writeLine(QIODevice& device, const QString& text)
{
    device.write(text.toUtf8());
    device.write("\n");
}

Outcome dispatch(const QStringList& arguments, QIODevice& out)
{
    const auto command = std::find_if(commands().begin(), commands().end(), [&](const Command& candidate) {
        return candidate.name == arguments.first();
    });
    if (command == commands().end()) {
        return refuse(QStringLiteral("unknown subcommand '%1'; see algodesk --help").arg(arguments.first()));
    }
    QString error;
    const std::optional<CommandLine> line =
        parseCommandLine(arguments.mid(1), command->options, command->fileCount, error);
    if (!line) {
        return refuse(error);
    }
    if (line->help) {
        out.write(usage().toUtf8());
        return {};
    }
    return command->run(*line);
}

} // namespace

Outcome refuse(const QString& error)
{
    return {Refused, QJsonDocument(), error};
}

bool isAsked(const QStringList& arguments)
{
    return !arguments.isEmpty() && arguments.first() != QLatin1String("--home") &&
           arguments.first() != QLatin1String("--data");
}

int run(const QStringList& arguments, QIODevice& out, QIODevice& err)
{
    if (arguments.first() == QLatin1String("--help") || arguments.first() == QLatin1String("-h")) {
        out.write(usage().toUtf8());
        return Done;
    }
    if (arguments.first() == QLatin1String("--version")) {
        writeLine(out, QStringLiteral("algodesk " ALGODESK_VERSION));
        return Done;
    }
    const Outcome outcome = dispatch(arguments, out);
    if (!outcome.json.isNull()) {
        out.write(outcome.json.toJson());
    }
    if (!outcome.error.isEmpty()) {
        QString line = outcome.error;
        writeLine(err, line.replace(QLatin1Char('\n'), QLatin1Char(' ')));
    }
    return outcome.status;
}

} // namespace runner
