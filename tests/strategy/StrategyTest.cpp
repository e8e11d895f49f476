// A format document as a value.

#include "strategy/Strategy.h"

#include "tests/support/Text.h"

#include <gtest/gtest.h>

namespace {

using strategy::Strategy;

Strategy parsed(const char* document, const QString& code = QStringLiteral("AITWAP"))
{
    const Outcome<Strategy> outcome = Strategy::parse(code, "别名"_s, QString::fromUtf8(document));
    EXPECT_TRUE(outcome.ok()) << qPrintable(outcome.error);
    return outcome.value;
}

const char* const Ordinary = R"([
    {"paramName": "证券代码和委托数量", "ui": "Table", "columns": [
        {"paramName": "证券代码", "paramId": "证券代码", "ui": "LineEdit", "required": "true"},
        {"paramName": "委托数量", "paramId": "qty", "ui": "LineEdit", "visible": "TRUE"},
        {},
        {"paramName": "暗", "paramId": "dark", "ui": "LineEdit", "visible": false}]},
    {"paramName": "资金账号", "paramId": "fund", "ui": "LineEdit"},
    {"paramName": "交易方向", "paramId": "side", "ui": "ComboBox",
     "options": [{"display": "买入", "value": "Buy"}, {"display": "卖出", "value": "Sell"}]},
    {"paramName": "开始时间", "paramId": "start", "ui": "DateTime", "required": false,
     "strDefault": {"value": "09:30:00", "display": "九点半"}},
    {"paramName": "实例备注", "paramId": "remark", "ui": "LineEdit", "required": "no"}])";

TEST(Strategy, TheHeadIsCompleted)
{
    const Strategy strategy = parsed(Ordinary);
    EXPECT_EQ(strategy.titles(),
              (QStringList{"证券代码"_s, "证券名称"_s, "市场"_s, "委托数量"_s, "交易方向"_s, "开始时间"_s,
                           "实例备注"_s, "创建后是否立即启动"_s}));
    EXPECT_EQ(strategy.visibleNames(), (QStringList{"证券代码"_s, "委托数量"_s, "资金账号"_s, "交易方向"_s,
                                                    "开始时间"_s, "实例备注"_s}));
    EXPECT_EQ(strategy.securityParameters, (QStringList{"证券代码"_s, "委托数量"_s, "暗"_s, "市场"_s}));
    EXPECT_EQ(strategy.instanceParameters,
              (QStringList{"资金账号"_s, "交易方向"_s, "开始时间"_s, "实例备注"_s, "创建后是否立即启动"_s}));
}

struct Expected {
    const char* name;
    const char* title;
    strategy::Kind kind;
    const char* id;
    bool ofSecurity;
    bool compulsory;
    bool required;
    bool added;
};

class ColumnOf : public testing::TestWithParam<Expected> {};

TEST_P(ColumnOf, IsDescribed)
{
    const Strategy strategy = parsed(Ordinary);
    const strategy::Column* column = strategy.column(QString::fromUtf8(GetParam().title));
    ASSERT_NE(column, nullptr);
    EXPECT_EQ(column->kind, GetParam().kind);
    EXPECT_EQ(column->id, QString::fromUtf8(GetParam().id));
    EXPECT_EQ(column->ofSecurity, GetParam().ofSecurity);
    EXPECT_EQ(column->compulsory, GetParam().compulsory);
    EXPECT_EQ(column->required, GetParam().required);
    EXPECT_EQ(column->mustStandInFile(), GetParam().compulsory || GetParam().required);
    EXPECT_EQ(column->isAdded(), GetParam().added);
}

