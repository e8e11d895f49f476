#pragma once

#include "desk/verdict/Duplicates.h"
#include "desk/verdict/RuleActions.h"
#include "desk/verdict/Summary.h"
#include "ledger/BatchCreation.h"
#include "table/Fault.h"

#include <QList>
#include <QString>
#include <QStringList>

/// Whether a confirmed batch may be created: what is known against it, one line a rule, and what is done
/// about each.
namespace verdict {

/// All that was found by one rule.
struct Line {
    QString rule; ///< its first two words, as --accept and rules.csv name it; of the ledger's one word
    Action action = Action::Tell;
    QString text;         ///< a Chinese sentence
    int count = 0;        ///< rows, cells, securities or batches concerned
    table::Faults faults; ///< each with its place where it has one
};

struct Judgement {
    ledger::Review review; ///< the draft with its amounts, and the ledger's own verdict
    Summary summary;
    DuplicateChoice choice;
    QList<int> leftOut; ///< by the choice: rows of the table, from 1
    QList<Line> lines;  ///< missing rows first, then refusals, questions, what is told; worst first

    /// By the choice nothing is left to create.
    bool isEmpty() const { return !leftOut.isEmpty() && review.draft.instances.isEmpty(); }
    bool refuses() const { return !linesWith(Action::Refuse).isEmpty(); }
    QList<Line> linesWith(Action action) const;
    /// Rules that are asked for and not among those accepted.
    QStringList openRules(const QStringList& accepted) const;
};

/// Faults in one line a rule, in the order in which their rules were found first.
QList<Line> linesOf(const table::Faults& faults, const RuleActions& actions);
/// What the ledger's guard found; of its faults the row and the column are known.
QList<Line> linesOf(const ledger::Verdict& verdict, const RuleActions& actions);

/// In the order in which people read them.
QList<Line> inOrder(QList<Line> lines);

/// What whoever confirms says to a judgement.
struct Acceptance {
    QStringList rules;   ///< acknowledged, each by its name: there is no yes to all
    QString typedAmount; ///< of the ledger's Verdict::confirmationAmount
};

/// What stands against creating; empty where nothing does.
QString objection(const Judgement& judgement, const Acceptance& acceptance);

/// Creates the batch where nothing stands against it.
Outcome<ledger::Batch> createJudged(ledger::Ledger& ledger, Judgement& judgement,
                                    const Acceptance& acceptance);

} // namespace verdict
