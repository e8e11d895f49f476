#include "gateway/recovery/Recovery.h"

#include "tests/gateway/SampleOrders.h"

#include <gtest/gtest.h>

namespace {

using namespace gateway;

const QString Id = QStringLiteral("NW66TGW5HBELBA4MNSSDJLTPKQ-7");
const QString Account = QStringLiteral("80010001");

/// A desk with one instance, a clock under the test's hand, and what went out and was written down.
class Desk {
public:
    explicit Desk(const Profile& profile = sample::profile(), const Pacing& pacing = Pacing({}, 0))
        : recovery(profile, pacing)
    {
    }

    OpenInstance instance(State at, bool cancelAsked = false) const
    {
        OpenInstance one;
        one.key = {1, 7};
        one.account = Account;
        one.order = sample::single();
        one.standing.state = at;
        one.standing.cancelAsked = cancelAsked;
        return one;
    }

    void logOn()
    {
        run([this](Step& step) { recovery.loggedOn(moment(), step); });
    }
    void send()
    {
        run([this](Step& step) { recovery.send(instance(State::Sending), moment(), step); });
    }
    void adopt(State at, bool cancelAsked = false) { recovery.adopt(instance(at, cancelAsked), moment()); }
    void cancel()
    {
        const CancelOrder order = {Id, Id + QStringLiteral("-C%1").arg(++cancels)};
        run([&](Step& step) { recovery.cancel(order, moment(), step); });
    }
    void lose()
    {
        run([this](Step& step) { recovery.wasLost(Id, moment(), step); });
    }
    void pass(int seconds)
    {
        now += seconds * 1000;
        run([this](Step& step) { recovery.tick(moment(), step); });
    }
    void hear(const Report& report)
    {
        run([&](Step& step) { recovery.receive(report, moment(), step); });
    }

    Moment moment() const { return {now, sample::now().addMSecs(now)}; }

    /// Types of what went out since the last call, "D", "D+" for a repeated one, "F:…-C1".
    QString out()
    {
        const QString result = sent.join(QLatin1Char(' '));
        sent.clear();
        return result;
    }

    Recovery recovery;
    qint64 now = 0;
    QStringList sent;
    QString requestId;
    QString state; ///< as last written down
    int kept = 0;
    int cancels = 0;

private:
    template <typename Function> void run(Function function)
    {
        Step step;
        function(step);
        for (const Change& change : step.changes) {
            state = nameOf(change.after.state);
        }
        kept += step.kept.size();
        for (const Outgoing& outgoing : step.messages) {
            note(outgoing.message);
        }
    }

