#include "desk/ledger/DraftBuilder.h"
#include "desk/runner/Commands.h"
#include "desk/runner/DialogDriver.h"
#include "desk/runner/Runner.h"
#include "desk/runner/Session.h"
#include "dialog/HeadAliases.h"
#include "embedded_host/table_reader/TableLint.h"
#include "host/AlgoConstants.h"

#include <QHash>
#include <QJsonArray>
#include <QJsonObject>

#include <algorithm>

namespace runner {

namespace {

/// Exit statuses of a report; 2 is the runner's own Refused.
enum CheckStatus { Clean = 0, Warnings = 1, Errors = 3, Unreadable = 4 };

/// Code -> the securities that it may mean, as a person should see them.
QMultiHash<QString, QString> securitiesByCode(const ReferenceData& data)
{
    QMultiHash<QString, QString> byCode;
    for (const Security& security : data.tables().securities) {
        byCode.insert(security.code, security.symbol + QLatin1Char(' ') + security.name);
    }
    return byCode;
}

table_lint::Expectation expectationOf(const QStringList& titles, const ReferenceData& data)
{
    return {
        titles, headAliases(), Algo_Fields::AlgoInstContentInfo::Symbol,
        [byCode = securitiesByCode(data)](const QString& code) { return QStringList(byCode.values(code)); }};
}

QJsonObject toJson(const table_lint::Finding& finding)
{
    const bool error = finding.severity == table_lint::Severity::Error;
    return {{QStringLiteral("code"), finding.code},
            {QStringLiteral("severity"), error ? QStringLiteral("error") : QStringLiteral("warning")},
            {QStringLiteral("chinese"), finding.chinese},
            {QStringLiteral("english"), finding.english},
            {QStringLiteral("sheet"), finding.sheet},
            {QStringLiteral("address"), finding.address},
            {QStringLiteral("line"), finding.line},
            {QStringLiteral("raw"), finding.raw},
            {QStringLiteral("suggestions"), QJsonArray::fromStringList(finding.suggestions)}};
}

int statusOf(const table_reader::Table& table, const QList<table_lint::Finding>& findings,
             bool dialogComplained)
{
    if (!table.error.isEmpty()) {
        return Unreadable;
    }
    const bool anyError =
        std::any_of(findings.begin(), findings.end(), [](const table_lint::Finding& finding) {
            return finding.severity == table_lint::Severity::Error;
        });
    if (anyError || dialogComplained) {
        return Errors;
    }
    return findings.isEmpty() ? Clean : Warnings;
}

} // namespace

/// Reads the file, says what looks wrong in it, and with a strategy and an account what the import says.
/// Nothing is created and no value changed.
Outcome checkFile(const CommandLine& line)
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
    table_reader::ReadOptions options;
    options.encoding = line.encoding;
    options.inspect = true;
    const table_reader::Table table = table_reader::readTable(line.files.first(), options);

    QStringList titles;
    QJsonArray boxes;
    if (!line.strategy.isEmpty()) {
        DialogDriver driver(*host, line);
        if (!driver.unknownName().isEmpty()) {
            return refuse(driver.unknownName());
        }
        driver.importFile();
        titles = driver.content().columns;
        boxes = driver.boxes();
    }
    const QList<table_lint::Finding> findings =
        table.error.isEmpty() ? table_lint::lint(table, expectationOf(titles, host->referenceData()))
                              : QList<table_lint::Finding>();
    QJsonArray findingArray;
    for (const table_lint::Finding& finding : findings) {
        findingArray.append(toJson(finding));
    }
    const QJsonObject json = {{QStringLiteral("file"), line.files.first()},
                              {QStringLiteral("format"), table.format},
                              {QStringLiteral("encoding"), table.encoding},
                              {QStringLiteral("separator"), table.separator},
                              {QStringLiteral("sheet"), table.sheet},
                              {QStringLiteral("sha256"), ledger::sha256OfFile(line.files.first())},
                              {QStringLiteral("rows"), table.rows.size()},
                              {QStringLiteral("error"), table.error},
                              {QStringLiteral("findings"), findingArray},
                              {QStringLiteral("messageBoxes"), boxes}};
    return {statusOf(table, findings, !boxes.isEmpty()), QJsonDocument(json), QString()};
}

} // namespace runner
