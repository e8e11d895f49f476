#include "gateway/port/LedgerOutbox.h"

#include <algorithm>

namespace gateway {

namespace {

/// Both rooms name the states alike.
State stateOf(ledger::InstanceState state)
{
    using Kept = ledger::InstanceState;
    switch (state) {
    case Kept::Created:
        return State::Created;
    case Kept::Queued:
        return State::Queued;
    case Kept::Sending:
        return State::Sending;
    case Kept::Running:
        return State::Running;
    case Kept::Stopping:
        return State::Stopping;
    case Kept::Stopped:
        return State::Stopped;
    case Kept::Finished:
        return State::Finished;
    case Kept::Rejected:
        return State::Rejected;
    case Kept::Unknown:
        return State::Unknown;
    case Kept::Withdrawn:
        break;
    }
    return State::Withdrawn;
}

ledger::InstanceState keptStateOf(State state)
{
    return ledger::instanceStateNamed(nameOf(state));
}

Standing standingOf(const ledger::Instance& instance)
{
    Standing standing;
    standing.state = stateOf(instance.state);
    standing.fill = {instance.filledQuantity.text(), instance.averagePrice.text()};
    if (instance.legs.size() > 1) {
        for (const ledger::Leg& leg : instance.legs) {
            standing.legs.append({leg.filledQuantity.text(), leg.averagePrice.text()});
        }
    }
    standing.reason = instance.reason;
    standing.cancelAsked = instance.isTakenBack;
    return standing;
}

Order orderOf(const ledger::Instance& instance, const QUuid& draft)
{
    Order order;
    order.draftId = draft;
    order.row = instance.id.row;
    order.strategy = instance.strategy;
    order.parameters = instance.parameters;
    return order;
}

std::optional<ledger::Decimal> numberOf(const QString& text)
{
    return text.isEmpty() ? std::nullopt : std::make_optional(ledger::Decimal::fromText(text));
}

ledger::Execution executionOf(const Change& change)
{
    const Report& report = *change.report;
    ledger::Execution execution;
    execution.execId = report.isStatusAnswer() ? QString() : report.execId;
    execution.clOrdId = change.clOrdId;
    if (change.told) {
        execution.state = keptStateOf(*change.told);
    }
    execution.filled = numberOf(report.cumQty);
    execution.average = numberOf(report.avgPx);
    execution.ordered = numberOf(change.ordered);
    execution.leg = change.leg;
    execution.isCorrection = report.takesBack();
    execution.isCancelReject = report.kind == Report::Kind::CancelReject;
    execution.reason = change.after.reason;
    return execution;
}

/// A report that a bust is about, counted so that it does not count when it comes late.
ledger::Execution bustedOf(const Change& change)
{
    ledger::Execution execution;
    execution.execId = change.report->execRefId;
    execution.clOrdId = change.clOrdId;
    return execution;
}

/// Under no order's name: the ledger keeps what it knows no order for.
ledger::Execution strayOf(const KeptReport& report)
{
    ledger::Execution execution;
    execution.execId = report.execId;
    execution.text = QStringLiteral("%1 %2").arg(report.clOrdId, report.complaint).trimmed();
    return execution;
}

QList<ledger::Execution> executionsOf(const Step& step)
{
    QList<ledger::Execution> executions;
    for (const Change& change : step.changes) {
        if (change.report) {
            executions.append(executionOf(change));
        }
        if (change.report && change.report->takesBack() && !change.report->execRefId.isEmpty()) {
            executions.append(bustedOf(change));
        }
    }
    for (const KeptReport& report : step.kept) {
        executions.append(strayOf(report));
    }
    return executions;
}

} // namespace

LedgerOutbox::LedgerOutbox(std::shared_ptr<ledger::Ledger> ledger, std::unique_ptr<ledger::Outbox> outbox)
    : mLedger(std::move(ledger)), mOutbox(std::move(outbox))
{
}

Outcome<QUuid> LedgerOutbox::draftOf(qint64 batch)
{
    if (!mDrafts.contains(batch)) {
        const Outcome<ledger::Batch> found = mLedger->batch(batch);
        if (!found.ok()) {
            return {QUuid(), found.error};
        }
        mDrafts.insert(batch, found.value.draftId);
    }
    return {mDrafts.value(batch), QString()};
}

Outcome<QList<OpenInstance>> LedgerOutbox::converted(const Outcome<QList<ledger::Order>>& orders)
{
    if (!orders.ok()) {
        return {{}, orders.error};
    }
    QList<OpenInstance> instances;
    for (const ledger::Order& order : orders.value) {
        const Outcome<QUuid> draft = draftOf(order.instance.id.batch);
        if (!draft.ok()) {
            return {{}, draft.error};
        }
        OpenInstance instance;
        instance.key = {order.instance.id.batch, order.instance.id.row};
        instance.account = order.instance.account;
        instance.order = orderOf(order.instance, draft.value);
        instance.standing = standingOf(order.instance);
        instance.wasSent = order.isRepeat;
        instances.append(instance);
    }
    return {instances, QString()};
}

Outcome<QList<OpenInstance>> LedgerOutbox::open()
{
    return converted(mOutbox->open());
}

Outcome<QList<OpenInstance>> LedgerOutbox::queued(int most)
{
    return converted(mOutbox->waiting(most));
}

Outcome<QSet<QString>> LedgerOutbox::take(const QList<InstanceKey>& keys)
{
    QList<ledger::InstanceId> ids;
    for (const InstanceKey& key : keys) {
        ids.append({key.batch, key.row});
    }
    const Outcome<QList<ledger::Order>> taken = mOutbox->take(ids);
    QSet<QString> names;
    for (const ledger::Order& order : taken.value) {
        names.insert(order.clOrdId);
    }
    return {names, taken.error};
}

Outcome<QList<Order>> LedgerOutbox::ordersOf(qint64 batch)
{
    const Outcome<QUuid> draft = draftOf(batch);
    const Outcome<QList<ledger::Instance>> instances =
        draft.ok() ? mLedger->instancesOf(batch) : Outcome<QList<ledger::Instance>>{{}, draft.error};
    QList<Order> orders;
    for (const ledger::Instance& instance : instances.value) {
        orders.append(orderOf(instance, draft.value));
    }
    return {orders, instances.error};
}

Outcome<std::optional<OpenInstance>> LedgerOutbox::find(const QString& clOrdId)
{
    const Outcome<QList<OpenInstance>> found = converted(mOutbox->named(clOrdId));
    return {found.value.isEmpty() ? std::nullopt : std::make_optional(found.value.first()), found.error};
}

qint64 LedgerOutbox::changeCount()
{
    return mLedger->changeCount().value;
}

Outcome<QList<CancelOrder>> LedgerOutbox::takeCancels(int most)
{
    const Outcome<QList<ledger::CancelRequest>> taken = mOutbox->takeCancels(most);
    QList<CancelOrder> orders;
    for (const ledger::CancelRequest& request : taken.value) {
        orders.append({request.order.clOrdId, request.clOrdId});
    }
    return {orders, taken.error};
}

QString LedgerOutbox::recordReports(const Step& step, Standings& standings)
{
    const QList<ledger::Execution> executions = executionsOf(step);
    if (executions.isEmpty()) {
        return QString();
    }
    const Outcome<QList<ledger::Recorded>> recorded = mOutbox->record(executions);
    for (int i = 0; i < recorded.value.size(); ++i) {
        if (!executions.at(i).clOrdId.isEmpty() && recorded.value.at(i).instance.id.row > 0) {
            standings.insert(executions.at(i).clOrdId, standingOf(recorded.value.at(i).instance));
        }
    }
    return recorded.error;
}

QString LedgerOutbox::recordDecisions(const Step& step, Standings& standings)
{
    QList<ledger::Outbox::Decision> decisions;
    QStringList names;
    for (const Change& change : step.changes) {
        if (!change.report) {
            decisions.append(
                {{change.key.batch, change.key.row}, keptStateOf(change.after.state), change.after.reason});
            names.append(change.clOrdId);
        }
    }
    if (decisions.isEmpty()) {
        return QString();
    }
    const Outcome<QList<ledger::Instance>> decided = mOutbox->decide(decisions);
    for (int i = 0; i < decided.value.size(); ++i) {
        standings.insert(names.at(i), standingOf(decided.value.at(i)));
    }
    return decided.error;
}

/// What was said first, then what was made of it. Repeated after an error, reports that were counted are
/// known by their identifiers.
Outcome<QHash<QString, Standing>> LedgerOutbox::record(const Step& step)
{
    Standings standings;
    QString error = recordReports(step, standings);
    error = error.isEmpty() ? recordDecisions(step, standings) : error;
    return {standings, error};
}

Outcome<void> LedgerOutbox::noteSession(const QString& state, const QString& text)
{
    return mOutbox->session(state, text);
}

Outcome<void> LedgerOutbox::noteTraffic(const std::vector<Traffic>& traffic)
{
    QList<ledger::WireMessage> messages;
    for (const Traffic& one : traffic) {
        ledger::WireMessage message;
        message.at = QDateTime::fromMSecsSinceEpoch(one.at, Qt::UTC);
        message.isOutgoing = one.isOutgoing;
        message.text = QString::fromStdString(one.text);
        messages.append(message);
    }
    return mOutbox->keepMessages(messages);
}

} // namespace gateway
