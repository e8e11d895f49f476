#include "tests/ledger/SampleDrafts.h"

#include <gtest/gtest.h>

using namespace ledger;

namespace {

/// The same ledger as another user sees it.
std::shared_ptr<Ledger> as(const SampleLedger& ledger, const QString& user)
{
    Ledger::Options options;
    options.user = user;
    options.clock = [&ledger] { return ledger.now; };
    return openIn(ledger.home(), options).value;
}

BatchDraft valued(int rows, const Decimal& amount, bool startsNow = false)
{
    BatchDraft draft = sampleDraft(rows);
    for (InstanceDraft& instance : draft.instances) {
        instance.startsNow = startsNow;
        instance.legs[0].amount = amount;
    }
    return draft;
}

CreationTerms terms(const Limits& limits)
{
    CreationTerms made;
    made.limits = limits;
    return made;
}

Limits approvalFrom(const Decimal& amount)
{
    Limits limits;
    limits.approvalAmount = amount;
    return limits;
}

} // namespace

TEST(Halt, KeepsEverythingFromBeingCreatedAndStartedUntilItIsTakenBack)
{
    SampleLedger ledger;
    ledger->createBatch(sampleDraft(1));
    ASSERT_EQ(ledger->halt("1001"_s, "行情异常"_s).error, QString());
    const auto second = as(ledger, "another"_s);
    QList<Finding> refusals;
    EXPECT_TRUE(second->createBatch(sampleDraft(1), {}, &refusals).error.contains("行情异常"_s));
    ASSERT_EQ(refusals.size(), 1);
    EXPECT_EQ(refusals.first().rule, "halted"_s);
    EXPECT_TRUE(second->start({{}, 1}).error.contains("暂停"_s));
    BatchDraft other = sampleDraft(1);
    other.account = "2001"_s;
    EXPECT_EQ(second->createBatch(other).error, QString()) << "another account";

    ASSERT_EQ(ledger.reopen(), QString());
    EXPECT_EQ(ledger->status().value.halts.size(), 1) << "survives";
    EXPECT_EQ(ledger->resume("1001"_s, "恢复"_s).error, QString());
    EXPECT_EQ(ledger->createBatch(sampleDraft(1)).error, QString());
}

TEST(Halt, OfAllHoldsForEveryAccountAndNeedsAReason)
{
    SampleLedger ledger;
    EXPECT_NE(ledger->halt(QString(), " "_s).error, QString());
    EXPECT_EQ(ledger->halt(QString(), "演练"_s).error, QString());
    EXPECT_EQ(ledger->halt("*"_s, "第二次"_s).error, QString());
    const QList<Halt> halts = ledger->status().value.halts;
    ASSERT_EQ(halts.size(), 1);
    EXPECT_EQ(halts.first().account, "*"_s);
    EXPECT_EQ(halts.first().reason, "演练"_s);
    EXPECT_EQ(halts.first().by, "trader"_s);
    EXPECT_NE(ledger->createBatch(sampleDraft(1)).error, QString());
    EXPECT_NE(ledger->resume("1001"_s, "恢复"_s).error, QString()) << "that account has no halt of its own";
    EXPECT_EQ(ledger->resume(QString(), "恢复"_s).error, QString());
}

TEST(DayCeiling, CountsEveryBatchOfTheAccountThatWasNotTakenBack)
{
    SampleLedger ledger;
    Limits limits;
    limits.dayBuy = 30000;
    EXPECT_EQ(ledger->createBatch(valued(1, 20000), terms(limits)).error, QString());
    QList<Finding> refusals;
    EXPECT_NE(ledger->createBatch(valued(1, 10000.01_d), terms(limits), &refusals).error, QString());
    ASSERT_EQ(refusals.size(), 1);
    EXPECT_EQ(refusals.first().rule, "dayBuy"_s);
    EXPECT_EQ(ledger->createBatch(valued(1, 10000), terms(limits)).error, QString()) << "meets it exactly";
    ledger->undo(1);
    EXPECT_EQ(ledger->createBatch(valued(2, 10000), terms(limits)).error, QString());
    ledger.now = sampleMorning().addDays(1);
    EXPECT_EQ(ledger->createBatch(valued(1, 30000), terms(limits)).error, QString()) << "another day";
    EXPECT_EQ(ledger->status().value.days.value(0).buy, 30000);
}

TEST(Duplicate, ThatCameBetweenTheQuestionAndTheCreationRefusesAndSaysWhoWasFirst)
{
    SampleLedger ledger;
    const auto second = as(ledger, "李四"_s);
    CreationTerms asked;
    asked.knownDuplicates = QSet<qint64>();
    BatchDraft first = sampleDraft(2);
    first.createdBy = "李四"_s;
    EXPECT_EQ(second->createBatch(first, asked).error, QString());
    QList<Finding> refusals;
    const QString error = ledger->createBatch(sampleDraft(2), asked, &refusals).error;
    EXPECT_TRUE(error.contains("李四"_s)) << error.toStdString();
    EXPECT_EQ(refusals.value(0).rule, "createdMeanwhile"_s);
    asked.knownDuplicates->insert(1);
    EXPECT_EQ(ledger->createBatch(sampleDraft(2), asked).error, QString());
}

