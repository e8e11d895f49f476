#include "desk/batch/HostPrices.h"

#include "host/AlgoTradeLogicNew.h"
#include "host/CommonQuotaHandler.h"
#include "host/FuturesLogicInterface.h"
#include "host/NorvikConstants.h"
#include "host/SolveyBusinessDataInterface.h"
#include "host/SolveyConstants.h"

namespace batch {

using namespace ledger;

namespace {

constexpr int BondRepoFaceValue = 100;

bool isHongKong(const QString& symbol)
{
    namespace SubType = Solvey_Values::MdcSubSecurityType;
    const QString subType = SolveyBusinessDataInterface::GetSecurityDetailsBySymbol(symbol)
                                .value(Norvik_Fields::MDCFieldDefine::mdcSubSecurityType)
                                .toString();
    return SubType::HKSharesTypeList.contains(subType) || subType == SubType::HStcokCirculation;
}

/// A buy is valued at the rate at which the bank sells, and a sale at the one at which it buys. One that is
/// missing is 0; a host without any rates leaves the amounts in their own currency, as the dialog does.
void addExchangeRates(Price& price, const QString& exchange, const HKExchangeRateTable& rates)
{
    if (rates.isEmpty()) {
        return;
    }
    namespace Rate = Solvey_Fields::HKSExchgRate;
    const QMap<QString, QVariant> ofExchange = rates.value(exchange);
    price.buyFactor = Decimal::fromDouble(ofExchange.value(Rate::HKSExchgRateSell).toDouble());
    price.sellFactor = Decimal::fromDouble(ofExchange.value(Rate::HKSExchgRateBuy).toDouble());
}

Price priceOf(const Leg& leg, const HKExchangeRateTable& rates)
{
    Price price;
    if (AlgoTradeLogicNew::GetInstance()->isBondRepoSymbol(leg.symbol)) {
        price.last = BondRepoFaceValue;
        price.isNominal = true;
        return price;
    }
    price.last = Decimal::fromDouble(CommonQuotaHandler::getLastPriceFromTick(
        CommonQuotaHandler::instance()->GetQuotaSnapshot(leg.symbol, 0)));
    price.buyFactor =
        Decimal::fromDouble(FuturesLogicInterface::GetFuturesBaseData(leg.symbol).contractMultiplier);
    price.sellFactor = price.buyFactor;
    if (isHongKong(leg.symbol)) {
        addExchangeRates(price, leg.exchange, rates);
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
