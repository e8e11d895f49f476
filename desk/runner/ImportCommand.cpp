#include "desk/batch/HostPrices.h"
#include "desk/batch/LimitsFile.h"
#include "desk/runner/Commands.h"
#include "desk/runner/DialogDriver.h"
#include "desk/runner/LedgerJson.h"
#include "desk/runner/Runner.h"
#include "desk/runner/Session.h"
#include "desk/window/ImportProblems.h"
#include "desk/window/RejectFile.h"
#include "embedded_host/table_reader/RejectFile.h"
#include "embedded_host/table_reader/TableReader.h"
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
QJsonObject writeRejects(const DialogDriver& driver, const QString& out)
{
    const table_reader::Table table = table_reader::readTable(driver.path());
    if (!table.error.isEmpty()) {
        return rejectsToJson(out, 0, table.error);
    }
    QList<Problem> problems;
    for (const ShownBox& box : driver.shownBoxes()) {
        problems += import_problems::fromBoxText(box.text);
    }
    const bool spreadsheetToCsv =
        table.format != QLatin1String("csv") && !out.endsWith(QLatin1String(".xlsx"), Qt::CaseInsensitive);
    const reject_file::Refused refused = reject_file::refusedRows(problems, table.rows, spreadsheetToCsv);
    const QString error = table_writer::writeRejects(out, table.rows.value(0), refused.rows);
    return rejectsToJson(out, refused.rows.size(), error.isEmpty() ? refused.doubt : error);
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
    driver.importFile();
    driver.switchAccountAndConfirm();

    QJsonObject json = driver.toJson();
    bool complained = !driver.shownBoxes().isEmpty();
    Creation creation{{}, Done, nullptr};
    if (line.create) {
        creation = createBatch(driver, line, *limits);
        json[QStringLiteral("creation")] = creation.json;
        complained = complained || creation.status == Complained;
    }
    if (!line.rejects.isEmpty()) {
        const QJsonObject rejects = writeRejects(driver, line.rejects);
        json[QStringLiteral("rejects")] = rejects;
        complained = complained || !rejects[QStringLiteral("error")].toString().isEmpty();
    }
    Result result = print(complained ? Complained : creation.status, QJsonDocument(json));
    result.told = creation.told;
    return result;
}

} // namespace runner
