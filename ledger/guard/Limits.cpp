#include "ledger/guard/Limits.h"

namespace ledger {

namespace {

const QString Everything = QStringLiteral("*");

bool covers(const QString& scope, const QString& name)
{
    return scope == Everything || scope == name;
}

bool covers(const LimitScope& scope, const QString& account, const QString& strategy)
{
    return covers(scope.account, account) && covers(scope.strategy, strategy);
}

bool isGeneral(const LimitScope& scope)
{
    return scope.account == Everything && scope.strategy == Everything;
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

QStringList optedOut(const QList<LimitScope>& scopes, const QString& account, const QString& strategy)
{
    QStringList names;
    for (const LimitScope& scope : scopes) {
        if (scope.replacesGeneral && !isGeneral(scope) && covers(scope, account, strategy)) {
            names.append(scope.account + QLatin1Char(' ') + scope.strategy);
        }
    }
    return names;
}

Limits limitsFor(const QList<LimitScope>& scopes, const QString& account, const QString& strategy)
{
    Limits limits;
    const bool isReplaced = !optedOut(scopes, account, strategy).isEmpty();
    for (const LimitScope& scope : scopes) {
        if (!covers(scope, account, strategy) || (isReplaced && isGeneral(scope))) {
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
