#include "embedded_host/reference_data/Calendar.h"

#include "embedded_host/reference_data/CalendarFile.h"
#include "tests/support/Text.h"

#include <gtest/gtest.h>

#include <QFile>
#include <QTemporaryDir>

namespace {

QDateTime at(const char* text)
{
    return QDateTime::fromString(QString::fromLatin1(text), "yyyy-MM-dd HH:mm:ss"_s);
}

const Calendar& shipped()
{
    static const Calendar calendar = [] {
        const Outcome<Calendar> read = readCalendar(QStringLiteral(REFERENCE_FOLDER));
        EXPECT_EQ("", read.error.toStdString());
        return read.value;
    }();
    return calendar;
}

QString errorOf(const QByteArray& csv)
{
    QTemporaryDir folder;
    QFile file(folder.filePath("calendar.csv"_s));
    EXPECT_TRUE(file.open(QIODevice::WriteOnly));
    file.write(csv);
    file.close();
    return readCalendar(folder.path()).error.section(QLatin1Char('/'), -1);
}

} // namespace

TEST(CalendarTest, KnowsNothingWithoutRows)
{
    const Calendar calendar;
    EXPECT_EQ(Calendar::State::Unknown, calendar.day("SH"_s, QDate(2026, 11, 23)).state);
    EXPECT_TRUE(calendar.isWithinHours("SH"_s, at("2026-11-23 03:00:00")));
}

TEST(CalendarTest, ClosesWeekendsAndHolidays)
{
    EXPECT_EQ(Calendar::State::Open, shipped().day("SH"_s, QDate(2026, 11, 23)).state);
    EXPECT_EQ(Calendar::State::Closed, shipped().day("SH"_s, QDate(2026, 11, 22)).state);
    EXPECT_EQ(Calendar::State::Closed, shipped().day("CFE"_s, QDate(2026, 10, 7)).state);
    EXPECT_EQ(Calendar::State::Open, shipped().day("CFE"_s, QDate(2026, 10, 8)).state);
    EXPECT_EQ("国庆节"_s, shipped().day("SZ"_s, QDate(2026, 10, 1)).note);
    EXPECT_EQ(Calendar::State::Closed, shipped().day("HKSH"_s, QDate(2026, 7, 1)).state);
    EXPECT_EQ(Calendar::State::Open, shipped().day("SH"_s, QDate(2026, 7, 1)).state);
    EXPECT_FALSE(shipped().day("SH"_s, QDate(2026, 2, 16)).invented);
    EXPECT_TRUE(shipped().day("SH"_s, QDate(2027, 2, 8)).invented);
    EXPECT_EQ(Calendar::State::Unknown, shipped().day("SH"_s, QDate(2028, 1, 4)).state);
}

/// The second at which a session begins and ends belongs to it, the one before and behind it does not.
TEST(CalendarTest, HoursBeginAndEndOnTheSecond)
{
    const auto within = [](const char* exchange, const char* time, bool repo = false) {
        return shipped().isWithinHours(QString::fromLatin1(exchange), at(time), repo);
    };
    EXPECT_FALSE(within("SH", "2026-11-23 09:14:59"));
    EXPECT_TRUE(within("SH", "2026-11-23 09:15:00"));
    EXPECT_TRUE(within("SH", "2026-11-23 12:00:00")) << "a rest between sessions";
    EXPECT_TRUE(within("SH", "2026-11-23 15:00:00"));
    EXPECT_FALSE(within("SH", "2026-11-23 15:00:01"));
    EXPECT_TRUE(within("SH", "2026-11-23 15:30:00", true));
    EXPECT_FALSE(within("SH", "2026-11-23 15:30:01", true));
    EXPECT_FALSE(within("SH", "2026-11-22 10:00:00")) << "a Sunday";
    EXPECT_FALSE(within("SH", "2026-10-01 10:00:00", true)) << "a holiday closes repurchases too";
}

TEST(CalendarTest, ANightSessionBelongsToTheEveningOnWhichItBegins)
{
    const auto within = [](const char* time) { return shipped().isWithinHours("SHF"_s, at(time)); };
    EXPECT_FALSE(within("2026-11-20 18:00:00")) << "nobody rests between afternoon and night";
    EXPECT_TRUE(within("2026-11-20 20:55:00"));
    EXPECT_TRUE(within("2026-11-21 02:30:00")) << "Saturday morning, of Friday's night";
    EXPECT_FALSE(within("2026-11-21 02:30:01"));
    EXPECT_FALSE(within("2026-11-23 01:00:00")) << "Sunday has no night";
    EXPECT_TRUE(within("2026-11-24 01:00:00"));
}

