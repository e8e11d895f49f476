#include "ledger/guard/GuardRules.h"
#include "ledger/values/ExchangeTime.h"
#include "words/Words.h"

#include <QSet>

namespace ledger::guard {

namespace {

/// From this on, a row's quantity looks like money where limits.csv names no amount of its own.
constexpr int MoneyLikeAmount = 100000000;
/// A quantity in full ten thousands that is worth this much is more likely to be an amount.
constexpr int RoundQuantityAmount = 10000000;
constexpr int RoundQuantityStep = 10000;

QString named(const Duplicate& duplicate)
{
    return QString::number(duplicate.batch);
}

QString namedWithAccount(const Duplicate& duplicate)
{
    return Words::tr("%1，账号 %2").arg(QString::number(duplicate.batch), duplicate.account);
}

QString namedWithTime(const Duplicate& duplicate)
{
    return Words::tr("%1，%2").arg(QString::number(duplicate.batch),
                                   exchangeTime(duplicate.createdAt).toString(QStringLiteral("MM-dd HH:mm")));
}

/// The names of those that a test holds for, oldest first.
template <typename Test, typename Name>
QStringList namesOf(const QList<Duplicate>& duplicates, Test holds, Name nameOf)
{
    QStringList names;
    for (const Duplicate& duplicate : duplicates) {
        if (holds(duplicate)) {
            names.prepend(nameOf(duplicate));
        }
    }
    return names;
}

void warnOfSameFile(const BatchDraft& draft, const Standing& standing, Verdict& verdict)
{
    const auto isHere = [&](const Duplicate& other) {
        return other.isSameFile && other.account == draft.account;
    };
    const auto isElsewhere = [&](const Duplicate& other) {
        return other.isSameFile && other.account != draft.account;
    };
    const QStringList here = namesOf(standing.duplicates, isHere, named);
    reportNames(verdict.warnings, rule::SameFile, here);
    const QStringList elsewhere = namesOf(standing.duplicates, isElsewhere, namedWithAccount);
    reportNames(verdict.warnings, rule::SameFileElsewhere, elsewhere);
    const QStringList lately = namesOf(
        standing.lately, [](const Duplicate&) { return true; }, namedWithTime);
    reportNames(verdict.warnings, rule::SameFileLately, lately);
}

/// Rows that another file of today held; those of the very same file are warned of as a whole.
void warnOfSameRows(const Standing& standing, Verdict& verdict)
{
    const auto isOther = [](const Duplicate& other) { return !other.isSameFile && !other.rows.isEmpty(); };
    QMap<int, bool> rows;
    for (const Duplicate& duplicate : standing.duplicates) {
        for (const int row : isOther(duplicate) ? duplicate.rows : QSet<int>()) {
            rows[row] = true;
        }
    }
    const QStringList batches = namesOf(standing.duplicates, isOther, named);
    report(verdict.warnings, rule::SameRows, rows.keys(), {someOf(batches)});
}

/// One row that buys and sells by itself, as pairs do, is meant that way.
void warnOfBothSides(const BatchDraft& draft, Verdict& verdict)
{
    QMap<QString, QSet<int>> buyers;
    QMap<QString, QSet<int>> sellers;
    for (int i = 0; i < draft.instances.size(); ++i) {
        for (const Leg& leg : draft.instances.at(i).legs) {
            if (leg.hasKnownSide() && leg.buys()) {
                buyers[leg.symbol].insert(i);
            }
            if (leg.hasKnownSide() && leg.sells()) {
                sellers[leg.symbol].insert(i);
            }
        }
    }
    QStringList symbols;
    for (auto buyer = buyers.cbegin(); buyer != buyers.cend(); ++buyer) {
        const QSet<int> rows = sellers.value(buyer.key());
        if (!rows.isEmpty() && (rows != *buyer || rows.size() > 1)) {
            symbols.append(buyer.key());
        }
    }
    reportNames(verdict.warnings, rule::BothSides, symbols);
}

void warnOfMoney(const BatchDraft& draft, const Limits& limits, Verdict& verdict)
{
    const Decimal beyondReason = limits.moneyLikeAmount.value_or(MoneyLikeAmount);
    const QList<int> rows = rowsWithLeg(draft, [&](const Leg& leg) {
        const bool isRound = leg.quantity.isMultipleOf(RoundQuantityStep);
        return leg.typedAmount == 0 && leg.quantity > 0 &&
               (leg.amount >= beyondReason || (isRound && leg.amount >= RoundQuantityAmount));
    });
    report(verdict.warnings, rule::MoneyLikeQuantity, rows);
}

/// The import reads a limit that is no number as 0, which is no limit.
void warnOfLostLimits(const BatchDraft& draft, Verdict& verdict)
{
    const QList<int> rows = rowsWithLeg(draft, [](const Leg& leg) { return leg.hasZeroLimit; });
    report(verdict.warnings, rule::ZeroLimit, rows);
}

void warnOfTimes(const BatchDraft& draft, Verdict& verdict)
{
    const QList<int> rows = rowsWhere(draft, [](const InstanceDraft& instance) {
        return instance.start.isValid() && instance.end.isValid() && instance.end < instance.start;
    });
    report(verdict.warnings, rule::EndBeforeStart, rows);
}

void warnOfPrices(const BatchDraft& draft, const Limits& limits, Verdict& verdict)
{
    const QList<int> rows = limits.refusesUnpriced ? QList<int>() : rowsWithLeg(draft, isUnpriced);
    report(verdict.warnings, rule::Unpriced, rows);
}

} // namespace

void warn(const BatchDraft& draft, const Limits& limits, const Standing& standing, Verdict& verdict)
{
    warnOfSameFile(draft, standing, verdict);
    warnOfSameRows(standing, verdict);
    warnOfBothSides(draft, verdict);
    warnOfMoney(draft, limits, verdict);
    warnOfLostLimits(draft, verdict);
    warnOfPrices(draft, limits, verdict);
    warnOfTimes(draft, verdict);
}

} // namespace ledger::guard
