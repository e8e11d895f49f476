#include "ledger/Outbox.h"

#include "tests/ledger/SampleDrafts.h"

#include <gtest/gtest.h>

using namespace ledger;
using State = InstanceState;

namespace {

/// A ledger with a gateway of all accounts.
class Served {
public:
    explicit Served(const QStringList& accounts = {})
        : outbox(Outbox::claim(ledger.shared(), {"DESK->BROKER"_s, accounts, "host"_s, 7, "connected"_s, {}})
                     .value)
    {
    }

    /// A batch of started instances, each of 1,000.
    Batch create(int rows)
    {
        BatchDraft draft = sampleDraft(rows);
        for (InstanceDraft& instance : draft.instances) {
            instance.startsNow = true;
        }
        return ledger->createBatch(draft).value;
    }

    Instance instance(qint64 batch, int row) { return ledger->instancesOf(batch).value.value(row - 1); }

    /// Sends the next, and has it acknowledged.
    QString acknowledge()
    {
        const QString id = outbox->take(1).value.value(0).clOrdId;
        outbox->record({report(id, "ack"_s + id, State::Running, 0)});
        return id;
    }

    static Execution report(const QString& clOrdId, const QString& execId, State state, const Decimal& filled)
    {
        Execution execution;
        execution.clOrdId = clOrdId;
        execution.execId = execId;
        execution.state = state;
        execution.filled = filled;
        execution.average = filled > 0 ? Decimal(10) : Decimal();
        execution.text = "8=FIX…"_s;
        return execution;
    }

    SampleLedger ledger;
    std::unique_ptr<Outbox> outbox;
};

QStringList idsOf(const QList<Order>& orders)
{
    QStringList ids;
    for (const Order& order : orders) {
        ids.append(order.instance.id.text());
    }
    return ids;
}

Recorded::Kind kindOf(const Outcome<QList<Recorded>>& recorded)
{
    return recorded.value.value(0).kind;
}

} // namespace

TEST(OrderId, IsTheDraftInBase32AndTheRow)
{
    EXPECT_EQ(clOrdIdOf(QUuid("{6dbde99a-dd38-48b0-838c-6ca434ae6f54}"_s), 7),
              "NW66TGW5HBELBA4MNSSDJLTPKQ-7"_s);
    EXPECT_EQ(clOrdIdOf(QUuid("{00000000-0000-0000-0000-000000000001}"_s), 12),
              "AAAAAAAAAAAAAAAAAAAAAAAAAE-12"_s);
    EXPECT_EQ(clOrdIdOf(QUuid("{ffffffff-ffff-ffff-ffff-ffffffffffff}"_s), 1000),
              "77777777777777777777777774-1000"_s);
}

TEST(Outbox, LeavesAStartedInstanceRunningWhereThereIsNoGateway)
{
    SampleLedger ledger;
    SampleRow started;
    started.startsNow = true;
    ledger->createBatch(sampleDraft({started}));
    EXPECT_EQ(ledger->instancesOf(1).value.first().state, State::Running);
}

TEST(Outbox, QueuesWhatIsStartedOnceAGatewayIsRegistered)
{
    Served served;
    served.create(1);
    EXPECT_EQ(served.instance(1, 1).state, State::Queued);
    served.ledger->createBatch(sampleDraft(2));
    EXPECT_EQ(served.instance(2, 1).state, State::Created);
    ASSERT_EQ(served.ledger->start({{}, 2}).value.size(), 2);
    EXPECT_EQ(served.instance(2, 1).state, State::Queued);
    served.outbox.reset();
    served.create(1);
    EXPECT_EQ(served.instance(3, 1).state, State::Queued) << "the registration outlives the program";
    EXPECT_EQ(served.outbox, nullptr);
    EXPECT_EQ(served.ledger->status().value.gateways.value(0).session, "DESK->BROKER"_s);
    EXPECT_EQ(served.ledger->status().value.gateways.value(0).accounts, QStringList{"*"_s});
}

