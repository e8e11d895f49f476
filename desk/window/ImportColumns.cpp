#include "desk/window/ImportColumns.h"

#include "desk/window/ColumnMenu.h"
#include "desk/window/DeskSettings.h"

#include <QEvent>
#include <QHeaderView>
#include <QJsonArray>
#include <QJsonDocument>
#include <QScopedValueRollback>
#include <QTableView>

namespace {

const QString Width = QStringLiteral("width");
const QString Hidden = QStringLiteral("hidden");
const QString Order = QStringLiteral("order");
const QString OfAll; // no column is called so

} // namespace

ImportColumns::ImportColumns(EmbeddedHost& host, QTableView* view)
    : QObject(view), mHost(host), mView(view),
      mKept(QJsonDocument::fromJson(DeskSettings(host).importColumns()).object())
{
    const QHeaderView* titles = view->horizontalHeader();
    titles->viewport()->installEventFilter(this);
    connect(titles, &QHeaderView::sectionResized, this,
            [this](int column, int, int width) { keepWidth(column, width); });
    connect(titles, &QHeaderView::sectionMoved, this, &ImportColumns::keepOrder);
    connect(new ColumnMenu(view), &ColumnMenu::chosen, this, &ImportColumns::keepChoice);
}

void ImportColumns::apply()
{
    const QScopedValueRollback<bool> applying(mIsApplying, true);
    QHeaderView* titles = mView->horizontalHeader();
    const QJsonArray order = mKept.value(OfAll).toObject().value(Order).toArray();
    int place = 0;
    for (const QJsonValue& title : order) {
        for (int column = 0; column < titles->count(); ++column) {
            if (titleOf(column) == title.toString()) {
                titles->moveSection(titles->visualIndex(column), place++);
            }
        }
    }
    for (int column = 0; column < titles->count(); ++column) {
        const QJsonObject kept = mKept.value(titleOf(column)).toObject();
        if (kept.value(Hidden).toBool()) {
            mView->hideColumn(column);
        } else if (kept.contains(Width) && !mView->isColumnHidden(column)) {
            mView->setColumnWidth(column, kept.value(Width).toInt());
        }
    }
}

/// The table fits columns by itself, too: only what is done with the pointer is the trader's.
bool ImportColumns::eventFilter(QObject* watched, QEvent* event)
{
    if (event->type() == QEvent::MouseButtonPress || event->type() == QEvent::MouseButtonDblClick) {
        mIsDragging = true;
    } else if (event->type() == QEvent::MouseButtonRelease) {
        mIsDragging = false;
        save();
    }
    return QObject::eventFilter(watched, event);
}

QString ImportColumns::titleOf(int column) const
{
    return mView->model()->headerData(column, Qt::Horizontal).toString();
}

void ImportColumns::keepWidth(int column, int width)
{
    if (mIsDragging && !mIsApplying && width > 0) {
        keep(titleOf(column), Width, width);
    }
}

void ImportColumns::keepOrder()
{
    if (mIsApplying) {
        return;
    }
    const QHeaderView* titles = mView->horizontalHeader();
    QJsonArray order;
    for (int place = 0; place < titles->count(); ++place) {
        order.append(titleOf(titles->logicalIndex(place)));
    }
    keep(OfAll, Order, order);
    save();
}

void ImportColumns::keepChoice(int column, bool isShown)
{
    keep(titleOf(column), Hidden, !isShown);
    save();
}

void ImportColumns::keep(const QString& title, const QString& what, const QJsonValue& value)
{
    QJsonObject kept = mKept.value(title).toObject();
    kept.insert(what, value);
    mKept.insert(title, kept);
}

void ImportColumns::save() const
{
    DeskSettings(mHost).setImportColumns(QJsonDocument(mKept).toJson(QJsonDocument::Compact));
}
