#include "desk/working_copy/WorkingCopy.h"

#include "desk/working_copy/EditWords.h"
#include "tests/support/Text.h"

#include <gtest/gtest.h>

#include <QJsonObject>

using working_copy::Edit;
using working_copy::WorkingCopy;

namespace {

/// A header on line 1 and rows on lines 2, 4, 5: a cell of line 2 holds a line end.
table::Table sample(const QString& format = "csv"_s)
{
    table::Table table;
    table.format = format;
    table.rows = {{"证券代码"_s, "风格"_s}, {"600000"_s, "激进"_s}, {"60000"_s, "激进"_s}, {"合计"_s}};
    table.lines = {1, 2, 4, 5};
    return table;
}

QList<QStringList> rowsOf(const WorkingCopy& copy)
{
    return copy.edited().rows;
}

} // namespace

TEST(WorkingCopy, IsTheTableUntilItIsEdited)
{
    const WorkingCopy copy(sample());
    EXPECT_EQ(rowsOf(copy), sample().rows);
    EXPECT_EQ(copy.edited().lines, sample().lines);
    EXPECT_FALSE(copy.isEdited());
    EXPECT_TRUE(copy.toJson().isEmpty());
}

TEST(WorkingCopy, PutsATextIntoACellAndTakesItBack)
{
    WorkingCopy copy(sample());
    EXPECT_TRUE(copy.setCell(4, 0, "600000"_s));
    EXPECT_EQ(copy.edited().rows.at(2).first(), "600000"_s);
    EXPECT_EQ(copy.original().rows.at(2).first(), "60000"_s);
    copy.undo();
    EXPECT_EQ(rowsOf(copy), sample().rows);
    copy.redo();
    EXPECT_EQ(copy.edited().rows.at(2).first(), "600000"_s);
}

TEST(WorkingCopy, TakesNoEditThatChangesNothing)
{
    WorkingCopy copy(sample());
    EXPECT_FALSE(copy.setCell(2, 0, "600000"_s));
    EXPECT_FALSE(copy.setCell(3, 0, "x"_s)) << "no row stands on line 3";
    EXPECT_FALSE(copy.setCell(5, 4, QString()));
    EXPECT_FALSE(copy.leaveOut({1})) << "the header";
    EXPECT_FALSE(copy.takeIn({2}));
    EXPECT_EQ(copy.replaceInColumn(1, "保守"_s, "x"_s), 0);
    EXPECT_FALSE(copy.isEdited());
}

TEST(WorkingCopy, LeavesRowsOutWithoutMovingTheOthers)
{
    WorkingCopy copy(sample());
    EXPECT_TRUE(copy.leaveOut({2}));
    EXPECT_EQ(rowsOf(copy).at(1), QStringList());
    EXPECT_EQ(copy.edited().lines, QList<int>({1, 2, 4, 5}));
    EXPECT_TRUE(copy.rows().at(1).isLeftOut);
    EXPECT_TRUE(copy.leaveOut({4, 5}));
    EXPECT_EQ(rowsOf(copy).size(), 1) << "nothing blank stands at the end";
    EXPECT_TRUE(copy.takeIn({4}));
    EXPECT_EQ(rowsOf(copy), QList<QStringList>({{"证券代码"_s, "风格"_s}, {}, {"60000"_s, "激进"_s}}));
}

TEST(WorkingCopy, PastesOverCellsAndBehindTheLastRow)
{
    WorkingCopy copy(sample());
    EXPECT_TRUE(copy.paste(5, 1, {{"a"_s, "b"_s}, {"c"_s}}));
    EXPECT_EQ(rowsOf(copy).at(3), QStringList({"合计"_s, "a"_s, "b"_s}));
    EXPECT_EQ(rowsOf(copy).at(4), QStringList({QString(), "c"_s}));
    EXPECT_EQ(copy.edited().lines.last(), 6);
    EXPECT_TRUE(copy.rows().last().isAdded);
    EXPECT_EQ(copy.edits().size(), 1) << "undone at once";
    copy.undo();
    EXPECT_EQ(rowsOf(copy), sample().rows);
}

TEST(WorkingCopy, AddsNoRowToAFileThatWasNotReadToItsEnd)
{
    table::Table table = sample();
    while (table.rows.size() < table::RowsToRead) {
        table.rows.append({"600000"_s});
        table.lines.append(table.lines.last() + 1);
    }
    WorkingCopy copy(table);
    EXPECT_TRUE(copy.isPart());
    EXPECT_FALSE(copy.addRows({{"x"_s}}));
    EXPECT_TRUE(copy.leaveOut({table.lines.last()}));
    EXPECT_EQ(rowsOf(copy).size(), table::RowsToRead) << "it stays too long, and is said to be";
}

