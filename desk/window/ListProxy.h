#pragma once

#include "embedded_host/widgets/NaturalOrderProxy.h"

#include <QColor>

#include <functional>

/// A list of the desk as it is drawn: in the colours of the skin, with every cell's whole text as its tool
/// tip, in an order of the user's. Rows that a filter or an order must know are fetched before it is set.
class ListProxy : public NaturalOrderProxy {
    Q_OBJECT

public:
    /// A colour of the skin by its name.
    using Colours = std::function<QColor(const QString& name)>;

    /// Most rows that are fetched to be filtered or sorted; a person looks for more in a batch, or at all.
    static constexpr int MostFetched = 20000;

    using NaturalOrderProxy::NaturalOrderProxy;

    void setColours(const Colours& colours) { mColours = colours; }
    /// Which rows of the source may be shown beside what is typed; null: all.
    void setChoice(const std::function<bool(int sourceRow)>& choice);
    /// Fetches what a filter or an order needs to be right.
    void fetchAll();

    QVariant data(const QModelIndex& index, int role) const override;
    void sort(int column, Qt::SortOrder order = Qt::AscendingOrder) override;

protected:
    bool filterAcceptsRow(int sourceRow, const QModelIndex& sourceParent) const override;

private:
    Colours mColours;
    std::function<bool(int sourceRow)> mChoice;
};
