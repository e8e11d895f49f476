// Lock pairs from the file to the host: cells of two values, legs, confirmation.

#include "tests/support/DialogFixture.h"

#include <QSignalSpy>

namespace {

using namespace small_market;

const QString ErrorList = QStringLiteral("导入文件中包含以下错误:\r\n");
const QString FormatError = QStringLiteral("导入方向、委托属性、限价中，某字段格式错误\r\n");
const QString DirectionError = QStringLiteral(
    "交易方向不支持，目前支持：买入-1,卖出-2,买入开仓-3,卖出开仓-4,买入平仓-5,卖出平仓-6,\r\n");
const QString PropertyError = QStringLiteral("委托属性不支持，目前支持：9-信用交易,7-卖券还款,0-普通交易,"
                                             "A-现券卖出,6-融资买入/卖券还款,\r\n");

QStringList header()
{
    return {"证券代码"_s, "市场"_s,     "委托数量"_s,          "交易方向"_s,
            "委托属性"_s, "委托限价"_s, "创建后是否立即启动"_s};
}

QStringList pair(const QString& direction = QStringLiteral("1/2"),
                 const QString& property = QStringLiteral("0/0"),
                 const QString& limit = QStringLiteral("10.5/10.6"),
                 const QString& quantity = QStringLiteral("1000"))
{
    return {"600000"_s, "SH"_s, quantity, direction, property, limit, "7"_s};
}

class LockPairImport : public DialogFixture {};

} // namespace

TEST_F(LockPairImport, ARowOfTwoValuesBecomesTwoLegsAndPassesTheConfirmation)
{
    for (const QString& code : {"AILOCK"_s, "AILOCKPLUS"_s, "AILOCK3"_s}) {
        openDocument(pairedDocument(), code);
        importRows({header(), pair()});
        EXPECT_EQ(lastBoxText(), QString());
        EXPECT_EQ(shown(0, "交易方向"_s), "买入/卖出"_s);
        EXPECT_EQ(value(0, "交易方向"_s), "Buy/Sell"_s);
        EXPECT_EQ(shown(0, "委托限价"_s), "10.50/10.60"_s);

        EXPECT_EQ(dialog->getWidgetData().size(), 1);
        const QString first[] = {"Buy"_s, "0"_s, "10.5"_s};
        const QString second[] = {"Sell"_s, "0"_s, "10.6"_s};
        const QString fields[] = {"交易方向"_s, "委托属性"_s, "委托限价"_s};
        for (int i = 0; i < 3; ++i) {
            EXPECT_EQ(leg(0, 0).value(fields[i]), QVariant(first[i])) << qPrintable(fields[i]);
            EXPECT_EQ(leg(0, 1).value(fields[i]), QVariant(second[i])) << qPrintable(fields[i]);
        }
        for (int k = 0; k < 2; ++k) {
            EXPECT_EQ(leg(0, k).value("证券代码"_s), QVariant("600000.SH"_s));
            EXPECT_EQ(leg(0, k).value("委托数量"_s), QVariant("1000"_s));
            EXPECT_EQ(leg(0, k).value("证券账号"_s), QVariant("CASH1-SH"_s));
        }

        QSignalSpy confirmed(dialog.get(), &AlgoBatchImportParamSetting::signalBtnOkClicked);
        button("btn_ok").click();
        EXPECT_EQ(lastBoxText(), QString());
        EXPECT_EQ(confirmed.size(), 1);
    }
}

TEST_F(LockPairImport, OnePartInAnyFieldDropsTheRowAsAFormatError)
{
    open("AILOCK"_s);
    importRows({header(), pair("1"_s), pair(), pair("1/2"_s, "0"_s), pair("1/2"_s, "0/0"_s, "10.5"_s)});
    // The first three accepted rows stand at the indexes 0 to 3.
    EXPECT_EQ(lastBoxText(),
              ErrorList + "第2行："_s + FormatError + "第4行："_s + FormatError + "第5行："_s + FormatError);
    EXPECT_EQ(table().getViewData().size(), 1);
    EXPECT_EQ(dialog->getWidgetData().size(), 1);
    EXPECT_EQ(leg(0, 1).value("交易方向"_s), QVariant("Sell"_s));
}

TEST_F(LockPairImport, ThreePartsAreNoOptionAndNoPairOfPrices)
{
    open("AILOCK"_s);
    importRows({header(), pair("1/2/1"_s), pair("1/2"_s, "0/0/0"_s), pair("1/2"_s, "0/0"_s, "10/11/12"_s)});
    // The only row that was accepted at first stands at index 0, where its format error replaces the text of
    // line 2.
    EXPECT_EQ(lastBoxText(), ErrorList + "第2行："_s + FormatError + "第3行："_s + PropertyError);
    EXPECT_TRUE(dialog->getWidgetData().isEmpty());
    importRows({header(), pair("1/2/1"_s)});
    EXPECT_EQ(lastBoxText(), ErrorList + "第2行："_s + DirectionError);
}

TEST_F(LockPairImport, FailedRowsBetweenGoodOnesLeaveTheGoodOnes)
{
    open("AILOCK"_s);
    const auto good = [](const QString& quantity) { return pair("1/2"_s, "0/0"_s, "10/11"_s, quantity); };
    importRows({header(), good("100"_s), pair("1"_s), good("200"_s), pair("2"_s), good("300"_s)});
    EXPECT_EQ(lastBoxText(), ErrorList + "第3行："_s + FormatError + "第5行："_s + FormatError);
    ASSERT_EQ(dialog->getWidgetData().size(), 3);
    for (int row = 0; row < 3; ++row) {
        const QString quantity = QString::number(100 * (row + 1));
        EXPECT_EQ(shown(row, "委托数量"_s), quantity);
        EXPECT_EQ(leg(row, 1).value("委托数量"_s), QVariant(quantity));
    }
}

TEST_F(LockPairImport, AnEmptyPartOfAnOptionFailsItsTranslation)
{
    open("AILOCK"_s);
    importRows({header(), pair("1/"_s)});
    EXPECT_EQ(lastBoxText(), ErrorList + "第2行："_s + DirectionError);
}

TEST_F(LockPairImport, TheConfirmationChecksEveryLegAgainstTheAccount)
{
    open("AILOCK"_s);
    importRows({header(), pair("1/2"_s, "0/6"_s), pair("2/2"_s, "0/0"_s)});
    EXPECT_EQ(lastBoxText(), QString());
    QSignalSpy confirmed(dialog.get(), &AlgoBatchImportParamSetting::signalBtnOkClicked);
    button("btn_ok").click();
    EXPECT_EQ(lastBoxText(), "第1行：当前资产账号与模板中委托属性校验未通过，请检查\r\n"
                             "第1行：交易方向与委托属性不符！\r\n"_s);
    EXPECT_EQ(confirmed.size(), 0);
    EXPECT_EQ(dialog->getWidgetData().size(), 2) << "the batch stays as it was";
}

TEST_F(LockPairImport, OtherStrategiesRowsKeepTheirOneLeg)
{
    open("AIPAIR"_s);
    importRows({header(), {"600000"_s, "SH"_s, "100"_s, "1"_s, "0"_s, "10"_s, "7"_s}});
    EXPECT_EQ(lastBoxText(), QString());
    EXPECT_EQ(dialog->getWidgetData().first().value("证券代码和委托数量"_s).toList().size(), 1);
}
