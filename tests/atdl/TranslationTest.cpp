#include "atdl/Translation.h"

#include "gateway/profile/Profile.h"
#include "strategy/Strategy.h"
#include "tests/atdl/Documents.h"
#include "tests/support/Text.h"

#include <gtest/gtest.h>

#include <QFile>
#include <QJsonDocument>

using atdl::Translation;

namespace {

Translation made(const QByteArray& document)
{
    const Outcome<Translation> outcome = atdl::translate(document);
    EXPECT_EQ(outcome.error, QString());
    return outcome.value;
}

QByteArray sample()
{
    QFile file(QStringLiteral(SAMPLES) + "/broker.xml"_s);
    EXPECT_TRUE(file.open(QIODevice::ReadOnly));
    return file.readAll();
}

QString print(const QJsonObject& object)
{
    return QString::fromUtf8(QJsonDocument(object).toJson(QJsonDocument::Compact));
}

/// The column of a parameter.
QJsonObject column(const Translation& translation, const QString& paramId)
{
    for (const QJsonValue& one : translation.strategies.at(0).toObject()["paramFormats"_s].toArray()) {
        if (one.toObject()["paramId"_s].toString() == paramId) {
            return one.toObject();
        }
    }
    return {};
}

QJsonObject profileOf(const Translation& translation, const QString& code = "S"_s)
{
    return translation.profile["strategies"_s].toObject()[code].toObject();
}

QString onlyRule(const Translation& translation)
{
    return print(profileOf(translation)["parameters"_s].toArray().at(0).toObject());
}

QString onlyBounds(const Translation& translation)
{
    return print(translation.rules["S"_s].toObject()["parameters"_s].toArray().at(0).toObject());
}

QString onlyCondition(const Translation& translation)
{
    return print(
        translation.rules["S"_s].toObject()["conditions"_s].toArray().at(0).toObject()["holds"_s].toObject());
}

QStringList losses(const Translation& translation)
{
    QStringList texts;
    for (const atdl::Loss& loss : translation.losses) {
        texts.append(loss.element + " "_s + loss.name + "："_s + loss.reason);
    }
    return texts;
}

QByteArray parameter(const QByteArray& attributes, const QByteArray& content = QByteArray())
{
    return R"(<Parameter name="P" fixTag="20001" )" + attributes + ">" + content + "</Parameter>";
}

QByteArray control(const QByteArray& attributes, const QByteArray& items = QByteArray())
{
    return R"(<lay:StrategyLayout><lay:Control ID="c" parameterRef="P" )" + attributes + ">" + items +
           "</lay:Control></lay:StrategyLayout>";
}

QByteArray edit(const QByteArray& condition)
{
    return R"(<val:StrategyEdit errorMessage="why">)" + condition + "</val:StrategyEdit>";
}

} // namespace

TEST(Atdl, WhatTheSampleMakesIsReadByThoseWhoUseIt)
{
    const Translation translation = made(sample());
    ASSERT_EQ(translation.strategies.size(), 2);
    const Outcome<gateway::Profile> profile =
        gateway::readProfile(QJsonDocument(translation.profile).toJson());
    EXPECT_EQ(profile.error, QString());
    EXPECT_EQ(profile.value.strategies.keys(), QStringList({"NORTH-PEG"_s, "NORTH-VWAP"_s}));
    const QJsonObject entry = translation.strategies.at(0).toObject();
    const Outcome<strategy::Strategy> schema = strategy::Strategy::parse(
        entry["name"_s].toString(), entry["alias"_s].toString(),
        QString::fromUtf8(QJsonDocument(entry["paramFormats"_s].toArray()).toJson()));
    ASSERT_TRUE(schema.ok()) << qPrintable(schema.error);
    EXPECT_EQ(schema.value.titles().join(" "_s), "证券代码 证券名称 市场 委托数量 交易方向 委托限价 开始时间 "
                                                 "结束时间 最大市场占比 紧急程度 暗池 子单数 "
                                                 "让价 场所 台号 实例备注 创建后是否立即启动"_s);
}

