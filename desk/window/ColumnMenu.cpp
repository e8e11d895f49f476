#include "desk/window/ColumnMenu.h"

#include <QContextMenuEvent>
#include <QHeaderView>
#include <QMenu>
#include <QTableView>

ColumnMenu::ColumnMenu(QTableView* view) : QObject(view), mView(view)
{
    view->horizontalHeader()->setSectionsMovable(true);
    view->horizontalHeader()->viewport()->installEventFilter(this);
}

bool ColumnMenu::eventFilter(QObject* watched, QEvent* event)
{
    if (event->type() != QEvent::ContextMenu) {
        return QObject::eventFilter(watched, event);
    }
    open(static_cast<QContextMenuEvent*>(event)->globalPos());
    return true;
}

void ColumnMenu::open(const QPoint& place)
{
    const QHeaderView* titles = mView->horizontalHeader();
    auto* menu = new QMenu(mView);
    menu->setObjectName(QStringLiteral("menu_columns"));
    menu->setAttribute(Qt::WA_DeleteOnClose);
    const bool isLast = titles->count() - titles->hiddenSectionCount() == 1;
    for (int at = 0; at < titles->count(); ++at) {
        const int column = titles->logicalIndex(at);
        QAction* action = menu->addAction(mView->model()->headerData(column, Qt::Horizontal).toString());
        action->setCheckable(true);
        action->setChecked(!mView->isColumnHidden(column));
        action->setEnabled(!(isLast && action->isChecked()));
        connect(action, &QAction::triggered, this, [this, column](bool isShown) {
            mView->setColumnHidden(column, !isShown);
            emit chosen(column, isShown);
        });
    }
    menu->popup(place);
}
