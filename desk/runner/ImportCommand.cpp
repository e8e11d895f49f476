#include "desk/check/FileReport.h"
#include "desk/check/ImportedFile.h"
#include "desk/check/RejectedRows.h"
#include "desk/runner/Commands.h"
#include "desk/runner/DialogDriver.h"
#include "desk/runner/FaultJson.h"
#include "desk/runner/ImportSource.h"
#include "desk/runner/JudgementJson.h"
#include "desk/runner/LedgerAccess.h"
#include "desk/runner/LedgerJson.h"
#include "desk/runner/Runner.h"
#include "desk/runner/Session.h"
#include "desk/verdict/Judge.h"
#include "ledger/LedgerTexts.h"
#include "words/Words.h"

#include <QFileInfo>

#include <algorithm>
#include <functional>
#include <limits>

namespace runner {

namespace {

using ledger::Ledger;

/// What stands against creating the batch before the guard looks at it: the runner asks nobody.
QString objection(const DialogDriver& driver, const CommandLine& line)
{
    if (!driver.isConfirmed()) {
        return ledger::texts::notConfirmed();
    }
    if (!driver.digestError().isEmpty()) {
        return driver.digestError();
    }
    return driver.shownBoxes().isEmpty() || line.yes ? QString() : ledger::texts::importComplained();
}

/// What came of a creation.
struct Creation {
    QJsonObject json;
    Status status = Complained;
    std::function<void()> told = nullptr;
};

Creation failed(const QString& error)
{
    return {noCreationToJson(error), Complained, nullptr};
}

/// What a creation is judged by.
struct Ground {
    const table::Table& table;
    const verdict::Desk& desk;
    const ReferenceData& data;
    QJsonArray edits; ///< what was done to the file's table before the import
};

/// What --duplicates and --against ask for.
verdict::DuplicateChoice choiceOf(const CommandLine& line)
{
    return {verdict::wayNamed(line.duplicates).value_or(verdict::DuplicateChoice::Way::CreateAll),
            batchNumber(line.against).value_or(0)};
}

/// The judgement on the batch, and the batch where it and what was accepted let it pass.
Creation judgeAndCreate(Ledger& ledger, const ledger::BatchDraft& draft, const batch::DialogContent& content,
                        const CommandLine& line, const Ground& ground)
{
    Outcome<verdict::Judgement> judgement =
        verdict::judge(ledger, draft, {content, ground.table}, ground.desk, ground.data,
                       QDateTime::currentDateTimeUtc(), choiceOf(line));
    if (!judgement.ok()) {
        return failed(judgement.error);
    }
    const verdict::Acceptance acceptance{line.accept.split(QLatin1Char(',')), line.amount};
    const Outcome<ledger::Batch> created = verdict::createJudged(ledger, judgement.value, acceptance);
    const bool waits = created.ok() && created.value.state == ledger::BatchState::Waiting;
    const Status status = !created.ok() ? Complained : waits ? Waiting : Done;
    return {creationToJson(judgement.value, created), status, nullptr};
}

/// The ledger to create in, as soon as no other program writes it: waiting comes before the import, so that
/// prices and times are those of the creation.
Outcome<LedgerPointer> awaitLedger(const CommandLine& line)
{
    Outcome<LedgerPointer> opened;
    if (line.create) {
        opened = openLedger(line, Ledger::Access::Write);
    }
    if (opened.ok() && opened.value) {
        opened.error = opened.value->awaitTurn().error;
    }
    return opened;
}

/// A repeated command finds what the one before made, where that never told its outcome.
Creation createBatch(const Outcome<LedgerPointer>& opened, DialogDriver& driver, const CommandLine& line,
                     const Ground& ground)
{
    const QString stopped = objection(driver, line);
    if (!stopped.isEmpty()) {
        return failed(stopped);
    }
    if (!opened.ok()) {
        return failed(opened.error);
    }
    batch::DialogContent content = driver.content();
    content.fileEdits = ground.edits;
    ledger::BatchDraft draft = batch::makeDraft(content);
    const ledger::DraftJournal journal(homeFolder(line));
    const Outcome<ledger::Attempt> attempt = ledger::beginAttempt(*opened.value, journal, draft);
    if (!attempt.ok()) {
        return failed(attempt.error);
    }
    Creation creation = attempt.value.made ? Creation{repeatedToJson(*attempt.value.made), Done, nullptr}
                                           : judgeAndCreate(*opened.value, draft, content, line, ground);
    if (creation.status != Complained) {
        creation.told = [journal, entry = attempt.value.entry] { journal.end(entry); };
    }
    return creation;
}

/// Why the refused rows cannot go to that file; empty where they can.
QString rejectsFault(const CommandLine& line)
{
    if (!isTableFile(line.rejects)) {
        return Words::tr("--rejects OUT 应以 .xlsx 或 .csv 结尾");
    }
    const QString out = QFileInfo(line.rejects).canonicalFilePath(); // empty where there is no such file
    const bool isSame = !out.isEmpty() && out == QFileInfo(line.files.first()).canonicalFilePath();
    return isSame ? Words::tr("--rejects OUT 不能就是 FILE") : QString();
}

/// What is wrong with them; empty when nothing is.
QString choiceFault(const CommandLine& line)
{
    using Way = verdict::DuplicateChoice::Way;
    if (!line.duplicates.isEmpty() && !verdict::wayNamed(line.duplicates)) {
        return Words::tr("--duplicates 只能是 leave-out、changed-only 或 replace，不能是“%1”")
            .arg(line.duplicates);
    }
    const Way way = choiceOf(line).way;
    const bool needsBatch = way == Way::ChangedOnly || way == Way::Replace;
    if (needsBatch == line.against.isEmpty()) {
        return needsBatch ? Words::tr("--duplicates %1 需要 --against N").arg(line.duplicates)
                          : Words::tr("--against 只用于 --duplicates changed-only 或 replace");
    }
    return needsBatch && !batchNumber(line.against) ? refuseNumber(line.against).error : QString();
}

/// What is wrong with the arguments by themselves; empty when nothing is.
QString usageFault(const CommandLine& line)
{
    if (line.strategy.isEmpty() || line.account.isEmpty()) {
        return Words::tr("import 需要 --strategy CODE 和 --account ACCOUNT");
    }
    if (line.create && !line.confirm) {
        return Words::tr("--create 需要 --confirm");
    }
    const bool isForCreating = line.yes || !line.amount.isEmpty() || !line.accept.isEmpty() ||
                               !line.duplicates.isEmpty() || !line.against.isEmpty();
    if (!line.create && isForCreating) {
        return Words::tr("--yes、--accept、--amount、--duplicates、--against 需要 --create");
    }
    const QString choice = choiceFault(line);
    return choice.isEmpty() && !line.rejects.isEmpty() ? rejectsFault(line) : choice;
}

QJsonObject rejectsToJson(const QString& out, int rows, const QString& error)
{
    return {{QStringLiteral("file"), out}, {QStringLiteral("rows"), rows}, {QStringLiteral("error"), error}};
}

/// The refused rows of the file with their reasons, as a file to mend and import again.
QJsonObject writeRejects(const table::Table& table, const table::Faults& faults, const QString& out)
{
    if (!table.error.isEmpty()) {
        return rejectsToJson(out, 0, table.error);
    }
    const QList<table_writer::RefusedRow> rows =
        rejected_rows::of(faults, table, rejected_rows::needDatesForCsv(table, out));
    return rejectsToJson(out, rows.size(), rejected_rows::write(out, table, rows));
}

/// Those of no line stand last, as before.
table::Faults byLine(table::Faults faults)
{
    const auto place = [](const table::Fault& fault) {
        return fault.line > 0 ? fault.line : std::numeric_limits<int>::max();
    };
    std::stable_sort(faults.begin(), faults.end(),
                     [&](const table::Fault& a, const table::Fault& b) { return place(a) < place(b); });
    return faults;
}

} // namespace

Result importFile(const CommandLine& line)
{
    QString error = usageFault(line);
    if (!error.isEmpty()) {
        return refuse(error);
    }
    const Outcome<ImportSource> source = ImportSource::of(line);
    if (!source.ok()) {
        return refuse(source.error);
    }
    const std::unique_ptr<EmbeddedHost> host = openHost(line, error);
    if (!host) {
        return refuse(error);
    }
    const Outcome<verdict::Desk> desk = verdict::Desk::read(referenceDataFolder(line));
    if (!desk.ok()) {
        return refuse(desk.error);
    }
    DialogDriver driver(*host, line);
    if (!driver.unknownName().isEmpty()) {
        return refuse(driver.unknownName());
    }
    const Outcome<LedgerPointer> opened = awaitLedger(line);
    const ImportedFile file = source.value.read(driver.path(), line, host->referenceData());
    driver.importFile(file);
    driver.switchAccountAndConfirm();

    QJsonObject json = driver.toJson();
    source.value.addTo(json);
    const FileReport report = fileReport(file.table, line.strategy, driver.columns(), host->referenceData());
    const table::Faults ofFile = byLine(driver.fileFaults() + report.lostOrders());
    json[QStringLiteral("counts")] = countsOf(report, driver.importedRows());
    if (line.faults) {
        json[QStringLiteral("faults")] = toJson(ofFile + driver.batchFaults());
    }
    bool complained = !driver.shownBoxes().isEmpty();
    Creation creation{{}, Done, nullptr};
    if (line.create) {
        creation = createBatch(opened, driver, line,
                               {file.table, desk.value, host->referenceData(), source.value.edits()});
        json[QStringLiteral("creation")] = creation.json;
        complained = complained || creation.status == Complained;
    }
    if (!line.rejects.isEmpty()) {
        const QJsonObject rejects = writeRejects(file.table, ofFile, line.rejects);
        json[QStringLiteral("rejects")] = rejects;
        complained = complained || !rejects[QStringLiteral("error")].toString().isEmpty();
    }
    Result result = print(complained ? Complained : creation.status, QJsonDocument(json));
    result.told = creation.told;
    return result;
}

} // namespace runner
