#include "desk/working_copy/WorkingCopy.h"

#include <QDateTime>

#include <algorithm>

namespace working_copy {

namespace {

const QString Csv = QStringLiteral("csv");

/// 2026/11/23 9:35 as a spreadsheet takes it: a date with or without a time, or a time alone.
QString readerSpelling(const QString& typed)
{
    static const QStringList times{QStringLiteral("H:mm"), QStringLiteral("H:mm:ss")};
    QString text = typed.trimmed();
    for (const QString& layout : times) {
        const QTime time = QTime::fromString(text, layout);
        if (time.isValid()) {
            return time.toString(QStringLiteral("HH:mm:ss"));
        }
    }
    text.replace(QLatin1Char('/'), QLatin1Char('-'));
    QStringList layouts{QStringLiteral("yyyy-M-d")};
    for (const QString& time : times) {
        layouts.append(QStringLiteral("yyyy-M-d ") + time);
    }
    for (const QString& layout : qAsConst(layouts)) {
        const QDateTime stamp = QDateTime::fromString(text, layout);
        if (stamp.isValid()) {
            return stamp.toString(QStringLiteral("yyyy-MM-ddTHH:mm:ss.zzz"));
        }
    }
    return typed;
}

void setAt(QStringList& cells, int column, const QString& text)
{
    while (cells.size() <= column) {
        cells.append(QString());
    }
    cells[column] = text;
}

void dropEmptyEnd(QStringList& cells)
{
    while (!cells.isEmpty() && cells.last().isEmpty()) {
        cells.removeLast();
    }
}

void forget(table::Inspection& inspection, const table::Cell& cell)
{
    inspection.numbers.remove(cell);
    inspection.shown.remove(cell);
    inspection.uncalculated.remove(cell);
}

} // namespace

WorkingCopy::WorkingCopy(const table::Table& original) : mOriginal(original)
{
    rebuild();
}

table::Table WorkingCopy::whole() const
{
    table::Table whole = mOriginal;
    whole.rows.clear();
    whole.lines.clear();
    for (const Row& row : mRows) {
        whole.rows.append(row.cells);
        whole.lines.append(row.line);
    }
    return whole;
}

QSet<int> WorkingCopy::leftOut() const
{
    QSet<int> lines;
    for (const Row& row : mRows) {
        if (row.isLeftOut) {
            lines.insert(row.line);
        }
    }
    return lines;
}

QString WorkingCopy::cell(int line, int column) const
{
    const int row = rowOfLine(line);
    return row < 0 ? QString() : mRows.at(row).cells.value(column);
}

bool WorkingCopy::setCell(int line, int column, const QString& text)
{
    const CellChange change = changeOf(line, column, text);
    if (rowOfLine(line) < 0 || column < 0 || change.before == change.after) {
        return false;
    }
    return take({Edit::Kind::Type, {change}, {}, {}});
}

bool WorkingCopy::paste(int line, int column, const QList<QStringList>& cells)
{
    const int first = rowOfLine(line);
    if (first < 0 || column < 0) {
        return false;
    }
    Edit edit;
    edit.kind = Edit::Kind::Paste;
    QList<QStringList> further;
    for (int i = 0; i < cells.size(); ++i) {
        if (first + i >= mRows.size()) {
            further.append(QVector<QString>(column).toList() + cells.at(i));
            continue;
        }
        for (int j = 0; j < cells.at(i).size(); ++j) {
            const CellChange change = changeOf(mRows.at(first + i).line, column + j, cells.at(i).at(j));
            if (change.before != change.after) {
                edit.cells.append(change);
            }
        }
    }
    edit.rows = numbered(further);
    return (!edit.cells.isEmpty() || !edit.rows.isEmpty()) && take(edit);
}

bool WorkingCopy::addRows(const QList<QStringList>& rows)
{
    Edit edit;
    edit.kind = Edit::Kind::Paste;
    edit.rows = numbered(rows);
    return !edit.rows.isEmpty() && take(edit);
}

int WorkingCopy::replaceInColumn(int column, const QString& before, const QString& after)
{
    Edit edit;
    edit.kind = Edit::Kind::Replace;
    for (const Row& row : mRows.mid(1)) {
        if (!row.isLeftOut && column < row.cells.size() && row.cells.at(column) == before) {
            edit.cells.append(changeOf(row.line, column, after));
        }
    }
    const bool changes = !edit.cells.isEmpty() && edit.cells.first().after != before;
    return changes && take(edit) ? edit.cells.size() : 0;
}

bool WorkingCopy::leaveOut(const QList<int>& lines)
{
    const QList<int> changing = linesThatChange(lines, true);
    return !changing.isEmpty() && take({Edit::Kind::LeaveOut, {}, changing, {}});
}

bool WorkingCopy::takeIn(const QList<int>& lines)
{
    const QList<int> changing = linesThatChange(lines, false);
    return !changing.isEmpty() && take({Edit::Kind::TakeIn, {}, changing, {}});
}

void WorkingCopy::undo()
{
    if (canUndo()) {
        --mDone;
        rebuild();
    }
}

void WorkingCopy::redo()
{
    if (canRedo()) {
        ++mDone;
        rebuild();
    }
}

Outcome<WorkingCopy> WorkingCopy::with(const table::Table& original, const QJsonArray& json)
{
    const Outcome<QList<Edit>> edits = editsOf(json);
    WorkingCopy copy(original);
    for (const Edit& edit : edits.value) {
        if (!copy.fits(edit)) {
            return {copy, QStringLiteral("edit %1 does not fit the table").arg(copy.mDone + 1)};
        }
        copy.take(edit);
    }
    return {copy, edits.error};
}

QJsonArray WorkingCopy::toJson() const
{
    return working_copy::toJson(edits());
}

/// A new edit takes the place of those that were undone.
bool WorkingCopy::take(const Edit& edit)
{
    mEdits = edits();
    mEdits.append(edit);
    ++mDone;
    apply(edit);
    makeEdited();
    return true;
}

/// From the beginning: an edit knows what to do, and never how to take it back.
void WorkingCopy::rebuild()
{
    mRows.clear();
    mRowOfLine.clear();
    mColumnCount = 0;
    for (int row = 0; row < mOriginal.rows.size(); ++row) {
        append({mOriginal.lineOf(row), mOriginal.rows.at(row), false, false});
    }
    for (int i = 0; i < mDone; ++i) {
        apply(mEdits.at(i));
    }
    makeEdited();
}

void WorkingCopy::apply(const Edit& edit)
{
    for (const CellChange& change : edit.cells) {
        put(change);
    }
    mark(edit.lines, edit.kind == Edit::Kind::LeaveOut);
    for (const AddedRow& row : edit.rows) {
        append({row.line, row.cells, false, true});
    }
}

void WorkingCopy::put(const CellChange& change)
{
    QStringList& cells = mRows[rowOfLine(change.line)].cells;
    setAt(cells, change.column, change.after);
    if (mOriginal.format != Csv) {
        dropEmptyEnd(cells); // where the reader ends a row
    }
    mColumnCount = qMax(mColumnCount, cells.size());
}

void WorkingCopy::mark(const QList<int>& lines, bool leftOut)
{
    for (const int line : lines) {
        mRows[rowOfLine(line)].isLeftOut = leftOut;
    }
}

void WorkingCopy::append(const Row& row)
{
    mRowOfLine.insert(row.line, mRows.size());
    mRows.append(row);
    mColumnCount = qMax(mColumnCount, row.cells.size());
}

void WorkingCopy::makeEdited()
{
    mEdited = mOriginal;
    mEdited.rows.clear();
    mEdited.lines.clear();
    for (int i = 0; i < mRows.size(); ++i) {
        const Row& row = mRows.at(i);
        mEdited.rows.append(row.isLeftOut ? QStringList() : row.cells);
        mEdited.lines.append(row.line);
        const QStringList before = mOriginal.rows.value(i);
        for (int column = 0; column < qMax(before.size(), row.cells.size()); ++column) {
            if (row.isLeftOut || before.value(column) != row.cells.value(column)) {
                forget(mEdited.inspection, {i, column});
            }
        }
    }
    while (!isPart() && !mRows.isEmpty() && mRows.at(mEdited.rows.size() - 1).isLeftOut) {
        mEdited.rows.removeLast();
        mEdited.lines.removeLast();
    }
}

bool WorkingCopy::fits(const Edit& edit) const
{
    const auto known = [this](int line) { return rowOfLine(line) >= 0; };
    const auto isNext = [this](const AddedRow& row) { return rowOfLine(row.line) < 0; };
    return std::all_of(edit.lines.begin(), edit.lines.end(), known) &&
           std::all_of(edit.rows.begin(), edit.rows.end(), isNext) &&
           std::all_of(edit.cells.begin(), edit.cells.end(), [&](const CellChange& change) {
               return known(change.line) && change.column >= 0 &&
                      cell(change.line, change.column) == change.before;
           });
}

CellChange WorkingCopy::changeOf(int line, int column, const QString& text) const
{
    return {line, column, titles().value(column), cell(line, column), asRead(text)};
}

QList<AddedRow> WorkingCopy::numbered(const QList<QStringList>& rows) const
{
    QList<AddedRow> added;
    int line = mRows.isEmpty() ? 0 : mRows.last().line;
    for (const QStringList& row : isPart() ? QList<QStringList>() : rows) {
        AddedRow next{++line, {}};
        for (const QString& cell : row) {
            next.cells.append(asRead(cell));
        }
        added.append(next);
    }
    return added;
}

QList<int> WorkingCopy::linesThatChange(const QList<int>& lines, bool leftOut) const
{
    QList<int> changing;
    for (const int line : lines) {
        const int row = rowOfLine(line);
        if (row > 0 && mRows.at(row).isLeftOut != leftOut && !changing.contains(line)) {
            changing.append(line);
        }
    }
    return changing;
}

QString WorkingCopy::asRead(const QString& typed) const
{
    return mOriginal.format == Csv || mOriginal.format.isEmpty() ? typed : readerSpelling(typed);
}

} // namespace working_copy
