#include "desk/window/BatchCreator.h"

#include "desk/verdict/Judge.h"
#include "desk/window/VerdictDialog.h"
#include "host/ZelMessageBox.h"
#include "ledger/BatchCreation.h"
#include "ledger/LedgerTexts.h"

std::optional<ledger::Batch> BatchCreator::create(const HandOver& batch) const
{
    if (!mBooks.ledger) {
        tell(mBooks.ledgerError);
        return std::nullopt;
    }
    ledger::BatchDraft draft = batch::makeDraft(batch.content);
    const ledger::DraftJournal journal(mBooks.home);
    const Outcome<ledger::Attempt> attempt = ledger::beginAttempt(*mBooks.ledger, journal, draft);
    if (!attempt.ok()) {
        tell(attempt.error);
        return std::nullopt;
    }
    const std::optional<ledger::Batch> created =
        attempt.value.made ? repeated(*attempt.value.made) : judgeAndCreate(batch, draft);
    if (created) {
        journal.end(attempt.value.entry);
    }
    return created;
}

/// An attempt of a program that ended before it could tell.
std::optional<ledger::Batch> BatchCreator::repeated(const ledger::Batch& made) const
{
    ZelMessageBox box(QStringLiteral("已创建"), ledger::texts::createdBefore(made.number, made.rowCount),
                      ZelMessageBox::Error, mParent);
    box.showModally();
    return made;
}

std::optional<ledger::Batch> BatchCreator::judgeAndCreate(const HandOver& batch,
                                                          const ledger::BatchDraft& draft) const
{
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
