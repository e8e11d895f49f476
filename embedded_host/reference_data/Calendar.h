#pragma once

#include <QDateTime>
#include <QHash>
#include <QList>
#include <QString>

/// When markets trade: days and sessions, as the reference data tells them. An immutable value that a test
/// makes by hand:
///
///     Calendar calendar({{"SH", QDate(2026, 1, 1), QDate(2026, 12, 31), {{QTime(9, 15), QTime(15, 0)}}}});
///     calendar.day("SH", QDate(2026, 11, 22)).state // Closed: a Sunday
class Calendar {
public:
    struct Session {
        QTime from;
        QTime to; ///< before `from`: of the next day
        bool endsNextDay() const { return to < from; }
    };

    /// A row of calendar.csv. Of the rows that cover a market and a day the last one decides.
    struct Row {
        QString exchange; ///< "*": all
        QDate from;
        QDate to;
        QList<Session> sessions; ///< empty: closed
        bool bondRepo = false;   ///< of bond repurchases alone, for which it comes before the others
        bool invented = false;   ///< nobody has announced it yet
        QString note;            ///< such as the holiday's name
    };

    enum class State {
        Unknown, ///< no row covers the day
        Closed,
        Open
    };

    struct Day {
        State state = State::Unknown;
        QList<Session> sessions;
        bool invented = false;
        QString note;
    };

    Calendar() = default; ///< knows no day
    explicit Calendar(const QList<Row>& rows);

    /// Saturdays and Sundays are closed on every market that has rows, whatever these say.
    Day day(const QString& exchange, const QDate& date, bool bondRepo = false) const;

    /// Whether the market trades then, or rests between two sessions of the same day. A night session belongs
    /// to the evening on which it begins; before a holiday there is none. True where the calendar does not
    /// know the day.
    bool isWithinHours(const QString& exchange, const QDateTime& time, bool bondRepo = false) const;

    /// Whether the market trades at any moment between two of one day. True where the calendar does not know
    /// the day.
    bool tradesWithin(const QString& exchange, const QDateTime& from, const QDateTime& to,
                      bool bondRepo = false) const;

    /// The day on which what begins then is over at the latest: of a night session the next one that is no
    /// weekend and no holiday, else the day itself.
    QDate lastDayOf(const QString& exchange, const QDateTime& start) const;

private:
    QList<Session> sessionsOf(const QString& exchange, const QDate& date, bool bondRepo) const;
    QDate nextOpenDay(const QString& exchange, const QDate& date) const;
    const Row* rowOf(const QString& exchange, const QDate& date, bool bondRepo) const;

    QHash<QString, QList<Row>> mRows; ///< by exchange, the general ones among each one's
    QList<Row> mGeneral;
};

/// The exchanges' clock: China has one time and no summer time.
QDateTime exchangeTime(const QDateTime& moment);
