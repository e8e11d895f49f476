#include "desk/check/FileReport.h"

#include "embedded_host/reference_data/ReferenceData.h"
#include "host/AlgoConstants.h"
#include "strategy/ColumnRules.h"
#include "strategy/Traits.h"
#include "table/Table.h"

#include <QMultiHash>

#include <algorithm>

namespace {

/// Code -> the securities that it may mean, as a person should see them.
QMultiHash<QString, QString> securitiesByCode(const ReferenceData& data)
{
    QMultiHash<QString, QString> byCode;
    for (const Security& security : data.tables().securities) {
        byCode.insert(security.code, security.symbol + QLatin1Char(' ') + security.name);
    }
    return byCode;
}

/// Columns that the import reads as numbers, by every title that it takes for them.
QMap<QString, table_lint::NumberKind> numberColumns()
{
    using table_lint::NumberKind;
    namespace Info = Algo_Fields::AlgoInstContentInfo;
    QMap<QString, NumberKind> kinds = {{Info::PriceLimits, NumberKind::Price},
                                       {Info::Quantity_Amount, NumberKind::Amount},
                                       {columns::SealingAmount, NumberKind::Amount}};
    for (const QString& title : strategy::WholeNumberColumns) {
        kinds[title] = NumberKind::Whole;
    }
    for (auto alias = strategy::HeadAliases.cbegin(); alias != strategy::HeadAliases.cend(); ++alias) {
        if (kinds.contains(*alias)) {
            kinds[alias.key()] = kinds.value(*alias);
        }
    }
    return kinds;
}

table_lint::Expectation expectationOf(const QString& strategy, const QStringList& titles,
                                      const ReferenceData& data)
{
    table_lint::Expectation expected;
    expected.titles = titles;
    expected.aliases = strategy::HeadAliases;
    expected.codeTitle = Algo_Fields::AlgoInstContentInfo::Symbol;
    expected.securities = [byCode = securitiesByCode(data)](const QString& code) {
        return QStringList(byCode.values(code));
    };
    expected.numbers = numberColumns();
    expected.pairedPrices = strategy.isEmpty() || strategy::traitsOf(strategy).has(strategy::Lock);
    return expected;
}

/// Meets the import's rule for notes; one with a single text, as templates have them, is no order.
bool isSkippedOrder(const QStringList& cells)
{
    const auto filled = [](const QString& cell) { return !cell.trimmed().isEmpty(); };
    return cells.size() > 2 && !filled(cells.at(0)) && !filled(cells.at(1)) &&
           std::count_if(cells.begin(), cells.end(), filled) > 1;
}

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
    report.skippedRowCount = int(std::count_if(data.begin(), data.end(), isSkippedOrder));
    report.error = table.error;
    if (table.error.isEmpty()) {
        report.findings = table_lint::lint(table, expectationOf(strategy, titles, referenceData));
    }
    return report;
}
