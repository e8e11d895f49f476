#include "tests/import/ImportTest.h"

using small_market::line;

/// Columns that hold money in place of a quantity.
class RowAmounts : public ImportTest {
protected:
    void importAmount(const QString& strategy, const QMap<QString, QString>& cells)
    {
        open(strategy);
        importRows(Sheet::amount().add(cells).rows());
    }
    void importSealing(const QMap<QString, QString>& cells)
    {
        open("PursueHighLimit"_s);
        importRows(Sheet::sealing().add(cells).rows());
    }
};

TEST_F(RowAmounts, AnOrderAmountSendsTheQuantityAndTheAmountCrosswise)
{
    importAmount("AMOUNT"_s, {{"委托金额"_s, "100000.4"_s}});
    EXPECT_EQ("100000"_s, shown(0, "委托金额"_s));
    EXPECT_EQ("100000"_s, value(0, "委托金额"_s));
    EXPECT_EQ("9000"_s, parameter(0, "委托金额"_s));
    EXPECT_EQ("100000"_s, parameter(0, "委托数量"_s));
}

TEST_F(RowAmounts, AnOrderAmountThatBuysNothingDropsTheRow)
{
    importAmount("AMOUNT"_s, {{"委托金额"_s, "1000"_s}});
    expectRowError("委托数量计算为0"_s);
    EXPECT_EQ(0, rowCount());
    EXPECT_TRUE(instances().isEmpty());
}

TEST_F(RowAmounts, SoDoesOneWithoutAnUpperLimitOrANumber)
{
    importAmount("AMOUNT"_s, {{"证券代码"_s, "600999"_s}});
    expectRowError("委托数量计算为0"_s);
    importAmount("AMOUNT"_s, {{"委托金额"_s, "很多"_s}});
    expectRowError("委托数量计算为0"_s);
    importAmount("AMOUNT"_s, {{"委托金额"_s, "-100000"_s}});
    expectRowError("委托数量计算为0"_s);
}

TEST_F(RowAmounts, AmountDrivenStrategiesKeepTheAmountWithTwoDecimals)
{
    openDocument(small_market::amountDocument(), "AIPOV7"_s);
    importRows(Sheet::amount().add({{"委托金额"_s, "12.5"_s}}).rows());
    EXPECT_EQ("12.50"_s, parameter(0, "委托金额"_s));
    importAmount("AITWAP7"_s, {{"委托金额"_s, "1000.125"_s}});
    EXPECT_TRUE(prompts.boxes().isEmpty());
    const QString expected = QString::number(1000.125, 'f', 2);
    EXPECT_EQ(expected, shown(0, "委托金额"_s));
    EXPECT_EQ(expected, value(0, "委托金额"_s));
    EXPECT_EQ(expected, parameter(0, "委托金额"_s));
    EXPECT_FALSE(instances().first().contains("委托数量"_s));
}

TEST_F(RowAmounts, TheTypedDirectionIsNoSellSide)
{
    // A STAR security sells from its display factor (1) on, but 2 is not yet the side Sell when a row is
    // parsed.
    importAmount("AMOUNT"_s, {{"证券代码"_s, "688001"_s}, {"委托金额"_s, "6000"_s}, {"交易方向"_s, "2"_s}});
    expectRowError("委托数量计算为0"_s);
}

TEST_F(RowAmounts, ASealingAmountSendsTheQuantityAndTenThousands)
{
    importSealing({{"封单金额"_s, "1234567"_s}});
    EXPECT_EQ("1234567"_s, shown(0, "封单金额"_s));
    EXPECT_EQ("1234567"_s, value(0, "封单金额"_s));
    EXPECT_EQ("112200"_s, parameter(0, "封单金额"_s));
    EXPECT_EQ(QVariant::Double, parameter(0, "封单金额1"_s).type());
    EXPECT_DOUBLE_EQ(123.4567, parameter(0, "封单金额1"_s).toDouble());
}

TEST_F(RowAmounts, ASealingAmountThatBuysNothingDropsTheRow)
{
    importSealing({{"封单金额"_s, "1000"_s}});
    expectRowError("封单数量计算为0"_s);
    EXPECT_EQ(0, rowCount());
    EXPECT_TRUE(instances().isEmpty());
}

TEST_F(RowAmounts, AnEmptyAmountIsAnEmptyCompulsoryCell)
{
    importSealing({{"封单金额"_s, QString()}});
    expectRowError("导入“封单金额”列值为空"_s);
    importAmount("AMOUNT"_s, {{"委托金额"_s, QString()}});
    expectRowError("导入“委托金额”列值为空"_s);
}

TEST_F(RowAmounts, AStepOfZeroRoundsNothing)
{
    securityOf("600000.SH"_s).qtyStep = 0;
    importAmount("AMOUNT"_s, {{"委托金额"_s, "100000"_s}});
    EXPECT_EQ("9090"_s, parameter(0, "委托金额"_s));
}
