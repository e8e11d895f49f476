#include "tests/amounts/AmountsTest.h"
#include "tests/support/LogCapture.h"

#include <QElapsedTimer>

/// The sums of buys and sells.
class ExpectedAmounts : public AmountsTest {};

TEST_F(ExpectedAmounts, PriceEveryRowFromItsLastPrice)
{
    open();
    price({row("600000.SH"_s, "Buy"_s, "1000"_s), row("000001.SZ"_s, "Sell"_s, "300"_s, "SZ"_s),
           row("600000.SH"_s, "Buy"_s, "200"_s)});
    expectSums(12000, 6000);
    expectFailures(QString(), QString());
}

TEST_F(ExpectedAmounts, TakeDirectionsByTheirExactTexts)
{
    open();
    price({row("600000.SH"_s, "buy"_s), row("600000.SH"_s, "买入"_s), row("600000.SH"_s, QString()),
           row("600000.SH"_s, "Sell/Buy"_s), row("600999.SH"_s, "sell"_s)});
    expectSums(0, 0);
    expectFailures(QString(), QString());
}

TEST_F(ExpectedAmounts, CountATwoSidedRowOnBothSidesWithoutARate)
{
    open();
    price({row("600000.SH"_s, "Buy/Sell"_s), row("00700.HK"_s, "Buy/Sell"_s, "10"_s, "HKSH"_s),
           row("00700.HK"_s, "Buy/Sell"_s, "10"_s, "SH"_s)});
    expectSums(7000, 7000);
    expectFailures(QString(), QString());
}

TEST_F(ExpectedAmounts, NameATwoSidedRowWithoutAPriceOnBothSides)
{
    open();
    price({row("600999.SH"_s, "Buy/Sell"_s)});
    expectSums(0, 0);
    expectFailures("600999.SH"_s, "600999.SH"_s);
}

TEST_F(ExpectedAmounts, LeaveOutWhatHasNoPriceAndNameItOncePerRow)
{
    open();
    price({row("600999.SH"_s, "Buy"_s), row("600000.SH"_s, "Buy"_s), row("999999.SH"_s, "Buy"_s),
           row("600999.SH"_s, "Buy"_s), row("600999.SH"_s, "Sell"_s)});
    expectSums(1000, 0);
    expectFailures("600999.SH、999999.SH、600999.SH"_s, "600999.SH"_s);
}

TEST_F(ExpectedAmounts, PriceABondRepoAtAHundredWhateverTheQuoteSays)
{
    tables.quotes.erase(std::remove_if(tables.quotes.begin(), tables.quotes.end(),
                                       [](const Quote& quote) { return quote.symbol == "131810.SZ"_s; }),
                        tables.quotes.end());
    for (Security& security : tables.securities) {
        security.bondRepo = security.bondRepo || security.symbol == "131810.SZ"_s;
    }
    open();
    price({row("204001.SH"_s, "Buy"_s, "1000"_s), row("131810.SZ"_s, "Sell"_s, "20"_s, "SZ"_s)});
    expectSums(100000, 2000);
    expectFailures(QString(), QString());
}

TEST_F(ExpectedAmounts, ValueAHongKongBuyAtTheSellRateAndASellAtTheBuyRate)
{
    open();
    price({row("00700.HK"_s, "Buy"_s, "10"_s, "HKSH"_s), row("00700.HK"_s, "Sell"_s, "10"_s, "HKSH"_s)});
    expectSums(300 * 10 * 0.95, 300 * 10 * 0.9);
    EXPECT_EQ(2, callsOf("SolveyBusinessDataInterface::GetHKStockExchangeRate").size());
}

TEST_F(ExpectedAmounts, KnowHongKongSecuritiesByTheirSubType)
{
    open();
    price({row("08001.HK"_s, "Buy"_s, "100"_s, "HKSH"_s), row("00939.HK"_s, "Buy"_s, "100"_s, "HKSH"_s)});
    expectSums(2 * 100 * 0.95 + 5 * 100 * 0.95, 0);
    price({row("600000.SH"_s, "Buy"_s, "1"_s, "HKSH"_s)});
    expectSums(10, 0);
    EXPECT_EQ(0, callsOf("SolveyBusinessDataInterface::GetHKStockExchangeRate").size());
}

