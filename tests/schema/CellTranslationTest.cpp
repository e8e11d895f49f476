#include "tests/support/DialogFixture.h"
#include "tests/support/Sheet.h"

namespace {

using namespace small_market;

const QString Failed = QStringLiteral("TRANS_ERROR");

class CellTranslation : public DialogFixture {
protected:
    /// Loads a document of one's own under a strategy code.
    void openWith(const QVariantList& document, const QString& code = QStringLiteral("AITWAP"))
    {
        open();
        loadDocument(document, code);
    }

    QString translate(const QString& column, const QString& text,
                      const QString& symbol = QStringLiteral("600000.SH"))
    {
        cellText = text;
        error.clear();
        return inspect().transColData2ColDataName(symbol, column, cellText, error);
    }

    void expectTranslated(const QString& column, const QString& text, const QString& shownText,
                          const QString& value)
    {
        EXPECT_EQ(translate(column, text), shownText) << qPrintable(text);
        EXPECT_EQ(cellText, value) << qPrintable(text);
        EXPECT_EQ(error, QString()) << qPrintable(text);
    }

    void expectFailed(const QString& column, const QString& text, const QString& message)
    {
        EXPECT_EQ(translate(column, text), Failed) << qPrintable(text);
        EXPECT_EQ(error, message) << qPrintable(text);
        EXPECT_EQ(cellText, text) << qPrintable(text);
    }

    QString cellText;
    QString error;
};

} // namespace

// ---- date and time

TEST_F(CellTranslation, ADateTimeIsReadInTheFilesLayoutOrAsItIsTyped)
{
    open();
    const QString normal = "2024-03-05 09:30:00"_s;
    inspect().dateTimeFormat() = "yyyy-M-dTH:m:s.z"_s;
    expectTranslated("开始时间"_s, "2024-3-5T9:30:0.0"_s, normal, normal);
    expectTranslated("开始时间"_s, "2024-03-05T09:30:00.000"_s, normal, normal);
    expectTranslated("开始时间"_s, "2024-3-5 9:30:0"_s, normal, normal);
    inspect().dateTimeFormat() = "yyyy-M-d H:m:s"_s;
    expectTranslated("开始时间"_s, "2024-3-5 9:30:0"_s, normal, normal);
    inspect().dateTimeFormat() = QString(); // before the first import
    expectTranslated("开始时间"_s, "2024-3-5 9:30:0"_s, normal, normal);
}

TEST_F(CellTranslation, AnUnreadableDateTimeIsLeftAsItWasAndNamesItsLayout)
{
    open();
    const QString message = "开始时间格式不正确，时间格式为yyyy-MM-dd HH:mm:ss"_s;
    for (const QString& layout : {"yyyy-M-d H:m:s"_s, "yyyy-M-dTH:m:s.z"_s}) {
        inspect().dateTimeFormat() = layout;
        for (const QString& text :
             {"2024/03/05"_s, "2024-03-05"_s, "09:30:00"_s, QString(), "2024-13-05 9:30:0"_s}) {
            expectFailed("开始时间"_s, text, message);
        }
    }
    expectFailed("结束时间"_s, "x"_s, "结束时间格式不正确，时间格式为yyyy-MM-dd HH:mm:ss"_s);
}

TEST_F(CellTranslation, ASpreadsheetImportFallsBackToTheTypedLayout)
{
    open();
    const Sheet sheet =
        Sheet::ordinary().add({{"开始时间"_s, "2024-3-5 9:30:0"_s}, {"结束时间"_s, "2024-3-5T14:57:0.0"_s}});
    importFile(writeCsv(sheet.rows(), "list.xls"_s));
    EXPECT_EQ(inspect().dateTimeFormat(), "yyyy-M-dTH:m:s.z"_s);
    EXPECT_EQ(lastBoxText(), QString());
    EXPECT_EQ(shown(0, "开始时间"_s), "2024-03-05 09:30:00"_s);
    EXPECT_EQ(value(0, "结束时间"_s), "2024-03-05 14:57:00"_s);
}

TEST_F(CellTranslation, AnUnreadableDateTimeInAFileIsReportedWithItsLine)
{
    open();
    importRows(Sheet::ordinary().add().add({{"开始时间"_s, "2024/03/05"_s}}).rows());
    EXPECT_EQ(lastBoxText(),
              "导入文件中包含以下错误:\r\n第3行：开始时间格式不正确，时间格式为yyyy-MM-dd HH:mm:ss\r\n"_s);
    EXPECT_EQ(rowCount(), 1);
}

