#include "tests/gateway/Counterparty.h"
#include "tests/gateway/DeskLedger.h"
#include "tests/gateway/GatewayRun.h"
#include "tests/gateway/SampleOrders.h"

#include <gtest/gtest.h>

#include <QElapsedTimer>
#include <QFile>
#include <QProcess>

#include <random>
#include <tuple>

namespace {

using ledger::InstanceState;

/// A gateway in a process of its own.
class Victim {
public:
    Victim(const DeskLedger& desk, const QString& settings, const QString& profile, int perSecond = 0)
    {
        mProcess.setProcessChannelMode(QProcess::ForwardedErrorChannel);
        mProcess.setStandardOutputFile(QProcess::nullDevice());
        mProcess.start(QStringLiteral(GATEWAY_VICTIM),
                       {settings, profile, desk.address().shown(), QString::number(perSecond)});
        EXPECT_TRUE(mProcess.waitForStarted());
    }

    ~Victim()
    {
        if (mProcess.state() != QProcess::NotRunning) {
            kill();
        }
    }

    void kill()
    {
        mProcess.kill();
        mProcess.waitForFinished();
    }

    int end()
    {
        mProcess.terminate();
        EXPECT_TRUE(mProcess.waitForFinished(60000));
        return mProcess.exitCode();
    }

    int status()
    {
        EXPECT_TRUE(mProcess.waitForFinished(60000));
        return mProcess.exitCode();
    }

private:
    QProcess mProcess;
};

/// A seed, and the version that is spoken.
class Kills : public testing::TestWithParam<std::tuple<unsigned int, const char*>> {
protected:
    /// Of a thousand messages so many break the line, and as many are lost.
    static Counterparty::Options unlucky(int perMille)
    {
        Counterparty::Options options;
        options.seed = std::get<0>(GetParam());
        options.beginString = std::get<1>(GetParam());
        options.dropPerMille = perMille;
        options.losePerMille = perMille;
        return options;
    }

