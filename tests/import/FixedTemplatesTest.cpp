#include "tests/support/DialogFixture.h"

/// Messages by the position of a column in a fixed template.
class FixedTemplates : public DialogFixture {
protected:
    void expectTitles(const QString& strategy, const QString& joined)
    {
        openDocument(small_market::ordinaryDocument(), strategy);
        const QStringList titles = joined.split(QLatin1Char('|'));
        for (int column = 0; column < titles.size(); ++column) {
            EXPECT_EQ(titles.at(column) + "、"_s, inspect().importFileColIsEmpty(column))
                << qPrintable(strategy);
            EXPECT_EQ("导入文件表头缺少“"_s + titles.at(column) + "”列"_s,
                      inspect().importFileTableHeadLackCol(column));
        }
        EXPECT_EQ(QString(), inspect().importFileColIsEmpty(titles.size()));
    }
};

TEST_F(FixedTemplates, NameAColumnOfTheGeneralTemplateForStrategy52)
{
    expectTitles("52"_s, "证券代码|证券名称|市场|委托数量|交易方向|委托限价|单笔最大|委托间隔|扫盘比例(%)|"
                         "委托档位|撤单时间|开始时间|结束时间|委托属性|备注|创建后是否立即启动"_s);
}

TEST_F(FixedTemplates, NameAColumnOfTheVwapTemplateForItsFiveStrategies)
{
    for (const QString& code : {"AIVWAP3"_s, "AIVWAPZJC"_s, "AIVWAPBASIC"_s, "AIVWAPPLUS"_s, "VWAP"_s}) {
        expectTitles(code, "证券代码|证券名称|市场|委托数量|交易方向|委托限价|算法开始时间|算法过期时间|"
                           "委托属性|最大市场占比|风格参数|涨停不卖跌停不买|备注|创建后是否立即启动"_s);
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
    openDocument(small_market::ordinaryDocument(), "52"_s);
    for (int column : {-1, -2, 16, 1000}) {
        EXPECT_EQ(QString(), inspect().importFileColIsEmpty(column)) << column;
        EXPECT_EQ(QString(), inspect().importFileTableHeadLackCol(column)) << column;
    }
}
