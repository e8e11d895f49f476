#include "tests/runner/RunnerTest.h"

#include <QJsonArray>
#include <QRegularExpression>

class ImportCommand : public RunnerTest {
protected:
    static QJsonObject box(const Run& run, int index = 0)
    {
        return run.object()["messageBoxes"_s].toArray().at(index).toObject();
    }
    static QJsonObject firstMap(const Run& run)
    {
        return run.object()["parameterMaps"_s].toArray().first().toObject();
    }
    static int count(const Run& run, const QString& key) { return run.object()[key].toArray().size(); }
};

TEST_F(ImportCommand, PrintsTheBatchAsOneJsonObject)
{
    const Run result = import(table(goodRow()));
    EXPECT_EQ(0, result.status);
    EXPECT_EQ(QByteArray(), result.err);
    const QJsonObject json = result.object();
    EXPECT_EQ(
        (QStringList{"account"_s, "columns"_s, "counts"_s, "expected"_s, "hiddenColumns"_s, "messageBoxes"_s,
                     "okEnabled"_s, "parameterMaps"_s, "records"_s, "signal"_s, "strategy"_s}),
        json.keys());
    EXPECT_EQ("AITWAP"_s, json["strategy"_s].toString());
    EXPECT_EQ("A1"_s, json["account"_s].toString());
    EXPECT_EQ((QJsonArray{"证券代码"_s, "证券名称"_s, "市场"_s, "委托数量"_s, "交易方向"_s, "委托属性"_s,
                          "创建后是否立即启动"_s}),
              json["columns"_s].toArray());
    EXPECT_EQ(QJsonArray(), json["hiddenColumns"_s].toArray());
    EXPECT_EQ(QJsonArray(), json["messageBoxes"_s].toArray());
    EXPECT_EQ(QJsonValue(true), json["okEnabled"_s]);
    EXPECT_EQ(QJsonValue(QJsonValue::Null), json["signal"_s]);
}

TEST_F(ImportCommand, PrintsRecordsByColumnIndexWithShownTextAndValue)
{
    const QJsonObject record = import(table(goodRow())).object()["records"_s].toArray().first().toObject();
    EXPECT_EQ((QStringList{"0"_s, "1"_s, "2"_s, "3"_s, "4"_s, "5"_s, "6"_s}), record.keys());
    EXPECT_EQ((QJsonObject{{"0"_s, "600000"_s}, {"256"_s, "600000.SH"_s}}), record["0"_s].toObject());
    EXPECT_EQ((QJsonObject{{"0"_s, "上海"_s}, {"256"_s, "SH"_s}}), record["2"_s].toObject());
    EXPECT_EQ((QJsonObject{{"0"_s, "买入"_s}, {"256"_s, "Buy"_s}}), record["4"_s].toObject());
    EXPECT_EQ((QJsonObject{{"0"_s, "是"_s}, {"256"_s, "7"_s}}), record["6"_s].toObject());
}

TEST_F(ImportCommand, PrintsParameterMapsWithTextsNumbersListsAndMaps)
{
    const QString file =
        write("seal.csv"_s, "证券代码,市场,委托数量,交易方向,委托属性,封单金额,创建后是否立即启动\n"
                            "600000,SH,1000,1,0,1234567,7\n");
    const QJsonObject map =
        firstMap(import(file, {"--strategy"_s, "PursueHighLimit"_s, "--account"_s, "A1"_s}));
    EXPECT_EQ(QJsonValue(123.4567), map["封单金额1"_s]);
    EXPECT_EQ(QJsonValue("112200"_s), map["封单金额"_s]);
    EXPECT_EQ(QJsonValue("node-1"_s), map["sysnodeid"_s]);
    EXPECT_EQ(QJsonValue(QString()), map["BatchCreate"_s]);
    const QJsonObject leg = map["证券代码和委托数量"_s].toArray().first().toObject();
    EXPECT_EQ(QJsonValue("600000.SH"_s), leg["证券代码"_s]);
    EXPECT_EQ(QJsonValue("11"_s), leg["涨停价"_s]);
}

