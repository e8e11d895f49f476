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

    const QList<Instance> instances = ledger->instances(1).value;
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
    EXPECT_EQ(ledger->instances(1).value.at(2).state, InstanceState::Finished);
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
    EXPECT_EQ(ledger->instances(2).value.first().state, InstanceState::Created);
}

TEST(Undo, MakesABatchNoDuplicateAnyMore)
{
    SampleLedger ledger;
    ledger->createBatch(sampleDraft(1));
    ASSERT_EQ(ledger->createdToday("1001"_s).value.size(), 1);
    ledger->undo(1);
    EXPECT_TRUE(ledger->createdToday("1001"_s).value.isEmpty());
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
    const QList<EarlierBatch> earlier = ledger->createdToday("1001"_s).value;
    ASSERT_EQ(earlier.size(), 1);
    EXPECT_EQ(earlier.first().rowKeys, (QSet<QString>{rowKey(draft.strategy, draft.instances.at(1)),
                                                      rowKey(draft.strategy, draft.instances.at(2))}));
}
