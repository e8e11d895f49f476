#include "import/HeaderMatching.h"

#include "import/RowErrors.h"
#include "tests/support/DialogFixture.h"

using import::WantedColumns;

namespace {

WantedColumns wanted(const QStringList& titles, const QStringList& compulsory = {})
{
    const QMap<QString, QString> aliases = {
        {"方向"_s, "交易方向"_s}, {"扫盘比例(%)"_s, "扫盘比例（%）"_s}, {"代码"_s, "证券代码"_s}};
    return {titles, aliases, compulsory};
}

} // namespace

TEST(HeaderMatching, FindsTitlesInAnyOrderAndIgnoresTheOthers)
{
    const auto match = import::matchHeader({"乙"_s, "旁"_s, "甲"_s}, wanted({"甲"_s, "乙"_s}));
    EXPECT_FALSE(match.missingColumn);
    EXPECT_EQ((QMap<QString, int>{{"甲"_s, 2}, {"乙"_s, 0}}), match.columnIndexMap);
    EXPECT_TRUE(match.optionalMissing.isEmpty());
}

TEST(HeaderMatching, TakesTheFirstOfTwoEqualTitles)
{
    EXPECT_EQ(1, import::matchHeader({"旁"_s, "甲"_s, "甲"_s}, wanted({"甲"_s})).columnIndexMap["甲"_s]);
}

TEST(HeaderMatching, CountsBlanksAndLetterCase)
{
    const auto match = import::matchHeader({" 甲"_s, "甲 "_s, "px"_s}, wanted({"甲"_s, "PX"_s}));
    EXPECT_TRUE(match.columnIndexMap.isEmpty());
    EXPECT_EQ((QStringList{"甲"_s, "PX"_s}), match.optionalMissing);
}

TEST(HeaderMatching, ReadsAnAliasInBothDirections)
{
    const auto shortTitle = import::matchHeader({"旁"_s, "方向"_s}, wanted({"交易方向"_s}));
    EXPECT_EQ(1, shortTitle.columnIndexMap["交易方向"_s]);
    const auto longTitle = import::matchHeader({"旁"_s, "交易方向"_s}, wanted({"方向"_s}));
    EXPECT_EQ(1, longTitle.columnIndexMap["方向"_s]);
    const auto ascii = import::matchHeader({"扫盘比例(%)"_s}, wanted({"扫盘比例（%）"_s}));
    EXPECT_EQ(0, ascii.columnIndexMap["扫盘比例（%）"_s]);
    const auto fullWidth = import::matchHeader({"扫盘比例（%）"_s}, wanted({"扫盘比例(%)"_s}));
    EXPECT_EQ(0, fullWidth.columnIndexMap["扫盘比例(%)"_s]);
}

TEST(HeaderMatching, PrefersTheTitleItselfToItsAlias)
{
    const auto match = import::matchHeader({"代码"_s, "证券代码"_s}, wanted({"证券代码"_s}));
    EXPECT_EQ(1, match.columnIndexMap["证券代码"_s]);
}

TEST(HeaderMatching, KnowsTheDirectionAndEntrustPropertyColumnsByTheirOwnTitlesOnly)
{
    const QStringList titles = {"交易方向"_s, "委托属性"_s};
    const auto own = import::matchHeader({"旁"_s, "委托属性"_s, "交易方向"_s}, wanted(titles));
    EXPECT_EQ(2, own.directionColumn);
    EXPECT_EQ(1, own.entrustPropColumn);
    const auto alias = import::matchHeader({"方向"_s, "委托属性"_s}, wanted(titles));
    EXPECT_EQ(-1, alias.directionColumn);
    EXPECT_EQ(0, alias.columnIndexMap["交易方向"_s]);
    const auto unwanted = import::matchHeader({"交易方向"_s, "委托属性"_s}, wanted({"甲"_s}));
    EXPECT_EQ(-1, unwanted.directionColumn);
    EXPECT_EQ(-1, unwanted.entrustPropColumn);
}

TEST(HeaderMatching, StopsAtTheFirstColumnInTableOrderThatTheFileMustHave)
{
    const auto compulsory = import::matchHeader({"丙"_s}, wanted({"甲"_s, "乙"_s, "丙"_s}, {"丙"_s, "乙"_s}));
    EXPECT_EQ("乙"_s, compulsory.missingColumn);
    const auto first = import::matchHeader({"丙"_s}, wanted({"甲"_s, "乙"_s}, {"乙"_s, "甲"_s}));
    EXPECT_EQ("甲"_s, first.missingColumn) << "in the table's order";
}

TEST(HeaderMatching, MissesAColumnWithoutATitleToo)
{
    const auto match = import::matchHeader({"甲"_s}, wanted({"甲"_s, QString()}, {QString()}));
    ASSERT_TRUE(match.missingColumn);
    EXPECT_EQ(QString(), *match.missingColumn);
}

TEST(HeaderMatching, ListsWhatTheFileLacksAndMayLackInTableOrder)
{
    const auto match = import::matchHeader({"乙"_s}, wanted({"丙"_s, "乙"_s, "甲"_s}));
    EXPECT_FALSE(match.missingColumn);
    EXPECT_EQ((QStringList{"丙"_s, "甲"_s}), match.optionalMissing);
}

TEST(RowErrorText, NumbersTheLinesOfTheFileInAscendingOrder)
{
    EXPECT_EQ("导入文件中包含以下错误:\r\n第2行：甲\r\n第6行：乙\r\n第9行：丙\r\n"_s,
              import::rowErrorText({{7, "丙"_s}, {0, "甲"_s}, {4, "乙"_s}}));
}

TEST(RowErrorText, LeavesPercentSignsOfATextAlone)
{
    EXPECT_EQ("导入文件中包含以下错误:\r\n第2行：证券代码%1%2不合法，未获取到市场\r\n"_s,
              import::rowErrorText({{0, "证券代码%1%2不合法，未获取到市场"_s}}));
}
