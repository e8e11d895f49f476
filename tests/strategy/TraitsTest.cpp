// What is known of a strategy by its code.

#include "strategy/Traits.h"

#include "tests/support/Text.h"

#include <gtest/gtest.h>

namespace {

using strategy::codesWith;
using strategy::Trait;
using strategy::traitsOf;

struct Case {
    const char* name;
    Trait trait;
    QStringList codes;
};

class CodesOfATrait : public testing::TestWithParam<Case> {};

TEST_P(CodesOfATrait, AreThese)
{
    QStringList listed = codesWith(GetParam().trait);
    QStringList expected = GetParam().codes;
    listed.sort();
    expected.sort();
    EXPECT_EQ(listed, expected);
    for (const QString& code : listed) {
        EXPECT_TRUE(traitsOf(code).has(GetParam().trait)) << qPrintable(code);
        EXPECT_FALSE(traitsOf(code + "x"_s).has(GetParam().trait));
    }
}

INSTANTIATE_TEST_SUITE_P(
    Traits, CodesOfATrait,
    testing::Values(
        Case{"Lock", strategy::Lock, {"AILOCK"_s, "AILOCKPLUS"_s, "AILOCK3"_s}},
        Case{"Pair", strategy::Pair, {"AIPAIR"_s, "AIPAIRBASIC"_s, "AIPAIRPLUS"_s}},
        Case{"CollateralOnly", strategy::CollateralOnly, {"AITWAP7"_s, "AIPOV7"_s}},
        Case{"Futures",
             strategy::Futures,
             {"AITWAP5"_s, "G-TWAP"_s, "G-VWAP"_s, "G-FuturesArbi"_s, "G-Pair"_s, "G-PairFuturesArbi"_s}},
        Case{"PriceLimit",
             strategy::PriceLimit,
             {"PursueHighLimit"_s, "PursueHighLimitB"_s, "DoubleConditionOrder"_s, "PursueHighLimitPLUS"_s,
              "DoubleConditionOrderPLUS"_s}},
        Case{"StartsOnCreate", strategy::StartsOnCreate, {"KF_TWAPPLUS"_s, "KF_VWAPPLUS"_s}},
        Case{"TellsRepayment",
             strategy::TellsRepayment,
             {"KF_TWAPPLUS"_s, "KF_VWAPPLUS"_s, "QND_TWAP"_s, "QND_VWAP"_s}},
        Case{"OwnTemplate",
             strategy::OwnTemplate,
             {"AIPOV"_s, "AIPOVBASIC"_s, "AITWAPBASIC"_s, "AITWAP"_s, "AITWAP3"_s, "AIVWAPBASIC"_s,
              "AIVWAP"_s, "KF_TWAPPLUS"_s, "KF_VWAPPLUS"_s, "SUPERTWAP"_s, "SUPERVWAP"_s, "PursueHighLimit"_s,
              "DoubleConditionOrder"_s, "QND_TWAP"_s, "QND_VWAP"_s}},
        Case{"GeneralTitles", strategy::GeneralTitles, {"52"_s}},
        Case{"VwapTitles",
             strategy::VwapTitles,
             {"AIVWAP3"_s, "AIVWAPZJC"_s, "AIVWAPBASIC"_s, "AIVWAPPLUS"_s, "VWAP"_s}}),
    [](const testing::TestParamInfo<Case>& tested) { return tested.param.name; });

TEST(Traits, TheOnesThatAcceptHongKongSecuritiesAreListedInTheirOrder)
{
    EXPECT_EQ(codesWith(strategy::HongKong),
              (QStringList{"AIPAIR"_s,      "AIPAIRBASIC"_s, "AIPAIRPLUS"_s,  "AINHG"_s,      "AIVWAP3"_s,
                           "AIVWAP"_s,      "AITWAP"_s,      "AITWAP3"_s,     "TWAP"_s,       "AIPOV"_s,
                           "AITWAPBASIC"_s, "AITWAPPLUS"_s,  "AIVWAPBASIC"_s, "AIVWAPPLUS"_s, "AIPOVBASIC"_s,
                           "AIPOVPLUS"_s,   "AIPOVZJC"_s,    "AITWAPZJC"_s,   "AIVWAPZJC"_s,  "VWAP"_s,
                           "POV"_s,         "SUPERVWAP"_s,   "SUPERTWAP"_s}));
}

TEST(Traits, ACodeThatNobodyListedHasNoneAndTheUsualStyles)
{
    for (const QString& code : {QString(), "ailock"_s, "AILOCK2"_s}) {
        EXPECT_FALSE(traitsOf(code).isPaired()) << qPrintable(code);
        EXPECT_EQ(traitsOf(code).code(), code);
        EXPECT_EQ(traitsOf(code).styles(), strategy::usualStyles());
    }
    EXPECT_EQ(strategy::Traits().styles(), strategy::usualStyles());
}

TEST(Traits, LocksAndPairsArePaired)
{
    EXPECT_TRUE(traitsOf("AILOCK3"_s).isPaired());
    EXPECT_TRUE(traitsOf("AIPAIR"_s).isPaired());
    EXPECT_FALSE(traitsOf("G-Pair"_s).isPaired());
}

} // namespace
