#include "desk/window/BatchCreator.h"

#include "desk/verdict/Judge.h"
#include "desk/window/VerdictDialog.h"
#include "host/ZelMessageBox.h"

std::optional<ledger::Batch> BatchCreator::create(const HandOver& batch) const
{
    if (!mBooks.ledger) {
        tell(mBooks.ledgerError);
        return std::nullopt;
    }
    const ledger::BatchDraft draft = batch::makeDraft(batch.content);
    Outcome<verdict::Judgement> judgement =
        verdict::judge(*mBooks.ledger, draft, {batch.content, batch.table}, mBooks.desk, mData,
                       mBooks.clock ? mBooks.clock() : QDateTime::currentDateTimeUtc());
    if (!judgement.ok()) {
        tell(judgement.error);
        return std::nullopt;
    }
    verdict::Acceptance acceptance;
    if (!askUser(judgement.value, acceptance)) {
        return std::nullopt;
    }
    const Outcome<ledger::Batch> created = verdict::createJudged(*mBooks.ledger, judgement.value, acceptance);
    if (!created.ok()) {
        tell(created.error);
        return std::nullopt;
    }
    return created.value;
}

bool BatchCreator::askUser(const verdict::Judgement& judgement, verdict::Acceptance& acceptance) const
{
    VerdictDialog dialog(judgement, mParent);
    QObject::connect(&dialog, &VerdictDialog::rowWanted, mParent, [this](int row) {
        if (mShowRow) {
            mShowRow(row);
        }
    });
    const bool agreed = dialog.exec() == QDialog::Accepted;
    acceptance = dialog.acceptance();
    return agreed;
}

void BatchCreator::tell(const QString& error) const
{
    ZelMessageBox box(QStringLiteral("未创建"), error, ZelMessageBox::Error, mParent);
    box.showModally();
}
