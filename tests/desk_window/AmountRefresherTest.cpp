#include "desk/window/AmountRefresher.h"

#include "embedded_host/quotes/QuoteBoard.h"
#include "tests/desk_window/DeskWindowFixture.h"

#include <QSignalSpy>

class AmountRefresherTest : public DeskWindowFixture {
protected:
    AmountRefresher& amounts() { return *window->importPage()->amounts(); }
    void moveQuotes() { emit host->quotes().quotesChanged({"600000.SH"_s}); }
};

TEST_F(AmountRefresherTest, PricesAfterAMoveOnceTheUsersHandsAreStill)
{
    open();
    drop(writeFile({row()}));
    amounts().setPace({0, 0});
    QSignalSpy refreshed(&amounts(), &AmountRefresher::refreshed);
    moveQuotes();
    EXPECT_TRUE(refreshed.wait(2000));
}

TEST_F(AmountRefresherTest, PricesOnceForManyMovesWithinItsInterval)
{
    open();
    amounts().setPace({300, 0});
    QSignalSpy refreshed(&amounts(), &AmountRefresher::refreshed);
    amounts().refreshNow();
    for (int move = 0; move < 20; ++move) {
        moveQuotes();
    }
    QApplication::processEvents();
    EXPECT_EQ(refreshed.size(), 1) << "only the one asked for";
    EXPECT_TRUE(refreshed.wait(2000));
    EXPECT_EQ(refreshed.size(), 2);
    QTest::qWait(400);
    EXPECT_EQ(refreshed.size(), 2) << "nothing moved since";
}

TEST_F(AmountRefresherTest, RestsWhileAnotherPageIsInFront)
{
    open();
    amounts().setPace({20, 0});
    window->showPage(DeskWindow::QuotesPageIndex);
    QSignalSpy refreshed(&amounts(), &AmountRefresher::refreshed);
    moveQuotes();
    QTest::qWait(150);
    EXPECT_EQ(refreshed.size(), 0);
    window->showPage(DeskWindow::ImportPageIndex);
    EXPECT_TRUE(refreshed.wait(2000)) << "and catches up";
}

TEST_F(AmountRefresherTest, WaitsUntilTheUserStopsTyping)
{
    open();
    amounts().setPace({0, 400});
    QSignalSpy refreshed(&amounts(), &AmountRefresher::refreshed);
    QTest::keyClick(window.get(), Qt::Key_Shift);
    moveQuotes();
    QTest::qWait(150);
    EXPECT_EQ(refreshed.size(), 0);
    EXPECT_TRUE(refreshed.wait(2000));
}
