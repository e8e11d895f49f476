#include "desk/window/FilteredTable.h"

#include "desk/window/ColumnMenu.h"
#include "desk/window/ListProxy.h"
#include "desk/window/ProgressDelegate.h"
#include "desk/window/TabOrder.h"
#include "embedded_host/EmbeddedHost.h"
#include "embedded_host/skin/SkinService.h"
#include "embedded_host/UserPrompts.h"
#include "embedded_host/widgets/TableBehaviour.h"
#include "files/CsvText.h"
#include "files/Save.h"
#include "words/Words.h"

#include <QHBoxLayout>
#include <QHeaderView>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QTableView>
#include <QVBoxLayout>

#include <algorithm>

namespace {

constexpr int NarrowestColumn = 64;
constexpr int NarrowestProgress = 150; // what is filled grows
constexpr int WidestColumn = 320;
constexpr int FilterWidth = 220;
constexpr int LeastFilterWidth = 60;
constexpr int FirstButtonPlace = 2; // in the tool row: filter, count, then the buttons

} // namespace

FilteredTable::FilteredTable(ListModel* source, const Name& name, UserPrompts& prompts, QWidget* parent)
    : QWidget(parent), mSource(source), mName(name), mPrompts(prompts), mProxy(new ListProxy(this)),
      mFilter(new QLineEdit(this)), mCount(new QLabel(this)), mToolRow(makeToolRow()),
      mView(new QTableView(this)), mBehaviour(new TableBehaviour(mView, mProxy))
{
    mProxy->setSourceModel(source);
    mProxy->setFilterKeyColumn(-1);
    mProxy->setFilterCaseSensitivity(Qt::CaseInsensitive);
    mProxy->setSortRole(ListModel::PlainRole);
    mBehaviour->setSortable(true);
    mBehaviour->setEmptyText(name.emptyText);
    mView->setAccessibleName(name.shown);
    mView->setSelectionBehavior(QAbstractItemView::SelectRows);
    mView->setSelectionMode(QAbstractItemView::ExtendedSelection);

    auto* column = new QVBoxLayout(this);
    column->setContentsMargins(0, 0, 0, 0);
    column->setSpacing(4);
    column->addLayout(mToolRow);
    column->addWidget(mView, 1);
    orderTabs();
    new ColumnMenu(mView);

    connect(mFilter, &QLineEdit::textChanged, this, &FilteredTable::applyFilter);
    for (auto changed : {&QAbstractItemModel::rowsInserted, &QAbstractItemModel::rowsRemoved}) {
        connect(mProxy, changed, this, &FilteredTable::showCount);
    }
    connect(mProxy, &QAbstractItemModel::modelReset, this, &FilteredTable::showCount);
    connect(mView->selectionModel(), &QItemSelectionModel::currentRowChanged, this,
            [this] { emit currentRowChanged(currentRow()); });
    connect(mView->selectionModel(), &QItemSelectionModel::selectionChanged, this,
            &FilteredTable::selectionChanged);
    showCount();
}

QHBoxLayout* FilteredTable::makeToolRow()
{
    mFilter->setPlaceholderText(Words::tr("筛选 (Ctrl+F)"));
    mFilter->setAccessibleName(Words::tr("筛选%1").arg(mName.shown));
    mFilter->setClearButtonEnabled(true);
    mFilter->setMinimumWidth(LeastFilterWidth);
    mFilter->setMaximumWidth(FilterWidth);
    mCount->setProperty("role", QStringLiteral("caption"));
    auto* row = new QHBoxLayout;
    row->setSpacing(6);
    row->addWidget(mFilter, 1);
    row->addWidget(mCount);
    row->addStretch(1);
    QPushButton* copyButton = makeButton(Words::tr("复制"), QStringLiteral("button_copy"));
    QPushButton* exportButton = makeButton(Words::tr("导出"), QStringLiteral("button_export"));
    connect(copyButton, &QPushButton::clicked, this, &FilteredTable::copy);
    connect(exportButton, &QPushButton::clicked, this, &FilteredTable::exportRows);
    copyButton->setToolTip(Words::tr("复制所选行；没有选择时复制全部 (Ctrl+C)"));
    exportButton->setToolTip(Words::tr("把列表按所见存为 csv 文件 (Ctrl+E)"));
    row->addWidget(copyButton);
    row->addWidget(exportButton);
    return row;
}

