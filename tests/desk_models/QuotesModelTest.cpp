#include "desk/models/QuotesModel.h"

#include "tests/support/ModelText.h"
#include "tests/support/Text.h"

#include <gtest/gtest.h>

TEST(QuotesModelTest, ShowsChangesInTheSecuritysDecimalsAndTheirColour)
{
    QuotesModel model;
    model.setRecords({{"600000.SH"_s, "样本甲"_s, 2, "10.50"_s, "10.00"_s, "11.00"_s, "9.00"_s},
                      {"510300.SH"_s, "样本乙"_s, 3, "3.990"_s, "4.000"_s, QString(), QString()},
                      {"600999.SH"_s, QString(), 2, QString(), "4.00"_s, QString(), QString()},
                      {"204001.SH"_s, QString(), 1, "4.0"_s, "4.0"_s, QString(), QString()}});
    EXPECT_EQ(modelText(model), "证券代码|证券名称|最新价|涨跌|涨跌幅%|昨收价|涨停价|跌停价\n"
                                "600000.SH|样本甲|10.50|0.50|5.00|10.00|11.00|9.00\n"
                                "510300.SH|样本乙|3.990|-0.010|-0.25|4.000||\n"
                                "600999.SH|||||4.00||\n"
                                "204001.SH||4.0|0.0|0.00|4.0||"_s);
    EXPECT_EQ(modelText(model, ListModel::TintRole).section(QLatin1Char('\n'), 1),
              "||buy|buy|buy|||\n||sell|sell|sell|||\n|||||||\n|||||||"_s);
}
