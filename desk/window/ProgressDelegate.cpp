#include "desk/window/ProgressDelegate.h"

#include "desk/models/ListModel.h"

#include <QPainter>

namespace {

constexpr int BarHeight = 3;
constexpr int BarMargin = 3;

} // namespace

ProgressDelegate::ProgressDelegate(const Colours& colours, QObject* parent)
    : QStyledItemDelegate(parent), mColours(colours)
{
}

void ProgressDelegate::paint(QPainter* painter, const QStyleOptionViewItem& option,
                             const QModelIndex& index) const
{
    QStyledItemDelegate::paint(painter, option, index);
    const QVariant progress = index.data(ListModel::ProgressRole);
    if (!progress.isValid()) {
        return;
    }
    QRect bar = option.rect.adjusted(BarMargin, 0, -BarMargin, 0);
    bar.setTop(option.rect.bottom() - BarHeight);
    bar.setHeight(BarHeight);
    painter->fillRect(bar, mColours(QStringLiteral("line")));
    bar.setWidth(qRound(bar.width() * progress.toDouble()));
    painter->fillRect(bar, mColours(QStringLiteral("accent")));
}
