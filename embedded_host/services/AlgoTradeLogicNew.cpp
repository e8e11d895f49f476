#include "host/AlgoTradeLogicNew.h"

#include "embedded_host/services/Record.h"

using services::record;
using services::referenceData;

AlgoTradeLogicNew* AlgoTradeLogicNew::GetInstance()
{
    static AlgoTradeLogicNew instance;
    return &instance;
}

QList<AesStrategy> AlgoTradeLogicNew::GetAllStrategies(const QString& globalType)
{
    record("AlgoTradeLogicNew::GetAllStrategies", globalType);
    QList<AesStrategy> chosen;
    for (const AesStrategy& strategy : referenceData().tables().strategies) {
        if (strategy.globalType() == globalType) {
            chosen.append(strategy);
        }
    }
    return chosen;
}

AesStrategy AlgoTradeLogicNew::GetStrategy(const QString& name)
{
    record("AlgoTradeLogicNew::GetStrategy", name);
    const AesStrategy* strategy = referenceData().strategy(name);
    return strategy ? *strategy : AesStrategy();
}

bool AlgoTradeLogicNew::hasCorrespAuthority(QString account, QString strategyName, QString globalType)
{
    record("AlgoTradeLogicNew::hasCorrespAuthority", account, strategyName, globalType);
    return referenceData().isAllowed(account, strategyName);
}

bool AlgoTradeLogicNew::isBondRepoSymbol(const QString& symbol)
{
    record("AlgoTradeLogicNew::isBondRepoSymbol", symbol);
    const Security* security = referenceData().security(symbol);
    return security && security->bondRepo;
}
