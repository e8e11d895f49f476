#include "desk/batch/HostPrices.h"

#include "amounts/Valuation.h"
#include "host/AlgoTradeLogicNew.h"
#include "host/CommonQuotaHandler.h"
#include "host/FuturesLogicInterface.h"
#include "host/NorvikConstants.h"
#include "host/SolveyBusinessDataInterface.h"

namespace batch {

using namespace ledger;

namespace {

bool isHongKong(const QString& symbol)
{
    return amounts::isHongKongSubType(SolveyBusinessDataInterface::GetSecurityDetailsBySymbol(symbol)
                                          .value(Norvik_Fields::MDCFieldDefine::mdcSubSecurityType)
                                          .toString());
}

Price priceOf(const Leg& leg, const HKExchangeRateTable& rates)
{
    Price price;
    if (AlgoTradeLogicNew::GetInstance()->isBondRepoSymbol(leg.symbol)) {
        price.last = Decimal::fromDouble(amounts::BondRepoPrice);
        price.isNominal = true;
        return price;
    }
    price.last = Decimal::fromDouble(CommonQuotaHandler::getLastPriceFromTick(
        CommonQuotaHandler::instance()->GetQuotaSnapshot(leg.symbol, 0)));
    price.buyFactor =
        Decimal::fromDouble(FuturesLogicInterface::GetFuturesBaseData(leg.symbol).contractMultiplier);
    price.sellFactor = price.buyFactor;
    if (isHongKong(leg.symbol) && !rates.isEmpty()) {
        const amounts::SideFactors factors = amounts::hongKongFactors(rates, leg.exchange);
        price.buyFactor = Decimal::fromDouble(factors.buy);
        price.sellFactor = Decimal::fromDouble(factors.sell);
    }
    return price;
}

} // namespace

Prices hostPrices(const BatchDraft& draft)
{
    HKExchangeRateTable rates;
    SolveyBusinessDataInterface::GetHKStockExchangeRate(rates);
    Prices prices;
    for (const InstanceDraft& instance : draft.instances) {
        for (const Leg& leg : instance.legs) {
            Price& price = prices[{leg.symbol, leg.exchange}];
            if (!(price.last > 0)) {
                price = priceOf(leg, rates);
            }
        }
    }
    return prices;
}

} // namespace batch