QPushButton* FilteredTable::makeButton(const QString& text, const QString& objectName)
{
    auto* button = new QPushButton(text, this);
    button->setObjectName(objectName);
    button->setAccessibleName(Words::tr("%1%2").arg(text, mName.shown));
    button->setToolTip(button->accessibleName()); // unless the list knows more
    return button;
}

QPushButton* FilteredTable::addButton(const QString& text, const QString& objectName)
{
    QPushButton* button = makeButton(text, objectName);
    mToolRow->insertWidget(FirstButtonPlace + 1 + mAddedButtons++, button); // after the stretch
    orderTabs();
    return button;
}

/// As on the screen: the rows above the table from left to right, then the table.
void FilteredTable::orderTabs()
{
    QList<QWidget*> order;
    for (int place = 0; place < mToolRow->count(); ++place) {
        QWidget* next = mToolRow->itemAt(place)->widget();
        if (next != nullptr && next->focusPolicy() != Qt::NoFocus) {
            order.append(next);
        }
    }
    for (int place = 0; mSecondRow != nullptr && place < mSecondRow->count(); ++place) {
        if (QWidget* part = mSecondRow->itemAt(place)->widget()) {
            order += tab_order::within(*part);
        }
    }
    order.append(mView);
    for (int place = 1; place < order.size(); ++place) {
        setTabOrder(order.at(place - 1), order.at(place));
    }
}

void FilteredTable::setColoursOf(EmbeddedHost& host)
{
    mProxy->setColours([&host](const QString& name) { return host.skins().colours().colour(name); });
}

void FilteredTable::setProgressColumn(EmbeddedHost& host, int column)
{
    mProgressColumn = column;
    mView->setItemDelegateForColumn(
        column, new ProgressDelegate(
                    [&host](const QString& name) { return host.skins().colours().colour(name); }, mView));
}

void FilteredTable::setSingleSelection()
{
    mView->setSelectionMode(QAbstractItemView::SingleSelection);
}

void FilteredTable::setEmptyText(const QString& text)
{
    mBehaviour->setEmptyText(text);
}

QString FilteredTable::emptyText() const
{
    return mBehaviour->emptyText();
}

// A view whose current row is filtered out would choose another one in its place.
void FilteredTable::applyFilter(const QString& text)
{
    const QPersistentModelIndex chosen = mProxy->mapToSource(mView->currentIndex());
    if (!text.isEmpty()) {
        mProxy->fetchAll();
    }
    mProxy->setFilterFixedString(text);
    if (!mProxy->mapFromSource(chosen).isValid()) {
        mView->selectionModel()->clear();
    }
}

void FilteredTable::setChoice(const std::function<bool(int)>& choice)
{
    mProxy->setChoice(choice);
    showCount();
}

void FilteredTable::addRow(QLayout* row)
{
    static_cast<QVBoxLayout*>(layout())->insertLayout(1, row);
    mSecondRow = row;
    orderTabs();
}

QList<int> FilteredTable::shownSourceRows() const
{
    QList<int> rows;
    for (int row = 0; row < mProxy->rowCount(); ++row) {
        rows.append(mProxy->mapToSource(mProxy->index(row, 0)).row());
    }
    return rows;
}

int FilteredTable::selectedRow() const
{
    const QModelIndexList rows = mView->selectionModel()->selectedRows();
    return rows.size() == 1 ? mProxy->mapToSource(rows.first()).row() : -1;
}

QList<int> FilteredTable::selectedRows() const
{
    QModelIndexList shown = mView->selectionModel()->selectedRows();
    std::sort(shown.begin(), shown.end());
    QList<int> rows;
    for (const QModelIndex& index : qAsConst(shown)) {
        rows.append(mProxy->mapToSource(index).row());
    }
    return rows;
}

void FilteredTable::selectRows(const QList<int>& sourceRows)
{
    QItemSelection selection;
    for (const int row : sourceRows) {
        const QModelIndex index = mProxy->mapFromSource(mSource->index(row, 0));
        if (index.isValid()) {
            selection.select(index, index);
        }
    }
    mView->selectionModel()->select(selection,
                                    QItemSelectionModel::ClearAndSelect | QItemSelectionModel::Rows);
}

