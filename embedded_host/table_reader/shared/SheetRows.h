#pragma once

#include "embedded_host/table_reader/TableReader.h"

#include <QHash>
#include <QVector>

namespace table_reader {

class NumberLook;

/// Gathers the cells of a sheet, in whatever order they come, into rows without empty ends. Keeps the limits.
class SheetRows {
public:
    SheetRows(const ReadOptions& options, table::Table& table);
    /// For a first look at a sheet that is not the one to be read: few rows and columns, long texts cut off.
    static SheetRows forFirstLook(table::Table& table);

    int maxRows() const { return mMaxRows; }
    bool inspects() const { return mInspects; }
    bool wants(int row, int column) const { return row < mMaxRows && column < mMaxColumns; }

    /// Stores the text of a cell; cells beyond the ones wanted and empty texts are dropped. False: error()
    /// says why.
    bool put(int row, int column, const QString& text);
    /// What only a report needs: kept where the options ask for it, for the rows wanted, within the limits.
    void noteNumber(int row, int column, const QString& raw); ///< the stored form
    void noteLook(int row, int column, double value, const NumberLook& look);
    void noteShown(int row, int column, const QString& shown); ///< otherwise than the text that was put
    void noteUncalculated(int row, int column);
    void noteFilled(int row, bool isStruck); ///< a cell that holds something
    void noteHiddenRow(int row);
    void noteHiddenColumns(int first, qint64 last);
    void noteMergedArea(const QRect& area);
    void noteUnknownCodePage(int codePage);
    const QString& error() const { return mError; }

    /// Hands the rows to the table, up to the last one that is not empty.
    void finish();

private:
    bool notes(int row) const { return mInspects && row < mMaxRows; }

    table::Table& mTable;
    int mMaxRows;
    int mMaxColumns;
    int mMaxText;
    bool mInspects;
    QVector<QStringList> mRows;
    struct Filled {
        int cells = 0;
        int struck = 0;
    };
    QHash<int, Filled> mFilled; ///< by row
    qint64 mCells = 0;
    qint64 mCharacters = 0;
    QString mError;
};

/// Cells that name their text by its number in a list of texts that is read after them, and only as far as
/// needed. They may be of several sheets.
class SharedTexts {
public:
    void want(qint64 index, SheetRows& rows, int row, int column)
    {
        mWanted.append({index, &rows, row, column});
    }
    int count() const { return mWanted.size(); }
    bool isEmpty() const { return mWanted.isEmpty(); }
    /// Call once, after the last want().
    void sort();
    /// The next number that is wanted, in rising order; -1: none is left.
    qint64 next() const { return mNext < mWanted.size() ? mWanted.at(mNext).index : -1; }
    /// Address of the first cell that wants it.
    QString nextCell() const;
    /// Gives the text of next() to all cells that want it. Empty, or the sentence that says what is wrong.
    QString supply(const QString& text);

private:
    struct Wanted {
        qint64 index;
        SheetRows* rows;
        int row;
        int column;
    };
    QVector<Wanted> mWanted;
    int mNext = 0;
};

/// Of the sheets that are not read, no more than so many are looked at.
constexpr int SheetsLookedAt = 32;

/// The first row that is not blank.
QStringList headOf(const table::Table& table);

} // namespace table_reader
