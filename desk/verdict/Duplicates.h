#pragma once

#include "ledger/BatchCreation.h"

#include <QSet>
#include <QString>

#include <functional>
#include <optional>

namespace verdict {

/// What is to become of orders that a batch before this one holds already.
struct DuplicateChoice {
    enum class Way {
        CreateAll,   ///< they are created once more, where that is acknowledged
        LeaveOut,    ///< what any batch of the account holds is not created again
        ChangedOnly, ///< of the table, what differs from that of one batch
        Replace,     ///< one batch is withdrawn, and this one created, in one transaction
    };

    Way way = Way::CreateAll;
    qint64 against = 0; ///< the batch of ChangedOnly and Replace
};

/// "leave-out", "changed-only", "replace": as --duplicates names them and as printed; empty for all else.
QString nameOf(DuplicateChoice::Way way);
/// Nothing where there is no such way.
std::optional<DuplicateChoice::Way> wayNamed(const QString& name);

/// What a row of the table holds under a column in its file; empty where the import filled it in.
using TypedCell = std::function<QString(int row, const QString& column)>;

/// What a choice makes of a draft.
struct Settlement {
    QSet<int> leftOut; ///< rows of it, from 1
    ledger::Settled terms;
};

/// The draft's legs have their amounts. An error where there is no such batch, or it is another account's.
Outcome<Settlement> settle(const ledger::Ledger& ledger, const ledger::BatchDraft& draft,
                           const DuplicateChoice& choice, const TypedCell& typed);

/// Rows of the draft, from 1, that the ledger holds already: each order as often as it does. Rows that are
/// bound by one 配对编号 are among them together or not at all.
QSet<int> rowsHeld(const ledger::BatchDraft& draft, const QList<ledger::Duplicate>& duplicates);

/// The draft without these rows; the amounts that are expected are summed anew.
ledger::BatchDraft without(const ledger::BatchDraft& draft, const QSet<int>& rows);

} // namespace verdict
