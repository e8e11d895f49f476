#include "gateway/reports/Effects.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <vector>

namespace {

using namespace gateway;

const OrderSize Thousand = {QStringLiteral("1000"), {}};

Report report(const char* execType, const char* ordStatus, const char* cumQty = "", const char* avgPx = "")
{
    Report result;
    result.execId = QStringLiteral("E");
    result.execType = QLatin1String(execType);
    result.ordStatus = QLatin1String(ordStatus);
    result.cumQty = QLatin1String(cumQty);
    result.avgPx = QLatin1String(avgPx);
    return result;
}

Standing standing(State state, const char* filled = "", bool cancelAsked = false)
{
    Standing result;
    result.state = state;
    result.fill.quantity = QLatin1String(filled);
    result.cancelAsked = cancelAsked;
    return result;
}

State stateAfter(const Standing& before, const Report& one)
{
    return applyExecution(before, Thousand, one).after.state;
}

TEST(Effects, OrdStatusTellsTheState)
{
    for (const char* working : {"0", "A", "1", "5", "9", "D", "E"}) {
        EXPECT_EQ(stateAfter(standing(State::Sending), report("0", working)), State::Running) << working;
        EXPECT_EQ(stateAfter(standing(State::Sending, "", true), report("0", working)), State::Stopping);
    }
    EXPECT_EQ(stateAfter(standing(State::Running), report("6", "6")), State::Stopping);
    EXPECT_EQ(stateAfter(standing(State::Stopping), report("4", "4")), State::Stopped);
    EXPECT_EQ(stateAfter(standing(State::Running), report("3", "3")), State::Finished);
    EXPECT_EQ(stateAfter(standing(State::Running, "", true), report("3", "3")), State::Stopped);
    EXPECT_EQ(stateAfter(standing(State::Running), report("F", "2", "1000", "11")), State::Finished);
    EXPECT_EQ(stateAfter(standing(State::Running), report("C", "C")), State::Finished);
    EXPECT_EQ(stateAfter(standing(State::Sending), report("8", "8")), State::Rejected);
    EXPECT_EQ(stateAfter(standing(State::Sending), report("8", "0")), State::Rejected) << "whatever 39 says";
    EXPECT_EQ(stateAfter(standing(State::Unknown), report("I", "1", "10", "11")), State::Running);
}

/// Stopped and calculated: what was traded counts, and nothing is made of the rest.
TEST(Effects, AnOrdStatusThatStandsForNoStateLeavesTheState)
{
    for (const char* unlisted : {"7", "B"}) {
        for (const State state : {State::Sending, State::Running, State::Stopping, State::Unknown}) {
            const Effect effect =
                applyExecution(standing(state, "100"), Thousand, report("7", unlisted, "300", "11.5"));
            EXPECT_EQ(effect.after.state, state) << unlisted;
            EXPECT_EQ(effect.after.fill.quantity, QStringLiteral("300")) << unlisted;
            EXPECT_EQ(effect.after.reason, QStringLiteral("未知的订单状态“%1”").arg(QLatin1String(unlisted)));
            EXPECT_FALSE(effect.told);
            EXPECT_EQ(effect.answer, Answer::None) << "whoever waits for a state waits on";
            EXPECT_TRUE(effect.complaint.isEmpty());
        }
    }
    Standing over = standing(State::Rejected, "0");
    over.reason = QStringLiteral("no such symbol");
    EXPECT_EQ(applyExecution(over, Thousand, report("7", "7")).after, over);
}

TEST(Effects, ARejectionSaysWhy)
{
    Report one = report("8", "8");
    one.text = QStringLiteral("no such symbol");
    EXPECT_EQ(applyExecution(standing(State::Sending), Thousand, one).after.reason,
              QStringLiteral("no such symbol"));
    one.text.clear();
    one.rejectCode = QStringLiteral("3");
    EXPECT_EQ(applyExecution(standing(State::Sending), Thousand, one).after.reason,
              QStringLiteral("对手方拒绝，代码 3"));
}

TEST(Effects, ADuplicateLeavesTheOriginalStanding)
{
    Report one = report("8", "8");
    one.rejectCode = QStringLiteral("6");
    const Effect effect = applyExecution(standing(State::Sending), Thousand, one);
    EXPECT_EQ(effect.after.state, State::Sending);
    EXPECT_EQ(effect.answer, Answer::Ask);
    EXPECT_EQ(applyExecution(standing(State::Finished), Thousand, one).answer, Answer::None);
}

TEST(Effects, FillsCountUpInWhateverOrderTheyCome)
{
    const std::vector<Report> reports = {report("0", "0", "0", "0"), report("F", "1", "300", "11.50"),
                                         report("F", "1", "700", "11.60"), report("F", "2", "1000", "11.55")};
    std::vector<std::size_t> order = {0, 1, 2, 3};
    do {
        Standing now = standing(State::Sending);
        for (const std::size_t index : order) {
            now = applyExecution(now, Thousand, reports[index]).after;
        }
        EXPECT_EQ(now.state, State::Finished);
        EXPECT_EQ(now.fill.quantity, QStringLiteral("1000"));
        EXPECT_EQ(now.fill.averagePrice, QStringLiteral("11.55"));
    } while (std::next_permutation(order.begin(), order.end()));
}

TEST(Effects, AFillThatCrossesTheCancelCounts)
{
    const Standing stopped =
        applyExecution(standing(State::Stopping, "300"), Thousand, report("4", "4", "300", "11")).after;
    const Standing more = applyExecution(stopped, Thousand, report("F", "4", "500", "11.1")).after;
    EXPECT_EQ(more.state, State::Stopped);
    EXPECT_EQ(more.fill.quantity, QStringLiteral("500"));
    const Standing all = applyExecution(more, Thousand, report("F", "2", "1000", "11.2")).after;
    EXPECT_EQ(all.state, State::Finished);
}

TEST(Effects, OnlyABustTakesAFillBack)
{
    const Standing finished = standing(State::Finished, "1000");
    EXPECT_EQ(applyExecution(finished, Thousand, report("F", "1", "700", "11")).after, finished);
    const Standing busted = applyExecution(finished, Thousand, report("H", "1", "700", "11")).after;
    EXPECT_EQ(busted.fill.quantity, QStringLiteral("700"));
    EXPECT_EQ(busted.state, State::Running);
    EXPECT_EQ(applyExecution(busted, Thousand, report("G", "1", "650", "10")).after.fill.averagePrice,
              QStringLiteral("10"));
}

TEST(Effects, RefusesWhatCannotBe)
{
    const Standing before = standing(State::Running, "300");
    for (const Report& one :
         {report("F", "2", "1001", "11"), report("F", "1", "abc", "11"), report("F", "1", "400", "1e3"),
          report("F", "1", "-1", "11"), report("F", "1", "400", "-11"), report("F", "Z", "400", "11"),
          report("F", "10", "400", "11")}) {
        const Effect effect = applyExecution(before, Thousand, one);
        EXPECT_FALSE(effect.complaint.isEmpty()) << one.cumQty.toStdString();
        EXPECT_EQ(effect.after, before);
    }
}

TEST(Effects, LegReportsFeedTheirLeg)
{
    const OrderSize size = {QString(),
                            {{QStringLiteral("600000"), QStringLiteral("2000")},
                             {QStringLiteral("000001"), QStringLiteral("1000")}}};
    Report one = report("F", "2", "2000", "11.4");
    one.legReport = QStringLiteral("2");
    one.legNumber = QStringLiteral("1");
    const Effect first = applyExecution(standing(State::Sending), size, one);
    EXPECT_EQ(first.after.state, State::Running) << "the other leg has not traded";
    ASSERT_EQ(first.after.legs.size(), 2);
    EXPECT_EQ(first.after.legs.at(0).quantity, QStringLiteral("2000"));
    one.legNumber.clear();
    one.symbol = QStringLiteral("000001");
    EXPECT_FALSE(applyExecution(first.after, size, one).complaint.isEmpty()) << "2000 of 1000";
    one.cumQty = QStringLiteral("1000");
    const Effect second = applyExecution(first.after, size, one);
    EXPECT_EQ(second.after.legs.at(1).quantity, QStringLiteral("1000"));
    EXPECT_EQ(second.after.state, State::Finished);
    one.symbol = QStringLiteral("300001");
    EXPECT_EQ(applyExecution(first.after, size, one).complaint, QStringLiteral("回报没有说明是哪一腿"));
    EXPECT_EQ(applyExecution(first.after, size, report("4", "4")).after.state, State::Stopped);
}

TEST(Effects, ACancelRejectGoesByItsStatus)
{
    Report one = report("", "1");
    one.kind = Report::Kind::CancelReject;
    one.text = QStringLiteral("too late");
    const Effect refused = applyCancelReject(standing(State::Stopping, "300", true), one);
    EXPECT_EQ(refused.after.state, State::Running);
    EXPECT_FALSE(refused.after.cancelAsked);
    EXPECT_EQ(refused.after.reason, QStringLiteral("撤单被拒绝：too late"));
    one.ordStatus = QStringLiteral("2");
    EXPECT_EQ(applyCancelReject(standing(State::Stopping), one).after.state, State::Finished);
    one.ordStatus = QStringLiteral("8");
    one.rejectCode = QStringLiteral("1");
    EXPECT_EQ(applyCancelReject(standing(State::Stopping), one).answer, Answer::Ask);
    EXPECT_EQ(applyCancelReject(standing(State::Finished), one).answer, Answer::None);
}

TEST(Effects, ARejectOfTheOrderCountsOnlyBeforeItWorks)
{
    Report one;
    one.kind = Report::Kind::SessionReject;
    one.text = QStringLiteral("Required tag missing");
    EXPECT_EQ(applyReject(standing(State::Sending), one).after.state, State::Rejected);
    EXPECT_EQ(applyReject(standing(State::Running), one).after.state, State::Running);
}

TEST(Effects, WhatComesLateForAWithdrawnOneShows)
{
    EXPECT_EQ(stateAfter(standing(State::Withdrawn), report("0", "0")), State::Running);
    EXPECT_EQ(stateAfter(standing(State::Withdrawn), report("8", "8")), State::Withdrawn);
    EXPECT_EQ(stateAfter(standing(State::Withdrawn), report("4", "4", "100", "11")), State::Stopped);
}

} // namespace
