#pragma once

#include "host/RecordDataList.h"

#include <QAbstractTableModel>
#include <QSet>
#include <QStringList>

/// The records of a ZelTableView as they came, drawn from on demand: adding a thousand of them costs a list's
/// append.
class RecordTableModel : public QAbstractTableModel {
    Q_OBJECT

public:
    using QAbstractTableModel::QAbstractTableModel;

    void setColumns(const QStringList& columns);
    const QStringList& columns() const { return mColumns; }
    void append(const RecordDataList& records);
    void clear();
    const RecordDataList& records() const { return mRecords; }

    void setAlignment(Qt::Alignment alignment);
    /// Shows a check box in the first column of each row.
    void setCheckable(bool checkable);
    const QSet<int>& checkedRows() const { return mCheckedRows; }

    int rowCount(const QModelIndex& parent = {}) const override;
    int columnCount(const QModelIndex& parent = {}) const override;
    QVariant data(const QModelIndex& index, int role) const override;
    bool setData(const QModelIndex& index, const QVariant& value, int role) override;
    QVariant headerData(int section, Qt::Orientation orientation, int role) const override;
    Qt::ItemFlags flags(const QModelIndex& index) const override;

private:
    QVariant cell(const QModelIndex& index, const QString& key) const;
    bool hasCheckBox(const QModelIndex& index) const { return mCheckable && index.column() == 0; }

    QStringList mColumns;
    RecordDataList mRecords;
    QSet<int> mCheckedRows;
    Qt::Alignment mAlignment = Qt::AlignLeft | Qt::AlignVCenter;
    bool mCheckable = false;
};
