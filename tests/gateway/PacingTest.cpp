#include "gateway/recovery/Pacing.h"

#include <gtest/gtest.h>

namespace {

using namespace gateway;

const QString First = QStringLiteral("80010001");
const QString Second = QStringLiteral("80010002");

/// How many go out in the milliseconds [from, to) when as many as possible are tried.
int sent(Pacing& pacing, const QString& account, qint64 from, qint64 to)
{
    int count = 0;
    for (qint64 now = from; now < to; ++now) {
        while (pacing.allows(account, now) && count < 100000) {
            pacing.count(account, now);
            ++count;
        }
    }
    return count;
}

TEST(Pacing, HoldsAnAccountToItsCeiling)
{
    Pacing pacing({{First, 5}}, 0);
    EXPECT_EQ(sent(pacing, First, 0, 1000), 5);
    EXPECT_EQ(sent(pacing, First, 1000, 2000), 5);
    EXPECT_EQ(sent(pacing, First, 2000, 2030), 0) << "a second is counted from the one that went out";
}

TEST(Pacing, HoldsAllToTheirCommonCeiling)
{
    Pacing pacing({{First, 5}, {Second, 5}}, 7);
    EXPECT_EQ(sent(pacing, First, 0, 500), 5);
    EXPECT_EQ(sent(pacing, Second, 500, 1000), 2);
}

TEST(Pacing, LetsEverythingGoWithoutACeiling)
{
    Pacing pacing({}, 0);
    EXPECT_EQ(sent(pacing, First, 0, 1), 100000);
}

TEST(Pacing, ThinksTheProgramBeforeSentAllItCould)
{
    Pacing pacing({{First, 5}}, 0);
    pacing.assumeSpent(100);
    EXPECT_EQ(sent(pacing, First, 100, 1100), 0);
    EXPECT_EQ(sent(pacing, First, 1100, 1200), 5);
}

} // namespace