TEST(Atdl, NamesEverythingOfTheSampleThatItCannotCarry)
{
    EXPECT_EQ(
        losses(made(sample())),
        QStringList({"StateRule c_dark：录入界面的联动规则，表中没有：请按算法说明填写"_s,
                     "StrategyEdit Not for settlement types other than regular.：表中没有“FIX_SettlType”"_s,
                     "Market XTKS：本系统没有此市场"_s,
                     "Strategy NORTH-LIST：整个算法未写出：消息类型“E”不是 D"_s}));
}

TEST(Atdl, RefusesWhatIsNoSuchDocument)
{
    const auto errorOf = [](const QByteArray& bytes) { return atdl::translate(bytes).error; };
    EXPECT_EQ(errorOf("<Strategies xmlns='http://example.org/other'/>"),
              "不是 FIXatdl 1.1 文件：最外层是“Strategies”，命名空间“http://example.org/other”"_s);
    EXPECT_TRUE(errorOf("<Strategies/>").startsWith("不是 FIXatdl 1.1 文件"_s));
    EXPECT_EQ(errorOf(document::of("")), "文件中没有算法（Strategy）"_s);
    EXPECT_TRUE(errorOf("<Strategies").contains("不是正确的 XML"_s));
    EXPECT_TRUE(errorOf("<!DOCTYPE a><a/>").contains("DOCTYPE"_s));
}

TEST(Atdl, AStrategyThatWouldNotGoOutAsAskedIsLeftOut)
{
    const auto onlyLoss = [](const QByteArray& document) {
        const Translation translation = made(document);
        EXPECT_TRUE(translation.strategies.isEmpty());
        EXPECT_TRUE(profileOf(translation).isEmpty());
        return losses(translation).last();
    };
    const QByteArray needed = R"(<Parameter name="P" use="required" fixTag="20001" xsi:type="Data_t"/>)";
    EXPECT_EQ(onlyLoss(document::ofStrategy(needed)),
              "Strategy S：整个算法未写出：必填参数或常量“P”无法转换"_s);
    const QByteArray homeless = R"(<Parameter name="P" use="required" xsi:type="Int_t"/>)";
    EXPECT_EQ(onlyLoss(document::ofStrategy(homeless)),
              "Strategy S：整个算法未写出：必填参数或常量“P”没有去处"_s);
    const QByteArray price = R"(<Parameter name="P" use="required" fixTag="44" xsi:type="Price_t"/>)";
    EXPECT_EQ(onlyLoss(document::ofStrategy(price)),
              "Strategy S：整个算法未写出：必填参数或常量“P”没有去处"_s);
    EXPECT_EQ(onlyLoss(document::of(R"(<Strategy name="AILOCK" wireValue="1"/>)")),
              "Strategy AILOCK：整个算法未写出：算法代码“AILOCK”在本系统另有含义或为空"_s);
    EXPECT_EQ(onlyLoss(document::of(R"(<Strategy name="S"/>)")),
              "Strategy S：整个算法未写出：缺少 wireValue"_s);
    const QByteArray twins = R"(<Parameter name="P" fixTag="20001" xsi:type="Int_t"/>)";
    EXPECT_EQ(onlyLoss(document::ofStrategy(twins + twins)),
              "Strategy S：整个算法未写出：必填参数或常量“P”无法转换"_s);
}

TEST(Atdl, AnOptionalParameterThatIsLostIsNamed)
{
    const Translation translation =
        made(document::ofStrategy(parameter(R"(xsi:type="TZTimestamp_t")") +
                                  R"(<Parameter name="Q" xsi:type="Int_t"/><RepeatingGroup name="G"/>)"));
    EXPECT_EQ(translation.strategies.size(), 1);
    EXPECT_EQ(losses(translation),
              QStringList({"RepeatingGroup G：不支持的元素"_s, "Parameter P：不支持的类型“TZTimestamp_t”"_s,
                           "Parameter Q：没有可用的 fixTag，文件也不支持参数组（tag957Support）"_s}));
}

TEST(Atdl, UnknownAttributesAreNamed)
{
    const Translation translation =
        made(document::of(R"(<Strategy name="S" wireValue="1" commonIDTag="9"/>)", R"(mood="good")"));
    EXPECT_EQ(losses(translation), QStringList({"Strategies Strategies/@mood：不支持的属性“good”"_s,
                                                "Strategy S/@commonIDTag：不支持的属性“9”"_s}));
}

