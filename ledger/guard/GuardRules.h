#pragma once

#include "ledger/guard/Guard.h"
#include "table/GuardRules.h"

#include <functional>

/// The rules of checkBatch(), and what they share. For the guard's own files.
namespace ledger::guard {

namespace rule = table::rule;

/// Money per security on either side.
struct SecurityAmounts {
    Decimal bought;
    Decimal sold;
};
using AmountsBySecurity = QMap<QString, SecurityAmounts>;

/// What nobody can override: ceilings broken, and rows that no ceiling can be held against.
void refuse(const BatchDraft& draft, const Limits& limits, const Prices& prices,
            const AmountsBySecurity& amounts, Verdict& verdict);
/// What may be meant that way; worst first.
void warn(const BatchDraft& draft, const Limits& limits, const Standing& standing, Verdict& verdict);

/// Whether a value is above a ceiling. What is no number is above every one.
bool exceeds(const Decimal& value, const std::optional<Decimal>& ceiling);

/// Add a finding where any row, or anything of a name, is concerned. The sentence's arguments are the count,
/// the further ones, and of names some of them.
void report(QList<Finding>& findings, const QString& rule, const QList<int>& rows,
            const QStringList& further = {});
void reportNames(QList<Finding>& findings, const QString& rule, const QStringList& names,
                 const QStringList& further = {});

/// 1-based numbers of the instances that a test holds for: of the instance, or of any of its legs.
QList<int> rowsWhere(const BatchDraft& draft, const std::function<bool(const InstanceDraft&)>& holds);
QList<int> rowsWithLeg(const BatchDraft& draft, const std::function<bool(const Leg&)>& holds);

/// A leg whose quantity has no value in money, since no price is known.
bool isUnpriced(const Leg& leg);

/// A number as a sentence shows it.
QString figure(const Decimal& value);

/// Some names of securities or batches, as one line lists them.
QString someOf(const QStringList& names);

} // namespace ledger::guard
