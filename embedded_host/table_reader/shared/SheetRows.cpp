#include "embedded_host/table_reader/shared/SheetRows.h"

#include "embedded_host/table_reader/shared/Limits.h"
#include "embedded_host/table_reader/shared/Messages.h"
#include "table/CellAddress.h"

#include <algorithm>

namespace table_reader {

SheetRows::SheetRows(const ReadOptions& options, table::Table& table)
    : mTable(table), mMaxRows(std::clamp(options.maxRows, 0, 1 << 20)), mInspects(options.inspect)
{
}

bool SheetRows::put(int row, int column, const QString& text)
{
    if (row >= mMaxRows || text.isEmpty()) {
        return true;
    }
    if (column >= limits::Columns) {
        mError = message::tooManyColumns(row);
    } else if (text.size() > limits::CellCharacters) {
        mError = message::cellTooLong(table::cellAddress(row, column));
    } else if ((mCharacters += text.size()) > limits::TableCharacters) {
        mError = message::tooMuchText();
    }
    if (!mError.isEmpty()) {
        return false;
    }
    if (row >= mRows.size()) {
        mRows.resize(row + 1);
    }
    QStringList& cells = mRows[row];
    mCells += std::max(0, column + 1 - cells.size());
    if (mCells > limits::Cells) {
        mError = message::tooManyCells();
        return false;
    }
    while (cells.size() < column) {
        cells.append(QString());
    }
    if (column == cells.size()) {
        cells.append(text);
    } else {
        cells[column] = text;
    }
    return true;
}

void SheetRows::noteNumber(int row, int column, const QString& raw)
{
    if (mInspects && row < mMaxRows && mTable.inspection.numbers.size() < limits::StoredNumbers) {
        mTable.inspection.numbers.insert({row, column}, raw);
    }
}

void SheetRows::noteHiddenRow(int row)
{
    if (mInspects && row < mMaxRows) {
        mTable.inspection.hiddenRows.insert(row);
    }
}

void SheetRows::noteMergedArea(const QRect& area)
{
    QList<QRect>& areas = mTable.inspection.mergedAreas;
    if (mInspects && area.isValid() && area.top() < mMaxRows && areas.size() < limits::MergedAreas) {
        areas.append(area);
    }
}

void SheetRows::finish()
{
    mTable.rows.reserve(mRows.size());
    mTable.lines.reserve(mRows.size());
    for (const QStringList& row : mRows) {
        mTable.rows.append(row);
        mTable.lines.append(mTable.rows.size());
    }
    mRows.clear();
}

void SharedTexts::sort()
{
    std::stable_sort(mWanted.begin(), mWanted.end(),
                     [](const Wanted& a, const Wanted& b) { return a.index < b.index; });
}

QString SharedTexts::nextCell() const
{
    return table::cellAddress(mWanted.at(mNext).row, mWanted.at(mNext).column);
}

bool SharedTexts::supply(const QString& text, SheetRows& rows)
{
    for (const qint64 index = next(); mNext < mWanted.size() && mWanted.at(mNext).index == index; ++mNext) {
        if (!rows.put(mWanted.at(mNext).row, mWanted.at(mNext).column, text)) {
            return false;
        }
    }
    return true;
}

} // namespace table_reader
