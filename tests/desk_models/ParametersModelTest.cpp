#include "desk/models/ParametersModel.h"

#include "host/AlgoConstants.h"
#include "tests/support/ModelText.h"
#include "tests/support/Text.h"

#include <gtest/gtest.h>

namespace {

QVariantMap leg(const QString& symbol, const QString& quantity)
{
    return {{"证券代码"_s, symbol}, {"委托数量"_s, quantity}, {"证券账号"_s, "A"_s}};
}

TEST(ParametersModelTest, PutsSymbolDirectionAndQuantityFirstAndLegsIntoOneCell)
{
    const QString legs = Algo_Values::AlgoParamId::AlgoSecurityList;
    ParametersModel model;
    model.setMaps(
        {{{"备注"_s, "x"_s}, {"交易方向"_s, "Buy"_s}, {legs, QVariantList{leg("600000.SH"_s, "100"_s)}}},
         {{legs, QVariantList{leg("600000.SH"_s, "100"_s), leg("000001.SZ"_s, "200"_s)}}}});
    EXPECT_EQ(modelText(model), "证券代码|交易方向|委托数量|证券账号|备注\n"
                                "600000.SH|Buy|100|A|x\n"
                                "600000.SH / 000001.SZ||100 / 200|A / A|"_s);
}

TEST(ParametersModelTest, HasNoColumnsWithoutInstances)
{
    ParametersModel model;
    model.setMaps({{{"备注"_s, "x"_s}}});
    model.setMaps({});
    EXPECT_EQ(modelText(model), QString());
}

} // namespace
