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
