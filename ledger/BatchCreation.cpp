#include "ledger/BatchCreation.h"

#include "ledger/LedgerTexts.h"

namespace ledger {

namespace {

QString joined(const QList<Finding>& findings)
{
    QStringList texts;
    for (const Finding& finding : findings) {
        texts.append(finding.text);
    }
    return texts.join(QStringLiteral("；"));
}

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

Outcome<Review> reviewBatch(const Ledger& ledger, const BatchDraft& draft, const QList<LimitScope>& limits,
                            const Prices& prices)
{
    const Outcome<QList<EarlierBatch>> earlier = ledger.createdToday(draft.account);
    if (!earlier.ok()) {
        return {{}, earlier.error};
    }
    Review review{draft, {}};
    valueLegs(review.draft, prices);
    review.verdict =
        checkBatch(review.draft, limitsFor(limits, draft.account, draft.strategy), prices, earlier.value);
    return {review, QString()};
}

Outcome<Batch> createReviewed(Ledger& ledger, const Review& review, const Consent& consent)
{
    const QString error = objection(review.verdict, consent);
    return error.isEmpty() ? ledger.createBatch(review.draft) : Outcome<Batch>{{}, error};
}

} // namespace ledger
