#include "tests/import/ImportTest.h"

using small_market::combo;
using small_market::line;

/// Rows that are dropped, and what is said of them.
class RowErrors : public ImportTest {};

TEST_F(RowErrors, ACodeWithoutAMarketIsNamedAsTyped)
{
    open();
    importRows(Sheet::ordinary().add({{"证券代码"_s, " 99%1 "_s}}).rows());
    expectRowError("证券代码 99%1 不合法，未获取到市场"_s);
    EXPECT_EQ(0, rowCount());
    EXPECT_TRUE(instances().isEmpty());
}

TEST_F(RowErrors, SoIsACodeUnderAMarketThatDoesNotKnowIt)
{
    open();
    importRows(Sheet::ordinary().add({{"市场"_s, "SZ"_s}}).rows());
    expectRowError("证券代码600000不合法，未获取到市场"_s);
}

TEST_F(RowErrors, SoIsASecurityThatTradesNowhere)
{
    open();
    importRows(Sheet::ordinary().add({{"证券代码"_s, "600998"_s}}).rows());
    expectRowError("证券代码600998不合法，未获取到市场"_s);
}

TEST_F(RowErrors, AnAccountWithoutTheMarketIsToldTheSymbol)
{
    open("AITWAP"_s, "NOHK"_s);
    importRows(Sheet::ordinary().add({{"证券代码"_s, "00700"_s}, {"市场"_s, "HKSH"_s}}).rows());
    expectRowError("当前资产账号所属市场与标的00700.HK市场存在不一致，请检查！"_s);
    EXPECT_EQ(0, rowCount());
}

TEST_F(RowErrors, AHongKongSecurityEndsTheImportOfAStrategyThatTakesNone)
{
    open("LOCAL"_s);
    importRows(Sheet::ordinary().add().add({{"证券代码"_s, "00700"_s}, {"市场"_s, "HKSH"_s}}).add().rows());
    ASSERT_EQ(1, prompts.boxes().size());
    EXPECT_EQ("该算法不支持港股标的！"_s, lastBoxText());
    EXPECT_EQ(prompts.boxes().first().sizeBefore, prompts.boxes().first().size);
    EXPECT_EQ(0, rowCount());
    EXPECT_EQ(1, instances().size()) << "that of the row before";
    EXPECT_EQ(1, callsOf("CommonQuotaHandler::SubscribeQuota").size());
    EXPECT_TRUE(callsOf("SolveyBusinessDataInterface::CheckSymbolRiskInfo").isEmpty());
}

TEST_F(RowErrors, AnEarlierRowErrorIsShownInPlaceOfThat)
{
    open("LOCAL"_s);
    importRows(Sheet::ordinary()
                   .add()
                   .add({{"证券代码"_s, "999999"_s}})
                   .add({{"证券代码"_s, "00700"_s}, {"市场"_s, "HKSH"_s}})
                   .rows());
    ASSERT_EQ(1, prompts.boxes().size());
    expectRowError("证券代码999999不合法，未获取到市场"_s, 3);
    EXPECT_EQ(1, rowCount());
}

TEST_F(RowErrors, AHongKongSecurityThatTradesNowhereIsOnlyAFaultyRow)
{
    open("LOCAL"_s);
    importRows(Sheet::ordinary().add({{"证券代码"_s, "00001"_s}, {"市场"_s, "HKSH"_s}}).add().rows());
    expectRowError("证券代码00001不合法，未获取到市场"_s);
    EXPECT_EQ(1, rowCount());
}

TEST_F(RowErrors, StrategiesThatTakeHongKongSecuritiesImportThem)
{
    open("AITWAP"_s);
    importRows(Sheet::ordinary().add({{"证券代码"_s, "700"_s}, {"市场"_s, "深港通"_s}}).rows());
    EXPECT_TRUE(prompts.boxes().isEmpty());
    EXPECT_EQ("00700.HK"_s, value(0, "证券代码"_s));
    EXPECT_EQ("700"_s, shown(0, "证券代码"_s));
    EXPECT_EQ("HKSZ"_s, value(0, "市场"_s));
}

TEST_F(RowErrors, EmptyCompulsoryCellsAreNamedTogether)
{
    open();
    importRows(
        Sheet::ordinary()
            .add({{"委托数量"_s, QString()}, {"交易方向"_s, QString()}, {"创建后是否立即启动"_s, QString()}})
            .rows());
    expectRowError("导入“委托数量、交易方向、创建后是否立即启动”列值为空"_s);
}

TEST_F(RowErrors, WithoutACodeNoMarketIsFoundFirst)
{
    open();
    importRows(Sheet::ordinary()
                   .add({{"证券代码"_s, QString()}, {"证券名称"_s, "名"_s}, {"委托数量"_s, QString()}})
                   .rows());
    expectRowError("证券代码不合法，未获取到市场"_s);
}

TEST_F(RowErrors, AnEmptyCodeColumnBesideAnotherOneIsNamedWithTheQuantity)
{
    // The security comes from 证券代码, so that the empty 代码 is found by the columns.
    openDocument({small_market::table({line("证券代码"_s), line("代码"_s), line("委托数量"_s)})});
    importRows(Sheet({"证券代码"_s, "代码"_s, "市场"_s, "委托数量"_s, "创建后是否立即启动"_s})
                   .add({{"委托数量"_s, QString()}})
                   .rows());
    expectRowError("导入“代码、委托数量”列值为空"_s);
}

