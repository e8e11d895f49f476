// Eight desks on one server, left alone and in trouble.
//
// LEDGER_SERVER_TRIALS=full: 2,000 creations, 200 kills, 100 terminations, 20 restarts, instead of a tenth of
// them.

#include "tests/ledger/SampleDrafts.h"
#include "tests/ledger_server/Desks.h"
#include "tests/ledger_server/TestServer.h"
#include "tests/ledger_server/Workload.h"

#include <gtest/gtest.h>

#include <QElapsedTimer>

#include <random>

using namespace ledger;

namespace {

constexpr int DeskCount = 8;
constexpr int Minute = 60000;

int scaled(int full)
{
    return qgetenv("LEDGER_SERVER_TRIALS") == "full" ? full : full / 10;
}

Decimal sumOfFiles(int files)
{
    Decimal sum;
    for (int file = 1; file <= files; ++file) {
        sum += amountOfFile(file);
    }
    return sum;
}

/// A ceiling of so many per cent of the files, held by the desks and, all the same, by the server.
Decimal ceilingOf(const QString& database, int files, int perCent)
{
    const Decimal ceiling =
        sumOfFiles(files) * Decimal::fromText("0.%1"_s.arg(perCent, 2, 10, QLatin1Char('0')));
    const QString statement = "INSERT INTO ledger_limit (max_day_buy) VALUES (%1)"_s.arg(ceiling.text());
    EXPECT_EQ(TestServer::instance().run(database, statement), QString());
    return ceiling;
}

QString addressOf(const QString& database)
{
    TestServer::instance().makeLogin("trader"_s);
    return TestServer::instance().address(database, "trader"_s).shown();
}

/// Never above the ceiling, and so near that no file that was refused would still fit.
void expectReached(const QString& database, const Desks& desks, int files, const Decimal& ceiling)
{
    Decimal sum;
    std::optional<Decimal> least;
    for (int file = 1; file <= files; ++file) {
        if (desks.created.contains(file)) {
            sum += amountOfFile(file);
        } else if (!least || amountOfFile(file) < *least) {
            least = amountOfFile(file);
        }
    }
    const Decimal kept = Decimal::fromText(
        TestServer::instance().single(database, "SELECT buy::text FROM account_day"_s).toString());
    EXPECT_EQ(kept, sum);
    EXPECT_TRUE(sum <= ceiling) << sum.text().toStdString() << " of " << ceiling.text().toStdString();
    ASSERT_TRUE(least.has_value()) << "nothing was refused";
    EXPECT_FALSE(sum + *least <= ceiling)
        << "a file of " << least->text().toStdString() << " would still fit";
}

} // namespace

TEST(EightDesksAtOnce, CreateEachFileOnceAndMeetTheDaysCeilingTogether)
{
    const QString database = TestServer::instance().makeLedger();
    const int files = scaled(1000); // each is tried by two desks
    const Decimal ceiling = ceilingOf(database, files, 70);
    Desks desks(addressOf(database), DeskCount, files, ceiling);
    QElapsedTimer watch;
    watch.start();
    desks.startAll();
    ASSERT_TRUE(desks.work(10 * Minute));
    const qint64 elapsed = watch.elapsed();
    expectSoundAfter(TestServer::instance().address(database, "trader"_s), desks);
    expectReached(database, desks, files, ceiling);
    EXPECT_GT(desks.duplicates, 0);
    std::printf("%d attempts, %d created, %d refused as duplicates, %lld ms\n", 2 * files,
                desks.created.size(), desks.duplicates, static_cast<long long>(elapsed));
}

TEST(DesksKilledAtAnyMoment, LoseNothingAndCreateNothingTwice)
{
    const QString database = TestServer::instance().makeLedger();
    const int files = scaled(1000);
    const Decimal ceiling = ceilingOf(database, files, 99);
    Desks desks(addressOf(database), DeskCount, files, ceiling);
    std::mt19937 random(20251103);
    std::uniform_int_distribution<int> pause(5, 120);
    std::uniform_int_distribution<int> any(0, DeskCount - 1);
    desks.startAll();
    int kills = 0;
    while (kills < scaled(200)) {
        desks.work(pause(random));
        desks.kill(any(random));
        ++kills;
    }
    ASSERT_TRUE(desks.work(10 * Minute));
    expectSoundAfter(TestServer::instance().address(database, "trader"_s), desks);
    expectReached(database, desks, files, ceiling);
    std::printf("%d kills, %d created\n", kills, desks.created.size());
}

TEST(SessionsEndedByTheServer, LoseNothingAndCreateNothingTwice)
{
    const QString database = TestServer::instance().makeLedger();
    const int files = scaled(1000);
    const Decimal ceiling = ceilingOf(database, files, 99);
    Desks desks(addressOf(database), DeskCount, files, ceiling);
    std::mt19937 random(20251104);
    std::uniform_int_distribution<int> pause(5, 60);
    desks.startAll();
    int ended = 0;
    bool isThrough = false;
    while (ended < scaled(100) && !isThrough) {
        isThrough = desks.work(pause(random));
        const QString statement = "SELECT pg_terminate_backend(pid) FROM pg_stat_activity WHERE datname = "
                                  "current_database() AND usename = 'trader' ORDER BY random() LIMIT 1"_s;
        ended += TestServer::instance().single(database, statement).toBool() ? 1 : 0;
    }
    EXPECT_GE(ended, scaled(100) / 2) << "the desks were through too soon to prove anything";
    ASSERT_TRUE(desks.work(10 * Minute));
    expectSoundAfter(TestServer::instance().address(database, "trader"_s), desks);
    expectReached(database, desks, files, ceiling);
    std::printf("%d sessions ended, %d created\n", ended, desks.created.size());
}

TEST(AServerThatIsStartedAgain, LosesNothingAndCreatesNothingTwice)
{
    const QString database = TestServer::instance().makeLedger();
    const int files = scaled(2000);
    const Decimal ceiling = ceilingOf(database, files, 99);
    Desks desks(addressOf(database), DeskCount, files, ceiling);
    desks.startAll();
    int restarts = 0;
    bool isThrough = false;
    while (restarts < scaled(20) && !isThrough) {
        isThrough = desks.work(300);
        TestServer::instance().restart();
        ++restarts;
    }
    EXPECT_GT(desks.created.size(), 0);
    ASSERT_TRUE(desks.work(10 * Minute));
    expectSoundAfter(TestServer::instance().address(database, "trader"_s), desks);
    expectReached(database, desks, files, ceiling);
    std::printf("%d restarts, %d created\n", restarts, desks.created.size());
}