// ---- drop-down lists

TEST_F(CellTranslation, AStyleMustBeOneOfTheLoadedStrategys)
{
    openWith({combo("风格参数"_s, {"neutral=平稳"_s})});
    expectTranslated("风格参数"_s, "neutral"_s, "平稳"_s, "neutral"_s);
    expectFailed("风格参数"_s, "passive"_s, "风格参数不支持，目前支持：激进-aggressive,平稳-neutral,"_s);
    expectFailed("风格参数"_s, "平稳"_s, "风格参数不支持，目前支持：激进-aggressive,平稳-neutral,"_s);
    expectFailed("风格参数"_s, "Neutral"_s, "风格参数不支持，目前支持：激进-aggressive,平稳-neutral,"_s);
}

TEST_F(CellTranslation, AnAcceptedValueThatTheStrategyHasNoOptionForGivesAnEmptyValue)
{
    openWith({combo("风格参数"_s, {"neutral=平稳"_s})});
    expectTranslated("风格参数"_s, "aggressive"_s, "激进"_s, QString());
}

TEST_F(CellTranslation, AcceptedStylesFollowTheStrategy)
{
    openWith({combo("风格参数"_s, {"D=动态均衡"_s, "H=高收益"_s})}, "QND_TWAP"_s);
    expectTranslated("风格参数"_s, "3"_s, "高收益"_s, "H"_s);
    expectFailed("风格参数"_s, "neutral"_s,
                 "风格参数不支持，目前支持：动态均衡-0,静态均衡-1,低撤单率-2,高收益-3,"_s);
    openWith({combo("风格参数"_s, {"neutral=平稳"_s})}, "AILOCK"_s);
    expectFailed("风格参数"_s, "aggressive"_s, "风格参数不支持，目前支持：平稳-neutral,"_s);
}

TEST_F(CellTranslation, ADirectionIsTypedAsItsDigitAndSentAsTheStrategysValue)
{
    open("G-TWAP"_s, "FUT1"_s);
    struct Case {
        const char* typed;
        const char* shown;
        const char* sent;
    };
    const Case cases[] = {{"1", "买入", "Buy"},          {"2", "卖出", "Sell"},
                          {"3", "买入开仓", "BuyOpen"},  {"4", "卖出开仓", "SellOpen"},
                          {"5", "买入平仓", "BuyClose"}, {"6", "卖出平仓", "SellClose"}};
    for (const Case& c : cases) {
        expectTranslated("交易方向"_s, QString::fromUtf8(c.typed), QString::fromUtf8(c.shown),
                         QString::fromUtf8(c.sent));
    }
    expectFailed("交易方向"_s, "7"_s,
                 "交易方向不支持，目前支持：买入-1,卖出-2,买入开仓-3,卖出开仓-4,买入平仓-5,卖出平仓-6,"_s);
}

TEST_F(CellTranslation, AColumnWithoutAFixedTableTakesTheOptionsValueAndNotItsDisplay)
{
    openWith({combo("状态"_s, {"0=创建不启动"_s, "7=创建并立即启动"_s})});
    expectTranslated("状态"_s, "0"_s, "创建不启动"_s, "0"_s);
    expectFailed("状态"_s, "创建不启动"_s, "状态不支持，目前支持：0-创建不启动,7-创建并立即启动,"_s);
}

TEST_F(CellTranslation, OfTwoDisplaysOfOneValueTheFirstInOrderIsShown)
{
    openWith({combo("状态"_s, {"0=b"_s, "0=a"_s})});
    expectTranslated("状态"_s, "0"_s, "a"_s, "0"_s);
}

TEST_F(CellTranslation, AnEmptyDisplayOrNoOptionsAtAllIsAnError)
{
    openWith({combo("状态"_s, {"0="_s, "0=后"_s}), combo("空"_s, {})});
    expectFailed("状态"_s, "0"_s, "状态不支持，目前支持：0-,0-后,"_s);
    expectFailed("空"_s, "0"_s, "空不支持，目前支持："_s);
}

