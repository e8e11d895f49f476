#include "ledger/BatchCreation.h"

#include "ledger/LedgerTexts.h"

namespace ledger {

namespace {

/// What stands against creating; empty when nothing does.
QString objection(const Verdict& verdict, const Consent& consent)
{
    if (verdict.refuses()) {
        return texts::refused(joined(verdict.refusals));
    }
    if (!verdict.warnings.isEmpty() && !consent.toWarnings) {
        return texts::warningsOpen(joined(verdict.warnings));
    }
    if (!isConfirmedBy(verdict, consent.typedAmount)) {
        return texts::amountNotTyped(Decimal(verdict.confirmationAmount).shown(0));
    }
    return QString();
}

} // namespace

Outcome<Attempt> beginAttempt(const Ledger& ledger, const DraftJournal& journal, BatchDraft& draft)
{
    const Outcome<DraftJournal::Entry> begun = journal.begin(draft, ledger.today());
    if (!begun.ok()) {
        return {{}, begun.error};
    }
    draft.id = begun.value.id;
    Attempt attempt{begun.value, std::nullopt};
    if (begun.value.isRepeated) {
        const Outcome<std::optional<Batch>> made = ledger.batchOfDraft(draft.id, draft.account);
        attempt.made = made.value;
        return {attempt, made.error};
    }
    return {attempt, QString()};
}

Outcome<Review> reviewBatch(const Ledger& ledger, const BatchDraft& draft, const QList<LimitScope>& limits,
                            const Prices& prices, const Settled& settled)
{
    Outcome<Standing> standing = ledger.standingOf(draft, settled.replaces);
    if (!standing.ok()) {
        return {{}, standing.error};
    }
    for (Duplicate& duplicate : standing.value.duplicates) {
        duplicate.isSameFile = duplicate.isSameFile && !settled.leftOut.contains(duplicate.batch);
    }
    Review review = reviewAgainst(standing.value, draft, limits, prices);
    review.settled = settled;
    return {review, QString()};
}

Review reviewAgainst(const Standing& standing, const BatchDraft& draft, const QList<LimitScope>& limits,
                     const Prices& prices)
{
    Review review{draft, {}, limitsFor(limits, draft.account, draft.strategy), standing, {}};
    valueLegs(review.draft, prices);
    review.verdict = checkBatch(review.draft, review.limits, prices, review.standing);
    return review;
}

Outcome<Batch> createReviewed(Ledger& ledger, Review& review, const Consent& consent)
{
    const QString error = objection(review.verdict, consent);
    if (!error.isEmpty()) {
        return {{}, error};
    }
    CreationTerms terms{review.limits, review.verdict, QSet<qint64>(), review.settled.replaces};
    for (const Duplicate& duplicate : qAsConst(review.standing.duplicates)) {
        terms.knownDuplicates->insert(duplicate.batch);
    }
    QList<Finding> refusals;
    const Outcome<Batch> created = ledger.createBatch(review.draft, terms, &refusals);
    review.verdict.refusals += refusals;
    return created;
}

} // namespace ledger
