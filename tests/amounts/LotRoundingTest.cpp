#include "amounts/LotRounding.h"

#include <gtest/gtest.h>

#include <limits>

using amounts::atLeastMinimum;
using amounts::roundedToLot;

TEST(LotRounding, RoundsDownToTheStep)
{
    EXPECT_EQ(200, roundedToLot(250, 100, 100));
    EXPECT_EQ(300, roundedToLot(300, 100, 100));
    EXPECT_EQ(299, roundedToLot(299, 1, 100));
}

TEST(LotRounding, GivesNothingBelowTheMinimum)
{
    EXPECT_EQ(0, roundedToLot(99, 100, 100));
    EXPECT_EQ(0, roundedToLot(-100, 100, 1));
    EXPECT_EQ(0, roundedToLot(150, 200, 100)) << "a step above the minimum";
}

TEST(LotRounding, TakesTheRemainderByItsSign)
{
    EXPECT_EQ(-200, roundedToLot(-250, 100, -300));
    EXPECT_EQ(200, roundedToLot(250, -100, 100));
    EXPECT_EQ(5, roundedToLot(5, -1, 0));
}

TEST(LotRounding, CoversTheWholeRange)
{
    constexpr qint64 least = std::numeric_limits<qint64>::min();
    constexpr qint64 most = std::numeric_limits<qint64>::max();
    EXPECT_EQ(least, roundedToLot(least, -1, least));
    EXPECT_EQ(0, roundedToLot(least, 100, 1));
    EXPECT_EQ(most - most % 100, roundedToLot(most, 100, 1));
}

TEST(LotRounding, WithoutAStepOnlyTheMinimumCounts)
{
    EXPECT_EQ(181, atLeastMinimum(181, 181));
    EXPECT_EQ(0, atLeastMinimum(180, 181));
    EXPECT_EQ(3030, atLeastMinimum(3030, 200));
}
