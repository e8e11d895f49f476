#include "desk/verdict/Duplicates.h"

#include "tests/ledger/SampleDrafts.h"

#include <gtest/gtest.h>

using namespace ledger;

namespace {

/// Rows of a draft, of which some are bound by a number.
BatchDraft drafted(const QStringList& pairs)
{
    BatchDraft draft = sampleDraft(pairs.size());
    for (int i = 0; i < pairs.size(); ++i) {
        draft.instances[i].parameters["配对编号"_s] = pairs.at(i);
        draft.instances[i].legs.first().amount = 100;
    }
    return draft;
}

Duplicate holding(const QMap<int, int>& held)
{
    Duplicate duplicate;
    duplicate.held = held;
    return duplicate;
}

/// The quantity of row 4 was filled in by the import.
QString asTyped(int row, const QString& column)
{
    return row == 4 && column == "委托数量"_s ? QString() : column;
}

} // namespace

TEST(RowsHeld, AreLeftOutAsOftenAsTheyAreHeldByAllBatchesTogether)
{
    BatchDraft draft = drafted({{}, {}, {}, {}});
    draft.instances[1] = draft.instances[0];
    draft.instances[2] = draft.instances[0];
    const QMap<int, int> once{{1, 1}, {2, 1}, {3, 1}};
    EXPECT_EQ(verdict::rowsHeld(draft, {holding(once)}), (QSet<int>{1}));
    EXPECT_EQ(verdict::rowsHeld(draft, {holding(once), holding(once)}), (QSet<int>{1, 2}));
    EXPECT_TRUE(verdict::rowsHeld(draft, {}).isEmpty());
}

TEST(RowsHeld, KeepTheLegsOfAPairTogether)
{
    const BatchDraft draft = drafted({"P1"_s, "P1"_s, "P2"_s, "P2"_s, " "_s});
    EXPECT_EQ(verdict::rowsHeld(draft, {holding({{1, 1}, {3, 1}, {4, 1}, {5, 1}})}), (QSet<int>{3, 4, 5}));
}

TEST(ADraftWithoutRows, HasTheOthersInOrderWithTheirTableAndTheirAmounts)
{
    const BatchDraft whole = drafted({{}, {}, {}});
    const BatchDraft left = verdict::without(whole, {2});
    ASSERT_EQ(left.instances.size(), 2);
    EXPECT_EQ(left.instances.at(1).legs.first().symbol, "600002.SH"_s);
    EXPECT_EQ(left.table.rows.at(1).first(), "600002.SH"_s);
    EXPECT_EQ(left.expectedBuy, 200);
    EXPECT_EQ(left.id, whole.id);
    EXPECT_EQ(verdict::without(whole, {}).expectedBuy, whole.expectedBuy);
}

TEST(ChangedOnly, LeavesOutWhatTheBatchHoldsAndWasNotWithdrawn)
{
    SampleLedger ledger;
    ASSERT_TRUE(ledger->createBatch(drafted({{}, {}, {}, {}})).ok());
    ASSERT_TRUE(ledger->withdraw({{{1, 2}}, std::nullopt}).ok());
    BatchDraft draft = drafted({{}, {}, {}, {}});
    draft.table.rows[2][2] = "900"_s;
    draft.table.rows[3][2] = "901"_s;
    const auto settled =
        verdict::settle(*ledger, draft, {verdict::DuplicateChoice::Way::ChangedOnly, 1}, asTyped);
    ASSERT_EQ(settled.error, QString());
    EXPECT_EQ(settled.value.leftOut, (QSet<int>{1, 4}));
    draft.strategy = "AIVWAP"_s;
    EXPECT_TRUE(verdict::settle(*ledger, draft, {verdict::DuplicateChoice::Way::ChangedOnly, 1}, asTyped)
                    .error.contains("AITWAP"_s));
    EXPECT_FALSE(
        verdict::settle(*ledger, draft, {verdict::DuplicateChoice::Way::ChangedOnly, 9}, asTyped).ok());
}
