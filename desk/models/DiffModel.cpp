#include "desk/models/DiffModel.h"

namespace {

/// How a kind of change is called, and the colour of its name.
ListModel::Cell shownKind(DiffLine::Kind kind)
{
    switch (kind) {
    case DiffLine::Kind::ColumnAdded:
        return {QStringLiteral("新增列"), {}, QStringLiteral("warning")};
    case DiffLine::Kind::ColumnRemoved:
        return {QStringLiteral("删除列"), {}, QStringLiteral("warning")};
    case DiffLine::Kind::CellChanged:
        return {QStringLiteral("修改"), {}, QStringLiteral("warning")};
    case DiffLine::Kind::RowRemoved:
        return {QStringLiteral("删除行"), {}, QStringLiteral("error")};
    case DiffLine::Kind::RowAdded:
        return {QStringLiteral("新增行"), {}, QStringLiteral("accent")};
    }
    return {};
}

QString rowText(int row)
{
    return row == 0 ? QString() : QString::number(row);
}

QString cellsText(const QStringList& cells)
{
    QStringList filled;
    for (const QString& cell : cells) {
        if (!cell.isEmpty()) {
            filled.append(cell);
        }
    }
    return filled.join(QStringLiteral("  "));
}

const QList<ListModel::Column>& diffColumns()
{
    static const QList<ListModel::Column> all = {
        {QStringLiteral("变更")}, {QStringLiteral("原行"), true}, {QStringLiteral("现行"), true},
        {QStringLiteral("列")},   {QStringLiteral("原值")},       {QStringLiteral("新值")}};
    return all;
}

} // namespace

QList<DiffLine> diffLines(const ledger::BatchDiff& diff)
{
    using Kind = DiffLine::Kind;
    QList<DiffLine> lines;
    for (const QString& column : diff.columnsAdded) {
        lines.append({Kind::ColumnAdded, 0, 0, column, {}, {}});
    }
    for (const QString& column : diff.columnsRemoved) {
        lines.append({Kind::ColumnRemoved, 0, 0, column, {}, {}});
    }
    for (const ledger::ChangedCell& cell : diff.cellsChanged) {
        lines.append({Kind::CellChanged, cell.oldRow, cell.newRow, cell.column, cell.before, cell.after});
    }
    for (const ledger::DiffRow& row : diff.rowsRemoved) {
        lines.append({Kind::RowRemoved, row.row, 0, {}, cellsText(row.cells), {}});
    }
    for (const ledger::DiffRow& row : diff.rowsAdded) {
        lines.append({Kind::RowAdded, 0, row.row, {}, {}, cellsText(row.cells)});
    }
    return lines;
}

DiffModel::DiffModel(QObject* parent) : RecordModel(diffColumns(), parent) {}

ListModel::Cell DiffModel::cellOf(const DiffLine& line, int column) const
{
    switch (Column(column)) {
    case Kind:
        return shownKind(line.kind);
    case OldRow:
        return {rowText(line.oldRow)};
    case NewRow:
        return {rowText(line.newRow)};
    case Title:
        return {line.column};
    case Before:
        return {line.before};
    case After:
        return {line.after};
    }
    return {};
}

QVariant DiffModel::roleOf(const DiffLine& line, int role) const
{
    return role == StateRole ? QVariant(int(line.kind)) : QVariant();
}
