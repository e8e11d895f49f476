#include "validation/EntrustRules.h"

#include "host/AlgoConstants.h"
#include "host/SolveyConstants.h"

#include <QList>
#include <QStringList>

namespace validation {

namespace {

namespace AccountType = Solvey_Values::FundAccountType;

/// One entrust property: the account that takes it, and the sides on which that account does.
struct EntrustProperty {
    QString value;
    QString accountType;
    bool buy;
    bool sell;
};

const QList<EntrustProperty>& entrustProperties()
{
    static const QList<EntrustProperty> table = {
        // value                              account              buy    sell
        {QStringLiteral("0"), AccountType::Cash, true, true},
        {QStringLiteral("NewOrder"), AccountType::Cash, true, true},
        {QStringLiteral("9"), AccountType::Credit, true, true},
        {QStringLiteral("6"), AccountType::Credit, true, true},
        {QStringLiteral("CreditTransaction"), AccountType::Credit, true, true},
        {QStringLiteral("8"), AccountType::Credit, true, false},
        {QStringLiteral("FundLoan"), AccountType::Credit, true, false},
        {QStringLiteral("7"), AccountType::Credit, false, true},
        {QStringLiteral("A"), AccountType::Credit, false, true},
    };
    return table;
}

/// What strategies that take only collateral and financing orders accept.
struct CollateralRule {
    QString orderSide;
    QStringList accepted;
    EntrustFault fault;
};

const QList<CollateralRule>& collateralRules()
{
    namespace Property = Algo_Values::entrustProp;
    namespace Side = Algo_Values::AlgoOrderSide;
    static const QList<CollateralRule> table = {
        {Side::BuyValue, {Property::creditTrade, Property::financingBuy}, EntrustFault::CollateralBuyOnly},
        {Side::SellValue, {Property::creditTrade}, EntrustFault::CollateralSellOnly},
    };
    return table;
}

const EntrustProperty* find(const QString& accountType, const QString& entrustProp)
{
    for (const EntrustProperty& property : entrustProperties()) {
        if (property.value == entrustProp && property.accountType == accountType) {
            return &property;
        }
    }
    return nullptr;
}

bool hasRules(const QString& accountType)
{
    return accountType == AccountType::Cash || accountType == AccountType::Credit;
}

} // namespace

EntrustFault faultOfAccount(const QString& accountType, const QString& entrustProp)
{
    const bool taken = !hasRules(accountType) || find(accountType, entrustProp) != nullptr;
    return taken ? EntrustFault::None : EntrustFault::Account;
}

EntrustFault faultOfDirection(const QString& accountType, const QString& entrustProp,
                              const QString& orderSide)
{
    const EntrustProperty* property = find(accountType, entrustProp);
    if (accountType != AccountType::Credit || property == nullptr) {
        return EntrustFault::None;
    }
    const bool wrongSide = (orderSide == QLatin1String("Buy") && !property->buy) ||
                           (orderSide == QLatin1String("Sell") && !property->sell);
    return wrongSide ? EntrustFault::Direction : EntrustFault::None;
}

EntrustFault faultOfCollateral(const QString& accountType, const QString& entrustProp,
                               const QString& orderSide)
{
    if (accountType != AccountType::Credit) {
        return EntrustFault::None;
    }
    for (const CollateralRule& rule : collateralRules()) {
        if (rule.orderSide == orderSide && !rule.accepted.contains(entrustProp)) {
            return rule.fault;
        }
    }
    return EntrustFault::None;
}

} // namespace validation