TEST(Atdl, EachTypeHasItsPlaceOnTheWire)
{
    const auto typeOf = [](const QByteArray& type) {
        const Translation translation = made(document::ofStrategy(parameter("xsi:type=\"" + type + "\"")));
        EXPECT_EQ(losses(translation), QStringList());
        return profileOf(translation)["parameters"_s].toArray().at(0).toObject()["type"_s].toString();
    };
    for (const char* type : {"Int",
                             "Length",
                             "NumInGroup",
                             "SeqNum",
                             "TagNum",
                             "Float",
                             "Qty",
                             "Price",
                             "PriceOffset",
                             "Amt",
                             "Percentage",
                             "Char",
                             "Boolean",
                             "String",
                             "MultipleCharValue",
                             "Currency",
                             "Exchange",
                             "MonthYear",
                             "UTCTimestamp",
                             "UTCTimeOnly",
                             "LocalMktDate",
                             "MultipleStringValue",
                             "Country",
                             "Language",
                             "Tenor"}) {
        EXPECT_EQ(typeOf(QByteArray(type) + "_t"), QString::fromLatin1(type));
    }
}

TEST(Atdl, AnEnumerationIsTypedByItsIdentifiersAndSentAsItsWireValues)
{
    const QByteArray pairs =
        R"(<EnumPair enumID="a" wireValue="0.25"/><EnumPair enumID="b" wireValue="{NULL}"/>
                                <EnumPair enumID="c" wireValue="0.5"/>)";
    const QByteArray items =
        R"(<lay:ListItem enumID="a" uiRep="四分之一"/><lay:ListItem enumID="c" uiRep="四分之一"/>)";
    const Translation translation =
        made(document::ofStrategy(parameter(R"(use="required" xsi:type="Percentage_t")", pairs) +
                                  control(R"(label="份额：" initValue="c")", items)));
    EXPECT_EQ(onlyRule(translation),
              R"({"paramId":"P","tag":20001,"type":"Float","values":{"a":"0.25","c":"0.5"}})"_s);
    EXPECT_EQ(
        print(column(translation, "P"_s)),
        R"({"options":[{"display":"四分之一","value":"a"},{"display":"四分之一（c）","value":"c"}],"paramId":"P",)"
        R"("paramName":"份额","required":false,"strDefault":{"display":"四分之一（c）","value":"c"},)"
        R"("ui":"ComboBox","visible":true})"_s);
    EXPECT_EQ(losses(translation), QStringList{"Parameter P/@b：取值 {NULL} 表示不发送：请将单元格留空"_s});
}

TEST(Atdl, AFlagMayHaveWireValuesOfItsOwn)
{
    EXPECT_EQ(onlyRule(made(document::ofStrategy(parameter(R"(xsi:type="Boolean_t")")))),
              R"({"paramId":"P","tag":20001,"type":"Boolean"})"_s);
    const Translation own = made(document::ofStrategy(
        parameter(R"(xsi:type="Boolean_t" trueWireValue="ON" falseWireValue="{NULL}")")));
    EXPECT_EQ(onlyRule(own), R"({"paramId":"P","tag":20001,"type":"String","values":{"1":"ON"}})"_s);
    EXPECT_EQ(column(own, "P"_s)["options"_s].toArray().size(), 1);
}

TEST(Atdl, AConstantGoesOutWithoutAColumn)
{
    const Translation translation = made(
        document::ofStrategy(parameter(R"(xsi:type="Percentage_t" multiplyBy100="true" constValue="0.25")")));
    EXPECT_EQ(onlyRule(translation), R"({"constant":"25","tag":20001,"type":"Float"})"_s);
    EXPECT_TRUE(column(translation, "P"_s).isEmpty());
}

TEST(Atdl, ParametersGoIntoTheGroupTogetherOrIntoFieldsTogether)
{
    const QByteArray two = parameter(R"(xsi:type="Int_t")") + R"(<Parameter name="Q" xsi:type="Int_t"/>)";
    const QJsonArray parameters =
        profileOf(made(document::ofStrategy(two, R"(tag957Support="true")")))["parameters"_s].toArray();
    EXPECT_EQ(print(parameters.at(0).toObject()), R"({"name":"P","paramId":"P","type":"Int"})"_s);
    EXPECT_EQ(print(parameters.at(1).toObject()), R"({"name":"Q","paramId":"Q","type":"Int"})"_s);
}

