#include "gateway/messages/OrderMessages.h"
#include "tests/gateway/GatewayRun.h"
#include "tests/gateway/SampleOrders.h"

#include <gtest/gtest.h>

#include <QFile>

namespace {

using namespace gateway;
using State = ledger::InstanceState;

/// A ledger, a counterparty and the folder between two runs of the gateway.
class Session : public testing::Test {
protected:
    GatewayRun::Options options() const
    {
        GatewayRun::Options result;
        result.profile = sample::profile();
        return result;
    }

    std::unique_ptr<GatewayRun> start(const Counterparty& counterparty, const GatewayRun::Options& options)
    {
        return std::make_unique<GatewayRun>(desk, counterparty.port(), options);
    }

    bool isOnceLoggedOnAfter(const Counterparty& counterparty, int logons) const
    {
        return counterparty.waitFor([&] { return countOfLogons() > logons; });
    }
    int countOfLogons() const { return desk.sessions().count(QStringLiteral("loggedOn")); }
    bool isSaid(const QString& text) const { return desk.sessions().join(QLatin1Char('\n')).contains(text); }

    DeskLedger desk;
};

/// What was kept as wrong, one a line.
std::string complaints(const DeskLedger& desk)
{
    return desk.kept().join(QLatin1Char('\n')).toStdString();
}

/// What was said last, where an order is missing.
std::string story(const Counterparty& counterparty)
{
    std::string text;
    const std::vector<std::string> received = counterparty.received();
    for (std::size_t i = received.size() > 30 ? received.size() - 30 : 0; i < received.size(); ++i) {
        text += wire::shown(received[i]).substr(0, 150) + '\n';
    }
    return text;
}

TEST_F(Session, AnOrderIsSentAsItIsMeantAndFilled)
{
    Counterparty counterparty{{}};
    desk.create(sample::single());
    const auto run = start(counterparty, options());
    ASSERT_TRUE(counterparty.waitFor([&] { return desk.countOf(State::Finished) == 1; }));
    ASSERT_EQ(counterparty.essences("D").size(), 1U);
    EXPECT_EQ(
        counterparty.essences("D").front(),
        "35=D|11=NW66TGW5HBELBA4MNSSDJLTPKQ-1|1=80010001|21=1|55=600000|207=XSHG|54=1|38=1000|40=2|44=11.520|"
        "59=0|847=1001|168=20261123-01:35:00|957=3|958=MaxPctVolume|959=11|960=0.15|958=Style|959=14|"
        "960=1|958=EntrustProperty|959=14|960=0");
    EXPECT_EQ(desk.instance(1, 1).filledQuantity.text(), QStringLiteral("1000"));
    EXPECT_EQ(desk.instance(1, 1).averagePrice.text(), QStringLiteral("11.5"));
}

TEST_F(Session, TheNewerVersionSpeaksTheSame)
{
    Counterparty::Options newer;
    newer.beginString = "FIXT.1.1";
    Counterparty counterparty(newer);
    desk.create(1);
    desk.create(sample::pair());
    GatewayRun::Options run = options();
    run.beginString = QStringLiteral("FIXT.1.1");
    const auto gateway = start(counterparty, run);
    ASSERT_TRUE(counterparty.waitFor([&] { return desk.countOf(State::Finished) == 1; }));
    ASSERT_TRUE(counterparty.waitFor([&] { return desk.countOf(State::Running) == 1; }));
    EXPECT_EQ(wire::get(wire::parse(counterparty.received().front()), 1137), "9");
    EXPECT_EQ(counterparty.essences("AB").front(),
              "35=AB|11=NW66TGW5HBELBA4MNSSDJLTPKQ-1|1=80010001|21=1|55=600000|207=XSHG|54=B|40=2|59=4|"
              "847=1002|168=20261123-01:35:00|555=2|600=600000|616=XSHG|624=1|687=2000|566=11.40|654=1|"
              "20058=6|600=000001|616=XSHE|624=2|687=1000|654=2|20058=0");
}

TEST_F(Session, AResendRequestIsAnsweredWithAGapFillAndNoOrderGoesTwice)
{
    Counterparty counterparty{{}};
    desk.create(3);
    const auto run = start(counterparty, options());
    ASSERT_TRUE(counterparty.waitFor([&] { return desk.countOf(State::Finished) == 3; }));
    counterparty.skip(5); // a resend request of the gateway's own stays open meanwhile
    counterparty.say(
        "8",
        {{37, "O"}, {11, "NOT-OURS"}, {17, "X1"}, {150, "0"}, {39, "0"}, {14, "0"}, {6, "0"}, {151, "0"}});
    counterparty.say("2", {{7, "1"}, {16, "0"}});
    // A request from behind a gap is answered at once, and again when the gap is closed.
    ASSERT_TRUE(counterparty.waitFor([&] { return !counterparty.essences("4").empty(); }));
    EXPECT_EQ(counterparty.essences("D").size(), 3U);
    EXPECT_EQ(counterparty.essences("2").size(), 1U);
    for (const std::string& answer : counterparty.essences("4")) {
        EXPECT_TRUE(answer.find("123=Y") != std::string::npos) << answer;
    }
}

TEST_F(Session, AReportForNobodyIsKept)
{
    Counterparty counterparty{{}};
    const auto run = start(counterparty, options());
    ASSERT_TRUE(counterparty.waitFor([&] { return counterparty.isLoggedOn(); }));
    counterparty.report("NOT-OURS", "0", "0", "0");
    ASSERT_TRUE(counterparty.waitFor([&] { return !desk.kept().isEmpty(); }));
    EXPECT_EQ(desk.kept().first(), QStringLiteral("NOT-OURS 不是本台账的订单"));
}

TEST_F(Session, HostileReportsChangeNothing)
{
    Counterparty::Options quiet;
    quiet.fills = false;
    Counterparty counterparty(quiet);
    desk.create(1);
    const auto run = start(counterparty, options());
    ASSERT_TRUE(counterparty.waitFor([&] { return desk.countOf(State::Running) == 1; }));
    const std::string id = desk.idOf(1, 1);
    counterparty.report(id, "F", "2", "1001");
    counterparty.report(id, "F", "1", "12a");
    counterparty.report(id, "F", "1", "-5");
    counterparty.say("8", {{58, std::string(10 << 20, 'x')}, {39, "1"}, {150, "F"}});
    counterparty.sayRaw("8=FIX.4.4\0019=5\00135=8\00110=000\001");
    counterparty.sayRaw("\001\002garbage\0018=\001");
    counterparty.report(id, "F", "1", "300"); // swallowed by the garbage before it
    ASSERT_TRUE(counterparty.waitFor([&] { return desk.kept().size() >= 3; }));
    std::this_thread::sleep_for(std::chrono::milliseconds(300));
    counterparty.report(id, "F", "1", "300"); // shows that one is missing
    ASSERT_TRUE(counterparty.waitFor([&] { return desk.instance(1, 1).filledQuantity == 300; }))
        << complaints(desk);
    EXPECT_EQ(desk.instance(1, 1).state, State::Running);
}

TEST_F(Session, ACancelRacesItsFills)
{
    Counterparty::Options quiet;
    quiet.fills = false;
    Counterparty counterparty(quiet);
    desk.create(1);
    const auto run = start(counterparty, options());
    const std::string id = desk.idOf(1, 1);
    ASSERT_TRUE(counterparty.waitFor([&] { return desk.countOf(State::Running) == 1; }));
    counterparty.setHandler([&](const wire::Fields& message) {
        if (wire::get(message, 35) == "F") {
            counterparty.report(id, "6", "6", "100");
            counterparty.report(id, "4", "4", "300");
            counterparty.report(id, "F", "4", "200"); // the slower of two lines
        }
    });
    desk.stop(1, 1);
    ASSERT_TRUE(counterparty.waitFor([&] { return desk.countOf(State::Stopped) == 1; }));
    EXPECT_EQ(desk.instance(1, 1).filledQuantity.text(), QStringLiteral("300"));
    EXPECT_TRUE(counterparty.essences("F").front().find("11=" + id + "-C1|") != std::string::npos);
}

TEST_F(Session, WhatABrokenLineSwallowedIsAskedForAndSentAgain)
{
    Counterparty::Options quiet;
    quiet.fills = false;
    Counterparty counterparty(quiet);
    std::atomic<int> swallowed{0};
    counterparty.setHandler([&](const wire::Fields& message) {
        if (wire::get(message, 35) == "D" && swallowed++ == 0) {
            counterparty.breakLine();
        } else if (wire::get(message, 35) == "H") {
            counterparty.say("8", {{37, "NONE"},
                                   {11, wire::get(message, 11)},
                                   {790, wire::get(message, 790)},
                                   {17, "0"},
                                   {150, "I"},
                                   {39, "8"},
                                   {14, "0"},
                                   {6, "0"},
                                   {151, "0"}});
            counterparty.setHandler(nullptr);
        }
    });
    desk.create(1);
    const auto run = start(counterparty, options());
    ASSERT_TRUE(counterparty.waitFor([&] { return desk.countOf(State::Running) == 1; }));
    ASSERT_EQ(counterparty.essences("D").size(), 2U);
    EXPECT_EQ(counterparty.essences("D").back().find("35=D|97=Y|"), 0U) << counterparty.essences("D").back();
}

TEST_F(Session, SequenceNumbersThatDoNotFitAreToldAndResetByAPerson)
{
    Counterparty counterparty{{}};
    desk.create(2);
    {
        const auto run = start(counterparty, options());
        ASSERT_TRUE(counterparty.waitFor([&] { return desk.countOf(State::Finished) == 2; }));
    }
    counterparty.loseSequenceNumbers();
    {
        const auto run = start(counterparty, options());
        ASSERT_TRUE(counterparty.waitFor([&] { return isSaid(QStringLiteral("too low")); }));
    }
    GatewayRun::Options resetting = options();
    resetting.resetsSequence = true;
    const int logons = countOfLogons();
    const auto run = start(counterparty, resetting);
    ASSERT_TRUE(isOnceLoggedOnAfter(counterparty, logons));
    EXPECT_EQ(wire::get(wire::parse(counterparty.received().back()), 141), "Y");
}

TEST_F(Session, AnEmptyStoreIsToldByTheCounterparty)
{
    Counterparty counterparty{{}};
    desk.create(2);
    {
        const auto run = start(counterparty, options());
        ASSERT_TRUE(counterparty.waitFor([&] { return desk.countOf(State::Finished) == 2; }));
    }
    ASSERT_TRUE(QDir(desk.folder().filePath(QStringLiteral("store"))).removeRecursively());
    const auto run = start(counterparty, options());
    ASSERT_TRUE(counterparty.waitFor([&] { return isSaid(QStringLiteral("MsgSeqNum too low")); }));
}

TEST_F(Session, ThePasswordGoesToTheCounterpartyAndIntoNoLog)
{
    Counterparty counterparty{{}};
    {
        const auto run = start(counterparty, options());
        ASSERT_TRUE(counterparty.waitFor([&] { return counterparty.isLoggedOn(); }));
    }
    EXPECT_EQ(wire::get(wire::parse(counterparty.received().front()), 554), "geheim");
    QFile log(desk.folder().filePath(QStringLiteral("store/FIX.4.4-DESK--BROKER.log")));
    ASSERT_TRUE(log.open(QIODevice::ReadOnly));
    const QByteArray text = log.readAll();
    EXPECT_TRUE(text.contains("\001554=***\001"));
    EXPECT_FALSE(text.contains("geheim"));
}

TEST_F(Session, WhatTheProfileRefusesNeverLeaves)
{
    Counterparty counterparty{{}};
    gateway::Order order = sample::single();
    order.strategy = QStringLiteral("POV");
    desk.create(order);
    const auto run = start(counterparty, options());
    ASSERT_TRUE(counterparty.waitFor([&] { return desk.countOf(State::Rejected) == 1; }));
    EXPECT_EQ(desk.instance(1, 1).reason, QStringLiteral("网关配置中没有算法“POV”"));
    EXPECT_TRUE(counterparty.essences("D").empty());
}

TEST_F(Session, AHaltKeepsWhatIsQueued)
{
    Counterparty counterparty{{}};
    desk.create(2);
    desk.haltAll(true);
    const auto run = start(counterparty, options());
    ASSERT_TRUE(counterparty.waitFor([&] { return counterparty.isLoggedOn(); }));
    std::this_thread::sleep_for(std::chrono::milliseconds(300));
    EXPECT_EQ(desk.countOf(State::Queued), 2);
    desk.haltAll(false);
    EXPECT_TRUE(counterparty.waitFor([&] { return desk.countOf(State::Finished) == 2; }));
}

TEST_F(Session, SessionAndBusinessRejectsRejectTheirOrder)
{
    Counterparty counterparty{{}};
    desk.create(2);
    counterparty.setHandler([&, first = desk.idOf(1, 1)](const wire::Fields& message) {
        const bool isFirst = wire::get(message, 11) == first;
        counterparty.say(isFirst ? "3" : "j",
                         {{45, wire::get(message, 34)}, {372, "D"}, {58, "no"}, {380, "0"}});
    });
    const auto run = start(counterparty, options());
    ASSERT_TRUE(counterparty.waitFor([&] { return desk.countOf(State::Rejected) == 2; }));
    EXPECT_EQ(desk.instance(1, 1).reason, QStringLiteral("no"));
}

/// Every order is executed once, whatever breaks; a seed that fails can be played again.
class Breaks : public Session, public testing::WithParamInterface<unsigned int> {};

TEST_P(Breaks, EveryOrderIsExecutedOnce)
{
    Counterparty::Options unlucky;
    unlucky.seed = GetParam();
    unlucky.dropPerMille = 12;
    unlucky.losePerMille = 15;
    Counterparty counterparty(unlucky);
    const int count = 40;
    desk.create(count);
    GatewayRun::Options impatient = options();
    impatient.profile.statusTimeoutSeconds = 5;
    {
        const auto run = start(counterparty, impatient);
        for (int i = 0; i < 6 && desk.countOf(State::Finished) < count; ++i) {
            counterparty.waitFor([&] { return desk.countOf(State::Finished) == count; });
        }
    }
    EXPECT_EQ(desk.countOf(State::Finished), count) << story(counterparty);
    expectEachOnce(counterparty, count);
}

INSTANTIATE_TEST_SUITE_P(BySeed, Breaks, testing::Range(1U, 5U));

} // namespace
