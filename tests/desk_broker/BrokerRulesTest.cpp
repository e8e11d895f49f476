#include "desk/broker/BrokerRules.h"

#include "table/FaultCatalogue.h"
#include "tests/support/Text.h"

#include <gtest/gtest.h>

#include <QTemporaryDir>

using broker::BrokerRules;

namespace {

const QString Code = QStringLiteral("S");

BrokerRules rulesOf(const QByteArray& rules)
{
    const Outcome<BrokerRules> read = BrokerRules::parse("{\"S\": " + rules + "}", "rules"_s);
    EXPECT_EQ(read.error, QString());
    return read.value;
}

BrokerRules boundsOf(const QByteArray& bounds)
{
    return rulesOf(R"({"parameters": [{"paramId": "P", "title": "参数", )" + bounds + "}]}");
}

BrokerRules conditionOf(const QByteArray& node)
{
    return rulesOf(R"({"conditions": [{"message": "why", "holds": )" + node + "}]}");
}

/// The sentences that an order gives.
QString faultsOf(const BrokerRules& rules, const QMap<QString, QVariant>& parameters)
{
    QStringList sentences;
    for (const table::Fault& fault : rules.faultsOf(Code, parameters)) {
        sentences.append(table::sentence(fault));
    }
    return sentences.join(" "_s);
}

QString faultsOf(const BrokerRules& rules, const QString& value)
{
    return faultsOf(rules, QMap<QString, QVariant>{{"P"_s, value}});
}

/// Whether the order meets the condition; "?" where nobody can say counts as met.
bool isMet(const QByteArray& node, const QMap<QString, QVariant>& parameters)
{
    return faultsOf(conditionOf(node), parameters).isEmpty();
}

QString faultOf(const QByteArray& json)
{
    return BrokerRules::parse(json, "rules"_s).error;
}

} // namespace

TEST(BrokerRules, HoldNumbersToTheirBounds)
{
    const BrokerRules rules = boundsOf(R"("kind": "number", "min": "1", "max": "35.5", "decimals": 1)");
    EXPECT_EQ(faultsOf(rules, "35.50"_s), QString());
    EXPECT_EQ(faultsOf(rules, "0.9"_s), "参数 0.9 小于算法允许的最小值 1"_s);
    EXPECT_EQ(faultsOf(rules, "35.6"_s), "参数 35.6 大于算法允许的最大值 35.5"_s);
    EXPECT_EQ(faultsOf(rules, "15.25"_s), "参数 15.25 的小数超过 1 位"_s);
    EXPECT_EQ(faultsOf(rules, "15%"_s), "参数“15%”应为数字"_s);
    EXPECT_EQ(faultsOf(rules, QString()), QString()) << "the columns say what is required";
    EXPECT_EQ(faultsOf(boundsOf(R"("kind": "integer")"), "1.5"_s), "参数“1.5”应为整数"_s);
}

TEST(BrokerRules, HoldTimesToTheirBoundsOnTheDayOfTheOrder)
{
    const BrokerRules rules =
        boundsOf(R"("kind": "time", "min": "09:30:00", "max": "16:00:00", "timeZone": "America/New_York")");
    EXPECT_EQ(faultsOf(rules, "2026-01-15 22:30:00"_s), QString()) << "09:30 in winter";
    EXPECT_EQ(faultsOf(rules, "2026-07-15 21:30:00"_s), QString()) << "09:30 in summer";
    EXPECT_EQ(faultsOf(rules, "2026-01-15 21:30:00"_s),
              "参数 America/New_York 08:30:00 小于算法允许的最小值 09:30:00"_s);
    EXPECT_EQ(faultsOf(rules, "2026-07-15 04:30:00"_s),
              "参数 America/New_York 16:30:00 大于算法允许的最大值 16:00:00"_s);
    EXPECT_EQ(faultsOf(boundsOf(R"("kind": "day", "min": "2026-11-23")"), "2026-11-22 10:00:00"_s),
              "参数 2026-11-22 小于算法允许的最小值 2026-11-23"_s);
}

TEST(BrokerRules, HoldTextsToTheirLengthsAndWords)
{
    const BrokerRules rules = boundsOf(R"("kind": "text", "minLength": 2, "maxLength": 3)");
    EXPECT_EQ(faultsOf(rules, "甲乙"_s), QString());
    EXPECT_EQ(faultsOf(rules, "甲"_s), "参数“甲”少于 2 个字符"_s);
    EXPECT_EQ(faultsOf(rules, "甲乙丙丁"_s), "参数“甲乙丙丁”超过 3 个字符"_s);
    const BrokerRules several = boundsOf(R"("kind": "several", "values": ["LIT", "DRK"])");
    EXPECT_EQ(faultsOf(several, "DRK LIT"_s), QString());
    EXPECT_EQ(faultsOf(several, "LIT,DRK"_s), "参数“LIT,DRK”应为LIT、DRK"_s);
}

TEST(BrokerRules, HoldEachLegToTheMarkets)
{
    const BrokerRules rules = rulesOf(R"({"exchanges": ["SH"]})");
    const auto onMarket = [](const QString& market) {
        return QMap<QString, QVariant>{
            {"证券代码和委托数量"_s, QVariantList{QVariantMap{{"市场"_s, market}}}}};
    };
    EXPECT_EQ(faultsOf(rules, onMarket("SH"_s)), QString());
    EXPECT_EQ(faultsOf(rules, onMarket("SZ"_s)), "该算法不用于市场 SZ"_s);
    EXPECT_TRUE(rules.faultsOf("OTHER"_s, onMarket("SZ"_s)).isEmpty());
}

