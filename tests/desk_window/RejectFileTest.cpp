#include "desk/window/RejectFile.h"

#include "tests/support/Text.h"

#include <gtest/gtest.h>

namespace {

Problem ofRow(int line, const QString& reason)
{
    Problem problem;
    problem.place = Problem::Place::FileRow;
    problem.line = line;
    problem.reason = reason;
    return problem;
}

const QList<QStringList> File{{"代码"_s, "数量"_s, "开始时间"_s},
                              {"600000"_s, "1"_s, "2024-03-05T09:30:00.000"_s},
                              {"000001"_s},
                              {"688001"_s, "3"_s, "T"_s}};

} // namespace

TEST(RejectFileTest, HoldsTheRefusedRowsInFileOrderWithTheirReasons)
{
    const auto rows =
        reject_file::refusedRows({ofRow(4, "丙"_s), ofRow(3, "甲"_s), ofRow(3, "乙"_s)}, File, false);
    ASSERT_EQ(rows.size(), 2);
    EXPECT_EQ(rows.at(0).cells, QStringList{"000001"_s});
    EXPECT_EQ(rows.at(0).reason, "甲；乙"_s);
    EXPECT_EQ(rows.at(1).cells, File.at(3));
    EXPECT_EQ(rows.at(1).reason, "丙"_s);
}

TEST(RejectFileTest, SpellsTheDatesOfASpreadsheetAsACsvImportTakesThem)
{
    const auto dateOf = [](bool datesForCsv) {
        return reject_file::refusedRows({ofRow(2, "甲"_s)}, File, datesForCsv).value(0).cells.value(2);
    };
    EXPECT_EQ(dateOf(true), "2024-03-05 09:30:00"_s);
    EXPECT_EQ(dateOf(false), "2024-03-05T09:30:00.000"_s);
}

TEST(RejectFileTest, LeavesOutWhatIsNoRowOfTheFile)
{
    Problem ofBatch = ofRow(2, "甲"_s);
    ofBatch.place = Problem::Place::BatchRow;
    EXPECT_TRUE(
        reject_file::refusedRows({ofBatch, ofRow(9, "乙"_s), ofRow(1, "丙"_s)}, File, false).isEmpty());
    EXPECT_TRUE(reject_file::refusedRows({ofRow(2, "甲"_s)}, {}, false).isEmpty());
}

TEST(RejectFileTest, SuggestsANameOfTheOriginalsKindWhoseOnlyDotIsThatOfTheType)
{
    EXPECT_EQ(reject_file::suggestedPath("/data/名单.v2.xls"_s, true), "/data/名单_v2_问题行.xlsx"_s);
    EXPECT_EQ(reject_file::suggestedPath("/data/list.txt"_s, false), "/data/list_问题行.csv"_s);
}
