// Which rows an import passes over, and which line a row came from.

#include "table/Table.h"

#include <gtest/gtest.h>

namespace {

struct Case {
    const char* name;
    QStringList row;
    bool passedOver;
};

class BlankOrNote : public testing::TestWithParam<Case> {};

TEST_P(BlankOrNote, IsToldByItsFirstCells)
{
    EXPECT_EQ(table::isBlankOrNote(GetParam().row), GetParam().passedOver);
}

INSTANTIATE_TEST_SUITE_P(
    Rows, BlankOrNote,
    testing::Values(
        Case{"NoCells", {}, true}, Case{"OneEmptyCell", {QString()}, true},
        Case{"OneBlankCellIsData", {QStringLiteral(" ")}, false},
        Case{"TwoEmptyCellsAreData", {QString(), QString()}, false},
        Case{"NoteBehindTwoBlanks", {QStringLiteral(" "), QString(), QStringLiteral("备注：")}, true},
        Case{"NameWithoutCodeIsData", {QString(), QStringLiteral("浦发银行"), QString()}, false}),
    [](const testing::TestParamInfo<Case>& tested) { return std::string(tested.param.name); });

TEST(Table, TellsTheLineOfARow)
{
    table::Table read;
    read.lines = {1, 4};
    EXPECT_EQ(read.lineOf(1), 4);
    EXPECT_EQ(read.lineOf(2), 3);
}

} // namespace
