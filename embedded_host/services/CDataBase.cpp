#include "host/CDataBase.h"

#include "embedded_host/services/Record.h"
#include "host/SolveyConstants.h"

CDataBase* CDataBase::GetInstance()
{
    static CDataBase instance;
    return &instance;
}

QString CDataBase::GetStaticCfgValue(const QString& section, const QString& key)
{
    services::record("CDataBase::GetStaticCfgValue", section, key);
    if (section != SolveyConstants::MarketNameSection) {
        return QString();
    }
    const Market* market = services::referenceData().market(key);
    return market ? market->name : QString();
}
