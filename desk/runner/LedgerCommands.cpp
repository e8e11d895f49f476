#include "desk/ledger/LedgerJson.h"
#include "desk/runner/Commands.h"
#include "desk/runner/DialogDriver.h"
#include "desk/runner/Runner.h"
#include "desk/runner/Session.h"

#include <QJsonArray>
#include <QJsonObject>

#include <optional>

namespace runner {

namespace {

using LedgerPointer = std::shared_ptr<ledger::Ledger>;

Outcome complain(const QString& error)
{
    return {Complained, QJsonDocument(QJsonObject{{QStringLiteral("error"), error}}), QString()};
}

/// JSON of a value, or its error.
template <typename Value> Outcome printed(const ledger::Outcome<Value>& outcome)
{
    return outcome.ok() ? Outcome{Done, QJsonDocument(ledger::toJson(outcome.value)), QString()}
                        : complain(outcome.error);
}

ledger::Outcome<LedgerPointer> openLedger(const CommandLine& line, ledger::Ledger::Access access)
{
    ledger::Ledger::Options options;
    options.access = access;
    return ledger::Ledger::open(homeFolder(line), options);
}

std::optional<qint64> batchNumber(const QString& text)
{
    bool isNumber = false;
    const qint64 number = text.toLongLong(&isNumber);
    return isNumber && number > 0 ? std::optional<qint64>(number) : std::nullopt;
}

Outcome refuseNumber(const QString& text)
{
    return refuse(QStringLiteral("a batch is named by its number, not '%1'").arg(text));
}

} // namespace

Outcome listBatches(const CommandLine& line)
{
    const auto opened = openLedger(line, ledger::Ledger::Access::Read);
    return opened.ok() ? printed(opened.value->batches()) : complain(opened.error);
}

Outcome listInstances(const CommandLine& line)
{
    const std::optional<qint64> batch = batchNumber(line.batch);
    if (!line.batch.isEmpty() && !batch) {
        return refuseNumber(line.batch);
    }
    const auto opened = openLedger(line, ledger::Ledger::Access::Read);
    return opened.ok() ? printed(opened.value->instances(batch)) : complain(opened.error);
}

Outcome undoBatch(const CommandLine& line)
{
    const std::optional<qint64> batch = batchNumber(line.files.first());
    if (!batch) {
        return refuseNumber(line.files.first());
    }
    const auto opened = openLedger(line, ledger::Ledger::Access::Write);
    return opened.ok() ? printed(opened.value->undo(*batch)) : complain(opened.error);
}

/// The file is imported by the batch's own strategy and account.
Outcome diffBatch(const CommandLine& line)
{
    const std::optional<qint64> number = batchNumber(line.files.first());
    if (!number) {
        return refuseNumber(line.files.first());
    }
    const auto opened = openLedger(line, ledger::Ledger::Access::Read);
    if (!opened.ok()) {
        return complain(opened.error);
    }
    const ledger::Outcome<ledger::Batch> batch = opened.value->batch(*number);
    const ledger::Outcome<ledger::BatchTable> before = opened.value->tableOf(*number);
    if (!batch.ok() || !before.ok()) {
        return complain(batch.ok() ? before.error : batch.error);
    }
    CommandLine import = line;
    import.files = QStringList{line.files.last()};
    import.strategy = batch.value.strategy;
    import.account = batch.value.account;
    QString error;
    const std::unique_ptr<EmbeddedHost> host = openHost(import, error);
    if (!host) {
        return refuse(error);
    }
    DialogDriver driver(*host, import);
    if (!driver.unknownName().isEmpty()) {
        return refuse(driver.unknownName());
    }
    driver.importFile();
    const ledger::DialogContent content = driver.content();
    const ledger::BatchDiff diff =
        ledger::compareTables(before.value, ledger::shownTable(content.columns, content.records));
    QJsonObject json = ledger::toJson(diff, *number, import.files.first());
    json[QStringLiteral("messageBoxes")] = driver.boxes();
    return {driver.boxes().isEmpty() ? Done : Complained, QJsonDocument(json), QString()};
}

} // namespace runner
