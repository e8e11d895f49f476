#pragma once

#include "host/HostApi.h"
#include "host/RecordDataList.h"

#include <QTableView>

#include <memory>

/// Key of a column's name in a head list.
inline const QString Head_DisplayRole = QStringLiteral("Head_DisplayRole");

namespace ZelViewModel {
/// Where serial numbers come from: none, the position shown, or the position in which the row was added.
enum class SerialNumColumnOrder { None = 0, ViewOrder = 1, RecordOrder = 2 };
} // namespace ZelViewModel

/// The host's table: shows records, sorts on a click, copies the selection, numbers its rows.
class ALGO_HOST_API ZelTableView : public QTableView {
    Q_OBJECT

public:
    explicit ZelTableView(QWidget* parent = nullptr);
    ~ZelTableView() override;

    /// One map per column; its name stands under Head_DisplayRole. Records are dropped: they belonged to the
    /// columns before.
    void setHeadList(const QList<QMap<QString, QVariant>>& headList);
    /// Column names in column order.
    QStringList headNames() const;
    /// Appends the records.
    void addRecordDataList(const RecordDataList& records);
    /// What was added, in the order in which it was added, however the view is sorted.
    RecordDataList getViewData() const;
    /// Removes the records; the columns stay.
    void clear();
    /// Selects a record by its position in getViewData() and scrolls to it; one that is not there changes
    /// nothing.
    void selectRecord(int position);
    /// Shown in the middle while there are no records.
    void setEmptyText(const QString& text);

    void setItemSelectable(bool selectable);
    void setCheckBoxShow(bool show);
    /// Rows whose box is checked, as positions in getViewData(), ascending.
    QList<int> checkedRows() const;
    void setViewSortable(bool sortable);
    void setSerialNumberColumnPropety(ZelViewModel::SerialNumColumnOrder order);
    void setColumnDefaultTextAlignment(Qt::Alignment alignment);
    /// Pixels; a column whose title or first cells need more gets more.
    void setColumnDefaultWidth(int width);
    /// An index outside the columns is ignored.
    void setColumnShow(int column, bool show);

private:
    void fitColumns();

    class Private;
    std::unique_ptr<Private> d;
};
