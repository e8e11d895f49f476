// Creating a batch: one transaction with everything that decides it.

#include "ledger/operations/Core.h"
#include "ledger/operations/Digest.h"
#include "ledger/store/BatchQueries.h"
#include "ledger/store/ControlQueries.h"
#include "ledger/store/InstanceQueries.h"
#include "table/GuardRules.h"

#include <algorithm>

namespace ledger {

namespace {

Batch batchOf(const BatchDraft& draft, const QDateTime& now)
{
    Batch batch;
    batch.draftId = draft.id;
    batch.fileName = draft.fileName;
    batch.fileSha256 = draft.fileSha256;
    batch.fileEdits = draft.fileEdits;
    batch.account = draft.account;
    batch.strategy = draft.strategy;
    batch.rowCount = draft.instances.size();
    batch.expectedBuy = draft.expectedBuy;
    batch.expectedSell = draft.expectedSell;
    batch.createdAt = now;
    batch.createdBy = draft.createdBy;
    return batch;
}

Standing standingOf(Statements& statements, const BatchDraft& draft, const QDateTime& now,
                    const QString& forUpdate)
{
    Standing standing;
    standing.halts = selectHalts(statements, draft.account);
    standing.day = selectDay(statements, draft.account, exchangeDay(now), forUpdate);
    return standing;
}

/// Batches that hold the same and that whoever confirms was not told of: another desk was faster.
QList<Finding> unknownDuplicates(const QList<Duplicate>& duplicates, const QSet<qint64>& known)
{
    QList<Finding> findings;
    for (const Duplicate& duplicate : duplicates) {
        if (!known.contains(duplicate.batch)) {
            findings.append({table::rule::CreatedMeanwhile,
                             1,
                             {duplicate.createdBy, QString::number(duplicate.batch), duplicate.account},
                             {}});
        }
    }
    return findings;
}

QList<Finding> refusalsOf(Change& change, const BatchDraft& draft, const CreationTerms& terms,
                          AccountDay& day)
{
    const Standing standing = standingOf(change.statements, draft, change.at, change.store.forUpdate());
    day = standing.day;
    QList<Finding> refusals = refusalsOfDay(draft, terms.limits, standing);
    if (terms.knownDuplicates) {
        refusals += unknownDuplicates(selectDuplicates(change.statements, change.store, draft, change.at),
                                      *terms.knownDuplicates);
    }
    return refusals;
}

void addToDay(Change& change, AccountDay day, const BatchDraft& draft)
{
    if (change.store.keepsDays()) {
        return;
    }
    const Gross gross = grossOf(draft.instances);
    day.buy += gross.buy;
    day.sell += gross.sell;
    day.batches += 1;
    day.instances += draft.instances.size();
    saveDay(change.statements, day);
}

bool needsApproval(const BatchDraft& draft, const Limits& limits)
{
    const Gross gross = grossOf(draft.instances);
    return limits.approvalAmount && !(gross.buy + gross.sell < *limits.approvalAmount);
}

void askForApproval(Change& change, const Batch& batch, const CreationTerms& terms)
{
    Approval approval;
    approval.batch = batch.number;
    approval.verdict = textOf(terms.verdict);
    approval.digest = digestOf(change.statements, batch, terms.limits, approval.verdict);
    approval.askedBy = change.by;
    approval.askedAt = change.at;
    insertApproval(change.statements, batch, approval);
}

/// The file that the digest names is not the whole truth of an edited batch.
void noteEdits(Change& change, const Batch& batch)
{
    if (!batch.fileEdits.isEmpty()) {
        change.note(QStringLiteral("edit"), QString::number(batch.number),
                    {{QStringLiteral("file"), batch.fileName},
                     {QStringLiteral("sha256"), batch.fileSha256},
                     {QStringLiteral("edits"), batch.fileEdits}});
    }
}

void insert(Change& change, Batch& batch, const BatchDraft& draft, const CreationTerms& terms)
{
    const bool waits = needsApproval(draft, terms.limits);
    batch.number = takeNumber(change.statements, QStringLiteral("last_batch"));
    batch.state = waits ? BatchState::Waiting : BatchState::Created;
    insertBatch(change.statements, batch);
    insertInstances(change.statements, change.store, batch, draft.instances,
                    waits ? InstanceState::Created
                          : operations::startedState(change.statements, batch.account));
    insertTable(change.statements, change.store, batch, draft.table);
    if (waits) {
        askForApproval(change, batch, terms);
    }
    noteEdits(change, batch);
    const Gross gross = grossOf(draft.instances);
    QJsonObject detail{{QStringLiteral("draft"), batch.draftId.toString(QUuid::WithoutBraces)},
                       {QStringLiteral("file"), batch.fileName},
                       {QStringLiteral("sha256"), batch.fileSha256},
                       {QStringLiteral("account"), batch.account},
                       {QStringLiteral("strategy"), batch.strategy},
                       {QStringLiteral("rows"), batch.rowCount},
                       {QStringLiteral("buy"), gross.buy.text()},
                       {QStringLiteral("sell"), gross.sell.text()},
                       {QStringLiteral("state"), nameOf(batch.state)},
                       {QStringLiteral("limits"), textOf(terms.limits)}};
    if (terms.replaces) {
        detail[QStringLiteral("replaces")] = *terms.replaces;
    }
    change.note(QStringLiteral("create"), QString::number(batch.number), detail);
}

/// As if a batch were withdrawn, of which nothing was sent.
void forget(const operations::Replaceable& replaced, Standing& standing)
{
    const auto isReplaced = [&](const Duplicate& duplicate) {
        return duplicate.batch == replaced.batch.number;
    };
    for (QList<Duplicate>* list : {&standing.duplicates, &standing.lately}) {
        list->erase(std::remove_if(list->begin(), list->end(), isReplaced), list->end());
    }
    if (exchangeDay(replaced.batch.createdAt) == standing.day.day) {
        operations::release(standing.day, replaced.withdrawn, true);
    }
}

/// What no ledger takes, whatever else it decides.
QString faultOf(const BatchDraft& draft)
{
    if (draft.id.isNull() || draft.instances.isEmpty()) {
        return draft.id.isNull() ? texts::draftWithoutId() : texts::emptyDraft();
    }
    const Gross gross = grossOf(draft.instances);
    return gross.buy.isNumber() && gross.sell.isNumber() ? QString() : texts::numberTooLong();
}

} // namespace

Outcome<Standing> Ledger::standingOf(const BatchDraft& draft, std::optional<qint64> replaces) const
{
    return mCore->read<Standing>([&](Statements& statements) {
        const QDateTime now = mCore->now();
        Standing standing = ledger::standingOf(statements, draft, now, QString());
        standing.duplicates = selectDuplicates(statements, *mCore->store, draft, now);
        standing.lately = selectLately(statements, draft, now);
        if (replaces) {
            const Outcome<operations::Replaceable> replaced =
                operations::replaceable(statements, *mCore->store, *replaces, draft.account);
            if (!replaced.ok()) {
                return Outcome<Standing>{{}, replaced.error};
            }
            forget(replaced.value, standing);
        }
        return Outcome<Standing>{standing, QString()};
    });
}

Outcome<Batch> Ledger::createBatch(const BatchDraft& draft, const CreationTerms& terms,
                                   QList<Finding>* refusals)
{
    const QString fault = faultOf(draft);
    if (!fault.isEmpty()) {
        return {{}, fault};
    }
    return mCore->change<Batch>([&](Change& change) {
        const std::optional<Batch> known = selectBatchOf(change.statements, draft.id, {draft.account});
        if (known) {
            return Outcome<Batch>{*known, QString()};
        }
        const QString standsOn =
            terms.replaces ? operations::withdrawForAnother(change, *terms.replaces, draft.account).error
                           : QString();
        if (!standsOn.isEmpty()) {
            return Outcome<Batch>{{}, standsOn};
        }
        AccountDay day;
        const QList<Finding> found = refusalsOf(change, draft, terms, day);
        if (refusals) {
            *refusals = found;
        }
        if (!found.isEmpty()) {
            return Outcome<Batch>{{}, texts::refused(joined(found))};
        }
        Batch batch = batchOf(draft, change.at);
        batch.createdBy = change.store.user().isEmpty() ? batch.createdBy : change.by;
        insert(change, batch, draft, terms);
        addToDay(change, day, draft);
        return Outcome<Batch>{batch, QString()};
    });
}

} // namespace ledger
