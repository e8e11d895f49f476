#include "atdl/Values.h"

#include "tests/support/Text.h"

#include <gtest/gtest.h>

using namespace atdl;

TEST(AtdlValues, AHundredfoldLosesNoDigit)
{
    EXPECT_EQ(hundredfold("0.15"_s), "15"_s);
    EXPECT_EQ(hundredfold("0.015"_s), "1.5"_s);
    EXPECT_EQ(hundredfold("1"_s), "100"_s);
    EXPECT_EQ(hundredfold(".5"_s), "50"_s);
    EXPECT_EQ(hundredfold("0"_s), "0"_s);
    EXPECT_EQ(hundredfold("-0.25"_s), "-25"_s);
    EXPECT_EQ(hundredfold("0.1234567890123456789"_s), "12.34567890123456789"_s);
}

TEST(AtdlValues, TimesOfAZoneWithoutSummerTimeAreShanghais)
{
    EXPECT_EQ(inShanghai(QTime(15, 57), "Asia/Tokyo"_s), QTime(14, 57));
    EXPECT_EQ(inShanghai(QTime(23, 30), "UTC"_s), QTime(7, 30));
    EXPECT_FALSE(inShanghai(QTime(9, 30), "America/New_York"_s).isValid()) << "it depends on the day";
    EXPECT_FALSE(inShanghai(QTime(9, 30), "Middle/Earth"_s).isValid());
}

TEST(AtdlValues, ReadsTimesAndDays)
{
    bool isUtc = false;
    EXPECT_EQ(timeOf("09:30:00"_s, isUtc), QTime(9, 30));
    EXPECT_FALSE(isUtc);
    EXPECT_EQ(timeOf("09:30:00.500Z"_s, isUtc), QTime(9, 30, 0, 500));
    EXPECT_TRUE(isUtc);
    EXPECT_FALSE(timeOf("morning"_s, isUtc).isValid());
    EXPECT_EQ(dateOf("20261123"_s), QDate(2026, 11, 23));
    EXPECT_EQ(dateOf("2026-11-23"_s), QDate(2026, 11, 23));
}
