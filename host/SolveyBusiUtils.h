#pragma once

#include "host/HostApi.h"

#include <QString>

/// Texts of the trade. GUI thread only; every call returns at once.
class ALGO_HOST_API SolveyBusiUtils {
public:
    /// The canonical exchange code of what a person wrote as a market, such as "SH" for "沪市". What is no
    /// market comes back without the blanks around it.
    static QString NormalizeSecurityExchange(QString market);
};
