#include "desk/batch/HostPrices.h"
#include "desk/batch/LimitsFile.h"
#include "desk/check/ImportedFile.h"
#include "desk/check/RejectedRows.h"
#include "desk/runner/Commands.h"
#include "desk/runner/DialogDriver.h"
#include "desk/runner/FaultJson.h"
#include "desk/runner/LedgerJson.h"
#include "desk/runner/Runner.h"
#include "desk/runner/Session.h"
#include "ledger/LedgerTexts.h"

#include <QFileInfo>

#include <optional>

namespace runner {

namespace {

using ledger::Ledger;
using ledger::LimitScope;
using ledger::Review;

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

/// The guard's look at the batch, and the batch where guard and consent let it pass.
Creation reviewAndCreate(Ledger& ledger, const ledger::BatchDraft& draft, const CommandLine& line,
                         const QList<LimitScope>& limits)
{
    Outcome<Review> review = ledger::reviewBatch(ledger, draft, limits, batch::hostPrices(draft));
    if (!review.ok()) {
        return failed(review.error);
    }
    const Outcome<ledger::Batch> created =
        ledger::createReviewed(ledger, review.value, {line.yes, line.amount});
    const bool waits = created.ok() && created.value.state == ledger::BatchState::Waiting;
    const Status status = !created.ok() ? Complained : waits ? Waiting : Done;
    return {creationToJson(review.value.verdict, created), status, nullptr};
}

/// A repeated command finds what the one before made, where that never told its outcome.
Creation createBatch(DialogDriver& driver, const CommandLine& line, const QList<LimitScope>& limits)
{
    const QString stopped = objection(driver, line);
    if (!stopped.isEmpty()) {
        return failed(stopped);
    }
    const auto opened = Ledger::open(ledger::Address::ofFile(Ledger::pathIn(homeFolder(line))));
    if (!opened.ok()) {
        return failed(opened.error);
    }
    ledger::BatchDraft draft = batch::makeDraft(driver.content());
    const ledger::DraftJournal journal(homeFolder(line));
    const Outcome<ledger::Attempt> attempt = ledger::beginAttempt(*opened.value, journal, draft);
    if (!attempt.ok()) {
        return failed(attempt.error);
    }
    Creation creation = attempt.value.made ? Creation{repeatedToJson(*attempt.value.made), Done, nullptr}
                                           : reviewAndCreate(*opened.value, draft, line, limits);
    if (creation.status != Complained) {
        creation.told = [journal, entry = attempt.value.entry] { journal.end(entry); };
    }
    return creation;
}

/// Why the refused rows cannot go to that file; empty where they can.
QString rejectsFault(const CommandLine& line)
{
    if (!isTableFile(line.rejects)) {
        return QStringLiteral("--rejects OUT must end in .xlsx or .csv");
    }
    const QString out = QFileInfo(line.rejects).canonicalFilePath(); // empty where there is no such file
    const bool isSame = !out.isEmpty() && out == QFileInfo(line.files.first()).canonicalFilePath();
    return isSame ? QStringLiteral("--rejects OUT must not be FILE itself") : QString();
}

/// What is wrong with the arguments by themselves; empty when nothing is.
QString usageFault(const CommandLine& line)
{
    if (line.strategy.isEmpty() || line.account.isEmpty()) {
        return QStringLiteral("import needs --strategy CODE and --account ACCOUNT");
    }
    if (line.create && !line.confirm) {
        return QStringLiteral("--create needs --confirm");
    }
    if (!line.create && (line.yes || !line.amount.isEmpty())) {
        return QStringLiteral("--yes and --amount need --create");
    }
    return line.rejects.isEmpty() ? QString() : rejectsFault(line);
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

} // namespace

Result importFile(const CommandLine& line)
{
    QString error = usageFault(line);
    if (!error.isEmpty()) {
        return refuse(error);
    }
    const std::unique_ptr<EmbeddedHost> host = openHost(line, error);
    if (!host) {
        return refuse(error);
    }
    const std::optional<QList<LimitScope>> limits = batch::readLimits(referenceDataFolder(line), error);
    if (!limits) {
        return refuse(error);
    }
    DialogDriver driver(*host, line);
    if (!driver.unknownName().isEmpty()) {
        return refuse(driver.unknownName());
    }
    const ImportedFile file = ImportedFile::read(driver.path());
    driver.importFile(file);
    driver.switchAccountAndConfirm();

    QJsonObject json = driver.toJson();
    if (line.faults) {
        json[QStringLiteral("faults")] = toJson(driver.faults());
    }
    bool complained = !driver.shownBoxes().isEmpty();
    Creation creation{{}, Done, nullptr};
    if (line.create) {
        creation = createBatch(driver, line, *limits);
        json[QStringLiteral("creation")] = creation.json;
        complained = complained || creation.status == Complained;
    }
    if (!line.rejects.isEmpty()) {
        const QJsonObject rejects = writeRejects(file.table, driver.fileFaults(), line.rejects);
        json[QStringLiteral("rejects")] = rejects;
        complained = complained || !rejects[QStringLiteral("error")].toString().isEmpty();
    }
    Result result = print(complained ? Complained : creation.status, QJsonDocument(json));
    result.told = creation.told;
    return result;
}

} // namespace runner
