#include "desk/window/BatchCreator.h"

#include "desk/verdict/Judge.h"
#include "desk/window/VerdictDialog.h"
#include "host/ZelMessageBox.h"
#include "ledger/BatchCreation.h"
#include "ledger/LedgerTexts.h"
#include "words/Words.h"

namespace {

/// Batches of the same account that hold some of it, or that the table was compared with.
QList<qint64> othersOf(const verdict::Judgement& judgement, std::optional<qint64> comparedWith)
{
    QList<qint64> others;
    for (const ledger::Duplicate& duplicate : judgement.review.standing.duplicates) {
        if (duplicate.account == judgement.review.draft.account) {
            others.append(duplicate.batch);
        }
    }
    if (comparedWith && !others.contains(*comparedWith)) {
        others.append(*comparedWith);
    }
    return others;
}

} // namespace

std::optional<BatchCreator::Created> BatchCreator::create(const HandOver& batch) const
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
    const std::optional<Created> created =
        attempt.value.made ? repeated(*attempt.value.made) : judgeAndCreate(batch, draft);
    if (created) {
        journal.end(attempt.value.entry);
    }
    return created;
}

/// An attempt of a program that ended before it could tell.
std::optional<BatchCreator::Created> BatchCreator::repeated(const ledger::Batch& made) const
{
    ZelMessageBox box(Words::tr("已创建"), ledger::texts::createdBefore(made.number, made.rowCount),
                      ZelMessageBox::Error, mParent);
    box.showModally();
    return Created{made, {}, std::nullopt};
}

std::optional<BatchCreator::Created> BatchCreator::judgeAndCreate(const HandOver& batch,
                                                                  const ledger::BatchDraft& draft) const
{
    Outcome<verdict::Judgement> judgement = judged(batch, draft, {});
    if (!judgement.ok()) {
        tell(judgement.error);
        return std::nullopt;
    }
    verdict::Acceptance acceptance;
    if (!askUser(batch, draft, judgement.value, acceptance)) {
        return std::nullopt;
    }
    const Outcome<ledger::Batch> created = verdict::createJudged(*mBooks.ledger, judgement.value, acceptance);
    if (!created.ok()) {
        tell(created.error);
        return std::nullopt;
    }
    return Created{created.value, judgement.value.leftOut, judgement.value.review.settled.replaces};
}

Outcome<verdict::Judgement> BatchCreator::judged(const HandOver& batch, const ledger::BatchDraft& draft,
                                                 const verdict::DuplicateChoice& choice) const
{
    return verdict::judge(*mBooks.ledger, draft, {batch.content, batch.table}, mBooks.desk, mData,
                          mBooks.clock ? mBooks.clock() : QDateTime::currentDateTimeUtc(), choice);
}

/// The judgement is that of the choice about duplicates which the user made last.
bool BatchCreator::askUser(const HandOver& batch, const ledger::BatchDraft& draft,
                           verdict::Judgement& judgement, verdict::Acceptance& acceptance) const
{
    mJudged(judgement);
    VerdictDialog dialog(judgement, othersOf(judgement, batch.comparedWith), mParent);
    QObject::connect(&dialog, &VerdictDialog::rowWanted, mParent, [this](int row) {
        if (mShowRow) {
            mShowRow(row);
        }
    });
    QObject::connect(&dialog, &VerdictDialog::choiceWanted, mParent,
                     [&](const verdict::DuplicateChoice& choice) {
                         const Outcome<verdict::Judgement> again = judged(batch, draft, choice);
                         if (again.ok()) {
                             judgement = again.value;
                             dialog.showJudgement(judgement);
                         } else {
                             dialog.refuseChoice(again.error);
                         }
                     });
    const bool agreed = dialog.exec() == QDialog::Accepted;
    acceptance = dialog.acceptance();
    return agreed;
}

void BatchCreator::tell(const QString& error) const
{
    ZelMessageBox box(Words::tr("未创建"), error, ZelMessageBox::Error, mParent);
    box.showModally();
}
