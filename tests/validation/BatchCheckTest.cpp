#include "tests/support/DialogFixture.h"
#include "tests/support/LogCapture.h"

namespace {

using namespace small_market;

const QString Legs = QStringLiteral("证券代码和委托数量");
const QString Direction = QStringLiteral("交易方向");
const QString Property = QStringLiteral("委托属性");
const QString NoAccountType = QStringLiteral("第%行：未获取到账号类型!\r\n");

QVariantMap security(const QString& symbol, const QString& exchange)
{
    return {{"证券代码"_s, symbol}, {"市场"_s, exchange}};
}

/// An instance of one leg with a direction and an entrust property of its own.
QVariantMap instance(const QString& property, const QString& direction = QStringLiteral("Buy"),
                     const QVariantMap& leg = security(QStringLiteral("600000.SH"), QStringLiteral("SH")))
{
    return {{Property, property}, {Direction, direction}, {Legs, QVariantList{leg}}};
}

QStringList rowWith(const QString& code, const QString& market, const QString& direction,
                    const QString& property)
{
    QStringList row = ordinaryRow(code, market, "1000"_s, direction);
    row[ordinaryHeader().indexOf(Property)] = property;
    return row;
}

class BatchCheck : public DialogFixture {
protected:
    QString check(const QList<QVariantMap>& instances)
    {
        inspect().maps() = instances;
        return inspect().checkAccounTypesInParamsMap();
    }

    /// The text of the box that comes up on 确定; empty when the batch passed.
    QString confirm()
    {
        prompts.clear();
        button("btn_ok").click();
        return lastBoxText();
    }
};

} // namespace

TEST_F(BatchCheck, AnEmptyBatchHasNoDataEvenWhenNoAccountIsChosen)
{
    open();
    EXPECT_EQ(confirm(), "未获取到数据！"_s);
    tables.accounts.clear();
    open();
    EXPECT_EQ(accounts().GetCurTradingAccount(), QString());
    EXPECT_EQ(confirm(), "未获取到数据！"_s);
}

TEST_F(BatchCheck, ABatchWithoutAChosenAccountIsRefused)
{
    open();
    importRows({ordinaryHeader(), ordinaryRow()});
    accounts().setCurrentIndex(-1);
    dialog->slotResetOkBtn(); // no account holds no market, which disabled the button
    EXPECT_EQ(confirm(), "未获取到交易账号！"_s);
}

TEST_F(BatchCheck, AGoodBatchPasses)
{
    open();
    importRows({ordinaryHeader(), ordinaryRow(), ordinaryRow("000001"_s, "SZ"_s, "200"_s, "2"_s)});
    EXPECT_EQ(confirm(), QString());
    EXPECT_EQ(inspect().checkAccounTypesInParamsMap(), QString());
}

TEST_F(BatchCheck, EveryFaultyRowIsNamedInRowOrder)
{
    open();
    importRows({ordinaryHeader(), rowWith("600000"_s, "SH"_s, "1"_s, "9"_s), ordinaryRow(),
                rowWith("000001"_s, "SZ"_s, "2"_s, "6"_s)});
    EXPECT_EQ(confirm(), "第1行：当前资产账号与模板中委托属性校验未通过，请检查!\r\n"
                         "第3行：当前资产账号与模板中委托属性校验未通过，请检查!\r\n"_s);
}

TEST_F(BatchCheck, ACreditAccountsSidesAreCheckedAgainstTheTypedDirections)
{
    open("AITWAP"_s, "CREDIT1"_s);
    importRows({ordinaryHeader(), rowWith("600000"_s, "SH"_s, "1"_s, "7"_s),
                rowWith("600000"_s, "SH"_s, "2"_s, "7"_s), rowWith("600000"_s, "SH"_s, "2"_s, "6"_s),
                rowWith("600000"_s, "SH"_s, "1"_s, "A"_s), rowWith("600000"_s, "SH"_s, "1"_s, "0"_s)});
    EXPECT_EQ(confirm(), "第1行：委托属性与交易方向不一致\r\n"
                         "第4行：委托属性与交易方向不一致\r\n"
                         "第5行：当前资产账号与模板中委托属性校验未通过，请检查!\r\n"_s);
}

TEST_F(BatchCheck, ACollateralOnlyStrategyTakesNoFinancedSales)
{
    open("AITWAP7"_s, "CREDIT1"_s);
    const QStringList header = {"证券代码"_s, "市场"_s, "委托金额"_s,
                                Direction,    Property, "创建后是否立即启动"_s};
    const auto row = [](const QString& direction, const QString& property) {
        return QStringList{"600000"_s, "SH"_s, "100000"_s, direction, property, "7"_s};
    };
    importRows({header, row("2"_s, "6"_s), row("1"_s, "6"_s), row("2"_s, "9"_s), row("2"_s, "7"_s)});
    EXPECT_EQ(lastBoxText(), QString());
    EXPECT_EQ(confirm(), "第1行：仅支持担保品卖出\r\n第4行：仅支持担保品卖出\r\n"_s);
    EXPECT_EQ(check({instance("CreditTransaction"_s)}), "第1行：仅支持担保品买入、融资买入\r\n"_s);
}