TEST(Outbox, QueuesOnlyForTheAccountsOfItsGateway)
{
    Served served({"2001"_s});
    served.create(1);
    EXPECT_EQ(served.instance(1, 1).state, State::Running);
}

TEST(Outbox, GivesOrdersInTheirOrderOnceAndWritesThemDownFirst)
{
    Served served;
    served.create(2);
    served.create(2);
    const QList<Order> first = served.outbox->take(3).value;
    EXPECT_EQ(idsOf(first), (QStringList{"1-1"_s, "1-2"_s, "2-1"_s}));
    EXPECT_FALSE(first.at(0).isRepeat);
    EXPECT_EQ(first.at(0).instance.legs.value(0).exchange, "SH"_s);
    EXPECT_EQ(served.instance(1, 1).state, State::Sending);
    EXPECT_EQ(served.instance(1, 1).clOrdId, first.at(0).clOrdId);
    EXPECT_EQ(idsOf(served.outbox->take(9).value), QStringList{"2-2"_s});
    EXPECT_TRUE(served.outbox->take(9).value.isEmpty());
    EXPECT_EQ(idsOf(served.outbox->open().value), (QStringList{"1-1"_s, "1-2"_s, "2-1"_s, "2-2"_s}));
}

TEST(Outbox, IsOneGatewaysAtATime)
{
    Served served({"1001"_s});
    const auto second = openIn(served.ledger.home()).value;
    EXPECT_FALSE(Outbox::claim(second, {"B"_s, {"1001"_s, "2001"_s}, {}, 0, {}, {}}).ok());
    EXPECT_FALSE(Outbox::claim(second, {"B"_s, {}, {}, 0, {}, {}}).ok()) << "all means that one as well";
    EXPECT_TRUE(Outbox::claim(second, {"B"_s, {"2001"_s}, {}, 0, {}, {}}).ok());
    served.outbox.reset();
    EXPECT_TRUE(Outbox::claim(second, {"B"_s, {"1001"_s}, {}, 0, {}, {}}).ok());
}

TEST(Outbox, TellsWhichGatewayIsGone)
{
    Served ledger({"1001"_s});
    const auto goneNow = [&ledger] {
        QStringList gone;
        for (const Gateway& gateway : ledger.ledger->status().value.gateways) {
            gone.append(gateway.isGone ? gateway.session : QString());
        }
        return gone;
    };
    auto second =
        Outbox::claim(openIn(ledger.ledger.home()).value, {"OTHER"_s, {"2001"_s, "3001"_s}, {}, 0, {}, {}});
    ASSERT_EQ(QString(), second.error);
    EXPECT_EQ(QStringList({{}, {}}), goneNow());
    second.value.reset();
    EXPECT_EQ(QStringList({{}, "OTHER"_s}), goneNow()) << "it registered, and serves no more";
    EXPECT_EQ(2, ledger.ledger->gateways().value.size());
    ledger.outbox.reset();
    EXPECT_EQ(QStringList({"DESK->BROKER"_s, "OTHER"_s}), goneNow());
}

TEST(Outbox, TellsThatTheGatewayOfAllAccountsIsGone)
{
    Served ledger;
    EXPECT_FALSE(ledger.ledger->gateways().value.value(0).isGone);
    for (int i = 0; i < 20; ++i) { // whoever asks keeps nobody from claiming
        ledger.outbox.reset();
        EXPECT_TRUE(ledger.ledger->gateways().value.value(0).isGone);
        auto claimed = Outbox::claim(ledger.ledger.shared(), {"DESK->BROKER"_s, {}, {}, 0, {}, {}});
        ASSERT_EQ(QString(), claimed.error);
        ledger.outbox = std::move(claimed.value);
        EXPECT_FALSE(ledger.ledger->gateways().value.value(0).isGone);
    }
}

