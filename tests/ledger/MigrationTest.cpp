#include "tests/ledger/SampleDrafts.h"

#include <gtest/gtest.h>

#include <QSqlDatabase>
#include <QSqlQuery>
#include <QTemporaryDir>

using namespace ledger;

namespace {

/// A connection of another program.
class OldProgram {
public:
    explicit OldProgram(const QString& path) : mDatabase(QSqlDatabase::addDatabase("QSQLITE"_s, "old"_s))
    {
        mDatabase.setDatabaseName(path);
        EXPECT_TRUE(mDatabase.open());
    }
    ~OldProgram()
    {
        mDatabase = QSqlDatabase();
        QSqlDatabase::removeDatabase("old"_s);
    }
    OldProgram(const OldProgram&) = delete;
    OldProgram& operator=(const OldProgram&) = delete;

    bool run(const QString& statement)
    {
        const bool done = QSqlQuery(mDatabase).exec(statement);
        return done;
    }
    QVariant single(const QString& statement)
    {
        QSqlQuery query(mDatabase);
        return query.exec(statement) && query.next() ? query.value(0) : QVariant();
    }

private:
    QSqlDatabase mDatabase;
};

const QStringList VersionOne{
    "PRAGMA application_id = 1094863180"_s,
    "PRAGMA journal_mode = WAL"_s,
    "CREATE TABLE ledger_number (name VARCHAR(40) NOT NULL PRIMARY KEY, value BIGINT NOT NULL)"_s,
    "INSERT INTO ledger_number (name, value) VALUES ('schema_version', 1)"_s,
    "INSERT INTO ledger_number (name, value) VALUES ('last_batch', 1)"_s,
    "CREATE TABLE batch (number BIGINT NOT NULL PRIMARY KEY, draft_id VARCHAR(36) NOT NULL UNIQUE, "
    "file_name TEXT NOT NULL, file_sha256 VARCHAR(64) NOT NULL, account TEXT NOT NULL, strategy TEXT NOT "
    "NULL, "
    "row_count INTEGER NOT NULL, expected_buy DOUBLE PRECISION NOT NULL, expected_sell DOUBLE PRECISION NOT "
    "NULL, "
    "created_at BIGINT NOT NULL, created_by TEXT NOT NULL, state VARCHAR(20) NOT NULL)"_s,
    "CREATE INDEX batch_by_account ON batch (account, created_at)"_s,
    "CREATE TABLE instance (batch_number BIGINT NOT NULL REFERENCES batch (number), row_no INTEGER NOT NULL, "
    "account TEXT NOT NULL, strategy TEXT NOT NULL, state VARCHAR(20) NOT NULL, changed_at BIGINT NOT NULL, "
    "parameters TEXT NOT NULL, PRIMARY KEY (batch_number, row_no))"_s,
    "CREATE TABLE instance_leg (batch_number BIGINT NOT NULL, row_no INTEGER NOT NULL, leg_no INTEGER NOT "
    "NULL, "
    "symbol TEXT NOT NULL, direction TEXT NOT NULL, quantity DOUBLE PRECISION NOT NULL, "
    "limit_price DOUBLE PRECISION NOT NULL, amount DOUBLE PRECISION NOT NULL, "
    "PRIMARY KEY (batch_number, row_no, leg_no), "
    "FOREIGN KEY (batch_number, row_no) REFERENCES instance (batch_number, row_no))"_s,
    "CREATE INDEX leg_by_symbol ON instance_leg (symbol)"_s,
    "INSERT INTO batch VALUES (1, '6f2c2f0e-2a55-4a1c-9a5e-0d5f1f0c7b11', '旧.csv', '', '1001', "
    "'AITWAP', 1, 5.25, 0, 1762135200000, 'trader', 'created')"_s,
    "INSERT INTO instance VALUES (1, 1, '1001', 'AITWAP', 'created', 1762135200000, '{\"a\":\"b\"}')"_s,
    "INSERT INTO instance_leg VALUES (1, 1, 1, '600000.SH', 'Buy', 100, 10.1, 1010)"_s};

const QStringList VersionTwo{
    "ALTER TABLE instance ADD COLUMN row_key VARCHAR(64) NOT NULL DEFAULT ''"_s,
    "CREATE TABLE batch_table (batch_number BIGINT NOT NULL PRIMARY KEY REFERENCES batch (number), "
    "column_names TEXT NOT NULL, row_texts TEXT NOT NULL)"_s,
    "INSERT INTO batch_table VALUES (1, '[\"A\"]', '[[\"x\"]]')"_s,
    "UPDATE ledger_number SET value = 2 WHERE name = 'schema_version'"_s};

/// A ledger as an older program left it: one batch of one instance.
class OldLedger {
public:
    explicit OldLedger(int version)
    {
        OldProgram program(path());
        for (const QString& statement : version == 1 ? VersionOne : VersionOne + VersionTwo) {
            EXPECT_TRUE(program.run(statement)) << statement.toStdString();
        }
    }