int FilteredTable::currentRow() const
{
    return mProxy->mapToSource(mView->currentIndex()).row();
}

void FilteredTable::setCurrentRow(int sourceRow)
{
    const QModelIndex wanted = mSource->index(sourceRow, 0);
    if (!wanted.isValid()) {
        return;
    }
    if (!mProxy->mapFromSource(wanted).isValid()) {
        mFilter->clear();
    }
    const QModelIndex shown = mProxy->mapFromSource(wanted);
    mView->setCurrentIndex(shown);
    mView->selectRow(shown.row());
    mView->scrollTo(shown);
}

QList<QStringList> FilteredTable::shownRows() const
{
    QList<int> columns;
    QStringList titles;
    const QStringList all = mSource->titles();
    for (int column = 0; column < all.size(); ++column) {
        if (!mView->isColumnHidden(column)) {
            columns.append(column);
            titles.append(all.at(column));
        }
    }
    QList<QStringList> rows{titles};
    for (int row = 0; row < mProxy->rowCount(); ++row) {
        QStringList cells;
        for (const int column : qAsConst(columns)) {
            cells.append(mProxy->index(row, column).data(ListModel::PlainRole).toString());
        }
        rows.append(cells);
    }
    return rows;
}

void FilteredTable::fitColumnsOnce()
{
    if (!mFitted && mSource->rowCount() > 0) {
        fitColumns();
    }
}

QByteArray FilteredTable::columnState() const
{
    return mFitted ? mView->horizontalHeader()->saveState() : QByteArray();
}

void FilteredTable::restoreColumns(const QByteArray& state)
{
    if (mView->horizontalHeader()->restoreState(state)) {
        mFitted = true;
        mBehaviour->resetOrder(); // the state holds an arrow, but the rows are in their first order
    }
}

void FilteredTable::fitColumns()
{
    mFitted = true;
    mView->resizeColumnsToContents();
    for (int column = 0; column < mSource->columnCount(); ++column) {
        const int narrowest = column == mProgressColumn ? NarrowestProgress : NarrowestColumn;
        mView->setColumnWidth(column, qBound(narrowest, mView->columnWidth(column) + 8, WidestColumn));
    }
}

void FilteredTable::copy()
{
    if (mView->selectionModel()->selectedRows().isEmpty()) {
        mView->selectAll();
    }
    mBehaviour->copySelection();
    emit said(Words::tr("已复制 %1 行").arg(mView->selectionModel()->selectedRows().size()));
}

void FilteredTable::exportRows()
{
    const QString path =
        mPrompts.chooseSaveFile(this, Words::tr("导出%1").arg(mName.shown),
                                mName.shown + QStringLiteral(".csv"), Words::tr("csv 文件 (*.csv)"));
    if (path.isEmpty()) {
        return;
    }
    const QString missing = fetchAll();
    if (!missing.isEmpty()) {
        emit said(Words::tr("未导出：%1").arg(missing));
        return;
    }
    const Outcome<void> saved = files::save(path, files::csvText(shownRows()));
    const QString done = mSource->canFetchMore({})
                             ? Words::tr("列表过长，只导出了前 %1 行：%2").arg(mSource->rowCount()).arg(path)
                             : Words::tr("已导出到 %1").arg(path);
    emit said(saved.ok() ? done : files::cannotWrite(path, saved.error));
}

/// Why rows are missing that should be there; empty when none are.
QString FilteredTable::fetchAll()
{
    QString error;
    const auto listening =
        connect(mSource, &ListModel::failed, this, [&](const QString& why) { error = why; });
    mProxy->fetchAll();
    disconnect(listening);
    return error;
}

void FilteredTable::showCount()
{
    const int all = mSource->rowCount();
    const int shown = mProxy->rowCount();
    const bool isWhole = !mSource->canFetchMore({});
    if (shown == all) {
        mCount->setText((isWhole ? Words::tr("共 %1 行") : Words::tr("前 %1 行")).arg(all));
    } else {
        const QString text = isWhole ? Words::tr("%1 / %2 行") : Words::tr("%1 / 前 %2 行");
        mCount->setText(text.arg(shown).arg(all));
    }
}
