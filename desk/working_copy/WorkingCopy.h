#pragma once

#include "table/Outcome.h"
#include "table/Table.h"

#include <QHash>
#include <QJsonArray>
#include <QList>
#include <QSet>
#include <QString>
#include <QStringList>

/// An imported table while it is mended on the desk: the table as it came, and what was changed in it since.
/// The file itself is never written.
namespace working_copy {

/// A text put into a cell in place of another.
struct CellChange {
    int line = 0;   ///< of the file, from 1; see Row::line
    int column = 0; ///< from 0; beyond the row's last cell it becomes longer
    QString title;  ///< what the header says above the cell, at the time of the change
    QString before;
    QString after;
};

/// A row that no file has.
struct AddedRow {
    int line = 0;
    QStringList cells;
};

/// One thing that the user did, and undoes at once.
struct Edit {
    enum class Kind {
        Type,     ///< a cell
        Paste,    ///< cells, and rows behind the last one
        Replace,  ///< a text in all rows of a column: the cells have the same column, before and after
        LeaveOut, ///< rows, from the import
        TakeIn    ///< rows that were left out
    };

    Kind kind = Kind::Type;
    QList<CellChange> cells;
    QList<int> lines;     ///< of LeaveOut and TakeIn
    QList<AddedRow> rows; ///< of Paste
};

/// A row as it is shown: one that is left out stands there too.
struct Row {
    /// Of the file, from 1. Rows that were pasted in go on counting behind the last line that was read, so
    /// that a line names one row for good and lines stand in their order.
    int line = 0;
    QStringList cells;
    bool isLeftOut = false;
    bool isAdded = false;
};

/// The table with its edits. Edits are kept, not their effects: whoever has the file and the list has the
/// table.
///
///     WorkingCopy copy(file.table);
///     copy.setCell(5, 0, "600000");
///     copy.leaveOut({7});
///     import(copy.edited());            // lines are still those of the file
///     batch.fileEdits = copy.toJson();  // [{"edit": "type", "cells": [{"line": 5, …}]}, …]
class WorkingCopy {
public:
    WorkingCopy() = default;
    explicit WorkingCopy(const table::Table& original);

    const table::Table& original() const { return mOriginal; }
    /// What an import takes. A row that is left out stands there blank, so that every row keeps its number,
    /// and a file of too many rows stays one; at the end there are none of these. What the reader said of the
    /// sheet beside the texts is gone for cells that were changed or left out.
    const table::Table& edited() const { return mEdited; }
    /// The same with the rows that are left out, and their lines: what a list of rejected rows is written of.
    table::Table whole() const;
    QSet<int> leftOut() const;
    /// Whether the file may have more rows than were read: none can be added then.
    bool isPart() const { return mOriginal.rows.size() >= table::RowsToRead; }

    /// The header first. Empty where the file could not be read.
    const QList<Row>& rows() const { return mRows; }
    /// Most cells of a row.
    int columnCount() const { return mColumnCount; }
    /// Of rows(); -1: no such line.
    int rowOfLine(int line) const { return mRowOfLine.value(line, -1); }
    QString cell(int line, int column) const;
    QStringList titles() const { return mRows.isEmpty() ? QStringList() : mRows.first().cells; }

    /// Each answers whether anything changed; what does not is no edit. In a spreadsheet a date or time that
    /// is typed becomes what the reader makes of one. The header cannot be left out.
    bool setCell(int line, int column, const QString& text);
    /// From a cell to the right and downwards; rows beyond the last one are added. Left-out rows are written
    /// to as well.
    bool paste(int line, int column, const QList<QStringList>& cells);
    /// Behind the last row.
    bool addRows(const QList<QStringList>& rows);
    /// The whole text of cells below the header, in the rows that are not left out; how many cells.
    int replaceInColumn(int column, const QString& before, const QString& after);
    bool leaveOut(const QList<int>& lines);
    bool takeIn(const QList<int>& lines);

    bool isEdited() const { return mDone > 0; }
    bool canUndo() const { return mDone > 0; }
    bool canRedo() const { return mDone < mEdits.size(); }
    void undo();
    void redo();

    /// Those that hold, in their order; without what was undone.
    QList<Edit> edits() const { return mEdits.mid(0, mDone); }
    QJsonArray toJson() const;
    /// The same edits on a table; the error says which does not fit it.
    static Outcome<WorkingCopy> with(const table::Table& original, const QJsonArray& edits);

private:
    bool take(const Edit& edit);
    void rebuild();
    void apply(const Edit& edit);
    void put(const CellChange& change);
    void mark(const QList<int>& lines, bool leftOut);
    void append(const Row& row);
    void makeEdited();
    bool fits(const Edit& edit) const;
    CellChange changeOf(int line, int column, const QString& text) const;
    QList<AddedRow> numbered(const QList<QStringList>& rows) const;
    QList<int> linesThatChange(const QList<int>& lines, bool leftOut) const;
    QString asRead(const QString& typed) const;

    table::Table mOriginal;
    table::Table mEdited;
    QList<Edit> mEdits; ///< with those that were undone and may be done again
    int mDone = 0;      ///< of mEdits
    QList<Row> mRows;
    QHash<int, int> mRowOfLine;
    int mColumnCount = 0;
};

/// As it is kept and printed. The error says what is no list of edits.
Outcome<QList<Edit>> editsOf(const QJsonArray& json);
QJsonArray toJson(const QList<Edit>& edits);

} // namespace working_copy
