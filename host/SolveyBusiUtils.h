#pragma once

#include "host/HostApi.h"

#include <QString>

class ALGO_HOST_API SolveyBusiUtils {
public:
    /// The canonical exchange code of what a person wrote as a market, such as "SH" for "沪市".
    static QString NormalizeSecurityExchange(QString market);
};