TEST_F(BatchCheck, ASecurityThatIsNotOfHongKongNeverFailsTheMarketCheck)
{
    open();
    for (const QString& exchange : {"SZ"_s, "HKSH"_s, QString(), "没有"_s}) {
        EXPECT_EQ(inspect().checkSymbolType(1, "600000.SH"_s, exchange), QString());
        EXPECT_EQ(inspect().checkSymbolType(1, "不存在"_s, exchange), QString());
    }
}

TEST_F(BatchCheck, AHongKongSecurityMustBeOrderedWhereItTrades)
{
    open();
    EXPECT_EQ(inspect().checkSymbolType(2, "08001.HK"_s, "HKSH"_s), QString());
    EXPECT_EQ(inspect().checkSymbolType(2, "00700.HK"_s, "HKSZ"_s), QString());
    EXPECT_EQ(inspect().checkSymbolType(2, "08001.HK"_s, "HKSZ"_s), "第2行：08001.HK标的仅是沪港通标的！"_s);
    EXPECT_EQ(inspect().checkSymbolType(2, "08001.HK"_s, "hksh"_s), "第2行：08001.HK标的仅是沪港通标的！"_s)
        << "letter case counts";
    EXPECT_EQ(inspect().checkSymbolType(2, "00700.HK"_s, "SH"_s), "第2行：00700.HK标的仅是沪港通标的！"_s)
        << "the first of two markets is named";
}

TEST_F(BatchCheck, AHongKongSecurityWithoutAnyExchangePasses)
{
    open();
    EXPECT_EQ(inspect().checkSymbolType(1, "00001.HK"_s, "HKSH"_s), QString());
}

TEST_F(BatchCheck, TheMarketTextHasNoLineBreakSoThatTheNextRowFollowsOnItsLine)
{
    open();
    importRows({ordinaryHeader(), rowWith("08001"_s, "HKSZ"_s, "1"_s, "9"_s),
                rowWith("600000"_s, "SH"_s, "1"_s, "9"_s), rowWith("08001"_s, "HKSZ"_s, "1"_s, "0"_s)});
    EXPECT_EQ(confirm(), "第1行：08001.HK标的仅是沪港通标的！"
                         "第2行：当前资产账号与模板中委托属性校验未通过，请检查!\r\n"
                         "第3行：08001.HK标的仅是沪港通标的！"_s)
        << "and a row of a wrong market is not checked for its entrust property";
}

TEST_F(BatchCheck, ARowWithTheKeyButAnEmptyPropertyIsCheckedAllTheSame)
{
    const QString fault = "第1行：当前资产账号与模板中委托属性校验未通过，请检查!\r\n"_s;
    open();
    EXPECT_EQ(check({instance(QString())}), fault);
    accounts().SetCurTradingAccount("CREDIT1"_s);
    EXPECT_EQ(check({instance(QString())}), fault);
}

TEST_F(BatchCheck, AnUnpairedRowWithoutTheKeyIsNotChecked)
{
    open();
    QVariantMap without = instance("9"_s);
    without.remove(Property);
    host->journal().clear();
    EXPECT_EQ(check({without}), QString());
    EXPECT_TRUE(callsOf("SolveyBusinessDataInterface::GetAccountInfoListFromTrade").isEmpty());
}

TEST_F(BatchCheck, AnUnpairedRowDoesNotLookAtItsLegsProperty)
{
    open();
    QVariantMap leg = security("600000.SH"_s, "SH"_s);
    leg[Property] = "9"_s;
    EXPECT_EQ(check({instance("0"_s, "Buy"_s, leg)}), QString());
}

TEST_F(BatchCheck, APairedRowTakesPropertyAndDirectionFromItsFirstLeg)
{
    for (const QString& strategy :
         {"AIPAIR"_s, "AIPAIRBASIC"_s, "AIPAIRPLUS"_s, "AILOCK"_s, "AILOCKPLUS"_s, "AILOCK3"_s}) {
        open();
        loadDocument({}, strategy);
        accounts().SetCurTradingAccount("CREDIT1"_s);
        QVariantMap leg = security("600000.SH"_s, "SH"_s);
        leg[Property] = "7"_s;
        leg[Direction] = "Buy"_s;
        EXPECT_EQ(check({instance("9"_s, "Sell"_s, leg)}), "第1行：委托属性与交易方向不一致\r\n"_s)
            << qPrintable(strategy);
    }
}

TEST_F(BatchCheck, APairedRowWithoutAnyPropertyIsNotChecked)
{
    open("AIPAIR"_s);
    QVariantMap leg = security("600000.SH"_s, "SH"_s);
    const QVariantMap without = {{Legs, QVariantList{leg}}};
    EXPECT_EQ(check({without}), QString());
    leg[Property] = QString();
    EXPECT_EQ(check({{{Legs, QVariantList{leg}}}}), QString()) << "an empty one of the leg counts as none";
}

