#include "ledger/operations/Recording.h"

#include "ledger/LedgerTexts.h"
#include "ledger/store/BatchQueries.h"
#include "ledger/store/ControlQueries.h"
#include "ledger/store/InstanceQueries.h"

#include <QJsonObject>

namespace ledger {

namespace {

QPair<qint64, int> keyOf(const InstanceId& id)
{
    return {id.batch, id.row};
}

/// What may be filled of an order, or of one leg of it; 0: not known.
Decimal orderedOf(const Instance& instance, const Execution& execution)
{
    const int leg = execution.leg > 0 ? execution.leg - 1 : 0;
    return execution.ordered.value_or(instance.legs.value(leg).quantity);
}

} // namespace

Instance* Recording::load(const InstanceId& id)
{
    const QPair<qint64, int> key = keyOf(id);
    if (!mInstances.contains(key)) {
        const std::optional<Instance> found = selectInstance(mChange.statements, id, mAccounts.of(id.batch));
        if (!found) {
            return nullptr;
        }
        mInstances.insert(key, *found);
    }
    return &mInstances[key];
}

/// The instance that was sent under an identifier; null where none was.
Instance* Recording::find(const QString& clOrdId)
{
    const QPair<QUuid, int> named = orderNamed(clOrdId);
    if (named.first.isNull()) {
        return nullptr;
    }
    if (!mBatches.contains(named.first)) {
        const Batch found = selectBatchOf(mChange.statements, named.first, mServed).value_or(Batch());
        mBatches[named.first] = found.number;
        mAccounts.know(found.number, found.account);
    }
    Instance* instance = load({mBatches.value(named.first), named.second});
    return instance && instance->clOrdId == clOrdId ? instance : nullptr;
}

Recorded Recording::keep(const Execution& execution, Recorded::Kind kind)
{
    if (insertStray(mChange.statements, execution, mChange.at)) {
        mStrays.append(execution.execId);
    }
    return {kind, {}};
}

Recorded Recording::take(const Execution& execution)
{
    Instance* instance = find(execution.clOrdId);
    if (!instance) {
        return keep(execution, Recorded::Kind::UnknownOrder);
    }
    const bool isNew = execution.execId.isEmpty() ||
                       insertExecution(mChange.statements, *instance, execution.execId, mChange.at);
    if (!isNew) {
        return {Recorded::Kind::Repeated, *instance};
    }
    const Decimal ordered = orderedOf(*instance, execution);
    const bool isAbove = execution.filled && ordered > 0 && !(*execution.filled <= ordered);
    if (isAbove) {
        Recorded recorded = keep(execution, Recorded::Kind::AboveOrder);
        recorded.instance = *instance;
        return recorded;
    }
    takeFill(*instance, execution);
    takeState(*instance, execution);
    mChanged.append(keyOf(instance->id));
    return {Recorded::Kind::Counted, *instance};
}

/// The sums of a report are the truth, and only a correction makes them less: reports come in any order.
bool Recording::takeFill(Instance& instance, const Execution& execution)
{
    const bool isOfLeg = execution.leg > 0 && execution.leg <= instance.legs.size();
    Decimal& filled = isOfLeg ? instance.legs[execution.leg - 1].filledQuantity : instance.filledQuantity;
    Decimal& average = isOfLeg ? instance.legs[execution.leg - 1].averagePrice : instance.averagePrice;
    const bool counts = execution.filled && execution.filled->isNumber() && *execution.filled >= 0 &&
                        (execution.isCorrection || *execution.filled >= filled);
    if (counts) {
        filled = *execution.filled;
        average = execution.average && execution.average->isNumber() ? *execution.average : average;
    }
    return counts;
}

void Recording::takeState(Instance& instance, const Execution& execution)
{
    if (!execution.state) {
        instance.reason = execution.reason.isEmpty() ? instance.reason : execution.reason;
        return;
    }
    const InstanceState before = instance.state;
    const bool isLateAnswer = before == InstanceState::Stopping &&
                              *execution.state == InstanceState::Running && !execution.isCancelReject;
    if (isLateAnswer) {
        // it still works, although a cancel is wanted: an answer to a question says that none has come
        // through
        instance.isCancelDue = instance.isCancelDue || execution.execId.isEmpty();
        return;
    }
    const bool isAllowed = execution.isCorrection ? mayBecomeByCorrection(before, *execution.state)
                                                  : mayBecome(before, *execution.state);
    if (isAllowed) {
        instance.reason = *execution.state == before ? instance.reason : QString();
        instance.state = *execution.state;
        instance.isTakenBack = instance.isTakenBack && !execution.isCancelReject;
        follow(instance);
    }
    if (!execution.reason.isEmpty()) {
        instance.reason = execution.reason;
    }
}

/// What was taken back before the counterparty knew it, or works while its account is halted, is cancelled
/// now.
void Recording::follow(Instance& instance)
{
    if (instance.state != InstanceState::Running) {
        instance.isCancelDue = instance.isCancelDue && instance.state == InstanceState::Stopping;
        return;
    }
    if (instance.isTakenBack || !selectHalts(mChange.statements, instance.account).isEmpty()) {
        instance.state = InstanceState::Stopping;
        instance.isCancelDue = true;
        instance.isTakenBack = false;
    }
}

/// An order that is to be sent again is not, where it was taken back or its account is halted meanwhile.
Outcome<Instance> Recording::decide(const Outbox::Decision& decision)
{
    Instance* instance = load(decision.id);
    if (!instance) {
        return {{}, texts::noSuchInstance(decision.id.text())};
    }
    InstanceState state = decision.state;
    const bool isToBeSent = state == InstanceState::Sending || state == InstanceState::Queued;
    if (isToBeSent && (instance->isTakenBack || instance->state == InstanceState::Stopping)) {
        state = InstanceState::Withdrawn;
    } else if (isToBeSent && !selectHalts(mChange.statements, instance->account).isEmpty()) {
        state = InstanceState::Queued;
    }
    if (state != instance->state && !mayBecome(instance->state, state)) {
        return {*instance, QString()};
    }
    const bool isWithdrawn = state == InstanceState::Withdrawn && instance->state != state;
    instance->state = state;
    instance->reason = decision.reason.isEmpty() ? instance->reason : decision.reason;
    follow(*instance);
    if (isWithdrawn) {
        instance->isTakenBack = false;
        const std::optional<Batch> batch =
            selectBatch(mChange.statements, instance->id.batch, instance->account);
        operations::releaseDay(mChange, batch.value_or(Batch()), {*instance}, false);
    }
    mChanged.append(keyOf(instance->id));
    return {*instance, QString()};
}

void Recording::finish()
{
    QList<Instance> changed;
    QSet<QPair<qint64, int>> seen;
    for (const QPair<qint64, int>& key : qAsConst(mChanged)) {
        if (!seen.contains(key)) {
            seen.insert(key);
            changed.append(mInstances.value(key));
        }
    }
    if (!mStrays.isEmpty()) {
        mChange.note(QStringLiteral("stray"), mStrays.join(QLatin1Char(' ')));
    }
    if (changed.isEmpty()) {
        return;
    }
    updateInstances(mChange.statements, changed, mChange.at);
    QJsonObject states;
    for (const Instance& instance : qAsConst(changed)) {
        states[instance.id.text()] =
            nameOf(instance.state) + QLatin1Char(' ') + instance.filledQuantity.text();
    }
    mChange.note(QStringLiteral("report"), operations::namesOf(changed), states);
}

} // namespace ledger