    static QString settings(const DeskLedger& desk, const Counterparty& counterparty)
    {
        return settingsFile(desk.folder(), counterparty.port(), QString::fromLatin1(std::get<1>(GetParam())));
    }
};

/// Killed at whatever moment, with lines that break besides: each order is executed once, and the ledger says
/// so in the end.
TEST_P(Kills, EveryOrderIsExecutedOnce)
{
    const int count = 300;
    const int kills = 25;
    Counterparty counterparty(unlucky(5));
    DeskLedger desk;
    desk.create(count / 2);
    desk.create(count - count / 2);
    const QString configuration = settings(desk, counterparty);
    const QString profile = profileFile(desk.folder(), PatientSeconds);
    std::mt19937 random(std::get<0>(GetParam()));
    for (int i = 0; i < kills; ++i) {
        Victim victim(desk, configuration, profile, 60);
        std::this_thread::sleep_for(std::chrono::milliseconds(50 + random() % 300));
        victim.kill();
    }
    Victim survivor(desk, configuration, profile);
    for (int i = 0; i < 6 && desk.countOf(InstanceState::Finished) < count; ++i) {
        counterparty.waitFor([&] { return desk.countOf(InstanceState::Finished) == count; });
    }
    EXPECT_EQ(desk.countOf(InstanceState::Finished), count) << desk.story();
    EXPECT_EQ(survivor.end(), 0);
    expectEachOnce(counterparty, count);
    EXPECT_EQ(desk.instance(1, 1).filledQuantity.text(), QStringLiteral("1000"));
}

INSTANTIATE_TEST_SUITE_P(BySeed, Kills,
                         testing::Combine(testing::Range(1U, 4U), testing::Values("FIX.4.4", "FIXT.1.1")));

/// Taken back while the gateway is killed over and over: what was executed is cancelled, and nothing is
/// executed twice.
TEST_P(Kills, WhatIsTakenBackIsCancelled)
{
    const int count = 60;
    const int kills = 10;
    Counterparty::Options options = unlucky(10);
    options.fills = false;
    Counterparty counterparty(options);
    DeskLedger desk;
    desk.create(count);
    const QString configuration = settings(desk, counterparty);
    const QString profile = profileFile(desk.folder(), PatientSeconds);
    std::mt19937 random(std::get<0>(GetParam()));
    for (int i = 0; i < kills; ++i) {
        Victim victim(desk, configuration, profile, 60);
        std::this_thread::sleep_for(std::chrono::milliseconds(100 + random() % 300));
        if (i == kills / 2) {
            EXPECT_EQ(desk.ledger().undo(1).error, QString());
        }
        victim.kill();
    }
    const auto over = [&] {
        return desk.countOf(InstanceState::Stopped) + desk.countOf(InstanceState::Withdrawn) == count;
    };
    const std::size_t before = counterparty.received().size();
    Victim survivor(desk, configuration, profile);
    EXPECT_TRUE(counterparty.waitFor([&] { return counterparty.received().size() > before; }));
    for (int i = 0; i < 6 && !over(); ++i) {
        counterparty.waitFor(over);
    }
    EXPECT_TRUE(over()) << desk.story();
    EXPECT_EQ(survivor.end(), 0);
    const auto orders = counterparty.orders();
    EXPECT_EQ(orders.size(), static_cast<std::size_t>(desk.countOf(InstanceState::Stopped)));
    for (const auto& order : orders) {
        EXPECT_EQ(order.second.executions, 1) << order.first;
        EXPECT_EQ(order.second.status, "4") << order.first;
    }
}

TEST(Process, AnAccountIsServedByOneAtATime)
{
    Counterparty counterparty{{}};
    DeskLedger desk;
    const QString settings = settingsFile(desk.folder(), counterparty.port(), QStringLiteral("FIX.4.4"));
    Victim first(desk, settings, profileFile(desk.folder(), PatientSeconds));
    ASSERT_TRUE(counterparty.waitFor([&] { return counterparty.isLoggedOn(); }));
    Victim second(desk, settings, profileFile(desk.folder(), PatientSeconds));
    EXPECT_EQ(second.status(), 3);
    EXPECT_EQ(first.end(), 0);
}

/// The ledger knows by the claim, which ends with the process: what was killed says nothing any more.
TEST(Process, AKilledGatewayIsGoneUntilTheNextOne)
{
    Counterparty counterparty{{}};
    DeskLedger desk;
    const QString settings = settingsFile(desk.folder(), counterparty.port(), QStringLiteral("FIX.4.4"));
    const auto stands = [&desk](const QString& state, bool isGone) {
        const QList<ledger::Gateway> gateways = desk.ledger().gateways().value;
        return gateways.size() == 1 && gateways.first().state == state && gateways.first().isGone == isGone;
    };
    Victim first(desk, settings, profileFile(desk.folder(), PatientSeconds));
    ASSERT_TRUE(counterparty.waitFor([&] { return stands(QStringLiteral("loggedOn"), false); }));
    first.kill();
    EXPECT_TRUE(counterparty.waitFor([&] { return stands(QStringLiteral("loggedOn"), true); }));
    Victim second(desk, settings, profileFile(desk.folder(), PatientSeconds));
    ASSERT_TRUE(counterparty.waitFor([&] { return desk.sessions().count(QStringLiteral("loggedOn")) == 2; }));
    EXPECT_TRUE(stands(QStringLiteral("loggedOn"), false));
    EXPECT_EQ(second.end(), 0);
    EXPECT_TRUE(counterparty.waitFor([&] { return stands(QStringLiteral("disconnected"), true); }));
}

TEST(Process, RefusesAProfileThatIsWrong)
{
    Counterparty counterparty{{}};
    DeskLedger desk;
    const QString settings = settingsFile(desk.folder(), counterparty.port(), QStringLiteral("FIX.4.4"));
    Victim victim(desk, settings, QStringLiteral("/no/such/profile.json"));
    EXPECT_EQ(victim.status(), 2);
}

TEST(Process, StopUndoAndHaltBecomeCancels)
{
    Counterparty::Options quiet;
    quiet.fills = false;
    Counterparty counterparty(quiet);
    DeskLedger desk;
    desk.create(3);
    const QString settings = settingsFile(desk.folder(), counterparty.port(), QStringLiteral("FIX.4.4"));
    Victim victim(desk, settings, profileFile(desk.folder(), PatientSeconds));
    ASSERT_TRUE(counterparty.waitFor([&] { return desk.countOf(InstanceState::Running) == 3; }));
    ledger::Selection one;
    one.ids.append({1, 1});
    EXPECT_EQ(desk.ledger().stop(one).error, QString());
    ASSERT_TRUE(counterparty.waitFor([&] { return desk.countOf(InstanceState::Stopped) == 1; }));
    EXPECT_EQ(desk.ledger().halt(QStringLiteral("80010001"), QStringLiteral("测试")).error, QString());
    ASSERT_TRUE(counterparty.waitFor([&] { return desk.countOf(InstanceState::Stopped) == 3; }));
    EXPECT_EQ(counterparty.essences("F").size(), 3U);
    EXPECT_EQ(victim.end(), 0);
}

TEST(Process, KeepsThePace)
{
    Counterparty counterparty{{}};
    DeskLedger desk;
    desk.create(30);
    const QString settings = settingsFile(desk.folder(), counterparty.port(), QStringLiteral("FIX.4.4"));
    QElapsedTimer time;
    time.start();
    Victim victim(desk, settings, profileFile(desk.folder(), PatientSeconds), 10);
    ASSERT_TRUE(counterparty.waitFor([&] { return desk.countOf(InstanceState::Finished) == 30; }));
    EXPECT_GE(time.elapsed(), 2000);
    EXPECT_EQ(victim.end(), 0);
}

} // namespace
