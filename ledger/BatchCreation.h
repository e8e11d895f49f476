#pragma once

#include "ledger/draft/DraftJournal.h"
#include "ledger/Ledger.h"

/// From a confirmed dialog to instances, in the window and headless alike.
namespace ledger {

/// What whoever confirms says to the guard's verdict.
struct Consent {
    bool toWarnings = false;
    QString typedAmount; ///< of Verdict::confirmationAmount
};

/// What was decided about batches that hold the same, before the guard is asked.
struct Settled {
    std::optional<qint64> replaces = {}; ///< withdrawn in the transaction that creates: as if it were gone
    QSet<qint64> leftOut = {}; ///< whose orders were left out: that the file is the same is answered
};

struct Review {
    BatchDraft draft; ///< with its amounts
    Settled settled;
    Limits limits; ///< those in force for it
    Standing standing;
    Verdict verdict;
};

/// An attempt to create a draft, known on disk from before its first step on.
struct Attempt {
    DraftJournal::Entry entry;
    std::optional<Batch> made; ///< by an attempt before, of which nobody was told
};

/// Gives the draft the id of an attempt before, where there was one that never told its outcome.
///
///     const Outcome<Attempt> attempt = beginAttempt(*ledger, DraftJournal(home), draft);
///     if (attempt.value.made) { … it exists already … }
///     … reviewBatch(), createReviewed(), tell the user …
///     DraftJournal(home).end(attempt.value.entry);
Outcome<Attempt> beginAttempt(const Ledger& ledger, const DraftJournal& journal, BatchDraft& draft);

/// Values the draft and lets the guard look at it.
///
///     Outcome<Review> review = reviewBatch(*ledger, makeDraft(content), limits, hostPrices(draft));
///     // show review.value.verdict, ask for consent
///     Outcome<Batch> batch = createReviewed(*ledger, review.value, consent);
Outcome<Review> reviewBatch(const Ledger& ledger, const BatchDraft& draft, const QList<LimitScope>& limits,
                            const Prices& prices, const Settled& settled = {});

/// The same against what a ledger was found to hold.
Review reviewAgainst(const Standing& standing, const BatchDraft& draft, const QList<LimitScope>& limits,
                     const Prices& prices);

/// Creates the batch where the verdict and the consent allow it; else the error says what stands against it.
/// What the ledger alone refuses, since another program was faster, is added to the verdict's refusals.
Outcome<Batch> createReviewed(Ledger& ledger, Review& review, const Consent& consent);

} // namespace ledger
