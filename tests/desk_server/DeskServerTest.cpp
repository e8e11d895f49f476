#include "desk/window/BatchesPage.h"
#include "desk/window/InstancesPage.h"
#include "desk/window/LedgerWatch.h"
#include "tests/desk_window/DeskWindowFixture.h"
#include "tests/ledger_server/TestServer.h"
#include "tests/support/Eventually.h"
#include "tests/support/WarningGuard.h"

#include <QProcess>
#include <QSignalSpy>

/// The real window on a ledger of a real server, beside programs on other desks.
class DeskOnServer : public DeskWindowFixture {
protected:
    /// What another desk did is seen after so long, and when a connection was lost after the pauses, too.

    DeskOnServer() : mServer(TestServer::instance()), mDatabase(mServer.makeLedger())
    {
        mServer.makeLogin("trader"_s);
        books.address = mServer.address(mDatabase, "trader"_s);
        books.home = home.path();
    }

    void openOnServer()
    {
        const auto opened = ledger::Ledger::open(books.address);
        books.ledger = opened.value;
        books.ledgerError = opened.error;
        open();
        window->showPage(DeskWindow::InstancesPageIndex);
    }

    /// Another program creates a batch of three rows, and has said so.
    void createElsewhere(int file)
    {
        QProcess desk;
        const QString number = QString::number(file);
        desk.start(QStringLiteral(SERVER_VICTIM),
                   {books.address.shown(), "0"_s, "1"_s, number, number, "1000000000"_s});
        ASSERT_TRUE(desk.waitForFinished());
        EXPECT_TRUE(desk.readAllStandardOutput().contains("created"))
            << desk.readAllStandardError().constData();
    }

    int rowsOf(const FilteredTable* table) const { return table->shownRows().size() - 1; }
    bool areShown(int batches, int instances) const
    {
        return rowsOf(window->batchesPage()->table()) == batches &&
               rowsOf(window->instancesPage()->table()) == instances;
    }
    bool isSaidToBeLost() { return child<QLabel>("label_ledgerLost")->isVisible(); }

    /// Qt's driver goes on listening for a moment on a connection that the server has closed.
    void TearDown() override
    {
        const QStringList warnings = WarningGuard::take();
        for (const QString& warning : warnings) {
            EXPECT_TRUE(warning.startsWith("QSocketNotifier: Invalid socket"_s)) << warning.toStdString();
        }
        DeskWindowFixture::TearDown();
    }

    TestServer& mServer;
    const QString mDatabase;
};

TEST_F(DeskOnServer, ShowsWhatAnotherProcessCreates)
{
    openOnServer();
    EXPECT_TRUE(areShown(0, 0));
    for (int file = 1; file <= 3; ++file) {
        createElsewhere(file);
        EXPECT_TRUE(eventually([&] { return areShown(file, 3 * file); })) << file;
    }
    EXPECT_FALSE(isSaidToBeLost());
}

TEST_F(DeskOnServer, GoesOnAfterItsConnectionsWereEnded)
{
    openOnServer();
    createElsewhere(1);
    ASSERT_TRUE(eventually([&] { return areShown(1, 3); }));
    mServer.run(mDatabase,
                "SELECT pg_terminate_backend(pid) FROM pg_stat_activity WHERE usename = 'trader'"_s);
    createElsewhere(2);
    EXPECT_TRUE(eventually([&] { return areShown(2, 6); }));
    EXPECT_TRUE(eventually([&] { return !isSaidToBeLost(); }));
}

TEST_F(DeskOnServer, KeepsTheScreenWhileTheServerIsAwayAndTriesAgainAfterGrowingPauses)
{
    openOnServer();
    createElsewhere(1);
    ASSERT_TRUE(eventually([&] { return areShown(1, 3); }));
    QSignalSpy lost(window->findChild<LedgerWatch*>(), &LedgerWatch::lost);
    mServer.stop();
    EXPECT_TRUE(eventually([&] { return lost.size() >= 3; }));
    EXPECT_TRUE(isSaidToBeLost());
    EXPECT_TRUE(areShown(1, 3)) << "the screen is kept";
    QList<int> pauses;
    for (const QList<QVariant>& told : qAsConst(lost)) {
        EXPECT_FALSE(told.first().toString().isEmpty());
        pauses.append(told.at(1).toInt());
    }
    EXPECT_EQ(pauses.mid(0, 3), QList<int>({1, 2, 4}));

    mServer.start();
    EXPECT_TRUE(eventually([&] { return !isSaidToBeLost(); }));
    createElsewhere(2);
    EXPECT_TRUE(eventually([&] { return areShown(2, 6); }));
    drop(writeFile({row()}));
    pressConfirm();
    EXPECT_TRUE(areShown(3, 7)) << message().toStdString();
}

TEST_F(DeskOnServer, ComesToTheServerThatWasAwayWhenItWasOpened)
{
    createElsewhere(1);
    mServer.stop();
    openOnServer();
    EXPECT_EQ(books.ledger, nullptr);
    EXPECT_FALSE(books.ledgerError.isEmpty());
    EXPECT_TRUE(areShown(0, 0));
    EXPECT_TRUE(eventually([&] { return isSaidToBeLost(); }));
    mServer.start();
    EXPECT_TRUE(eventually([&] { return areShown(1, 3); }));
    drop(writeFile({row()}));
    pressConfirm();
    EXPECT_TRUE(areShown(2, 4)) << message().toStdString();
}
