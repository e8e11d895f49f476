#pragma once

#include "host/HostApi.h"

#include <QString>

/// Base data of a futures contract.
struct stuFuturesBaseData {
    int contractMultiplier = 1; ///< money per point and contract, such as 300
};

/// Base data of futures contracts. GUI thread only; every call returns at once.
class ALGO_HOST_API FuturesLogicInterface {
public:
    /// Prepares the futures data; called once per dialog.
    static void InitData();
    /// Decimal places of the contract's price; those of the security, else 2, for one without base data.
    static int GetFuturesPricePrecision(const QString& symbol);
    /// The multiplier is 1 for a contract without base data.
    static stuFuturesBaseData GetFuturesBaseData(const QString& symbol);
};