TEST_F(CellTranslation, AnUnknownOptionInAFileIsReportedWithWhatIsSupported)
{
    open();
    importRows(Sheet::ordinary().add({{"风格参数"_s, "passive"_s}}).add({{"委托属性"_s, "5"_s}}).rows());
    EXPECT_EQ(lastBoxText(), "导入文件中包含以下错误:\r\n"
                             "第2行：风格参数不支持，目前支持：激进-aggressive,平稳-neutral,\r\n"
                             "第3行：委托属性不支持，目前支持：9-信用交易,7-卖券还款,0-普通交易,A-现券卖出,"
                             "6-融资买入/卖券还款,\r\n"_s);
}

TEST_F(CellTranslation, AcceptedValuesAreListedInOrderWithACommaBehindEach)
{
    open();
    EXPECT_EQ(inspect().transNotSupportParamsForNameAndValue(
                  {{"创建不启动"_s, "0"_s}, {"创建并立即启动"_s, "7"_s}}),
              "0-创建不启动,7-创建并立即启动,"_s);
    EXPECT_EQ(inspect().transNotSupportParamsForNameAndValue({}), QString());
    EXPECT_EQ(
        inspect().transNotSupportParamsForValueAndName({{"neutral"_s, "平稳"_s}, {"aggressive"_s, "激进"_s}}),
        "激进-aggressive,平稳-neutral,"_s);
    EXPECT_EQ(inspect().transNotSupportParamsForValueAndName({}), QString());
}

TEST_F(CellTranslation, ValuesOfOneDisplayAreEachListedWithTheFirstOfThem)
{
    open();
    EXPECT_EQ(
        inspect().transNotSupportParamsForValueAndName({{"a"_s, "同"_s}, {"b"_s, "异"_s}, {"c"_s, "同"_s}}),
        "同-a,异-b,同-a,"_s);
}

// ---- cells of lock strategies

TEST_F(CellTranslation, ALockStrategysOptionCellOfTwoPartsIsTranslatedLegByLeg)
{
    open("AILOCK"_s);
    expectTranslated("交易方向"_s, "1/2"_s, "买入/卖出"_s, "Buy/Sell"_s);
    expectTranslated("委托属性"_s, "0/9"_s, "普通交易/信用交易"_s, "0/9"_s);
    for (const QString& code : {"AILOCKPLUS"_s, "AILOCK3"_s}) {
        openWith(pairedDocument(), code);
        expectTranslated("交易方向"_s, "2/1"_s, "卖出/买入"_s, "Sell/Buy"_s);
    }
}

TEST_F(CellTranslation, ALockStrategysOptionCellOfOtherThanTwoPartsIsOneValue)
{
    open("AILOCK"_s);
    const QString message =
        "交易方向不支持，目前支持：买入-1,卖出-2,买入开仓-3,卖出开仓-4,买入平仓-5,卖出平仓-6,"_s;
    for (const QString& text : {"1/2/1"_s, "1/"_s, "/2"_s, "/"_s, "1/x"_s, "x/1"_s}) {
        expectFailed("交易方向"_s, text, message);
    }
    expectTranslated("交易方向"_s, "1"_s, "买入"_s, "Buy"_s);
}

TEST_F(CellTranslation, AFailingFirstPartHidesWhatIsWrongWithTheSecond)
{
    openWith({combo("状态"_s, {"0=零"_s})}, "AILOCK"_s);
    EXPECT_EQ(translate("状态"_s, "x/y"_s), Failed);
    EXPECT_EQ(error, "状态不支持，目前支持：0-零,"_s);
    EXPECT_EQ(cellText, "x/y"_s);
}

TEST_F(CellTranslation, ForOtherStrategiesASlashIsPartOfTheValue)
{
    openWith({combo("状态"_s, {"0=零"_s, "0/0=双零"_s}), line("委托限价"_s)});
    expectTranslated("状态"_s, "0/0"_s, "双零"_s, "0/0"_s);
    expectTranslated("委托限价"_s, "10/20"_s, "0.00"_s, "0.00"_s);
}

TEST_F(CellTranslation, ALockStrategysPairOfPricesIsShownRoundedAndKeptAsTyped)
{
    open("AILOCK"_s);
    expectTranslated("委托限价"_s, "10.126/20.1"_s, "10.13/20.10"_s, "10.126/20.1"_s);
    expectTranslated("委托限价"_s, "10.126/"_s, "10.13/0.00"_s, "10.126/"_s);
    expectTranslated("委托限价"_s, "1/2/3"_s, "0.00"_s, "0.00"_s);
}

