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

const QString Legs = "导入方向、委托属性、限价中，某字段格式错误"_s;
const QString Doubt = "该行号可能不是文件行号，请核对"_s;

QStringList lockRow(const QString& code, const QString& directions = "1/2"_s)
{
    return {code, directions, "0/0"_s, "9.8/9.9"_s};
}

/// "code: reason" of each row that goes to the reject file of a lock strategy's file.
QStringList lockRejects(const QList<Problem>& problems, const QList<QStringList>& rows,
                        QString* doubt = nullptr)
{
    const QStringList header{"代码"_s, "方向"_s, "委托属性"_s, "限价"_s};
    const reject_file::Refused refused =
        reject_file::refusedRows(problems, QList<QStringList>{header} + rows, false);
    QStringList lines;
    for (const table_writer::RefusedRow& row : refused.rows) {
        lines.append(row.cells.first() + QLatin1Char(':') + row.reason);
    }
    if (doubt) {
        *doubt = refused.doubt;
    }
    return lines;
}

} // namespace

TEST(RejectFileTest, HoldsTheRefusedRowsInFileOrderWithTheirReasons)
{
    const auto rows =
        reject_file::refusedRows({ofRow(4, "丙"_s), ofRow(3, "甲"_s), ofRow(3, "乙"_s)}, File, false).rows;
    ASSERT_EQ(rows.size(), 2);
    EXPECT_EQ(rows.at(0).cells, QStringList{"000001"_s});
    EXPECT_EQ(rows.at(0).reason, "甲；乙"_s);
    EXPECT_EQ(rows.at(1).cells, File.at(3));
    EXPECT_EQ(rows.at(1).reason, "丙"_s);
}

TEST(RejectFileTest, SpellsTheDatesOfASpreadsheetAsACsvImportTakesThem)
{
    const auto dateOf = [](bool datesForCsv) {
        return reject_file::refusedRows({ofRow(2, "甲"_s)}, File, datesForCsv).rows.value(0).cells.value(2);
    };
    EXPECT_EQ(dateOf(true), "2024-03-05 09:30:00"_s);
    EXPECT_EQ(dateOf(false), "2024-03-05T09:30:00.000"_s);
}

TEST(RejectFileTest, LeavesOutWhatIsNoRowOfTheFile)
{
    Problem ofBatch = ofRow(2, "甲"_s);
    ofBatch.place = Problem::Place::BatchRow;
    EXPECT_TRUE(
        reject_file::refusedRows({ofBatch, ofRow(9, "乙"_s), ofRow(1, "丙"_s)}, File, false).rows.isEmpty());
    EXPECT_TRUE(reject_file::refusedRows({ofRow(2, "甲"_s)}, {}, false).rows.isEmpty());
}

TEST(RejectFileTest, SuggestsANameOfTheOriginalsKindWhoseOnlyDotIsThatOfTheType)
{
    EXPECT_EQ(reject_file::suggestedPath("/data/名单.v2.xls"_s, true), "/data/名单_v2_问题行.xlsx"_s);
    EXPECT_EQ(reject_file::suggestedPath("/data/list.txt"_s, false), "/data/list_问题行.csv"_s);
}

TEST(RejectFileTest, FindsTheRowOfFaultyLegsBehindRowsThatDidNotGetThatFar)
{
    QString doubt;
    EXPECT_EQ(
        lockRejects(
            {ofRow(2, "甲"_s), ofRow(4, Legs)},
            {lockRow("a"_s), lockRow("x"_s), {""_s, ""_s, "注"_s}, lockRow("b"_s), lockRow("c"_s, "1"_s)},
            &doubt),
        QStringList({"a:甲"_s, "c:"_s + Legs}));
    EXPECT_EQ(doubt, QString());
    EXPECT_EQ(lockRejects({ofRow(2, Legs), ofRow(3, Legs)},
                          {lockRow("a"_s, "1"_s), lockRow("b"_s, "1/2/1"_s), lockRow("c"_s)}),
              QStringList({"a:"_s + Legs, "b:"_s + Legs}));
}

TEST(RejectFileTest, TakesEveryRowAlongThatFaultyLegsMayMean)
{
    // The first row's own problem is lost: the second one's legs, those of the first instance, took its
    // place.
    QString doubt;
    EXPECT_EQ(lockRejects({ofRow(2, Legs)}, {lockRow("a"_s), lockRow("b"_s, "1"_s), lockRow("c"_s)}, &doubt),
              QStringList({"a:"_s + Legs + "；"_s + Doubt, "b:"_s + Legs + "；"_s + Doubt}));
    EXPECT_EQ(doubt, Doubt);
}
