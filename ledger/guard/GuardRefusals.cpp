#include "ledger/guard/GuardRules.h"

namespace ledger::guard {

namespace {

Decimal amountOf(const InstanceDraft& instance)
{
    Decimal sum;
    for (const Leg& leg : instance.legs) {
        sum += leg.amount;
    }
    return sum;
}

/// After an import that ended early the dialog may still hold instances that its table does not show. Nobody
/// has looked at them.
void checkEverythingIsShown(const BatchDraft& draft, Verdict& verdict)
{
    const int shown = draft.table.rows.size();
    const int instances = draft.instances.size();
    if (shown != instances) {
        verdict.refusals.append(
            {rule::NotShown, instances, {QString::number(shown), QString::number(instances)}, {}});
    }
}

/// The import reads a cell that is no number as 0, and nobody means an order of nothing. A strategy without
/// such a column cannot say more.
void checkQuantities(const BatchDraft& draft, Verdict& verdict)
{
    const QList<int> rows =
        rowsWithLeg(draft, [](const Leg& leg) { return !(leg.quantity > 0) && !(leg.typedAmount > 0); });
    report(draft.asksQuantity ? verdict.refusals : verdict.warnings, rule::NoQuantity, rows);
}

/// The import takes a minus sign for what it is, and the market has no orders of less than nothing.
void checkSigns(const BatchDraft& draft, Verdict& verdict)
{
    const QList<int> rows = rowsWithLeg(draft, [](const Leg& leg) { return leg.isNegative; });
    report(verdict.refusals, rule::Negative, rows);
}

void checkSize(const BatchDraft& draft, const Limits& limits, Verdict& verdict)
{
    const int count = draft.instances.size();
    if (exceeds(count, limits.batchRows)) {
        verdict.refusals.append(
            {rule::BatchRows, count, {QString::number(count), figure(*limits.batchRows)}, {}});
    }
}

void checkParticipation(const BatchDraft& draft, const Limits& limits, Verdict& verdict)
{
    const QList<int> rows = rowsWhere(draft, [&](const InstanceDraft& instance) {
        return exceeds(instance.participation, limits.participation);
    });
    report(verdict.refusals, rule::Participation, rows, {figure(limits.participation.value_or(Decimal()))});
}

void checkRows(const BatchDraft& draft, const Limits& limits, Verdict& verdict)
{
    const QList<int> large =
        rowsWithLeg(draft, [&](const Leg& leg) { return exceeds(leg.quantity, limits.rowQuantity); });
    report(verdict.refusals, rule::RowQuantity, large, {figure(limits.rowQuantity.value_or(Decimal()))});
    const QList<int> dear = rowsWhere(
        draft, [&](const InstanceDraft& instance) { return exceeds(amountOf(instance), limits.rowAmount); });
    report(verdict.refusals, rule::RowAmount, dear, {figure(limits.rowAmount.value_or(Decimal()))});
}

void checkSecurities(const AmountsBySecurity& amounts, const Limits& limits, Verdict& verdict)
{
    QStringList broken;
    for (auto security = amounts.cbegin(); security != amounts.cend(); ++security) {
        if (exceeds(security->bought, limits.securityAmount) ||
            exceeds(security->sold, limits.securityAmount)) {
            broken.append(security.key());
        }
    }
    reportNames(verdict.refusals, rule::SecurityAmount, broken,
                {figure(limits.securityAmount.value_or(Decimal()))});
}

void checkGross(const Limits& limits, Verdict& verdict)
{
    if (exceeds(verdict.grossBuy, limits.grossBuy)) {
        verdict.refusals.append(
            {rule::GrossBuy, 1, {figure(verdict.grossBuy), figure(*limits.grossBuy)}, {}});
    }
    if (exceeds(verdict.grossSell, limits.grossSell)) {
        verdict.refusals.append(
            {rule::GrossSell, 1, {figure(verdict.grossSell), figure(*limits.grossSell)}, {}});
    }
}

void checkPriceDistance(const BatchDraft& draft, const Limits& limits, const Prices& prices, Verdict& verdict)
{
    const auto isFar = [&](const Leg& leg) {
        const Price price = prices.value({leg.symbol, leg.exchange});
        if (!limits.priceDistance || leg.limitPrice == 0 || !(price.last > 0) || price.isNominal) {
            return false;
        }
        // without a division, which may have no end
        return exceeds((leg.limitPrice - price.last).abs() * 100, *limits.priceDistance * price.last);
    };
    const QList<int> rows = rowsWithLeg(draft, isFar);
    report(verdict.refusals, rule::PriceDistance, rows, {figure(limits.priceDistance.value_or(Decimal()))});
}

void checkPrices(const BatchDraft& draft, const Limits& limits, Verdict& verdict)
{
    const QList<int> rows = limits.refusesUnpriced ? rowsWithLeg(draft, isUnpriced) : QList<int>();
    report(verdict.refusals, rule::Unpriced, rows);
}

} // namespace

void refuse(const BatchDraft& draft, const Limits& limits, const Prices& prices,
            const AmountsBySecurity& amounts, Verdict& verdict)
{
    checkEverythingIsShown(draft, verdict);
    checkQuantities(draft, verdict);
    checkSigns(draft, verdict);
    checkSize(draft, limits, verdict);
    checkRows(draft, limits, verdict);
    checkSecurities(amounts, limits, verdict);
    checkGross(limits, verdict);
    checkPriceDistance(draft, limits, prices, verdict);
    checkParticipation(draft, limits, verdict);
    checkPrices(draft, limits, verdict);
}

} // namespace ledger::guard
