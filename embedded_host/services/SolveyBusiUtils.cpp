#include "host/SolveyBusiUtils.h"

#include "embedded_host/services/Record.h"

QString SolveyBusiUtils::NormalizeSecurityExchange(QString market)
{
    services::record("SolveyBusiUtils::NormalizeSecurityExchange", market);
    return services::referenceData().normalizedExchange(market);
}
