#include "ledger/BatchCreation.h"
#include "ledger/Outbox.h"
#include "tests/ledger/SampleDrafts.h"

#include <gtest/gtest.h>

using namespace ledger;

namespace {

/// Rows worth so much each.
BatchDraft worth(int rows, const Decimal& each)
{
    BatchDraft draft = sampleDraft(rows);
    for (InstanceDraft& instance : draft.instances) {
        instance.legs.first().amount = each;
    }
    return draft;
}

CreationTerms inPlaceOf(qint64 batch)
{
    CreationTerms terms;
    terms.knownDuplicates = QSet<qint64>();
    terms.replaces = batch;
    return terms;
}

/// Nothing was created, and the first batch stands as it did.
void expectNeither(SampleLedger& ledger, const Outcome<Batch>& created, const QString& reason)
{
    EXPECT_TRUE(created.error.contains(reason)) << created.error.toStdString();
    const QList<Batch> batches = allBatches(*ledger).value;
    ASSERT_EQ(batches.size(), 1);
    EXPECT_EQ(batches.first().state, BatchState::Created);
    EXPECT_EQ(ledger->counts(1).value.value(InstanceState::Withdrawn), 0);
}

} // namespace

TEST(Replace, WithdrawsTheOldBatchAndCreatesTheNewOne)
{
    SampleLedger ledger;
    const BatchDraft draft = worth(2, 100);
    ledger->createBatch(draft);
    BatchDraft again = worth(2, 100); // the same orders: no duplicates once the first is gone
    const Outcome<Batch> created = ledger->createBatch(again, inPlaceOf(1));
    ASSERT_EQ(created.error, QString());
    EXPECT_EQ(created.value.number, 2);
    EXPECT_EQ(ledger->batch(1).value.state, BatchState::Withdrawn);
    EXPECT_EQ(ledger->counts(1).value.value(InstanceState::Withdrawn), 2);
    EXPECT_EQ(ledger->counts(2).value.value(InstanceState::Created), 2);
    const AccountDay day = ledger->standingOf(draft).value.day;
    EXPECT_EQ(day.buy, 200);
    EXPECT_EQ(day.instances, 2);
    EXPECT_EQ(day.batches, 1);
    const QList<AuditEntry> entries = ledger->audit().value;
    ASSERT_GE(entries.size(), 3);
    const AuditEntry& undone = entries.at(entries.size() - 2);
    EXPECT_EQ(undone.what + undone.subject, "undo1"_s);
    EXPECT_EQ(entries.last().what + entries.last().subject, "create2"_s);
    EXPECT_TRUE(entries.last().detail.contains("\"replaces\":1"_s)) << entries.last().detail.toStdString();
    EXPECT_FALSE(ledger->verifyAudit().value.broken.has_value());
}

TEST(Replace, TriedOnceMoreFindsWhatItMade)
{
    SampleLedger ledger;
    ledger->createBatch(worth(2, 100));
    const BatchDraft again = worth(2, 100);
    ASSERT_TRUE(ledger->createBatch(again, inPlaceOf(1)).ok());
    const Outcome<Batch> repeated = ledger->createBatch(again, inPlaceOf(1));
    EXPECT_EQ(repeated.error, QString());
    EXPECT_EQ(repeated.value.number, 2);
    EXPECT_EQ(allBatches(*ledger).value.size(), 2);
}

TEST(Replace, DoesNeitherWhereAnythingMayHaveBeenSent)
{
    SampleLedger ledger;
    SampleRow started;
    started.startsNow = true;
    ledger->createBatch(sampleDraft({SampleRow(), started}));
    expectNeither(ledger, ledger->createBatch(worth(1, 1), inPlaceOf(1)), "批次 1 有 1 个实例"_s);
    EXPECT_FALSE(ledger->standingOf(worth(1, 1), 1).ok()) << "told before anybody is asked";
    for (const InstanceState after : {InstanceState::Stopped, InstanceState::Finished}) {
        ledger->changeState({1, 2}, after);
        expectNeither(ledger, ledger->createBatch(worth(1, 1), inPlaceOf(1)), "（1-2）"_s);
    }
}

TEST(Replace, TakesWhatIsQueuedButNotWhatTheGatewayTook)
{
    SampleLedger ledger;
    auto outbox = Outbox::claim(ledger.shared(), {"DESK->BROKER"_s, {}, {}, 0, {}, {}});
    ASSERT_EQ(outbox.error, QString());
    SampleRow started;
    started.startsNow = true;
    ledger->createBatch(sampleDraft({started}));
    const Outcome<Batch> second = ledger->createBatch(sampleDraft({started}), inPlaceOf(1));
    ASSERT_EQ(second.error, QString());
    const auto taken = outbox.value->take(9);
    ASSERT_EQ(taken.value.size(), 1) << "the first is not sent any more";
    EXPECT_EQ(taken.value.first().instance.id.batch, 2);
    EXPECT_FALSE(ledger->createBatch(sampleDraft({started}), inPlaceOf(2)).ok());
    EXPECT_EQ(ledger->batch(2).value.state, BatchState::Created);
}

