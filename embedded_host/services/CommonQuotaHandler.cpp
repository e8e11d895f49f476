#include "host/CommonQuotaHandler.h"

#include "embedded_host/quotes/QuoteBoard.h"
#include "embedded_host/services/Record.h"
#include "host/QuotaFields.h"

using services::record;

namespace {

/// Hands quotes of the current host's board on.
class BoardQuotaHandler final : public CommonQuotaHandler {
public:
    void SubscribeQuota(const QStringList& symbols, bool subscribe, int quotaType) override
    {
        record("CommonQuotaHandler::SubscribeQuota", symbols, subscribe, quotaType);
        QuoteBoard& board = EmbeddedHost::current().quotes();
        if (subscribe) {
            board.subscribe(symbols);
        } else {
            board.unsubscribe(symbols);
        }
    }

    QMap<QString, QVariant> GetQuotaSnapshot(const QString& symbol, int quotaType) override
    {
        record("CommonQuotaHandler::GetQuotaSnapshot", symbol, quotaType);
        return EmbeddedHost::current().quotes().snapshot(symbol);
    }
};

} // namespace

CommonQuotaHandler* CommonQuotaHandler::instance()
{
    static BoardQuotaHandler handler;
    return &handler;
}

double CommonQuotaHandler::getLastPriceFromTick(const QMap<QString, QVariant>& tick)
{
    record("CommonQuotaHandler::getLastPriceFromTick", tick);
    for (const QString& field : {QuotaFields::LastPx, QuotaFields::PreClosePx}) {
        const double price = tick.value(field).toDouble();
        if (price > 0) {
            return price;
        }
    }
    return 0;
}
