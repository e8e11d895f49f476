#include "gateway/messages/Decimal.h"

#include <gtest/gtest.h>

namespace {

using namespace gateway;

TEST(Decimal, KnowsNumbersFromTextsThatOnlyLookLikeSome)
{
    for (const char* text : {"0", "12", "12.", "12.50", ".5", "-3", "-0.10", "007"}) {
        EXPECT_TRUE(decimal::isNumber(QLatin1String(text))) << text;
    }
    for (const char* text :
         {"", ".", "-", "+1", "1e3", "1,5", " 1", "1 ", "nan", "inf", "0x1", "1.2.3", "1\n"}) {
        EXPECT_FALSE(decimal::isNumber(QLatin1String(text))) << text;
    }
    EXPECT_FALSE(decimal::isNumber(QString(41, QLatin1Char('9'))));
    EXPECT_TRUE(decimal::isInteger(QStringLiteral("-12")));
    EXPECT_FALSE(decimal::isInteger(QStringLiteral("12.0")));
}

TEST(Decimal, ComparesBySizeNotByText)
{
    const auto compare = [](const char* left, const char* right) {
        return decimal::compare(QLatin1String(left), QLatin1String(right));
    };
    EXPECT_EQ(compare("9", "10"), -1);
    EXPECT_EQ(compare("010.0", "10"), 0);
    EXPECT_EQ(compare("0.3", "0.29"), 1);
    EXPECT_EQ(compare("-2", "-1"), -1);
    EXPECT_EQ(compare("-0", "0"), 0);
    EXPECT_EQ(compare("-0.5", ".4"), -1);
    EXPECT_EQ(compare("12345678901234567890123", "12345678901234567890124"), -1);
}

TEST(Decimal, ShiftsAPercentageDigitForDigit)
{
    const auto hundredth = [](const char* text) {
        return decimal::hundredth(QLatin1String(text)).toStdString();
    };
    EXPECT_EQ(hundredth("15"), "0.15");
    EXPECT_EQ(hundredth("1.5"), "0.015");
    EXPECT_EQ(hundredth("120"), "1.20");
    EXPECT_EQ(hundredth("0"), "0.00");
    EXPECT_EQ(hundredth("-7.25"), "-0.0725");
    EXPECT_EQ(hundredth(".5"), "0.005");
    EXPECT_EQ(hundredth("33.333333333333333333"), "0.33333333333333333333");
}

} // namespace
