#pragma once

#include "host/AesStrategy.h"
#include "host/HostApi.h"

#include <QList>
#include <QString>

/// Strategy catalogue and authority. GUI thread only; every call returns at once.
class ALGO_HOST_API AlgoTradeLogicNew {
public:
    /// Never null, never owned by the caller.
    static AlgoTradeLogicNew* GetInstance();

    /// All strategies of a global type (Algo_Values::AlgoGlobalType), in catalogue order.
    QList<AesStrategy> GetAllStrategies(const QString& globalType);
    /// The strategy with that code; a default-constructed one when there is none.
    AesStrategy GetStrategy(const QString& name);
    /// Whether the trading account may run the strategy.
    bool hasCorrespAuthority(QString account, QString strategyName, QString globalType);
    /// Whether the security is a bond repurchase, which is priced at 100.
    bool isBondRepoSymbol(const QString& symbol);
};
