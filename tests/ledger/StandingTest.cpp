#include "tests/ledger/SampleDrafts.h"

#include <gtest/gtest.h>

using namespace ledger;

namespace {

QDateTime shanghai(int day, int hour, int minute)
{
    return QDateTime(QDate(2025, 11, day), QTime(hour, minute), Qt::OffsetFromUTC, 8 * 3600).toUTC();
}

/// Another draft with the same content.
BatchDraft again(BatchDraft draft)
{
    draft.id = QUuid::createUuid();
    return draft;
}

QList<qint64> batchesOf(const QList<Duplicate>& duplicates)
{
    QList<qint64> numbers;
    for (const Duplicate& duplicate : duplicates) {
        numbers.append(duplicate.batch);
    }
    return numbers;
}

} // namespace

TEST(Standing, HoldsTheSameFileAndTheSameRowsOfTheDay)
{
    SampleLedger ledger;
    const BatchDraft draft = sampleDraft(3);
    ledger->createBatch(draft);
    BatchDraft other = sampleDraft(2);
    other.fileSha256 = QString(64, QLatin1Char('b'));
    ledger->createBatch(other);
    const QList<Duplicate> found = ledger->standingOf(again(draft)).value.duplicates;
    ASSERT_EQ(batchesOf(found), (QList<qint64>{2, 1})) << "newest first";
    EXPECT_FALSE(found.at(0).isSameFile);
    EXPECT_EQ(found.at(0).rows, (QSet<int>{1, 2}));
    EXPECT_TRUE(found.at(1).isSameFile);
    EXPECT_EQ(found.at(1).createdBy, "trader"_s);
}

TEST(Standing, HoldsTheSameFileOfEveryAccountButRowsOfItsOwn)
{
    SampleLedger ledger;
    BatchDraft elsewhere = sampleDraft(2);
    elsewhere.account = "2001"_s;
    ledger->createBatch(elsewhere);
    BatchDraft draft = sampleDraft(2);
    const QList<Duplicate> found = ledger->standingOf(draft).value.duplicates;
    ASSERT_EQ(batchesOf(found), QList<qint64>{1});
    EXPECT_EQ(found.first().account, "2001"_s);
    EXPECT_TRUE(found.first().rows.isEmpty());
    draft.fileSha256 = QString(64, QLatin1Char('b'));
    EXPECT_TRUE(ledger->standingOf(draft).value.duplicates.isEmpty());
}

TEST(Standing, OfADayBeginsAtMidnightInShanghai)
{
    SampleLedger ledger;
    ledger.now = shanghai(3, 9, 30);
    const BatchDraft draft = sampleDraft(1);
    ledger->createBatch(draft);
    ledger.now = shanghai(3, 23, 59);
    EXPECT_EQ(ledger->standingOf(again(draft)).value.duplicates.size(), 1);
    EXPECT_EQ(ledger->standingOf(draft).value.day.batches, 1);
    ledger.now = shanghai(4, 9, 30);
    EXPECT_TRUE(ledger->standingOf(again(draft)).value.duplicates.isEmpty());
    EXPECT_EQ(ledger->standingOf(draft).value.day.batches, 0);
}

TEST(Standing, HoldsTheNightSessionAfterMidnight)
{
    SampleLedger ledger;
    ledger.now = shanghai(3, 21, 30);
    const BatchDraft draft = sampleDraft(1);
    ledger->createBatch(draft);
    ledger.now = shanghai(4, 0, 30);
    EXPECT_EQ(batchesOf(ledger->standingOf(again(draft)).value.duplicates), QList<qint64>{1});
}

TEST(Standing, StillHoldsABatchFromBeforeTheClockWasSetBack)
{
    SampleLedger ledger;
    ledger->createBatch(sampleDraft(1));
    ledger.now = sampleMorning().addDays(-1);
    EXPECT_EQ(ledger->standingOf(sampleDraft(1)).value.duplicates.size(), 1);
}

TEST(Standing, AsksAboutTheSameFileWhereTheClockWentADayAhead)
{
    SampleLedger ledger;
    const BatchDraft draft = sampleDraft(1);
    ledger->createBatch(draft);
    ledger.now = sampleMorning().addDays(1);
    const Standing standing = ledger->standingOf(again(draft)).value;
    EXPECT_TRUE(standing.duplicates.isEmpty());
    EXPECT_EQ(batchesOf(standing.lately), QList<qint64>{1});
    ledger.now = sampleMorning().addDays(2);
    EXPECT_TRUE(ledger->standingOf(again(draft)).value.lately.isEmpty());
}
