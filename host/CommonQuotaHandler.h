#pragma once

#include "host/HostApi.h"

#include <QMap>
#include <QString>
#include <QStringList>
#include <QVariant>

/// Quotes. Called on the GUI thread; the host may fill its snapshots from threads of its own. `quotaType`
/// selects a kind of quote of the host's; the dialog passes 0, and a host with one kind may ignore it.
class ALGO_HOST_API CommonQuotaHandler {
public:
    /// Never null, never owned by the caller.
    static CommonQuotaHandler* instance();

    /// Starts (or stops) quotes for the symbols and returns at once; first snapshots are due within 300 ms.
    /// Empty symbols and ones that are subscribed already change nothing.
    virtual void SubscribeQuota(const QStringList& symbols, bool subscribe, int quotaType) = 0;
    /// The latest quote: QuotaFields name -> price, as a number or as a text that reads as one (with a
    /// decimal point). A field that is not known is left out. Empty while nothing has arrived.
    virtual QMap<QString, QVariant> GetQuotaSnapshot(const QString& symbol, int quotaType) = 0;
    /// The last price of a snapshot; before the first trade of the day, where it is missing or not above 0,
    /// the previous close; 0 when there is neither.
    static double getLastPriceFromTick(const QMap<QString, QVariant>& tick);

protected:
    CommonQuotaHandler() = default;
    ~CommonQuotaHandler() = default;
};
