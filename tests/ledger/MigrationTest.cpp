#include "ledger/store/LedgerSchema.h"
#include "ledger/store/SqliteFile.h"
#include "tests/ledger/SampleDrafts.h"

#include <gtest/gtest.h>

#include <QFile>
#include <QSqlQuery>
#include <QTemporaryDir>

using namespace ledger;

namespace {

/// A ledger as version 1 of the program left it: one batch of one instance.
class VersionOneLedger {
public:
    VersionOneLedger()
    {
        SqliteFile file(Ledger::pathIn(home()));
        file.open(SqliteFile::Mode::Write);
        file.prepareForWriting(0);
        EXPECT_FALSE(migrate(file.database(), 1).isValid());
        run(file,
            "INSERT INTO batch VALUES (1, '6f2c2f0e-2a55-4a1c-9a5e-0d5f1f0c7b11', '旧.csv', '', '1001', "
            "'AITWAP', 1, 5, 0, 1762135200000, 'trader', 'created')"_s);
        run(file,
            "INSERT INTO instance VALUES (1, 1, '1001', 'AITWAP', 'created', 1762135200000, '{\"a\":\"b\"}')"_s);
        run(file, "INSERT INTO instance_leg VALUES (1, 1, 1, '600000.SH', 'Buy', 100, 0, 0)"_s);
        run(file, "UPDATE ledger_number SET value = 1 WHERE name = 'last_batch'"_s);
    }

    QString home() const { return mFolder.path(); }

private:
    static void run(const SqliteFile& file, const QString& statement)
    {
        QSqlQuery query(file.database());
        EXPECT_TRUE(query.exec(statement)) << statement.toStdString();
    }

    QTemporaryDir mFolder;
};

} // namespace

TEST(Migration, KeepsTheBatchesOfAnOlderLedger)
{
    const VersionOneLedger old;
    const auto opened = Ledger::open(old.home());
    ASSERT_EQ(opened.error, QString());
    const Batch batch = opened.value->batch(1).value;
    EXPECT_EQ(batch.fileName, "旧.csv"_s);
    EXPECT_EQ(batch.createdAt.toMSecsSinceEpoch(), 1762135200000);
    const QList<Instance> instances = opened.value->instances(1).value;
    ASSERT_EQ(instances.size(), 1);
    EXPECT_EQ(instances.first().parameters.value("a"_s).toString(), "b"_s);
    EXPECT_EQ(instances.first().legs.size(), 1);
}

TEST(Migration, LetsAnOlderLedgerTakeNewBatches)
{
    const VersionOneLedger old;
    const auto opened = Ledger::open(old.home());
    const Outcome<Batch> created = opened.value->createBatch(sampleDraft(2));
    ASSERT_EQ(created.error, QString());
    EXPECT_EQ(created.value.number, 2);
    EXPECT_EQ(opened.value->tableOf(2).value.rows.size(), 2);
}

TEST(Migration, SaysThatAnOldBatchHasNoTableToCompareWith)
{
    const VersionOneLedger old;
    const auto opened = Ledger::open(old.home());
    EXPECT_TRUE(opened.value->tableOf(1).error.contains("没有保存导入表"_s));
}

TEST(Migration, IsNotDoneByAReader)
{
    const VersionOneLedger old;
    const auto opened = openToRead(old.home());
    EXPECT_TRUE(opened.error.contains("旧版本"_s)) << opened.error.toStdString();
    EXPECT_EQ(Ledger::open(old.home()).error, QString());
    EXPECT_EQ(openToRead(old.home()).error, QString());
}

TEST(Migration, LeavesEverythingAsItWasWhereItFails)
{
    const VersionOneLedger old;
    const QString path = Ledger::pathIn(old.home());
    {
        SqliteFile file(path);
        file.open(SqliteFile::Mode::Write);
        QSqlQuery(file.database()).exec("CREATE TABLE batch_table (in_the_way INTEGER)"_s);
    }
    const auto opened = Ledger::open(old.home());
    EXPECT_TRUE(opened.error.contains(path));
    SqliteFile file(path);
    file.open(SqliteFile::Mode::Read);
    EXPECT_EQ(versionOf(file.database()), 1);
    QSqlQuery columns(file.database());
    EXPECT_FALSE(columns.exec("SELECT row_key FROM instance"_s)) << "half of the migration stayed";
}

TEST(Migration, OfALedgerOfANewerProgramIsRefused)
{
    SampleLedger ledger;
    ledger->createBatch(sampleDraft(1));
    ledger.close();
    {
        SqliteFile file(ledger.path());
        file.open(SqliteFile::Mode::Write);
        QSqlQuery(file.database())
            .exec("UPDATE ledger_number SET value = 99 WHERE name = 'schema_version'"_s);
    }
    for (const QString& error : {ledger.reopen(), openToRead(ledger.home()).error}) {
        EXPECT_TRUE(error.contains(ledger.path())) << error.toStdString();
        EXPECT_TRUE(error.contains("版本 99"_s)) << error.toStdString();
    }
    SqliteFile file(ledger.path());
    file.open(SqliteFile::Mode::Read);
    EXPECT_EQ(versionOf(file.database()), 99);
}

TEST(Migration, RunsInATransactionOfItsOwnOrNotAtAll)
{
    QTemporaryDir home;
    SqliteFile file(Ledger::pathIn(home.path()));
    file.open(SqliteFile::Mode::Write);
    ASSERT_TRUE(file.database().transaction());
    EXPECT_TRUE(migrate(file.database()).isValid());
    EXPECT_EQ(versionOf(file.database()), 0);
}
