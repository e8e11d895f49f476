#include "embedded_host/quotes/QuoteBoard.h"

#include "embedded_host/quotes/PriceWalk.h"
#include "tests/embedded_host/SampleTables.h"
#include "tests/support/Eventually.h"
#include "tests/support/Text.h"

#include <gtest/gtest.h>

#include <QSignalSpy>
#include <QTest>
#include <QThread>

#include <atomic>

namespace {

using Snapshot = QMap<QString, QVariant>;

QuoteBoard::Options moving(std::chrono::milliseconds interval = std::chrono::milliseconds(2))
{
    QuoteBoard::Options options;
    options.moving = true;
    options.seed = 7;
    options.interval = interval;
    return options;
}

/// One in each thread that emits quotes: goes with it.
struct CountedThread {
    CountedThread() { ++begun; }
    ~CountedThread() { ++ended; }
    static std::atomic<int> begun;
    static std::atomic<int> ended;
};
std::atomic<int> CountedThread::begun;
std::atomic<int> CountedThread::ended;

class QuoteBoardTest : public testing::Test {
protected:
    const ReferenceData data{sampleTables()};
};

TEST_F(QuoteBoardTest, StillQuotesNeverChange)
{
    QuoteBoard board(data, {});
    board.subscribe({"600000.SH"_s});
    const Snapshot first = board.snapshot("600000.SH"_s);
    EXPECT_EQ(first.value("LastPx"_s), QVariant("10.00"_s)) << "the text as it stands";
    QTest::qWait(50);
    EXPECT_EQ(board.snapshot("600000.SH"_s), first);
}

TEST_F(QuoteBoardTest, StillQuotesAreAnnouncedOnceWithTheSubscription)
{
    QuoteBoard board(data, {});
    QSignalSpy changed(&board, &QuoteBoard::quotesChanged);
    board.subscribe({"600000.SH"_s, "00700.HK"_s, "600000.SH"_s, QString()});
    board.subscribe({"600000.SH"_s});
    ASSERT_EQ(changed.count(), 1);
    EXPECT_EQ(changed[0][0].toStringList(), QStringList{"600000.SH"_s}) << "only what has a quote";
    EXPECT_EQ(board.subscribedSymbols(), (QStringList{"600000.SH"_s, "00700.HK"_s}));
}

TEST_F(QuoteBoardTest, FirstMovingQuotesArriveWhileTheSubscribersThreadSleeps)
{
    QuoteBoard board(data, moving(std::chrono::milliseconds(500)));
    board.subscribe({"600000.SH"_s, "00700.HK"_s, "000001.SZ"_s});
    QThread::msleep(300);
    EXPECT_FALSE(board.snapshot("600000.SH"_s).isEmpty());
    EXPECT_EQ(board.snapshot("000001.SZ"_s), (Snapshot{{"PreClosePx"_s, "12.5"_s}}));
    EXPECT_TRUE(board.snapshot("00700.HK"_s).isEmpty()) << "no quote row";
}

TEST_F(QuoteBoardTest, LaterSubscriptionIsServedInItsTurn)
{
    QuoteBoard board(data, moving(std::chrono::milliseconds(60000)));
    board.subscribe({"600000.SH"_s});
    QThread::msleep(300);
    board.subscribe({"600000.SH"_s, "IF2512.CFE"_s});
    QThread::msleep(300);
    EXPECT_EQ(board.snapshot("IF2512.CFE"_s).value("LastPx"_s), QVariant("3900.2"_s));
}

TEST_F(QuoteBoardTest, MovingQuotesAreAnnouncedToTheReceiversThread)
{
    QThread* receiverThread = nullptr;
    QObject receiver; // outlives the thread that announces
    QuoteBoard board(data, moving());
    QObject::connect(&board, &QuoteBoard::quotesChanged, &receiver,
                     [&](const QStringList&) { receiverThread = QThread::currentThread(); });
    board.subscribe({"600000.SH"_s});
    EXPECT_TRUE(eventually([&] { return receiverThread != nullptr; }));
    EXPECT_EQ(receiverThread, QThread::currentThread());
}

TEST_F(QuoteBoardTest, MovingQuotesMoveTheLastPriceAlone)
{
    QuoteBoard board(data, moving());
    board.subscribe({"600000.SH"_s});
    ASSERT_TRUE(eventually([&] { return board.snapshot("600000.SH"_s).contains("LastPx"_s); }));
    ASSERT_TRUE(eventually([&] { return board.snapshot("600000.SH"_s).value("LastPx"_s) != "10.00"_s; }));
    Snapshot moved = board.snapshot("600000.SH"_s);
    moved.remove("LastPx"_s);
    Snapshot start = data.quote("600000.SH"_s)->fields;
    start.remove("LastPx"_s);
    EXPECT_EQ(moved, start);
}

TEST_F(QuoteBoardTest, StoppedSubscriptionStaysSilent)
{
    QuoteBoard board(data, moving());
    board.subscribe({"600000.SH"_s});
    ASSERT_TRUE(eventually([&] { return !board.snapshot("600000.SH"_s).isEmpty(); }));
    board.unsubscribe({"600000.SH"_s});
    QTest::qWait(50);
    EXPECT_TRUE(board.snapshot("600000.SH"_s).isEmpty());
    EXPECT_TRUE(board.subscribedSymbols().isEmpty());
}

TEST_F(QuoteBoardTest, BoardGoesWhileQuotesMove)
{
    for (int i = 0; i < 50; ++i) {
        QuoteBoard board(data, moving(std::chrono::milliseconds(0)));
        QObject::connect(&board, &QuoteBoard::quotesChanged,
                         [] { thread_local const CountedThread counted; });
        board.subscribe({"600000.SH"_s, "IF2512.CFE"_s});
        if (i % 2 == 1) { // the others go before, or while, their first quotes come
            ASSERT_TRUE(eventually([&] { return !board.snapshot("IF2512.CFE"_s).isEmpty(); }));
        }
    }
    EXPECT_GE(CountedThread::begun, 25);
    EXPECT_EQ(CountedThread::begun, CountedThread::ended);
}

QStringList pricesOf(PriceWalk walk, quint32 seed, int count)
{
    std::mt19937 random(seed);
    QStringList prices;
    for (int i = 0; i < count; ++i) {
        prices.append(walk.next(random));
    }
    return prices;
}

TEST(PriceWalkTest, SeedGivesTheSamePricesEveryTime)
{
    const PriceWalk walk({{"LastPx"_s, "10.00"_s}}, 2);
    EXPECT_EQ(pricesOf(walk, 7, 100), pricesOf(walk, 7, 100));
    EXPECT_NE(pricesOf(walk, 7, 100), pricesOf(walk, 8, 100));
}

TEST(PriceWalkTest, PricesStayWithinTheLimitsOfTheDay)
{
    const PriceWalk walk({{"LastPx"_s, "10.99"_s}, {"MaxPx"_s, "11.00"_s}, {"MinPx"_s, "10.98"_s}}, 2);
    for (const QString& price : pricesOf(walk, 7, 1000)) {
        EXPECT_TRUE(price == "10.98"_s || price == "10.99"_s || price == "11.00"_s) << price.toStdString();
    }
}

TEST(PriceWalkTest, PricesStayAroundTheStartByOneOrTwoTicksAtATime)
{
    double before = 3900.2;
    for (const QString& price : pricesOf(PriceWalk({{"LastPx"_s, "3900.2"_s}}, 1), 7, 10000)) {
        EXPECT_EQ(price.section(QLatin1Char('.'), 1).size(), 1) << price.toStdString();
        EXPECT_LE(qAbs(price.toDouble() - before), 0.2 + 1e-9);
        EXPECT_LE(qAbs(price.toDouble() - 3900.2), 3900.2 * 0.02 + 0.1);
        before = price.toDouble();
    }
}

TEST(PriceWalkTest, PriceNeverFallsToZero)
{
    for (const QString& price : pricesOf(PriceWalk({{"LastPx"_s, "0.01"_s}}, 2), 7, 1000)) {
        EXPECT_GT(price.toDouble(), 0);
    }
}

TEST(PriceWalkTest, NothingMovesWithoutALastPriceOrWithoutRoom)
{
    EXPECT_FALSE(PriceWalk({{"PreClosePx"_s, "12.5"_s}}, 2).canMove());
    EXPECT_FALSE(PriceWalk({{"LastPx"_s, "0"_s}}, 2).canMove());
    EXPECT_FALSE(PriceWalk({{"LastPx"_s, "11"_s}, {"MaxPx"_s, "11"_s}, {"MinPx"_s, "11"_s}}, 2).canMove());
    EXPECT_FALSE(PriceWalk({{"LastPx"_s, "20"_s}, {"MaxPx"_s, "11"_s}}, 2).canMove());
    EXPECT_FALSE(PriceWalk({{"LastPx"_s, "1e300"_s}}, 2).canMove()) << "more ticks than can be told apart";
    EXPECT_FALSE(PriceWalk({{"LastPx"_s, "0.004"_s}}, 2).canMove()) << "less than a tick";
    EXPECT_FALSE(PriceWalk({{"LastPx"_s, "10.005"_s}}, 2).canMove()) << "between two ticks";
    EXPECT_TRUE(PriceWalk({{"LastPx"_s, "1234.57"_s}}, 2).canMove());
    EXPECT_TRUE(PriceWalk({{"LastPx"_s, "10"_s}, {"MaxPx"_s, "1e300"_s}}, 2).canMove());
    EXPECT_TRUE(PriceWalk({{"LastPx"_s, "10"_s}}, 2).canMove());
}

} // namespace
