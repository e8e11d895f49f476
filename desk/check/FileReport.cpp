#include "desk/check/FileReport.h"

#include "desk/check/ImportExpectation.h"
#include "table/CheckRules.h"
#include "table/Table.h"

#include <algorithm>

namespace {

/// The rows that an import looks at.
QList<QStringList> dataRows(const QList<QStringList>& rows)
{
    return rows.mid(1, table::MostOrders);
}

} // namespace

bool FileReport::hasErrors() const
{
    return std::any_of(findings.begin(), findings.end(), [](const table_lint::Finding& finding) {
        return finding.fault.severity == table::Severity::Error;
    });
}

table::Faults FileReport::lostOrders() const
{
    table::Faults lost;
    for (const table_lint::Finding& finding : findings) {
        if (finding.fault.rule == table::rule::OrderWithoutCode) {
            lost.append(finding.fault);
        }
    }
    return lost;
}

FileReport fileReport(const table::Table& table, const QString& strategy, const QStringList& titles,
                      const ReferenceData& referenceData)
{
    FileReport report;
    report.format = table.format;
    report.encoding = table.encoding;
    report.separator = table.separator;
    report.sheet = table.sheet;
    report.rowCount = table.rows.size();
    const QList<QStringList> data = dataRows(table.rows);
    report.orderCount = data.size() - int(std::count_if(data.begin(), data.end(), table::isBlankOrNote));
    report.error = table.error;
    if (table.error.isEmpty()) {
        report.findings = table_lint::lint(table, importExpectation(strategy, titles, referenceData));
    }
    return report;
}
