#include "desk/verdict/OrderRules.h"

#include "host/AlgoConstants.h"
#include "strategy/ColumnNames.h"
#include "table/FaultCatalogue.h"
#include "table/GuardRules.h"

#include <QMap>

#include <algorithm>

namespace verdict {

namespace rule = table::rule;
using ledger::BatchDraft;
using ledger::Decimal;
using ledger::InstanceDraft;
using ledger::Leg;

namespace {

/// CNY, where limits.csv names none.
constexpr int MoneyLikeAmount = 100000000;
constexpr int ShanghaiOffset = 8 * 3600;

const QString PairNumber = QStringLiteral("配对编号");

QString shown(const QDateTime& time)
{
    return time.toString(QStringLiteral("yyyy-MM-dd HH:mm:ss"));
}

/// What a file says is the exchanges' time, whatever the machine's zone.
QDateTime asExchangeTime(const QDateTime& wallClock)
{
    return wallClock.isValid()
               ? QDateTime(wallClock.date(), wallClock.time(), Qt::OffsetFromUTC, ShanghaiOffset)
               : QDateTime();
}

class OrderCheck {
public:
    explicit OrderCheck(const Orders& orders) : mOrders(orders), mNow(exchangeTime(orders.now)) {}

    table::Faults run()
    {
        for (int i = 0; i < mOrders.draft.instances.size(); ++i) {
            const InstanceDraft& instance = mOrders.draft.instances.at(i);
            checkTimes(i + 1, instance);
            checkDirections(i + 1, instance);
            checkMoney(i + 1, instance);
            checkLegs(i + 1, instance);
        }
        checkPairs();
        return mFaults;
    }

private:
    void add(const QString& name, int row, const QString& column, const QStringList& arguments = {})
    {
        table::Fault fault = table::fault(name, arguments);
        fault.row = row;
        fault.column = column;
        mFaults.append(fault);
    }

    QString typed(int row, const QStringList& titles) const
    {
        return mOrders.typed ? mOrders.typed(row, titles) : QString();
    }

    void checkTimes(int row, const InstanceDraft& instance)
    {
        const QDateTime start = asExchangeTime(instance.start);
        const QDateTime end = asExchangeTime(instance.end);
        const bool typedStart = !typed(row, startTitles()).isEmpty();
        const bool typedEnd = !typed(row, endTitles()).isEmpty();
        if (start.isValid() && start == end) {
            add(rule::NoTime, row, endTitles().first());
        }
        if (end.isValid() && end <= mNow) {
            add(rule::EndIsPast, row, endTitles().first(), {shown(end)});
        }
        if (typedStart && start.isValid() && start < mNow) {
            add(rule::StartIsPast, row, startTitles().first(), {shown(start)});
        }
        checkMoment(row, instance, start, startTitles().first(), typedStart);
        checkMoment(row, instance, end, endTitles().first(), typedEnd);
    }

    /// One that the import filled in is today's; of it nothing but the day is asked.
    void checkMoment(int row, const InstanceDraft& instance, const QDateTime& time, const QString& column,
                     bool isTyped)
    {
        if (!time.isValid()) {
            return;
        }
        if (mNow.daysTo(time) > FarDays) {
            add(rule::FarAhead, row, column, {shown(time), QString::number(mNow.daysTo(time))});
        }
        if (isTyped && time.time() == QTime(0, 0)) {
            add(rule::DateOnly, row, column, {column});
            return;
        }
        checkMarkets(row, instance, time, column, isTyped);
    }

    void checkMarkets(int row, const InstanceDraft& instance, const QDateTime& time, const QString& column,
                      bool isTyped)
    {
        for (const Leg& leg : instance.legs) {
            const bool isRepo = mOrders.isBondRepo && mOrders.isBondRepo(leg.symbol);
            if (mOrders.calendar.isWithinHours(leg.exchange, time, isRepo)) {
                continue;
            }
            const Calendar::Day day = mOrders.calendar.day(leg.exchange, time.date(), isRepo);
            if (day.state == Calendar::State::Closed) {
                const QString why = day.note.isEmpty() ? QStringLiteral("周末") : day.note;
                return add(rule::ClosedDay, row, column,
                           {leg.exchange, time.date().toString(QStringLiteral("yyyy-MM-dd")), why});
            }
            if (isTyped) {
                return add(rule::OutsideHours, row, column, {shown(time), leg.exchange});
            }
        }
    }

