// What a server's ledger is, beside what every ledger is.

#include "ledger/Outbox.h"
#include "ledger/store/PostgresStore.h"
#include "ledger/store/Schema.h"
#include "tests/ledger/SampleDrafts.h"
#include "tests/ledger_server/TestServer.h"
#include "tests/support/Eventually.h"

#include <gtest/gtest.h>

#include <QProcess>
#include <QTest>

#include <thread>

using namespace ledger;

namespace {

const QString Owner = "postgres"_s;

Outcome<std::shared_ptr<Ledger>> opened(const QString& database, const QString& user = "trader"_s)
{
    TestServer::instance().makeLogin(user);
    return Ledger::open(TestServer::instance().address(database, user));
}

QString initialised(const QString& database, const PostgresStore::Migrations& steps = {})
{
    return PostgresStore(TestServer::instance().address(database, Owner), {}).initialise(steps);
}

} // namespace

TEST(AServersLedger, IsMadeOnceAndOpenedThen)
{
    const QString database = TestServer::instance().makeDatabase();
    EXPECT_TRUE(opened(database).error.contains("algodesk ledger init"_s));
    EXPECT_EQ(initialised(database), QString());
    EXPECT_EQ(initialised(database), QString());
    EXPECT_EQ(opened(database).error, QString());
}

TEST(AServersLedger, IsMadeOnceByProgramsAtTheSameTime)
{
    const QString database = TestServer::instance().makeDatabase();
    std::vector<std::thread> programs;
    std::array<QString, 4> faults;
    for (QString& fault : faults) {
        programs.emplace_back([&fault, database] { fault = initialised(database); });
    }
    for (std::thread& program : programs) {
        program.join();
    }
    for (const QString& fault : faults) {
        EXPECT_EQ(fault, QString());
    }
}

TEST(AServersLedger, IsNotMadeAmongTheTablesOfAnother)
{
    const QString database = TestServer::instance().makeDatabase();
    EXPECT_EQ(TestServer::instance().run(database, "CREATE TABLE trades (id int)"_s), QString());
    EXPECT_TRUE(initialised(database).contains("其他程序"_s));
    EXPECT_EQ(TestServer::instance().single(database, "SELECT to_regclass('batch')::text"_s).toString(),
              QString());
}

TEST(AServersLedger, OfANewerProgramIsRefused)
{
    const QString database = TestServer::instance().makeDatabase();
    ASSERT_EQ(initialised(database), QString());
    ASSERT_EQ(initialised(database, {{"ALTER TABLE batch ADD COLUMN venue TEXT NOT NULL DEFAULT ''"_s}}),
              QString());
    EXPECT_TRUE(opened(database).error.contains("更新版本"_s));
    EXPECT_TRUE(initialised(database).contains("更新版本"_s));
}

TEST(AServersLedger, IsMigratedWhileOthersWorkOnIt)
{
    const QString database = TestServer::instance().makeDatabase();
    ASSERT_EQ(initialised(database), QString());
    TestServer::instance().run(
        database, "UPDATE ledger_number SET value = 1000000000000000 WHERE name = 'clock_tolerance'"_s);
    const auto desk = opened(database).value;
    ASSERT_TRUE(desk);
    std::atomic<bool> isMigrated{false};
    QString fault;
    std::thread administrator([&] {
        fault = initialised(database, {{"ALTER TABLE batch ADD COLUMN venue TEXT NOT NULL DEFAULT ''"_s},
                                       {"CREATE INDEX batch_by_venue ON batch (venue, account)"_s}});
        isMigrated = true;
    });
    int created = 0;
    while (!isMigrated || created < 5) {
        EXPECT_EQ(desk->createBatch(sampleDraft(1)).error, QString());
        EXPECT_EQ(desk->batch(++created).error, QString());
    }
    administrator.join();
    EXPECT_EQ(fault, QString());
    EXPECT_EQ(allBatches(*desk).value.size(), created);
    EXPECT_EQ(desk->verify(), QString());
    const QString version = "SELECT value FROM ledger_number WHERE name = 'schema_version'"_s;
    EXPECT_EQ(TestServer::instance().single(database, version).toInt(), schemaVersion() + 2);
}

/// As the program of version 3 left it.
const char* const OfVersionThree =
    "DROP INDEX batch_by_session, batch_by_day, batch_by_state, instance_by_key, account_day_by_day; "
    "ALTER TABLE instance DROP COLUMN day; "
    "ALTER TABLE batch DROP COLUMN file_edits; "
    "CREATE INDEX batch_by_state ON batch (state, account, number); "
    "CREATE INDEX instance_by_key ON instance (account, row_key, batch_number); "
    "UPDATE ledger_number SET value = 3 WHERE name = 'schema_version'";

