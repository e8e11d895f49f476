#include "ledger/draft/Prices.h"

#include <QtNumeric>

namespace ledger {

namespace {

/// A paired or unknown direction is valued at the dearer side.
double factorOf(const Leg& leg, const Price& price)
{
    if (leg.buys() && leg.sells()) {
        return qMax(price.buyFactor, price.sellFactor);
    }
    return leg.buys() ? price.buyFactor : price.sellFactor;
}

double amountOf(const Leg& leg, const Price& price)
{
    if (leg.typedAmount > 0.0) {
        return leg.typedAmount;
    }
    const double unitPrice = price.last > 0.0 ? price.last : leg.limitPrice;
    const double amount = unitPrice * leg.quantity * factorOf(leg, price);
    return qIsFinite(amount) ? qMax(amount, 0.0) : 0.0;
}

} // namespace

void valueLegs(BatchDraft& draft, const Prices& prices)
{
    for (InstanceDraft& instance : draft.instances) {
        for (Leg& leg : instance.legs) {
            leg.amount = amountOf(leg, prices.value({leg.symbol, leg.exchange}));
        }
    }
}

} // namespace ledger
