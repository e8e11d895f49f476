#pragma once

#include "ledger/draft/BatchDraft.h"
#include "ledger/draft/Prices.h"
#include "ledger/guard/Limits.h"

#include <QList>
#include <QSet>
#include <QString>

/// The last look at a batch before its instances exist.
namespace ledger {

/// A batch created earlier today on the same account, of which something still stands.
struct EarlierBatch {
    qint64 number = 0;
    QString fileSha256;
    QSet<QString> rowKeys; ///< of each row that was not taken back before anything could have traded
};

/// One line of a verdict.
struct Finding {
    QString rule;    ///< stable identifier, such as "grossBuy" or "sameFile"
    int count = 0;   ///< rows, securities or batches concerned
    QString text;    ///< a Chinese sentence with that count
    QList<int> rows; ///< 1-based table rows concerned, where the rule is about rows
};

struct Verdict {
    QList<Finding> refusals;       ///< nobody can override them
    QList<Finding> warnings;       ///< one a rule, worst first
    Decimal grossBuy;              ///< CNY
    Decimal grossSell;             ///< CNY
    qint64 confirmationAmount = 0; ///< whole CNY to be typed once more; 0: not asked for

    bool refuses() const { return !refusals.isEmpty(); }
};

/// A pure function of its arguments. `draft` has its amounts (valueLegs()); `earlier` is
/// Ledger::createdToday() of the draft's account.
Verdict checkBatch(const BatchDraft& draft, const Limits& limits, const Prices& prices,
                   const QList<EarlierBatch>& earlier);

/// Whether that is the amount the verdict asks for: group separators, blanks and a fraction are let pass.
bool isConfirmedBy(const Verdict& verdict, const QString& typed);

} // namespace ledger
