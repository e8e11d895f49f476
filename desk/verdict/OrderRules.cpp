#include "desk/verdict/OrderRules.h"

#include "host/AlgoConstants.h"
#include "strategy/ColumnNames.h"
#include "table/FaultCatalogue.h"
#include "table/GuardRules.h"
#include "words/Words.h"

#include <QMap>
#include <QPair>
#include <QSet>

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
const QString& Start = Algo_Fields::AlgoInstContentInfo::AlgoStartTime;
const QString& End = Algo_Fields::AlgoInstContentInfo::AlgoEndTime;

/// Titles under which a file may name an account, though the import reads none.
const QStringList& accountTitles()
{
    static const QStringList titles =
        QStringLiteral("交易账号 资金账号 账号 账户 交易账户 资金账户 账户名称 资产账号 account")
            .split(QLatin1Char(' '));
    return titles;
}

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
            checkAccount(i + 1);
            checkTimes(i + 1, instance);
            checkDirections(i + 1, instance);
            checkMoney(i + 1, instance);
            checkRates(i + 1, instance);
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

    QString typed(int row, const QString& column) const
    {
        return mOrders.typed ? mOrders.typed(row, column) : QString();
    }

    void checkAccount(int row)
    {
        for (const QString& title : mOrders.isAccount ? accountTitles() : QStringList()) {
            const QString named = typed(row, title).trimmed();
            if (!named.isEmpty() && named != mOrders.draft.account && named != mOrders.accountName &&
                mOrders.isAccount(named)) {
                return add(rule::OtherAccount, row, title, {named, mOrders.draft.account});
            }
        }
    }

    void checkTimes(int row, const InstanceDraft& instance)
    {
        const QDateTime start = asExchangeTime(instance.start);
        const QDateTime end = asExchangeTime(instance.end);
        const bool typedStart = !typed(row, Start).isEmpty();
        const bool typedEnd = !typed(row, End).isEmpty();
        if (start.isValid() && start == end) {
            add(rule::NoTime, row, End);
        }
        if (end.isValid() && end <= mNow) {
            add(rule::EndIsPast, row, End, {shown(end)});
        }
        if (typedStart && start.isValid() && start < mNow) {
            add(rule::StartIsPast, row, Start, {shown(start)});
        }
        const int found = mFaults.size();
        checkMoment(row, instance, start, Start, typedStart);
        checkMoment(row, instance, end, End, typedEnd);
        if (typedEnd && start.isValid() && start < end && mFaults.size() == found) {
            checkSpan(row, instance, start, end);
        }
    }

    /// Both ends are sound by themselves.
    void checkSpan(int row, const InstanceDraft& instance, const QDateTime& start, const QDateTime& end)
    {
        if (start.secsTo(end) < ShortSeconds) {
            return add(rule::ShortTime, row, End, {QString::number(start.secsTo(end))});
        }
        for (const Leg& leg : instance.legs) {
            if (end.date() > mOrders.calendar.lastDayOf(leg.exchange, start)) {
                return add(rule::SeveralDays, row, End,
                           {start.date().toString(Qt::ISODate), end.date().toString(Qt::ISODate)});
            }
            if (!mOrders.calendar.tradesWithin(leg.exchange, start, end, isRepo(leg))) {
                return add(rule::OutsideHours, row, Start, {shown(start), leg.exchange});
            }
        }
    }

    bool isRepo(const Leg& leg) const { return mOrders.isBondRepo && mOrders.isBondRepo(leg.symbol); }

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
            if (mOrders.calendar.isWithinHours(leg.exchange, time, isRepo(leg))) {
                continue;
            }
            const Calendar::Day day = mOrders.calendar.day(leg.exchange, time.date(), isRepo(leg));
            if (day.state == Calendar::State::Closed) {
                const QString why = day.note.isEmpty() ? Words::tr("周末") : day.note;
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

    void checkRates(int row, const InstanceDraft& instance)
    {
        for (const Leg& leg : instance.legs) {
            const Decimal last = isRepo(leg) && mOrders.lastRate ? mOrders.lastRate(leg.symbol) : Decimal();
            const bool isOdd =
                leg.limitPrice > last * Decimal(RateFactor) || leg.limitPrice * Decimal(RateFactor) < last;
            if (last > 0 && leg.limitPrice > 0 && isOdd) {
                return add(rule::OddRateOfDay, row, Algo_Fields::AlgoInstContentInfo::PriceLimits,
                           {leg.limitPrice.text(), last.text()});
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
            QSet<QPair<QDateTime, QDateTime>> times;
        };
        QMap<QString, Pair> pairs;
        for (int i = 0; i < mOrders.draft.instances.size(); ++i) {
            const InstanceDraft& instance = mOrders.draft.instances.at(i);
            const QString number = pairNumberOf(instance);
            if (!number.isEmpty()) {
                pairs[number].rows.append(i + 1);
                pairs[number].legs += instance.legs;
                pairs[number].times.insert({instance.start, instance.end});
            }
        }
        for (auto pair = pairs.cbegin(); pair != pairs.cend(); ++pair) {
            const bool isHalf = pair->legs.size() < 2;
            const QString fault = isHalf                   ? rule::HalfPair
                                  : isOneSided(pair->legs) ? rule::OneSide
                                  : pair->times.size() > 1 ? rule::PairTimes
                                                           : QString();
            for (const int row : fault.isEmpty() ? QList<int>() : pair->rows) {
                add(fault, row, PairNumber, {pair.key()});
            }
        }
    }

    const Orders& mOrders;
    const QDateTime mNow;
    table::Faults mFaults;
};

} // namespace

QString pairNumberOf(const ledger::InstanceDraft& instance)
{
    const QString number = instance.parameters.value(PairNumber).toString(); // as it is sent
    return number.trimmed().isEmpty() ? QString() : number;
}

table::Faults faultsOfOrders(const Orders& orders)
{
    return OrderCheck(orders).run();
}

} // namespace verdict