TEST(Outbox, CountsAReportWithoutAState)
{
    Served ledger;
    ledger.create(1);
    const QString id = ledger.acknowledge();
    Execution stateless = Served::report(id, "S"_s, State::Running, 300);
    stateless.state.reset();
    stateless.reason = "未知的订单状态“7”"_s;
    ASSERT_TRUE(ledger.outbox->record({stateless}).ok());
    EXPECT_EQ(State::Running, ledger.instance(1, 1).state);
    EXPECT_EQ("300"_s, ledger.instance(1, 1).filledQuantity.text());
    EXPECT_EQ(stateless.reason, ledger.instance(1, 1).reason);
}

TEST(Outbox, CountsAReportOnceAndNeverDownwards)
{
    Served served;
    served.create(1);
    const QString id = served.outbox->take(1).value.value(0).clOrdId;
    EXPECT_EQ(kindOf(served.outbox->record({Served::report(id, "e2"_s, State::Running, 600)})),
              Recorded::Kind::Counted);
    EXPECT_EQ(kindOf(served.outbox->record({Served::report(id, "e2"_s, State::Running, 600)})),
              Recorded::Kind::Repeated);
    served.outbox->record({Served::report(id, "e1"_s, State::Running, 200)}); // came late
    EXPECT_EQ(served.instance(1, 1).filledQuantity, 600);
    EXPECT_EQ(served.instance(1, 1).averagePrice, 10);
    served.outbox->record({Served::report(id, "e3"_s, State::Finished, 1000)});
    served.outbox->record({Served::report(id, "e0"_s, State::Running, 0)});
    EXPECT_EQ(served.instance(1, 1).state, State::Finished);
    EXPECT_EQ(served.instance(1, 1).filledQuantity, 1000);
    EXPECT_TRUE(served.outbox->open().value.isEmpty());
}

TEST(Outbox, LetsOnlyACorrectionTakeAFillBack)
{
    Served served;
    served.create(1);
    const QString id = served.outbox->take(1).value.value(0).clOrdId;
    served.outbox->record({Served::report(id, "e1"_s, State::Finished, 1000)});
    Execution bust = Served::report(id, "e2"_s, State::Running, 400);
    bust.isCorrection = true;
    served.outbox->record({bust});
    EXPECT_EQ(served.instance(1, 1).filledQuantity, 400);
    EXPECT_EQ(served.instance(1, 1).state, State::Running);
}

TEST(Outbox, KeepsReportsOfWhatIsNotOursAndFillsAboveTheOrder)
{
    Served served;
    served.create(1);
    const QString id = served.outbox->take(1).value.value(0).clOrdId;
    const QString never = clOrdIdOf(QUuid::createUuid(), 1);
    EXPECT_EQ(kindOf(served.outbox->record({Served::report(never, "x"_s, State::Running, 5)})),
              Recorded::Kind::UnknownOrder);
    EXPECT_EQ(kindOf(served.outbox->record({Served::report("garbage"_s, "y"_s, State::Running, 5)})),
              Recorded::Kind::UnknownOrder);
    EXPECT_EQ(kindOf(served.outbox->record({Served::report(id, "z"_s, State::Finished, 1000.01_d)})),
              Recorded::Kind::AboveOrder);
    EXPECT_EQ(kindOf(served.outbox->record({Served::report(id, "n"_s, State::Finished, Decimal::none())})),
              Recorded::Kind::AboveOrder);
    EXPECT_EQ(served.instance(1, 1).filledQuantity, 0);
    const QList<StrayReport> strays = served.ledger->strays().value;
    ASSERT_EQ(strays.size(), 4);
    EXPECT_EQ(strays.at(3).clOrdId, never);
    EXPECT_EQ(strays.at(3).text, "8=FIX…"_s);
}

