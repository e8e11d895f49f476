#pragma once

#include "ledger/guard/Guard.h"

#include <functional>

/// The rules of checkBatch(), and what they share. For the guard's own files.
namespace ledger::guard {

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

/// Adds a finding where anything is concerned.
void report(QList<Finding>& findings, const char* rule, int count, const QString& text,
            const QList<int>& rows = {});

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
