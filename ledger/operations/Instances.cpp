// Starting, stopping and taking back instances.

#include "ledger/operations/Core.h"
#include "ledger/store/BatchQueries.h"
#include "ledger/store/ControlQueries.h"
#include "ledger/store/InstanceQueries.h"

#include <QHash>
#include <QJsonObject>

#include <algorithm>

namespace ledger {

namespace {

using ChangedList = QList<ChangedInstance>;

enum class Applies {
    Yes,
    Not,       ///< to this instance; told where it was named
    Forbidden, ///< and told in any case
};

/// What an operation makes of an instance, with the sentence for where it makes nothing of it.
using Rule = std::function<Applies(Instance& instance, QString& objection)>;

/// Those of one batch, without their parameters.
InstanceChoice briefChoice(const Batch& batch, const QString& condition = {}, const QVariantList& values = {})
{
    InstanceChoice choice = choiceOf(batch, condition, values);
    choice.isBrief = true;
    return choice;
}

QHash<int, Instance> rowsBetween(Change& change, const Batch& batch, int first, int last)
{
    const QList<Instance> found = selectInstances(
        change.statements, briefChoice(batch, QStringLiteral("row_no BETWEEN ? AND ?"), {first, last}));
    QHash<int, Instance> rows;
    for (const Instance& instance : found) {
        rows.insert(instance.id.row, instance);
    }
    return rows;
}

/// In the order of their names; an error where one does not exist.
Outcome<QList<Instance>> named(Change& change, const QList<InstanceId>& ids)
{
    QMap<qint64, QVector<int>> rowsOf;
    for (const InstanceId& id : ids) {
        rowsOf[id.batch].append(id.row);
    }
    QHash<qint64, QHash<int, Instance>> found;
    for (auto batch = rowsOf.cbegin(); batch != rowsOf.cend(); ++batch) {
        const auto [first, last] = std::minmax_element(batch->begin(), batch->end());
        const std::optional<Batch> ofThese = selectBatch(change.statements, batch.key());
        found[batch.key()] = ofThese ? rowsBetween(change, *ofThese, *first, *last) : QHash<int, Instance>();
    }
    QList<Instance> instances;
    for (const InstanceId& id : ids) {
        if (!found[id.batch].contains(id.row)) {
            return {{}, texts::noSuchInstance(id.text())};
        }
        instances.append(found[id.batch][id.row]);
    }
    return {instances, QString()};
}

/// The instances of a selection; an error where one of those named does not exist.
Outcome<QList<Instance>> selected(Change& change, const Selection& selection)
{
    const Outcome<QList<Instance>> ofNames = named(change, selection.ids);
    if (!selection.batch || !ofNames.ok()) {
        return ofNames;
    }
    const Outcome<Batch> batch = operations::batchNumbered(change, *selection.batch);
    return batch.ok()
               ? Outcome<QList<Instance>>{selectInstances(change.statements, briefChoice(batch.value)) +
                                              ofNames.value,
                                          QString()}
               : Outcome<QList<Instance>>{{}, batch.error};
}

QString forbidden(const Instance& instance, InstanceState after)
{
    return texts::forbiddenChange(instance.id.text(), shownName(instance.state), shownName(after));
}

/// Applies a rule to each, writes down what changed, and takes what was withdrawn out of the day's sums.
/// Answers those that were changed, and where each is by itself also those that were not.
Outcome<ChangedList> apply(Change& change, const Selection& selection, const QString& what, const Rule& rule)
{
    const Outcome<QList<Instance>> found = selected(change, selection);
    ChangedList answers;
    QList<Instance> changed;
    QMap<qint64, QList<Instance>> withdrawn;
    for (Instance instance : found.value) {
        const InstanceState before = instance.state;
        QString objection;
        const Applies applies = rule(instance, objection);
        const bool isTold =
            applies == Applies::Forbidden || (applies == Applies::Not && selection.ids.contains(instance.id));
        if (isTold && !selection.isEachByItself) {
            return {{}, objection};
        }
        if (isTold) {
            instance.state = before;
            answers.append(operations::changedInstance(instance, before));
            answers.last().refusal = objection;
        }
        if (applies != Applies::Yes) {
            continue;
        }
        changed.append(instance);
        answers.append(operations::changedInstance(instance, before));
        if (instance.state == InstanceState::Withdrawn) {
            withdrawn[instance.id.batch].append(instance);
        }
    }
    if (!found.ok() || changed.isEmpty()) {
        return {answers, found.error};
    }
    moveInstances(change.statements, changed, change.at);
    for (auto batch = withdrawn.cbegin(); batch != withdrawn.cend(); ++batch) {
        const std::optional<Batch> ofThese =
            selectBatch(change.statements, batch.key(), batch->first().account);
        operations::releaseDay(change, ofThese.value_or(Batch()), *batch, false);
    }
    change.note(what, operations::namesOf(changed));
    return {answers, QString()};
}

/// A cancel, as soon as it can be sent. Without a gateway nothing is to be sent: it is stopped at once.
void stopRunning(Instance& instance)
{
    if (instance.clOrdId.isEmpty()) {
        instance.state = InstanceState::Stopped;
        return;
    }
    instance.state = InstanceState::Stopping;
    instance.isCancelDue = true;
}

/// Takes an instance back, as far as it can be.
bool takeBack(Instance& instance)
{
    switch (instance.state) {
    case InstanceState::Created:
    case InstanceState::Queued:
        instance.state = InstanceState::Withdrawn;
        return true;
    case InstanceState::Running:
        stopRunning(instance);
        return true;
    case InstanceState::Sending:
    case InstanceState::Unknown: {
        const bool isNew = !instance.isTakenBack;
        instance.isTakenBack = true;
        return isNew;
    }
    default:
        return false;
    }
}

/// What starting instances needs to know of their batches, asked for once each.
class Starting {
public:
    explicit Starting(Change& change) : mChange(change) {}

