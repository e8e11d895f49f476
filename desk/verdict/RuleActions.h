#pragma once

#include "table/Fault.h"
#include "table/Outcome.h"

#include <QHash>
#include <QString>

namespace verdict {

/// What a desk does about what was found. In this order: a later one is stricter.
enum class Action {
    Tell,   ///< shown
    Ask,    ///< acknowledged rule by rule
    Refuse, ///< nobody can override it
};

/// "tell", "ask", "refuse": as in rules.csv and as printed.
QString nameOf(Action action);

/// What a desk does about each rule. The product sets a floor; rules.csv of the reference data folder (rule,
/// action) may be stricter, never looser.
///
///     RuleActions actions = RuleActions::read(folder).value;
///     actions.of(fault) // Ask
class RuleActions {
public:
    RuleActions() = default; ///< the product's floors

    /// No such file: the floors. The error is "FILE:LINE: what is wrong".
    static Outcome<RuleActions> read(const QString& folder);

    /// Of a rule by its first two words, or of the ledger's by its one.
    Action of(const table::Fault& fault) const;
    Action of(const QString& rule, Action floor) const;

    /// The product's own.
    static Action floorOf(const table::Fault& fault);

private:
    QHash<QString, Action> mStricter;
};

/// Rules whose floor is not the one of their severity. For RuleActions alone.
const QHash<QString, Action>& floors();

} // namespace verdict