using strategy::Kind;
INSTANTIATE_TEST_SUITE_P(
    Columns, ColumnOf,
    testing::Values(Expected{"Code", "证券代码", Kind::Code, "证券代码", true, true, true, false},
                    Expected{"Name", "证券名称", Kind::SecurityName, "", false, false, false, true},
                    Expected{"Market", "市场", Kind::Market, "市场", true, true, false, true},
                    Expected{"Quantity", "委托数量", Kind::Ordinary, "qty", true, true, false, false},
                    Expected{"Direction", "交易方向", Kind::Ordinary, "side", false, true, false, false},
                    Expected{"Start", "开始时间", Kind::Ordinary, "start", false, false, false, false},
                    Expected{"Remark", "实例备注", Kind::Ordinary, "remark", false, false, true, false},
                    Expected{"CreateStatus", "创建后是否立即启动", Kind::CreateAndStart, "创建后是否立即启动",
                             false, true, false, true}),
    [](const testing::TestParamInfo<Expected>& tested) { return tested.param.name; });

TEST(Strategy, OptionsDefaultsAndVocabulariesAreTheColumns)
{
    const Strategy strategy = parsed(Ordinary);
    const strategy::Column direction = *strategy.column("交易方向"_s);
    EXPECT_EQ(direction.options, (QMap<QString, QString>{{"买入"_s, "Buy"_s}, {"卖出"_s, "Sell"_s}}));
    EXPECT_EQ(direction.accepted.value("2"_s), "卖出"_s);
    EXPECT_EQ(strategy.column("开始时间"_s)->defaultValue, "09:30:00"_s);
    EXPECT_EQ(strategy.column("开始时间"_s)->defaultShown, "九点半"_s);
    EXPECT_TRUE(strategy.column("委托数量"_s)->wholeNumber);
    EXPECT_FALSE(strategy.column("实例备注"_s)->wholeNumber);
}

TEST(Strategy, ARepeatedNameIsAColumnTwiceAndItsLastEntryHolds)
{
    const Strategy strategy = parsed(R"([
        {"paramName": "甲", "paramId": "1", "ui": "ComboBox", "options": [{"display": "壹", "value": "1"}]},
        {"paramName": "甲", "paramId": "2", "ui": "ComboBox", "options": [{"display": "贰", "value": "2"}]}])");
    EXPECT_EQ(strategy.titles(),
              (QStringList{"甲"_s, "证券名称"_s, "市场"_s, "甲"_s, "创建后是否立即启动"_s}));
    for (const int index : {0, 3}) {
        EXPECT_EQ(strategy.columns.at(index).id, "2"_s);
        EXPECT_EQ(strategy.columns.at(index).options.size(), 2) << "options add up";
    }
    EXPECT_EQ(strategy.columns.at(0).parameter.id, "1"_s) << "but each stands for its own entry";
}

TEST(Strategy, OnlyTheFirstFundAccountIsNoColumn)
{
    EXPECT_EQ(parsed(R"([{"paramName": "资金账号"}, {"paramName": "资金账号"}])").titles(),
              (QStringList{"资金账号"_s, "证券名称"_s, "市场"_s, "创建后是否立即启动"_s}));
}

TEST(Strategy, ADocumentThatIsNoArrayHasNoParameters)
{
    const QStringList added = {"创建后是否立即启动"_s, "证券名称"_s, "市场"_s};
    EXPECT_EQ(parsed("{}").titles(), added);
    EXPECT_EQ(parsed("[1, {}, \"text\"]").titles(), added);
    EXPECT_TRUE(parsed("[]").visibleNames().isEmpty());
    EXPECT_EQ(Strategy::withoutParameters("X"_s, "别名"_s).titles(), added);
}

TEST(Strategy, ADocumentThatIsNoJsonFailsWithTheParsersWords)
{
    const Outcome<Strategy> outcome = Strategy::parse("AITWAP"_s, QString(), "[{]"_s);
    EXPECT_FALSE(outcome.ok());
    EXPECT_TRUE(outcome.value.columns.isEmpty());
}

TEST(Strategy, TheCodeBringsItsTraits)
{
    EXPECT_TRUE(parsed("[]", "AILOCK"_s).traits.has(strategy::Lock));
    EXPECT_EQ(parsed(R"([{"paramName": "风格参数", "ui": "ComboBox"}])", "QND_TWAP"_s)
                  .column("风格参数"_s)
                  ->accepted.size(),
              4);
}

} // namespace