TEST(AServersLedger, OfAnOlderProgramGetsIndexesAndDays)
{
    TestServer& server = TestServer::instance();
    const QString database = server.makeDatabase();
    ASSERT_EQ(initialised(database), QString());
    const QString indexes = "SELECT string_agg(indexdef, chr(10) ORDER BY indexname) FROM pg_indexes "
                            "WHERE schemaname = 'public'"_s;
    const QString ofToday = server.single(database, indexes).toString();
    ASSERT_EQ(opened(database).value->createBatch(sampleDraft(1)).error, QString());
    ASSERT_EQ(server.run(database, QString::fromLatin1(OfVersionThree)), QString());
    EXPECT_TRUE(opened(database).error.contains("algodesk ledger init"_s));
    EXPECT_EQ(initialised(database), QString());
    const auto desk = opened(database).value;
    ASSERT_TRUE(desk);
    EXPECT_EQ(desk->standingOf(sampleDraft(1)).value.duplicates.size(), 1) << "the day of the rows";
    EXPECT_EQ(server.single(database, indexes).toString(), ofToday);
}

/// A server takes no key for a table that is parted, unless what it is parted by is in it.
TEST(AServersTables, MayBePartedByAccountAndThenByNumber)
{
    TestServer& server = TestServer::instance();
    const QString database = server.makeDatabase();
    for (const QString& statement : tablesOfToday("NUMERIC"_s)) {
        const bool isOfAccounts =
            statement.startsWith("CREATE TABLE"_s) && statement.contains("account TEXT"_s);
        const QString parted = isOfAccounts ? statement + " PARTITION BY LIST (account)"_s : statement;
        EXPECT_EQ(server.run(database, parted), QString()) << parted.toStdString();
    }
    EXPECT_EQ(server
                  .single(database, "SELECT string_agg(relname, ' ' ORDER BY relname) FROM pg_class "
                                    "WHERE relkind = 'p'"_s)
                  .toString(),
              "account_day approval batch batch_table execution gateway halt instance instance_leg"_s);
    for (const QString& table : {"approval"_s, "batch_table"_s, "instance"_s, "instance_leg"_s}) {
        EXPECT_EQ(server.run(database, "CREATE TABLE %1_of PARTITION OF %1 FOR VALUES IN ('1001') "
                                       "PARTITION BY RANGE (batch_number)"_s.arg(table)),
                  QString());
    }
}

TEST(AServersLedger, NamesNoPasswordWhenItCannotBeReached)
{
    TestServer& server = TestServer::instance();
    Address nowhere = server.address("nowhere"_s, "trader"_s);
    const QString password = QString::fromLocal8Bit(qgetenv("PGPASSWORD"));
    for (const Address& address : {nowhere, server.address("postgres"_s, "stranger"_s)}) {
        const QString error = Ledger::open(address).error;
        EXPECT_TRUE(error.contains(address.shown())) << error.toStdString();
        EXPECT_FALSE(error.contains(password));
    }
    qputenv("PGPASSWORD", "wrong-password");
    const QString error = Ledger::open(server.address("postgres"_s, "trader"_s)).error;
    qputenv("PGPASSWORD", password.toLocal8Bit());
    EXPECT_FALSE(error.isEmpty());
    EXPECT_FALSE(error.contains("wrong-password"_s));
}

TEST(AServersLedger, IsReachedByWhicheverHostAnswers)
{
    TestServer& server = TestServer::instance();
    server.makeLogin("trader"_s);
    Address address = server.address(server.makeLedger(), "trader"_s);
    address.hosts.prepend({"127.0.0.1"_s, 1}); // nobody listens there
    const auto ledger = Ledger::open(address);
    ASSERT_EQ(ledger.error, QString());
    EXPECT_EQ(ledger.value->createBatch(sampleDraft(1)).value.number, 1);
}

TEST(AServersLedger, TellsOtherDesksOfAChange)
{
    TestServer& server = TestServer::instance();
    const QString database = server.makeLedger();
    server.makeLogin("trader"_s);
    PostgresStore watching(server.address(database, "trader"_s), {});
    ASSERT_EQ(watching.open(), QString());
    int hints = 0;
    ASSERT_TRUE(watching.listen([&] { ++hints; }));
    const auto desk = opened(database).value;
    desk->createBatch(sampleDraft(1));
    EXPECT_TRUE(eventually([&] { return hints == 1; }));
    desk->batch(1);
    EXPECT_FALSE(QTest::qWaitFor([&] { return hints > 1; }, 200)) << "nothing was changed";
}

