#include "desk/ledger/Guard.h"

#include "desk/ledger/LedgerTexts.h"

#include <QLocale>
#include <QMap>
#include <QSet>

#include <cmath>
#include <functional>

namespace ledger {

namespace {

/// From this on, a row's quantity looks like money where limits.csv names no amount of its own.
constexpr double MoneyLikeAmount = 1e8;
/// A quantity in full ten thousands that is worth this much is more likely to be an amount.
constexpr double RoundQuantityAmount = 1e7;
constexpr double RoundQuantityStep = 1e4;
/// Sums of binary fractions may miss a ceiling that they meet exactly.
constexpr double Tolerance = 1e-6;
/// Names of securities or batches that one line lists.
constexpr int MostNames = 5;

QString figure(double value)
{
    const QLocale grouped(QLocale::English);
    const bool isWhole = std::floor(value) == value;
    return grouped.toString(value, 'f', isWhole ? 0 : 2);
}

QString someOf(const QStringList& names)
{
    const QString listed = names.mid(0, MostNames).join(QStringLiteral("、"));
    return names.size() > MostNames ? listed + QStringLiteral(" 等") : listed;
}

bool exceeds(double value, const std::optional<double>& ceiling)
{
    return ceiling && value > *ceiling + Tolerance;
}

/// Adds a finding where anything is concerned.
void report(QList<Finding>& findings, const char* rule, int count, const QString& text,
            const QList<int>& rows = {})
{
    if (count > 0) {
        findings.append({QString::fromLatin1(rule), count, text, rows});
    }
}

/// 1-based numbers of the instances that a test holds for.
QList<int> rowsWhere(const BatchDraft& draft, const std::function<bool(const InstanceDraft&)>& holds)
{
    QList<int> rows;
    for (int i = 0; i < draft.instances.size(); ++i) {
        if (holds(draft.instances.at(i))) {
            rows.append(i + 1);
        }
    }
    return rows;
}

bool anyLeg(const InstanceDraft& instance, const std::function<bool(const Leg&)>& holds)
{
    return std::any_of(instance.legs.cbegin(), instance.legs.cend(), holds);
}

double amountOf(const InstanceDraft& instance)
{
    double sum = 0.0;
    for (const Leg& leg : instance.legs) {
        sum += leg.amount;
    }
    return sum;
}

bool isUnpriced(const Leg& leg)
{
    return leg.amount <= 0.0 && leg.quantity > 0.0;
}

/// Money per security on either side.
struct SecurityAmounts {
    double bought = 0.0;
    double sold = 0.0;
};

QMap<QString, SecurityAmounts> amountsBySecurity(const BatchDraft& draft)
{
    QMap<QString, SecurityAmounts> amounts;
    for (const InstanceDraft& instance : draft.instances) {
        for (const Leg& leg : instance.legs) {
            amounts[leg.symbol].bought += leg.buys() ? leg.amount : 0.0;
            amounts[leg.symbol].sold += leg.sells() ? leg.amount : 0.0;
        }
    }
    return amounts;
}

// Ceilings.

void checkRows(const BatchDraft& draft, const Limits& limits, Verdict& verdict)
{
    if (limits.rowQuantity) {
        const QList<int> rows = rowsWhere(draft, [&](const InstanceDraft& instance) {
            return anyLeg(instance,
                          [&](const Leg& leg) { return exceeds(leg.quantity, limits.rowQuantity); });
        });
        report(verdict.refusals, "rowQuantity", rows.size(),
               texts::rowQuantity(rows.size(), figure(*limits.rowQuantity)), rows);
    }
    if (limits.rowAmount) {
        const QList<int> rows = rowsWhere(draft, [&](const InstanceDraft& instance) {
            return exceeds(amountOf(instance), limits.rowAmount);
        });
        report(verdict.refusals, "rowAmount", rows.size(),
               texts::rowAmount(rows.size(), figure(*limits.rowAmount)), rows);
    }
}

void checkSecurities(const QMap<QString, SecurityAmounts>& amounts, const Limits& limits, Verdict& verdict)
{
    QStringList broken;
    for (auto security = amounts.cbegin(); security != amounts.cend(); ++security) {
        if (exceeds(qMax(security->bought, security->sold), limits.securityAmount)) {
            broken.append(security.key());
        }
    }
    report(verdict.refusals, "securityAmount", broken.size(),
           texts::securityAmount(broken.size(), figure(limits.securityAmount.value_or(0.0)), someOf(broken)));
}

void checkGross(const Limits& limits, Verdict& verdict)
{
    if (exceeds(verdict.grossBuy, limits.grossBuy)) {
        report(verdict.refusals, "grossBuy", 1,
               texts::grossBuy(figure(verdict.grossBuy), figure(*limits.grossBuy)));
    }
    if (exceeds(verdict.grossSell, limits.grossSell)) {
        report(verdict.refusals, "grossSell", 1,
               texts::grossSell(figure(verdict.grossSell), figure(*limits.grossSell)));
    }
}

void checkPriceDistance(const BatchDraft& draft, const Limits& limits, const Prices& prices, Verdict& verdict)
{
    const auto isFar = [&](const Leg& leg) {
        const Price price = prices.value({leg.symbol, leg.exchange});
        return leg.limitPrice > 0.0 && price.last > 0.0 && !price.isNominal &&
               exceeds(std::fabs(leg.limitPrice / price.last - 1.0) * 100.0, limits.priceDistance);
    };
    const QList<int> rows =
        rowsWhere(draft, [&](const InstanceDraft& instance) { return anyLeg(instance, isFar); });
    report(verdict.refusals, "priceDistance", rows.size(),
           texts::priceDistance(rows.size(), figure(limits.priceDistance.value_or(0.0))), rows);
}

// Warnings.

void warnOfSameFile(const BatchDraft& draft, const QList<EarlierBatch>& earlier, Verdict& verdict)
{
    QStringList batches;
    for (const EarlierBatch& batch : earlier) {
        if (!draft.fileSha256.isEmpty() && batch.fileSha256 == draft.fileSha256) {
            batches.append(QString::number(batch.number));
        }
    }
    report(verdict.warnings, "sameFile", batches.size(), texts::sameFile(batches.size(), someOf(batches)));
}

/// Rows that another file of today held; those of the very same file are warned of as a whole.
void warnOfSameRows(const BatchDraft& draft, const QList<EarlierBatch>& earlier, Verdict& verdict)
{
    QSet<int> rows;
    QStringList batches;
    QStringList keys;
    for (const InstanceDraft& instance : draft.instances) {
        keys.append(rowKey(draft.strategy, instance));
    }
    for (const EarlierBatch& batch : earlier) {
        if (!draft.fileSha256.isEmpty() && batch.fileSha256 == draft.fileSha256) {
            continue;
        }
        const int before = rows.size();
        bool isConcerned = false;
        for (int i = 0; i < keys.size(); ++i) {
            if (batch.rowKeys.contains(keys.at(i))) {
                rows.insert(i + 1);
                isConcerned = true;
            }
        }
        if (isConcerned || rows.size() > before) {
            batches.append(QString::number(batch.number));
        }
    }
    QList<int> sorted = rows.values();
    std::sort(sorted.begin(), sorted.end());
    report(verdict.warnings, "sameRows", sorted.size(), texts::sameRows(sorted.size(), someOf(batches)),
           sorted);
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
    report(verdict.warnings, "bothSides", symbols.size(), texts::bothSides(symbols.size(), someOf(symbols)));
}

bool hasFraction(const QString& quantity)
{
    bool isNumber = false;
    const double value = quantity.toDouble(&isNumber);
    return isNumber && std::floor(value) != value;
}

bool looksLikeMoney(const InstanceDraft& instance, const Limits& limits)
{
    const double beyondReason = limits.moneyLikeAmount.value_or(MoneyLikeAmount);
    return hasFraction(instance.quantityText) || anyLeg(instance, [&](const Leg& leg) {
               const bool isRound = std::fmod(leg.quantity, RoundQuantityStep) == 0.0;
               return leg.typedAmount <= 0.0 && leg.quantity > 0.0 &&
                      (leg.amount >= beyondReason || (isRound && leg.amount >= RoundQuantityAmount));
           });
}

void warnOfMoney(const BatchDraft& draft, const Limits& limits, Verdict& verdict)
{
    const QList<int> rows =
        rowsWhere(draft, [&](const InstanceDraft& instance) { return looksLikeMoney(instance, limits); });
    report(verdict.warnings, "moneyLikeQuantity", rows.size(), texts::moneyLikeQuantity(rows.size()), rows);
}

void checkUnpriced(const BatchDraft& draft, const Limits& limits, Verdict& verdict)
{
    const QList<int> rows =
        rowsWhere(draft, [](const InstanceDraft& instance) { return anyLeg(instance, isUnpriced); });
    if (limits.refusesUnpriced) {
        report(verdict.refusals, "unpriced", rows.size(), texts::unpricedRefused(rows.size()), rows);
    } else {
        report(verdict.warnings, "unpriced", rows.size(), texts::unpriced(rows.size()), rows);
    }
}

} // namespace

namespace {

/// After an import that ended early the dialog may still hold instances that its table does not show. Nobody has looked
/// at them.
void checkEverythingIsShown(const BatchDraft& draft, Verdict& verdict)
{
    const int shown = draft.table.rows.size();
    const int instances = draft.instances.size();
    if (shown != instances) {
        report(verdict.refusals, "notShown", instances, texts::notShown(shown, instances));
    }
}

} // namespace

Verdict checkBatch(const BatchDraft& draft, const Limits& limits, const Prices& prices,
                   const QList<EarlierBatch>& earlier)
{
    Verdict verdict;
    const QMap<QString, SecurityAmounts> amounts = amountsBySecurity(draft);
    for (const SecurityAmounts& security : amounts) {
        verdict.grossBuy += security.bought;
        verdict.grossSell += security.sold;
    }
    checkEverythingIsShown(draft, verdict);
    checkRows(draft, limits, verdict);
    checkSecurities(amounts, limits, verdict);
    checkGross(limits, verdict);
    checkPriceDistance(draft, limits, prices, verdict);
    // worst first
    warnOfSameFile(draft, earlier, verdict);
    warnOfSameRows(draft, earlier, verdict);
    warnOfBothSides(draft, verdict);
    warnOfMoney(draft, limits, verdict);
    checkUnpriced(draft, limits, verdict);

    const double gross = verdict.grossBuy + verdict.grossSell;
    if (limits.confirmAmount && gross > 0.0 && gross >= *limits.confirmAmount) {
        verdict.confirmationAmount = qRound64(gross);
    }
    return verdict;
}

bool isConfirmedBy(const Verdict& verdict, const QString& typed)
{
    QString digits;
    for (const QChar character : typed) {
        if (!character.isSpace() && character != QLatin1Char(',') && character != QChar(0xff0c)) {
            digits.append(character);
        }
    }
    bool isNumber = false;
    const double amount = digits.toDouble(&isNumber);
    const double asked = static_cast<double>(verdict.confirmationAmount);
    return verdict.confirmationAmount == 0 || (isNumber && std::fabs(amount - asked) < 1.0);
}

} // namespace ledger