TEST_F(ExpectedAmounts, AMissingRateIsAFailureOnItsSide)
{
    open();
    price({row("00700.HK"_s, "Buy"_s, "10"_s, "HKSZ"_s), row("00700.HK"_s, "Sell"_s, "10"_s, "HKSZ"_s),
           row("00939.HK"_s, "Sell"_s, "10"_s, "HKXX"_s)});
    expectSums(0, 300 * 10 * 0.8);
    expectFailures("00700.HK"_s, "00939.HK"_s);
}

TEST_F(ExpectedAmounts, WithoutAnyRatesNothingIsConverted)
{
    tables.hkRates.clear();
    open();
    price({row("00700.HK"_s, "Buy"_s, "10"_s, "HKSZ"_s)});
    expectSums(3000, 0);
    expectFailures(QString(), QString());
}

TEST_F(ExpectedAmounts, FuturesCountTheContractMultiplier)
{
    open("G-TWAP"_s);
    price({row("IF2412.CFE"_s, "BuyOpen"_s, "2"_s, "CFE"_s),
           row("IF2412.CFE"_s, "SellClose"_s, "1"_s, "CFE"_s)});
    expectSums(3500.0 * 2 * 300, 3500.0 * 300);
    price({row("IF2412.CFE"_s, "BuyClose"_s, "3"_s, "CFE"_s),
           row("IF2412.CFE"_s, "SellOpen"_s, "4"_s, "CFE"_s), row("IF2412.CFE"_s, "Buy"_s, "1"_s, "CFE"_s)});
    expectSums(3500.0 * 4 * 300, 3500.0 * 4 * 300);
}

TEST_F(ExpectedAmounts, ButNotInATwoSidedRow)
{
    open("G-TWAP"_s);
    price({row("IF2412.CFE"_s, "Buy/Sell"_s, "2"_s, "CFE"_s)});
    expectSums(7000, 7000);
}

TEST_F(ExpectedAmounts, FuturesStrategiesStillNeedTheRateThatTheyDoNotApply)
{
    open("G-TWAP"_s);
    price({row("00700.HK"_s, "Buy"_s, "10"_s, "HKSZ"_s)});
    expectFailures("00700.HK"_s, QString());
    expectSums(0, 0);
}

TEST_F(ExpectedAmounts, OtherStrategiesKnowNoFuturesDirectionsAndNoMultiplier)
{
    open("AITWAP"_s);
    price({row("IF2412.CFE"_s, "BuyOpen"_s, "2"_s, "CFE"_s), row("IF2412.CFE"_s, "Sell"_s, "2"_s, "CFE"_s)});
    expectSums(0, 7000);
}

TEST_F(ExpectedAmounts, AmountDrivenStrategiesSumTheAmounts)
{
    open("AITWAP7"_s);
    const auto amount = [](const QString& direction, const QString& money) {
        return Cells{{"证券代码"_s, "600999.SH"_s}, {"交易方向"_s, direction}, {"委托金额"_s, money}};
    };
    price({amount("Buy"_s, "1000.25"_s), amount("Sell"_s, "300"_s), amount("Buy/Sell"_s, "5000"_s),
           amount("BuyOpen"_s, "1"_s), amount("Buy"_s, "0.5"_s)});
    expectSums(1000.75, 300);
    expectFailures(QString(), QString());
    EXPECT_EQ(0, callsOf("CommonQuotaHandler::SubscribeQuota").size());
    EXPECT_EQ(0, callsOf("CommonQuotaHandler::GetQuotaSnapshot").size());
}

