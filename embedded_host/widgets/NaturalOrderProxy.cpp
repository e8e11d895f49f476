#include "embedded_host/widgets/NaturalOrderProxy.h"

#include <cmath>

namespace {

enum class Kind { Number, Text, Empty };

struct SortKey {
    explicit SortKey(QString cell) : text(std::move(cell))
    {
        bool isNumber = false;
        number = text.toDouble(&isNumber);
        // "nan" and "inf" read as numbers, but have no place in an order of them.
        kind = isNumber && std::isfinite(number) ? Kind::Number
               : text.trimmed().isEmpty()        ? Kind::Empty
                                                 : Kind::Text;
    }

    QString text;
    double number = 0;
    Kind kind = Kind::Empty;
};

} // namespace

void NaturalOrderProxy::setNumbersAsShown(bool asShown)
{
    mNumbersAsShown = asShown;
    emit headerDataChanged(Qt::Vertical, 0, qMax(0, rowCount() - 1));
}

QVariant NaturalOrderProxy::headerData(int section, Qt::Orientation orientation, int role) const
{
    if (orientation == Qt::Vertical && role == Qt::DisplayRole && mNumbersAsShown) {
        return section + 1;
    }
    return QSortFilterProxyModel::headerData(section, orientation, role);
}

bool NaturalOrderProxy::lessThan(const QModelIndex& left, const QModelIndex& right) const
{
    const SortKey a(left.data(sortRole()).toString());
    const SortKey b(right.data(sortRole()).toString());
    if (a.kind != b.kind) {
        return a.kind < b.kind;
    }
    return a.kind == Kind::Number ? a.number < b.number : a.text.localeAwareCompare(b.text) < 0;
}