TEST_F(CellTranslation, APairOfPricesDoesNotLookAtTheErrorInBetween)
{
    open("AILOCK"_s);
    QString text = "10.126/20.1"_s;
    QString earlier = "早先的错误"_s;
    EXPECT_EQ(inspect().transColData2ColDataName("600000.SH"_s, "委托限价"_s, text, earlier),
              "10.13/20.10"_s);
    EXPECT_EQ(earlier, "早先的错误"_s);
}

// ---- typed lines

TEST_F(CellTranslation, ColumnsOfWholeNumbersAreTruncatedAndNeverRounded)
{
    const QStringList columns = {"数量"_s,       "委托数量"_s,         "单笔最大"_s, "单笔最小"_s,
                                 "单笔最小量"_s, "单笔最大委托数量"_s, "起始成本"_s, "单笔最小委托金额"_s,
                                 "最差滑点"_s,   "卖单金额"_s};
    QVariantList document;
    for (const QString& column : columns) {
        document.append(line(column));
    }
    openWith(document);
    struct Case {
        const char* typed;
        const char* whole;
    };
    const Case cases[] = {{"1500.9", "1500"},    {"-3.2", "-3"},  {"abc", "0"},   {"12.7", "12"},
                          {"99.9999995", "100"}, {"1e3", "1000"}, {"1,000", "0"}, {"", "0"},
                          {" 7 ", "7"}};
    for (const QString& column : columns) {
        for (const Case& c : cases) {
            const QString whole = QString::fromLatin1(c.whole);
            expectTranslated(column, QString::fromLatin1(c.typed), whole, whole);
        }
    }
}

TEST_F(CellTranslation, APriceIsShownWithTheSecuritysDecimals)
{
    openWith({line("限价"_s), line("委托限价"_s)});
    struct Case {
        const char* symbol;
        const char* typed;
        const char* price;
    };
    const Case cases[] = {{"600000.SH", "10.12345", "10.12"},  {"600000.SH", "10.126", "10.13"},
                          {"510300.SH", "10.12345", "10.123"}, {"IF2412.CFE", "3500.26", "3500.3"},
                          {"600000.SH", "abc", "0.00"},        {"600000.SH", "1e2", "100.00"}};
    for (const QString& column : {"限价"_s, "委托限价"_s}) {
        for (const Case& c : cases) {
            EXPECT_EQ(translate(column, QString::fromLatin1(c.typed), QString::fromLatin1(c.symbol)),
                      QString::fromLatin1(c.price));
            EXPECT_EQ(cellText, QString::fromLatin1(c.price));
            EXPECT_EQ(error, QString());
        }
    }
}

TEST_F(CellTranslation, PricePrecisionIsAskedOfTheServiceOfTheSecuritysType)
{
    open();
    host->journal().clear();
    translate("委托限价"_s, "10"_s);
    const auto stock = callsOf("SolveyBusinessDataInterface::GetPricePrecisionBySymbol");
    ASSERT_EQ(stock.size(), 1);
    EXPECT_EQ(stock.first().arguments, (QVariantList{"600000.SH"_s, QString()}));
    EXPECT_TRUE(callsOf("FuturesLogicInterface::GetFuturesPricePrecision").isEmpty());
    host->journal().clear();
    translate("委托限价"_s, "10"_s, "IF2412.CFE"_s);
    const auto futures = callsOf("FuturesLogicInterface::GetFuturesPricePrecision");
    ASSERT_EQ(futures.size(), 1);
    EXPECT_EQ(futures.first().arguments, QVariantList{"IF2412.CFE"_s});
    EXPECT_TRUE(callsOf("SolveyBusinessDataInterface::GetPricePrecisionBySymbol").isEmpty());
}

TEST_F(CellTranslation, OtherColumnsComeBackAsTheyWere)
{
    openWith({line("实例备注"_s), entry("表"_s, "Slider"_s)});
    for (const QString& column : {"实例备注"_s, "表"_s, "不在表中"_s}) {
        for (const QString& text : {" 甲/乙 "_s, "1.50"_s, QString()}) {
            expectTranslated(column, text, text, text);
        }
    }
}
