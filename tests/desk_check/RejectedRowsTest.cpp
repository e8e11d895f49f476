#include "desk/check/RejectedRows.h"

#include "table/FaultCatalogue.h"
#include "table/Rules.h"
#include "tests/support/Text.h"

#include <gtest/gtest.h>

namespace {

table::Fault onLine(int line, const QString& sentence)
{
    table::Fault fault = table::fault(table::rule::ReaderError, {sentence});
    fault.line = line;
    return fault;
}

/// A file with a cell of two lines in its first row, so that the rows stand on lines 1, 2, 4 and 5.
table::Table file()
{
    table::Table made;
    made.rows = {{"代码"_s, "数量"_s, "开始时间"_s},
                 {"600000"_s, "1\n2"_s, "2024-03-05T09:30:00.000"_s},
                 {"000001"_s},
                 {"688001"_s, "3"_s, "T"_s}};
    made.lines = {1, 2, 4, 5};
    made.format = "xlsx"_s;
    return made;
}

} // namespace

TEST(RejectedRows, StandInFileOrderWithAllThatIsSaidOfThem)
{
    const auto rows =
        rejected_rows::of({onLine(5, "丙"_s), onLine(4, "甲"_s), onLine(4, "乙"_s)}, file(), false);
    ASSERT_EQ(rows.size(), 2);
    EXPECT_EQ(rows.at(0).cells, QStringList{"000001"_s});
    EXPECT_EQ(rows.at(0).reason, "甲；乙"_s);
    EXPECT_EQ(rows.at(1).cells, file().rows.at(3));
    EXPECT_EQ(rows.at(1).reason, "丙"_s);
}

TEST(RejectedRows, SpellTheDatesOfASpreadsheetAsACsvImportTakesThem)
{
    const auto dateOf = [](bool datesForCsv) {
        return rejected_rows::of({onLine(2, "甲"_s)}, file(), datesForCsv).value(0).cells.value(2);
    };
    EXPECT_EQ(dateOf(true), "2024-03-05 09:30:00"_s);
    EXPECT_EQ(dateOf(false), "2024-03-05T09:30:00.000"_s);
    EXPECT_TRUE(rejected_rows::needDatesForCsv(file(), "out.csv"_s));
    EXPECT_FALSE(rejected_rows::needDatesForCsv(file(), "out.XLSX"_s));
    table::Table csv = file();
    csv.format = "csv"_s;
    EXPECT_FALSE(rejected_rows::needDatesForCsv(csv, "out.csv"_s));
}

TEST(RejectedRows, LeaveOutTheHeaderAndWhatIsNoRowOfTheFile)
{
    EXPECT_TRUE(
        rejected_rows::of({onLine(0, "甲"_s), onLine(1, "乙"_s), onLine(3, "丙"_s), onLine(9, "丁"_s)},
                          file(), false)
            .isEmpty());
    EXPECT_TRUE(rejected_rows::of({onLine(2, "甲"_s)}, {}, false).isEmpty());
}

TEST(RejectedRows, SuggestANameOfTheOriginalsKindWhoseOnlyDotIsThatOfTheType)
{
    EXPECT_EQ(rejected_rows::suggestedPath("/data/名单.v2.xls"_s, true), "/data/名单_v2_问题行.xlsx"_s);
    EXPECT_EQ(rejected_rows::suggestedPath("/data/list.txt"_s, false), "/data/list_问题行.csv"_s);
}
