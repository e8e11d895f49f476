#include "desk/window/ImportQueue.h"

#include "words/Words.h"

#include <QHBoxLayout>
#include <QLabel>
#include <QListWidget>
#include <QPushButton>
#include <QVBoxLayout>

#include <algorithm>
#include <functional>

namespace {

constexpr int ShownLines = 3;

QPushButton* addButton(QBoxLayout* row, const char* name, const QString& text, const QString& toolTip)
{
    auto* button = new QPushButton(text);
    button->setObjectName(QLatin1String(name));
    button->setToolTip(toolTip);
    row->addWidget(button);
    return button;
}

} // namespace

ImportQueue::ImportQueue(QWidget* parent) : QFrame(parent), mList(new QListWidget(this))
{
    setObjectName(QStringLiteral("importQueue"));
    mList->setObjectName(QStringLiteral("list_queue"));
    mList->setAccessibleName(Words::tr("等待导入"));
    mList->setSelectionMode(QAbstractItemView::ExtendedSelection);
    mList->setFixedHeight((ShownLines + 1) * mList->fontMetrics().lineSpacing());
    auto* label = new QLabel(Words::tr("等待导入(&Q)"), this);
    label->setBuddy(mList);

    auto* buttons = new QVBoxLayout;
    buttons->addWidget(label);
    auto* next = addButton(buttons, "button_queueNext", Words::tr("跳到下一个(&J)"),
                           Words::tr("放下当前文件，导入队列中的下一个"));
    auto* line = new QHBoxLayout(this);
    line->setContentsMargins(9, 4, 9, 4);
    auto* removing = new QVBoxLayout;
    auto* remove = addButton(removing, "button_queueRemove", Words::tr("移出(&M)"),
                             Words::tr("把选中的移出队列，不导入"));
    auto* clearing =
        addButton(removing, "button_queueClear", Words::tr("清空"), Words::tr("放弃队列中的全部"));
    line->addLayout(buttons);
    line->addWidget(mList, 1);
    line->addLayout(removing);
    connect(next, &QPushButton::clicked, this, &ImportQueue::next);
    connect(remove, &QPushButton::clicked, this, &ImportQueue::removeSelected);
    connect(clearing, &QPushButton::clicked, this, &ImportQueue::clear);
    show();
}

void ImportQueue::append(const QList<IntakeItem>& items)
{
    mItems += items;
    show();
}

void ImportQueue::prepend(const QList<IntakeItem>& items)
{
    mItems = items + mItems;
    show();
}

void ImportQueue::next()
{
    if (mItems.isEmpty()) {
        return;
    }
    const IntakeItem item = mItems.takeFirst();
    show();
    emit wanted(item);
}

void ImportQueue::removeSelected()
{
    QList<int> rows;
    for (const QModelIndex& index : mList->selectionModel()->selectedRows()) {
        rows.append(index.row());
    }
    if (rows.isEmpty() && !mItems.isEmpty()) {
        rows.append(0);
    }
    std::sort(rows.begin(), rows.end(), std::greater<int>());
    for (const int row : qAsConst(rows)) {
        mItems.removeAt(row);
    }
    show();
}

void ImportQueue::clear()
{
    mItems.clear();
    show();
}

void ImportQueue::show()
{
    mList->clear();
    for (const IntakeItem& item : qAsConst(mItems)) {
        mList->addItem(item.shown());
    }
    setVisible(!mItems.isEmpty());
}
