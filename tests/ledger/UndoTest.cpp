#include "tests/ledger/SampleDrafts.h"

#include <gtest/gtest.h>

using namespace ledger;

namespace {

/// Row 1 waits, row 2 runs, row 3 is finished.
Batch createMixedBatch(SampleLedger& ledger)
{
    SampleRow started;
    started.startsNow = true;
    const Batch batch = ledger->createBatch(sampleDraft({SampleRow(), started, started})).value;
    ledger->changeState({batch.number, 3}, InstanceState::Finished);
    return batch;
}

} // namespace

TEST(Undo, WithdrawsWhatHasNotStartedAndStopsWhatRuns)
{
    SampleLedger ledger;
    SampleRow started;
    started.startsNow = true;
    ledger->createBatch(sampleDraft({SampleRow(), started}));
    ledger.now = sampleMorning().addSecs(30);
    const Outcome<UndoReport> undone = ledger->undo(1);
    ASSERT_EQ(undone.error, QString());
    ASSERT_EQ(undone.value.withdrawn.size(), 1);
    EXPECT_EQ(undone.value.withdrawn.first().id.row, 1);
    EXPECT_EQ(undone.value.withdrawn.first().after, InstanceState::Withdrawn);
    ASSERT_EQ(undone.value.stopped.size(), 1);
    EXPECT_EQ(undone.value.stopped.first().id.row, 2);
    EXPECT_TRUE(undone.value.notReversed.isEmpty());
    EXPECT_EQ(undone.value.state, BatchState::PartlyReversed) << "what ran may have traded";

    const QList<Instance> instances = ledger->instancesOf(1).value;
    EXPECT_EQ(instances.at(0).state, InstanceState::Withdrawn);
    EXPECT_EQ(instances.at(1).state, InstanceState::Stopped);
    EXPECT_EQ(instances.at(1).changedAt, ledger.now);
    EXPECT_EQ(ledger->batch(1).value.state, BatchState::PartlyReversed);
}

TEST(Undo, ListsWhatCouldNotBeReversed)
{
    SampleLedger ledger;
    createMixedBatch(ledger);
    const UndoReport report = ledger->undo(1).value;
    ASSERT_EQ(report.notReversed.size(), 1);
    EXPECT_EQ(report.notReversed.first().id.row, 3);
    EXPECT_EQ(report.notReversed.first().symbols, QStringList{"600000.SH"_s});
    EXPECT_EQ(report.notReversed.first().after, InstanceState::Finished);
    EXPECT_EQ(report.state, BatchState::PartlyReversed);
    EXPECT_EQ(ledger->batch(1).value.state, BatchState::PartlyReversed);
    EXPECT_EQ(ledger->instancesOf(1).value.at(2).state, InstanceState::Finished);
}

TEST(Undo, DoesNoHarmTheSecondTime)
{
    SampleLedger ledger;
    createMixedBatch(ledger);
    ledger->undo(1);
    const Outcome<UndoReport> again = ledger->undo(1);
    ASSERT_EQ(again.error, QString());
    EXPECT_TRUE(again.value.withdrawn.isEmpty());
    EXPECT_TRUE(again.value.stopped.isEmpty());
    EXPECT_EQ(again.value.notReversed.size(), 1);
    EXPECT_EQ(again.value.alreadyUndone, 2);
    EXPECT_EQ(ledger->batch(1).value.state, BatchState::PartlyReversed);
}

TEST(Undo, TouchesNoOtherBatch)
{
    SampleLedger ledger;
    ledger->createBatch(sampleDraft(1));
    ledger->createBatch(sampleDraft(1));
    ledger->undo(1);
    EXPECT_EQ(ledger->batch(2).value.state, BatchState::Created);
    EXPECT_EQ(ledger->instancesOf(2).value.first().state, InstanceState::Created);
}

TEST(Undo, MakesABatchNoDuplicateAnyMore)
{
    SampleLedger ledger;
    ledger->createBatch(sampleDraft(1));
    ASSERT_EQ(ledger->standingOf(sampleDraft(1)).value.duplicates.size(), 1);
    ledger->undo(1);
    EXPECT_TRUE(ledger->standingOf(sampleDraft(1)).value.duplicates.isEmpty());
}

TEST(Undo, OfABatchOfWhichNothingRanWithdrawsIt)
{
    SampleLedger ledger;
    ledger->createBatch(sampleDraft(2));
    EXPECT_EQ(ledger->undo(1).value.state, BatchState::Withdrawn);
    EXPECT_EQ(ledger->batch(1).value.state, BatchState::Withdrawn);
}

TEST(Undo, CountsWhatWasStoppedBeforeAsNotReversed)
{
    SampleLedger ledger;
    SampleRow started;
    started.startsNow = true;
    ledger->createBatch(sampleDraft({started}));
    ledger->changeState({1, 1}, InstanceState::Stopped);
    EXPECT_EQ(ledger->undo(1).value.state, BatchState::PartlyReversed);
    EXPECT_EQ(ledger->undo(1).value.state, BatchState::PartlyReversed) << "the second time as well";
}

TEST(Undo, LeavesTheRowsThatMayHaveTradedAsDuplicates)
{
    SampleLedger ledger;
    SampleRow waiting;
    SampleRow running{"600001.SH"_s, "Buy"_s, 1000, 10, true};
    SampleRow finished{"600002.SH"_s, "Buy"_s, 1000, 10, true};
    const BatchDraft draft = sampleDraft({waiting, running, finished});
    ledger->createBatch(draft);
    ledger->changeState({1, 3}, InstanceState::Finished);
    ledger->undo(1);
    const QList<Duplicate> duplicates = ledger->standingOf(draft).value.duplicates;
    ASSERT_EQ(duplicates.size(), 1);
    EXPECT_EQ(duplicates.first().rows, (QSet<int>{2, 3}));
}

TEST(Undo, GivesTheDayBackWhatWasNeverSent)
{
    SampleLedger ledger;
    BatchDraft draft = sampleDraft({SampleRow(), {"600001.SH"_s, "Buy"_s, 1000, 10, true}});
    draft.instances[0].legs[0].amount = 10000;
    draft.instances[1].legs[0].amount = 500.5_d;
    ledger->createBatch(draft);
    EXPECT_EQ(ledger->standingOf(draft).value.day.buy, 10500.5_d);
    ledger->undo(1);
    ledger->undo(1);
    const AccountDay day = ledger->standingOf(draft).value.day;
    EXPECT_EQ(day.buy, 500.5_d) << "the other ran";
    EXPECT_EQ(day.instances, 1);
    EXPECT_EQ(day.batches, 1);
}
