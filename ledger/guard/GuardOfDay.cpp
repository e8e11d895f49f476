// What the ledger holds against a batch: halts, and what the account did today.

#include "ledger/guard/GuardRules.h"
#include "ledger/LedgerTexts.h"
#include "words/Words.h"

namespace ledger {

namespace {

using guard::exceeds;
using guard::figure;

namespace rule = table::rule;

void checkHalts(const Standing& standing, QList<Finding>& findings)
{
    QStringList reasons;
    for (const Halt& halt : standing.halts) {
        reasons.append(halt.account == QLatin1String("*")
                           ? texts::haltOfAll(halt.reason, halt.by)
                           : texts::haltOf(halt.account, halt.reason, halt.by));
    }
    if (!reasons.isEmpty()) {
        findings.append({rule::Halted, reasons.size(), {reasons.join(Words::tr("；"))}, {}});
    }
}

} // namespace

QList<Finding> refusalsOfDay(const BatchDraft& draft, const Limits& limits, const Standing& standing)
{
    QList<Finding> findings;
    checkHalts(standing, findings);
    const Gross gross = grossOf(draft.instances);
    const Decimal buy = standing.day.buy + gross.buy;
    const Decimal sell = standing.day.sell + gross.sell;
    const Decimal instances = Decimal(standing.day.instances) + draft.instances.size();
    if (gross.buy != 0 && exceeds(buy, limits.dayBuy)) {
        findings.append({rule::DayBuy, 1, {figure(buy), figure(*limits.dayBuy)}, {}});
    }
    if (gross.sell != 0 && exceeds(sell, limits.daySell)) {
        findings.append({rule::DaySell, 1, {figure(sell), figure(*limits.daySell)}, {}});
    }
    if (exceeds(instances, limits.dayInstances)) {
        findings.append({rule::DayInstances,
                         draft.instances.size(),
                         {figure(instances), figure(*limits.dayInstances)},
                         {}});
    }
    return findings;
}

} // namespace ledger