    QString home() const { return mFolder.path(); }
    QString path() const { return Ledger::pathIn(home()); }

private:
    QTemporaryDir mFolder;
};

} // namespace

TEST(Migration, KeepsTheBatchesOfAnOlderLedger)
{
    for (const int version : {1, 2}) {
        const OldLedger old(version);
        const auto opened = openIn(old.home());
        ASSERT_EQ(opened.error, QString());
        const Batch batch = opened.value->batch(1).value;
        EXPECT_EQ(batch.fileName, "旧.csv"_s);
        EXPECT_EQ(batch.createdAt.toMSecsSinceEpoch(), 1762135200000);
        EXPECT_EQ(batch.expectedBuy, 5.25_d);
        const QList<Instance> instances = opened.value->instancesOf(1).value;
        ASSERT_EQ(instances.size(), 1);
        EXPECT_EQ(instances.first().parameters.value("a"_s).toString(), "b"_s);
        ASSERT_EQ(instances.first().legs.size(), 1);
        EXPECT_EQ(instances.first().legs.first().limitPrice, 10.1_d);
        EXPECT_EQ(opened.value->tableOf(1).ok(), version == 2);
        EXPECT_EQ(opened.value->verify(), QString());
    }
}

TEST(Migration, CountsTheOldBatchesOfTheDayAgainstItsCeilings)
{
    const OldLedger old(2);
    Ledger::Options options;
    options.clock = [] { return QDateTime::fromMSecsSinceEpoch(1762135260000, Qt::UTC); };
    const auto opened = openIn(old.home(), options);
    const AccountDay day = opened.value->standingOf(sampleDraft(1)).value.day;
    EXPECT_EQ(day.buy, 1010);
    EXPECT_EQ(day.sell, 0);
    EXPECT_EQ(day.batches, 1);
    EXPECT_EQ(day.instances, 1);
}

TEST(Migration, LetsAnOlderLedgerTakeNewBatches)
{
    const OldLedger old(1);
    const auto opened = openIn(old.home());
    const Outcome<Batch> created = opened.value->createBatch(sampleDraft(2));
    ASSERT_EQ(created.error, QString());
    EXPECT_EQ(created.value.number, 2);
    EXPECT_EQ(opened.value->tableOf(2).value.rows.size(), 2);
}

TEST(Migration, SaysThatAnOldBatchHasNoTableToCompareWith)
{
    const OldLedger old(1);
    const auto opened = openIn(old.home());
    EXPECT_TRUE(opened.value->tableOf(1).error.contains("没有保存导入表"_s));
}

