#include "embedded_host/table_reader/shared/SheetRows.h"

#include "embedded_host/table_reader/shared/Limits.h"
#include "embedded_host/table_reader/shared/Messages.h"
#include "embedded_host/table_reader/shared/NumberLook.h"
#include "table/CellAddress.h"

#include <algorithm>
#include <limits>

namespace table_reader {

SheetRows::SheetRows(const ReadOptions& options, table::Table& table)
    : mTable(table), mMaxRows(std::clamp(options.maxRows, 0, 1 << 20)),
      mMaxColumns(std::numeric_limits<int>::max()), mMaxText(std::numeric_limits<int>::max()),
      mInspects(options.inspect)
{
}

SheetRows SheetRows::forFirstLook(table::Table& table)
{
    constexpr int Columns = 256;
    constexpr int Characters = 100;
    ReadOptions few;
    few.maxRows = 20;
    SheetRows rows(few, table);
    rows.mMaxColumns = Columns;
    rows.mMaxText = Characters;
    return rows;
}

bool SheetRows::put(int row, int column, const QString& text)
{
    if (!wants(row, column) || text.isEmpty()) {
        return true;
    }
    if (text.size() > mMaxText) {
        return put(row, column, text.left(mMaxText));
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
    if (notes(row) && mTable.inspection.numbers.size() < limits::StoredNumbers) {
        mTable.inspection.numbers.insert({row, column}, raw);
    }
}

void SheetRows::noteLook(int row, int column, double value, const NumberLook& look)
{
    if (!notes(row)) {
        return;
    }
    const std::optional<QString> shown = look.shown(value);
    if (shown && saysOtherwise(*shown, value)) {
        noteShown(row, column, *shown);
    }
}

void SheetRows::noteShown(int row, int column, const QString& shown)
{
    if (notes(row) && mTable.inspection.shown.size() < limits::StoredNumbers) {
        mTable.inspection.shown.insert({row, column}, shown.left(limits::ShownCharacters));
    }
}

void SheetRows::noteUncalculated(int row, int column)
{
    if (notes(row) && mTable.inspection.uncalculated.size() < limits::StoredNumbers) {
        mTable.inspection.uncalculated.insert({row, column});
    }
}

void SheetRows::noteFilled(int row, bool isStruck)
{
    if (notes(row)) {
        Filled& filled = mFilled[row];
        ++filled.cells;
        filled.struck += isStruck ? 1 : 0;
    }
}

void SheetRows::noteHiddenRow(int row)
{
    if (notes(row)) {
        mTable.inspection.hiddenRows.insert(row);
    }
}

void SheetRows::noteHiddenColumns(int first, qint64 last)
{
    for (int column = first; mInspects && column <= last && column < limits::Columns; ++column) {
        mTable.inspection.hiddenColumns.insert(column);
    }
}

void SheetRows::noteMergedArea(const QRect& area)
{
    QList<QRect>& areas = mTable.inspection.mergedAreas;
    if (area.isValid() && notes(area.top()) && areas.size() < limits::MergedAreas) {
        areas.append(area);
    }
}

void SheetRows::noteUnknownCodePage(int codePage)
{
    if (mInspects) {
        mTable.inspection.unknownCodePage = codePage;
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
    constexpr int Several = 3; // a remark may be struck out by itself
    for (auto row = mFilled.cbegin(); row != mFilled.cend(); ++row) {
        if (row->struck >= Several || row->struck * 2 > row->cells) {
            mTable.inspection.struckRows.insert(row.key());
        }
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

QString SharedTexts::supply(const QString& text)
{
    for (const qint64 index = next(); mNext < mWanted.size() && mWanted.at(mNext).index == index; ++mNext) {
        const Wanted& wanted = mWanted.at(mNext);
        if (!wanted.rows->put(wanted.row, wanted.column, text)) {
            return wanted.rows->error();
        }
    }
    return QString();
}

QStringList headOf(const table::Table& table)
{
    const auto isFilled = [](const QString& cell) { return !cell.trimmed().isEmpty(); };
    for (const QStringList& row : table.rows) {
        if (std::any_of(row.begin(), row.end(), isFilled)) {
            return row;
        }
    }
    return QStringList();
}

} // namespace table_reader