TEST(Atdl, BoundsAreInTheTermsOfTheTable)
{
    const auto boundsOf = [](const QByteArray& attributes) {
        return onlyBounds(made(document::ofStrategy(parameter(attributes))));
    };
    EXPECT_EQ(boundsOf(R"(xsi:type="Percentage_t" minValue="0.01" maxValue="0.355" precision="3")"),
              R"({"decimals":1,"kind":"number","max":"35.5","min":"1","paramId":"P","title":"P"})"_s);
    EXPECT_EQ(
        boundsOf(R"(xsi:type="UTCTimestamp_t" localMktTz="America/New_York" minValue="09:30:00")"),
        R"({"kind":"time","min":"09:30:00","paramId":"P","timeZone":"America/New_York","title":"P"})"_s);
    EXPECT_EQ(boundsOf(R"(xsi:type="UTCTimeOnly_t" maxValue="07:00:00")"),
              R"({"kind":"time","max":"07:00:00","paramId":"P","timeZone":"UTC","title":"P"})"_s);
    EXPECT_EQ(boundsOf(R"(xsi:type="LocalMktDate_t" minValue="20261123")"),
              R"({"kind":"day","min":"2026-11-23","paramId":"P","title":"P"})"_s);
    EXPECT_EQ(boundsOf(R"(xsi:type="Char_t")"),
              R"({"kind":"text","maxLength":1,"paramId":"P","title":"P"})"_s);
}

TEST(Atdl, BoundsThatMeanNothingAreNamed)
{
    const Translation translation = made(document::ofStrategy(
        parameter(R"(xsi:type="UTCTimestamp_t" localMktTz="Middle/Earth" minValue="09:30:00")")));
    EXPECT_EQ(losses(translation),
              QStringList{"Parameter P/@minValue：“09:30:00”（时区“Middle/Earth”）不是可用的时间"_s});
}

TEST(Atdl, InitialValuesAreDefaults)
{
    const auto defaultOf = [](const QByteArray& type, const QByteArray& ofControl) {
        const Translation translation =
            made(document::ofStrategy(parameter("xsi:type=\"" + type + "\"") + control(ofControl)));
        return column(translation, "P"_s)["strDefault"_s].toObject()["value"_s].toString() + " "_s +
               losses(translation).join(" "_s);
    };
    EXPECT_EQ(defaultOf("UTCTimestamp_t", R"(initValue="15:30:00" localMktTz="Asia/Tokyo")"), "14:30:00 "_s);
    EXPECT_EQ(defaultOf("UTCTimestamp_t", R"(initValue="09:30:00" localMktTz="America/New_York")"),
              " Control c/@initValue：初始值“09:30:00”无法用作默认值"_s);
    EXPECT_EQ(defaultOf("Boolean_t", R"(initValue="true")"), "1 "_s);
    EXPECT_EQ(defaultOf("Int_t", R"(initPolicy="UseFixField" initFixField="FIX_MaxFloor")"),
              " Control c/@initFixField：初始值取自委托的字段，表中没有"_s);
    EXPECT_EQ(defaultOf("Percentage_t", R"(initValue="20")"), "20 "_s);
}

TEST(Atdl, TitlesWithAMeaningOfTheirOwnAreNotTaken)
{
    const Translation translation =
        made(document::ofStrategy(parameter(R"(xsi:type="Int_t")") + control(R"(label="委托数量")") +
                                  R"(<Parameter name="市场" fixTag="20002" xsi:type="Int_t"/>)"));
    EXPECT_EQ(column(translation, "P"_s)["paramName"_s].toString(), "P"_s);
    EXPECT_EQ(column(translation, "算法参数 市场"_s)["paramName"_s].toString(), "算法参数 市场"_s);
}

