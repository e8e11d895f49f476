#include "host/ZelTableView.h"

#include "embedded_host/widgets/NaturalOrderProxy.h"
#include "embedded_host/widgets/RecordTableModel.h"
#include "embedded_host/widgets/TableBehaviour.h"
#include "words/Words.h"

#include <QHeaderView>

#include <algorithm>

class ZelTableView::Private {
public:
    explicit Private(ZelTableView* view) : behaviour(view, &proxy) {}

    RecordTableModel model;
    NaturalOrderProxy proxy;
    TableBehaviour behaviour;
    int columnWidth = 0;
};

namespace {

constexpr int WidestColumn = 220;
constexpr int MeasuredRows = 20; // enough to tell a column of times from one of numbers

} // namespace

ZelTableView::ZelTableView(QWidget* parent) : QTableView(parent), d(std::make_unique<Private>(this))
{
    d->proxy.setSourceModel(&d->model);
    d->behaviour.setEmptyText(Words::tr("尚未导入"));
    setSelectionMode(QAbstractItemView::ExtendedSelection);
}

ZelTableView::~ZelTableView()
{
    setModel(nullptr); // the view outlives its model by the base class's destructor
}

void ZelTableView::setHeadList(const QList<QMap<QString, QVariant>>& headList)
{
    QStringList names;
    for (const QMap<QString, QVariant>& head : headList) {
        names.append(head.value(Head_DisplayRole).toString());
    }
    d->behaviour.resetOrder();
    d->model.setColumns(names);
    for (int column = 0; column < names.size(); ++column) {
        showColumn(column); // what was hidden belonged to the columns before
    }
    setColumnDefaultWidth(d->columnWidth);
}

QStringList ZelTableView::headNames() const
{
    return d->model.columns();
}

void ZelTableView::addRecordDataList(const RecordDataList& records)
{
    const bool first = d->model.records().isEmpty();
    d->model.append(records);
    if (first && isVisible()) {
        fitColumns();
    }
}

RecordDataList ZelTableView::getViewData() const
{
    return d->model.records();
}

void ZelTableView::clear()
{
    d->behaviour.resetOrder();
    d->model.clear();
}

void ZelTableView::selectRecord(int position)
{
    const QModelIndex shown = d->proxy.mapFromSource(d->model.index(position, 0));
    if (shown.isValid()) {
        setCurrentIndex(shown);
        selectRow(shown.row());
        scrollTo(shown);
    }
}

void ZelTableView::setEmptyText(const QString& text)
{
    d->behaviour.setEmptyText(text);
}

void ZelTableView::setItemSelectable(bool selectable)
{
    setSelectionMode(selectable ? QAbstractItemView::ExtendedSelection : QAbstractItemView::NoSelection);
}

void ZelTableView::setCheckBoxShow(bool show)
{
    d->model.setCheckable(show);
}

QList<int> ZelTableView::checkedRows() const
{
    QList<int> rows = d->model.checkedRows().values();
    std::sort(rows.begin(), rows.end());
    return rows;
}

void ZelTableView::setViewSortable(bool sortable)
{
    d->behaviour.setSortable(sortable);
}

void ZelTableView::setSerialNumberColumnPropety(ZelViewModel::SerialNumColumnOrder order)
{
    verticalHeader()->setVisible(order != ZelViewModel::SerialNumColumnOrder::None);
    d->proxy.setNumbersAsShown(order == ZelViewModel::SerialNumColumnOrder::ViewOrder);
}

void ZelTableView::setColumnDefaultTextAlignment(Qt::Alignment alignment)
{
    d->model.setAlignment(alignment);
    horizontalHeader()->setDefaultAlignment(alignment);
}

void ZelTableView::setColumnDefaultWidth(int width)
{
    d->columnWidth = width;
    if (width <= 0) {
        return;
    }
    horizontalHeader()->setDefaultSectionSize(width);
    fitColumns();
}

// The default width, or what a title or the first cells need beyond it.
void ZelTableView::fitColumns()
{
    horizontalHeader()->setResizeContentsPrecision(MeasuredRows);
    for (int column = 0; column < d->model.columns().size(); ++column) {
        const int needed = qMax(horizontalHeader()->sectionSizeHint(column), sizeHintForColumn(column) + 1);
        setColumnWidth(column, qMax(d->columnWidth, qMin(needed, WidestColumn)));
    }
}

void ZelTableView::setColumnShow(int column, bool show)
{
    if (column >= 0 && column < d->model.columns().size()) {
        setColumnHidden(column, !show);
    }
}