TEST_F(ImportCommand, PrintsTheExpectedAmounts)
{
    const QJsonObject expected =
        import(table(goodRow() + "00700,HKSH,100,2,0,7\n")).object()["expected"_s].toObject();
    const QString failed = "以下标的获取行情失败，未纳入预估金额计算："_s;
    EXPECT_EQ((QJsonObject{{"value"_s, 10000},
                           {"text"_s, "10000.00"_s},
                           {"toolTip"_s, "10000.00"_s},
                           {"styleSheet"_s, QString()},
                           {"warningHidden"_s, true},
                           {"warningToolTip"_s, failed}}),
              expected["buy"_s].toObject());
    EXPECT_EQ((QJsonObject{{"value"_s, 0},
                           {"text"_s, "0.00"_s},
                           {"toolTip"_s, failed + "00700.HK"_s},
                           {"styleSheet"_s, "QDoubleSpinBox:!enabled{color:red;}"_s},
                           {"warningHidden"_s, false},
                           {"warningToolTip"_s, failed + "00700.HK"_s}}),
              expected["sell"_s].toObject());
}

TEST_F(ImportCommand, NamesHiddenColumns)
{
    const Run result =
        import(write("kf.csv"_s, "证券代码,市场,委托数量,交易方向,委托属性\n600000,SH,1000,1,0\n"),
               {"--strategy"_s, "KF_TWAPPLUS"_s, "--account"_s, "A1"_s});
    EXPECT_EQ(0, result.status);
    EXPECT_EQ(QJsonArray{"创建后是否立即启动"_s}, result.object()["hiddenColumns"_s].toArray());
    EXPECT_EQ(QJsonValue("7"_s), firstMap(result)["创建后是否立即启动"_s]);
}

TEST_F(ImportCommand, PrintsEveryMessageBoxAndSaysSoByItsStatus)
{
    const Run result = import(table(goodRow() + badRow()));
    EXPECT_EQ(1, result.status);
    EXPECT_EQ(QByteArray(), result.err);
    ASSERT_EQ(1, count(result, "messageBoxes"_s));
    const QJsonObject shown = box(result);
    EXPECT_EQ((QStringList{"flag"_s, "height"_s, "heightBefore"_s, "text"_s, "textWidth"_s,
                           "textWidthBefore"_s, "title"_s, "type"_s, "width"_s, "widthBefore"_s}),
              shown.keys());
    EXPECT_EQ("错误"_s, shown["title"_s].toString());
    EXPECT_EQ("导入文件中包含以下错误:\r\n第3行：证券代码999999不合法，未获取到市场\r\n"_s,
              shown["text"_s].toString());
    EXPECT_EQ(1, shown["type"_s].toInt());
    EXPECT_EQ(0, shown["flag"_s].toInt());
    EXPECT_EQ(shown["widthBefore"_s].toInt() + 10, shown["width"_s].toInt());
    EXPECT_EQ(qMin(shown["heightBefore"_s].toInt() + 40, 350), shown["height"_s].toInt());
    EXPECT_EQ(shown["textWidthBefore"_s].toInt(), shown["textWidth"_s].toInt());
    EXPECT_EQ(1, count(result, "records"_s));
}

TEST_F(ImportCommand, AFileThatIsNotThereIsTheReadersMessage)
{
    const Run result = import(folder() + "/nowhere.csv"_s);
    EXPECT_EQ(1, result.status);
    EXPECT_EQ(1, count(result, "messageBoxes"_s));
    EXPECT_FALSE(box(result)["text"_s].toString().isEmpty());
    EXPECT_EQ(0, count(result, "records"_s));
}

TEST_F(ImportCommand, AnswersTheRowLimitWithYesUnlessToldOtherwise)
{
    const QString file = table(goodRow().repeated(1001));
    const Run yes = import(file);
    EXPECT_EQ(1, yes.status);
    EXPECT_EQ(1000, count(yes, "records"_s));
    EXPECT_EQ(3, box(yes)["type"_s].toInt());
    EXPECT_EQ(1, box(yes)["flag"_s].toInt());
    EXPECT_EQ(1000, count(import(file, aitwap() + QStringList{"--answer"_s, "yes"_s}), "records"_s));
    const Run no = import(file, aitwap() + QStringList{"--answer"_s, "no"_s});
    EXPECT_EQ(1, no.status);
    EXPECT_EQ(1, count(no, "messageBoxes"_s));
    EXPECT_EQ(0, count(no, "records"_s));
    EXPECT_EQ(0, count(no, "parameterMaps"_s));
}

