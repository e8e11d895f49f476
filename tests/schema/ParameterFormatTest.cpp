#include "tests/support/DialogFixture.h"

#include <QJsonDocument>

namespace {

using namespace small_market;

/// The dialog as constructed: no strategy was loaded, so every schema table is empty.
class ParameterFormat : public DialogFixture {
protected:
    void SetUp() override { construct(); }

    QStringList read(const QString& json)
    {
        error.clear();
        return inspect().initTableHeadList(json, error);
    }
    QStringList read(const QVariantList& document) { return read(toJson(document)); }

    void expectEmptyTables()
    {
        EXPECT_TRUE(inspect().uiTypes().isEmpty());
        EXPECT_TRUE(inspect().paramIds().isEmpty());
        EXPECT_TRUE(inspect().formats().isEmpty());
        EXPECT_TRUE(inspect().options().isEmpty());
        EXPECT_TRUE(inspect().symbolParams().isEmpty());
        EXPECT_TRUE(inspect().instanceParams().isEmpty());
    }

    QString error;
};

} // namespace

TEST_F(ParameterFormat, AnEmptyArrayGivesNoColumnsNoErrorAndEmptyTables)
{
    EXPECT_EQ(read("[]"_s), QStringList());
    EXPECT_EQ(error, QString());
    expectEmptyTables();
}

TEST_F(ParameterFormat, ATopLevelObjectGivesNoColumnsAndNoError)
{
    EXPECT_EQ(read(R"({"paramName":"a","paramId":"a","ui":"LineEdit"})"_s), QStringList());
    EXPECT_EQ(error, QString());
    expectEmptyTables();
}

TEST_F(ParameterFormat, ASyntaxErrorGivesQtsOwnTextAndTouchesNoTable)
{
    for (const QString& broken : {QString(), "["_s, "[{\"paramName\":}]"_s, "not json"_s}) {
        QJsonParseError expected;
        QJsonDocument::fromJson(broken.toUtf8(), &expected);
        EXPECT_EQ(read(broken), QStringList()) << qPrintable(broken);
        EXPECT_EQ(error, expected.errorString()) << qPrintable(broken);
        EXPECT_FALSE(error.isEmpty());
        expectEmptyTables();
    }
}

TEST_F(ParameterFormat, AnInvisibleParameterIsInEveryTableButNoColumn)
{
    const QVariantMap hidden = line("隐藏"_s, {{"visible"_s, false}, {"paramId"_s, "hidden"_s}});
    EXPECT_EQ(read(QVariantList{hidden, line("可见"_s)}), QStringList{"可见"_s});
    EXPECT_EQ(inspect().instanceParams(), (QStringList{"隐藏"_s, "可见"_s}));
    EXPECT_EQ(inspect().uiTypes().value("隐藏"_s), "LineEdit"_s);
    EXPECT_EQ(inspect().paramIds().value("隐藏"_s), QVariant("hidden"_s));
    EXPECT_EQ(inspect().formats().value("隐藏"_s), hidden);
}

TEST_F(ParameterFormat, ATableGivesItsColumnsAndNothingOfItsOwn)
{
    const QVariantList columns = {line("代码"_s), line("数量"_s, {{"visible"_s, false}}), line("方向"_s)};
    EXPECT_EQ(read(QVariantList{small_market::table(columns)}), (QStringList{"代码"_s, "方向"_s}));
    EXPECT_EQ(inspect().symbolParams(), (QStringList{"代码"_s, "数量"_s, "方向"_s}));
    EXPECT_TRUE(inspect().instanceParams().isEmpty());
    const QString itself = "证券列表"_s; // the table entry's own name
    EXPECT_FALSE(inspect().uiTypes().contains(itself));
    EXPECT_FALSE(inspect().paramIds().contains(itself));
    EXPECT_FALSE(inspect().formats().contains(itself));
    EXPECT_EQ(inspect().formats().value("数量"_s), columns.at(1).toMap()) << "the column's own entry";
}

TEST_F(ParameterFormat, ColumnsFollowTheDocumentWhereInstanceParametersAndTableColumnsAlternate)
{
    const QVariantList document = {line("一"_s), small_market::table({line("二"_s), line("三"_s)}),
                                   line("四"_s), small_market::table({line("五"_s)}), dateTime("六"_s)};
    EXPECT_EQ(read(document), (QStringList{"一"_s, "二"_s, "三"_s, "四"_s, "五"_s, "六"_s}));
    EXPECT_EQ(inspect().symbolParams(), (QStringList{"二"_s, "三"_s, "五"_s}));
    EXPECT_EQ(inspect().instanceParams(), (QStringList{"一"_s, "四"_s, "六"_s}));
    EXPECT_EQ(inspect().uiTypes().value("六"_s), "DateTime"_s);
}

TEST_F(ParameterFormat, ATableWithinATableIsNotExpanded)
{
    EXPECT_EQ(read(QVariantList{small_market::table(QVariantList{small_market::table({line("内"_s)})})}),
              QStringList{"证券列表"_s});
    EXPECT_EQ(inspect().symbolParams(), QStringList{"证券列表"_s});
    EXPECT_EQ(inspect().uiTypes().value("证券列表"_s), "Table"_s);
}

