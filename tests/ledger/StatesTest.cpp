#include "ledger/records/States.h"

#include "tests/support/Text.h"

#include <gtest/gtest.h>

using namespace ledger;
using State = InstanceState;

TEST(States, AreNamedAndShownAsAgreed)
{
    const QList<QPair<QString, QString>> agreed{{"created"_s, "未启动"_s},  {"queued"_s, "待发送"_s},
                                                {"sending"_s, "发送中"_s},  {"running"_s, "运行中"_s},
                                                {"stopping"_s, "撤单中"_s}, {"stopped"_s, "已撤单"_s},
                                                {"finished"_s, "已完成"_s}, {"rejected"_s, "已拒绝"_s},
                                                {"unknown"_s, "待核对"_s},  {"withdrawn"_s, "已撤回"_s}};
    ASSERT_EQ(allInstanceStates().size(), agreed.size());
    for (int i = 0; i < agreed.size(); ++i) {
        const State state = allInstanceStates().at(i);
        EXPECT_EQ(static_cast<int>(state), i);
        EXPECT_EQ(nameOf(state), agreed.at(i).first);
        EXPECT_EQ(shownName(state), agreed.at(i).second);
        EXPECT_EQ(instanceStateNamed(agreed.at(i).first), state);
    }
    EXPECT_EQ(instanceStateNamed("of a newer program"_s), State::Unknown);
}

TEST(States, OfABatchAreReadByTheirNames)
{
    for (const BatchState state : {BatchState::Created, BatchState::Waiting, BatchState::Withdrawn,
                                   BatchState::PartlyReversed, BatchState::Refused, BatchState::Lapsed}) {
        EXPECT_EQ(batchStateNamed(nameOf(state)), state);
        EXPECT_FALSE(shownName(state).isEmpty());
    }
    EXPECT_EQ(nameOf(BatchState::Waiting), "waiting"_s);
}

TEST(States, ThatAreOverStaySoButForACorrection)
{
    for (const State over : {State::Stopped, State::Finished, State::Rejected, State::Withdrawn}) {
        EXPECT_TRUE(isOver(over));
        EXPECT_FALSE(mayBecome(over, State::Running));
        EXPECT_FALSE(mayBecome(over, State::Queued));
        EXPECT_FALSE(mayBecome(over, State::Sending)) << "an order is never sent again after its end";
    }
    EXPECT_TRUE(mayBecomeByCorrection(State::Finished, State::Running));
    EXPECT_TRUE(mayBecome(State::Stopped, State::Finished)) << "the last fill crossed the cancel";
    EXPECT_FALSE(mayBecomeByCorrection(State::Withdrawn, State::Running));
}

TEST(States, LeadOutOfTheLedgerOnlyByWayOfSending)
{
    EXPECT_FALSE(mayBecome(State::Queued, State::Running));
    EXPECT_FALSE(mayBecome(State::Created, State::Sending));
    EXPECT_TRUE(mayBecome(State::Queued, State::Sending));
    EXPECT_TRUE(mayBecome(State::Sending, State::Queued))
        << "the counterparty never had it, and a halt holds";
}
