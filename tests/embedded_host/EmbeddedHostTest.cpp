#include "embedded_host/EmbeddedHost.h"

#include "host/CBusinessDataBase.h"
#include "host/ZelCore.h"
#include "tests/embedded_host/SampleTables.h"
#include "tests/support/Text.h"

#include <gtest/gtest.h>

#include <memory>

namespace {

std::unique_ptr<EmbeddedHost> hostOf(const QString& login)
{
    EmbeddedHost::Options options;
    options.loginAccount = login;
    return std::make_unique<EmbeddedHost>(ReferenceData(sampleTables()), options);
}

QString currentLogin()
{
    return CBusinessDataBase::GetInstance()->GetLoginAccount();
}

TEST(EmbeddedHostTest, NewestHostAnswersUntilItGoes)
{
    const auto outer = hostOf("outer"_s);
    EXPECT_EQ(&EmbeddedHost::current(), outer.get());
    {
        const auto inner = hostOf("inner"_s);
        EXPECT_EQ(currentLogin(), "inner"_s);
    }
    EXPECT_EQ(currentLogin(), "outer"_s);
}

TEST(EmbeddedHostTest, HostThatGoesBeforeANewerOneLeavesTheChainWhole)
{
    auto first = hostOf("first"_s);
    auto second = hostOf("second"_s);
    auto third = hostOf("third"_s);
    second.reset();
    EXPECT_EQ(currentLogin(), "third"_s);
    third.reset();
    EXPECT_EQ(currentLogin(), "first"_s);
}

TEST(EmbeddedHostTest, NestedHostsShareNothing)
{
    const auto outer = hostOf("outer"_s);
    ZelCore::instance()->saveSetting("K"_s, 1, QString(), QString(), QSettings::UserScope);
    outer->journal().setRecording(true);
    const auto inner = hostOf("inner"_s);
    EXPECT_FALSE(ZelCore::instance()->settings("K"_s, QString(), QString(), QSettings::UserScope).isValid());
    EXPECT_TRUE(outer->journal().calls().isEmpty());
}

TEST(EmbeddedHostDeathTest, CallWithoutAHostSaysSo)
{
    testing::FLAGS_gtest_death_test_style = "threadsafe";
    EXPECT_DEATH(EmbeddedHost::current(), "no host lives");
}

} // namespace
