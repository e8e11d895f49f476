#pragma once

#include "embedded_host/table_reader/TableReader.h"

#include <QVector>

namespace table_reader {

/// Gathers the cells of a sheet, in whatever order they come, into rows without empty ends. Keeps the limits.
class SheetRows {
public:
    SheetRows(const ReadOptions& options, table::Table& table);

    int maxRows() const { return mMaxRows; }
    bool inspects() const { return mInspects; }

    /// Stores the text of a cell; rows beyond the ones wanted and empty texts are dropped. False: error()
    /// says why.
    bool put(int row, int column, const QString& text);
    /// What only a report needs: kept where the options ask for it, for the rows wanted, within the limits.
    void noteNumber(int row, int column, const QString& raw); ///< the stored form
    void noteHiddenRow(int row);
    void noteMergedArea(const QRect& area);
    const QString& error() const { return mError; }

    /// Hands the rows to the table, up to the last one that is not empty.
    void finish();

private:
    table::Table& mTable;
    int mMaxRows;
    bool mInspects;
    QVector<QStringList> mRows;
    qint64 mCells = 0;
    qint64 mCharacters = 0;
    QString mError;
};

/// Cells that name their text by its number in a list of texts that is read after them, and only as far as
/// needed.
class SharedTexts {
public:
    void want(qint64 index, int row, int column) { mWanted.append({index, row, column}); }
    int count() const { return mWanted.size(); }
    bool isEmpty() const { return mWanted.isEmpty(); }
    /// Call once, after the last want().
    void sort();
    /// The next number that is wanted, in rising order; -1: none is left.
    qint64 next() const { return mNext < mWanted.size() ? mWanted.at(mNext).index : -1; }
    /// Address of the first cell that wants it.
    QString nextCell() const;
    /// Gives the text of next() to all cells that want it.
    bool supply(const QString& text, SheetRows& rows);

private:
    struct Wanted {
        qint64 index;
        int row;
        int column;
    };
    QVector<Wanted> mWanted;
    int mNext = 0;
};

} // namespace table_reader
