#include "embedded_host/widgets/RecordTableModel.h"

#include "embedded_host/widgets/PlainToolTip.h"
#include "strategy/CellRoles.h"

void RecordTableModel::setColumns(const QStringList& columns)
{
    beginResetModel();
    mColumns = columns;
    mRecords.clear();
    mCheckedRows.clear();
    endResetModel();
}

void RecordTableModel::append(const RecordDataList& records)
{
    if (records.isEmpty()) {
        return;
    }
    beginInsertRows({}, mRecords.size(), mRecords.size() + records.size() - 1);
    mRecords.append(records);
    endInsertRows();
}

void RecordTableModel::clear()
{
    setColumns(QStringList(mColumns));
}

void RecordTableModel::setAlignment(Qt::Alignment alignment)
{
    mAlignment = alignment;
    if (!mRecords.isEmpty() && !mColumns.isEmpty()) {
        emit dataChanged(index(0, 0), index(mRecords.size() - 1, mColumns.size() - 1),
                         {Qt::TextAlignmentRole});
    }
}

void RecordTableModel::setCheckable(bool checkable)
{
    beginResetModel();
    mCheckable = checkable;
    mCheckedRows.clear();
    endResetModel();
}

int RecordTableModel::rowCount(const QModelIndex& parent) const
{
    return parent.isValid() ? 0 : mRecords.size();
}

int RecordTableModel::columnCount(const QModelIndex& parent) const
{
    return parent.isValid() ? 0 : mColumns.size();
}

QVariant RecordTableModel::data(const QModelIndex& index, int role) const
{
    switch (role) {
    case Qt::DisplayRole:
        return cell(index, cell_roles::Shown);
    case Qt::UserRole:
        return cell(index, cell_roles::Value);
    case Qt::ToolTipRole:
        return plainToolTip(cell(index, cell_roles::Shown).toString());
    case Qt::TextAlignmentRole:
        return int(mAlignment);
    case Qt::CheckStateRole:
        return hasCheckBox(index) ? QVariant(mCheckedRows.contains(index.row()) ? Qt::Checked : Qt::Unchecked)
                                  : QVariant();
    default:
        return {};
    }
}

bool RecordTableModel::setData(const QModelIndex& index, const QVariant& value, int role)
{
    if (role != Qt::CheckStateRole || !hasCheckBox(index)) {
        return false;
    }
    if (value.toInt() == Qt::Checked) {
        mCheckedRows.insert(index.row());
    } else {
        mCheckedRows.remove(index.row());
    }
    emit dataChanged(index, index, {role});
    return true;
}

QVariant RecordTableModel::headerData(int section, Qt::Orientation orientation, int role) const
{
    if (orientation == Qt::Horizontal && section >= 0 && section < mColumns.size()) {
        if (role == Qt::DisplayRole) {
            return mColumns.at(section);
        }
        if (role == Qt::ToolTipRole) {
            return plainToolTip(mColumns.at(section));
        }
    }
    return QAbstractTableModel::headerData(section, orientation, role);
}

Qt::ItemFlags RecordTableModel::flags(const QModelIndex& index) const
{
    const Qt::ItemFlags plain = Qt::ItemIsSelectable | Qt::ItemIsEnabled | Qt::ItemNeverHasChildren;
    return hasCheckBox(index) ? plain | Qt::ItemIsUserCheckable : plain;
}

QVariant RecordTableModel::cell(const QModelIndex& index, const QString& key) const
{
    if (!index.isValid() || index.row() >= mRecords.size()) {
        return {};
    }
    const RecordData& record = mRecords.at(index.row());
    const auto found = record.constFind(index.column());
    return found == record.cend() ? QVariant() : found->value(key);
}
