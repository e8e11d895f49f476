#include "gateway/reports/Fills.h"

#include "gateway/messages/WireNumber.h"
#include "words/Words.h"

#include <algorithm>

namespace gateway {

using wire_number::valueOf;

namespace {

/// What makes the numbers unusable; empty: nothing.
QString faultOf(const Report& report, const QString& orderQuantity)
{
    for (const QString& text : {report.cumQty, report.avgPx}) {
        if (!(valueOf(text) >= 0)) {
            return Words::tr("“%1”不是数量或价格").arg(text);
        }
    }
    if (!orderQuantity.isEmpty() && !(valueOf(report.cumQty) <= valueOf(orderQuantity))) {
        return Words::tr("成交数量 %1 超过委托数量 %2").arg(report.cumQty, orderQuantity);
    }
    return QString();
}

} // namespace

QString takeFill(Fill& fill, const QString& orderQuantity, const Report& report)
{
    const QString fault = faultOf(report, orderQuantity);
    if (!fault.isEmpty() || report.cumQty.isEmpty()) {
        return fault;
    }
    const ledger::Decimal told = valueOf(report.cumQty);
    const ledger::Decimal known = valueOf(fill.quantity);
    const bool hadNoPrice = !(valueOf(fill.averagePrice) > 0);
    if (told > known || report.takesBack() || (told == known && hadNoPrice)) {
        fill.quantity = report.cumQty;
        fill.averagePrice = report.avgPx.isEmpty() ? fill.averagePrice : report.avgPx;
    }
    return QString();
}

int legOf(const OrderSize& size, const Report& report)
{
    bool isNumber = false;
    const int number = report.legNumber.toInt(&isNumber);
    if (!report.legNumber.isEmpty()) {
        return isNumber && number >= 1 && number <= size.legs.size() ? number - 1 : -1;
    }
    int found = -1;
    for (int i = 0; i < size.legs.size(); ++i) {
        if (size.legs.at(i).symbol == report.symbol) {
            found = found < 0 ? i : size.legs.size();
        }
    }
    return found < size.legs.size() ? found : -1;
}

bool isFilled(const Fill& fill, const QString& orderQuantity)
{
    return !orderQuantity.isEmpty() && !fill.quantity.isEmpty() &&
           valueOf(fill.quantity) >= valueOf(orderQuantity);
}

bool hasTraded(const Standing& standing)
{
    const auto traded = [](const Fill& fill) { return valueOf(fill.quantity) > 0; };
    return traded(standing.fill) || std::any_of(standing.legs.begin(), standing.legs.end(), traded);
}

} // namespace gateway
