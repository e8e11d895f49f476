#pragma once

#include "ledger/Ledger.h"

/// From a confirmed dialog to instances, in the window and headless alike.
namespace ledger {

/// What whoever confirms says to the guard's verdict.
struct Consent {
    bool toWarnings = false;
    QString typedAmount; ///< of Verdict::confirmationAmount
};

struct Review {
    BatchDraft draft; ///< with its amounts
    Verdict verdict;
};

/// Values the draft and lets the guard look at it.
///
///     Outcome<Review> review = reviewBatch(*ledger, makeDraft(content), limits, hostPrices(draft));
///     // show review.value.verdict, ask for consent
///     Outcome<Batch> batch = createReviewed(*ledger, review.value, consent);
Outcome<Review> reviewBatch(const Ledger& ledger, const BatchDraft& draft, const QList<LimitScope>& limits,
                            const Prices& prices);

/// Creates the batch where the verdict and the consent allow it; else the error says what stands against it.
Outcome<Batch> createReviewed(Ledger& ledger, const Review& review, const Consent& consent);

} // namespace ledger