TEST(AServersLedger, GivesTheAccountsOfASessionThatEndedToTheNextGateway)
{
    TestServer& server = TestServer::instance();
    const QString database = server.makeLedger();
    const auto first = opened(database).value;
    const auto second = opened(database).value;
    const Gateway gateway{"S"_s, {"1001"_s}, "h"_s, 1, "loggedOn"_s, {}};
    const auto held = Outbox::claim(first, gateway);
    ASSERT_EQ(held.error, QString());
    const auto refused = Outbox::claim(second, gateway);
    EXPECT_TRUE(refused.error.contains(QString::number(QCoreApplication::applicationPid())))
        << refused.error.toStdString();
    EXPECT_NE(Outbox::claim(second, {"S"_s, {}, "h"_s, 1, "loggedOn"_s, {}}).error, QString())
        << "all accounts";
    EXPECT_EQ(Outbox::claim(second, {"T"_s, {"1002"_s}, "h"_s, 1, "loggedOn"_s, {}}).error, QString());
    server.run(database,
               "SELECT pg_terminate_backend(pid, 5000) FROM pg_locks WHERE locktype = 'advisory'"_s);
    const auto taken = Outbox::claim(second, gateway);
    EXPECT_EQ(taken.error, QString());
    EXPECT_NE(held.value->take(1).error, QString()) << "its accounts are another's now";
}

TEST(AServersLedger, GoesOnAfterItsSessionWasEnded)
{
    TestServer& server = TestServer::instance();
    const QString database = server.makeLedger();
    const auto desk = opened(database).value;
    ASSERT_EQ(desk->createBatch(sampleDraft(1)).error, QString());
    const QString end =
        "SELECT pg_terminate_backend(pid) FROM pg_stat_activity WHERE datname = current_database() AND pid <> pg_backend_pid()"_s;
    server.run(database, end);
    EXPECT_EQ(desk->batch(1).error, QString());
    server.run(database, end);
    EXPECT_EQ(desk->createBatch(sampleDraft(1)).value.number, 2);
}

TEST(AServersLedger, KeepsDecimalsToTheLastDigit)
{
    TestServer& server = TestServer::instance();
    const auto desk = opened(server.makeLedger()).value;
    BatchDraft draft = sampleDraft(1);
    draft.instances[0].legs[0].quantity = 123456789012345.67_d;
    draft.instances[0].legs[0].limitPrice = 0.000123_d;
    draft.instances[0].legs[0].amount = 99999999999.99_d;
    ASSERT_EQ(desk->createBatch(draft).error, QString());
    const Leg leg = desk->instancesOf(1).value.value(0).legs.value(0);
    EXPECT_EQ(leg.quantity, 123456789012345.67_d);
    EXPECT_EQ(leg.limitPrice, 0.000123_d);
    EXPECT_EQ(desk->status().value.days.size(), 1);
    EXPECT_EQ(desk->status().value.days.value(0).buy, 99999999999.99_d);
}

TEST(AServersLedger, HasTheHashesOfAnyOther)
{
    TestServer& server = TestServer::instance();
    const QString database = server.makeLedger();
    const auto desk = opened(database).value;
    desk->createBatch(sampleDraft(2));
    desk->halt("1001"_s, "行情“异常”\\ '；"_s);
    const QString wrong =
        "SELECT count(*) FROM audit_entry e LEFT JOIN audit_entry b ON b.number = e.number - 1 WHERE e.hash "
        "<> ledger_hash(coalesce(b.hash, encode(sha256('algodesk audit 1'), 'hex')), e)"_s;
    EXPECT_EQ(server.single(database, wrong).toInt(), 0);
    EXPECT_EQ(desk->verifyAudit().value.entries, 2);
}

TEST(AServersLedger, ComesBackFromABackupWithItsRules)
{
    TestServer& server = TestServer::instance();
    const QString database = server.makeLedger();
    const auto desk = opened(database).value;
    desk->createBatch(sampleDraft(3));
    desk->halt("1001"_s, "行情异常"_s);
    const QTemporaryDir folder;
    const QString dump = folder.filePath("desk.dump"_s);
    ASSERT_EQ(QProcess::execute("pg_dump"_s, {"-Fc"_s, "-f"_s, dump, database}), 0);
    desk->resume("1001"_s, "恢复"_s);
    const QString restored = server.makeDatabase();
    ASSERT_EQ(QProcess::execute("pg_restore"_s, {"--exit-on-error"_s, "-d"_s, restored, dump}), 0);
    const auto again = opened(restored).value;
    ASSERT_TRUE(again);
    EXPECT_EQ(again->verify(), QString());
    EXPECT_EQ(again->verifyAudit().value.head, desk->audit(2).value.value(0).hash);
    EXPECT_EQ(again->status().value.halts.size(), 1);
    EXPECT_NE(again->createBatch(sampleDraft(1)).error, QString()) << "halted, as it was then";
    EXPECT_EQ(server.codeOf(restored, "trader"_s, "DELETE FROM batch"_s), "42501"_s);
    EXPECT_EQ(server.codeOf(restored, Owner, "DELETE FROM audit_entry"_s), "AL001"_s);
}
