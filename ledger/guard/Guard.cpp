#include "ledger/guard/GuardRules.h"

#include <algorithm>
#include <cmath>

namespace ledger {

namespace {

/// Names of securities or batches that one line lists.
constexpr int MostNames = 5;

guard::AmountsBySecurity amountsBySecurity(const BatchDraft& draft)
{
    guard::AmountsBySecurity amounts;
    for (const InstanceDraft& instance : draft.instances) {
        for (const Leg& leg : instance.legs) {
            amounts[leg.symbol].bought += leg.buys() ? leg.amount : 0.0;
            amounts[leg.symbol].sold += leg.sells() ? leg.amount : 0.0;
        }
    }
    return amounts;
}

double toleranceOf(double ceiling)
{
    constexpr double Least = 1e-6;
    constexpr double Share = 1e-12; // of a sum over a thousand rows, with some digits to spare
    return qMax(Least, std::fabs(ceiling) * Share);
}

} // namespace

namespace guard {

bool exceeds(double value, const std::optional<double>& ceiling)
{
    return ceiling && !(value <= *ceiling + toleranceOf(*ceiling));
}

bool reaches(double value, double threshold)
{
    return value >= threshold - toleranceOf(threshold);
}

void report(QList<Finding>& findings, const char* rule, int count, const QString& text,
            const QList<int>& rows)
{
    if (count > 0) {
        findings.append({QString::fromLatin1(rule), count, text, rows});
    }
}

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

QList<int> rowsWithLeg(const BatchDraft& draft, const std::function<bool(const Leg&)>& holds)
{
    return rowsWhere(draft, [&](const InstanceDraft& instance) {
        return std::any_of(instance.legs.cbegin(), instance.legs.cend(), holds);
    });
}

bool isUnpriced(const Leg& leg)
{
    return leg.quantity > 0.0 && !(leg.amount > 0.0);
}

QString someOf(const QStringList& names)
{
    const QString listed = names.mid(0, MostNames).join(QStringLiteral("、"));
    return names.size() > MostNames ? listed + QStringLiteral(" 等") : listed;
}

} // namespace guard

Verdict checkBatch(const BatchDraft& draft, const Limits& limits, const Prices& prices,
                   const QList<EarlierBatch>& earlier)
{
    Verdict verdict;
    const guard::AmountsBySecurity amounts = amountsBySecurity(draft);
    for (const guard::SecurityAmounts& security : amounts) {
        verdict.grossBuy += security.bought;
        verdict.grossSell += security.sold;
    }
    guard::refuse(draft, limits, prices, amounts, verdict);
    guard::warn(draft, limits, earlier, verdict);

    const double gross = verdict.grossBuy + verdict.grossSell;
    if (limits.confirmAmount && gross > 0.0 && guard::reaches(gross, *limits.confirmAmount)) {
        verdict.confirmationAmount = qMax(qint64(1), qRound64(gross)); // 0 would ask for nothing
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
