#include "host/SolveyBusinessDataInterface.h"

#include "embedded_host/services/Record.h"
#include "host/NorvikConstants.h"

using services::record;
using services::referenceData;

namespace {

/// A lot rule of a security; the ordinary one for an unknown symbol.
int lotRule(const QString& symbol, int Security::*rule)
{
    const Security* security = referenceData().security(symbol);
    return security ? security->*rule : Security().*rule;
}

} // namespace

QString SolveyBusinessDataInterface::GetSymbolBySecurityIDAndExchange(QString code, QString exchange)
{
    record("SolveyBusinessDataInterface::GetSymbolBySecurityIDAndExchange", code, exchange);
    return referenceData().symbolOf(code, exchange);
}

QString SolveyBusinessDataInterface::GetASecurityExchangeBySymbol(const QString& symbol)
{
    record("SolveyBusinessDataInterface::GetASecurityExchangeBySymbol", symbol);
    const Security* security = referenceData().security(symbol);
    return security ? security->exchanges.value(0) : QString();
}

QString
SolveyBusinessDataInterface::GetCurrentSecurityAccountByTradingAndExchange(const QString& tradingAccount,
                                                                           const QString& exchange)
{
    record("SolveyBusinessDataInterface::GetCurrentSecurityAccountByTradingAndExchange", tradingAccount,
           exchange);
    return referenceData().securityAccount(tradingAccount, exchange);
}

QList<tagUserAccountInfo> SolveyBusinessDataInterface::GetAccountInfoListFromTrade(QString account,
                                                                                   bool includeDisabled)
{
    record("SolveyBusinessDataInterface::GetAccountInfoListFromTrade", account, includeDisabled);
    const tagUserAccountInfo* known = referenceData().account(account);
    return known ? QList<tagUserAccountInfo>{*known} : QList<tagUserAccountInfo>();
}

QList<tagUserAccountInfo> SolveyBusinessDataInterface::GetFundAccountListByFundProp(
    int firstProperty, int secondProperty, bool onlyTradable, const QStringList& excluded, bool sorted)
{
    record("SolveyBusinessDataInterface::GetFundAccountListByFundProp", firstProperty, secondProperty,
           onlyTradable, excluded, sorted);
    QList<tagUserAccountInfo> offered;
    for (const tagUserAccountInfo& account : referenceData().tables().accounts) {
        if (!excluded.contains(account.tradingAccount)) {
            offered.append(account);
        }
    }
    return offered;
}

QMap<QString, QVariant> SolveyBusinessDataInterface::GetSecurityDetailsBySymbol(QString symbol)
{
    record("SolveyBusinessDataInterface::GetSecurityDetailsBySymbol", symbol);
    QMap<QString, QVariant> details;
    if (const Security* security = referenceData().security(symbol)) {
        details.insert(Norvik_Fields::MDCFieldDefine::mdcSubSecurityType, security->subType);
    }
    return details;
}

int SolveyBusinessDataInterface::GetDispFactorBySymbol(const QString& symbol)
{
    record("SolveyBusinessDataInterface::GetDispFactorBySymbol", symbol);
    return lotRule(symbol, &Security::dispFactor);
}

int SolveyBusinessDataInterface::GetMinQtyPerOrderBySymbol(QString symbol)
{
    record("SolveyBusinessDataInterface::GetMinQtyPerOrderBySymbol", symbol);
    return lotRule(symbol, &Security::minQtyPerOrder);
}

int SolveyBusinessDataInterface::GetQtyStepBySymbol(QString symbol)
{
    record("SolveyBusinessDataInterface::GetQtyStepBySymbol", symbol);
    return lotRule(symbol, &Security::qtyStep);
}

int SolveyBusinessDataInterface::GetPricePrecisionBySymbol(QString symbol, const QString& exchange)
{
    record("SolveyBusinessDataInterface::GetPricePrecisionBySymbol", symbol, exchange);
    return lotRule(symbol, &Security::pricePrecision);
}

void SolveyBusinessDataInterface::GetHKStockExchangeRate(HKExchangeRateTable& rates)
{
    record("SolveyBusinessDataInterface::GetHKStockExchangeRate");
    for (const HkRate& rate : referenceData().tables().hkRates) {
        rates.insert(rate.exchange, rate.rates);
    }
}

bool SolveyBusinessDataInterface::CheckSymbolRiskInfo(const QStringList& symbols, const QString& source)
{
    record("SolveyBusinessDataInterface::CheckSymbolRiskInfo", symbols, source);
    return true; // this host knows no risk notices
}
