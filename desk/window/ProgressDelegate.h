#pragma once

#include <QColor>
#include <QStyledItemDelegate>

#include <functional>

/// A cell with a thin bar at its foot, as long as ListModel::ProgressRole says.
class ProgressDelegate : public QStyledItemDelegate {
    Q_OBJECT

public:
    /// A colour of the skin by its name.
    using Colours = std::function<QColor(const QString& name)>;

    ProgressDelegate(const Colours& colours, QObject* parent);

    void paint(QPainter* painter, const QStyleOptionViewItem& option,
               const QModelIndex& index) const override;

private:
    Colours mColours;
};