TEST(BrokerRules, JudgeComparisons)
{
    const QByteArray node = R"({"operator": "GE", "kind": "number", "field": "P", "value": "10"})";
    EXPECT_TRUE(isMet(node, {{"P"_s, "10.0"_s}}));
    EXPECT_FALSE(isMet(node, {{"P"_s, "9"_s}}));
    EXPECT_TRUE(isMet(node, {})) << "nobody can say";
    const QByteArray two = R"({"operator": "LT", "kind": "text", "field": "P", "field2": "Q"})";
    EXPECT_FALSE(isMet(two, {{"P"_s, "2026-11-23 10:00:00"_s}, {"Q"_s, "2026-11-23 10:00:00"_s}}));
    EXPECT_TRUE(isMet(two, {{"P"_s, "2026-11-23 09:59:59"_s}, {"Q"_s, "2026-11-23 10:00:00"_s}}));
}

TEST(BrokerRules, JudgeEachComparisonOnBothSidesOfItsBound)
{
    const auto isMetBy = [](const QByteArray& operation, const QString& value) {
        return isMet(R"({"operator": ")" + operation + R"(", "kind": "number", "field": "P", "value": "5"})",
                     {{"P"_s, value}});
    };
    EXPECT_TRUE(isMetBy("EQ", "5.0"_s) && !isMetBy("EQ", "6"_s));
    EXPECT_TRUE(isMetBy("NE", "6"_s) && !isMetBy("NE", "5.0"_s));
    EXPECT_TRUE(isMetBy("LT", "4"_s) && !isMetBy("LT", "5"_s));
    EXPECT_TRUE(isMetBy("LE", "5"_s) && !isMetBy("LE", "6"_s));
    EXPECT_TRUE(isMetBy("GT", "6"_s) && !isMetBy("GT", "5"_s));
    EXPECT_TRUE(isMetBy("GE", "5"_s) && !isMetBy("GE", "4"_s));
}

TEST(BrokerRules, JudgeTrees)
{
    const QByteArray exists = R"({"operator": "EX", "field": "P"})";
    const QByteArray lacks = R"({"operator": "NX", "field": "P"})";
    const QByteArray unknown = R"({"operator": "EQ", "kind": "number", "field": "Q", "value": "1"})";
    const QByteArray never = R"({"always": false})";
    const auto tree = [](const char* logic, const QByteArray& nodes) {
        return R"({"logic": ")" + QByteArray(logic) + R"(", "of": [)" + nodes + "]}";
    };
    const QMap<QString, QVariant> order = {{"P"_s, "1"_s}};
    EXPECT_TRUE(isMet(tree("OR", never + "," + exists), order));
    EXPECT_FALSE(isMet(tree("OR", never + "," + lacks), order));
    EXPECT_TRUE(isMet(tree("OR", never + "," + unknown), order));
    EXPECT_FALSE(isMet(tree("AND", unknown + "," + never), order));
    EXPECT_TRUE(isMet(tree("AND", unknown + "," + exists), order));
    EXPECT_FALSE(isMet(tree("XOR", exists + "," + exists), order)) << "one and only one";
    EXPECT_TRUE(isMet(tree("XOR", exists + "," + lacks), order));
    EXPECT_FALSE(isMet(tree("NOT", exists), order));
}

TEST(BrokerRules, ALimitOfZeroIsNone)
{
    const QByteArray hasLimit = R"({"operator": "EX", "field": "委托限价"})";
    EXPECT_FALSE(isMet(hasLimit, {{"委托限价"_s, "0.00"_s}}));
    EXPECT_TRUE(isMet(hasLimit, {{"委托限价"_s, "9.86"_s}}));
}

TEST(BrokerRules, TellWhatIsWrongWithTheFile)
{
    EXPECT_EQ(faultOf("{"), "rules:1: JSON 语法错误：unterminated object"_s);
    EXPECT_EQ(faultOf("[]"), "rules:1: 最外层应为对象"_s);
    EXPECT_EQ(faultOf(R"({"S": {"bounds": []}})"), "rules:1: S.bounds：未知的键"_s);
    EXPECT_EQ(faultOf(R"({"S": {"parameters": [{"paramId": "P", "title": "P", "kind": "size"}]}})"),
              "rules:1: S.parameters[0].kind：未知的类型“size”"_s);
    EXPECT_EQ(
        faultOf(R"({"S": {"parameters": [{"paramId": "P", "title": "P", "kind": "number", "min": "one"}]}})"),
        "rules:1: S.parameters[0].min：不是界限：one"_s);
    EXPECT_EQ(
        faultOf(
            R"({"S": {"conditions": [{"message": "", "holds": {"operator": "IS", "field": "P", "value": "1"}}]}})"),
        "rules:1: S.conditions[0].holds.operator：“IS”有误"_s);
    EXPECT_EQ(faultOf(R"({"S": {"conditions": [{"message": "", "holds": {"logic": "NOT", "of": []}}]}})"),
              "rules:1: S.conditions[0].holds.logic：“NOT”有误"_s);
    EXPECT_NE(faultOf("{\"S\": {\"conditions\": [{\"message\": \"\", \"holds\": " +
                      QByteArray(R"({"logic": "NOT", "of": [)").repeated(100) + R"({"always": true})" +
                      QByteArray("]}").repeated(100) + "}]}}"),
              QString());
}

TEST(BrokerRules, AFolderWithoutTheFileAsksForNothing)
{
    QTemporaryDir folder;
    const Outcome<BrokerRules> read = BrokerRules::read(folder.path());
    EXPECT_TRUE(read.ok() && read.value.isEmpty());
}
