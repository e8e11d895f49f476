#include "desk/runner/GatewayCommands.h"

#include "desk/batch/LimitsFile.h"
#include "desk/runner/CommandLine.h"
#include "desk/runner/LedgerAccess.h"
#include "desk/runner/Runner.h"
#include "desk/runner/Session.h"
#include "embedded_host/reference_data/ReferenceFolder.h"
#include "gateway/program/Gateway.h"
#include "gateway/simulator/Simulator.h"
#include "host/QuotaFields.h"
#include "ledger/Ledger.h"
#include "words/Words.h"

#include <QCommandLineParser>
#include <QCoreApplication>
#include <QIODevice>

namespace runner {

namespace {

constexpr int PriceScale = 10000; // of the simulator's prices

const QString Gateway = QStringLiteral("gateway");
const QString Simulator = QStringLiteral("simulator");

int complain(QIODevice& err, const QString& error)
{
    err.write(error.toUtf8() + '\n');
    return Refused;
}

QString dictionaryFolder()
{
    return QCoreApplication::applicationDirPath() + QStringLiteral("/../share/algodesk/dictionaries");
}

QList<QCommandLineOption> optionsOf(const QString& command)
{
    const QString none;
    const auto valued = [&](const char* name) {
        return QCommandLineOption(QString::fromLatin1(name), none, QStringLiteral("VALUE"));
    };
    if (command == Simulator) {
        return {valued("config"), valued("pace"), valued("faults"), valued("data")};
    }
    return {valued("config"),
            valued("files"),
            valued("profile"),
            valued("ledger"),
            valued("data"),
            valued("home"),
            valued("dry-run"),
            QCommandLineOption(QStringLiteral("forget")),
            QCommandLineOption(QStringLiteral("reset-sequence"))};
}

/// What is wrong with the line; empty when nothing is.
QString faultOf(const QCommandLineParser& parser, const QString& command)
{
    if (!parser.positionalArguments().isEmpty()) {
        return Words::tr("%1 不带参数").arg(command);
    }
    const bool isByFiles = parser.isSet(QStringLiteral("files"));
    if (isByFiles &&
        (parser.isSet(QStringLiteral("config")) || parser.value(QStringLiteral("files")).isEmpty() ||
         parser.isSet(QStringLiteral("reset-sequence")))) {
        return Words::tr("--files 应为文件夹，且不能与 --config 或 --reset-sequence 同用");
    }
    const bool needsConfig =
        !isByFiles && !parser.isSet(QStringLiteral("dry-run")) && !parser.isSet(QStringLiteral("forget"));
    for (const QString& name : {QStringLiteral("config"), QStringLiteral("profile")}) {
        const bool isNeeded = name == QLatin1String("config") ? needsConfig : command == Gateway;
        if (isNeeded && parser.value(name).isEmpty()) {
            return Words::tr("%1 需要 --%2").arg(command, name);
        }
    }
    return QString();
}

int serve(const gateway::GatewayOptions& options, const QCommandLineParser& parser, QIODevice& out,
          QIODevice& err)
{
    if (parser.isSet(QStringLiteral("forget"))) {
        return gateway::forget(options, err);
    }
    if (parser.isSet(QStringLiteral("dry-run"))) {
        bool isNumber = false;
        const qint64 batch = parser.value(QStringLiteral("dry-run")).toLongLong(&isNumber);
        return isNumber ? gateway::dryRun(options, batch, out, err)
                        : complain(err, Words::tr("--dry-run 应为批次号"));
    }
    return gateway::run(options, out, err);
}

int runGateway(const QCommandLineParser& parser, QIODevice& out, QIODevice& err)
{
    CommandLine line;
    line.dataFolder = parser.value(QStringLiteral("data"));
    line.home = parser.value(QStringLiteral("home"));
    line.ledger = parser.isSet(QStringLiteral("ledger")) ? parser.value(QStringLiteral("ledger"))
                                                         : qEnvironmentVariable("ALGODESK_LEDGER");
    QString error;
    const std::optional<QList<ledger::LimitScope>> limits =
        batch::readLimits(referenceDataFolder(line), error);
    const Outcome<ledger::Address> address = ledgerAddress(line);
    if (!limits || !address.ok()) {
        return complain(err, limits ? address.error : error);
    }
    gateway::GatewayOptions options;
    options.settingsFile = parser.value(QStringLiteral("config"));
    options.handOff.path = parser.value(QStringLiteral("files"));
    options.profileFile = parser.value(QStringLiteral("profile"));
    options.ledger = address.value;
    options.limits = *limits;
    options.dictionaryFolder = dictionaryFolder();
    options.storeFolder = homeFolder(line) + QStringLiteral("/gateway");
    options.resetsSequence = parser.isSet(QStringLiteral("reset-sequence"));
    options.isAskedToEnd = gateway::isAskedToEndBySignal;
    return serve(options, parser, out, err);
}

/// What securities cost: a code that several markets have costs the same on all.
std::optional<QHash<QString, qint64>> quotesOf(const QString& dataFolder, QString& error)
{
    CommandLine line;
    line.dataFolder = dataFolder;
    const std::optional<ReferenceTables> tables = readReferenceFolder(referenceDataFolder(line), error);
    if (!tables) {
        return std::nullopt;
    }
    QHash<QString, qint64> quotes;
    for (const Quote& quote : tables->quotes) {
        const ledger::Decimal price =
            ledger::Decimal::fromText(quote.fields.value(QuotaFields::LastPx).toString()) * PriceScale;
        if (price > 0) {
            quotes.insert(quote.symbol.section(QLatin1Char('.'), 0, 0), qRound64(price.toDouble()));
        }
    }
    return quotes;
}

int runSimulator(const QCommandLineParser& parser, QIODevice& out, QIODevice& err)
{
    gateway::SimulatorOptions options;
    options.settingsFile = parser.value(QStringLiteral("config"));
    options.dictionaryFolder = dictionaryFolder();
    options.isAskedToEnd = gateway::isAskedToEndBySignal;
    bool isNumber = true;
    if (parser.isSet(QStringLiteral("pace"))) {
        options.pace = parser.value(QStringLiteral("pace")).toDouble(&isNumber);
    }
    if (!isNumber || !(options.pace > 0.0)) {
        return complain(err, Words::tr("--pace 应为大于 0 的倍数"));
    }
    if (parser.isSet(QStringLiteral("faults"))) {
        options.faults = parser.value(QStringLiteral("faults")).toUInt(&isNumber);
    }
    if (!isNumber) {
        return complain(err, Words::tr("--faults 应为随机种子"));
    }
    QString error;
    const auto quotes = quotesOf(parser.value(QStringLiteral("data")), error);
    if (!quotes) {
        return complain(err, error);
    }
    options.quotes = *quotes;
    return gateway::simulate(options, out, err);
}

} // namespace

QStringList gatewayCommands()
{
    return {Gateway, Simulator};
}

bool isGatewayCommand(const QString& name)
{
    return gatewayCommands().contains(name);
}

int runGatewayCommand(const QStringList& arguments, QIODevice& out, QIODevice& err)
{
    gateway::isAskedToEndBySignal(); // whoever is told to end while it starts ends in order, too
    const QString& command = arguments.first();
    QCommandLineParser parser;
    parser.addOptions(optionsOf(command));
    if (!parser.parse(arguments)) {
        return complain(err, parser.errorText());
    }
    const QString fault = faultOf(parser, command);
    if (!fault.isEmpty()) {
        return complain(err, fault);
    }
    return command == Gateway ? runGateway(parser, out, err) : runSimulator(parser, out, err);
}

QString gatewayUsage()
{
    return QStringLiteral(
        "       algodesk gateway --config FILE | --files FOLDER --profile FILE [--ledger ADDRESS] [--data "
        "DIR]\n"
        "                        [--reset-sequence] [--dry-run N] [--forget]\n"
        "       algodesk simulator --config FILE [--pace FACTOR] [--faults SEED] [--data DIR]\n");
}

} // namespace runner
