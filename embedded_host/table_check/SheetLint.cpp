#include "embedded_host/table_check/SheetLint.h"

#include "table/CheckRules.h"

#include <algorithm>

namespace table_lint {

namespace rule = table::rule;

namespace {

/// Whether a sheet's head has the columns that the read one has, or that the strategy wants.
bool looksLikeATable(const QStringList& head, const QStringList& read, const Expectation& expectation)
{
    const auto shared = [&](const QStringList& titles) {
        return int(std::count_if(titles.begin(), titles.end(), [&](const QString& title) {
            return !title.isEmpty() &&
                   (head.contains(title) || head.contains(expectation.aliases.value(title, title)) ||
                    head.contains(expectation.aliases.key(title, title)));
        }));
    };
    constexpr int Enough = 3; // code, market and what to do with them
    return shared(expectation.titles.isEmpty() ? read : expectation.titles) >= Enough;
}

void lintSheets(const table::Table& table, const Expectation& expectation, Findings& findings)
{
    for (const table::Sheet& sheet : table.sheets) {
        if (sheet.read) {
            continue;
        }
        if (sheet.active && sheet.visible) {
            findings.ofFile(rule::ActiveSheet, sheet.name, {table.sheet});
        } else if (sheet.visible && looksLikeATable(sheet.head, table.rows.value(0), expectation)) {
            findings.ofFile(rule::OtherSheet, sheet.name, {table.sheet});
        }
    }
}

} // namespace

void lintFile(const table::Table& table, const Expectation& expectation, Findings& findings)
{
    if (table.inspection.replacedCharacters > 0) {
        findings.ofFile(rule::ReplacedText, QString::number(table.inspection.replacedCharacters),
                        {table.encoding});
    }
    if (table.inspection.unknownCodePage > 0) {
        findings.ofFile(rule::UnknownCodePage, QString::number(table.inspection.unknownCodePage));
    }
    lintSheets(table, expectation, findings);
}

} // namespace table_lint