TEST_F(ExpectedAmounts, NoRowsAreStillSubscribedAndWaitedFor)
{
    open();
    QElapsedTimer timer;
    timer.start();
    price({});
    EXPECT_GE(timer.elapsed(), 300);
    expectSums(0, 0);
    expectFailures(QString(), QString());
    const auto calls = callsOf("CommonQuotaHandler::SubscribeQuota");
    ASSERT_EQ(1, calls.size());
    EXPECT_EQ((QVariantList{QStringList(), true, 0}), calls.first().arguments);
}

TEST_F(ExpectedAmounts, SubscribeAllRowsInOneCallAndLookUpEachOnce)
{
    open();
    price({row("600000.SH"_s, "Buy"_s), row("00700.HK"_s, "hold"_s, "1"_s, "HKSH"_s),
           row("600000.SH"_s, "Sell"_s)});
    const auto calls = callsOf("CommonQuotaHandler::SubscribeQuota");
    ASSERT_EQ(1, calls.size());
    EXPECT_EQ((QVariantList{QStringList{"600000.SH"_s, "00700.HK"_s, "600000.SH"_s}, true, 0}),
              calls.first().arguments);
    EXPECT_EQ(calls.first().operation, host->journal().calls().first().operation);
    EXPECT_EQ(3, callsOf("CommonQuotaHandler::GetQuotaSnapshot").size());
    EXPECT_EQ(3, callsOf("SolveyBusinessDataInterface::GetSecurityDetailsBySymbol").size());
    EXPECT_GE(1, callsOf("SolveyBusinessDataInterface::GetHKStockExchangeRate").size());
}

TEST_F(ExpectedAmounts, LogEveryRowThenBothSumsAndTheCountsOfFailures)
{
    open();
    const LogCapture log;
    price({row("600000.SH"_s, "Buy"_s, "300"_s), row("600999.SH"_s, "Sell"_s, "200"_s)});
    EXPECT_EQ(log.firstMissing({" code:  \"600000.SH\""_s, " quantity:  300"_s, " direction:  \"Buy\""_s,
                                " price:  10"_s, " code:  \"600999.SH\""_s, " quantity:  200"_s,
                                " direction:  \"Sell\""_s, " price:  0"_s, "calculateExpectAmount"_s,
                                "3000 0 0 1"_s}),
              QString())
        << qPrintable(log.text());
}

TEST_F(ExpectedAmounts, PreferTheOrderDirectionColumn)
{
    openDocument(small_market::ordinaryDocument() + QVariantList{small_market::line("委托方向"_s)});
    Cells cells = row("600000.SH"_s, "Buy"_s);
    cells["委托方向"_s] = "Sell"_s;
    price({cells});
    expectSums(0, 1000);
}

TEST_F(ExpectedAmounts, WithoutADirectionColumnTheFirstColumnIsReadAsOne)
{
    using small_market::line;
    openDocument({small_market::table({line("首列"_s), line("证券代码"_s), line("委托数量"_s)})});
    const Cells cells = {{"证券代码"_s, "600000.SH"_s}, {"委托数量"_s, "100"_s}};
    Cells buy = cells;
    buy["首列"_s] = "Buy"_s;
    Cells other = cells;
    other["首列"_s] = "600000.SH"_s;
    price({buy, other});
    expectSums(1000, 0);
}

TEST_F(ExpectedAmounts, AMissingQuantityIsNothing)
{
    open("AMOUNT"_s);
    price({{{"证券代码"_s, "600000.SH"_s}, {"交易方向"_s, "Buy"_s}, {"委托金额"_s, "5000"_s}}});
    expectSums(0, 0);
    expectFailures(QString(), QString());
}

TEST_F(ExpectedAmounts, AMissingCodeHasNoPrice)
{
    open();
    price({{{"交易方向"_s, "Buy"_s}, {"委托数量"_s, "100"_s}}});
    expectSums(0, 0);
    EXPECT_FALSE(buyWarning().isHidden());
    EXPECT_EQ(Failed, buyWarning().toolTip());
}