TEST(Approval, IsAskedForFromItsAmountOnAndStartsNothingBefore)
{
    SampleLedger ledger;
    const Limits limits = approvalFrom(20000);
    EXPECT_EQ(ledger->createBatch(valued(1, 19999.99_d, true), terms(limits)).value.state,
              BatchState::Created);
    const Outcome<Batch> waiting = ledger->createBatch(valued(2, 10000, true), terms(limits));
    EXPECT_EQ(waiting.value.state, BatchState::Waiting);
    EXPECT_EQ(ledger->instancesOf(2).value.first().state, InstanceState::Created);
    EXPECT_EQ(ledger->status().value.waiting, 1);
    EXPECT_NE(ledger->start({{}, 2}).error, QString());

    const auto approver = as(ledger, "approver"_s);
    EXPECT_EQ(approver->approvalOf(2).value.askedBy, "trader"_s);
    EXPECT_EQ(approver->approve(2, limits).value.state, BatchState::Created);
    EXPECT_EQ(ledger->instancesOf(2).value.first().state, InstanceState::Running);
    EXPECT_EQ(ledger->approvalOf(2).value.decidedBy, "approver"_s);
    EXPECT_NE(approver->approve(2, limits).error, QString()) << "once";
}

TEST(Approval, IsNotGivenByItsAuthor)
{
    SampleLedger ledger;
    const Limits limits = approvalFrom(0);
    ledger->createBatch(valued(1, 10000), terms(limits));
    EXPECT_TRUE(ledger->approve(1, limits).error.contains("另一人"_s));
    EXPECT_EQ(ledger->batch(1).value.state, BatchState::Waiting);
}

TEST(Approval, MayBeRefusedWithAReason)
{
    SampleLedger ledger;
    ledger->createBatch(valued(1, 10000), terms(approvalFrom(0)));
    const auto approver = as(ledger, "approver"_s);
    EXPECT_NE(approver->refuse(1, QString()).error, QString());
    EXPECT_EQ(approver->refuse(1, "金额过大"_s).value.state, BatchState::Refused);
    EXPECT_EQ(ledger->instancesOf(1).value.first().state, InstanceState::Withdrawn);
    EXPECT_EQ(ledger->approvalOf(1).value.reason, "金额过大"_s);
    EXPECT_EQ(ledger->status().value.days.value(0).buy, 0);
    EXPECT_EQ(ledger->status().value.days.value(0).batches, 0);
}

TEST(Approval, LapsesWhenTheDayEnds)
{
    SampleLedger ledger;
    const Limits limits = approvalFrom(0);
    ledger->createBatch(valued(1, 10000), terms(limits));
    ledger.now = sampleMorning().addDays(1);
    EXPECT_TRUE(as(ledger, "approver"_s)->approve(1, limits).error.contains("失效"_s));
    EXPECT_EQ(ledger->batch(1).value.state, BatchState::Lapsed);
    EXPECT_EQ(ledger->instancesOf(1).value.first().state, InstanceState::Withdrawn);
}

TEST(Approval, LapsesWhenTheLimitsAreOthers)
{
    SampleLedger ledger;
    Limits limits = approvalFrom(0);
    ledger->createBatch(valued(1, 10000), terms(limits));
    limits.rowAmount = 1;
    EXPECT_TRUE(as(ledger, "approver"_s)->approve(1, limits).error.contains("改动"_s));
    EXPECT_EQ(ledger->batch(1).value.state, BatchState::Lapsed);
}

TEST(Selection, OfWhichEachIsByItselfChangesWhatItCanAndSaysWhyOfTheRest)
{
    SampleLedger ledger;
    ASSERT_TRUE(ledger->createBatch(valued(3, 100)).ok());
    ASSERT_TRUE(ledger->start({{{1, 2}}, std::nullopt}).ok());
    Selection selection{{{1, 1}, {1, 2}, {1, 3}}, std::nullopt};
    EXPECT_FALSE(ledger->start(selection).ok()) << "one runs: all or none";
    selection.isEachByItself = true;
    const Outcome<QList<ChangedInstance>> started = ledger->start(selection);
    ASSERT_EQ(started.error, QString());
    ASSERT_EQ(started.value.size(), 3);
    EXPECT_EQ(started.value.at(0).after, InstanceState::Running);
    EXPECT_TRUE(started.value.at(0).refusal.isEmpty());
    EXPECT_EQ(started.value.at(1).before, started.value.at(1).after);
    EXPECT_TRUE(started.value.at(1).refusal.contains("1-2"_s)) << started.value.at(1).refusal.toStdString();
    EXPECT_EQ(ledger->counts(1).value.value(InstanceState::Running), 3);
    ASSERT_TRUE(ledger->halt("1001"_s, "行情异常"_s).ok());
    EXPECT_TRUE(ledger->stop(selection).ok());
    EXPECT_EQ(ledger->counts(1).value.value(InstanceState::Stopped), 3);
}
