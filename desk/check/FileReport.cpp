#include "desk/check/FileReport.h"

#include "dialog/HeadAliases.h"
#include "dialog/WholeNumberColumns.h"
#include "embedded_host/reference_data/ReferenceData.h"
#include "host/AlgoConstants.h"

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
                                       {QStringLiteral("封单金额"), NumberKind::Amount}};
    for (const QString& title : wholeNumberColumns()) {
        kinds[title] = NumberKind::Whole;
    }
    const QMap<QString, QString> aliases = headAliases();
    for (auto alias = aliases.cbegin(); alias != aliases.cend(); ++alias) {
        if (kinds.contains(*alias)) {
            kinds[alias.key()] = kinds.value(*alias);
        }
    }
    return kinds;
}

/// Lock strategies trade one security on two legs, each at a price of its own.
bool hasPairedPrices(const QString& strategy)
{
    return QStringList{QStringLiteral("AILOCK"), QStringLiteral("AILOCKPLUS"), QStringLiteral("AILOCK3")}
        .contains(strategy);
}

table_lint::Expectation expectationOf(const QString& strategy, const QStringList& titles,
                                      const ReferenceData& data)
{
    table_lint::Expectation expected;
    expected.titles = titles;
    expected.aliases = headAliases();
    expected.codeTitle = Algo_Fields::AlgoInstContentInfo::Symbol;
    expected.securities = [byCode = securitiesByCode(data)](const QString& code) {
        return QStringList(byCode.values(code));
    };
    expected.numbers = numberColumns();
    expected.pairedPrices = strategy.isEmpty() || hasPairedPrices(strategy);
    return expected;
}

} // namespace

bool FileReport::hasErrors() const
{
    return std::any_of(findings.begin(), findings.end(), [](const table_lint::Finding& finding) {
        return finding.severity == table_lint::Severity::Error;
    });
}

FileReport fileReport(const QString& path, const QString& encoding, const QString& strategy,
                      const QStringList& titles, const ReferenceData& referenceData)
{
    table_reader::ReadOptions options;
    options.encoding = encoding;
    options.inspect = true;
    const table_reader::Table table = table_reader::readTable(path, options);
    FileReport report;
    report.format = table.format;
    report.encoding = table.encoding;
    report.separator = table.separator;
    report.sheet = table.sheet;
    report.rowCount = table.rows.size();
    report.error = table.error;
    if (table.error.isEmpty()) {
        report.findings = table_lint::lint(table, expectationOf(strategy, titles, referenceData));
    }
    return report;
}