TEST_F(ImportCommand, ConfirmsAndPrintsTheSignal)
{
    const Run result = import(table(goodRow()), aitwap() + QStringList{"--confirm"_s});
    EXPECT_EQ(0, result.status);
    EXPECT_EQ((QJsonObject{{"name"_s, "signalBtnOkClicked"_s}, {"createdClose"_s, true}}),
              result.object()["signal"_s].toObject());
    EXPECT_EQ(QJsonValue(false), result.object()["okEnabled"_s]);
}

TEST_F(ImportCommand, AConfirmationThatFailsPrintsItsMessageAndNoSignal)
{
    const Run result = import(table("600000,SH,1000,1,9,7\n"), aitwap() + QStringList{"--confirm"_s});
    EXPECT_EQ(1, result.status);
    EXPECT_EQ("第1行：当前资产账号与模板中委托属性校验未通过，请检查!\r\n"_s,
              box(result)["text"_s].toString());
    EXPECT_EQ(QJsonValue(QJsonValue::Null), result.object()["signal"_s]);
    EXPECT_EQ(QJsonValue(true), result.object()["okEnabled"_s]);
}

TEST_F(ImportCommand, SwitchesTheAccountAfterTheImport)
{
    const Run result = import(table(goodRow()), aitwap() + QStringList{"--switch-account"_s, "A2"_s});
    EXPECT_EQ(0, result.status);
    EXPECT_EQ("A1"_s, result.object()["account"_s].toString());
    EXPECT_EQ(QJsonValue("A2"_s), firstMap(result)["交易账号"_s]);
    EXPECT_EQ(QJsonValue("node-2"_s), firstMap(result)["sysnodeid"_s]);
    const QJsonObject leg = firstMap(result)["证券代码和委托数量"_s].toArray().first().toObject();
    EXPECT_EQ(QJsonValue("S2"_s), leg["证券账号"_s]);
}

TEST_F(ImportCommand, AMismatchOfTheOtherAccountDisablesOk)
{
    const Run result = import(table(goodRow() + "000001,SZ,1000,1,0,7\n"),
                              aitwap() + QStringList{"--switch-account"_s, "A2"_s, "--confirm"_s});
    EXPECT_EQ(1, result.status);
    ASSERT_EQ(1, count(result, "messageBoxes"_s));
    const QJsonObject shown = box(result);
    EXPECT_EQ("当前资产账号所属市场与标的000001.SZ市场存在不一致!\r\n请检查后重新导入"_s,
              shown["text"_s].toString());
    EXPECT_EQ(shown["widthBefore"_s].toInt() + 35, shown["width"_s].toInt());
    EXPECT_EQ(shown["textWidthBefore"_s].toInt() + 20, shown["textWidth"_s].toInt());
    EXPECT_EQ(qMin(shown["heightBefore"_s].toInt() + 20, 350), shown["height"_s].toInt());
    EXPECT_EQ(QJsonValue(false), result.object()["okEnabled"_s]);
    EXPECT_EQ(QJsonValue(QJsonValue::Null), result.object()["signal"_s]);
}

TEST_F(ImportCommand, TakesARelativePath)
{
    table(goodRow());
    EXPECT_EQ(1, count(import("list.csv"_s), "records"_s));
    EXPECT_EQ(1, count(import("./data/../list.csv"_s), "records"_s));
}

TEST_F(ImportCommand, ADocumentThatIsNoJsonLeavesTheThreeColumnsOfEveryTable)
{
    const Run result = import(table(goodRow()), {"--strategy"_s, "BROKEN"_s, "--account"_s, "A1"_s});
    EXPECT_EQ((QJsonArray{"创建后是否立即启动"_s, "证券名称"_s, "市场"_s}),
              result.object()["columns"_s].toArray());
}

