#include "tests/import/ImportTest.h"

using small_market::line;

/// What a good row becomes.
class RowAcceptance : public ImportTest {
protected:
    void expectEntrustShown(const QString& strategy, const QString& direction, const QString& expected)
    {
        openDocument(small_market::ordinaryDocument(), strategy);
        Sheet sheet = Sheet::ordinary();
        sheet.add({{"委托属性"_s, "6"_s}, {"交易方向"_s, direction}});
        importRows(
            sheet.drop("风格参数"_s).rows()); // not every one of these strategies has the good row's style
        EXPECT_EQ(expected, shown(0, "委托属性"_s)) << strategy.toStdString();
        EXPECT_EQ("6"_s, value(0, "委托属性"_s));
        EXPECT_EQ("6"_s, parameter(0, "委托属性"_s));
    }
};

TEST_F(RowAcceptance, ShowsTheTypedCodeTheNameAndTheMarket)
{
    open();
    importRows(Sheet::ordinary()
                   .add({{"证券代码"_s, "1"_s}, {"市场"_s, " sz "_s}, {"证券名称"_s, "乱写"_s}})
                   .rows());
    EXPECT_EQ("1"_s, shown(0, "证券代码"_s));
    EXPECT_EQ("000001.SZ"_s, value(0, "证券代码"_s));
    EXPECT_EQ("样本000001"_s, shown(0, "证券名称"_s));
    EXPECT_EQ("样本000001"_s, value(0, "证券名称"_s));
    EXPECT_EQ("深圳"_s, shown(0, "市场"_s));
    EXPECT_EQ("SZ"_s, value(0, "市场"_s));
}

TEST_F(RowAcceptance, FilesSecurityParametersInTheLegAndTheOthersInTheInstance)
{
    open();
    importRows(Sheet::ordinary().add({{"交易方向"_s, "2"_s}}).rows());
    ASSERT_EQ(1, instances().size());
    EXPECT_EQ(1, parameter(0, "证券代码和委托数量"_s).toList().size());
    EXPECT_EQ((QVariantMap{{"证券代码"_s, "600000.SH"_s},
                           {"市场"_s, "SH"_s},
                           {"委托数量"_s, "1000"_s},
                           {"交易账号"_s, "CASH1"_s},
                           {"证券账号"_s, "CASH1-SH"_s},
                           {"证券子类型"_s, QString()}}),
              leg(0));
    QMap<QString, QVariant> instance = instances().first();
    instance.remove("证券代码和委托数量"_s);
    EXPECT_EQ((QMap<QString, QVariant>{{"交易方向"_s, "Sell"_s},
                                       {"委托属性"_s, "0"_s},
                                       {"委托限价"_s, "10.50"_s},
                                       {"开始时间"_s, "2024-03-05 09:30:00"_s},
                                       {"结束时间"_s, "2024-03-05 14:57:00"_s},
                                       {"风格参数"_s, "neutral"_s},
                                       {"实例备注"_s, "备忘"_s},
                                       {"创建后是否立即启动"_s, "7"_s},
                                       {"交易账号"_s, "CASH1"_s},
                                       {"sysnodeid"_s, "node-1"_s},
                                       {"BatchCreate"_s, QString()}}),
              instance);
}

TEST_F(RowAcceptance, CarriesTheSubTypeOfTheSecurity)
{
    open();
    importRows(Sheet::ordinary().add({{"证券代码"_s, "688001"_s}}).rows());
    EXPECT_EQ("STAR"_s, leg(0).value("证券子类型"_s));
}

TEST_F(RowAcceptance, DividesTheQuantityOfTheLegByTheDisplayFactor)
{
    open();
    importRows(Sheet::ordinary()
                   .add({{"证券代码"_s, "131810"_s}, {"市场"_s, "SZ"_s}, {"委托数量"_s, "1050"_s}})
                   .rows());
    EXPECT_EQ("1050"_s, value(0, "委托数量"_s));
    EXPECT_EQ("10"_s, leg(0).value("委托数量"_s));
}

TEST_F(RowAcceptance, ADisplayFactorOfZeroDividesByOne)
{
    securityOf("600000.SH"_s).dispFactor = 0;
    open();
    importRows(Sheet::ordinary().add().rows());
    EXPECT_EQ("1000"_s, leg(0).value("委托数量"_s));
}

TEST_F(RowAcceptance, UsesTheIdentifiersOfTheDocument)
{
    openWith({line("自定"_s, {{"paramId"_s, "own_id"_s}})});
    Sheet sheet(small_market::ordinaryHeader() + QStringList{"自定"_s});
    importRows(sheet.add({{"自定"_s, "值"_s}}).rows());
    EXPECT_EQ("值"_s, parameter(0, "own_id"_s));
    EXPECT_FALSE(instances().first().contains("自定"_s));
}

TEST_F(RowAcceptance, InvisibleParametersAreNeitherShownNorSent)
{
    openWith({line("隐藏"_s, {{"visible"_s, false}})});
    Sheet sheet(small_market::ordinaryHeader() + QStringList{"隐藏"_s});
    importRows(sheet.add({{"隐藏"_s, "值"_s}}).rows());
    EXPECT_TRUE(prompts.boxes().isEmpty());
    EXPECT_FALSE(table().headNames().contains("隐藏"_s));
    EXPECT_FALSE(instances().first().contains("隐藏"_s));
}

TEST_F(RowAcceptance, TheCodeColumnWinsOverItsShortName)
{
    openDocument({small_market::table({line("证券代码"_s), line("代码"_s), line("委托数量"_s)})});
    importRows(Sheet({"代码"_s, "证券代码"_s, "市场"_s, "委托数量"_s, "创建后是否立即启动"_s})
                   .add({{"代码"_s, "000001"_s}})
                   .rows());
    EXPECT_EQ("600000.SH"_s, value(0, "证券代码"_s));
    EXPECT_EQ("600000"_s, shown(0, "代码"_s));
    EXPECT_EQ("600000.SH"_s, value(0, "代码"_s));
}

