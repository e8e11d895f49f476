#include "desk/broker/TableFaults.h"
#include "desk/check/FileReport.h"
#include "desk/check/ImportedFile.h"
#include "desk/runner/Commands.h"
#include "desk/runner/DialogDriver.h"
#include "desk/runner/FaultJson.h"
#include "desk/runner/Runner.h"
#include "desk/runner/Session.h"
#include "embedded_host/table_reader/TableFile.h"
#include "strategy/Strategy.h"
#include "table/CheckRules.h"
#include "table/FaultCatalogue.h"

#include <QJsonArray>
#include <QJsonObject>

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

int statusOf(const FileReport& report, bool isRefused)
{
    if (!report.error.isEmpty()) {
        return Unreadable;
    }
    if (report.hasErrors() || isRefused) {
        return Errors;
    }
    return report.findings.isEmpty() ? Clean : Warnings;
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

/// The dialog is offered what it would read by itself, and it knows no encoding.
ImportedFile asTheDialogReads(const ImportedFile& file, const CommandLine& line)
{
    ImportedFile plain = file;
    if (!line.encoding.isEmpty()) {
        plain.table = file.file->read();
    }
    return plain;
}

table::Faults brokerFaults(const broker::BrokerRules& rules, const CommandLine& line,
                           const EmbeddedHost& host, const ImportedFile& file, const QString& path)
{
    const ReferenceData& data = host.referenceData();
    const import::Account account = {line.account, data.account(line.account)->assetProp};
    return broker::faultsOfTable(rules, *data.strategy(line.strategy), account, file.table, path);
}

} // namespace

/// Reads the file, says what looks wrong in it, and with a strategy and an account what the import says.
/// Nothing is created and no value changed.
Result checkFile(const CommandLine& line)
{
    if (line.strategy.isEmpty() != line.account.isEmpty()) {
        return refuse(
            QStringLiteral("check takes --strategy CODE and --account ACCOUNT together, or neither"));
    }
    QString error;
    const std::unique_ptr<EmbeddedHost> host = openHost(line, error);
    if (!host) {
        return refuse(error);
    }
    const Outcome<broker::BrokerRules> brokerRules = broker::BrokerRules::read(referenceDataFolder(line));
    if (!brokerRules.ok()) {
        return refuse(brokerRules.error);
    }
    const QString& path = line.files.first();
    const ImportedFile file = ImportedFile::read(path, line.encoding);
    QStringList titles;
    QJsonArray boxes;
    table::Faults faults;
    if (!line.strategy.isEmpty()) {
        DialogDriver driver(*host, line);
        if (!driver.unknownName().isEmpty()) {
            return refuse(driver.unknownName());
        }
        driver.importFile(asTheDialogReads(file, line));
        titles = titlesOf(line.strategy, *host);
        boxes = driver.boxes();
        faults = driver.faults() +
                 brokerFaults(brokerRules.value, line, *host, asTheDialogReads(file, line), driver.path());
    }
    FileReport report = fileReport(file.table, line.strategy, titles, host->referenceData());
    report.sha256 = file.file->sha256().value;
    QJsonObject json = toJson(report);
    json[QStringLiteral("file")] = path;
    json[QStringLiteral("messageBoxes")] = boxes;
    json[QStringLiteral("faults")] = toJson(faults);
    return print(statusOf(report, !boxes.isEmpty() || !faults.isEmpty()), QJsonDocument(json));
}

} // namespace runner