TEST(WorkingCopy, ReplacesAValueInTheRowsThatAreIn)
{
    WorkingCopy copy(sample());
    copy.leaveOut({2});
    EXPECT_EQ(copy.replaceInColumn(1, "激进"_s, "aggressive"_s), 1);
    EXPECT_EQ(copy.cell(2, 1), "激进"_s);
    EXPECT_EQ(copy.cell(4, 1), "aggressive"_s);
}

TEST(WorkingCopy, ForgetsWhatTheSheetSaidOfAChangedCell)
{
    table::Table table = sample("xlsx"_s);
    table.inspection.numbers = {{{1, 0}, "600000.0"_s}, {{2, 0}, "60000.0"_s}};
    table.inspection.uncalculated = {{2, 1}};
    WorkingCopy copy(table);
    copy.setCell(2, 0, "600001"_s);
    copy.leaveOut({4});
    EXPECT_TRUE(copy.edited().inspection.numbers.isEmpty());
    EXPECT_TRUE(copy.edited().inspection.uncalculated.isEmpty());
    copy.undo();
    EXPECT_EQ(copy.edited().inspection.numbers.size(), 1);
}

TEST(WorkingCopy, SpellsWhatIsTypedIntoASpreadsheetAsTheReaderWould)
{
    WorkingCopy sheet(sample("xlsx"_s));
    sheet.setCell(2, 0, "2026/11/23 9:35"_s);
    EXPECT_EQ(sheet.cell(2, 0), "2026-11-23T09:35:00.000"_s);
    sheet.setCell(2, 0, "9:35"_s);
    EXPECT_EQ(sheet.cell(2, 0), "09:35:00"_s);
    sheet.setCell(2, 1, QString());
    EXPECT_EQ(rowsOf(sheet).at(1).size(), 1) << "a sheet's row ends at its last filled cell";
    WorkingCopy text(sample());
    text.setCell(2, 0, "2026/11/23 9:35"_s);
    EXPECT_EQ(text.cell(2, 0), "2026/11/23 9:35"_s);
}

TEST(WorkingCopy, IsMadeAgainOfTheTableAndTheListOfEdits)
{
    WorkingCopy copy(sample());
    copy.setCell(4, 0, "600000"_s);
    copy.leaveOut({5});
    copy.addRows({{"688001"_s, "激进"_s}});
    copy.replaceInColumn(1, "激进"_s, "aggressive"_s);
    copy.setCell(2, 0, "gone"_s);
    copy.undo();
    const auto again = WorkingCopy::with(sample(), copy.toJson());
    ASSERT_EQ(again.error, QString());
    EXPECT_EQ(rowsOf(again.value), rowsOf(copy));
    EXPECT_EQ(again.value.edited().lines, copy.edited().lines);
    EXPECT_EQ(again.value.toJson(), copy.toJson());
}

TEST(WorkingCopy, SaysWhichEditDoesNotFitATable)
{
    WorkingCopy copy(sample());
    copy.setCell(4, 0, "600000"_s);
    table::Table other = sample();
    other.rows[2][0] = "changed meanwhile"_s;
    EXPECT_EQ(WorkingCopy::with(other, copy.toJson()).error, "edit 1 does not fit the table"_s);
    QJsonArray foreign = copy.toJson();
    foreign.append(QJsonObject{{"edit"_s, "burn"_s}});
    EXPECT_EQ(WorkingCopy::with(sample(), foreign).error, "edit 2 is of no known kind"_s);
}

TEST(WorkingCopy, TellsPeopleWhatWasDone)
{
    WorkingCopy copy(sample());
    copy.setCell(4, 0, "600000"_s);
    copy.replaceInColumn(1, "激进"_s, "aggressive"_s);
    copy.leaveOut({5});
    copy.takeIn({5});
    copy.addRows({{"688001"_s}});
    EXPECT_EQ(working_copy::sentences(copy.edits()),
              QStringList({"文件第 4 行“证券代码”：“60000” → “600000”"_s,
                           "“风格”列中的“激进”全部改为“aggressive”：文件第 2、4 行"_s, "不导入文件第 5 行"_s,
                           "恢复导入文件第 5 行"_s, "粘贴 1 行，编为第 6 行起"_s}));
}