TEST(CalendarTest, BeforeAHolidayThereIsNoNight)
{
    const auto within = [](const char* time) { return shipped().isWithinHours("SHF"_s, at(time)); };
    EXPECT_TRUE(within("2026-09-28 21:00:00"));
    EXPECT_FALSE(within("2026-09-30 21:00:00")) << "the eve of 国庆节";
    EXPECT_FALSE(within("2026-10-01 01:00:00"));
    EXPECT_FALSE(within("2026-02-13 21:00:00")) << "a Friday, and Monday is closed";
    EXPECT_TRUE(within("2026-11-20 21:00:00")) << "a Friday like others";
    EXPECT_TRUE(within("2026-09-30 14:59:00"));
}

TEST(CalendarTest, KnowsWhetherAMarketTradesBetweenTwoMoments)
{
    const auto trades = [](const char* market, const char* from, const char* to) {
        return shipped().tradesWithin(QString::fromLatin1(market), at(from), at(to));
    };
    EXPECT_FALSE(trades("SH", "2026-11-23 11:30:00", "2026-11-23 13:00:00"));
    EXPECT_TRUE(trades("SH", "2026-11-23 11:29:59", "2026-11-23 12:00:00"));
    EXPECT_TRUE(trades("SH", "2026-11-23 12:00:00", "2026-11-23 13:00:01"));
    EXPECT_TRUE(trades("SHF", "2026-11-23 22:00:00", "2026-11-23 23:30:00"));
    EXPECT_TRUE(trades("SHF", "2026-11-24 01:00:00", "2026-11-24 02:00:00"));
    EXPECT_TRUE(trades("SH", "2030-01-01 01:00:00", "2030-01-01 02:00:00")) << "an unknown day";
}

TEST(CalendarTest, WhatBeginsAtNightMayEndOnTheNextDayOfTrade)
{
    const auto last = [](const char* market, const char* start) {
        return shipped()
            .lastDayOf(QString::fromLatin1(market), at(start))
            .toString(Qt::ISODate)
            .toStdString();
    };
    EXPECT_EQ("2026-11-23", last("SH", "2026-11-23 09:35:00"));
    EXPECT_EQ("2026-11-23", last("SHF", "2026-11-23 14:00:00"));
    EXPECT_EQ("2026-11-24", last("SHF", "2026-11-23 21:00:00"));
    EXPECT_EQ("2026-11-23", last("SHF", "2026-11-20 21:00:00")) << "over the weekend";
    EXPECT_EQ("2026-09-30", last("SHF", "2026-09-30 21:00:00")) << "no night";
}

TEST(CalendarTest, AFaultNamesFileLineAndColumn)
{
    const QByteArray head = "exchange,from,to,sessions,bondRepo\n";
    EXPECT_EQ("", errorOf(head + "SH,2026-01-01,2026-01-02,09:15-15:00,0\n").toStdString());
    EXPECT_EQ("calendar.csv:2: from 应为 yyyy-MM-dd 的日期：20260101",
              errorOf(head + "SH,20260101,2026-01-02,,0\n").toStdString());
    EXPECT_EQ("calendar.csv:2: sessions 应为 HH:mm-HH:mm，多段以竖线分隔，至多 8 段：9-15",
              errorOf(head + "SH,2026-01-01,2026-01-02,9-15,0\n").toStdString());
    EXPECT_NE("", errorOf(head + "SH,2026-01-01,2026-01-02," + QByteArray("09:15-15:00|").repeated(8) +
                          "09:15-15:00,0\n")
                      .toStdString());
    EXPECT_NE("", errorOf(head + "SH,2026-01-02,2026-01-01,,0\n").toStdString());
    EXPECT_NE("", errorOf(head + "SH,1000-01-01,9999-01-01,,0\n").toStdString());
    EXPECT_NE("", errorOf(head + QByteArray("SH,2026-01-01,2026-01-02,,0\n").repeated(5001)).toStdString());
}
