#pragma once

#include "host/HostApi.h"

#include <QString>

/// Base data of a futures contract.
struct stuFuturesBaseData {
    int contractMultiplier = 1; ///< money per point and contract, such as 300
};

class ALGO_HOST_API FuturesLogicInterface {
public:
    /// Prepares the futures data; called once per dialog.
    static void InitData();
    /// Decimal places of the contract's price.
    static int GetFuturesPricePrecision(const QString& symbol);
    static stuFuturesBaseData GetFuturesBaseData(const QString& symbol);
};
