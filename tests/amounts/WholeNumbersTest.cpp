#include "amounts/WholeNumbers.h"

#include <gtest/gtest.h>

#include <limits>

namespace {

constexpr qint32 Least32 = std::numeric_limits<qint32>::min();
constexpr qint64 Least64 = std::numeric_limits<qint64>::min();
const double NotANumber = std::numeric_limits<double>::quiet_NaN();
const double Infinite = std::numeric_limits<double>::infinity();

struct Case {
    double number;
    qint32 whole;
};

} // namespace

TEST(TolerantTruncation, TruncatesTowardZeroWithASmallToleranceInsteadOfRounding)
{
    const Case cases[] = {{12.7, 12},
                          {99.9999995, 100},
                          {99.99999, 99},
                          {0.0, 0},
                          {0.9999985, 0},
                          {0.9999991, 1},
                          {-3.2, -3},
                          {-3.9, -3},
                          {-3.9999995, -4},
                          {-0.9999991, -1},
                          {2147483646.5, 2147483646},
                          {1500.9, 1500}};
    for (const Case& c : cases) {
        EXPECT_EQ(amounts::tolerantTruncation(c.number), c.whole) << c.number;
    }
}

TEST(TolerantTruncation, StepsUpwardFromNumbersThatAreNegativeByLessThanTheThreshold)
{
    EXPECT_EQ(amounts::tolerantTruncation(-1e-11), 0);
    EXPECT_EQ(amounts::tolerantTruncation(-1e-9), 0);
}

TEST(TolerantTruncation, HoldsTheBoundsOfItsIntegerAndGivesTheLeastOneBeyondThem)
{
    EXPECT_EQ(amounts::tolerantTruncation(2147483647.0), 2147483647);
    EXPECT_EQ(amounts::tolerantTruncation(-2147483648.0), Least32);
    EXPECT_EQ(amounts::tolerantTruncation(-2147483647.0), -2147483647);
    for (const double number : {2147483648.0, 1e10, -2147483650.0, -1e300, NotANumber, Infinite, -Infinite}) {
        EXPECT_EQ(amounts::tolerantTruncation(number), Least32) << number;
    }
}

TEST(Truncation64, TruncatesTowardZeroWithoutATolerance)
{
    EXPECT_EQ(amounts::truncation64(99.9999995), 99);
    EXPECT_EQ(amounts::truncation64(-99.9), -99);
    EXPECT_EQ(amounts::truncation64(9e15), 9000000000000000);
}

TEST(Truncation64, GivesTheLeastIntegerForWhatItCannotHold)
{
    EXPECT_EQ(amounts::truncation64(-9223372036854775808.0), Least64);
    EXPECT_EQ(amounts::truncation64(9223372036854774784.0), 9223372036854774784);
    for (const double number : {9223372036854775808.0, 1e300, -1e300, NotANumber, Infinite, -Infinite}) {
        EXPECT_EQ(amounts::truncation64(number), Least64) << number;
    }
}

TEST(WholeNumbers, DividesTowardZeroWithinThirtyTwoBits)
{
    constexpr qint32 least = std::numeric_limits<qint32>::min();
    EXPECT_EQ(10, amounts::quotient(1099, 100));
    EXPECT_EQ(-10, amounts::quotient(-1099, 100));
    EXPECT_EQ(-1099, amounts::quotient(1099, -1));
    EXPECT_EQ(least, amounts::quotient(least, -1)) << "no quantity must not become one";
}

TEST(WholeNumbers, ADivisorOfZeroIsOne)
{
    EXPECT_EQ(1, amounts::guardedDivisor(0, QStringLiteral("600000.SH")));
    EXPECT_EQ(100, amounts::guardedDivisor(100, QString()));
    EXPECT_EQ(-3, amounts::guardedDivisor(-3, QString()));
}
