#include "embedded_host/table_reader/shared/NumberText.h"

#include <gtest/gtest.h>

#include <limits>
#include <string>

using namespace table_reader;

namespace {

NumberFormat format(const char* code)
{
    return customFormat(QString::fromUtf8(code));
}

std::string date(double serial, DateSystem system = DateSystem::From1900)
{
    return shownNumber(serial, NumberFormat::Date, system).toStdString();
}

std::string iso(const char* text)
{
    return isoDateText(QString::fromLatin1(text)).toStdString();
}

} // namespace

TEST(NumberText, IsTheShortestDecimalThatReadsBackAsTheSame)
{
    EXPECT_EQ("0.1", numberText(0.1).toStdString());
    EXPECT_EQ("0.30000000000000004", numberText(0.1 + 0.2).toStdString());
    EXPECT_EQ("600000", numberText(600000).toStdString());
    EXPECT_EQ("-2.5", numberText(-2.5).toStdString());
}

TEST(NumberText, NeverHasAnExponent)
{
    EXPECT_EQ("123456789012345680", numberText(123456789012345678.0).toStdString());
    EXPECT_EQ("0.000001", numberText(1e-6).toStdString());
    const QString large = numberText(std::numeric_limits<double>::max());
    EXPECT_EQ(309, large.size());
    EXPECT_FALSE(large.contains(QLatin1Char('e')));
    EXPECT_FALSE(numberText(std::numeric_limits<double>::denorm_min()).contains(QLatin1Char('e')));
}

TEST(NumberText, HasNoMinusZero)
{
    EXPECT_EQ("0", numberText(-0.0).toStdString());
}

TEST(NumberText, IsTheTextItselfWhereThatIsCertain)
{
    for (const char* text : {"1", "600000", "-7", "0.5", "-0.25", "100.07", "999999999999999",
                             "0.0000000000001", "9007199254740.1", "-12345678901234"}) {
        const QString stored = QString::fromLatin1(text);
        EXPECT_TRUE(isShortestNumber(QStringRef(&stored))) << text;
        EXPECT_EQ(text, numberText(parseNumber(QStringRef(&stored)).value()).toStdString());
    }
    for (const char* text : {"", "-", "0", "-0", "-0.0", "007", "00.5", "1.", ".5", "-.5", "1.50", "+1", " 1",
                             "1e5", "1.2.3", "0x1", "1234567890123456", "0.30000000000000004"}) {
        const QString stored = QString::fromLatin1(text);
        EXPECT_FALSE(isShortestNumber(QStringRef(&stored))) << text;
    }
}

TEST(NumberText, IsReadBackFromWhatFilesHold)
{
    const auto parsed = [](const char* text) {
        const QString whole = QString::fromUtf8(text);
        return parseNumber(QStringRef(&whole));
    };
    EXPECT_EQ(1.5, parsed(" 1.5 "));
    EXPECT_EQ(1e21, parsed("1E+21"));
    EXPECT_EQ(7.0, parsed("+7"));
    EXPECT_EQ(std::nullopt, parsed("1,5"));
    EXPECT_EQ(std::nullopt, parsed("１"));
    EXPECT_EQ(std::nullopt, parsed("inf"));
    EXPECT_EQ(std::nullopt, parsed("1e999"));
    EXPECT_EQ(std::nullopt, parsed(""));
}

TEST(NumberFormats, OfEveryWorkbookAreDatesByTheirNumber)
{
    for (int number = 0; number < 100; ++number) {
        const bool isDate = (number >= 14 && number <= 22) || (number >= 27 && number <= 36) ||
                            (number >= 45 && number <= 47) || (number >= 50 && number <= 58);
        EXPECT_EQ(isDate, builtInFormat(number) != NumberFormat::Plain) << number;
    }
    EXPECT_EQ(NumberFormat::Time, builtInFormat(20));
    EXPECT_EQ(NumberFormat::Elapsed, builtInFormat(46));
}

TEST(NumberFormats, OfTheWorkbookAreDatesByTheirLetters)
{
    EXPECT_EQ(NumberFormat::Date, format("yyyy\\-mm\\-dd;@"));
    EXPECT_EQ(NumberFormat::Date, format("yyyy\"年\"m\"月\"d\"日\""));
    EXPECT_EQ(NumberFormat::Date, format("[$-804]YYYY/M/D H:MM"));
    EXPECT_EQ(NumberFormat::Date, format("mmm"));
    EXPECT_EQ(NumberFormat::Time, format("h:mm AM/PM"));
    EXPECT_EQ(NumberFormat::Time, format("mm:ss.0"));
    EXPECT_EQ(NumberFormat::Elapsed, format("[h]:mm:ss"));
    EXPECT_EQ(NumberFormat::Elapsed, format("[mm]"));
}

