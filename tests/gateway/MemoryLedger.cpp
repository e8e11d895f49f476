#include "tests/gateway/MemoryLedger.h"

using namespace gateway;

using Lock = std::lock_guard<std::mutex>;

void MemoryLedger::add(const Order& order, const QString& account)
{
    const Lock lock(mMutex);
    OpenInstance instance;
    instance.key = {1, order.row};
    instance.account = account;
    instance.order = order;
    instance.standing.state = State::Queued;
    mInstances.insert(order.row, instance);
    mRows.insert(clOrdIdOf(order), order.row);
    ++mChanges;
}

void MemoryLedger::takeBack(int row)
{
    const Lock lock(mMutex);
    Standing& standing = mInstances[row].standing;
    if (standing.state == State::Queued) {
        standing.state = State::Withdrawn;
    } else if (standing.state == State::Running) {
        standing.state = State::Stopping;
        mDue.insert(row);
    } else {
        standing.cancelAsked = isOpen(standing.state);
    }
    ++mChanges;
}

void MemoryLedger::halt(bool isHalted)
{
    const Lock lock(mMutex);
    mHalted = isHalted;
    ++mChanges;
}

Standing MemoryLedger::standing(int row) const
{
    const Lock lock(mMutex);
    return mInstances.value(row).standing;
}

int MemoryLedger::countOf(State state) const
{
    const Lock lock(mMutex);
    int count = 0;
    for (const OpenInstance& instance : mInstances) {
        count += instance.standing.state == state ? 1 : 0;
    }
    return count;
}

QStringList MemoryLedger::kept() const
{
    const Lock lock(mMutex);
    return mKept;
}

QStringList MemoryLedger::sessions() const
{
    const Lock lock(mMutex);
    return mSessions;
}

Outcome<QList<OpenInstance>> MemoryLedger::open()
{
    const Lock lock(mMutex);
    QList<OpenInstance> open;
    for (const OpenInstance& instance : mInstances) {
        if (isOpen(instance.standing.state)) {
            open.append(instance);
        }
    }
    return {open, QString()};
}

Outcome<QList<OpenInstance>> MemoryLedger::queued(int most)
{
    const Lock lock(mMutex);
    QList<OpenInstance> queued;
    for (const OpenInstance& instance : mInstances) {
        if (instance.standing.state == State::Queued && !mHalted && queued.size() < most) {
            queued.append(instance);
        }
    }
    return {queued, QString()};
}

Outcome<QSet<QString>> MemoryLedger::take(const QList<InstanceKey>& keys)
{
    const Lock lock(mMutex);
    QSet<QString> taken;
    for (const InstanceKey& key : keys) {
        OpenInstance& instance = mInstances[key.row];
        if (instance.standing.state == State::Queued && !mHalted) {
            instance.standing.state = State::Sending;
            instance.wasSent = true;
            taken.insert(clOrdIdOf(instance.order));
        }
    }
    ++mChanges;
    return {taken, QString()};
}

Outcome<QList<Order>> MemoryLedger::ordersOf(qint64)
{
    const Lock lock(mMutex);
    QList<Order> orders;
    for (const OpenInstance& instance : mInstances) {
        orders.append(instance.order);
    }
    return {orders, QString()};
}

Outcome<std::optional<OpenInstance>> MemoryLedger::find(const QString& clOrdId)
{
    const Lock lock(mMutex);
    if (!mRows.contains(clOrdId)) {
        return {};
    }
    return {mInstances.value(mRows.value(clOrdId)), QString()};
}

qint64 MemoryLedger::changeCount()
{
    const Lock lock(mMutex);
    return mChanges;
}

Outcome<QList<CancelOrder>> MemoryLedger::takeCancels(int)
{
    const Lock lock(mMutex);
    QList<CancelOrder> orders;
    for (const int row : qAsConst(mDue)) {
        const QString clOrdId = clOrdIdOf(mInstances.value(row).order);
        orders.append({clOrdId, clOrdId + QStringLiteral("-C%1").arg(++mCancels[row])});
    }
    mDue.clear();
    return {orders, QString()};
}

void MemoryLedger::decide(Standing& standing) const
{
    if (standing.state == State::Sending && mHalted) {
        standing.state = State::Queued;
    }
}

void MemoryLedger::apply(const Change& change)
{
    OpenInstance& instance = mInstances[change.key.row];
    const bool isReport = change.report.has_value();
    const QString execId = isReport ? change.report->execId : QString();
    if (!execId.isEmpty() && instance.countedIds.contains(execId)) {
        return;
    }
    instance.countedIds.insert(execId);
    const bool isRefusal = isReport && change.report->kind == Report::Kind::CancelReject;
    const bool works = isReport && change.told == State::Running && !isRefusal;
    const State before = instance.standing.state;
    const bool wasAsked = instance.standing.cancelAsked;
    instance.standing = change.after;
    if (works && (before == State::Stopping || wasAsked)) {
        instance.standing.state = State::Stopping;
        if (before != State::Stopping || execId.isEmpty()) {
            mDue.insert(change.key.row);
        }
    } else if (!isReport) {
        decide(instance.standing);
    }
    instance.standing.cancelAsked = wasAsked && !works && !isRefusal && isOpen(instance.standing.state);
}

Outcome<QHash<QString, Standing>> MemoryLedger::record(const Step& step)
{
    const Lock lock(mMutex);
    QHash<QString, Standing> standings;
    for (const Change& change : step.changes) {
        apply(change);
        standings.insert(change.clOrdId, mInstances.value(change.key.row).standing);
    }
    for (const KeptReport& report : step.kept) {
        mKept.append(report.complaint);
    }
    ++mChanges;
    return {standings, QString()};
}

Outcome<void> MemoryLedger::noteSession(const QString& state, const QString& text)
{
    const Lock lock(mMutex);
    mSessions.append((state + QLatin1Char(' ') + text).trimmed());
    return {};
}
