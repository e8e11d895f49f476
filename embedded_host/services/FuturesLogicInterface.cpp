#include "host/FuturesLogicInterface.h"

#include "embedded_host/services/Record.h"

using services::record;
using services::referenceData;

void FuturesLogicInterface::InitData()
{
    record("FuturesLogicInterface::InitData"); // the contracts came with the reference data
}

int FuturesLogicInterface::GetFuturesPricePrecision(const QString& symbol)
{
    record("FuturesLogicInterface::GetFuturesPricePrecision", symbol);
    if (const FuturesContract* contract = referenceData().futuresContract(symbol)) {
        return contract->pricePrecision;
    }
    const Security* security = referenceData().security(symbol);
    return security ? security->pricePrecision : FuturesContract().pricePrecision;
}

stuFuturesBaseData FuturesLogicInterface::GetFuturesBaseData(const QString& symbol)
{
    record("FuturesLogicInterface::GetFuturesBaseData", symbol);
    const FuturesContract* contract = referenceData().futuresContract(symbol);
    stuFuturesBaseData data;
    if (contract) {
        data.contractMultiplier = contract->multiplier;
    }
    return data;
}
