#include "desk/report/DayReport.h"

#include <algorithm>

namespace day_report {

namespace {

constexpr int ShanghaiOffset = 8 * 3600;
const QString AllStrategies = QStringLiteral("~"); // behind every code, in the map's order

QDateTime exchangeTime(const QDateTime& moment)
{
    return moment.toOffsetFromUtc(ShanghaiOffset);
}

QString shown(const QDateTime& moment)
{
    return moment.isValid() ? exchangeTime(moment).toString(QStringLiteral("yyyy-MM-dd HH:mm:ss"))
                            : QString();
}

} // namespace

bool Counter::isOfDay(const ledger::Batch& batch) const
{
    return exchangeTime(batch.createdAt).date() == mDay;
}

void Counter::add(const ledger::Batch& batch, qint64 withdrawn)
{
    const qint64 orders = batch.rowCount - withdrawn;
    if (!isOfDay(batch) || orders <= 0) {
        return;
    }
    for (const QString& strategy : {batch.strategy, AllStrategies}) {
        Collected& collected = mCollected[{batch.account, strategy}];
        collected.count.account = batch.account;
        collected.count.strategy = strategy == AllStrategies ? QStringLiteral("*") : strategy;
        add(collected, batch, orders);
    }
}

void Counter::add(Collected& collected, const ledger::Batch& batch, qint64 orders)
{
    Count& count = collected.count;
    count.first = count.first.isValid() ? std::min(count.first, batch.createdAt) : batch.createdAt;
    count.last = count.last.isValid() ? std::max(count.last, batch.createdAt) : batch.createdAt;
    ++count.batches;
    count.orders += orders;
    count.buy += batch.expectedBuy;
    count.sell += batch.expectedSell;
    collected.seconds[batch.createdAt.toSecsSinceEpoch()] += int(orders);
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

Outcome<QList<Count>> read(const ledger::Ledger& ledger, const QDate& day)
{
    Counter counter(day);
    QString error;
    const Outcome<void> looked = ledger.eachBatchOfDay(day, [&](const ledger::Batch& batch) {
        const auto counts = ledger.counts(batch.number);
        error = counts.error;
        counter.add(batch, counts.value.value(ledger::InstanceState::Withdrawn));
        return counts.ok();
    });
    error = looked.ok() ? error : looked.error;
    return error.isEmpty() ? Outcome<QList<Count>>{counter.counts(), {}} : Outcome<QList<Count>>{{}, error};
}

QList<QStringList> table(const QList<Count>& counts, const QDate& day, const QString& software,
                         const QString& version)
{
    QList<QStringList> rows = {
        {QStringLiteral("交易日"), QStringLiteral("账户"), QStringLiteral("算法"), QStringLiteral("首次时间"),
         QStringLiteral("末次时间"), QStringLiteral("批次数"), QStringLiteral("申报笔数"),
         QStringLiteral("买入金额"), QStringLiteral("卖出金额"), QStringLiteral("每秒峰值"),
         QStringLiteral("峰值时间"), QStringLiteral("每秒%1笔以上的秒数").arg(SomeASecond),
         QStringLiteral("达到高频标准"), QStringLiteral("软件名称"), QStringLiteral("软件版本")}};
    for (const Count& count : counts) {
        const QString strategy =
            count.strategy == QLatin1String("*") ? QStringLiteral("全部") : count.strategy;
        rows.append({day.toString(Qt::ISODate), count.account, strategy, shown(count.first),
                     shown(count.last), QString::number(count.batches), QString::number(count.orders),
                     count.buy.text(), count.sell.text(), QString::number(count.peak), shown(count.peakAt),
                     QString::number(count.busySeconds),
                     count.isHighFrequency() ? QStringLiteral("是") : QStringLiteral("否"), software,
                     version});
    }
    return rows;
}

} // namespace day_report