TEST_F(RowErrors, EmptyCellsReplaceTheErrorThatDroppedTheRow)
{
    open();
    importRows(
        Sheet::ordinary()
            .add({{"委托数量"_s, QString()}, {"委托属性"_s, "未知"_s}, {"创建后是否立即启动"_s, QString()}})
            .rows());
    // Columns behind the one that dropped the row are not looked at.
    expectRowError("导入“委托数量”列值为空"_s);
}

TEST_F(RowErrors, TheFirstFaultyColumnDropsTheRow)
{
    open();
    importRows(Sheet::ordinary().add({{"交易方向"_s, "买入"_s}, {"委托属性"_s, "未知"_s}}).rows());
    expectRowError("交易方向不支持，目前支持：买入-1,卖出-2,买入开仓-3,卖出开仓-4,买入平仓-5,卖出平仓-6,"_s);
    EXPECT_EQ(0, rowCount());
}

TEST_F(RowErrors, OptionsAreListedForAChoiceWithoutFixedValues)
{
    openWith({combo("选项"_s, {"7=创建并立即启动"_s, "0=创建不启动"_s}, {{"required"_s, true}})});
    Sheet sheet(small_market::ordinaryHeader() + QStringList{"选项"_s});
    importRows(sheet.add({{"选项"_s, "创建不启动"_s}}).rows());
    expectRowError("选项不支持，目前支持：0-创建不启动,7-创建并立即启动,"_s);
}

TEST_F(RowErrors, ABadTimeNamesItsColumn)
{
    open();
    importRows(Sheet::ordinary().add({{"开始时间"_s, "2024/03/05"_s}}).rows());
    expectRowError("开始时间格式不正确，时间格式为yyyy-MM-dd HH:mm:ss"_s);
}

TEST_F(RowErrors, TheCreateStatusIsZeroOrSeven)
{
    open();
    importRows(Sheet::ordinary().add({{"创建后是否立即启动"_s, "1"_s}}).rows());
    expectRowError("创建后是否立即启动不支持，目前支持：0-创建不启动，7-创建并立即启动"_s);
    EXPECT_EQ(0, rowCount());
}

TEST_F(RowErrors, BlankAndNoteRowsAreNone)
{
    open();
    Sheet sheet = Sheet::ordinary();
    sheet.addRow({QString()})
        .addRow({QString(), QString(), "备注："_s})
        .addRow({" "_s, "\t"_s, "1、市场：SH-上海，SZ-深圳，必填"_s})
        .add()
        .addRow({QString(), QString(), QString()});
    importRows(sheet.rows());
    EXPECT_TRUE(prompts.boxes().isEmpty());
    EXPECT_EQ(1, rowCount());
    EXPECT_EQ(1, instances().size());
}

TEST_F(RowErrors, ARowOfTwoCellsIsNoNote)
{
    open();
    importRows(Sheet::ordinary().addRow({QString(), "x"_s}).addRow({QString(), QString()}).rows());
    EXPECT_EQ(
        "导入文件中包含以下错误:\r\n第2行：证券代码不合法，未获取到市场\r\n第3行：证券代码不合法，未获取到市场\r\n"_s,
        lastBoxText());
}

TEST_F(RowErrors, ASingleBlankIsNoBlankRow)
{
    open();
    importRows(Sheet::ordinary().addRow({" "_s}).rows());
    expectRowError("证券代码 不合法，未获取到市场"_s);
}

TEST_F(RowErrors, ARowWithAnEmptyFirstCellAndAFilledSecondOneIsNoNote)
{
    open();
    importRows(Sheet::ordinary().add({{"证券代码"_s, QString()}, {"证券名称"_s, "名"_s}}).rows());
    expectRowError("证券代码不合法，未获取到市场"_s);
}

TEST_F(RowErrors, SkippedRowsCountForTheLines)
{
    open();
    importRows(Sheet::ordinary()
                   .addRow({QString()})
                   .addRow({QString(), QString(), "备注："_s})
                   .add({{"证券代码"_s, "999999"_s}})
                   .rows());
    expectRowError("证券代码999999不合法，未获取到市场"_s, 4);
}

TEST_F(RowErrors, ARowShorterThanTheHeaderReadsAsEmptyCells)
{
    open();
    importRows(Sheet::ordinary()
                   .addRow({"600000"_s})
                   .addRow({"600000"_s, QString(), "SH"_s})
                   .addRow({"600000"_s, QString(), "SH"_s, "100"_s, "1"_s, "0"_s})
                   .rows());
    EXPECT_EQ("导入文件中包含以下错误:\r\n"
              "第2行：证券代码600000不合法，未获取到市场\r\n"
              "第3行：导入“委托数量、交易方向、委托属性、创建后是否立即启动”列值为空\r\n"
              "第4行：导入“创建后是否立即启动”列值为空\r\n"_s,
              lastBoxText());
}

TEST_F(RowErrors, ALongerRowKeepsToTheHeader)
{
    open();
    QList<QStringList> rows = Sheet::ordinary().add().rows();
    rows[1].append("多余"_s);
    importRows(rows);
    EXPECT_TRUE(prompts.boxes().isEmpty());
    EXPECT_EQ(1, rowCount());
}

TEST_F(RowErrors, MalformedPairsAreReportedAndTakenOut)
{
    open("AILOCK"_s);
    importRows(Sheet::paired().add().add({{"委托属性"_s, "0"_s}}).add().rows());
    expectRowError("导入方向、委托属性、限价中，某字段格式错误"_s, 3);
    EXPECT_EQ(2, rowCount());
    ASSERT_EQ(2, instances().size());
    EXPECT_EQ(2, parameter(0, "证券代码和委托数量"_s).toList().size());
}