TEST(Replace, NeedsABatchThatStandsOfTheSameAccount)
{
    SampleLedger ledger;
    ledger->createBatch(worth(1, 1));
    expectNeither(ledger, ledger->createBatch(worth(1, 1), inPlaceOf(7)), "没有批次 7"_s);
    BatchDraft other = worth(1, 1);
    other.account = "2001"_s;
    expectNeither(ledger, ledger->createBatch(other, inPlaceOf(1)), "不能由账号 2001 的批次替换"_s);
    ledger->undo(1);
    EXPECT_TRUE(ledger->createBatch(worth(1, 1), inPlaceOf(1)).error.contains("没有可替换的内容"_s));
    EXPECT_EQ(allBatches(*ledger).value.size(), 1);
}

TEST(Replace, DoesNeitherWhereTheNewBatchIsRefused)
{
    SampleLedger ledger;
    ledger->createBatch(worth(2, 100));
    CreationTerms terms = inPlaceOf(1);
    terms.limits.dayBuy = 300;
    QList<Finding> refusals;
    expectNeither(ledger, ledger->createBatch(worth(4, 100), terms, &refusals), QString());
    ASSERT_EQ(refusals.size(), 1);
    EXPECT_EQ(refusals.first().arguments.first(), "400"_s) << "without the one that would go";
    ASSERT_TRUE(ledger->halt("1001"_s, "行情异常"_s).ok());
    expectNeither(ledger, ledger->createBatch(worth(1, 1), inPlaceOf(1)), "行情异常"_s);
}

TEST(Replace, GivesTheDayBackToTheNewBatch)
{
    SampleLedger ledger;
    ledger->createBatch(worth(2, 100));
    CreationTerms terms = inPlaceOf(1);
    terms.limits.dayBuy = 300;
    terms.limits.dayInstances = 3;
    EXPECT_EQ(ledger->standingOf(worth(3, 100), 1).value.day.buy, 0);
    EXPECT_EQ(ledger->standingOf(worth(3, 100), 1).value.day.instances, 0);
    EXPECT_EQ(ledger->createBatch(worth(3, 100), terms).error, QString());
}

TEST(Replace, TakesTheQuestionsAboutTheOldBatchAway)
{
    SampleLedger ledger;
    BatchDraft draft = worth(2, 100);
    draft.fileSha256 = "ab"_s;
    ledger->createBatch(draft);
    BatchDraft again = worth(2, 100);
    again.fileSha256 = "ab"_s;
    const auto rulesOf = [&](const Settled& settled) {
        QStringList rules;
        const Outcome<Review> review = reviewBatch(*ledger, again, {}, {}, settled);
        for (const Finding& finding : review.value.verdict.warnings) {
            rules.append(finding.rule);
        }
        return rules;
    };
    EXPECT_TRUE(rulesOf({}).contains("sameFile"_s));
    EXPECT_FALSE(rulesOf({1, {}}).contains("sameFile"_s));
    const QStringList leftOut = rulesOf({std::nullopt, {1}});
    EXPECT_FALSE(leftOut.contains("sameFile"_s));
    EXPECT_TRUE(leftOut.contains("sameRows"_s)) << "rows that are still the same are asked for";
}

TEST(Replace, PutsABatchThatWaitsInThePlaceOfAnother)
{
    SampleLedger ledger;
    CreationTerms terms;
    terms.limits.approvalAmount = 100;
    ASSERT_EQ(ledger->createBatch(worth(2, 100), terms).value.state, BatchState::Waiting);
    terms.replaces = 1;
    EXPECT_EQ(ledger->createBatch(worth(3, 100), terms).value.state, BatchState::Waiting);
    EXPECT_EQ(ledger->batch(1).value.state, BatchState::Withdrawn);
    EXPECT_EQ(ledger->status().value.waiting, 1);
}

TEST(Standing, TellsHowOftenABatchHoldsAnOrder)
{
    SampleLedger ledger;
    ledger->createBatch(sampleDraft({SampleRow(), SampleRow(), {"600001.SH"_s}}));
    const BatchDraft draft = sampleDraft({{"600001.SH"_s}, SampleRow(), {"600002.SH"_s}});
    const QList<Duplicate> found = ledger->standingOf(draft).value.duplicates;
    ASSERT_EQ(found.size(), 1);
    EXPECT_EQ(found.first().held, (QMap<int, int>{{1, 1}, {2, 2}}));
}