    /// Why nothing of its batch may be started; empty where it may.
    QString objectionTo(const Instance& instance) { return ofBatch(instance).objection; }
    InstanceState stateOf(const Instance& instance) { return ofBatch(instance).state; }

private:
    struct Known {
        QString objection;
        InstanceState state;
    };

    const Known& ofBatch(const Instance& instance);
    QString objectionToBatch(const Instance& instance) const;

    Change& mChange;
    QHash<qint64, Known> mBatches;
};

const Starting::Known& Starting::ofBatch(const Instance& instance)
{
    auto known = mBatches.find(instance.id.batch);
    if (known == mBatches.end()) {
        known = mBatches.insert(
            instance.id.batch,
            {objectionToBatch(instance), operations::startedState(mChange.statements, instance.account)});
    }
    return *known;
}

QString Starting::objectionToBatch(const Instance& instance) const
{
    const std::optional<Batch> batch = selectBatch(mChange.statements, instance.id.batch, instance.account);
    const bool stands =
        batch && (batch->state == BatchState::Created || batch->state == BatchState::PartlyReversed);
    if (!stands) {
        return texts::notYetApproved(instance.id.batch, shownName(batch ? batch->state : BatchState::Lapsed));
    }
    const QList<Halt> halts = selectHalts(mChange.statements, instance.account);
    return halts.isEmpty() ? QString()
                           : texts::haltOf(instance.account, halts.first().reason, halts.first().by);
}

struct UndoSort {
    UndoReport report;
    QList<Instance> changed;
    QList<Instance> withdrawn;
    QStringList sent; ///< that may have traded, as they are named
};

/// What undo makes of each instance. One that ran may have traded: stopping it, now or before, reverses
/// nothing.
UndoSort sortForUndo(const QList<Instance>& instances)
{
    UndoSort sort;
    sort.report.state = BatchState::Withdrawn;
    for (Instance instance : instances) {
        const InstanceState before = instance.state;
        const bool isChanged = takeBack(instance);
        if (isChanged) {
            sort.changed.append(instance);
        }
        const ChangedInstance undone = operations::changedInstance(instance, before);
        if (isChanged && instance.state == InstanceState::Withdrawn) {
            sort.report.withdrawn.append(undone);
            sort.withdrawn.append(instance);
        } else if (isChanged) {
            sort.report.stopped.append(undone);
        } else if (instance.state == InstanceState::Finished) {
            sort.report.notReversed.append(undone);
        } else {
            ++sort.report.alreadyUndone;
        }
        if (instance.state != InstanceState::Withdrawn && instance.state != InstanceState::Rejected) {
            sort.report.state = BatchState::PartlyReversed;
            sort.sent.append(instance.id.text());
        }
    }
    return sort;
}

/// Something of it was, or may yet be sent.
bool stands(const Batch& batch)
{
    return batch.state == BatchState::Created || batch.state == BatchState::Waiting ||
           batch.state == BatchState::PartlyReversed;
}

void writeUndo(Change& change, const Batch& batch, const UndoSort& sort)
{
    moveInstances(change.statements, sort.changed, change.at);
    updateBatchState(change.statements, batch, sort.report.state);
    operations::releaseDay(change, batch, sort.withdrawn,
                           sort.report.state == BatchState::Withdrawn && stands(batch));
    change.note(QStringLiteral("undo"), QString::number(batch.number),
                {{QStringLiteral("withdrawn"), sort.withdrawn.size()},
                 {QStringLiteral("stopped"), sort.report.stopped.size()},
                 {QStringLiteral("notReversed"), sort.report.notReversed.size()}});
}

bool isSettlement(InstanceState state)
{
    return state == InstanceState::Running || state == InstanceState::Stopped ||
           state == InstanceState::Finished || state == InstanceState::Rejected ||
           state == InstanceState::Queued;
}

} // namespace

namespace operations {

Outcome<Replaceable> replaceable(Statements& statements, const Store& store, qint64 number,
                                 const QString& account)
{
    const std::optional<Batch> batch = selectBatch(statements, number);
    if (!batch) {
        return {{}, texts::noSuchBatch(store.name(), number)};
    }
    if (batch->account != account) {
        return {{}, texts::replacesOtherAccount(number, batch->account, account)};
    }
    if (!stands(*batch)) {
        return {{}, texts::nothingToReplace(number, shownName(batch->state))};
    }
    const UndoSort sort = sortForUndo(selectInstances(statements, briefChoice(*batch)));
    return sort.sent.isEmpty() ? Outcome<Replaceable>{{*batch, sort.withdrawn}, QString()}
                               : Outcome<Replaceable>{{}, texts::sentAlready(number, sort.sent)};
}

Outcome<Replaceable> withdrawForAnother(Change& change, qint64 number, const QString& account)
{
    const Outcome<Replaceable> found = replaceable(change.statements, change.store, number, account);
    if (found.ok()) {
        UndoSort sort;
        sort.report.state = BatchState::Withdrawn;
        sort.changed = found.value.withdrawn;
        sort.withdrawn = found.value.withdrawn;
        writeUndo(change, found.value.batch, sort);
    }
    return found;
}

} // namespace operations

Outcome<QList<ChangedInstance>> Ledger::start(const Selection& selection)
{
    return mCore->change<ChangedList>([&](Change& change) {
        Starting starting(change);
        return apply(change, selection, QStringLiteral("start"), [&](Instance& instance, QString& objection) {
            if (!mayBeStarted(instance.state)) {
                objection = forbidden(instance, InstanceState::Running);
                return Applies::Not;
            }
            objection = starting.objectionTo(instance);
            instance.state = starting.stateOf(instance);
            return objection.isEmpty() ? Applies::Yes : Applies::Forbidden;
        });
    });
}

Outcome<QList<ChangedInstance>> Ledger::stop(const Selection& selection)
{
    return mCore->change<ChangedList>([&](Change& change) {
        return apply(change, selection, QStringLiteral("stop"), [](Instance& instance, QString& objection) {
            objection = forbidden(instance, InstanceState::Stopped);
            return mayBeStopped(instance.state) && takeBack(instance) ? Applies::Yes : Applies::Not;
        });
    });
}

Outcome<QList<ChangedInstance>> Ledger::withdraw(const Selection& selection)
{
    return mCore->change<ChangedList>([&](Change& change) {
        return apply(
            change, selection, QStringLiteral("withdraw"), [](Instance& instance, QString& objection) {
                objection = forbidden(instance, InstanceState::Withdrawn);
                return mayBeWithdrawn(instance.state) && takeBack(instance) ? Applies::Yes : Applies::Not;
            });
    });
}

Outcome<ChangedInstance> Ledger::settle(const InstanceId& id, InstanceState state, const QString& reason)
{
    if (reason.trimmed().isEmpty()) {
        return {{}, texts::noReason()};
    }
    return mCore->change<ChangedInstance>([&](Change& change) {
        const QString account = operations::AccountsOfBatches(change.statements).of(id.batch);
        const std::optional<Instance> found = selectInstance(change.statements, id, account);
        if (!found) {
            return Outcome<ChangedInstance>{{}, texts::noSuchInstance(id.text())};
        }
        if (found->state != InstanceState::Unknown || !isSettlement(state)) {
            return Outcome<ChangedInstance>{{},
                                            found->state == InstanceState::Unknown
                                                ? forbidden(*found, state)
                                                : texts::notUnknown(id.text(), shownName(found->state))};
        }
        Instance settled = *found;
        settled.state = state;
        settled.reason = reason;
        updateInstances(change.statements, {settled}, change.at);
        change.note(QStringLiteral("settle"), id.text(),
                    {{QStringLiteral("as"), nameOf(state)}, {QStringLiteral("reason"), reason}});
        return Outcome<ChangedInstance>{operations::changedInstance(settled, found->state), QString()};
    });
}

Outcome<UndoReport> Ledger::undo(qint64 batchNumber)
{
    return mCore->change<UndoReport>([&](Change& change) {
        const Outcome<Batch> batch = operations::batchNumbered(change, batchNumber);
        if (!batch.ok()) {
            return Outcome<UndoReport>{{}, batch.error};
        }
        UndoSort sort = sortForUndo(selectInstances(change.statements, briefChoice(batch.value)));
        sort.report.batch = batchNumber;
        if (!stands(batch.value)) {
            sort.report.state = batch.value.state;
        }
        if (!sort.changed.isEmpty() || sort.report.state != batch.value.state) {
            writeUndo(change, batch.value, sort);
        }
        return Outcome<UndoReport>{sort.report, QString()};
    });
}

Outcome<void> Ledger::changeState(const InstanceId& id, InstanceState state)
{
    const auto changed = mCore->change<ChangedList>([&](Change& change) {
        return apply(change, {{id}, std::nullopt}, nameOf(state),
                     [&](Instance& instance, QString& objection) {
                         objection = forbidden(instance, state);
                         const bool isAllowed = mayBecome(instance.state, state);
                         instance.state = isAllowed ? state : instance.state;
                         return isAllowed ? Applies::Yes : Applies::Not;
                     });
    });
    return {changed.error};
}

} // namespace ledger
