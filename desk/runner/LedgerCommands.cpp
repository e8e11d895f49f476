#include "desk/check/ImportedFile.h"
#include "desk/mapping/MappedFile.h"
#include "desk/runner/Commands.h"
#include "desk/runner/DialogDriver.h"
#include "desk/runner/LedgerAccess.h"
#include "desk/runner/LedgerJson.h"
#include "desk/runner/Runner.h"
#include "desk/runner/Session.h"

#include <QJsonObject>

#include <optional>

namespace runner {

namespace {

/// JSON of a value, or its error.
template <typename Value> Result printed(const Outcome<Value>& outcome)
{
    return outcome.ok() ? print(Done, QJsonDocument(toJson(outcome.value))) : complain(outcome.error);
}

} // namespace

Result listBatches(const CommandLine& line)
{
    const auto opened = openLedger(line, ledger::Ledger::Access::Read);
    if (!opened.ok()) {
        return complain(opened.error);
    }
    return printEach([ledger = opened.value](const TakeElement& take) {
        return ledger->eachBatch([&take](const ledger::Batch& batch) { return take(toJson(batch)); });
    });
}

Result listInstances(const CommandLine& line)
{
    const std::optional<qint64> number = batchNumber(line.batch);
    if (!line.batch.isEmpty() && !number) {
        return refuseNumber(line.batch);
    }
    const auto opened = openLedger(line, ledger::Ledger::Access::Read);
    if (!opened.ok()) {
        return complain(opened.error);
    }
    const QString missing = number ? opened.value->batch(*number).error : QString();
    if (!missing.isEmpty()) {
        return complain(missing);
    }
    return printEach([ledger = opened.value, number](const TakeElement& take) {
        return ledger->eachInstance(
            [&take](const ledger::Instance& instance) { return take(toJson(instance)); }, number);
    });
}

Result undoBatch(const CommandLine& line)
{
    const std::optional<qint64> number = batchNumber(line.files.first());
    if (!number) {
        return refuseNumber(line.files.first());
    }
    // A home that was mistyped must not get a ledger: where there is none, an empty one answers.
    const auto opened =
        openLedger(line, isLedgerThere(line) ? ledger::Ledger::Access::Write : ledger::Ledger::Access::Read);
    if (!opened.ok()) {
        return complain(opened.error);
    }
    const QString missing = opened.value->batch(*number).error;
    return missing.isEmpty() ? printed(opened.value->undo(*number)) : complain(missing);
}

/// The file is imported by the batch's own strategy and account.
Result diffBatch(const CommandLine& line)
{
    const std::optional<qint64> number = batchNumber(line.files.first());
    if (!number) {
        return refuseNumber(line.files.first());
    }
    const auto opened = openLedger(line, ledger::Ledger::Access::Read);
    if (!opened.ok()) {
        return complain(opened.error);
    }
    const Outcome<ledger::Batch> known = opened.value->batch(*number);
    const Outcome<ledger::BatchTable> before = opened.value->tableOf(*number);
    if (!known.ok() || !before.ok()) {
        return complain(known.ok() ? before.error : known.error);
    }
    CommandLine import = line;
    import.files = QStringList{line.files.last()};
    import.strategy = known.value.strategy;
    import.account = known.value.account;
    QString error;
    const std::unique_ptr<EmbeddedHost> host = openHost(import, error);
    if (!host) {
        return refuse(error);
    }
    DialogDriver driver(*host, import);
    if (!driver.unknownName().isEmpty()) {
        return refuse(driver.unknownName());
    }
    driver.importFile(mapping::readFor(driver.path(), import.strategy, host->referenceData()));
    const batch::DialogContent content = driver.content();
    const ledger::BatchDiff diff = ledger::compareTables(
        before.value, batch::shownTable(content.columns, content.records), batch::orderColumns());
    QJsonObject json = toJson(diff, *number, import.files.first());
    json[QStringLiteral("fileEdits")] = known.value.fileEdits;
    json[QStringLiteral("messageBoxes")] = driver.boxes();
    return print(driver.boxes().isEmpty() ? Done : Complained, QJsonDocument(json));
}

} // namespace runner
