#include "ledger/draft/BatchDiff.h"

#include "tests/ledger/SampleDrafts.h"

#include <gtest/gtest.h>

using namespace ledger;

namespace {

const QStringList Columns{"证券代码"_s, "交易方向"_s, "委托数量"_s};

BatchTable table(const QList<QStringList>& rows, const QStringList& columns = Columns)
{
    return {columns, rows};
}

/// With the columns of these tables that name an order.
BatchDiff diffOf(const BatchTable& before, const BatchTable& after)
{
    return compareTables(before, after, {"证券代码"_s, "市场"_s, "交易方向"_s});
}

} // namespace

TEST(BatchDiff, OfTheSameTableIsEmpty)
{
    const BatchTable same = table({{"A"_s, "买入"_s, "100"_s}, {"A"_s, "买入"_s, "100"_s}});
    EXPECT_TRUE(diffOf(same, same).isEmpty());
}

TEST(BatchDiff, NamesTheColumnAndBothTextsOfAChangedCell)
{
    const BatchDiff diff = diffOf(table({{"A"_s, "买入"_s, "100"_s}, {"B"_s, "买入"_s, "5"_s}}),
                                  table({{"B"_s, "买入"_s, "5"_s}, {"A"_s, "买入"_s, "200"_s}}));
    ASSERT_EQ(diff.cellsChanged.size(), 1);
    const ChangedCell cell = diff.cellsChanged.first();
    EXPECT_EQ(cell.oldRow, 1);
    EXPECT_EQ(cell.newRow, 2);
    EXPECT_EQ(cell.column, "委托数量"_s);
    EXPECT_EQ(cell.before, "100"_s);
    EXPECT_EQ(cell.after, "200"_s);
    EXPECT_TRUE(diff.rowsAdded.isEmpty() && diff.rowsRemoved.isEmpty());
}

TEST(BatchDiff, TakesTheSameNumberForTheSameHoweverItIsWritten)
{
    const auto isChanged = [](const char* before, const char* after) {
        return !diffOf(table({{"A"_s, "买入"_s, QString::fromLatin1(before)}}),
                       table({{"A"_s, "买入"_s, QString::fromLatin1(after)}}))
                    .isEmpty();
    };
    EXPECT_FALSE(isChanged("36.20", "36.2"));
    EXPECT_FALSE(isChanged("1000", "1000.0"));
    EXPECT_TRUE(isChanged("36.20", "36.21"));
    EXPECT_TRUE(isChanged("0015", "15")) << "a code, perhaps";
    EXPECT_TRUE(isChanged("", "0"));
}

TEST(BatchDiff, ListsRowsAddedAndRemoved)
{
    const BatchDiff diff = diffOf(table({{"A"_s, "买入"_s, "1"_s}, {"B"_s, "买入"_s, "2"_s}}),
                                  table({{"B"_s, "买入"_s, "2"_s}, {"C"_s, "买入"_s, "3"_s}}));
    ASSERT_EQ(diff.rowsAdded.size(), 1);
    EXPECT_EQ(diff.rowsAdded.first().row, 2);
    EXPECT_EQ(diff.rowsAdded.first().cells.first(), "C"_s);
    ASSERT_EQ(diff.rowsRemoved.size(), 1);
    EXPECT_EQ(diff.rowsRemoved.first().row, 1);
    EXPECT_TRUE(diff.cellsChanged.isEmpty());
}

TEST(BatchDiff, TakesATurnedDirectionForAnotherOrder)
{
    const BatchDiff diff = diffOf(table({{"A"_s, "买入"_s, "1"_s}}), table({{"A"_s, "卖出"_s, "1"_s}}));
    EXPECT_EQ(diff.rowsAdded.size(), 1);
    EXPECT_EQ(diff.rowsRemoved.size(), 1);
}

TEST(BatchDiff, OfOneRowTakenOutAmongSeveralOfASecurityChangesNoOther)
{
    const BatchDiff diff =
        diffOf(table({{"A"_s, "买入"_s, "1"_s}, {"A"_s, "买入"_s, "2"_s}, {"A"_s, "买入"_s, "3"_s}}),
               table({{"A"_s, "买入"_s, "2"_s}, {"A"_s, "买入"_s, "3"_s}}));
    EXPECT_TRUE(diff.cellsChanged.isEmpty());
    ASSERT_EQ(diff.rowsRemoved.size(), 1);
    EXPECT_EQ(diff.rowsRemoved.first().row, 1);
}

TEST(BatchDiff, FollowsColumnsByNameAndListsThoseThatCameOrWent)
{
    const BatchDiff diff =
        diffOf(table({{"A"_s, "买入"_s, "1"_s}}),
               table({{"说明"_s, "A"_s, "买入"_s}}, {"备注"_s, "证券代码"_s, "交易方向"_s}));
    EXPECT_EQ(diff.columnsAdded, QStringList{"备注"_s});
    EXPECT_EQ(diff.columnsRemoved, QStringList{"委托数量"_s});
    EXPECT_TRUE(diff.cellsChanged.isEmpty() && diff.rowsAdded.isEmpty() && diff.rowsRemoved.isEmpty());
    EXPECT_FALSE(diff.isEmpty());
}

TEST(BatchDiff, BearsRowsShorterThanTheirColumns)
{
    const BatchDiff diff = diffOf(table({{"A"_s}}), table({{"A"_s, QString(), "7"_s}}));
    ASSERT_EQ(diff.cellsChanged.size(), 1);
    EXPECT_EQ(diff.cellsChanged.first().before, QString());
    EXPECT_EQ(diff.cellsChanged.first().after, "7"_s);
}

TEST(BatchDiff, ComparesWithTheTableThatTheLedgerKept)
{
    SampleLedger ledger;
    ledger->createBatch(sampleDraft(3));
    ledger.reopen();
    BatchTable edited = sampleDraft(3).table;
    edited.rows[1][2] = "1200"_s;
    const BatchDiff diff = diffOf(ledger->tableOf(1).value, edited);
    ASSERT_EQ(diff.cellsChanged.size(), 1);
    EXPECT_EQ(diff.cellsChanged.first().newRow, 2);
}
