#include "desk/window/ParameterTable.h"

#include "host/AlgoConstants.h"
#include "tests/support/Text.h"

#include <gtest/gtest.h>

namespace {

QVariantMap leg(const QString& symbol, const QString& quantity)
{
    return {{"证券代码"_s, symbol}, {"委托数量"_s, quantity}, {"证券账号"_s, "A"_s}};
}

} // namespace

TEST(ParameterTableTest, PutsSymbolDirectionAndQuantityFirstAndLegsIntoOneCell)
{
    const QMap<QString, QVariant> single{
        {"备注"_s, "x"_s},
        {"交易方向"_s, "Buy"_s},
        {Algo_Values::AlgoParamId::AlgoSecurityList, QVariantList{leg("600000.SH"_s, "100"_s)}}};
    const QMap<QString, QVariant> pair{
        {Algo_Values::AlgoParamId::AlgoSecurityList,
         QVariantList{leg("600000.SH"_s, "100"_s), leg("000001.SZ"_s, "200"_s)}}};
    const QStringList columns = parameter_table::columnsOf({single, pair});
    EXPECT_EQ(columns, QStringList({"证券代码"_s, "交易方向"_s, "委托数量"_s, "证券账号"_s, "备注"_s}));
    const QList<QStringList> rows = parameter_table::rowsOf({single, pair}, columns);
    EXPECT_EQ(rows.at(0), QStringList({"600000.SH"_s, "Buy"_s, "100"_s, "A"_s, "x"_s}));
    EXPECT_EQ(rows.at(1).at(0), "600000.SH / 000001.SZ"_s);
    EXPECT_EQ(rows.at(1).at(1), QString());
}

TEST(ParameterTableTest, IsEmptyWithoutInstances)
{
    EXPECT_TRUE(parameter_table::columnsOf({}).isEmpty());
    EXPECT_TRUE(parameter_table::rowsOf({}, {}).isEmpty());
}
