#pragma once

#include "ledger/draft/BatchDraft.h"
#include "ledger/draft/Prices.h"
#include "ledger/guard/Limits.h"
#include "ledger/guard/Standing.h"

#include <QList>
#include <QString>
#include <QStringList>

/// The last look at a batch before its instances exist.
namespace ledger {

/// One line of a verdict: a fault of the batch (table/GuardRules.h), and how many it is about.
struct Finding {
    QString rule;          ///< such as "grossBuy" or "sameFile"
    int count = 0;         ///< rows, securities or batches concerned
    QStringList arguments; ///< of the rule's sentence
    QList<int> rows;       ///< 1-based table rows concerned, where the rule is about rows

    QString text() const; ///< for people
};

/// Some findings in one line.
QString joined(const QList<Finding>& findings);

struct Verdict {
    QList<Finding> refusals;       ///< nobody can override them
    QList<Finding> warnings;       ///< one a rule, worst first
    Decimal grossBuy;              ///< CNY
    Decimal grossSell;             ///< CNY
    qint64 confirmationAmount = 0; ///< whole CNY to be typed once more; 0: not asked for

    bool refuses() const { return !refusals.isEmpty(); }
};

/// A pure function of its arguments. `draft` has its amounts (valueLegs()); `standing` is
/// Ledger::standingOf() the draft.
Verdict checkBatch(const BatchDraft& draft, const Limits& limits, const Prices& prices,
                   const Standing& standing);

/// The part of it that the ledger decides once more inside the transaction that creates: halts and ceilings
/// of the day.
QList<Finding> refusalsOfDay(const BatchDraft& draft, const Limits& limits, const Standing& standing);

/// Whether that is the amount the verdict asks for: group separators, blanks and a fraction are let pass.
bool isConfirmedBy(const Verdict& verdict, const QString& typed);

} // namespace ledger