    void checkDirections(int row, const InstanceDraft& instance)
    {
        const QString& column = Algo_Values::AlgoParamId::traderOrder;
        const QStringList& columns = mOrders.draft.table.columns;
        if (!columns.contains(column) && !columns.contains(columns::OrderDirection)) {
            return;
        }
        for (const Leg& leg : instance.legs) {
            if (leg.direction.isEmpty()) {
                return add(rule::NoDirection, row, column);
            }
            const bool opensOrCloses = leg.direction.endsWith(QLatin1String("Open")) ||
                                       leg.direction.endsWith(QLatin1String("Close"));
            if (mOrders.isFutures && !opensOrCloses) {
                return add(rule::ForeignDirection, row, column, {leg.direction});
            }
        }
    }

    void checkMoney(int row, const InstanceDraft& instance)
    {
        const Decimal reason =
            mOrders.limits.moneyLikeAmount.value_or(MoneyLikeAmount) * Decimal(MoneyFactor);
        for (const Leg& leg : instance.legs) {
            if (leg.typedAmount == 0 && leg.quantity > 0 && leg.amount >= reason) {
                return add(rule::QuantityIsMoney, row, Algo_Fields::AlgoInstContentInfo::Quantity,
                           {leg.quantity.shown(0), leg.amount.shown(0)});
            }
        }
    }

    /// The two legs of a lock.
    void checkLegs(int row, const InstanceDraft& instance)
    {
        if (instance.legs.size() == 2 && isOneSided(instance.legs)) {
            add(rule::OneSide, row, Algo_Values::AlgoParamId::traderOrder, {instance.legs.first().symbol});
        }
    }

    static bool isOneSided(const QList<Leg>& legs)
    {
        const auto onlyBuys = [](const Leg& leg) { return leg.hasKnownSide() && !leg.sells(); };
        const auto onlySells = [](const Leg& leg) { return leg.hasKnownSide() && !leg.buys(); };
        return std::all_of(legs.begin(), legs.end(), onlyBuys) ||
               std::all_of(legs.begin(), legs.end(), onlySells);
    }

    /// Rows that one number binds.
    void checkPairs()
    {
        struct Pair {
            QList<int> rows;
            QList<Leg> legs;
        };
        QMap<QString, Pair> pairs;
        for (int i = 0; i < mOrders.draft.instances.size(); ++i) {
            const InstanceDraft& instance = mOrders.draft.instances.at(i);
            const QString number = instance.parameters.value(PairNumber).toString().trimmed();
            if (!number.isEmpty()) {
                pairs[number].rows.append(i + 1);
                pairs[number].legs += instance.legs;
            }
        }
        for (auto pair = pairs.cbegin(); pair != pairs.cend(); ++pair) {
            const bool isHalf = pair->legs.size() < 2;
            if (isHalf || isOneSided(pair->legs)) {
                for (const int row : pair->rows) {
                    add(isHalf ? rule::HalfPair : rule::OneSide, row, PairNumber, {pair.key()});
                }
            }
        }
    }

    const Orders& mOrders;
    const QDateTime mNow;
    table::Faults mFaults;
};

} // namespace

const QStringList& startTitles()
{
    static const QStringList titles = {QStringLiteral("开始时间"), QStringLiteral("算法开始时间")};
    return titles;
}

const QStringList& endTitles()
{
    static const QStringList titles = {QStringLiteral("结束时间"), QStringLiteral("算法过期时间")};
    return titles;
}

table::Faults faultsOfOrders(const Orders& orders)
{
    return OrderCheck(orders).run();
}

} // namespace verdict
