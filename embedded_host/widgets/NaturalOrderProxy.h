#pragma once

#include <QSortFilterProxyModel>

/// Sorts numbers as numbers, texts by the user's language, numbers before texts, and empty cells after both.
/// Sorting by column -1 gives the source's order back.
class NaturalOrderProxy : public QSortFilterProxyModel {
    Q_OBJECT

public:
    using QSortFilterProxyModel::QSortFilterProxyModel;

    /// Whether the vertical header numbers the rows as shown (at first) or as the source has them.
    void setNumbersAsShown(bool asShown);
    QVariant headerData(int section, Qt::Orientation orientation, int role) const override;

protected:
    bool lessThan(const QModelIndex& left, const QModelIndex& right) const override;

private:
    bool mNumbersAsShown = true;
};
