#include "ledger/guard/Limits.h"

#include "tests/support/Text.h"

#include <gtest/gtest.h>

using namespace ledger;

TEST(Limits, OfAllScopesThatMatchTheStrictestHolds)
{
    LimitScope all;
    all.limits.grossBuy = 100;
    LimitScope account;
    account.account = "1001"_s;
    account.limits.grossBuy = 500;
    account.limits.grossSell = 50;
    LimitScope other;
    other.strategy = "AIVWAP"_s;
    other.limits.grossBuy = 1;
    const Limits limits = limitsFor({all, account, other}, "1001"_s, "AITWAP"_s);
    EXPECT_EQ(limits.grossBuy, 100);
    EXPECT_EQ(limits.grossSell, 50);
}

TEST(LimitsTest, AnAccountOptsOutOfTheGeneralCeilingsByARowOfItsOwn)
{
    LimitScope general;
    general.limits.grossBuy = 10;
    LimitScope own;
    own.account = QStringLiteral("1001");
    own.limits.grossSell = 5;
    EXPECT_TRUE(limitsFor({general, own}, own.account, QString()).grossBuy.has_value());
    EXPECT_TRUE(optedOut({general, own}, own.account, QString()).isEmpty());
    own.replacesGeneral = true;
    const Limits limits = limitsFor({general, own}, own.account, QStringLiteral("AITWAP"));
    EXPECT_FALSE(limits.grossBuy.has_value());
    EXPECT_EQ(Decimal(5), *limits.grossSell);
    EXPECT_EQ(QStringList{QStringLiteral("1001 *")},
              optedOut({general, own}, own.account, QStringLiteral("AITWAP")));
    EXPECT_TRUE(limitsFor({general, own}, QStringLiteral("1002"), QString()).grossBuy.has_value());
    general.replacesGeneral = true;
    EXPECT_TRUE(limitsFor({general}, own.account, QString()).grossBuy.has_value()) << "it is the general one";
}
