#include "desk/check/ImportedFile.h"
#include "desk/check/RejectedRows.h"
#include "desk/runner/Commands.h"
#include "desk/runner/DialogDriver.h"
#include "desk/runner/FaultJson.h"
#include "desk/runner/JudgementJson.h"
#include "desk/runner/LedgerJson.h"
#include "desk/runner/Runner.h"
#include "desk/runner/Session.h"
#include "desk/verdict/Judge.h"
#include "ledger/LedgerTexts.h"

#include <QFileInfo>

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

/// The judgement on the batch, and the batch where it and what was accepted let it pass.
QJsonObject createBatch(DialogDriver& driver, const CommandLine& line, const table::Table& table,
                        const verdict::Desk& desk, const ReferenceData& data)
{
    const QString stopped = objection(driver, line);
    if (!stopped.isEmpty()) {
        return noCreationToJson(stopped);
    }
    const auto opened = Ledger::open(homeFolder(line));
    if (!opened.ok()) {
        return noCreationToJson(opened.error);
    }
    Outcome<verdict::Judgement> judgement =
        verdict::judge(*opened.value, {driver.content(), table}, desk, data, QDateTime::currentDateTimeUtc());
    if (!judgement.ok()) {
        return noCreationToJson(judgement.error);
    }
    const verdict::Acceptance acceptance{line.accept.split(QLatin1Char(',')), line.amount};
    const Outcome<ledger::Batch> created = verdict::createJudged(*opened.value, judgement.value, acceptance);
    return creationToJson(judgement.value, created);
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
    if (!line.create && (line.yes || !line.amount.isEmpty() || !line.accept.isEmpty())) {
        return QStringLiteral("--yes, --accept and --amount need --create");
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
    const Outcome<verdict::Desk> desk = verdict::Desk::read(referenceDataFolder(line));
    if (!desk.ok()) {
        return refuse(desk.error);
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
    if (line.create) {
        const QJsonObject creation = createBatch(driver, line, file.table, desk.value, host->referenceData());
        json[QStringLiteral("creation")] = creation;
        complained = complained || !creation[QStringLiteral("batch")].isObject();
    }
    if (!line.rejects.isEmpty()) {
        const QJsonObject rejects = writeRejects(file.table, driver.fileFaults(), line.rejects);
        json[QStringLiteral("rejects")] = rejects;
        complained = complained || !rejects[QStringLiteral("error")].toString().isEmpty();
    }
    return print(complained ? Complained : Done, QJsonDocument(json));
}

} // namespace runner
