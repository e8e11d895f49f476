// A mapping as a file: there and back, and every fault with its path.

#include "desk/mapping/Mapping.h"
#include "tests/support/Text.h"

#include <gtest/gtest.h>

#include <QJsonDocument>
#include <QTemporaryDir>

namespace {

using mapping::Column;
using mapping::DateOrder;
using mapping::Form;
using mapping::Mapping;

QByteArray bytesOf(const Mapping& mapping)
{
    return QJsonDocument(mapping::toJson(mapping)).toJson();
}

QString faultOf(const char* json)
{
    return mapping::fromJson(QByteArray(json)).error;
}

TEST(MappingJson, ComesBackAsItWas)
{
    Mapping whole{"AITWAP"_s, "Orders"_s, 3, {}, {{"委托属性"_s, "0"_s}}};
    whole.columns = {{"Ticker"_s, 1, "证券代码"_s, Form::Code, DateOrder::YearFirst, {}},
                     {""_s, 2, "交易方向"_s, Form::AsIs, DateOrder::YearFirst, {{"B"_s, "1"_s}}},
                     {"Qty"_s, 1, "委托数量"_s, Form::Quantity, DateOrder::YearFirst, {}},
                     {"Cash"_s, 1, "委托金额"_s, Form::Amount, DateOrder::YearFirst, {}},
                     {"Px"_s, 1, "委托限价"_s, Form::Decimal, DateOrder::YearFirst, {}},
                     {"Start"_s, 1, "开始时间"_s, Form::DateTime, DateOrder::DayFirst, {}},
                     {"End"_s, 1, "结束时间"_s, Form::DateTime, DateOrder::MonthFirst, {}}};
    const Outcome<Mapping> read = mapping::fromJson(bytesOf(whole));
    ASSERT_TRUE(read.ok()) << qPrintable(read.error);
    EXPECT_EQ(bytesOf(read.value), bytesOf(whole));
    EXPECT_EQ(read.value.columns.at(1).number, 2);
    EXPECT_EQ(read.value.columns.at(5).order, DateOrder::DayFirst);
    EXPECT_EQ(read.value.constants, whole.constants);
    EXPECT_EQ(read.value.headerLine, 3);
}

TEST(MappingJson, NamesWhatIsWrongByItsPath)
{
    EXPECT_TRUE(faultOf("{").contains("JSON"_s));
    EXPECT_FALSE(faultOf("[]").isEmpty());
    EXPECT_TRUE(faultOf("{}").contains("strategy："_s));
    EXPECT_TRUE(faultOf("{}").contains("columns："_s));
    const QString column = faultOf(R"({"strategy": "A", "columns": [{"from": "a", "to": "b"},
        {"from": 3, "form": "number", "to": "", "values": {"x": 1}, "shape": 2}], "extra": 1})");
    for (const char* path : {"columns[1].from：", "columns[1].form：", "columns[1].to：",
                             "columns[1].values.x：", "columns[1].shape：", "extra："}) {
        EXPECT_TRUE(column.contains(QString::fromUtf8(path))) << path << "\n" << qPrintable(column);
    }
}

TEST(MappingJson, RefusesWhatHasTwoMeanings)
{
    EXPECT_TRUE(
        faultOf(R"({"strategy": "A", "columns": [{"from": "a", "to": "x"}, {"from": "b", "to": "x"}]})")
            .contains("columns[1].to："_s));
    EXPECT_TRUE(
        faultOf(R"({"strategy": "A", "columns": [{"from": "a", "to": "x"}, {"from": "a", "to": "y"}]})")
            .contains("columns[1].from："_s));
    EXPECT_TRUE(
        faultOf(R"({"strategy": "A", "columns": [{"from": "a", "to": "x", "values": {"B": "1", "b": "2"}}]})")
            .contains("columns[0].values："_s));
    EXPECT_TRUE(
        faultOf(R"({"strategy": "A", "columns": [{"from": "a", "to": "x"}], "constants": {"x": "1"}})")
            .contains("constants.x："_s));
}

TEST(MappingJson, AFileThatIsNotThereIsNamed)
{
    const QTemporaryDir folder;
    const QString path = folder.filePath("none.json"_s);
    const Outcome<Mapping> read = mapping::readFile(path);
    EXPECT_TRUE(read.error.startsWith(path)) << qPrintable(read.error);
}

} // namespace
