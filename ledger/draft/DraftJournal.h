#pragma once

#include "ledger/draft/BatchDraft.h"
#include "table/Outcome.h"

#include <QDate>

namespace ledger {

/// Keeps the ids of drafts on disk until their outcome is known: a program that is killed between the commit
/// and its answer, and started again with the same file, account and strategy on the same day, tries the same
/// draft again and not another one.
///
///     DraftJournal journal(home);
///     Outcome<DraftJournal::Entry> begun = journal.begin(draft, exchangeDay(now));
///     draft.id = begun.value.id;                  // the one of the attempt before, where there was one
///     … createReviewed(…) …
///     journal.end(begun.value);                   // the outcome was told
class DraftJournal {
public:
    struct Entry {
        QUuid id;
        QString file;            ///< of the journal
        bool isRepeated = false; ///< an attempt before began with it and never told its outcome
    };

    explicit DraftJournal(const QString& home);

    /// Written through to the disk before it returns.
    Outcome<Entry> begin(const BatchDraft& draft, const QDate& day) const;
    /// The batch exists, and whoever asked for it was told. An attempt that failed needs none: the next one
    /// tries the same id.
    void end(const Entry& entry) const;

private:
    const QString mFolder;
};

} // namespace ledger
