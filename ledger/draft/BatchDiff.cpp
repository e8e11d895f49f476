#include "ledger/draft/BatchDiff.h"

#include <QMap>
#include <QPair>

#include <algorithm>

namespace ledger {

namespace {

QStringList without(const QStringList& names, const QStringList& others)
{
    QStringList left;
    for (const QString& name : names) {
        if (!others.contains(name)) {
            left.append(name);
        }
    }
    return left;
}

QStringList cellsAt(const QStringList& row, const QVector<int>& places)
{
    QStringList cells;
    for (const int place : places) {
        cells.append(row.value(place));
    }
    return cells;
}

QVector<int> placesOf(const QStringList& names, const QStringList& columns)
{
    QVector<int> places;
    for (const QString& name : names) {
        places.append(columns.indexOf(name));
    }
    return places;
}

using RowNumbers = QList<int>; // 0-based

QMap<QStringList, RowNumbers> groupRows(const BatchTable& table, const QStringList& names)
{
    QMap<QStringList, RowNumbers> groups;
    const QVector<int> places = placesOf(names, table.columns);
    for (int row = 0; row < table.rows.size(); ++row) {
        groups[cellsAt(table.rows.at(row), places)].append(row);
    }
    return groups;
}

/// A number as people write it; a code with zeros in front is none.
bool isNumber(const QString& cell)
{
    const bool isCode = cell.size() > 1 && cell.at(0) == QLatin1Char('0') && cell.at(1) != QLatin1Char('.');
    return !cell.isEmpty() && !isCode && Decimal::fromText(cell).isNumber();
}

/// 36.2, as a spreadsheet has it, and 36.20, as a text does.
bool isSameNumber(const QString& before, const QString& after)
{
    return isNumber(before) && isNumber(after) && Decimal::fromText(before) == Decimal::fromText(after);
}

/// Compares two tables over the columns that both have.
class Comparison {
public:
    Comparison(const BatchTable& before, const BatchTable& after, const QStringList& keyColumns)
        : mBefore(before), mAfter(after), mKeyColumns(keyColumns),
          mAdded(without(after.columns, before.columns)), mCommon(without(after.columns, mAdded)),
          mOldPlaces(placesOf(mCommon, before.columns)), mNewPlaces(placesOf(mCommon, after.columns))
    {
    }

    BatchDiff run()
    {
        mDiff.columnsAdded = mAdded;
        mDiff.columnsRemoved = without(mBefore.columns, mCommon);
        mDiff.oldColumns = mBefore.columns;
        mDiff.newColumns = mAfter.columns;
        const QStringList keys = without(mKeyColumns, without(mKeyColumns, mCommon));
        const QMap<QStringList, RowNumbers> oldGroups = groupRows(mBefore, keys);
        const QMap<QStringList, RowNumbers> newGroups = groupRows(mAfter, keys);
        for (auto group = newGroups.cbegin(); group != newGroups.cend(); ++group) {
            match(oldGroups.value(group.key()), *group);
        }
        for (auto group = oldGroups.cbegin(); group != oldGroups.cend(); ++group) {
            if (!newGroups.contains(group.key())) {
                match(*group, {});
            }
        }
        sortByRow();
        return mDiff;
    }

private:
    void match(RowNumbers oldRows, RowNumbers newRows)
    {
        dropAlike(oldRows, newRows);
        while (!oldRows.isEmpty() && !newRows.isEmpty()) {
            compareCells(oldRows.takeFirst(), newRows.takeFirst());
        }
        for (const int row : oldRows) {
            mDiff.rowsRemoved.append({row + 1, mBefore.rows.at(row)});
        }
        for (const int row : newRows) {
            mDiff.rowsAdded.append({row + 1, mAfter.rows.at(row)});
        }
    }

    /// So that a row deleted among several of one security changes none of the others.
    void dropAlike(RowNumbers& oldRows, RowNumbers& newRows) const
    {
        QMap<QStringList, RowNumbers> unmatched;
        for (const int row : oldRows) {
            unmatched[cellsAt(mBefore.rows.at(row), mOldPlaces)].append(row);
        }
        RowNumbers left;
        for (const int row : newRows) {
            RowNumbers& alike = unmatched[cellsAt(mAfter.rows.at(row), mNewPlaces)];
            if (alike.isEmpty()) {
                left.append(row);
            } else {
                oldRows.removeOne(alike.takeFirst());
            }
        }
        newRows = left;
    }

    void compareCells(int oldRow, int newRow)
    {
        for (int i = 0; i < mCommon.size(); ++i) {
            const QString before = mBefore.rows.at(oldRow).value(mOldPlaces.at(i));
            const QString after = mAfter.rows.at(newRow).value(mNewPlaces.at(i));
            if (before != after && !isSameNumber(before, after)) {
                mDiff.cellsChanged.append({oldRow + 1, newRow + 1, mCommon.at(i), before, after});
            }
        }
    }

    void sortByRow()
    {
        const auto byRow = [](const DiffRow& left, const DiffRow& right) { return left.row < right.row; };
        std::sort(mDiff.rowsAdded.begin(), mDiff.rowsAdded.end(), byRow);
        std::sort(mDiff.rowsRemoved.begin(), mDiff.rowsRemoved.end(), byRow);
        std::stable_sort(
            mDiff.cellsChanged.begin(), mDiff.cellsChanged.end(),
            [](const ChangedCell& left, const ChangedCell& right) { return left.newRow < right.newRow; });
    }

    const BatchTable& mBefore;
    const BatchTable& mAfter;
    const QStringList& mKeyColumns;
    const QStringList mAdded;
    const QStringList mCommon;
    const QVector<int> mOldPlaces;
    const QVector<int> mNewPlaces;
    BatchDiff mDiff;
};

} // namespace

bool BatchDiff::isEmpty() const
{
    return columnsAdded.isEmpty() && columnsRemoved.isEmpty() && rowsAdded.isEmpty() &&
           rowsRemoved.isEmpty() && cellsChanged.isEmpty();
}

BatchDiff compareTables(const BatchTable& before, const BatchTable& after, const QStringList& keyColumns)
{
    return Comparison(before, after, keyColumns).run();
}

} // namespace ledger
