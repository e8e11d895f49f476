#include "desk/window/ListProxy.h"

#include "desk/models/ListModel.h"
#include "embedded_host/widgets/PlainToolTip.h"

void ListProxy::setChoice(const std::function<bool(int)>& choice)
{
    mChoice = choice;
    invalidateFilter();
}

bool ListProxy::filterAcceptsRow(int sourceRow, const QModelIndex& sourceParent) const
{
    return (!mChoice || mChoice(sourceRow)) && NaturalOrderProxy::filterAcceptsRow(sourceRow, sourceParent);
}

void ListProxy::fetchAll()
{
    QAbstractItemModel* list = sourceModel();
    while (list != nullptr && list->canFetchMore({}) && list->rowCount() < MostFetched) {
        list->fetchMore({});
    }
}

QVariant ListProxy::data(const QModelIndex& index, int role) const
{
    if (role == Qt::ToolTipRole) {
        return plainToolTip(index.data().toString());
    }
    if (role != Qt::ForegroundRole) {
        return NaturalOrderProxy::data(index, role);
    }
    const QString tint = index.data(ListModel::TintRole).toString();
    return tint.isEmpty() || !mColours ? QVariant() : QVariant(mColours(tint));
}

void ListProxy::sort(int column, Qt::SortOrder order)
{
    if (column >= 0) {
        fetchAll();
    }
    NaturalOrderProxy::sort(column, order);
}
