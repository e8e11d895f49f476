#include "desk/report/DayReport.h"

#include "words/Words.h"

#include <QHash>

#include <algorithm>

namespace day_report {

namespace {

constexpr int ShanghaiOffset = 8 * 3600;
const QString AllStrategies = QStringLiteral("~"); // behind every code, in the map's order

QDateTime exchangeTime(const QDateTime& moment)
{
    return moment.toOffsetFromUtc(ShanghaiOffset);
}

QDate dayOf(const QDateTime& moment)
{
    return exchangeTime(moment).date();
}

QString shown(const QDateTime& moment)
{
    return moment.isValid() ? exchangeTime(moment).toString(QStringLiteral("yyyy-MM-dd HH:mm:ss"))
                            : QString();
}

} // namespace

QList<Counter::Collected*> Counter::collectedOf(const ledger::Batch& batch)
{
    QList<Collected*> all;
    for (const QString& strategy : {batch.strategy, AllStrategies}) {
        Collected& collected = mCollected[{batch.account, strategy}];
        collected.count.account = batch.account;
        collected.count.strategy = strategy == AllStrategies ? QStringLiteral("*") : strategy;
        all.append(&collected);
    }
    return all;
}

void Counter::addBatch(const ledger::Batch& batch)
{
    if (dayOf(batch.createdAt) != mDay) {
        return;
    }
    for (Collected* collected : collectedOf(batch)) {
        ++collected->count.batches;
        collected->count.buy += batch.expectedBuy;
        collected->count.sell += batch.expectedSell;
    }
}

void Counter::addOrders(const ledger::Batch& batch, const QDateTime& at, qint64 orders)
{
    if (dayOf(at) != mDay || orders <= 0) {
        return;
    }
    for (Collected* collected : collectedOf(batch)) {
        Count& count = collected->count;
        count.first = count.first.isValid() ? std::min(count.first, at) : at;
        count.last = count.last.isValid() ? std::max(count.last, at) : at;
        count.orders += orders;
        collected->seconds[at.toSecsSinceEpoch()] += int(orders);
    }
}

QList<Count> Counter::counts() const
{
    QList<Count> counts;
    for (const Collected& collected : mCollected) {
        Count count = collected.count;
        for (auto second = collected.seconds.cbegin(); second != collected.seconds.cend(); ++second) {
            count.busySeconds += *second >= SomeASecond ? 1 : 0;
            if (*second > count.peak) {
                count.peak = *second;
                count.peakAt = QDateTime::fromSecsSinceEpoch(second.key(), Qt::UTC);
            }
        }
        counts.append(count);
    }
    return counts;
}

namespace {

/// When the instances of a batch were sent for the first time on the day, by row.
using Sends = QHash<qint64, QHash<int, QDateTime>>;

/// The first audit entry that is not older; entries are numbered in the order of time, but for a clock that
/// was set.
Outcome<qint64> firstEntrySince(const ledger::Ledger& ledger, const QDateTime& moment)
{
    QString error;
    const auto isBefore = [&](qint64 number) {
        const auto entry = ledger.audit(number, 1);
        error = entry.ok() ? error : entry.error;
        return entry.ok() && !entry.value.isEmpty() && entry.value.first().at < moment;
    };
    qint64 from = 1;
    qint64 to = 1;
    while (isBefore(to)) {
        from = to;
        to *= 2;
    }
    while (from < to) {
        const qint64 middle = from + (to - from) / 2;
        const bool isEarlier = isBefore(middle);
        (isEarlier ? from : to) = isEarlier ? middle + 1 : middle;
    }
    return {from, error};
}

void note(const ledger::AuditEntry& entry, const QDate& day, Sends& sends)
{
    if (entry.what != QLatin1String("send") || dayOf(entry.at) != day) {
        return;
    }
    const QStringList names = entry.subject.split(QLatin1Char(' '));
    for (const QString& name : names) {
        const auto id = ledger::InstanceId::fromText(name);
        if (id && !sends[id->batch].contains(id->row)) {
            sends[id->batch].insert(id->row, entry.at);
        }
    }
}

/// The audit trail names what was sent, and when, before the first byte goes out.
Outcome<Sends> sendsOf(const ledger::Ledger& ledger, const QDate& day)
{
    constexpr int Page = 1000;
    const QDateTime midnight(day, QTime(0, 0), Qt::OffsetFromUTC, ShanghaiOffset);
    const Outcome<qint64> first = firstEntrySince(ledger, midnight.addDays(-1)); // a clock may be put back
    QString error = first.error;
    Sends sends;
    for (qint64 from = first.value; error.isEmpty(); from += Page) {
        const auto entries = ledger.audit(from, Page);
        error = entries.error;
        for (const ledger::AuditEntry& entry : entries.value) {
            note(entry, day, sends);
        }
        if (entries.value.size() < Page || entries.value.last().at > midnight.addDays(2)) {
            break;
        }
    }
    return {sends, error};
}

/// Whether a gateway had it, or nothing ever has to send it.
bool isOrder(const ledger::Instance& instance)
{
    using State = ledger::InstanceState;
    return !instance.clOrdId.isEmpty() ||
           (instance.state != State::Withdrawn && instance.state != State::Queued &&
            instance.state != State::Rejected);
}

/// A batch of the day: the orders that no gateway sends count where they were created.
QString addCreated(Counter& counter, const ledger::Ledger& ledger, const ledger::Batch& batch)
{
    const auto instances = ledger.instancesOf(batch.number);
    qint64 orders = 0;
    qint64 unsent = 0;
    for (const ledger::Instance& instance : instances.value) {
        orders += isOrder(instance) ? 1 : 0;
        unsent += isOrder(instance) && instance.clOrdId.isEmpty() ? 1 : 0;
    }
    if (orders > 0) {
        counter.addBatch(batch);
        counter.addOrders(batch, batch.createdAt, unsent);
    }
    return instances.error;
}

/// What the gateway sent on the day, of whatever day's batch.
QString addSent(Counter& counter, const ledger::Ledger& ledger, const Sends& sends)
{
    for (auto rows = sends.begin(); rows != sends.end(); ++rows) {
        const auto batch = ledger.batch(rows.key());
        if (!batch.ok()) {
            return batch.error;
        }
        for (const QDateTime& at : *rows) {
            counter.addOrders(batch.value, at, 1);
        }
    }
    return {};
}

} // namespace

Outcome<QList<Count>> read(const ledger::Ledger& ledger, const QDate& day)
{
    const Outcome<Sends> sends = sendsOf(ledger, day);
    if (!sends.ok()) {
        return {{}, sends.error};
    }
    Counter counter(day);
    QString error;
    const Outcome<void> looked = ledger.eachBatchOfDay(day, [&](const ledger::Batch& batch) {
        error = addCreated(counter, ledger, batch);
        return error.isEmpty();
    });
    error = looked.ok() ? error : looked.error;
    error = error.isEmpty() ? addSent(counter, ledger, sends.value) : error;
    return error.isEmpty() ? Outcome<QList<Count>>{counter.counts(), {}} : Outcome<QList<Count>>{{}, error};
}

QList<QStringList> table(const QList<Count>& counts, const QDate& day, const QString& software,
                         const QString& version)
{
    QList<QStringList> rows = {{Words::tr("交易日"), Words::tr("账户"), Words::tr("算法"),
                                Words::tr("首次时间"), Words::tr("末次时间"), Words::tr("批次数"),
                                Words::tr("申报笔数"), Words::tr("买入金额"), Words::tr("卖出金额"),
                                Words::tr("每秒峰值"), Words::tr("峰值时间"),
                                Words::tr("每秒%1笔以上的秒数").arg(SomeASecond), Words::tr("达到高频标准"),
                                Words::tr("软件名称"), Words::tr("软件版本")}};
    for (const Count& count : counts) {
        const QString strategy = count.strategy == QLatin1String("*") ? Words::tr("全部") : count.strategy;
        rows.append({day.toString(Qt::ISODate), count.account, strategy, shown(count.first),
                     shown(count.last), QString::number(count.batches), QString::number(count.orders),
                     count.buy.text(), count.sell.text(), QString::number(count.peak), shown(count.peakAt),
                     QString::number(count.busySeconds),
                     count.isHighFrequency() ? Words::tr("是") : Words::tr("否"), software, version});
    }
    return rows;
}

} // namespace day_report
