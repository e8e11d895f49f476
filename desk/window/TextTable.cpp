#include "desk/window/TextTable.h"

#include "embedded_host/widgets/PlainToolTip.h"

#include <QColor>

TextTable::TextTable(const QStringList& columns, QObject* parent)
    : QAbstractTableModel(parent), mColumns(columns)
{
}

void TextTable::setRows(const QList<QStringList>& rows)
{
    if (rows.size() != mRows.size()) {
        setTable(mColumns, rows);
        return;
    }
    mRows = rows;
    if (!rows.isEmpty()) {
        emit dataChanged(index(0, 0), index(rows.size() - 1, mColumns.size() - 1));
    }
}

void TextTable::setTable(const QStringList& columns, const QList<QStringList>& rows)
{
    beginResetModel();
    mColumns = columns;
    mRows = rows;
    endResetModel();
}

int TextTable::rowCount(const QModelIndex& parent) const
{
    return parent.isValid() ? 0 : mRows.size();
}

int TextTable::columnCount(const QModelIndex& parent) const
{
    return parent.isValid() ? 0 : mColumns.size();
}

QVariant TextTable::data(const QModelIndex& index, int role) const
{
    if (!index.isValid()) {
        return {};
    }
    switch (role) {
    case Qt::DisplayRole:
        return mRows.at(index.row()).value(index.column());
    case PlainText: {
        QString text = mRows.at(index.row()).value(index.column());
        return mNumeric.contains(index.column()) ? text.remove(QLatin1Char(',')) : text;
    }
    case Qt::ToolTipRole:
        return plainToolTip(mRows.at(index.row()).value(index.column()));
    case Qt::TextAlignmentRole:
        return int(alignmentOf(index.column()));
    case Qt::ForegroundRole: {
        const QColor colour = mTint ? mTint(index.row(), index.column()) : QColor();
        return colour.isValid() ? QVariant(colour) : QVariant();
    }
    default:
        return {};
    }
}

QVariant TextTable::headerData(int section, Qt::Orientation orientation, int role) const
{
    if (orientation == Qt::Horizontal && role == Qt::DisplayRole) {
        return mColumns.value(section);
    }
    if (orientation == Qt::Horizontal && role == Qt::TextAlignmentRole) {
        return int(alignmentOf(section));
    }
    return QAbstractTableModel::headerData(section, orientation, role);
}

Qt::Alignment TextTable::alignmentOf(int column) const
{
    return (mNumeric.contains(column) ? Qt::AlignRight : Qt::AlignLeft) | Qt::AlignVCenter;
}
