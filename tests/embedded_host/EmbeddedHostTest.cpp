#include "embedded_host/EmbeddedHost.h"

#include "host/CBusinessDataBase.h"
#include "host/ZelCore.h"
#include "tests/embedded_host/SampleTables.h"
#include "tests/embedded_host/Support.h"

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
    const auto outer = hostOf(u"outer"_s);
    EXPECT_EQ(&EmbeddedHost::current(), outer.get());
    {
        const auto inner = hostOf(u"inner"_s);
        EXPECT_EQ(currentLogin(), u"inner"_s);
    }
    EXPECT_EQ(currentLogin(), u"outer"_s);
}

TEST(EmbeddedHostTest, HostThatGoesBeforeANewerOneLeavesTheChainWhole)
{
    auto first = hostOf(u"first"_s);
    auto second = hostOf(u"second"_s);
    auto third = hostOf(u"third"_s);
    second.reset();
    EXPECT_EQ(currentLogin(), u"third"_s);
    third.reset();
    EXPECT_EQ(currentLogin(), u"first"_s);
}

TEST(EmbeddedHostTest, NestedHostsShareNothing)
{
    const auto outer = hostOf(u"outer"_s);
    ZelCore::instance()->saveSetting(u"K"_s, 1, QString(), QString(), QSettings::UserScope);
    outer->journal().setRecording(true);
    const auto inner = hostOf(u"inner"_s);
    EXPECT_FALSE(ZelCore::instance()->settings(u"K"_s, QString(), QString(), QSettings::UserScope).isValid());
    EXPECT_TRUE(outer->journal().calls().isEmpty());
}

TEST(EmbeddedHostDeathTest, CallWithoutAHostSaysSo)
{
    testing::FLAGS_gtest_death_test_style = "threadsafe";
    EXPECT_DEATH(EmbeddedHost::current(), "no host lives");
}

} // namespace
