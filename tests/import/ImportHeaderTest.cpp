#include "tests/import/ImportTest.h"

using small_market::combo;
using small_market::entry;
using small_market::line;

/// The header of a file against the columns of the loaded strategy.
class ImportHeader : public ImportTest {
protected:
    void expectMissing(const QString& title)
    {
        EXPECT_EQ("导入文件表头缺少“%1”列！"_s.arg(title), lastBoxText());
        EXPECT_EQ(0, rowCount());
        EXPECT_TRUE(instances().isEmpty());
    }
};

TEST_F(ImportHeader, ShortTitlesFillTheColumnsThatTheyStandFor)
{
    open();
    importRows(Sheet::ordinary()
                   .add({{"交易方向"_s, "2"_s}, {"委托限价"_s, "9.5"_s}})
                   .rename("证券代码"_s, "代码"_s)
                   .rename("证券名称"_s, "名称"_s)
                   .rename("委托数量"_s, "数量"_s)
                   .rename("交易方向"_s, "方向"_s)
                   .rename("委托限价"_s, "限价"_s)
                   .rename("实例备注"_s, "备注"_s)
                   .rows());
    EXPECT_TRUE(prompts.boxes().isEmpty());
    EXPECT_EQ("600000.SH"_s, value(0, "证券代码"_s));
    EXPECT_EQ("1000"_s, value(0, "委托数量"_s));
    EXPECT_EQ("Sell"_s, value(0, "交易方向"_s));
    EXPECT_EQ("9.50"_s, value(0, "委托限价"_s));
    EXPECT_EQ("备忘"_s, value(0, "实例备注"_s));
}

TEST_F(ImportHeader, BothSpellingsOfTheSweepRatioStandForEachOther)
{
    const QVariantMap optional = small_market::optional(QString(), QString());
    openWith({line("扫盘比例（%）"_s, optional)});
    Sheet ascii(small_market::ordinaryHeader() + QStringList{"扫盘比例(%)"_s});
    importRows(ascii.add({{"扫盘比例(%)"_s, "30"_s}}).rows());
    EXPECT_EQ("30"_s, value(0, "扫盘比例（%）"_s));

    openWith({line("扫盘比例(%)"_s, optional)});
    Sheet fullWidth(small_market::ordinaryHeader() + QStringList{"扫盘比例（%）"_s});
    importRows(fullWidth.add({{"扫盘比例（%）"_s, "40"_s}}).rows());
    EXPECT_EQ("40"_s, value(0, "扫盘比例(%)"_s));
}

TEST_F(ImportHeader, TheOrderOfTheColumnsIsFreeAndForeignOnesAreIgnored)
{
    open();
    Sheet sheet(QStringList{"随意"_s} + small_market::ordinaryHeader());
    sheet.add({{"随意"_s, "不读"_s}});
    sheet.reorder({12, 3, 0, 7, 1, 11, 5, 4, 2, 9, 8, 10, 6});
    importRows(sheet.rows());
    EXPECT_TRUE(prompts.boxes().isEmpty());
    EXPECT_EQ("600000.SH"_s, value(0, "证券代码"_s));
    EXPECT_EQ("1000"_s, value(0, "委托数量"_s));
    EXPECT_EQ("10.50"_s, value(0, "委托限价"_s));
}

TEST_F(ImportHeader, ABlankAroundATitleMakesItAnother)
{
    open();
    importRows(Sheet::ordinary().add().rename("委托数量"_s, "委托数量 "_s).rows());
    expectMissing("委托数量"_s);
}

TEST_F(ImportHeader, EveryColumnOfASecurityIsCompulsory)
{
    for (const QString& title : {"证券代码"_s, "市场"_s, "委托数量"_s}) {
        open();
        importRows(Sheet::ordinary().add().drop(title).rows());
        expectMissing(title);
    }
}