TEST_F(BatchCheck, APairedRowWithTheKeyIsCheckedWithItsLegsEmptyProperty)
{
    open("AIPAIR"_s);
    EXPECT_EQ(check({instance("0"_s)}), "第1行：当前资产账号与模板中委托属性校验未通过，请检查!\r\n"_s);
}

TEST_F(BatchCheck, AnImportedPairIsCheckedByItsLeg)
{
    open("AIPAIR"_s);
    const QStringList header = {"证券代码"_s, "市场"_s,     "委托数量"_s,          Direction,
                                Property,     "委托限价"_s, "创建后是否立即启动"_s};
    importRows({header, {"600000"_s, "SH"_s, "100"_s, "1"_s, "9"_s, "10"_s, "7"_s}});
    EXPECT_EQ(lastBoxText(), QString());
    EXPECT_EQ(confirm(), "第1行：当前资产账号与模板中委托属性校验未通过，请检查!\r\n"_s);
}

TEST_F(BatchCheck, ARowWithoutASecurityHasBadDataAndTheOthersGoOn)
{
    open();
    QVariantMap noList = instance("0"_s);
    noList.remove(Legs);
    QVariantMap noLeg = instance("0"_s);
    noLeg[Legs] = QVariantList();
    EXPECT_EQ(check({noList, instance("9"_s), noLeg, instance("0"_s, "Buy"_s, QVariantMap())}),
              "第1行：获取数据错误！\r\n"
              "第2行：当前资产账号与模板中委托属性校验未通过，请检查!\r\n"
              "第3行：获取数据错误！\r\n"
              "第4行：获取数据错误！\r\n"_s);
}

TEST_F(BatchCheck, AnAccountWithoutRecordsGivesItsTextOncePerCheckedRow)
{
    open();
    importRows({ordinaryHeader(), ordinaryRow(), ordinaryRow("000001"_s, "SZ"_s)});
    ReferenceTables poorer = tables;
    poorer.accounts.removeFirst(); // CASH1
    EmbeddedHost later{ReferenceData(poorer)};
    later.setPrompts(&prompts);
    EXPECT_EQ(confirm(), NoAccountType + NoAccountType);
}

TEST_F(BatchCheck, TheRecordsAreFetchedAnewForEveryRow)
{
    open();
    importRows({ordinaryHeader(), ordinaryRow(), ordinaryRow(), ordinaryRow()});
    host->journal().clear();
    EXPECT_EQ(confirm(), QString());
    const auto asked = callsOf("SolveyBusinessDataInterface::GetAccountInfoListFromTrade");
    ASSERT_EQ(asked.size(), 3);
    EXPECT_EQ(asked.last().arguments, (QVariantList{"CASH1"_s, true}));
}

TEST_F(BatchCheck, ReadsSymbolAndExchangeOutOfTheFirstSecurity)
{
    open();
    QString symbol = "before"_s;
    QString exchange = "before"_s;
    for (const QVariantList& nothing :
         {QVariantList(), QVariantList{QVariantMap()}, QVariantList{"text"_s}}) {
        EXPECT_EQ(inspect().parseSymbolAndExchangeFromParamsMap(nothing, symbol, exchange), "-1"_s);
        EXPECT_EQ(symbol, "before"_s);
        EXPECT_EQ(exchange, "before"_s);
    }
    const QVariantList two = {security("600000.SH"_s, "SH"_s), security("000001.SZ"_s, "SZ"_s)};
    EXPECT_EQ(inspect().parseSymbolAndExchangeFromParamsMap(two, symbol, exchange), "0"_s);
    EXPECT_EQ(symbol, "600000.SH"_s);
    EXPECT_EQ(exchange, "SH"_s);
    const QVariantList other = {QVariantMap{{"其他"_s, 1}}};
    EXPECT_EQ(inspect().parseSymbolAndExchangeFromParamsMap(other, symbol, exchange), "0"_s);
    EXPECT_EQ(symbol, QString());
    EXPECT_EQ(exchange, QString());
}

TEST_F(BatchCheck, LogsTheInstanceAndWhatFailed)
{
    open();
    LogCapture log;
    check({instance("0"_s), instance("0"_s, "Buy"_s, security("08001.HK"_s, "HKSZ"_s)),
           instance("0"_s, "Buy"_s, QVariantMap())});
    for (const QString& marker :
         {"singleParamVarMap"_s, "contains prop"_s, "!ret.isEmpty"_s, " symbol: "_s, " exchange: "_s,
          " exchangeLst: "_s, " singleParamVarMap.value(Algo_values::AlgoParamId::AlgoSecurityList):"_s}) {
        EXPECT_TRUE(log.text().contains(marker)) << qPrintable(marker);
    }
}