TEST_F(ParameterFormat, OptionsOfADropDownMapDisplayToValue)
{
    read(QVariantList{combo("风格参数"_s, {"neutral=平稳"_s, "aggressive=激进"_s})});
    const QMap<QString, QString> expected = {{"平稳"_s, "neutral"_s}, {"激进"_s, "aggressive"_s}};
    EXPECT_EQ(inspect().options().value("风格参数"_s), expected);
}

TEST_F(ParameterFormat, OptionsAreReadInTableColumnsTooAndOnlyOfDropDowns)
{
    QVariantMap text = combo("备注"_s, {"a=甲"_s});
    text["ui"_s] = "LineEdit"_s;
    read(QVariantList{small_market::table({combo("方向"_s, {"1=买"_s})}), text});
    EXPECT_EQ(inspect().options().keys(), QStringList{"方向"_s});
}

TEST_F(ParameterFormat, OptionsOfOneDisplayKeepTheLastValueAndEarlierOnesAreNotCleared)
{
    QMap<QString, QMap<QString, QString>> choices = {{"方向"_s, {{"旧"_s, "0"_s}}}};
    inspect().saveComboxParamValue(choices, combo("方向"_s, {"1=买"_s, "2=买"_s, "3="_s}), "方向"_s);
    const QMap<QString, QString> expected = {{"旧"_s, "0"_s}, {"买"_s, "2"_s}, {QString(), "3"_s}};
    EXPECT_EQ(choices.value("方向"_s), expected);
    inspect().saveComboxParamValue(choices, line("空"_s), "空"_s);
    EXPECT_FALSE(choices.contains("空"_s));
}

TEST_F(ParameterFormat, VisibleIsTheTextTrueInAnyLetterCase)
{
    struct Case {
        QVariant visible;
        bool shown;
    };
    const Case cases[] = {{true, true},     {"true"_s, true}, {"TRUE"_s, true},   {"True"_s, true},
                          {"tRuE"_s, true}, {false, false},   {"false"_s, false}, {"1"_s, false},
                          {"0"_s, false},   {"yes"_s, false}, {QString(), false}, {" true"_s, false},
                          {1, false}};
    for (const Case& c : cases) {
        EXPECT_EQ(read(QVariantList{line("列"_s, {{"visible"_s, c.visible}})}).contains("列"_s), c.shown)
            << qPrintable(c.visible.toString());
    }
    EXPECT_EQ(read(QVariantList{line("列"_s)}), QStringList{"列"_s}) << "absent counts as true";
}

TEST_F(ParameterFormat, ARepeatedNameStaysTwiceInTheListAndTheTablesKeepTheLastEntry)
{
    const QVariantMap last = dateTime("列"_s, {{"paramId"_s, "second"_s}});
    EXPECT_EQ(read(QVariantList{line("列"_s, {{"paramId"_s, "first"_s}}), last}),
              (QStringList{"列"_s, "列"_s}));
    EXPECT_EQ(inspect().instanceParams(), (QStringList{"列"_s, "列"_s}));
    EXPECT_EQ(inspect().uiTypes().value("列"_s), "DateTime"_s);
    EXPECT_EQ(inspect().paramIds().value("列"_s), QVariant("second"_s));
    EXPECT_EQ(inspect().formats().value("列"_s), last);
}

TEST_F(ParameterFormat, MissingFieldsReadAsEmptyTexts)
{
    EXPECT_EQ(read(R"([{"required":false},{"paramName":"列"}])"_s), (QStringList{QString(), "列"_s}));
    EXPECT_EQ(inspect().instanceParams(), (QStringList{QString(), "列"_s}));
    EXPECT_EQ(inspect().uiTypes().value("列"_s, "?"_s), QString());
    EXPECT_EQ(inspect().paramIds().value("列"_s), QVariant(QString()));
    EXPECT_EQ(inspect().paramIds().value("列"_s).type(), QVariant::String);
}

TEST_F(ParameterFormat, WhatIsNoObjectOrAnEmptyOneIsSkipped)
{
    const QString json =
        R"([1, "text", null, [], {}, {"ui":"Table","columns":[{}, 7, {"paramName":"代码"}]}, {"ui":"Table"}])"_s;
    EXPECT_EQ(read(json), QStringList{"代码"_s});
    EXPECT_EQ(inspect().symbolParams(), QStringList{"代码"_s});
    EXPECT_TRUE(inspect().instanceParams().isEmpty());
    EXPECT_EQ(error, QString());
}

TEST_F(ParameterFormat, RequirementAndDefaultStayInTheStoredEntry)
{
    read(QVariantList{line("列"_s, optional("甲"_s, "乙"_s))});
    EXPECT_EQ(inspect().formats().value("列"_s).value("required"_s), QVariant(false));
    EXPECT_EQ(inspect().formats().value("列"_s).value("strDefault"_s).toMap().value("display"_s),
              QVariant("乙"_s));
}
