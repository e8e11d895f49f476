#include "ledger/guard/GuardRules.h"
#include "table/FaultCatalogue.h"
#include "words/Language.h"
#include "words/Words.h"

#include <algorithm>

namespace ledger {

namespace {

/// Names of securities or batches that one line lists.
constexpr int MostNames = 5;

guard::AmountsBySecurity amountsBySecurity(const BatchDraft& draft)
{
    guard::AmountsBySecurity amounts;
    for (const InstanceDraft& instance : draft.instances) {
        for (const Leg& leg : instance.legs) {
            amounts[leg.symbol].bought += leg.buys() ? leg.amount : Decimal();
            amounts[leg.symbol].sold += leg.sells() ? leg.amount : Decimal();
        }
    }
    return amounts;
}

} // namespace

namespace guard {

bool exceeds(const Decimal& value, const std::optional<Decimal>& ceiling)
{
    return ceiling && !(value <= *ceiling);
}

void report(QList<Finding>& findings, const QString& rule, const QList<int>& rows, const QStringList& further)
{
    if (!rows.isEmpty()) {
        findings.append({rule, rows.size(), QStringList{QString::number(rows.size())} + further, rows});
    }
}

void reportNames(QList<Finding>& findings, const QString& rule, const QStringList& names,
                 const QStringList& further)
{
    if (!names.isEmpty()) {
        findings.append({rule,
                         names.size(),
                         QStringList{QString::number(names.size())} + further + QStringList{someOf(names)},
                         {}});
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
    return leg.quantity > 0 && !(leg.amount > 0);
}

QString figure(const Decimal& value)
{
    return value.shown(value.isWhole() ? 0 : 2);
}

QString someOf(const QStringList& names)
{
    const QString listed = names.mid(0, MostNames).join(Words::tr("、"));
    return names.size() > MostNames ? Words::tr("%1 等").arg(listed) : listed;
}

} // namespace guard

QString Finding::text() const
{
    return words::sentence(table::fault(rule, arguments));
}

QString joined(const QList<Finding>& findings)
{
    QStringList texts;
    for (const Finding& finding : findings) {
        texts.append(finding.text());
    }
    return texts.join(Words::tr("；"));
}

Verdict checkBatch(const BatchDraft& draft, const Limits& limits, const Prices& prices,
                   const Standing& standing)
{
    Verdict verdict;
    const guard::AmountsBySecurity amounts = amountsBySecurity(draft);
    const Gross gross = grossOf(draft.instances);
    verdict.grossBuy = gross.buy;
    verdict.grossSell = gross.sell;
    guard::refuse(draft, limits, prices, amounts, verdict);
    verdict.refusals += refusalsOfDay(draft, limits, standing);
    guard::warn(draft, limits, standing, verdict);

    const Decimal sum = gross.buy + gross.sell;
    if (limits.confirmAmount && sum > 0 && sum >= *limits.confirmAmount) {
        verdict.confirmationAmount = qMax(qint64(1), qRound64(sum.toDouble())); // 0 would ask for nothing
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
    const Decimal difference = Decimal::fromText(digits) - Decimal(verdict.confirmationAmount);
    return verdict.confirmationAmount == 0 || difference.abs() < 1;
}

} // namespace ledger
