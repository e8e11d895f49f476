#pragma once

#include "host/HostApi.h"

#include <QMap>
#include <QString>
#include <QStringList>
#include <QVariant>

/// Quotes. Called on the GUI thread; the host may fill its snapshots from threads of its own.
class ALGO_HOST_API CommonQuotaHandler {
public:
    /// Never null, never owned by the caller.
    static CommonQuotaHandler* instance();

    /// Starts (or stops) quotes for the symbols and returns at once; first snapshots are due within 300 ms.
    virtual void SubscribeQuota(const QStringList& symbols, bool subscribe, int quotaType) = 0;
    /// The latest quote: field name -> value; "MaxPx" is the upper price limit of the day, "PreClosePx" the previous
    /// close. Empty while nothing has arrived.
    virtual QMap<QString, QVariant> GetQuotaSnapshot(const QString& symbol, int quotaType) = 0;
    /// The last price of a snapshot; 0 when it has none.
    static double getLastPriceFromTick(const QMap<QString, QVariant>& tick);

protected:
    CommonQuotaHandler() = default;
    ~CommonQuotaHandler() = default;
};
