#pragma once

#include "host/HostApi.h"

#include <QString>

/// Static configuration. GUI thread only; every call returns at once.
class ALGO_HOST_API CDataBase {
public:
    /// Never null, never owned by the caller.
    static CDataBase* GetInstance();

    /// SolveyConstants::MarketNameSection with an exchange code as key gives the market's shown name.
    /// An unknown section or key gives the empty text.
    QString GetStaticCfgValue(const QString& section, const QString& key);
};