TEST_F(ImportCommand, KeepsStandardOutputToJsonWhileLogsAreAskedFor)
{
    const QStringList arguments = {"import"_s,   table(goodRow()), "--data"_s,
                                   dataFolder(), "--home"_s,       folder()};
    const Run result = run(arguments + aitwap(), {{"QT_LOGGING_RULES"_s, "algo.*=true"_s}});
    EXPECT_EQ(0, result.status);
    EXPECT_TRUE(result.json().isObject());
    EXPECT_TRUE(result.err.contains("###tag")) << "no log came";
}

/// A strategy with a limit price and a start time, and a file whose one row starts when clocks in Berlin are
/// put forward.
class ImportAbroad : public RunnerTest {
protected:
    void SetUp() override
    {
        RunnerTest::SetUp();
        writeStrategy("");
        mFile = write("list.csv"_s, "证券代码,市场,委托数量,委托限价,开始时间,创建后是否立即启动\n"
                                    "600000,SH,1000.9,10.126,2024-3-31 2:30:0,7\n");
    }
    /// `more`: further parameters, each behind a comma.
    void writeStrategy(const QByteArray& more)
    {
        writeData("strategies.json"_s, R"([{"name": "AITWAP", "alias": "定时", "paramFormats": [
            {"ui": "Table", "columns": [{"paramName": "证券代码", "paramId": "证券代码", "ui": "LineEdit"},
                                        {"paramName": "委托数量", "paramId": "委托数量", "ui": "LineEdit"}]},
            {"paramName": "委托限价", "paramId": "委托限价", "ui": "LineEdit"},
            {"paramName": "开始时间", "paramId": "开始时间", "ui": "DateTime"})" +
                                           more + "]}]");
    }
    static QJsonObject parametersOf(const Run& run)
    {
        return run.object()["parameterMaps"_s].toArray().first().toObject();
    }
    Run importAbroad(const QString& locale, const QString& timeZone)
    {
        const QStringList arguments = {"import"_s, mFile, "--data"_s, dataFolder(), "--home"_s, folder()};
        return run(arguments + aitwap(), {{"LC_ALL"_s, locale}, {"LANG"_s, locale}, {"TZ"_s, timeZone}});
    }

private:
    QString mFile;
};

TEST_F(ImportAbroad, ReadsNumbersAndTimesTheSameInEveryLocaleAndTimeZone)
{
    const Run home = importAbroad("C.UTF-8"_s, "Asia/Shanghai"_s);
    EXPECT_EQ("2024-03-31 02:30:00"_s, parametersOf(home)["开始时间"_s].toString());
    EXPECT_EQ("10.13"_s, parametersOf(home)["委托限价"_s].toString());
    for (const QString& locale : {"de_DE.UTF-8"_s, "ar_EG.UTF-8"_s, "C"_s}) {
        const Run abroad = importAbroad(locale, "America/St_Johns"_s);
        EXPECT_EQ(0, abroad.status) << locale.toStdString();
        EXPECT_EQ(home.out.toStdString(), abroad.out.toStdString()) << locale.toStdString();
    }
}

TEST_F(ImportAbroad, WritesADefaultTimeInTheDigitsOfTheMarket)
{
    writeStrategy(R"(, {"paramName": "结束时间", "paramId": "结束时间", "ui": "DateTime", "required": false,
                        "strDefault": {"value": "14:57:00", "display": ""}})");
    const QString time =
        parametersOf(importAbroad("ar_EG.UTF-8"_s, "Asia/Shanghai"_s))["结束时间"_s].toString();
    EXPECT_TRUE(QRegularExpression("^[0-9]{4}-[0-9]{2}-[0-9]{2} 14:57:00$"_s).match(time).hasMatch())
        << time.toStdString();
}

/// Times are those of the machine's own clock.
TEST_F(ImportAbroad, RefusesATimeThatTheMachinesClockPassesOver)
{
    const Run result = importAbroad("C.UTF-8"_s, "Europe/Berlin"_s);
    EXPECT_EQ(1, result.status);
    EXPECT_EQ("导入文件中包含以下错误:\r\n第2行：开始时间格式不正确，时间格式为yyyy-MM-dd HH:mm:ss\r\n"_s,
              result.object()["messageBoxes"_s].toArray().first().toObject()["text"_s].toString());
}
