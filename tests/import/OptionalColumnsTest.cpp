#include "tests/import/ImportTest.h"

#include <QDateTime>

using small_market::combo;
using small_market::dateTime;
using small_market::line;
using small_market::optional;

/// What stands in for columns and cells that a file leaves out.
class OptionalColumns : public ImportTest {
protected:
    static QString today(const QString& time)
    {
        return QDate::currentDate().toString("yyyy-MM-dd "_s) + time;
    }
};

TEST_F(OptionalColumns, AMissingColumnTakesTheDefault)
{
    open();
    importRows(Sheet::ordinary().add().drop("风格参数"_s).rows());
    EXPECT_EQ("平稳"_s, shown(0, "风格参数"_s));
    EXPECT_EQ("neutral"_s, value(0, "风格参数"_s));
    EXPECT_EQ("neutral"_s, parameter(0, "风格参数"_s));
}

TEST_F(OptionalColumns, SoDoesAnEmptyCellOfAColumnThatIsThere)
{
    open();
    importRows(Sheet::ordinary().add({{"风格参数"_s, QString()}}).add().rows());
    EXPECT_EQ("平稳"_s, shown(0, "风格参数"_s));
    EXPECT_EQ("neutral"_s, value(0, "风格参数"_s));
    EXPECT_EQ("neutral"_s, parameter(0, "风格参数"_s));
}

TEST_F(OptionalColumns, ADefaultIsNotTranslated)
{
    openWith({combo("选项"_s, {"1=壹"_s}, optional("别的"_s, "随意"_s)),
              line("最差滑点"_s, optional("1.9"_s, "一点九"_s))});
    importRows(Sheet::ordinary().add().rows());
    EXPECT_EQ("随意"_s, shown(0, "选项"_s));
    EXPECT_EQ("别的"_s, value(0, "选项"_s));
    EXPECT_EQ("一点九"_s, shown(0, "最差滑点"_s));
    EXPECT_EQ("1.9"_s, parameter(0, "最差滑点"_s));
}

TEST_F(OptionalColumns, WithoutADefaultTheCellIsEmptyAndTheParameterStands)
{
    openWith({line("无默认"_s, {{"required"_s, false}})});
    importRows(Sheet::ordinary().add().rows());
    EXPECT_EQ(QString(), shown(0, "无默认"_s));
    EXPECT_TRUE(instances().first().contains("无默认"_s));
    EXPECT_EQ(QString(), parameter(0, "无默认"_s).toString());
}

TEST_F(OptionalColumns, NumbersInADefaultAreTexts)
{
    openWith({line("数值"_s, {{"required"_s, false},
                              {"strDefault"_s, QVariantMap{{"value"_s, 500}, {"display"_s, 2.5}}}})});
    importRows(Sheet::ordinary().add().rows());
    EXPECT_EQ("500"_s, value(0, "数值"_s));
    EXPECT_EQ("2.5"_s, shown(0, "数值"_s));
}

TEST_F(OptionalColumns, ATimeOfDayIsTakenToday)
{
    open();
    importRows(Sheet::ordinary().add().drop("开始时间"_s).rows());
    EXPECT_EQ(today("09:30:00"_s), shown(0, "开始时间"_s));
    EXPECT_EQ(today("09:30:00"_s), value(0, "开始时间"_s));
    EXPECT_EQ(today("09:30:00"_s), parameter(0, "开始时间"_s));
}

TEST_F(OptionalColumns, AnEmptyTimeCellLikewise)
{
    open();
    importRows(Sheet::ordinary().add({{"开始时间"_s, QString()}}).rows());
    EXPECT_EQ(today("09:30:00"_s), value(0, "开始时间"_s));
}

TEST_F(OptionalColumns, CurrentTimeIsNow)
{
    open();
    const QDateTime before = QDateTime::currentDateTime().addSecs(-1);
    importRows(Sheet::ordinary().add().drop("结束时间"_s).rows());
    const QDateTime taken = QDateTime::fromString(value(0, "结束时间"_s), "yyyy-MM-dd HH:mm:ss"_s);
    EXPECT_LE(before, taken);
    EXPECT_GE(QDateTime::currentDateTime(), taken);
    EXPECT_EQ(value(0, "结束时间"_s), shown(0, "结束时间"_s));
}

TEST_F(OptionalColumns, ADefaultThatIsNoTimeIsMidnight)
{
    openWith({dateTime("到期"_s, optional("随时"_s, QString())),
              dateTime("空白"_s, optional(QString(), QString()))});
    importRows(Sheet::ordinary().add().rows());
    EXPECT_EQ(today("00:00:00"_s), value(0, "到期"_s));
    EXPECT_EQ(today("00:00:00"_s), value(0, "空白"_s));
}

TEST_F(OptionalColumns, ACreditAccountsSmallestAmountIsTenThousand)
{
    const QVariantList document = {line("单笔最小委托金额"_s, optional("500"_s, "五百"_s))};
    openWith(document, "EXTRA"_s, "CREDIT1"_s);
    importRows(Sheet::ordinary().add().rows());
    EXPECT_EQ("10000"_s, value(0, "单笔最小委托金额"_s));
    EXPECT_EQ("10000"_s, parameter(0, "单笔最小委托金额"_s));
    EXPECT_EQ("五百"_s, shown(0, "单笔最小委托金额"_s));

    openWith(document);
    importRows(Sheet::ordinary().add().rows());
    EXPECT_EQ("500"_s, value(0, "单笔最小委托金额"_s));
}

TEST_F(OptionalColumns, TheAssetPropertyOfTheAccountDecidesThat)
{
    for (tagUserAccountInfo& account : tables.accounts) {
        if (account.tradingAccount == "CASH1"_s) {
            account.assetProp = "Credit"_s;
        }
    }
    openWith({line("单笔最小委托金额"_s, optional("500"_s, QString()))});
    importRows(Sheet::ordinary().add().rows());
    EXPECT_EQ("10000"_s, value(0, "单笔最小委托金额"_s));
}

TEST_F(OptionalColumns, ATypedSmallestAmountStays)
{
    openWith({line("单笔最小委托金额"_s, optional("500"_s, QString()))}, "EXTRA"_s, "CREDIT1"_s);
    Sheet sheet(small_market::ordinaryHeader() + QStringList{"单笔最小委托金额"_s});
    importRows(sheet.add({{"单笔最小委托金额"_s, "700.9"_s}}).rows());
    EXPECT_EQ("700"_s, value(0, "单笔最小委托金额"_s));
}

TEST_F(OptionalColumns, ARequiredCellMayNotBeEmpty)
{
    openWith({line("必填"_s, {{"required"_s, true}})});
    Sheet sheet(small_market::ordinaryHeader() + QStringList{"必填"_s});
    importRows(sheet.add().rows());
    expectRowError("导入“必填”列值为空"_s);
    EXPECT_EQ(0, rowCount());
}
