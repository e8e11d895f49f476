#include "tests/gateway/GatewayRun.h"
#include "tests/gateway/SampleOrders.h"

#include <gtest/gtest.h>

#include <random>

namespace {

using State = ledger::InstanceState;

/// Messages that no broker sends: known fields with values that are none, in a frame that is right or nearly
/// so.
class Malice {
public:
    Malice(unsigned int seed, const std::string& clOrdId) : mRandom(seed), mClOrdId(clOrdId) {}

    void speak(Counterparty& counterparty)
    {
        if (chance(8)) {
            counterparty.sayRaw(garbage());
        } else if (chance(8)) {
            counterparty.sayRaw(wire::frame("FIX.4.4", {{35, one(types())}, {34, one(values())}}) +
                                garbage());
        } else {
            counterparty.say(one(types()), fields());
        }
    }

private:
    static const std::vector<std::string>& types()
    {
        static const std::vector<std::string> all = {"8", "8", "8", "8", "9", "j",  "3", "2",
                                                     "4", "1", "A", "D", "0", "ZZ", "B"};
        return all;
    }

    static const std::vector<std::string>& values()
    {
        static const std::vector<std::string> all = {"",
                                                     "0",
                                                     "1",
                                                     "-1",
                                                     "2147483648",
                                                     "99999999999999999999999999999999999999999",
                                                     "1e9",
                                                     "nan",
                                                     "1.5",
                                                     "2",
                                                     "8",
                                                     "NONE",
                                                     "Y",
                                                     "I",
                                                     "F",
                                                     "G",
                                                     "H",
                                                     "E1",
                                                     "\xff\xfe",
                                                     "=",
                                                     "20261123-01:35:00",
                                                     "=====",
                                                     std::string(5000, '9'),
                                                     "6"};
        return all;
    }

    static const std::vector<int>& tags()
    {
        static const std::vector<int> all = {11,  17,  19,  150, 39,  37,  14,  6,   38, 103, 58,  442, 654,
                                             555, 600, 790, 41,  45,  372, 379, 36,  7,  16,  123, 108, 141,
                                             112, 43,  97,  122, 957, 958, 102, 434, 55, 54,  9,   10,  35};
        return all;
    }

    template <typename Value> const Value& one(const std::vector<Value>& all)
    {
        return all[mRandom() % all.size()];
    }
    bool chance(unsigned int in) { return mRandom() % in == 0; }

    wire::Fields fields()
    {
        wire::Fields body;
        for (unsigned int i = mRandom() % 14; i > 0; --i) {
            const int tag = one(tags());
            body.emplace_back(tag, tag == 11 && !chance(3) ? mClOrdId : one(values()));
        }
        return body;
    }

    std::string garbage()
    {
        std::string bytes;
        for (unsigned int i = mRandom() % 200; i > 0; --i) {
            bytes += static_cast<char>(mRandom() % 256);
        }
        return chance(2) ? bytes + '\001' : "8=FIX.4.4\0019=-7\00135=8\001" + bytes;
    }

    std::mt19937 mRandom;
    const std::string mClOrdId;
};

/// A while: what was said may keep the session from ever coming back.
void waitForLogon(const Counterparty& counterparty)
{
    for (int i = 0; i < 300 && !counterparty.isLoggedOn(); ++i) {
        std::this_thread::sleep_for(std::chrono::milliseconds(5));
    }
}

class Hostility : public testing::TestWithParam<unsigned int> {};

/// Whatever is said, the gateway lives, nothing is filled above its order, the ledger is whole, and after a
/// reset the next order goes out and fills. A seed that fails can be played again.
TEST_P(Hostility, NeitherEndsTheGatewayNorHarmsTheLedger)
{
    Counterparty::Options quiet;
    quiet.fills = false;
    Counterparty counterparty(quiet);
    DeskLedger desk;
    desk.create(2);
    GatewayRun::Options options;
    options.profile = sample::profile();
    options.profile.statusTimeoutSeconds = 5;
    {
        const GatewayRun run(desk, counterparty.port(), options);
        ASSERT_TRUE(counterparty.waitFor([&] { return desk.countOf(State::Running) == 2; }));
        Malice malice(GetParam(), desk.idOf(1, 1));
        for (int i = 0; i < 30; ++i) {
            waitForLogon(counterparty);
            malice.speak(counterparty);
            std::this_thread::sleep_for(std::chrono::milliseconds(15));
        }
    }
    for (const int row : {1, 2}) {
        const ledger::Instance instance = desk.instance(1, row);
        EXPECT_TRUE(instance.filledQuantity >= 0 && instance.filledQuantity <= 1000)
            << instance.filledQuantity.text().toStdString();
        EXPECT_TRUE(instance.averagePrice >= 0);
    }
    EXPECT_FALSE(desk.ledger().verifyAudit().value.broken.has_value());
    counterparty.loseSequenceNumbers();
    options.resetsSequence = true;
    const GatewayRun again(desk, counterparty.port(), options);
    desk.create(sample::single());
    const std::string id = desk.idOf(2, 1);
    EXPECT_TRUE(counterparty.waitFor([&] { return desk.instance(2, 1).state == State::Running; }))
        << desk.story();
    counterparty.report(id, "F", "2", "1000");
    EXPECT_TRUE(counterparty.waitFor([&] { return desk.instance(2, 1).state == State::Finished; }));
}

INSTANTIATE_TEST_SUITE_P(BySeed, Hostility, testing::Range(1U, 7U));

} // namespace
