#include "desk/check/FileReport.h"
#include "desk/check/ImportedFile.h"
#include "desk/mapping/MappedFile.h"
#include "desk/runner/Commands.h"
#include "desk/runner/DialogDriver.h"
#include "desk/runner/FaultJson.h"
#include "desk/runner/ImportSource.h"
#include "desk/runner/JudgementJson.h"
#include "desk/runner/Runner.h"
#include "desk/runner/Session.h"
#include "desk/verdict/Judge.h"
#include "embedded_host/table_reader/TableFile.h"
#include "strategy/Strategy.h"
#include "table/CheckRules.h"
#include "table/FaultCatalogue.h"
#include "words/Words.h"

#include <QJsonArray>
#include <QJsonObject>

#include <algorithm>
#include <optional>

namespace runner {

namespace {

/// Exit statuses of a report; 2 is the runner's own Refused.
enum CheckStatus { Clean = 0, Warnings = 1, Errors = 3, Unreadable = 4 };

/// The line is told of csv alone: in a sheet the address says it.
QJsonObject toJson(const table_lint::Finding& finding, const FileReport& report)
{
    const table::Fault& fault = finding.fault;
    return {{QStringLiteral("code"), table::rule::codeOf(fault.rule)},
            {QStringLiteral("severity"), table::nameOf(fault.severity)},
            {QStringLiteral("chinese"), table::sentence(fault)},
            {QStringLiteral("english"), table::sentence(fault, table::Language::English)},
            {QStringLiteral("sheet"), report.sheet},
            {QStringLiteral("address"), finding.address},
            {QStringLiteral("line"), report.isSpreadsheet() ? 0 : fault.line},
            {QStringLiteral("raw"), fault.cell},
            {QStringLiteral("suggestions"), QJsonArray::fromStringList(finding.suggestions)}};
}

/// What an import under a strategy makes of the file, and what would be said before its creation.
struct Imported {
    QJsonArray boxes;
    table::Faults faults; ///< of the import, and of 确定 behind them
    int orders = 0;
    std::optional<verdict::Judgement> judgement; ///< of a batch that is not empty
};

/// How bad what stands in one line of a judgement is; whatever is done about it.
table::Severity severityOf(const verdict::Line& line)
{
    table::Severity worst = table::Severity::Notice;
    for (const table::Fault& fault : line.faults) {
        worst = std::max(worst, fault.severity);
    }
    return line.faults.isEmpty() ? table::fault(line.rule).severity : worst;
}

table::Severity severityOf(const std::optional<verdict::Judgement>& judgement)
{
    table::Severity worst = table::Severity::Notice;
    for (const verdict::Line& line : judgement ? judgement->lines : QList<verdict::Line>()) {
        worst = std::max(worst, severityOf(line));
    }
    return worst;
}

int statusOf(const FileReport& report, const Imported& imported)
{
    if (!report.error.isEmpty()) {
        return Unreadable;
    }
    const table::Severity judged = severityOf(imported.judgement);
    if (report.hasErrors() || !imported.boxes.isEmpty() || !imported.faults.isEmpty() ||
        judged == table::Severity::Error) {
        return Errors;
    }
    return report.findings.isEmpty() && judged == table::Severity::Notice ? Clean : Warnings;
}

QJsonObject toJson(const FileReport& report)
{
    QJsonArray findings;
    for (const table_lint::Finding& finding : report.findings) {
        findings.append(toJson(finding, report));
    }
    return {{QStringLiteral("format"), report.format},       {QStringLiteral("encoding"), report.encoding},
            {QStringLiteral("separator"), report.separator}, {QStringLiteral("sheet"), report.sheet},
            {QStringLiteral("sha256"), report.sha256},       {QStringLiteral("rows"), report.rowCount},
            {QStringLiteral("error"), report.error},         {QStringLiteral("findings"), findings}};
}

/// Of the strategy's table; empty where its document cannot be read.
QStringList titlesOf(const QString& code, const EmbeddedHost& host)
{
    const AesStrategy* offered = host.referenceData().strategy(code);
    if (offered == nullptr) {
        return {};
    }
    return strategy::Strategy::parse(offered->name(), offered->alias(), offered->paramFormats())
        .value.titles();
}

/// The dialog is offered what it would read by itself, and it knows no encoding. What a mapping tells comes
/// from the desk anyhow.
ImportedFile asTheDialogReads(const ImportedFile& file, const CommandLine& line, const ReferenceData& data)
{
    return line.encoding.isEmpty() || !line.mapping.isEmpty()
               ? file
               : mapping::readFor(file.path, line.strategy, data);
}

/// What the guard would say, but for what only a ledger knows.
std::optional<verdict::Judgement> judged(DialogDriver& driver, const ImportedFile& file,
                                         const FileReport& report, const verdict::Desk& desk,
                                         const ReferenceData& data)
{
    batch::DialogContent content = driver.content();
    if (content.parameterMaps.isEmpty()) {
        return std::nullopt;
    }
    content.fileSha256 = report.sha256;
    return verdict::preview(batch::makeDraft(content), {content, file.table}, desk, data,
                            QDateTime::currentDateTimeUtc());
}

Result printed(const FileReport& report, const Imported& imported, const QString& path, QJsonObject json = {})
{
    const QJsonObject facts = toJson(report);
    for (auto fact = facts.begin(); fact != facts.end(); ++fact) {
        json[fact.key()] = *fact;
    }
    json[QStringLiteral("file")] = path;
    json[QStringLiteral("messageBoxes")] = imported.boxes;
    json[QStringLiteral("faults")] = runner::toJson(imported.faults);
    json[QStringLiteral("counts")] = countsOf(report, imported.orders);
    json[QStringLiteral("guard")] =
        imported.judgement ? QJsonValue(runner::toJson(*imported.judgement)) : QJsonValue(QJsonValue::Null);
    return print(statusOf(report, imported), QJsonDocument(json));
}

} // namespace

/// Reads the file, says what looks wrong in it, and with a strategy and an account what the import says and
/// the guard would. Nothing is created and no value changed.
Result checkFile(const CommandLine& line)
{
    if (line.strategy.isEmpty() != line.account.isEmpty()) {
        return refuse(Words::tr("check 的 --strategy CODE 与 --account ACCOUNT 应同时给出或都不给"));
    }
    const Outcome<ImportSource> source = ImportSource::of(line);
    if (!source.ok()) {
        return refuse(source.error);
    }
    QString error;
    const std::unique_ptr<EmbeddedHost> host = openHost(line, error);
    if (!host) {
        return refuse(error);
    }
    const Outcome<verdict::Desk> desk = verdict::Desk::read(referenceDataFolder(line));
    if (!desk.ok()) {
        return refuse(desk.error);
    }
    const QString& path = line.files.first();
    const QString shown = line.inputName.isEmpty() ? path : line.inputName;
    const ImportedFile file = source.value.read(path, line, host->referenceData());
    const auto reportOn = [&](const QStringList& titles) {
        FileReport report = fileReport(file.table, line.strategy, titles, host->referenceData());
        report.sha256 = file.file->sha256().value;
        return report;
    };
    if (line.strategy.isEmpty()) {
        return printed(reportOn({}), {}, shown);
    }
    DialogDriver driver(*host, line);
    if (!driver.unknownName().isEmpty()) {
        return refuse(driver.unknownName());
    }
    const ImportedFile read = asTheDialogReads(file, line, host->referenceData());
    driver.importFile(read);
    const FileReport report = reportOn(titlesOf(line.strategy, *host));
    const Imported imported{driver.boxes(), driver.faults() + driver.confirmationFaults(),
                            driver.importedRows(),
                            judged(driver, read, report, desk.value, host->referenceData())};
    QJsonObject json;
    source.value.addTo(json);
    if (!source.value.mapping) {
        addSuggestion(json, file.table, line, host->referenceData());
    }
    return printed(report, imported, shown, json);
}

} // namespace runner
