#include "amounts/QuoteSubscription.h"

#include "host/CommonQuotaHandler.h"

#include <QThread>

void subscribeAndAwaitQuotes(const QStringList& symbols)
{
    constexpr unsigned long waitMs = 300;
    CommonQuotaHandler::instance()->SubscribeQuota(symbols, true, 0);
    QThread::msleep(waitMs);
}
