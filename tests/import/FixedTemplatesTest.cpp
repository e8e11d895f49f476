#include "tests/support/DialogFixture.h"

/// Messages by the position of a column in a fixed template.
class FixedTemplates : public DialogFixture {
protected:
    void openAs(const QString& code)
    {
        tables.strategies.append(
            AesStrategy(code, code, small_market::toJson(small_market::ordinaryDocument()), "algo"_s));
        open(code);
    }
};

TEST_F(FixedTemplates, NameAColumnOfTheGeneralTemplateForStrategy52)
{
    openAs("52"_s);
    const QStringList titles =
        "证券代码|证券名称|市场|委托数量|交易方向|委托限价|单笔最大|委托间隔|扫盘比例(%)|委托档位|撤单时间|开始时间|结束时间|委托属性|备注|创建后是否立即启动"_s
            .split(QLatin1Char('|'));
    for (int column = 0; column < titles.size(); ++column) {
        EXPECT_EQ(titles.at(column) + "、"_s, inspect().importFileColIsEmpty(column));
        EXPECT_EQ("导入文件表头缺少“"_s + titles.at(column) + "”列"_s,
                  inspect().importFileTableHeadLackCol(column));
    }
}

TEST_F(FixedTemplates, NameAColumnOfTheVwapTemplateForItsFiveStrategies)
{
    for (const QString& code : {"AIVWAP3"_s, "AIVWAPZJC"_s, "AIVWAPBASIC"_s, "AIVWAPPLUS"_s, "VWAP"_s}) {
        openAs(code);
        EXPECT_EQ("算法开始时间、"_s, inspect().importFileColIsEmpty(6)) << code.toStdString();
        EXPECT_EQ("委托限价、"_s, inspect().importFileColIsEmpty(5)) << code.toStdString();
        EXPECT_EQ("导入文件表头缺少“涨停不卖跌停不买”列"_s, inspect().importFileTableHeadLackCol(11));
        EXPECT_EQ("备注、"_s, inspect().importFileColIsEmpty(12)) << code.toStdString();
        EXPECT_EQ("创建后是否立即启动、"_s, inspect().importFileColIsEmpty(13)) << code.toStdString();
    }
}

TEST_F(FixedTemplates, SayNothingForOtherStrategies)
{
    open("AIVWAP"_s);
    EXPECT_EQ(QString(), inspect().importFileColIsEmpty(0));
    EXPECT_EQ(QString(), inspect().importFileTableHeadLackCol(0));
}

TEST_F(FixedTemplates, SayNothingOfColumnsThatTheyDoNotHave)
{
    openAs("52"_s);
    for (int column : {-1, -2, 16, 1000}) {
        EXPECT_EQ(QString(), inspect().importFileColIsEmpty(column)) << column;
        EXPECT_EQ(QString(), inspect().importFileTableHeadLackCol(column)) << column;
    }
}