TEST_F(RowAcceptance, AStrategyMayNameItsCodeColumnShort)
{
    openDocument({small_market::table({line("代码"_s), line("委托数量"_s)})});
    importRows(Sheet({"代码"_s, "市场"_s, "委托数量"_s, "创建后是否立即启动"_s})
                   .add({{"代码"_s, "600000"_s}})
                   .rows());
    EXPECT_TRUE(prompts.boxes().isEmpty());
    EXPECT_EQ("600000.SH"_s, value(0, "代码"_s));
    EXPECT_EQ("600000.SH"_s, leg(0).value("代码"_s));
}

TEST_F(RowAcceptance, TheNthParameterMapBelongsToTheNthRow)
{
    open();
    Sheet sheet = Sheet::ordinary();
    for (int n = 1; n <= 6; ++n) {
        sheet.add(
            {{"委托数量"_s, QString::number(n * 100)}, {"证券代码"_s, n % 3 == 0 ? "999999"_s : "600000"_s}});
    }
    importRows(sheet.rows());
    ASSERT_EQ(4, rowCount());
    ASSERT_EQ(4, instances().size());
    for (int i = 0; i < 4; ++i) {
        EXPECT_EQ(value(i, "委托数量"_s), leg(i).value("委托数量"_s).toString()) << i;
    }
    EXPECT_EQ("500"_s, value(3, "委托数量"_s));
}

TEST_F(RowAcceptance, PriceLimitStrategiesCarryTheLimitAndThePreviousClose)
{
    open("PursueHighLimit"_s);
    importRows(Sheet::sealing().add().rows());
    EXPECT_EQ("11"_s, leg(0).value("涨停价"_s));
    EXPECT_EQ("9.9"_s, leg(0).value("昨收价"_s));
}

TEST_F(RowAcceptance, AllFivePriceLimitStrategiesDoAndOthersDoNot)
{
    for (const QString& code : {"PursueHighLimit"_s, "PursueHighLimitB"_s, "DoubleConditionOrder"_s,
                                "PursueHighLimitPLUS"_s, "DoubleConditionOrderPLUS"_s}) {
        openDocument(small_market::ordinaryDocument(), code);
        importRows(Sheet::ordinary().add({{"证券代码"_s, "600999"_s}}).rows());
        ASSERT_EQ(1, rowCount()) << code.toStdString();
        EXPECT_TRUE(leg(0).contains("涨停价"_s)) << code.toStdString();
        EXPECT_EQ(QString(), leg(0).value("涨停价"_s).toString()) << "a security without a quote";
        EXPECT_TRUE(leg(0).contains("昨收价"_s)) << code.toStdString();
    }
    open("AITWAP"_s);
    importRows(Sheet::ordinary().add().rows());
    EXPECT_FALSE(leg(0).contains("涨停价"_s));
    EXPECT_FALSE(leg(0).contains("昨收价"_s));
}

TEST_F(RowAcceptance, TellsWhatEntrustPropertySixMeansOnEachSide)
{
    for (const QString& code : {"KF_TWAPPLUS"_s, "KF_VWAPPLUS"_s, "QND_TWAP"_s, "QND_VWAP"_s}) {
        expectEntrustShown(code, "1"_s, "融资买入"_s);
        expectEntrustShown(code, "2"_s, "卖券还款"_s);
    }
    expectEntrustShown("AITWAP"_s, "1"_s, "融资买入/卖券还款"_s);
}

TEST_F(RowAcceptance, ButNotWhereTheFileSpellsTheDirectionShort)
{
    open("QND_TWAP"_s);
    importRows(Sheet::ordinary()
                   .add({{"委托属性"_s, "6"_s}})
                   .drop("风格参数"_s)
                   .rename("交易方向"_s, "方向"_s)
                   .rows());
    EXPECT_EQ("Buy"_s, value(0, "交易方向"_s));
    EXPECT_EQ("融资买入/卖券还款"_s, shown(0, "委托属性"_s));
}

TEST_F(RowAcceptance, AndNotForOtherEntrustProperties)
{
    open("QND_TWAP"_s);
    importRows(Sheet::ordinary().add({{"委托属性"_s, "9"_s}}).drop("风格参数"_s).rows());
    EXPECT_EQ("信用交易"_s, shown(0, "委托属性"_s));
}

TEST_F(RowAcceptance, SplitsAPairedRowIntoTwoLegs)
{
    open("AILOCK"_s);
    importRows(Sheet::paired().add().rows());
    EXPECT_TRUE(prompts.boxes().isEmpty());
    EXPECT_EQ("买入/卖出"_s, shown(0, "交易方向"_s));
    EXPECT_EQ("Buy/Sell"_s, value(0, "交易方向"_s));
    EXPECT_EQ("10.50/10.60"_s, shown(0, "委托限价"_s));
    ASSERT_EQ(2, parameter(0, "证券代码和委托数量"_s).toList().size());
    EXPECT_EQ("Buy"_s, leg(0, 0).value("交易方向"_s));
    EXPECT_EQ("Sell"_s, leg(0, 1).value("交易方向"_s));
    EXPECT_EQ("10.5"_s, leg(0, 0).value("委托限价"_s));
    EXPECT_EQ("10.6"_s, leg(0, 1).value("委托限价"_s));
    EXPECT_EQ("1000"_s, leg(0, 0).value("委托数量"_s));
    EXPECT_EQ("1000"_s, leg(0, 1).value("委托数量"_s));
}
