#include "embedded_host/reference_data/Calendar.h"

#include <algorithm>

namespace {

const QString AllExchanges = QStringLiteral("*");
constexpr int ShanghaiOffset = 8 * 3600;

bool isWeekend(const QDate& date)
{
    return date.dayOfWeek() >= Qt::Saturday;
}

bool isNight(const Calendar::Session& session)
{
    return session.endsNextDay() || session.from >= QTime(18, 0);
}

/// Sessions of the day itself, and those that run into the next one, are looked at apart: nobody rests
/// between an afternoon and a night.
bool isWithin(const QList<Calendar::Session>& sessions, const QTime& time)
{
    QTime first;
    QTime last;
    for (const Calendar::Session& session : sessions) {
        if (isNight(session)) {
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

/// The day behind one that is neither weekend nor closed; the calendar may end before.
QDate Calendar::nextOpenDay(const QString& exchange, const QDate& date) const
{
    constexpr int Longest = 30; // days that a market rests
    QDate next = date.addDays(1);
    for (int i = 0; i < Longest && (isWeekend(next) || day(exchange, next).state == State::Closed); ++i) {
        next = next.addDays(1);
    }
    return next;
}

/// Those that take place: none at night before a day on which the market would trade but for a holiday.
QList<Calendar::Session> Calendar::sessionsOf(const QString& exchange, const QDate& date, bool bondRepo) const
{
    QList<Session> sessions = day(exchange, date, bondRepo).sessions;
    QDate next = date.addDays(1);
    while (isWeekend(next)) {
        next = next.addDays(1);
    }
    if (day(exchange, next, bondRepo).state == State::Closed) {
        sessions.erase(std::remove_if(sessions.begin(), sessions.end(), isNight), sessions.end());
    }
    return sessions;
}

bool Calendar::isWithinHours(const QString& exchange, const QDateTime& time, bool bondRepo) const
{
    if (day(exchange, time.date(), bondRepo).state == State::Unknown) {
        return true;
    }
    return isWithin(sessionsOf(exchange, time.date(), bondRepo), time.time()) ||
           reachesIntoNextDay(sessionsOf(exchange, time.date().addDays(-1), bondRepo), time.time());
}

bool Calendar::tradesWithin(const QString& exchange, const QDateTime& from, const QDateTime& to,
                            bool bondRepo) const
{
    if (from.date() != to.date() || day(exchange, from.date(), bondRepo).state == State::Unknown) {
        return true;
    }
    if (reachesIntoNextDay(sessionsOf(exchange, from.date().addDays(-1), bondRepo), from.time())) {
        return true;
    }
    const QList<Session> sessions = sessionsOf(exchange, from.date(), bondRepo);
    return std::any_of(sessions.begin(), sessions.end(), [&](const Session& session) {
        return session.from < to.time() && (session.endsNextDay() || from.time() < session.to);
    });
}

QDate Calendar::lastDayOf(const QString& exchange, const QDateTime& start) const
{
    const QList<Session> sessions = sessionsOf(exchange, start.date(), false);
    const bool isAtNight = std::any_of(sessions.begin(), sessions.end(), [&](const Session& session) {
        return isNight(session) && start.time() >= session.from;
    });
    return isAtNight ? nextOpenDay(exchange, start.date()) : start.date();
}

QDateTime exchangeTime(const QDateTime& moment)
{
    return moment.toOffsetFromUtc(ShanghaiOffset);
}
