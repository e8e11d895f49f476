#include "tests/ledger/SampleDrafts.h"

#include <gtest/gtest.h>

#include <limits>
#include <random>

using namespace ledger;

TEST(Decimal, ReadsTextsAndWritesThemInOneForm)
{
    const QList<QPair<QString, QString>> cases{
        {"0"_s, "0"_s},
        {"-0"_s, "0"_s},
        {"10.50"_s, "10.5"_s},
        {" 7 "_s, "7"_s},
        {"+1.5"_s, "1.5"_s},
        {".5"_s, "0.5"_s},
        {"5."_s, "5"_s},
        {"-0.01"_s, "-0.01"_s},
        {"1e3"_s, "1000"_s},
        {"1.5E-3"_s, "0.0015"_s},
        {"0e9999"_s, ""_s},
        {"000120"_s, "120"_s},
        {"12345678901234567890.123456789"_s, "12345678901234567890.123456789"_s}};
    for (const auto& [given, wanted] : cases) {
        EXPECT_EQ(Decimal::fromText(given).text(), wanted) << given.toStdString();
    }
}

TEST(Decimal, IsNoneWhereATextIsNoNumberOrTooLong)
{
    for (const QString& text : {""_s, "-"_s, "."_s, "1,000"_s, "1e"_s, "1e5x"_s, "nan"_s, "inf"_s, "1.2.3"_s,
                                "１"_s, "0x10"_s, QString(60, QLatin1Char('9')), "1e300"_s, "1e-300"_s}) {
        EXPECT_FALSE(Decimal::fromText(text).isNumber()) << text.toStdString();
    }
}

TEST(Decimal, OfADoubleIsItsShortestText)
{
    EXPECT_EQ(Decimal::fromDouble(0.1), 0.1_d);
    EXPECT_EQ(Decimal::fromDouble(1e15), 1000000000000000);
    EXPECT_EQ(Decimal::fromDouble(12.34).toDouble(), 12.34);
    EXPECT_FALSE(Decimal::fromDouble(std::numeric_limits<double>::quiet_NaN()).isNumber());
    EXPECT_FALSE(Decimal::fromDouble(std::numeric_limits<double>::infinity()).isNumber());
}

TEST(Decimal, AddsAndMultipliesExactly)
{
    EXPECT_EQ(0.1_d + 0.2_d, 0.3_d);
    EXPECT_EQ(10.10_d * 300, 3030);
    EXPECT_EQ((0.1_d - 0.3_d).text(), "-0.2"_s);
    EXPECT_EQ((-0.5_d).abs(), 0.5_d);
}

TEST(Decimal, BecomesNoneWhereAResultDoesNotFit)
{
    const Decimal large = Decimal::fromText(QString(30, QLatin1Char('9')));
    EXPECT_TRUE(large.isNumber());
    EXPECT_FALSE((large * large).isNumber());
    EXPECT_FALSE((large + Decimal::none()).isNumber());
}

TEST(Decimal, ThatIsNoneComparesWithNothing)
{
    const Decimal none = Decimal::none();
    EXPECT_FALSE(none == none);
    EXPECT_FALSE(none <= 1);
    EXPECT_FALSE(none >= 1);
    EXPECT_FALSE(none > 1);
    EXPECT_TRUE(none != 1);
}

TEST(Decimal, ComparesNumbersOfDifferentLengths)
{
    EXPECT_LT(1.1_d, 1.2_d);
    EXPECT_GT(1000000000000000000_d, 0.000000000000000000000000000000000001_d);
    EXPECT_LT(-1000000000000000000_d, 0.000000000000000000000000000000000001_d);
}

TEST(Decimal, IsRoundedHalfAwayFromZeroAndShownInGroups)
{
    EXPECT_EQ((1234567.005_d).shown(2), "1,234,567.01"_s);
    EXPECT_EQ((-1234.5_d).shown(0), "-1,235"_s);
    EXPECT_EQ(Decimal(999).shown(2), "999.00"_s);
    EXPECT_EQ(Decimal(0).shown(2), "0.00"_s);
    EXPECT_EQ((2.449_d).rounded(1), 2.4_d) << "rounded once, not digit by digit";
}

TEST(Decimal, KnowsWholeNumbersAndMultiples)
{
    EXPECT_TRUE(Decimal(30000).isMultipleOf(10000));
    EXPECT_FALSE((30000.5_d).isMultipleOf(10000));
    EXPECT_FALSE(Decimal::none().isWhole());
}

/// Against whole numbers of cents, which 64 bits hold.
TEST(Decimal, AgreesWithIntegersOnRandomSums)
{
    std::mt19937_64 random(20251103);
    std::uniform_int_distribution<qint64> cents(-1000000000000, 1000000000000);
    for (int i = 0; i < 2000; ++i) {
        const qint64 a = cents(random);
        const qint64 b = cents(random);
        const Decimal hundredth = 0.01_d;
        EXPECT_EQ(Decimal(a) * hundredth + Decimal(b) * hundredth, Decimal(a + b) * hundredth);
        EXPECT_EQ(Decimal(a) * hundredth < Decimal(b) * hundredth, a < b);
        EXPECT_EQ(Decimal::fromText((Decimal(a) * hundredth).text()), Decimal(a) * hundredth);
    }
}
