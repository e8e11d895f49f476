#include "ledger/draft/Prices.h"

namespace ledger {

namespace {

/// A paired or unknown direction is valued at the dearer side.
Decimal factorOf(const Leg& leg, const Price& price)
{
    if (leg.buys() && leg.sells()) {
        return price.sellFactor > price.buyFactor ? price.sellFactor : price.buyFactor;
    }
    return leg.buys() ? price.buyFactor : price.sellFactor;
}

/// None, which no ceiling lets pass, where it has more digits than any money.
Decimal amountOf(const Leg& leg, const Price& price)
{
    if (leg.typedAmount > 0) {
        return leg.typedAmount;
    }
    const Decimal factor = factorOf(leg, price);
    const Decimal unitPrice = price.last > 0 ? price.last : leg.limitPrice;
    return factor > 0 ? unitPrice * leg.quantity * factor : Decimal();
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