TEST(Outbox, TurnsAStopIntoACancelThatIsGivenOnce)
{
    Served served;
    served.create(1);
    const QString id = served.acknowledge();
    ASSERT_EQ(served.ledger->stop({{{1, 1}}, std::nullopt}).error, QString());
    EXPECT_EQ(served.instance(1, 1).state, State::Stopping);
    const QList<CancelRequest> cancels = served.outbox->takeCancels(9).value;
    ASSERT_EQ(cancels.size(), 1);
    EXPECT_EQ(cancels.first().clOrdId, id + "-C1"_s);
    EXPECT_TRUE(served.outbox->takeCancels(9).value.isEmpty());

    served.outbox->record({Served::report(id, "f"_s, State::Running, 300)});
    EXPECT_EQ(served.instance(1, 1).state, State::Stopping) << "a fill that crosses the cancel";
    EXPECT_EQ(served.instance(1, 1).filledQuantity, 300);
    served.outbox->record({Served::report(id, "c"_s, State::Stopped, 300)});
    EXPECT_EQ(served.instance(1, 1).state, State::Stopped);
}

TEST(Outbox, SendsACancelAgainWhereTheFirstWasRejectedOrLost)
{
    Served served;
    served.create(1);
    const QString id = served.acknowledge();
    served.ledger->stop({{}, 1});
    served.outbox->takeCancels(9);
    Execution reject = Served::report(id, QString(), State::Running, 0);
    reject.isCancelReject = true;
    served.outbox->record({reject});
    EXPECT_EQ(served.instance(1, 1).state, State::Running);
    served.ledger->stop({{}, 1});
    EXPECT_EQ(served.outbox->takeCancels(9).value.value(0).clOrdId, id + "-C2"_s);
    served.outbox->record({Served::report(id, QString(), State::Running, 0)}); // an answer to a question
    EXPECT_EQ(served.outbox->takeCancels(9).value.value(0).clOrdId, id + "-C3"_s);
}

TEST(Outbox, RemembersWhatIsUndoneBeforeTheCounterpartyKnowsIt)
{
    Served served;
    served.create(3);
    const QList<Order> orders = served.outbox->take(2).value;
    const UndoReport report = served.ledger->undo(1).value;
    EXPECT_EQ(report.withdrawn.size(), 1) << "the one still queued";
    EXPECT_EQ(served.instance(1, 1).state, State::Sending);
    EXPECT_TRUE(served.instance(1, 1).isTakenBack);
    served.outbox->record({Served::report(orders.at(0).clOrdId, "a"_s, State::Running, 0)});
    EXPECT_EQ(served.instance(1, 1).state, State::Stopping);
    EXPECT_EQ(served.outbox->takeCancels(9).value.size(), 1);
    ASSERT_EQ(served.outbox->decide({{{1, 2}, State::Sending, {}}}).error, QString()); // never had
    EXPECT_EQ(served.instance(1, 2).state, State::Withdrawn);
}

TEST(Outbox, KeepsWhatIsQueuedUnderAHaltAndCancelsWhatWorks)
{
    Served served;
    served.create(3);
    const QString working = served.acknowledge();
    const QString sent = served.outbox->take(1).value.value(0).clOrdId;
    served.ledger->halt("1001"_s, "行情异常"_s);
    EXPECT_EQ(served.instance(1, 1).state, State::Stopping);
    EXPECT_EQ(served.outbox->takeCancels(9).value.value(0).order.clOrdId, working);
    EXPECT_TRUE(served.outbox->take(9).value.isEmpty());
    EXPECT_EQ(served.outbox->queued().value, 1);
    EXPECT_TRUE(served.outbox->isHalted("1001"_s).value);
    served.outbox->decide({{{1, 2}, State::Sending, {}}}); // the counterparty does not know it
    EXPECT_EQ(served.instance(1, 2).state, State::Queued);
    served.ledger->resume("1001"_s, "恢复"_s);
    const QList<Order> again = served.outbox->take(9).value;
    ASSERT_EQ(idsOf(again), (QStringList{"1-2"_s, "1-3"_s}));
    EXPECT_EQ(again.first().clOrdId, sent) << "always the same";
    EXPECT_TRUE(again.first().isRepeat);
}

