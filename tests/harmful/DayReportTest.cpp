#include "desk/report/DayReport.h"

#include "ledger/Outbox.h"
#include "tests/ledger/SampleDrafts.h"
#include "tests/support/Text.h"

#include <gtest/gtest.h>

using day_report::Count;
using day_report::Counter;

namespace {

const QDate Day(2025, 11, 3);

ledger::Batch batch(const QString& account, const QString& strategy, int rows, int second)
{
    ledger::Batch made;
    made.account = account;
    made.strategy = strategy;
    made.rowCount = rows;
    made.expectedBuy = 100;
    made.createdAt = sampleMorning().addSecs(second);
    return made;
}

/// A batch whose orders all go out in the second of its creation.
void add(Counter& counter, const ledger::Batch& batch)
{
    counter.addBatch(batch);
    counter.addOrders(batch, batch.createdAt, batch.rowCount);
}

} // namespace

TEST(DayReport, CountsByAccountAndStrategyAndTheSumOfAnAccount)
{
    Counter counter(Day);
    add(counter, batch("1001"_s, "AITWAP"_s, 5, 0));
    add(counter, batch("1001"_s, "AIVWAP"_s, 6, 0));
    add(counter, batch("1001"_s, "AITWAP"_s, 5, 60));
    add(counter, batch("1001"_s, "AITWAP"_s, 9, 24 * 3600)); // another day
    const QList<Count> counts = counter.counts();
    ASSERT_EQ(3, counts.size());
    EXPECT_EQ("AITWAP"_s, counts.at(0).strategy);
    EXPECT_EQ(10, counts.at(0).orders);
    EXPECT_EQ(2, counts.at(0).batches);
    EXPECT_EQ("*"_s, counts.at(2).strategy);
    EXPECT_EQ(16, counts.at(2).orders);
    EXPECT_EQ(11, counts.at(2).peak) << "two batches in one second";
    EXPECT_EQ(1, counts.at(2).busySeconds);
    EXPECT_EQ(sampleMorning(), counts.at(2).first);
    EXPECT_EQ(sampleMorning().addSecs(60), counts.at(2).last);
}

TEST(DayReport, HighFrequencyBeginsAtItsThresholds)
{
    for (const int orders : {day_report::ManyASecond - 1, day_report::ManyASecond}) {
        Counter counter(Day);
        add(counter, batch("1001"_s, "AITWAP"_s, orders, 0));
        EXPECT_EQ(orders >= day_report::ManyASecond, counter.counts().first().isHighFrequency()) << orders;
    }
    for (const int orders : {day_report::ManyADay - 1, day_report::ManyADay}) {
        Counter counter(Day);
        for (int i = 0; i < orders; ++i) {
            add(counter, batch("1001"_s, "AITWAP"_s, 1, i % 20000));
        }
        EXPECT_EQ(orders >= day_report::ManyADay, counter.counts().first().isHighFrequency()) << orders;
    }
    for (const int orders : {day_report::SomeASecond - 1, day_report::SomeASecond}) {
        Counter counter(Day);
        add(counter, batch("1001"_s, "AITWAP"_s, orders, 0));
        EXPECT_EQ(orders >= day_report::SomeASecond ? 1 : 0, counter.counts().first().busySeconds) << orders;
    }
}

/// What a gateway took counts when it was taken, whenever it was created.
TEST(DayReport, OrdersCountInTheSecondInWhichTheyWereSent)
{
    SampleLedger ledger;
    const auto outbox = ledger::Outbox::claim(ledger.shared(), {"S"_s, {}, "h"_s, 1, "loggedOn"_s, {}}).value;
    ledger::BatchDraft draft = sampleDraft(12);
    for (ledger::InstanceDraft& instance : draft.instances) {
        instance.startsNow = true;
    }
    ASSERT_TRUE(ledger->createBatch(draft).ok());
    EXPECT_TRUE(day_report::read(*ledger, Day).value.isEmpty()) << "queued is not sent";
    const QDateTime created = ledger.now;
    for (const int count : {3, 5}) {
        ledger.now = ledger.now.addSecs(7);
        ASSERT_EQ(count, outbox->take(count).value.size());
    }
    ledger.now = created.addDays(1);
    ASSERT_EQ(2, outbox->take(2).value.size());
    ASSERT_TRUE(ledger->undo(1).ok()) << "the last two were never sent";

    const Count today = day_report::read(*ledger, Day).value.value(0);
    EXPECT_EQ(8, today.orders);
    EXPECT_EQ(1, today.batches);
    EXPECT_EQ(5, today.peak);
    EXPECT_EQ(created.addSecs(7), today.first);
    EXPECT_EQ(created.addSecs(14), today.last);
    EXPECT_EQ(today.last, today.peakAt);
    const Count tomorrow = day_report::read(*ledger, Day.addDays(1)).value.value(0);
    EXPECT_EQ(2, tomorrow.orders);
    EXPECT_EQ(0, tomorrow.batches);
}

TEST(DayReport, ReadsALedgerAndNamesTheSoftware)
{
    SampleLedger ledger;
    ASSERT_TRUE(ledger->createBatch(sampleDraft(12)).ok());
    const auto counts = day_report::read(*ledger, Day);
    ASSERT_TRUE(counts.ok()) << counts.error.toStdString();
    ASSERT_EQ(2, counts.value.size());
    EXPECT_EQ(12, counts.value.first().orders);
    EXPECT_TRUE(day_report::read(*ledger, Day.addDays(1)).value.isEmpty());
    const QList<QStringList> table = day_report::table(counts.value, Day, "algodesk"_s, "1.0"_s);
    ASSERT_EQ(3, table.size());
    EXPECT_EQ("2025-11-03"_s, table.at(1).first());
    EXPECT_EQ("2025-11-03 10:00:00"_s, table.at(1).at(3));
    EXPECT_EQ("1.0"_s, table.at(1).last());
    EXPECT_EQ(table.first().size(), table.last().size());
}
