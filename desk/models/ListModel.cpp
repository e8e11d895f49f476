#include "desk/models/ListModel.h"

ListModel::ListModel(const QList<Column>& columns, QObject* parent)
    : QAbstractTableModel(parent), mColumns(columns)
{
}

QStringList ListModel::titles() const
{
    QStringList titles;
    for (const Column& column : mColumns) {
        titles.append(column.title);
    }
    return titles;
}

int ListModel::columnCount(const QModelIndex& parent) const
{
    return parent.isValid() ? 0 : mColumns.size();
}

QVariant ListModel::data(const QModelIndex& index, int role) const
{
    if (!index.isValid()) {
        return {};
    }
    switch (role) {
    case Qt::DisplayRole:
        return cell(index.row(), index.column()).text;
    case PlainRole: {
        const Cell shown = cell(index.row(), index.column());
        return shown.plain.isNull() ? shown.text : shown.plain;
    }
    case TintRole:
        return cell(index.row(), index.column()).tint;
    case Qt::TextAlignmentRole:
        return int(alignmentOf(index.column()));
    default:
        return role > TintRole ? roleOfRow(index.row(), role) : QVariant();
    }
}

QVariant ListModel::headerData(int section, Qt::Orientation orientation, int role) const
{
    if (orientation == Qt::Horizontal && role == Qt::DisplayRole) {
        return mColumns.value(section).title;
    }
    if (orientation == Qt::Horizontal && role == Qt::TextAlignmentRole) {
        return int(alignmentOf(section));
    }
    return QAbstractTableModel::headerData(section, orientation, role);
}

QVariant ListModel::roleOfRow(int, int) const
{
    return {};
}

Qt::Alignment ListModel::alignmentOf(int column) const
{
    return (mColumns.value(column).isNumber ? Qt::AlignRight : Qt::AlignLeft) | Qt::AlignVCenter;
}
