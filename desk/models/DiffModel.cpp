#include "desk/models/DiffModel.h"

#include "words/Words.h"

namespace {

/// How a kind of change is called, and the colour of its name.
ListModel::Cell shownKind(DiffLine::Kind kind)
{
    switch (kind) {
    case DiffLine::Kind::ColumnAdded:
        return {Words::tr("新增列"), {}, QStringLiteral("warning")};
    case DiffLine::Kind::ColumnRemoved:
        return {Words::tr("删除列"), {}, QStringLiteral("warning")};
    case DiffLine::Kind::CellChanged:
        return {Words::tr("修改"), {}, QStringLiteral("warning")};
    case DiffLine::Kind::RowRemoved:
        return {Words::tr("删除行"), {}, QStringLiteral("error")};
    case DiffLine::Kind::RowAdded:
        return {Words::tr("新增行"), {}, QStringLiteral("accent")};
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

QList<ListModel::Column> diffColumns()
{
    return {{Words::tr("变更")}, {Words::tr("原行"), true}, {Words::tr("现行"), true},
            {Words::tr("列")},   {Words::tr("原值")},       {Words::tr("新值")}};
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
