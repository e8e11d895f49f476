#include "desk/models/Money.h"

#include "tests/support/Text.h"

#include <gtest/gtest.h>

namespace {

QString price(const char* number, int decimals)
{
    return money::price(ledger::Decimal::fromText(QString::fromLatin1(number)), decimals);
}

} // namespace

TEST(Money, APriceHasTheDecimalsOfItsSecurityHoweverItWasWritten)
{
    EXPECT_EQ(price("36.2", 2), "36.20"_s);
    EXPECT_EQ(price("36.20", 2), "36.20"_s);
    EXPECT_EQ(price("36.200", 2), "36.20"_s);
    EXPECT_EQ(price("36", 2), "36.00"_s);
    EXPECT_EQ(price("1.2", 3), "1.200"_s);
    EXPECT_EQ(price("4000", 1), "4000.0"_s) << "no commas";
}

TEST(Money, APriceLosesNothing)
{
    EXPECT_EQ(price("11.55333", 2), "11.55333"_s);
    EXPECT_EQ(price("0.0001", 2), "0.0001"_s);
}