TEST(Migration, GivesAnOlderLedgerTodaysIndexesAndDays)
{
    const QString indexes = "SELECT group_concat(sql, ';') FROM (SELECT sql FROM sqlite_master "
                            "WHERE type = 'index' AND sql IS NOT NULL ORDER BY name)"_s;
    SampleLedger ledger;
    ledger->createBatch(sampleDraft(1));
    ledger.close();
    const QString ofToday = OldProgram(ledger.path()).single(indexes).toString();
    EXPECT_TRUE(ofToday.contains("batch_by_day"_s));
    {
        OldProgram third(ledger.path());
        for (const QString& index : {"batch_by_session"_s, "batch_by_day"_s, "batch_by_state"_s,
                                     "instance_by_key"_s, "account_day_by_day"_s}) {
            EXPECT_TRUE(third.run("DROP INDEX "_s + index)) << index.toStdString();
        }
        EXPECT_TRUE(third.run("ALTER TABLE instance DROP COLUMN day"_s));
        EXPECT_TRUE(third.run("ALTER TABLE batch DROP COLUMN file_edits"_s));
        EXPECT_TRUE(third.run("CREATE INDEX batch_by_state ON batch (state, account, number)"_s));
        EXPECT_TRUE(third.run("CREATE INDEX instance_by_key ON instance (account, row_key, batch_number)"_s));
        EXPECT_TRUE(third.run("UPDATE ledger_number SET value = 3 WHERE name = 'schema_version'"_s));
    }
    EXPECT_EQ(ledger.reopen(), QString());
    EXPECT_EQ(ledger->batch(1).value.rowCount, 1);
    EXPECT_EQ(ledger->standingOf(sampleDraft(1)).value.duplicates.size(), 1) << "the day of the rows";
    EXPECT_EQ(OldProgram(ledger.path()).single(indexes).toString(), ofToday);
    for (const int version : {1, 2}) {
        const OldLedger old(version);
        EXPECT_EQ(openIn(old.home()).error, QString());
        EXPECT_EQ(OldProgram(old.path()).single(indexes).toString(), ofToday) << version;
    }
}

TEST(Migration, IsNotDoneByAReader)
{
    const OldLedger old(2);
    const auto opened = openToRead(old.home());
    EXPECT_TRUE(opened.error.contains("旧版本"_s)) << opened.error.toStdString();
    EXPECT_EQ(openIn(old.home()).error, QString());
    EXPECT_EQ(openToRead(old.home()).error, QString());
}

TEST(Migration, LeavesEverythingAsItWasWhereItFails)
{
    const OldLedger old(1);
    OldProgram(old.path()).run("CREATE TABLE halt (in_the_way INTEGER)"_s);
    EXPECT_TRUE(openIn(old.home()).error.contains(old.path()));
    OldProgram program(old.path());
    EXPECT_EQ(program.single("SELECT value FROM ledger_number WHERE name = 'schema_version'"_s).toInt(), 1);
    EXPECT_EQ(program.single("SELECT COUNT(*) FROM batch"_s).toInt(), 1);
    EXPECT_FALSE(program.run("SELECT row_key FROM instance"_s)) << "half of the migration stayed";
}

TEST(Migration, OfALedgerOfANewerProgramIsRefused)
{
    SampleLedger ledger;
    ledger->createBatch(sampleDraft(1));
    ledger.close();
    OldProgram(ledger.path()).run("UPDATE ledger_number SET value = 99 WHERE name = 'schema_version'"_s);
    for (const QString& error : {ledger.reopen(), openToRead(ledger.home()).error}) {
        EXPECT_TRUE(error.contains(ledger.path())) << error.toStdString();
        EXPECT_TRUE(error.contains("版本 99"_s)) << error.toStdString();
    }
}

TEST(Migration, OfALedgerWithoutASoundVersionIsRefused)
{
    for (const QString& spoil :
         {"UPDATE ledger_number SET value = -5 WHERE name = 'schema_version'"_s,
          "UPDATE ledger_number SET value = 0 WHERE name = 'schema_version'"_s,
          "DELETE FROM ledger_number WHERE name = 'schema_version'"_s, "DROP TABLE ledger_number"_s}) {
        SampleLedger ledger;
        ledger->createBatch(sampleDraft(1));
        ledger.close();
        OldProgram(ledger.path()).run(spoil);
        for (const QString& error : {ledger.reopen(), openToRead(ledger.home()).error}) {
            EXPECT_TRUE(error.contains("没有有效的版本号"_s)) << error.toStdString();
        }
        EXPECT_EQ(OldProgram(ledger.path()).single("SELECT COUNT(*) FROM batch"_s).toInt(), 1);
    }
}
