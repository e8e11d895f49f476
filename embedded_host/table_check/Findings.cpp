#include "embedded_host/table_check/Findings.h"

#include "table/CellAddress.h"
#include "table/FaultCatalogue.h"
#include "words/Words.h"

namespace table_lint {

namespace {

/// %1 of the sentence is the text in question, %2 what could be meant.
Finding made(const QString& rule, const QString& text, const QStringList& suggestions)
{
    Finding finding;
    finding.fault = table::fault(rule, {text, suggestions.join(Words::tr("，"))});
    finding.fault.cell = text;
    finding.suggestions = suggestions;
    return finding;
}

} // namespace

bool Findings::hasRoom(const QString& rule)
{
    return ++mCounts[rule] <= MaxFindings;
}

void Findings::ofFile(const QString& rule, const QString& text, const QStringList& suggestions)
{
    if (hasRoom(rule)) {
        mFindings.append(made(rule, text, suggestions));
    }
}

void Findings::ofRow(const QString& rule, int row, const QString& text, const QStringList& suggestions)
{
    if (!hasRoom(rule)) {
        return;
    }
    Finding finding = made(rule, text, suggestions);
    finding.fault.line = mTable.lineOf(row);
    finding.address = QString::number(row + 1);
    mFindings.append(finding);
}

void Findings::ofCell(const QString& rule, int row, int column, const QString& text,
                      const QStringList& suggestions)
{
    if (!hasRoom(rule)) {
        return;
    }
    Finding finding = made(rule, text, suggestions);
    finding.fault.line = mTable.lineOf(row);
    finding.fault.column = mTable.rows.first().value(column);
    finding.fault.cell = mTable.inspection.numbers.value({row, column}, text);
    finding.address = table::cellAddress(row, column);
    mFindings.append(finding);
}

} // namespace table_lint
