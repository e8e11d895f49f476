#include "desk/window/BatchCreator.h"

#include "desk/batch/HostPrices.h"
#include "desk/window/VerdictDialog.h"
#include "host/ZelMessageBox.h"

std::optional<ledger::Batch> BatchCreator::create(const HandOver& batch) const
{
    if (!mBooks.ledger) {
        tell(mBooks.ledgerError);
        return std::nullopt;
    }
    const ledger::BatchDraft draft = batch::makeDraft(batch.content);
    Outcome<ledger::Review> review =
        ledger::reviewBatch(*mBooks.ledger, draft, mBooks.limits, batch::hostPrices(draft));
    if (!review.ok()) {
        tell(review.error);
        return std::nullopt;
    }
    ledger::Consent consent;
    if (VerdictDialog::isNeeded(review.value.verdict) && !askUser(review.value, consent)) {
        return std::nullopt;
    }
    const Outcome<ledger::Batch> created = ledger::createReviewed(*mBooks.ledger, review.value, consent);
    if (!created.ok()) {
        tell(created.error);
        return std::nullopt;
    }
    return created.value;
}

bool BatchCreator::askUser(const ledger::Review& review, ledger::Consent& consent) const
{
    VerdictDialog dialog(review, mParent);
    const bool agreed = dialog.exec() == QDialog::Accepted;
    consent = dialog.consent();
    return agreed;
}

void BatchCreator::tell(const QString& error) const
{
    ZelMessageBox box(QStringLiteral("未创建"), error, ZelMessageBox::Error, mParent);
    box.showModally();
}
