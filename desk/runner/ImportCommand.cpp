#include "desk/ledger/LedgerJson.h"
#include "desk/ledger/Limits.h"
#include "desk/runner/Commands.h"
#include "desk/runner/DialogDriver.h"
#include "desk/runner/Runner.h"
#include "desk/runner/Session.h"
#include "desk/window/ImportProblems.h"
#include "desk/window/RejectFile.h"
#include "embedded_host/table_reader/RejectFile.h"
#include "embedded_host/table_reader/TableReader.h"

#include <optional>

namespace runner {

namespace {

using ledger::Batch;
using ledger::Ledger;
using ledger::LimitScope;
using ledger::Review;

/// The guard's look at the batch, and the batch where guard and consent let it pass. `created` tells which.
QJsonObject createBatch(const ledger::DialogContent& content, const CommandLine& line,
                        const QList<LimitScope>& limits, bool& created)
{
    const auto opened = Ledger::open(homeFolder(line));
    if (!opened.ok()) {
        return {{QStringLiteral("error"), opened.error}};
    }
    const ledger::BatchDraft draft = ledger::makeDraft(content);
    const ledger::Outcome<Review> review =
        ledger::reviewBatch(*opened.value, draft, limits, ledger::hostPrices(draft));
    if (!review.ok()) {
        return {{QStringLiteral("error"), review.error}};
    }
    const ledger::Outcome<Batch> batch =
        ledger::createReviewed(*opened.value, review.value, {line.yes, line.amount});
    created = batch.ok();
    return ledger::creationToJson(review.value.verdict, batch);
}

/// The refused rows of the file with their reasons, as a file to mend and import again.
QJsonObject writeRejects(const DialogDriver& driver, const QString& out)
{
    QList<Problem> problems;
    for (const ShownBox& box : driver.shownBoxes()) {
        problems += import_problems::fromBoxText(box.text);
    }
    const table_reader::Table table = table_reader::readTable(driver.path());
    const bool spreadsheetToCsv =
        table.format != QLatin1String("csv") && !out.endsWith(QLatin1String(".xlsx"), Qt::CaseInsensitive);
    const QList<table_writer::RefusedRow> rows =
        reject_file::refusedRows(problems, table.rows, spreadsheetToCsv);
    return {{QStringLiteral("file"), out},
            {QStringLiteral("rows"), rows.size()},
            {QStringLiteral("error"), table_writer::writeRejects(out, table.rows.value(0), rows)}};
}

} // namespace

Outcome importFile(const CommandLine& line)
{
    if (line.strategy.isEmpty() || line.account.isEmpty()) {
        return refuse(QStringLiteral("import needs --strategy CODE and --account ACCOUNT"));
    }
    if (line.create && !line.confirm) {
        return refuse(QStringLiteral("--create needs --confirm"));
    }
    QString error;
    const std::unique_ptr<EmbeddedHost> host = openHost(line, error);
    if (!host) {
        return refuse(error);
    }
    const std::optional<QList<LimitScope>> limits = ledger::readLimits(referenceDataFolder(line), error);
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
    bool created = false;
    if (line.create && driver.isConfirmed()) {
        json[QStringLiteral("creation")] = createBatch(driver.content(), line, *limits, created);
    }
    if (!line.rejects.isEmpty()) {
        json[QStringLiteral("rejects")] = writeRejects(driver, line.rejects);
    }
    const bool complained = !driver.shownBoxes().isEmpty() || created != line.create;
    return {complained ? Complained : Done, QJsonDocument(json), QString()};
}

} // namespace runner
