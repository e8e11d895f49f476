#include "gateway/profile/Profile.h"

#include "tests/gateway/SampleOrders.h"

#include <gtest/gtest.h>

namespace {

using namespace gateway;

QString errorOf(const char* json)
{
    return readProfile(json).error;
}

const char Frame[] = R"({"exchanges": {}, "sides": {"Buy": {"54": "1"}}, "strategies": {"S": {%1}}%2})";

QString errorIn(const char* strategy, const char* rest = "")
{
    return readProfile(
               QString::fromUtf8(Frame).arg(QString::fromUtf8(strategy), QString::fromUtf8(rest)).toUtf8())
        .error;
}

TEST(Profile, ReadsWhatABrokerWants)
{
    const Profile profile = sample::profile();
    EXPECT_EQ(profile.accounts, QStringList{QStringLiteral("80010001")});
    EXPECT_EQ(profile.statusTimeoutSeconds, 30);
    EXPECT_TRUE(profile.statusRequest);
    EXPECT_TRUE(profile.possResend);
    EXPECT_EQ(profile.exchanges.value(QStringLiteral("SZ")), QStringLiteral("XSHE"));
    EXPECT_EQ(profile.sides.value(QStringLiteral("BuyOpen")).last().tag, 77);
    const StrategyRule rule = profile.strategies.value(QStringLiteral("AITWAP"));
    ASSERT_EQ(rule.parameters.size(), 5);
    EXPECT_EQ(rule.parameters.first().tag, 168);
    EXPECT_EQ(rule.parameters.at(2).name, QStringLiteral("MaxPctVolume"));
    EXPECT_EQ(rule.parameters.at(2).type, ValueType::Percentage);
}

TEST(Profile, TellsAnUnknownKeyByItsPath)
{
    EXPECT_EQ(errorIn("", R"(, "possresend": true)"), QStringLiteral("possresend：未知的键"));
    EXPECT_EQ(errorIn(R"("params": [])"), QStringLiteral("strategies.S.params：未知的键"));
    EXPECT_EQ(errorIn(R"("parameters": [{"paramId": "a", "tag": 9000, "type": "Int", "leg": 1}])"),
              QStringLiteral("strategies.S.parameters[0].leg：未知的键"));
}

TEST(Profile, TakesAConstantInPlaceOfAParameter)
{
    EXPECT_EQ(errorIn(R"("parameters": [{"constant": "A", "name": "Service", "type": "String"},
                                        {"constant": "B", "name": "Desk", "type": "Tenor"}])"),
              QString());
    EXPECT_EQ(errorIn(R"("parameters": [{"constant": "A", "paramId": "a", "tag": 9000, "type": "Int"}])"),
              QStringLiteral("strategies.S.parameters[0].constant：constant 与 paramId 应有且只有一个"));
    EXPECT_EQ(errorIn(R"("parameters": [{"tag": 9000, "type": "Int"}])"),
              QStringLiteral("strategies.S.parameters[0].paramId：缺少"));
}

TEST(Profile, TellsEverythingThatIsWrongAtOnce)
{
    const QString error =
        errorIn(R"("parameters": [{"paramId": "a", "tag": 1, "type": "Percent"}, {"name": "b"}])");
    EXPECT_EQ(error, QStringLiteral("strategies.S.parameters[0].tag：字段 1 由程序填写\n"
                                    "strategies.S.parameters[0].type：未知的类型“Percent”\n"
                                    "strategies.S.parameters[1].paramId：缺少\n"
                                    "strategies.S.parameters[1].type：未知的类型“”"));
}

TEST(Profile, RefusesFieldsThatTheProgramFillsIn)
{
    EXPECT_EQ(errorIn(R"("fields": {"11": "x"})"),
              QStringLiteral("strategies.S.fields.11：字段 11 由程序填写"));
    EXPECT_EQ(errorIn(R"("fields": {"59": "4", "21": "2"})"), QString());
    EXPECT_EQ(errorIn(R"("fields": {"x": "4"})"), QStringLiteral("strategies.S.fields.x：应为字段号"));
    EXPECT_EQ(errorIn(R"("fields": {"847": 4})"), QStringLiteral("strategies.S.fields.847：应为非空文本"));
}

TEST(Profile, RefusesTwins)
{
    EXPECT_EQ(errorIn(R"("fields": {"847": "1"},
        "parameters": [{"paramId": "a", "tag": 847, "type": "Int"}])"),
              QStringLiteral("strategies.S.parameters[0]：重复"));
    EXPECT_EQ(errorIn(R"("ignore": ["a"], "parameters": [{"paramId": "a", "tag": 847, "type": "Int"}])"),
              QStringLiteral("strategies.S.ignore：参数“a”既要发送又要忽略"));
}

TEST(Profile, NeedsASideAndTheThreeTables)
{
    EXPECT_EQ(errorOf(R"({"exchanges": {}, "strategies": {}, "sides": {"Buy": {"77": "O"}}})"),
              QStringLiteral("sides.Buy：缺少字段 54"));
    EXPECT_EQ(errorOf("{}"), QStringLiteral("exchanges：缺少\nsides：缺少\nstrategies：缺少"));
}

TEST(Profile, TellsWhereTheJsonIsBroken)
{
    EXPECT_TRUE(errorOf("{\n  \"accounts\": [,]\n}").startsWith(QStringLiteral("第 2 行第 ")));
    EXPECT_EQ(errorOf("[]"), QStringLiteral("应为一个 JSON 对象"));
    EXPECT_TRUE(loadProfile(QStringLiteral("/no/such/profile.json"))
                    .error.startsWith(QStringLiteral("无法读取“/no/such/profile.json”")));
}

} // namespace
