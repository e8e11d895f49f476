#pragma once

#include <QString>

/// Which kinds of order (entrust properties) suit an account and a direction.
namespace validation {

enum class EntrustFault {
    None,
    Account,            ///< the account's type does not take the property
    Direction,          ///< the property is for the other side
    CollateralBuyOnly,  ///< the strategy takes only collateral and financing purchases
    CollateralSellOnly, ///< the strategy takes only collateral sales
};

/// `accountType`: Solvey_Values::FundAccountType::Cash or Credit; accounts of other types take every
/// property.
EntrustFault faultOfAccount(const QString& accountType, const QString& entrustProp);

/// On a credit account: `orderSide` "Buy" or "Sell"; any other text passes. Other accounts have no rule.
EntrustFault faultOfDirection(const QString& accountType, const QString& entrustProp,
                              const QString& orderSide);

/// On a credit account under a strategy that takes only collateral and financing orders.
EntrustFault faultOfCollateral(const QString& accountType, const QString& entrustProp,
                               const QString& orderSide);

} // namespace validation