TEST(Atdl, ConditionsAreInTheTermsOfTheTable)
{
    const auto conditionOf = [](const QByteArray& type, const QByteArray& condition) {
        return onlyCondition(made(document::ofStrategy(parameter(type) + edit(condition))));
    };
    EXPECT_EQ(
        conditionOf(R"(xsi:type="Percentage_t")", R"(<val:Edit field="P" operator="LE" value="0.125"/>)"),
        R"({"field":"P","kind":"number","operator":"LE","value":"12.5"})"_s);
    EXPECT_EQ(conditionOf(R"(xsi:type="Boolean_t")", R"(<val:Edit field="P" operator="EQ" value="Y"/>)"),
              R"({"field":"P","kind":"text","operator":"EQ","value":"1"})"_s);
    EXPECT_EQ(conditionOf(R"(xsi:type="Int_t")", R"(<val:Edit field="FIX_Side" operator="NE" value="2"/>)"),
              R"({"field":"交易方向","kind":"text","operator":"NE","value":"Sell"})"_s);
    EXPECT_EQ(
        conditionOf(R"(xsi:type="Int_t")", R"(<val:Edit field="FIX_OrdType" operator="EQ" value="1"/>)"),
        R"({"field":"委托限价","operator":"NX"})"_s);
    EXPECT_EQ(
        conditionOf(R"(xsi:type="Int_t" constValue="5")", R"(<val:Edit field="P" operator="GT" value="4"/>)"),
        R"({"always":true})"_s);
}

TEST(Atdl, ConditionsThatNoRowCanMeetOrBreakAreNamed)
{
    const auto lossOf = [](const QByteArray& condition) {
        return losses(made(document::ofStrategy(parameter(R"(xsi:type="UTCTimestamp_t")") + edit(condition))))
            .join(" "_s);
    };
    EXPECT_EQ(lossOf(R"(<val:Edit field="P" operator="LT" value="10:00:00"/>)"),
              "StrategyEdit why：“P”没有取值“10:00:00”"_s);
    EXPECT_EQ(lossOf(R"(<val:EditRef id="nowhere"/>)"), "StrategyEdit why：没有编号为“nowhere”的 Edit"_s);
    EXPECT_EQ(lossOf(R"(<val:Edit logicOperator="NAND"><val:Edit field="P" operator="EX"/></val:Edit>)"),
              "StrategyEdit why：逻辑运算“NAND”有误"_s);
    EXPECT_EQ(lossOf(""), "StrategyEdit why：没有条件"_s);
}

TEST(Atdl, AConditionThatNamesItselfIsNamed)
{
    const QByteArray circle = R"(<val:Edit id="e" logicOperator="NOT"><val:EditRef id="e"/></val:Edit>)";
    EXPECT_EQ(losses(made(document::ofStrategy(circle + edit(R"(<val:EditRef id="e"/>)")))).join(" "_s),
              "StrategyEdit why：嵌套过深"_s);
}

TEST(Atdl, RegionsAndMarketsDecideWhereItIsOffered)
{
    const auto exchangesOf = [](const QByteArray& places) {
        const QJsonArray list =
            made(document::ofStrategy(places)).rules["S"_s].toObject()["exchanges"_s].toArray();
        QStringList texts;
        for (const QJsonValue& one : list) {
            texts.append(one.toString());
        }
        return texts.join(" "_s);
    };
    EXPECT_EQ(exchangesOf(R"(<Markets><Market MICCode="XSHG" inclusion="Include"/></Markets>)"), "SH"_s);
    EXPECT_EQ(exchangesOf(R"(<Regions><Region name="TheAmericas" inclusion="Include"/></Regions>)"),
              QString());
    EXPECT_EQ(exchangesOf(R"(<Regions><Region name="AsiaPacificJapan" inclusion="Exclude"/></Regions>
                             <Markets><Market MICCode="XSHE" inclusion="Include"/></Markets>)"),
              "SZ"_s);
    EXPECT_EQ(exchangesOf(R"(<Regions><Region name="AsiaPacificJapan" inclusion="Include">
                             <Country CountryCode="HK" inclusion="Include"/></Region></Regions>)"),
              "HKSH HKSZ"_s);
    EXPECT_FALSE(made(document::ofStrategy("")).rules["S"_s].toObject().contains("exchanges"_s));
}
