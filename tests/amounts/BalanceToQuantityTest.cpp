#include "host/CommonQuotaHandler.h"
#include "tests/support/DialogFixture.h"
#include "tests/support/LogCapture.h"

#include <limits>

/// An amount of money as a quantity that the day's upper limit still covers.
class BalanceToQuantity : public DialogFixture {
protected:
    /// Quotes are there for what was subscribed, as row parsing does before it needs them.
    void openWithQuotes()
    {
        open();
        QStringList symbols;
        for (const Security& security : qAsConst(tables.securities)) {
            symbols.append(security.symbol);
        }
        CommonQuotaHandler::instance()->SubscribeQuota(symbols, true, 0);
    }
    qint64 buy(const QString& symbol, double amount)
    {
        return inspect().transBalance2Qty(symbol, "Buy"_s, amount);
    }
    qint64 sell(const QString& symbol, double amount)
    {
        return inspect().transBalance2Qty(symbol, "Sell"_s, amount);
    }
    void setLots(const QString& symbol, int minimum, int step, int factor = 1)
    {
        for (Security& security : tables.securities) {
            if (security.symbol == symbol) {
                security.minQtyPerOrder = minimum;
                security.qtyStep = step;
                security.dispFactor = factor;
            }
        }
    }
    void setUpperLimit(const QString& symbol, const QString& price)
    {
        for (Quote& quote : tables.quotes) {
            if (quote.symbol == symbol) {
                quote.fields["MaxPx"_s] = price;
            }
        }
    }
};

TEST_F(BalanceToQuantity, DividesByTheUpperLimitAndRoundsDownToTheLot)
{
    openWithQuotes();
    EXPECT_EQ(9000, buy("600000.SH"_s, 100000));
    EXPECT_EQ(9000, buy("600000.SH"_s, 100099.9));
    EXPECT_EQ(100, buy("600000.SH"_s, 1100));
    EXPECT_EQ(100, buy("600000.SH"_s, 2199.99));
    EXPECT_EQ(200, buy("600000.SH"_s, 2200));
}

TEST_F(BalanceToQuantity, GivesNothingBelowTheSmallestOrder)
{
    openWithQuotes();
    EXPECT_EQ(0, buy("600000.SH"_s, 1000));
    EXPECT_EQ(0, buy("600000.SH"_s, 1099.99));
    EXPECT_EQ(0, buy("600000.SH"_s, 0));
}

TEST_F(BalanceToQuantity, BoardsWithoutAStepTakeEveryQuantityFromTheSmallestOn)
{
    openWithQuotes();
    EXPECT_EQ(3030, buy("688001.SH"_s, 100000));
    EXPECT_EQ(0, buy("688001.SH"_s, 6000));
    EXPECT_EQ(200, buy("688001.SH"_s, 6600));
    EXPECT_EQ(153, buy("430001.BJ"_s, 1000));
    EXPECT_EQ(0, buy("430001.BJ"_s, 640));
}

TEST_F(BalanceToQuantity, ASellGoesByTheDisplayFactorAlone)
{
    setLots("600000.SH"_s, 1000, 500, 100);
    setUpperLimit("600000.SH"_s, "1"_s);
    openWithQuotes();
    EXPECT_EQ(1200, sell("600000.SH"_s, 1234));
    EXPECT_EQ(0, sell("600000.SH"_s, 99));
    EXPECT_EQ(1000, buy("600000.SH"_s, 1234));
    EXPECT_EQ(0, buy("600000.SH"_s, 999));
}

TEST_F(BalanceToQuantity, ASellOnABoardWithoutAStepToo)
{
    openWithQuotes();
    EXPECT_EQ(181, sell("688001.SH"_s, 6000));
}

