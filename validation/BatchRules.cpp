#include "validation/BatchRules.h"

#include "host/AlgoConstants.h"
#include "host/AlgoTradeLogicNew.h"
#include "host/CBusinessDataBase.h"
#include "host/CDataBase.h"
#include "host/NorvikConstants.h"
#include "host/SolveyBusinessDataInterface.h"
#include "host/SolveyConstants.h"
#include "table/FaultCatalogue.h"
#include "table/Rules.h"
#include "validation/EntrustRules.h"
#include "validation/LegSplitting.h"
#include "validation/Logging.h"

namespace validation {

namespace {

namespace Info = Algo_Fields::AlgoInstContentInfo;
namespace ParamId = Algo_Values::AlgoParamId;
namespace rule = table::rule;

table::Fault faultOf(const QString& name, int row, const QString& column, const QStringList& arguments = {})
{
    table::Fault fault = table::fault(name, arguments);
    fault.row = row;
    fault.column = column;
    return fault;
}

/// Without data or an account nothing can be checked.
std::optional<table::Fault> faultOfAll(const Instances& instances, const ChosenAccount& account)
{
    if (instances.isEmpty()) {
        qCDebug(lcValidation) << " mAllParamVarMapLst: " << instances;
        return table::fault(rule::NoBatch);
    }
    if (account.tradingAccount.isEmpty()) {
        qCDebug(lcValidation) << account.shown << account.data;
        return table::fault(rule::NoAccount);
    }
    return std::nullopt;
}

/// What the entrust check needs of one instance; none where there is nothing to check.
std::optional<EntrustedOrder> orderOf(int row, const QMap<QString, QVariant>& instance, bool paired)
{
    const bool hasProperty = instance.contains(ParamId::entrustProp);
    const QVariantMap carrier =
        paired ? instance.value(ParamId::AlgoSecurityList).toList().value(0).toMap() : instance;
    const QString entrustProp = carrier.value(ParamId::entrustProp).toString();
    if (!hasProperty && (!paired || entrustProp.isEmpty())) {
        return std::nullopt;
    }
    return EntrustedOrder{row, entrustProp, carrier.value(ParamId::traderOrder).toString()};
}

std::optional<table::Fault> faultOfInstance(int row, const QMap<QString, QVariant>& instance,
                                            const strategy::Traits& traits, const ChosenAccount& account)
{
    qCDebug(lcValidation) << "singleParamVarMap" << instance;
    const QVariantList securities = instance.value(ParamId::AlgoSecurityList).toList();
    QString symbol;
    QString exchange;
    if (!firstSecurity(securities, symbol, exchange)) {
        qCDebug(lcValidation) << " symbol: " << symbol << " exchange: " << exchange
                              << " singleParamVarMap.value(Algo_values::AlgoParamId::AlgoSecurityList):"
                              << securities;
        return faultOf(rule::BadData, row, QString());
    }
    const std::optional<table::Fault> ofMarket = faultOfMarket(row, symbol, exchange);
    if (ofMarket) {
        qCDebug(lcValidation) << "!ret.isEmpty" << table::sentence(*ofMarket);
        return ofMarket;
    }
    const std::optional<EntrustedOrder> order = orderOf(row, instance, traits.isPaired());
    if (!order) {
        return std::nullopt;
    }
    qCDebug(lcValidation) << "contains prop" << order->entrustProp;
    return faultOfEntrust(*order, traits, account);
}

/// False where the host has no record of the account.
bool readAccountType(const ChosenAccount& account, QString& accountType)
{
    const QList<tagUserAccountInfo> records =
        SolveyBusinessDataInterface::GetAccountInfoListFromTrade(account.tradingAccount, true);
    if (records.isEmpty()) {
        qCDebug(lcValidation) << "get accountType is error, tradingAccount: " << account.tradingAccount
                              << " combx_account currentData : " << account.data
                              << " currentText : " << account.shown;
        return false;
    }
    accountType = records.first().fundAccountType;
    return true;
}

EntrustFault entrustFaultOf(const EntrustedOrder& order, const QString& accountType, bool collateralOnly)
{
    EntrustFault fault = faultOfAccount(accountType, order.entrustProp);
    if (fault == EntrustFault::None && order.side) {
        fault = faultOfDirection(accountType, order.entrustProp, *order.side);
    }
    if (fault == EntrustFault::None && order.side && collateralOnly) {
        fault = faultOfCollateral(accountType, order.entrustProp, *order.side);
    }
    return fault;
}

QString ruleOf(EntrustFault fault, bool ofLeg)
{
    switch (fault) {
    case EntrustFault::None:
        break;
    case EntrustFault::Account:
        return ofLeg ? rule::LegEntrustProperty : rule::EntrustProperty;
    case EntrustFault::Direction:
        return rule::EntrustDirection;
    case EntrustFault::CollateralBuyOnly:
        return rule::CollateralBuyOnly;
    case EntrustFault::CollateralSellOnly:
        return rule::CollateralSellOnly;
    }
    return QString();
}

std::optional<table::Fault> faultOfLegDirection(int row, const QVariantMap& leg)
{
    const QString direction = leg.value(ParamId::traderOrder).toString();
    switch (faultOfLeg(direction, leg.value(ParamId::entrustProp).toString())) {
    case LegFault::None:
        return std::nullopt;
    case LegFault::Property:
        return faultOf(rule::LegDirection, row, ParamId::entrustProp);
    case LegFault::Direction:
        qCDebug(lcValidation) << "checkAILOCK" << leg;
        break;
    }
    return faultOf(rule::BadDirection, row, ParamId::traderOrder);
}

} // namespace

std::optional<table::Fault> faultOfChoice(const ChosenStrategy& strategy, const QString& tradingAccount)
{
    if (strategy.shown.isEmpty()) {
        return table::fault(rule::NoAlgoType);
    }
    const bool isAuthorised = AlgoTradeLogicNew::GetInstance()->hasCorrespAuthority(
        tradingAccount, strategy.code, Algo_Values::AlgoGlobalType::algo);
    return isAuthorised ? std::nullopt : std::optional(table::fault(rule::NoAuthority, {strategy.alias}));
}

table::Faults faultsOfBatch(const Instances& instances, const strategy::Traits& traits,
                            const ChosenAccount& account)
{
    return traits.has(strategy::Lock) ? faultsOfLegs(instances, account)
                                      : faultsOfInstances(instances, traits, account);
}

table::Faults faultsOfInstances(const Instances& instances, const strategy::Traits& traits,
                                const ChosenAccount& account)
{
    if (const std::optional<table::Fault> ofAll = faultOfAll(instances, account)) {
        return {*ofAll};
    }
    table::Faults faults;
    int row = 0;
    for (const QMap<QString, QVariant>& instance : instances) {
        if (const std::optional<table::Fault> fault = faultOfInstance(++row, instance, traits, account)) {
            faults.append(*fault);
        }
    }
    return faults;
}

table::Faults faultsOfLegs(const Instances& instances, const ChosenAccount& account)
{
    if (const std::optional<table::Fault> ofAll = faultOfAll(instances, account)) {
        return {*ofAll};
    }
    table::Faults faults;
    int row = 0;
    for (const QMap<QString, QVariant>& instance : instances) {
        ++row;
        const QVariantList legs = instance.value(ParamId::AlgoSecurityList).toList();
        if (legs.size() != LegCount) {
            faults.append(faultOf(rule::LegCount, row, QString()));
        }
        for (const QVariant& element : legs) {
            const QVariantMap leg = element.toMap();
            const EntrustedOrder order = {row, leg.value(ParamId::entrustProp).toString(), std::nullopt};
            for (const std::optional<table::Fault>& fault :
                 {faultOfEntrust(order, {}, account), faultOfLegDirection(row, leg)}) {
                if (fault) {
                    faults.append(*fault);
                }
            }
        }
    }
    return faults;
}

std::optional<table::Fault> faultOfMarket(int row, const QString& symbol, const QString& exchange)
{
    CBusinessDataBase* securities = CBusinessDataBase::GetInstance();
    if (securities->GetSymbolPostBySymbol(symbol) != Norvik_Values::SymbolPost::hk) {
        return std::nullopt;
    }
    const QStringList exchangeLst = securities->GetSecurityExchangeBySymbol(symbol);
    qCDebug(lcValidation) << " exchangeLst: " << exchangeLst << " symbol: " << symbol;
    if (exchangeLst.isEmpty() || exchangeLst.contains(exchange)) {
        return std::nullopt;
    }
    const QString market =
        CDataBase::GetInstance()->GetStaticCfgValue(SolveyConstants::MarketNameSection, exchangeLst.first());
    return faultOf(rule::OnlyOnMarket, row, Info::Exchange, {symbol, market});
}

std::optional<table::Fault> faultOfEntrust(const EntrustedOrder& order, const strategy::Traits& traits,
                                           const ChosenAccount& account)
{
    QString accountType;
    if (!readAccountType(account, accountType)) {
        return faultOf(rule::NoAccountType, order.row, QString());
    }
    qCDebug(lcValidation) << "checkEntrustProp"
                          << " accountType: " << accountType << "entrustProp" << order.entrustProp
                          << "orderSide" << order.side.value_or(QString()) << " account: " << account.shown;
    const EntrustFault fault = entrustFaultOf(order, accountType, traits.has(strategy::CollateralOnly));
    if (fault == EntrustFault::None) {
        return std::nullopt;
    }
    return faultOf(ruleOf(fault, !order.side), order.row, ParamId::entrustProp);
}

bool firstSecurity(const QVariantList& securities, QString& symbol, QString& exchange)
{
    const QVariantMap security = securities.value(0).toMap();
    if (security.isEmpty()) {
        return false;
    }
    symbol = security.value(Info::Symbol).toString();
    exchange = security.value(Info::Exchange).toString();
    return true;
}

} // namespace validation