TEST(NumberFormats, OfEasternYearsAndWeekdaysAreDates)
{
    for (const char* const code : {"[$-804]aaaa;@", "aaa", "e\"年\"", "[$-1030000]b", "bbbb", "[$-411]ee"}) {
        EXPECT_EQ(NumberFormat::Date, format(code)) << code;
    }
    for (const char* const code : {"0.00E+00", "##0.0e-0", "0 b", "Geral", "AA", "General\"e\""}) {
        EXPECT_EQ(NumberFormat::Plain, format(code)) << code;
    }
    EXPECT_EQ(NumberFormat::Time, format("h:mm A/P"));
}

TEST(NumberFormats, DoNotBecomeDatesByTextColoursOrLaterSections)
{
    for (const char* const code :
         {"General", "0.00", "#,##0 \"days\"", "[Red]0", "[$HKD] #,##0", "0_d", "0*y", "0\\d", "0;yyyy",
          "[>=100]0", "@", "0.00E+00", "Standard", "", "\"unclosed y", "[unclosed y"}) {
        EXPECT_EQ(NumberFormat::Plain, format(code)) << code;
    }
}

TEST(SerialDates, CountFrom1900WithTheLeapDayThatNeverWas)
{
    EXPECT_EQ("1900-01-01T08:00:00.000", date(1 + 8.0 / 24));
    EXPECT_EQ("1900-02-28T00:00:00.000", date(59));
    EXPECT_EQ("1900-02-29T00:00:00.000", date(60));
    EXPECT_EQ("1900-03-01T00:00:00.000", date(61));
    EXPECT_EQ("2021-01-01T00:00:00.000", date(44197));
    EXPECT_EQ("9999-12-31T00:00:00.000", date(2958465));
}

TEST(SerialDates, CountFrom1904WhereTheWorkbookSaysSo)
{
    EXPECT_EQ("1904-01-01T00:00:00.000", date(0, DateSystem::From1904));
    EXPECT_EQ("2021-01-01T00:00:00.000", date(42735, DateSystem::From1904));
}

TEST(SerialDates, AreRoundedToTheMillisecond)
{
    EXPECT_EQ("2021-01-01T09:30:00.000", date(44197 + 9.5 / 24 - 1e-10));
    EXPECT_EQ("2021-01-02T00:00:00.000", date(44198 - 1e-9));
    EXPECT_EQ("2021-01-01T00:00:00.500", date(44197 + 0.5 / 86400));
}

TEST(SerialDates, StayNumbersWhereNoDayIs)
{
    EXPECT_EQ("-1", date(-1));
    EXPECT_EQ("2958466", date(2958466));
    EXPECT_EQ("2957004", date(2957004, DateSystem::From1904));
}

TEST(TimesOfDay, AreShownWithoutADay)
{
    EXPECT_EQ("09:30:00", shownNumber(9.5 / 24, NumberFormat::Time, DateSystem::From1900).toStdString());
    EXPECT_EQ("09:30:00", shownNumber(9.5 / 24, NumberFormat::Time, DateSystem::From1904).toStdString());
    EXPECT_EQ("2021-01-01T09:30:00.000",
              shownNumber(44197 + 9.5 / 24, NumberFormat::Time, DateSystem::From1900).toStdString());
}

TEST(TimesOfDay, AreNeverAWholeDay)
{
    const double almost = 0.9999999999;
    for (const NumberFormat format : {NumberFormat::Time, NumberFormat::Date}) {
        EXPECT_EQ("23:59:59", shownNumber(almost, format, DateSystem::From1900).toStdString());
    }
    EXPECT_EQ("24:00:00", shownNumber(almost, NumberFormat::Elapsed, DateSystem::From1900).toStdString());
    EXPECT_EQ("23:59:59", iso("23:59:59.9999"));
}

TEST(TimesOfDay, RunOnBeyondADayWhereTheFormatSaysSo)
{
    EXPECT_EQ(
        "34:10:10",
        shownNumber((34 * 3600 + 610) / 86400.0, NumberFormat::Elapsed, DateSystem::From1900).toStdString());
}

TEST(IsoDates, AreBroughtIntoTheReadersForm)
{
    EXPECT_EQ("2021-01-01T00:00:00.000", iso("2021-01-01"));
    EXPECT_EQ("2021-01-01T10:10:10.500", iso("2021-01-01T10:10:10.5"));
    EXPECT_EQ("2021-01-01T10:10:00.000", iso("2021-01-01T10:10Z"));
    EXPECT_EQ("10:10:10", iso("10:10:10"));
    EXPECT_EQ("2021-01-02T00:00:00.000", iso("2021-01-01T23:59:59.9999"));
    EXPECT_EQ("2021-13-01", iso("2021-13-01"));
    EXPECT_EQ("tomorrow", iso("tomorrow"));
    EXPECT_EQ("2021-01-01T00:00:00.000", iso("  2021-01-01 "));
    EXPECT_EQ("10:10:10.00000000000000000000000000000000000000000000000000",
              iso("10:10:10.00000000000000000000000000000000000000000000000000"));
}
