#include "embedded_host/reference_data/Calendar.h"

#include <algorithm>

namespace {

const QString AllExchanges = QStringLiteral("*");
constexpr int ShanghaiOffset = 8 * 3600;

bool isWeekend(const QDate& date)
{
    return date.dayOfWeek() >= Qt::Saturday;
}

/// Sessions of the day itself, and those that run into the next one, are looked at apart: nobody rests
/// between an afternoon and a night.
bool isWithin(const QList<Calendar::Session>& sessions, const QTime& time)
{
    QTime first;
    QTime last;
    for (const Calendar::Session& session : sessions) {
        const bool isNight = session.endsNextDay() || session.from >= QTime(18, 0);
        if (isNight) {
            if (time >= session.from && (session.endsNextDay() || time <= session.to)) {
                return true;
            }
            continue;
        }
        first = first.isValid() ? std::min(first, session.from) : session.from;
        last = last.isValid() ? std::max(last, session.to) : session.to;
    }
    return first.isValid() && time >= first && time <= last;
}

bool reachesIntoNextDay(const QList<Calendar::Session>& sessions, const QTime& time)
{
    return std::any_of(sessions.begin(), sessions.end(), [&](const Calendar::Session& session) {
        return session.endsNextDay() && time <= session.to;
    });
}

} // namespace

Calendar::Calendar(const QList<Row>& rows)
{
    for (const Row& row : rows) {
        if (row.exchange != AllExchanges && !mRows.contains(row.exchange)) {
            mRows.insert(row.exchange, {});
        }
    }
    for (const Row& row : rows) {
        if (row.exchange != AllExchanges) {
            mRows[row.exchange].append(row);
            continue;
        }
        mGeneral.append(row);
        for (QList<Row>& ofExchange : mRows) {
            ofExchange.append(row);
        }
    }
}

const Calendar::Row* Calendar::rowOf(const QString& exchange, const QDate& date, bool bondRepo) const
{
    const auto known = mRows.constFind(exchange);
    const QList<Row>& rows = known == mRows.constEnd() ? mGeneral : *known;
    const Row* found = nullptr;
    for (const Row& row : rows) {
        const bool covers = date >= row.from && date <= row.to && (bondRepo || !row.bondRepo);
        // an ordinary row of sessions does not take back those of the repurchases; a holiday does
        const bool yields = found != nullptr && found->bondRepo && !row.bondRepo && !row.sessions.isEmpty();
        if (covers && !yields) {
            found = &row;
        }
    }
    return found;
}

Calendar::Day Calendar::day(const QString& exchange, const QDate& date, bool bondRepo) const
{
    const Row* row = rowOf(exchange, date, bondRepo);
    if (row == nullptr) {
        return {};
    }
    if (isWeekend(date)) {
        return {State::Closed, {}, false, {}};
    }
    return {row->sessions.isEmpty() ? State::Closed : State::Open, row->sessions, row->invented, row->note};
}

bool Calendar::isWithinHours(const QString& exchange, const QDateTime& time, bool bondRepo) const
{
    const Day today = day(exchange, time.date(), bondRepo);
    if (today.state == State::Unknown) {
        return true;
    }
    return isWithin(today.sessions, time.time()) ||
           reachesIntoNextDay(day(exchange, time.date().addDays(-1), bondRepo).sessions, time.time());
}

QDateTime exchangeTime(const QDateTime& moment)
{
    return moment.toOffsetFromUtc(ShanghaiOffset);
}