    void note(const Message& message)
    {
        QString text = QString::fromStdString(message.type);
        if (findField(message.header, 97) != nullptr) {
            text += QLatin1Char('+');
        }
        if (message.type == "F") {
            text += QString::fromStdString(message.text(11)).mid(Id.size());
        }
        if (message.type == "H") {
            requestId = QString::fromStdString(message.text(790));
        }
        sent.append(text);
    }
};

Report said(const char* execType, const char* ordStatus, const char* execId = "", const char* cumQty = "")
{
    Report one;
    one.clOrdId = Id;
    one.execType = QLatin1String(execType);
    one.ordStatus = QLatin1String(ordStatus);
    one.execId = QLatin1String(execId);
    one.cumQty = QLatin1String(cumQty);
    return one;
}

Report denial(const Desk& desk)
{
    Report one = said("I", "8");
    one.orderId = QStringLiteral("NONE");
    one.requestId = desk.requestId;
    return one;
}

TEST(Recovery, AnAcknowledgedOrderIsNotAskedFor)
{
    Desk desk;
    desk.logOn();
    desk.send();
    desk.hear(said("0", "0", "E1"));
    desk.pass(3600);
    EXPECT_EQ(desk.out(), QStringLiteral("D"));
    EXPECT_EQ(desk.state, QStringLiteral("running"));
}

TEST(Recovery, AsksForWhatIsOpenAfterEveryLogon)
{
    Desk desk;
    desk.adopt(State::Sending);
    EXPECT_EQ(desk.out(), QString()) << "nobody is there to ask";
    desk.logOn();
    EXPECT_EQ(desk.out(), QStringLiteral("H"));
    desk.recovery.loggedOff();
    desk.pass(3600);
    EXPECT_EQ(desk.out(), QString());
    desk.logOn();
    EXPECT_EQ(desk.out(), QStringLiteral("H"));
}

TEST(Recovery, SendsAgainWhatTheCounterpartyDoesNotKnow)
{
    Desk desk;
    desk.adopt(State::Sending);
    desk.logOn();
    desk.hear(denial(desk));
    EXPECT_EQ(desk.out(), QStringLiteral("H D+"));
    desk.hear(said("0", "0", "E1"));
    EXPECT_EQ(desk.state, QStringLiteral("running"));
}

TEST(Recovery, TakesADenialOfAnEarlierQuestionForNone)
{
    Desk desk;
    desk.adopt(State::Sending);
    desk.logOn();
    const Report old = denial(desk);
    desk.recovery.loggedOff();
    desk.now += 1000;
    desk.logOn();
    desk.out();
    desk.hear(old);
    EXPECT_EQ(desk.out(), QString());
    desk.hear(denial(desk));
    desk.hear(denial(desk));
    EXPECT_EQ(desk.out(), QStringLiteral("D+")) << "once for one answer, however often it comes";
}

TEST(Recovery, AResentDenialWithoutTheQuestionsIdIsNotTrusted)
{
    Desk desk;
    desk.adopt(State::Sending);
    desk.logOn();
    Report old = denial(desk);
    old.requestId.clear();
    old.isResent = true;
    desk.hear(old);
    EXPECT_EQ(desk.out(), QStringLiteral("H"));
    old.isResent = false;
    desk.hear(old);
    EXPECT_EQ(desk.out(), QStringLiteral("D+"));
}

TEST(Recovery, AMissingAnswerIsAskedForThenLeftToAPerson)
{
    Desk desk;
    desk.logOn();
    desk.send();
    desk.pass(29);
    EXPECT_EQ(desk.out(), QStringLiteral("D"));
    desk.pass(1);
    EXPECT_EQ(desk.out(), QStringLiteral("H"));
    desk.pass(30);
    EXPECT_EQ(desk.out(), QString());
    EXPECT_EQ(desk.state, QStringLiteral("unknown"));
    desk.hear(said("F", "2", "E1", "1000"));
    EXPECT_EQ(desk.state, QStringLiteral("finished"));
    EXPECT_EQ(desk.recovery.openCount(), 0);
}

TEST(Recovery, ACounterpartyThatCannotBeAskedLeavesItUnknown)
{
    Profile profile = sample::profile();
    profile.statusRequest = false;
    Desk desk(profile);
    desk.adopt(State::Sending);
    desk.logOn();
    EXPECT_EQ(desk.out(), QString());
    EXPECT_EQ(desk.state, QStringLiteral("unknown"));
}

TEST(Recovery, WithoutPossResendADeniedOrderIsUnknown)
{
    Profile profile = sample::profile();
    profile.possResend = false;
    Desk desk(profile);
    desk.adopt(State::Sending);
    desk.logOn();
    desk.hear(denial(desk));
    EXPECT_EQ(desk.out(), QStringLiteral("H"));
    EXPECT_EQ(desk.state, QStringLiteral("unknown"));
}

TEST(Recovery, ADuplicateIsAskedForAndNotSentAThirdTime)
{
    Desk desk;
    desk.adopt(State::Sending);
    desk.logOn();
    desk.hear(denial(desk));
    Report duplicate = said("8", "8", "E9");
    duplicate.rejectCode = QStringLiteral("6");
    desk.hear(duplicate);
    EXPECT_EQ(desk.out(), QStringLiteral("H D+ H"));
    desk.hear(denial(desk));
    EXPECT_EQ(desk.out(), QString());
    EXPECT_EQ(desk.state, QStringLiteral("unknown"));
}

TEST(Recovery, WhatTradedIsNeverSentAgain)
{
    Desk desk;
    desk.logOn();
    desk.send();
    desk.hear(said("F", "1", "E1", "300"));
    desk.recovery.loggedOff();
    desk.logOn();
    desk.hear(denial(desk));
    EXPECT_EQ(desk.out(), QStringLiteral("D H"));
    EXPECT_EQ(desk.state, QStringLiteral("unknown"));
}

TEST(Recovery, AReportCountsOnce)
{
    Desk desk;
    desk.logOn();
    desk.send();
    desk.hear(said("F", "1", "E1", "300"));
    desk.state.clear();
    desk.hear(said("F", "1", "E1", "300"));
    EXPECT_EQ(desk.state, QString());
}

TEST(Recovery, ABustedFillThatComesLateIsOverAlready)
{
    Desk desk;
    desk.logOn();
    desk.send();
    Report bust = said("H", "0", "E2", "0");
    bust.execRefId = QStringLiteral("E1");
    desk.hear(bust);
    desk.state.clear();
    desk.hear(said("F", "2", "E1", "1000"));
    EXPECT_EQ(desk.state, QString());
}

TEST(Recovery, ACancelGoesOutAndItsFillsCount)
{
    Desk desk;
    desk.logOn();
    desk.send();
    desk.hear(said("0", "0", "E1"));
    desk.cancel();
    EXPECT_EQ(desk.out(), QStringLiteral("D F-C1"));
    desk.hear(said("F", "1", "E2", "300"));
    EXPECT_EQ(desk.state, QStringLiteral("stopping"));
    desk.hear(said("4", "4", "E3", "300"));
    EXPECT_EQ(desk.state, QStringLiteral("stopped"));
    EXPECT_EQ(desk.out(), QString());
}

TEST(Recovery, ACancelOfWhatNobodyHasIsWithdrawn)
{
    Desk desk;
    desk.adopt(State::Sending, true);
    desk.logOn();
    desk.hear(denial(desk));
    EXPECT_EQ(desk.out(), QStringLiteral("H"));
    EXPECT_EQ(desk.state, QStringLiteral("withdrawn"));
}

TEST(Recovery, ACancelWithoutAnAnswerIsAskedFor)
{
    Desk desk;
    desk.logOn();
    desk.send();
    desk.hear(said("0", "0", "E1"));
    desk.cancel();
    desk.pass(30);
    EXPECT_EQ(desk.out(), QStringLiteral("D F-C1 H"));
    Report answer = said("I", "0");
    answer.requestId = desk.requestId;
    desk.hear(answer);
    desk.cancel();
    EXPECT_EQ(desk.out(), QStringLiteral("F-C2"));
    desk.pass(30);
    EXPECT_EQ(desk.out(), QStringLiteral("H"));
    answer.ordStatus = QStringLiteral("6");
    answer.requestId = desk.requestId;
    desk.hear(answer);
    EXPECT_EQ(desk.out(), QString()) << "it is being cancelled";
}

TEST(Recovery, ACancelWaitsForTheAnswerToAQuestion)
{
    Desk desk;
    desk.adopt(State::Stopping);
    desk.logOn();
    desk.cancel();
    EXPECT_EQ(desk.out(), QStringLiteral("H"));
    Report answer = said("I", "0");
    answer.requestId = desk.requestId;
    desk.hear(answer);
    desk.pass(0);
    EXPECT_EQ(desk.out(), QStringLiteral("F-C1"));
}

TEST(Recovery, ARefusedCancelIsNotRepeatedAtOnce)
{
    Desk desk;
    desk.logOn();
    desk.send();
    desk.hear(said("0", "0", "E1"));
    desk.cancel();
    Report refusal = said("", "1");
    refusal.kind = Report::Kind::CancelReject;
    desk.hear(refusal);
    EXPECT_EQ(desk.state, QStringLiteral("running"));
    desk.cancel();
    desk.pass(29);
    EXPECT_EQ(desk.out(), QStringLiteral("D F-C1"));
    desk.pass(1);
    EXPECT_EQ(desk.out(), QStringLiteral("F-C2"));
}

TEST(Recovery, WhatIsSentAgainKeepsThePace)
{
    Desk desk(sample::profile(), Pacing({{Account, 1}}, 0));
    desk.adopt(State::Sending);
    desk.logOn();
    desk.hear(denial(desk));
    EXPECT_EQ(desk.out(), QStringLiteral("H")) << "the program before may have sent one just now";
    desk.pass(2);
    EXPECT_EQ(desk.out(), QStringLiteral("D+"));
    EXPECT_TRUE(desk.recovery.choose({desk.instance(State::Queued)}, desk.moment()).isEmpty());
}

TEST(Recovery, ChoosesInOrderAndPassesOverAnAccountAtItsCeiling)
{
    Desk desk(sample::profile(), Pacing({{Account, 1}}, 0));
    desk.logOn();
    OpenInstance other = desk.instance(State::Queued);
    other.account = QStringLiteral("80010002");
    const QList<OpenInstance> chosen = desk.recovery.choose(
        {desk.instance(State::Queued), desk.instance(State::Queued), other}, desk.moment());
    ASSERT_EQ(chosen.size(), 2);
    EXPECT_EQ(chosen.last().account, QStringLiteral("80010002"));
}

TEST(Recovery, AsksForWhatTheCounterpartyMissed)
{
    Desk desk;
    desk.logOn();
    desk.send();
    desk.lose();
    EXPECT_EQ(desk.out(), QStringLiteral("D H"));
    desk.hear(denial(desk));
    desk.hear(said("0", "0", "E1"));
    desk.lose();
    EXPECT_EQ(desk.out(), QStringLiteral("D+")) << "what is known was not lost";
}

TEST(Recovery, ARefusedQuestionIsAMissingAnswer)
{
    Desk desk;
    desk.adopt(State::Sending);
    desk.logOn();
    Step step;
    desk.recovery.receiveRefusal(Id, "H", Report(), desk.moment(), step);
    ASSERT_EQ(step.changes.size(), 1);
    EXPECT_EQ(step.changes.first().after.state, State::Unknown);
}

} // namespace
