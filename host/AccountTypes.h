#pragma once

#include <QString>

/// One account of the logged-in user.
struct tagUserAccountInfo {
    QString tradingAccount; ///< the account that orders name; unique
    QString name;           ///< shown name
    /// Solvey_Values::FundAccountType::Cash or Credit, or another text such as Futures.
    QString fundAccountType;
    QString assetProp; ///< asset property; a default of the import depends on it
    QString sysNodeId; ///< system node that runs the account's instances
};
