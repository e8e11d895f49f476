#pragma once

#include "desk/batch/DraftBuilder.h"
#include "desk/verdict/Desk.h"
#include "desk/verdict/Judgement.h"
#include "table/Table.h"

#include <QDateTime>

class ReferenceData;

namespace verdict {

/// A batch that was confirmed, and the file that it came of.
struct Confirmed {
    batch::DialogContent content;
    table::Table table; ///< inspected, as it was imported
};

/// The one way to a judgement, of the window and of the runner: what the import, the file check and the guard
/// know against the batch, as one list. The host's quotes are those of the import. `now` as the clock says.
///
///     Outcome<Judgement> judgement = judge(*ledger, makeDraft(content), {content, file.table}, desk,
///     host.referenceData(), now);
///     // show judgement.value.summary and .lines, ask rule by rule
///     createJudged(*ledger, judgement.value, acceptance);
/// `choice` decides what of the draft is created, and in whose place. Rows are those of the table, whatever
/// of it is left out. An error where the choice cannot be.
Outcome<Judgement> judge(const ledger::Ledger& ledger, const ledger::BatchDraft& draft,
                         const Confirmed& confirmed, const Desk& desk, const ReferenceData& data,
                         const QDateTime& now, const DuplicateChoice& choice = {});

/// The same without a ledger: nothing of the day, of halts and of what was created before.
Judgement preview(const ledger::BatchDraft& draft, const Confirmed& confirmed, const Desk& desk,
                  const ReferenceData& data, const QDateTime& now);

} // namespace verdict
