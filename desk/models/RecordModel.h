#pragma once

#include "desk/models/ListModel.h"

#include <algorithm>

/// A list over records that it holds, one a row. A list of its own says what its columns make of a record.
template <typename Record> class RecordModel : public ListModel {
public:
    using ListModel::ListModel;

    const QList<Record>& records() const { return mRecords; }
    int rowCount(const QModelIndex& parent = {}) const override
    {
        return parent.isValid() ? 0 : mRecords.size();
    }

    /// Other records: nothing of them is selected.
    void setRecords(const QList<Record>& records)
    {
        beginResetModel();
        mRecords = records;
        endResetModel();
    }

    /// The same records as they are now: selection and scroll position stay. Where others are among them,
    /// nothing is selected, or the selection would be of what nobody chose.
    void updateRecords(const QList<Record>& records)
    {
        const bool areSame =
            records.size() == mRecords.size() &&
            std::equal(records.begin(), records.end(), mRecords.begin(),
                       [this](const Record& one, const Record& other) { return isSame(one, other); });
        if (!areSame) {
            setRecords(records);
            return;
        }
        mRecords = records;
        if (!records.isEmpty()) {
            emit dataChanged(index(0, 0), index(records.size() - 1, columnCount() - 1));
        }
    }

    void appendRecords(const QList<Record>& records)
    {
        if (!records.isEmpty()) {
            beginInsertRows({}, mRecords.size(), mRecords.size() + records.size() - 1);
            mRecords += records;
            endInsertRows();
        }
    }

protected:
    virtual Cell cellOf(const Record& record, int column) const = 0;
    virtual QVariant roleOf(const Record&, int) const { return {}; }
    /// Whether two records are about the same, however that stands.
    virtual bool isSame(const Record&, const Record&) const { return true; }

private:
    Cell cell(int row, int column) const final { return cellOf(mRecords.at(row), column); }
    QVariant roleOfRow(int row, int role) const final { return roleOf(mRecords.at(row), role); }

    QList<Record> mRecords;
};
