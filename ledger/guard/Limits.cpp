#include "ledger/guard/Limits.h"

namespace ledger {

namespace {

const QString Everything = QStringLiteral("*");

bool covers(const QString& scope, const QString& name)
{
    return scope == Everything || scope == name;
}

void tighten(std::optional<Decimal>& ceiling, const std::optional<Decimal>& other)
{
    if (other && (!ceiling || *other < *ceiling)) {
        ceiling = other;
    }
}

} // namespace

const QList<Ceiling>& ceilings()
{
    static const QList<Ceiling> list{
        {"maxRowQuantity", &Limits::rowQuantity},
        {"maxRowAmount", &Limits::rowAmount},
        {"maxSecurityAmount", &Limits::securityAmount},
        {"maxGrossBuy", &Limits::grossBuy},
        {"maxGrossSell", &Limits::grossSell},
        {"maxPriceDistance", &Limits::priceDistance},
        {"confirmAmount", &Limits::confirmAmount},
        {"moneyLikeAmount", &Limits::moneyLikeAmount},
        {"maxDayBuy", &Limits::dayBuy},
        {"maxDaySell", &Limits::daySell},
        {"maxDayInstances", &Limits::dayInstances},
        {"maxBatchRows", &Limits::batchRows},
        {"maxParticipation", &Limits::participation},
        {"maxOrdersPerSecond", &Limits::ordersPerSecond},
        {"approvalAmount", &Limits::approvalAmount},
    };
    return list;
}

Limits limitsFor(const QList<LimitScope>& scopes, const QString& account, const QString& strategy)
{
    Limits limits;
    for (const LimitScope& scope : scopes) {
        if (!covers(scope.account, account) || !covers(scope.strategy, strategy)) {
            continue;
        }
        for (const Ceiling& ceiling : ceilings()) {
            tighten(limits.*ceiling.value, scope.limits.*ceiling.value);
        }
        limits.refusesUnpriced = limits.refusesUnpriced || scope.limits.refusesUnpriced;
    }
    return limits;
}

} // namespace ledger