TEST(Outbox, LetsAPersonSettleWhatIsUnknown)
{
    Served served;
    served.create(1);
    served.outbox->take(1);
    EXPECT_NE(served.ledger->settle({1, 1}, State::Finished, "电话确认"_s).error, QString());
    served.outbox->decide({{{1, 1}, State::Unknown, "没有回答"_s}});
    EXPECT_EQ(served.instance(1, 1).reason, "没有回答"_s);
    EXPECT_NE(served.ledger->settle({1, 1}, State::Finished, " "_s).error, QString());
    EXPECT_NE(served.ledger->settle({1, 1}, State::Withdrawn, "电话确认"_s).error, QString());
    EXPECT_EQ(served.ledger->settle({1, 1}, State::Finished, "电话确认"_s).error, QString());
    EXPECT_EQ(served.instance(1, 1).state, State::Finished);
    EXPECT_EQ(served.instance(1, 1).reason, "电话确认"_s);
}

TEST(Outbox, LeavesWhatADecisionComesTooLateFor)
{
    Served served;
    served.create(2);
    served.outbox->take(1);
    const auto decided =
        served.outbox->decide({{{1, 1}, State::Unknown, {}}, {{1, 2}, State::Finished, {}}}).value;
    ASSERT_EQ(decided.size(), 2);
    EXPECT_EQ(decided.first().state, State::Unknown);
    EXPECT_EQ(decided.last().state, State::Queued) << "it was never sent";
    EXPECT_FALSE(served.outbox->decide({{{1, 9}, State::Unknown, {}}}).ok()) << "there is none";
    EXPECT_EQ(served.outbox->decide({{{1, 2}, State::Rejected, "没有该交易所"_s}}).error, QString());
    EXPECT_EQ(served.instance(1, 2).reason, "没有该交易所"_s);
}

TEST(Outbox, TakesThoseThatAreNamed)
{
    Served served;
    served.create(3);
    const auto waiting = served.outbox->waiting(10).value;
    ASSERT_EQ(waiting.size(), 3);
    EXPECT_EQ(waiting.first().instance.state, State::Queued);
    const auto taken = served.outbox->take({{1, 3}, {1, 1}, {1, 9}}).value;
    ASSERT_EQ(taken.size(), 2);
    EXPECT_EQ(served.instance(1, 2).state, State::Queued);
    EXPECT_TRUE(served.outbox->take({{1, 1}}).value.isEmpty()) << "taken already";
    const auto named = served.outbox->named(taken.first().clOrdId).value;
    ASSERT_EQ(named.size(), 1);
    EXPECT_EQ(named.first().instance.id, taken.first().instance.id);
    EXPECT_TRUE(served.outbox->named("NOT-OURS"_s).value.isEmpty());
}

TEST(Outbox, IsForgottenOnlyWhenNothingIsLeftInIt)
{
    Served served;
    served.create(1);
    EXPECT_FALSE(Outbox::forget(*served.ledger, {}).ok()) << "another serves it";
    served.outbox.reset();
    EXPECT_TRUE(Outbox::forget(*served.ledger, {}).error.contains("1 个实例"_s));
    served.ledger->undo(1);
    EXPECT_EQ(Outbox::forget(*served.ledger, {}).error, QString());
    served.create(1);
    EXPECT_EQ(served.instance(2, 1).state, State::Running);
}

TEST(Outbox, FeedsEachLegOfAPair)
{
    Served served;
    BatchDraft draft = sampleDraft({SampleRow{"600000.SH"_s, "Buy"_s, 1000, 10, true}});
    draft.instances[0].legs.append(draft.instances[0].legs.first());
    draft.instances[0].legs[1].direction = "Sell"_s;
    served.ledger->createBatch(draft);
    Execution second =
        Served::report(served.outbox->take(1).value.value(0).clOrdId, "e"_s, State::Running, 300);
    second.leg = 2;
    served.outbox->record({second});
    const Instance instance = served.instance(1, 1);
    EXPECT_EQ(instance.filledQuantity, 0);
    EXPECT_EQ(instance.legs.value(0).filledQuantity, 0);
    EXPECT_EQ(instance.legs.value(1).filledQuantity, 300);
    EXPECT_EQ(instance.legs.value(1).averagePrice, 10);
}
