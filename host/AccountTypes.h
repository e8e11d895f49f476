#pragma once

#include <QString>

/// One account of the logged-in user.
struct tagUserAccountInfo {
    QString tradingAccount; ///< the account that orders name; unique
    QString name;           ///< shown name
    /// Solvey_Values::FundAccountType::Cash or Credit, or another text such as Futures.
    QString fundAccountType;
    /// Asset property, usually the fund account type. Under Credit an empty 单笔最小委托金额 is imported as
    /// 10000.
    QString assetProp;
    QString sysNodeId; ///< system node that runs the account's instances
};