TEST_F(ImportHeader, SoAreTheColumnsNamedOnceForAllStrategies)
{
    const QVariantMap optional = small_market::optional(QString(), QString());
    for (const QString& title : {"交易方向"_s, "委托属性"_s, "创建后是否立即启动"_s}) {
        open();
        importRows(Sheet::ordinary().add().drop(title).rows());
        expectMissing(title);
    }
    for (const QString& title : {"封单金额"_s, "委托金额"_s, "卖单金额"_s, "投资类型"_s}) {
        openWith({line(title, optional)});
        importRows(Sheet::ordinary().add().rows());
        expectMissing(title);
    }
}

TEST_F(ImportHeader, ARequiredParameterMayNotBeMissing)
{
    for (const QVariant& required :
         {QVariant(true), QVariant("true"_s), QVariant("False"_s), QVariant(QString())}) {
        openWith({line("必填"_s, {{"required"_s, required}})});
        importRows(Sheet::ordinary().add().rows());
        expectMissing("必填"_s);
    }
}

TEST_F(ImportHeader, AParameterThatIsNotRequiredMayBeMissing)
{
    openWith({line("可缺"_s, {{"required"_s, false}}), line("亦可缺"_s, {{"required"_s, "false"_s}}),
              line("未说"_s)});
    importRows(Sheet::ordinary().add().rows());
    EXPECT_TRUE(prompts.boxes().isEmpty());
    EXPECT_EQ(1, rowCount());
}

TEST_F(ImportHeader, NeedsNoColumnForTheSecurityName)
{
    open();
    importRows(Sheet::ordinary().add().drop("证券名称"_s).rows());
    EXPECT_TRUE(prompts.boxes().isEmpty());
    EXPECT_EQ("样本600000"_s, shown(0, "证券名称"_s));
}

TEST_F(ImportHeader, NamesTheFirstMissingColumnInTableOrder)
{
    open();
    importRows(Sheet::ordinary().add().drop("创建后是否立即启动"_s).drop("交易方向"_s).drop("市场"_s).rows());
    expectMissing("市场"_s);
}

TEST_F(ImportHeader, ACompulsoryColumnWithoutATitleIsMissedToo)
{
    openDocument(
        {small_market::table({line("证券代码"_s), line("委托数量"_s), entry(QString(), "LineEdit"_s)})});
    importRows(Sheet({"证券代码"_s, "市场"_s, "委托数量"_s, "创建后是否立即启动"_s}).add().rows());
    expectMissing(QString());
}

TEST_F(ImportHeader, AHeaderFailureComesBeforeAnyQuote)
{
    open();
    importRows(Sheet::ordinary().add().drop("市场"_s).rows());
    EXPECT_TRUE(callsOf("CommonQuotaHandler::SubscribeQuota").isEmpty());
    ASSERT_EQ(1, prompts.boxes().size());
    EXPECT_EQ(prompts.boxes().first().sizeBefore, prompts.boxes().first().size);
}

TEST_F(ImportHeader, StrategiesThatStartOnCreationNeedNoColumnForIt)
{
    for (const QString& code : {"KF_TWAPPLUS"_s, "KF_VWAPPLUS"_s}) {
        open(code);
        importRows(Sheet::ordinary().add().drop("创建后是否立即启动"_s).rows());
        EXPECT_TRUE(prompts.boxes().isEmpty()) << code.toStdString();
        EXPECT_EQ("7"_s, value(0, "创建后是否立即启动"_s)) << code.toStdString();
        EXPECT_EQ("是"_s, shown(0, "创建后是否立即启动"_s)) << code.toStdString();
        EXPECT_EQ("7"_s, parameter(0, "创建后是否立即启动"_s)) << code.toStdString();
        EXPECT_EQ("1000"_s, value(0, "委托数量"_s)) << code.toStdString();
        EXPECT_EQ("600000.SH"_s, value(0, "证券代码"_s)) << code.toStdString();
    }
}

TEST_F(ImportHeader, TheirOwnCellWinsOverAColumnOfTheFile)
{
    open("KF_TWAPPLUS"_s);
    importRows(Sheet::ordinary().add({{"创建后是否立即启动"_s, "0"_s}}).rows());
    EXPECT_EQ("7"_s, value(0, "创建后是否立即启动"_s));
}
