#include "gateway/messages/FieldValue.h"

#include <gtest/gtest.h>

namespace {

using namespace gateway;

/// The wire's text, or "!" where the value is refused.
std::string wire(ValueType type, const char* value)
{
    ParameterRule rule;
    rule.paramId = QStringLiteral("参数");
    rule.type = type;
    const Outcome<QString> outcome = wireValue(rule, QString::fromUtf8(value));
    return outcome.ok() ? outcome.value.toStdString() : "!";
}

TEST(FieldValue, KeepsEveryDigitOfANumber)
{
    EXPECT_EQ(wire(ValueType::Price, "121.300"), "121.300");
    EXPECT_EQ(wire(ValueType::Amt, "180000.50"), "180000.50");
    EXPECT_EQ(wire(ValueType::Qty, "0.1000000000000000000001"), "0.1000000000000000000001");
    EXPECT_EQ(wire(ValueType::Float, "1e5"), "!");
    EXPECT_EQ(wire(ValueType::Int, "20"), "20");
    EXPECT_EQ(wire(ValueType::Int, "20.5"), "!");
    EXPECT_EQ(wire(ValueType::Percentage, "15"), "0.15");
    EXPECT_EQ(wire(ValueType::Percentage, "15%"), "!");
}

TEST(FieldValue, TakesShanghaiTimeToUtc)
{
    EXPECT_EQ(wire(ValueType::UtcTimestamp, "2026-11-23 09:35:00"), "20261123-01:35:00");
    EXPECT_EQ(wire(ValueType::UtcTimestamp, "2026-11-23 09:35:00.000"), "20261123-01:35:00");
    EXPECT_EQ(wire(ValueType::UtcTimestamp, "2026-11-23 09:35:00.250"), "20261123-01:35:00.250");
    EXPECT_EQ(wire(ValueType::UtcTimestamp, "2026-01-01 07:00:00"), "20251231-23:00:00");
    EXPECT_EQ(wire(ValueType::UtcTimestamp, "09:35:00"), "!");
    EXPECT_EQ(wire(ValueType::UtcTimeOnly, "2026-11-23 14:57:00"), "06:57:00");
    EXPECT_EQ(wire(ValueType::UtcTimeOnly, "07:00:00"), "23:00:00");
    EXPECT_EQ(wire(ValueType::UtcTimeOnly, "25:00:00"), "!");
    EXPECT_EQ(wire(ValueType::LocalMktDate, "2026-01-01 07:00:00"), "20260101");
    EXPECT_EQ(wire(ValueType::LocalMktDate, "2026-02-30"), "!");
}

TEST(FieldValue, KnowsSwitchesAndCharacters)
{
    EXPECT_EQ(wire(ValueType::Boolean, "1"), "Y");
    EXPECT_EQ(wire(ValueType::Boolean, "0"), "N");
    EXPECT_EQ(wire(ValueType::Boolean, "2"), "!");
    EXPECT_EQ(wire(ValueType::Char, "A"), "A");
    EXPECT_EQ(wire(ValueType::Char, "AB"), "!");
    EXPECT_EQ(wire(ValueType::String, "含中文 a=b"), "含中文 a=b");
    EXPECT_EQ(wire(ValueType::String, "a\001b"), "!");
}

TEST(FieldValue, MapsValuesAndRefusesOthersByName)
{
    ParameterRule rule;
    rule.paramId = QStringLiteral("风格参数");
    rule.values = {{QStringLiteral("neutral"), QStringLiteral("1")}};
    EXPECT_EQ(wireValue(rule, QStringLiteral("neutral")).value, QStringLiteral("1"));
    EXPECT_EQ(wireValue(rule, QStringLiteral("wild")).error,
              QStringLiteral("网关配置中参数“风格参数”没有取值“wild”"));
}

TEST(FieldValue, WritesANumberOfTheMapAsItsShortestText)
{
    EXPECT_EQ(textOf(QVariant(123.4567)), QStringLiteral("123.4567"));
    EXPECT_EQ(textOf(QVariant(1200.0)), QStringLiteral("1200"));
    EXPECT_EQ(textOf(QVariant(0.1)), QStringLiteral("0.1"));
    EXPECT_EQ(textOf(QVariant(123456789.5)), QStringLiteral("123456789.5"));
    EXPECT_EQ(textOf(QVariant(7)), QStringLiteral("7"));
}

} // namespace
