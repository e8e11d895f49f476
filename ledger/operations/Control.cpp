// Halting, and the second pair of eyes.

#include "ledger/operations/Core.h"
#include "ledger/operations/Digest.h"
#include "ledger/store/BatchQueries.h"
#include "ledger/store/ControlQueries.h"
#include "ledger/store/InstanceQueries.h"

#include <QJsonObject>

namespace ledger {

namespace {

QString scopeOf(const QString& account)
{
    return account.isEmpty() ? QStringLiteral("*") : account;
}

/// What works is asked to be cancelled; what is queued stays queued.
void cancelWorking(Change& change, const QString& scope)
{
    InstanceChoice choice{QStringLiteral("state = 'running' AND cl_ord_id <> ''"), {}};
    if (scope != QLatin1String("*")) {
        choice.condition += QStringLiteral(" AND account = ?");
        choice.values = {scope};
    }
    choice.isBrief = true;
    QList<Instance> working = selectInstances(change.statements, choice);
    for (Instance& instance : working) {
        instance.state = InstanceState::Stopping;
        instance.isCancelDue = true;
    }
    moveInstances(change.statements, working, change.at);
}

/// Ends a batch that waited: nothing of it is ever sent.
void withdrawWaiting(Change& change, const Batch& batch, BatchState state)
{
    InstanceChoice choice = choiceOf(batch);
    choice.isBrief = true;
    QList<Instance> instances = selectInstances(change.statements, choice);
    for (Instance& instance : instances) {
        instance.state = InstanceState::Withdrawn;
    }
    moveInstances(change.statements, instances, change.at);
    updateBatchState(change.statements, batch, state);
    operations::releaseDay(change, batch, instances, true);
}

struct Waiting {
    Batch batch;
    Approval approval;
};

/// A batch that waits, and not for who asks.
Outcome<Waiting> waitingFor(Change& change, qint64 number)
{
    const Outcome<Batch> batch = operations::batchNumbered(change, number);
    if (!batch.ok()) {
        return {{}, batch.error};
    }
    const std::optional<Approval> approval = selectApproval(change.statements, batch.value);
    if (batch.value.state != BatchState::Waiting || !approval) {
        return {{}, texts::notWaiting(number, shownName(batch.value.state))};
    }
    const bool isAuthor = approval->askedBy == change.by || batch.value.createdBy == change.by;
    return isAuthor ? Outcome<Waiting>{{}, texts::ownBatch(number)}
                    : Outcome<Waiting>{{batch.value, *approval}, QString()};
}

void decide(Change& change, const Waiting& waiting, const QString& reason)
{
    Approval approval = waiting.approval;
    approval.decidedBy = change.by;
    approval.decidedAt = change.at;
    approval.reason = reason;
    decideApproval(change.statements, waiting.batch, approval);
}

/// Why an approval holds no longer; empty where it does.
QString lapseOf(Change& change, const Waiting& waiting, const Limits& limits)
{
    if (exchangeDay(waiting.batch.createdAt) != exchangeDay(change.at)) {
        return texts::lapsedByDay(waiting.batch.number);
    }
    const QString digest = digestOf(change.statements, waiting.batch, limits, waiting.approval.verdict);
    return digest == waiting.approval.digest ? QString() : texts::lapsedByChange(waiting.batch.number);
}

void startApproved(Change& change, const Batch& batch)
{
    InstanceChoice choice = choiceOf(batch, QStringLiteral("starts_now = 1 AND state = 'created'"));
    choice.isBrief = true;
    QList<Instance> started = selectInstances(change.statements, choice);
    const InstanceState state = operations::startedState(change.statements, batch.account);
    for (Instance& instance : started) {
        instance.state = state;
    }
    moveInstances(change.statements, started, change.at);
}

} // namespace

Outcome<void> Ledger::halt(const QString& account, const QString& reason)
{
    if (reason.trimmed().isEmpty()) {
        return {texts::noReason()};
    }
    const auto halted = mCore->change<bool>([&](Change& change) {
        const QString scope = scopeOf(account);
        const QList<Halt> halts = selectHalts(change.statements, scope);
        for (const Halt& halt : halts) {
            if (halt.account == scope) {
                return Outcome<bool>{true, QString()};
            }
        }
        insertHalt(change.statements, {scope, reason, change.by, change.at});
        cancelWorking(change, scope);
        change.note(QStringLiteral("halt"), scope, {{QStringLiteral("reason"), reason}});
        return Outcome<bool>{true, QString()};
    });
    return {halted.error};
}

Outcome<void> Ledger::resume(const QString& account, const QString& reason)
{
    if (reason.trimmed().isEmpty()) {
        return {texts::noReason()};
    }
    const auto resumed = mCore->change<bool>([&](Change& change) {
        const QString scope = scopeOf(account);
        if (!deleteHalt(change.statements, scope)) {
            return Outcome<bool>{false, texts::notHalted(scope)};
        }
        change.note(QStringLiteral("resume"), scope, {{QStringLiteral("reason"), reason}});
        return Outcome<bool>{true, QString()};
    });
    return {resumed.error};
}

Outcome<Approval> Ledger::approvalOf(qint64 batchNumber) const
{
    return mCore->read<Approval>([&](Statements& statements) {
        const std::optional<Batch> batch = selectBatch(statements, batchNumber);
        if (!batch) {
            return Outcome<Approval>{{}, texts::noSuchBatch(path(), batchNumber)};
        }
        const std::optional<Approval> found = selectApproval(statements, *batch);
        return found ? Outcome<Approval>{*found, QString()}
                     : Outcome<Approval>{{}, texts::notWaiting(batchNumber, shownName(batch->state))};
    });
}

Outcome<Batch> Ledger::approve(qint64 batchNumber, const Limits& limits)
{
    QString lapse; // is written down, and said
    const auto approved = mCore->change<Batch>([&](Change& change) {
        const Outcome<Waiting> waiting = waitingFor(change, batchNumber);
        if (!waiting.ok()) {
            return Outcome<Batch>{{}, waiting.error};
        }
        Batch batch = waiting.value.batch;
        const QList<Halt> halts = selectHalts(change.statements, batch.account);
        if (!halts.isEmpty()) {
            return Outcome<Batch>{{}, texts::haltOf(batch.account, halts.first().reason, halts.first().by)};
        }
        lapse = lapseOf(change, waiting.value, limits);
        batch.state = lapse.isEmpty() ? BatchState::Created : BatchState::Lapsed;
        decide(change, waiting.value, lapse);
        if (lapse.isEmpty()) {
            updateBatchState(change.statements, batch, batch.state);
            startApproved(change, batch);
        } else {
            withdrawWaiting(change, batch, batch.state);
        }
        change.note(lapse.isEmpty() ? QStringLiteral("approve") : QStringLiteral("lapse"),
                    QString::number(batchNumber),
                    {{QStringLiteral("digest"), waiting.value.approval.digest}});
        return Outcome<Batch>{batch, QString()};
    });
    return approved.ok() && !lapse.isEmpty() ? Outcome<Batch>{{}, lapse} : approved;
}

Outcome<Batch> Ledger::refuse(qint64 batchNumber, const QString& reason)
{
    if (reason.trimmed().isEmpty()) {
        return {{}, texts::noReason()};
    }
    return mCore->change<Batch>([&](Change& change) {
        const Outcome<Waiting> waiting = waitingFor(change, batchNumber);
        if (!waiting.ok()) {
            return Outcome<Batch>{{}, waiting.error};
        }
        Batch batch = waiting.value.batch;
        decide(change, waiting.value, reason);
        withdrawWaiting(change, batch, BatchState::Refused);
        change.note(QStringLiteral("refuse"), QString::number(batchNumber),
                    {{QStringLiteral("reason"), reason}});
        batch.state = BatchState::Refused;
        return Outcome<Batch>{batch, QString()};
    });
}

} // namespace ledger
