#include "desk/window/ImportProblems.h"

#include "tests/support/Text.h"

#include <gtest/gtest.h>

namespace {

using Place = Problem::Place;

const QStringList Header{"代码"_s, "市场"_s, "委托数量"_s, "扫盘比例(%)"_s, "备注"_s};
const QList<QStringList> Rows{Header, {"600000"_s, "SH"_s, "abc"_s, "5"_s, "甲"_s}, {"999999"_s, "SZ"_s}};

QList<Problem> located(const QString& text)
{
    QList<Problem> problems = import_problems::fromBoxText(text);
    import_problems::locate(problems, Rows);
    return problems;
}

QString columnOfReason(const QString& reason)
{
    return import_problems::fromBoxText("导入文件中包含以下错误:\r\n第2行："_s + reason + "\r\n"_s)
        .value(0)
        .column;
}

} // namespace

TEST(ImportProblemsTest, ReadsOneProblemForEveryRowOfAnImportBox)
{
    const QList<Problem> problems = located(
        "导入文件中包含以下错误:\r\n第2行：委托数量计算为0\r\n第3行：证券代码999999不合法，未获取到市场\r\n"_s);
    ASSERT_EQ(problems.size(), 2);
    EXPECT_EQ(problems.at(0).place, Place::FileRow);
    EXPECT_EQ(problems.at(0).line, 2);
    EXPECT_EQ(problems.at(0).reason, "委托数量计算为0"_s);
    EXPECT_EQ(problems.at(1).line, 3);
    EXPECT_EQ(problems.at(1).column, "代码"_s) << "the file's own title";
    EXPECT_EQ(problems.at(1).cell, "999999"_s);
}

TEST(ImportProblemsTest, ReadsTheRowsOfACheckAsRowsOfTheTable)
{
    const QList<Problem> problems =
        located("第1行：委托属性与交易方向不一致\r\n第2行：仅支持担保品卖出\r\n"_s);
    ASSERT_EQ(problems.size(), 2);
    EXPECT_EQ(problems.at(1).place, Place::BatchRow);
    EXPECT_EQ(problems.at(1).line, 2);
    EXPECT_TRUE(problems.at(1).cell.isEmpty());
}

TEST(ImportProblemsTest, TakesATextWithoutRowsAsOneProblemOfTheWhole)
{
    const QList<Problem> problems = located("导入文件表头缺少“委托数量”列！"_s);
    ASSERT_EQ(problems.size(), 1);
    EXPECT_EQ(problems.at(0).place, Place::Whole);
    EXPECT_EQ(problems.at(0).line, 0);
    EXPECT_EQ(problems.at(0).column, "委托数量"_s);
    EXPECT_TRUE(import_problems::fromBoxText(QString()).isEmpty());
}

TEST(ImportProblemsTest, KeepsALineEndInsideARawCellWithItsProblem)
{
    const QList<Problem> problems = located(
        "导入文件中包含以下错误:\r\n第2行：证券代码60\n00不合法，未获取到市场\r\n第3行：委托数量计算为0\r\n"_s);
    ASSERT_EQ(problems.size(), 2);
    EXPECT_EQ(problems.at(0).reason, "证券代码60\n00不合法，未获取到市场"_s);
    EXPECT_EQ(problems.at(0).column, "代码"_s);
}

TEST(ImportProblemsTest, KnowsTheColumnOfEveryKindOfRowError)
{
    EXPECT_EQ(columnOfReason("证券代码1不合法，未获取到市场"_s), "证券代码"_s);
    EXPECT_EQ(columnOfReason("当前资产账号所属市场与标的00700.HK市场存在不一致，请检查！"_s), "市场"_s);
    EXPECT_EQ(columnOfReason("封单数量计算为0"_s), "封单金额"_s);
    EXPECT_EQ(columnOfReason("委托数量计算为0"_s), "委托金额"_s);
    EXPECT_EQ(columnOfReason("导入“委托数量、交易方向”列值为空"_s), "委托数量"_s);
    EXPECT_EQ(columnOfReason("风格参数不支持，目前支持：激进-aggressive,"_s), "风格参数"_s);
    EXPECT_EQ(columnOfReason("开始时间格式不正确，时间格式为yyyy-MM-dd HH:mm:ss"_s), "开始时间"_s);
    EXPECT_EQ(columnOfReason("不知道的原因"_s), QString());
}

TEST(ImportProblemsTest, FindsAColumnByItsTitleOrAnAliasOfIt)
{
    EXPECT_EQ(import_problems::columnOf("证券代码"_s, Header), 0);
    EXPECT_EQ(import_problems::columnOf("扫盘比例（%）"_s, Header), 3);
    EXPECT_EQ(import_problems::columnOf("实例备注"_s, Header), 4);
    EXPECT_EQ(import_problems::columnOf("委托限价"_s, Header), -1);
    EXPECT_EQ(import_problems::columnOf(QString(), {QString()}), -1);
}

TEST(ImportProblemsTest, LeavesTheCellEmptyWhereTheFileHasNone)
{
    const QList<Problem> problems = located(
        "导入文件中包含以下错误:\r\n第3行：导入“委托数量”列值为空\r\n第99行：导入“委托数量”列值为空\r\n"_s);
    ASSERT_EQ(problems.size(), 2);
    EXPECT_TRUE(problems.at(0).cell.isEmpty()) << "the row is shorter than the header";
    EXPECT_EQ(problems.at(1).line, 99) << "the file has no such row any more";
}

TEST(ImportProblemsTest, KeepsRowsApartThatACheckPutOnOneLine)
{
    const QList<Problem> problems = located(
        "第1行：00700.HK标的仅是深港通标的！第2行：08001.HK标的仅是沪港通标的！第3行：委托属性与交易方向不一致\r\n"_s);
    ASSERT_EQ(problems.size(), 3);
    EXPECT_EQ(problems.at(0).line, 1);
    EXPECT_EQ(problems.at(0).reason, "00700.HK标的仅是深港通标的！"_s);
    EXPECT_EQ(problems.at(1).line, 2);
    EXPECT_EQ(problems.at(1).reason, "08001.HK标的仅是沪港通标的！"_s);
    EXPECT_EQ(problems.at(2).line, 3);
    EXPECT_EQ(problems.at(2).reason, "委托属性与交易方向不一致"_s);
}

TEST(ImportProblemsTest, TakesWhatLooksLikeARowInARawCellAsPartOfTheCell)
{
    const QList<Problem> problems =
        located("导入文件中包含以下错误:\r\n第2行：证券代码第9行：不合法，未获取到市场\r\n"_s);
    ASSERT_EQ(problems.size(), 1);
    EXPECT_EQ(problems.at(0).line, 2);
}

TEST(ImportProblemsTest, TakesARowThatACheckDoesNotNameAsAProblemOfItsOwn)
{
    const QList<Problem> problems =
        located("第1行：委托属性与交易方向不一致\r\n第%行：未获取到账号类型!\r\n"_s);
    ASSERT_EQ(problems.size(), 2);
    EXPECT_EQ(problems.at(0).reason, "委托属性与交易方向不一致"_s);
    EXPECT_EQ(problems.at(1).place, Place::Whole);
    EXPECT_EQ(problems.at(1).reason, "未获取到账号类型!"_s);
}