TEST_F(BalanceToQuantity, NothingComesOfAMissingOrUselessUpperLimit)
{
    setUpperLimit("600000.SH"_s, "0"_s);
    setUpperLimit("000001.SZ"_s, "面议"_s);
    openWithQuotes();
    EXPECT_EQ(0, buy("600999.SH"_s, 1e9)) << "no quote";
    EXPECT_EQ(0, buy("204001.SH"_s, 1e9)) << "a quote without an upper limit";
    EXPECT_EQ(0, buy("600000.SH"_s, 1e9)) << "a limit of 0";
    EXPECT_EQ(0, buy("000001.SZ"_s, 1e9)) << "no number";
    EXPECT_EQ(0, buy(QString(), 1e9)) << "no security";
}

TEST_F(BalanceToQuantity, NothingComesOfANegativeAmount)
{
    openWithQuotes();
    EXPECT_EQ(0, buy("600000.SH"_s, -100000));
    EXPECT_EQ(0, buy("688001.SH"_s, -100000));
}

TEST_F(BalanceToQuantity, AStepOfZeroCountsAsOne)
{
    setLots("600000.SH"_s, 100, 0, 0);
    openWithQuotes();
    EXPECT_EQ(9090, buy("600000.SH"_s, 100000));
    EXPECT_EQ(9090, sell("600000.SH"_s, 100000));
}

TEST_F(BalanceToQuantity, QuantitiesAreOf64Bits)
{
    openWithQuotes();
    EXPECT_EQ(90909090909000, buy("600000.SH"_s, 1e15));
}

TEST_F(BalanceToQuantity, NoAmountIsTooLargeToBeRefused)
{
    openWithQuotes();
    EXPECT_EQ(0, buy("600000.SH"_s, 1e300));
    EXPECT_EQ(0, buy("688001.SH"_s, std::numeric_limits<double>::infinity()));
    EXPECT_EQ(0, buy("600000.SH"_s, std::numeric_limits<double>::quiet_NaN()));
}

TEST_F(BalanceToQuantity, LooksUpTheSnapshotOfTheSymbol)
{
    openWithQuotes();
    host->journal().clear();
    buy("600000.SH"_s, 100000);
    const auto calls = callsOf("CommonQuotaHandler::GetQuotaSnapshot");
    ASSERT_EQ(1, calls.size());
    EXPECT_EQ((QVariantList{"600000.SH"_s, 0}), calls.first().arguments);
    EXPECT_TRUE(callsOf("CommonQuotaHandler::SubscribeQuota").isEmpty());
}

TEST_F(BalanceToQuantity, LogsWhatItComputesFrom)
{
    openWithQuotes();
    const LogCapture log;
    buy("600000.SH"_s, 100000);
    buy("600999.SH"_s, 100000);
    EXPECT_EQ(log.firstMissing({"transBalance2Qty"_s, " symbol:  \"600000.SH\""_s, " balance:  100000"_s,
                                " quotaMap: "_s, " maxPx:  11"_s, " exchange:  \"SH\""_s,
                                " type:  \"STOCK\""_s, " minimum:  100"_s, " step:  100"_s,
                                " symbol:  \"600999.SH\""_s, " maxPx:  0"_s, " maxPx is empty!"_s}),
              QString())
        << qPrintable(log.text());
}

TEST_F(BalanceToQuantity, RoundingAQuantityIsAnOperationOfItsOwn)
{
    openWithQuotes();
    EXPECT_EQ(200, inspect().roundQty(250, 100, 100));
    EXPECT_EQ(0, inspect().roundQty(99, 100, 100));
    EXPECT_EQ(300, inspect().roundQty(300, 100, 100));
    EXPECT_EQ(7, inspect().roundQty(7, 0, 1));
}

TEST_F(BalanceToQuantity, AsksForTypeAndExchangeThoughOnlyItsLogTellsThem)
{
    openWithQuotes();
    host->journal().clear();
    buy("600000.SH"_s, 100000.0);
    EXPECT_EQ(1, callsOf("SolveyBusinessDataInterface::GetASecurityExchangeBySymbol").size());
    EXPECT_EQ(1, callsOf("CBusinessDataBase::GetSecurityTypeBySymbol").size());
}
