#pragma once

#include "ledger/records/Records.h"

#include <QList>
#include <QMap>
#include <QSet>

namespace ledger {

/// A batch that holds what a draft would create again, as far as it was not taken back.
struct Duplicate {
    qint64 batch = 0;
    QString account;
    QDateTime createdAt;
    QString createdBy;
    bool isSameFile = false;
    QSet<int> rows;           ///< of the draft, 1-based: those that are the same orders
    QMap<int, int> held = {}; ///< of each of those rows, how many such orders the batch holds
};

/// What the ledger holds against a draft, at one moment: Ledger::standingOf(), and once more inside the
/// transaction that creates.
struct Standing {
    QList<Halt> halts; ///< those that hold for its account
    AccountDay day;    ///< without the draft
    /// Of today, of the night session before it, and of a clock that was ahead; newest first, the latest
    /// ones.
    QList<Duplicate> duplicates;
    /// The same file, lately, but of another day: a clock that is a day ahead looks like this.
    QList<Duplicate> lately;
};

} // namespace ledger
