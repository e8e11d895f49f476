#include "gateway/messages/WireNumber.h"

#include <gtest/gtest.h>

namespace {

using namespace gateway;

TEST(WireNumber, KnowsNumbersFromTextsThatOnlyLookLikeSome)
{
    for (const char* text : {"0", "12", "12.", "12.50", ".5", "-3", "-0.10", "007"}) {
        EXPECT_TRUE(wire_number::isNumber(QLatin1String(text))) << text;
    }
    for (const char* text :
         {"", ".", "-", "+1", "1e3", "1,5", " 1", "1 ", "nan", "inf", "0x1", "1.2.3", "1\n"}) {
        EXPECT_FALSE(wire_number::isNumber(QLatin1String(text))) << text;
    }
    EXPECT_FALSE(wire_number::isNumber(QString(41, QLatin1Char('9'))));
    EXPECT_TRUE(wire_number::isInteger(QStringLiteral("-12")));
    EXPECT_FALSE(wire_number::isInteger(QStringLiteral("12.0")));
}

TEST(WireNumber, HasTheValueOfItsDigits)
{
    const auto valueOf = [](const char* text) { return wire_number::valueOf(QLatin1String(text)); };
    EXPECT_EQ(valueOf("010.0"), ledger::Decimal(10));
    EXPECT_EQ(valueOf("-0"), ledger::Decimal(0));
    EXPECT_EQ(valueOf(""), ledger::Decimal(0));
    EXPECT_TRUE(valueOf("-0.5") < valueOf(".4"));
    EXPECT_TRUE(valueOf("12345678901234567890123") < valueOf("12345678901234567890124"));
    for (const char* text : {"1e3", " 1", "+1", "nan"}) {
        EXPECT_FALSE(valueOf(text).isNumber()) << text;
    }
}

TEST(WireNumber, ShiftsAPercentageDigitForDigit)
{
    const auto hundredth = [](const char* text) {
        return wire_number::hundredth(QLatin1String(text)).toStdString();
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
