#include "embedded_host/widgets/TableBehaviour.h"

#include "embedded_host/widgets/NaturalOrderProxy.h"
#include "words/Words.h"

#include <QAction>
#include <QApplication>
#include <QClipboard>
#include <QEvent>
#include <QHeaderView>
#include <QKeyEvent>
#include <QPainter>
#include <QTableView>

#include <algorithm>

namespace {

constexpr int NoColumn = -1;
constexpr int LinePadding = 2; // of a row, above and below its text together

const char* const AllFilteredOut = QT_TRANSLATE_NOOP("Words", "没有符合筛选的行");

// A cell may hold tabs and line ends of its own; pasted as they are they would make cells and rows.
QString onOneLine(QString text)
{
    for (QChar& c : text) {
        if (c == QLatin1Char('\t') || c == QLatin1Char('\n') || c == QLatin1Char('\r')) {
            c = QLatin1Char(' ');
        }
    }
    return text;
}

} // namespace

TableBehaviour::TableBehaviour(QTableView* view, NaturalOrderProxy* proxy)
    : QObject(view), mView(view), mProxy(proxy)
{
    view->setModel(proxy);
    setUpLook();

    QHeaderView* titles = view->horizontalHeader();
    // A table selects the whole column when its title is pressed; here a title only sorts.
    disconnect(titles, &QHeaderView::sectionPressed, view, nullptr);
    disconnect(titles, &QHeaderView::sectionEntered, view, nullptr);
    connect(titles, &QHeaderView::sectionClicked, this, &TableBehaviour::sortByClick);
    resetOrder();

    auto* copy = new QAction(Words::tr("复制"), view);
    copy->setShortcut(QKeySequence::Copy);
    copy->setShortcutContext(Qt::WidgetShortcut);
    connect(copy, &QAction::triggered, this, &TableBehaviour::copySelection);
    view->addAction(copy);
    view->setContextMenuPolicy(Qt::ActionsContextMenu);
    view->installEventFilter(this);
    view->viewport()->installEventFilter(this);
}

void TableBehaviour::setSortable(bool sortable)
{
    mSortable = sortable;
    if (!sortable) {
        resetOrder();
    }
}

void TableBehaviour::setEmptyText(const QString& text)
{
    mEmptyText = text;
    mView->viewport()->update();
}

QString TableBehaviour::emptyText() const
{
    if (mProxy->rowCount() > 0) {
        return {};
    }
    const QAbstractItemModel* source = mProxy->sourceModel();
    return source && source->rowCount() > 0 ? Words::tr(AllFilteredOut) : mEmptyText;
}

void TableBehaviour::resetOrder()
{
    mView->horizontalHeader()->setSortIndicatorShown(false);
    mView->horizontalHeader()->setSortIndicator(NoColumn, Qt::AscendingOrder);
    mProxy->sort(NoColumn);
}

QString TableBehaviour::selectedRowsAsText() const
{
    QModelIndexList rows = mView->selectionModel()->selectedIndexes();
    std::sort(rows.begin(), rows.end(),
              [](const QModelIndex& a, const QModelIndex& b) { return a.row() < b.row(); });
    QStringList lines;
    int last = -1;
    for (const QModelIndex& index : rows) {
        if (index.row() == last) {
            continue;
        }
        last = index.row();
        QStringList cells;
        for (int place = 0; place < mProxy->columnCount(); ++place) {
            const int column = mView->horizontalHeader()->logicalIndex(place);
            if (!mView->isColumnHidden(column)) {
                cells.append(onOneLine(mProxy->index(last, column).data().toString()));
            }
        }
        lines.append(cells.join(QLatin1Char('\t')));
    }
    return lines.join(QLatin1Char('\n'));
}

void TableBehaviour::copySelection() const
{
    const QString text = selectedRowsAsText();
    if (!text.isEmpty()) {
        QApplication::clipboard()->setText(text);
    }
}

bool TableBehaviour::eventFilter(QObject* watched, QEvent* event)
{
    if (watched == mView) {
        return event->type() == QEvent::KeyPress && copyOnKey(static_cast<QKeyEvent*>(event));
    }
    if (event->type() == QEvent::Paint && !emptyText().isEmpty()) {
        paintEmptyText();
    }
    return QObject::eventFilter(watched, event);
}

// Where the window is not the active one, the shortcut sleeps and the view would copy its current cell alone.
bool TableBehaviour::copyOnKey(const QKeyEvent* event) const
{
    if (!event->matches(QKeySequence::Copy)) {
        return false;
    }
    copySelection();
    return true;
}

void TableBehaviour::setUpLook()
{
    mView->setWordWrap(false);
    mView->setTabKeyNavigation(false);
    mView->setHorizontalScrollMode(QAbstractItemView::ScrollPerPixel);
    mView->setAlternatingRowColors(true);
    mView->setEditTriggers(QAbstractItemView::NoEditTriggers);
    QHeaderView* numbers = mView->verticalHeader();
    numbers->setSectionResizeMode(QHeaderView::Fixed); // measuring a thousand rows would make scrolling slow
    numbers->setDefaultSectionSize(mView->fontMetrics().height() + LinePadding);
    numbers->setDefaultAlignment(Qt::AlignRight | Qt::AlignVCenter);
    mView->horizontalHeader()->setHighlightSections(false);
}

void TableBehaviour::sortByClick(int column)
{
    if (!mSortable) {
        return;
    }
    if (mProxy->sortColumn() == column && mProxy->sortOrder() == Qt::DescendingOrder) {
        resetOrder();
        return;
    }
    const Qt::SortOrder order = mProxy->sortColumn() == column ? Qt::DescendingOrder : Qt::AscendingOrder;
    mView->horizontalHeader()->setSortIndicator(column, order);
    mView->horizontalHeader()->setSortIndicatorShown(true);
    mProxy->sort(column, order);
}

void TableBehaviour::paintEmptyText()
{
    QPainter painter(mView->viewport());
    painter.setOpacity(0.55); // whatever colour a style sheet gives the text
    painter.drawText(mView->viewport()->rect(), Qt::AlignCenter | Qt::TextWordWrap, emptyText());
}
