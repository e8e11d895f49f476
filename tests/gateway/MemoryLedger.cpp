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

Outcome<Wishes> MemoryLedger::wishes()
{
    const Lock lock(mMutex);
    Wishes wishes;
    wishes.halts.all = mHalted;
    for (const OpenInstance& instance : mInstances) {
        const QString clOrdId = clOrdIdOf(instance.order);
        if (isOpen(instance.standing.state)) {
            wishes.states.insert(clOrdId, instance.standing.state);
        }
        if (instance.standing.cancelAsked) {
            wishes.takenBack.insert(clOrdId);
        }
    }
    return {wishes, QString()};
}

void MemoryLedger::apply(const Change& change)
{
    OpenInstance& instance = mInstances[change.key.row];
    for (const QString& id : change.countedIds) {
        if (instance.countedIds.contains(id)) {
            return;
        }
    }
    const bool isRefused = change.before.cancelAsked && !change.after.cancelAsked;
    const bool wasAsked = instance.standing.cancelAsked && !isRefused;
    instance.standing = change.after;
    instance.standing.cancelAsked = wasAsked && isOpen(change.after.state);
    instance.cancelAttempts = change.cancelAttempts;
    for (const QString& id : change.countedIds) {
        instance.countedIds.insert(id);
    }
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
