#include "tests/runner/RunnerTest.h"

#include <QDir>
#include <QFile>
#include <QJsonArray>
#include <QSqlDatabase>
#include <QSqlQuery>

/// Which ledger a command works on, how long it waits for it, and how a ledger is kept.
class LedgerPlace : public RunnerTest {
protected:
    void TearDown() override
    {
        QSqlDatabase::removeDatabase("other"_s);
        RunnerTest::TearDown();
    }

    int batchesIn(const QStringList& more)
    {
        return run(QStringList{"batches"_s} + more).json().array().size();
    }
    QString other() const { return folder() + "/other.sqlite"_s; }
    QString backup() const { return folder() + "/backup.sqlite"_s; }

    /// Another program that begins to change the home's ledger, and goes on with it.
    QSqlDatabase writer()
    {
        QSqlDatabase database = QSqlDatabase::addDatabase("QSQLITE"_s, "other"_s);
        database.setDatabaseName(home() + "/ledger.sqlite"_s);
        EXPECT_TRUE(database.open() && QSqlQuery(database).exec("BEGIN IMMEDIATE"_s));
        return database;
    }

    void expectComplaint(const Run& run, const QString& reason)
    {
        EXPECT_EQ(1, run.status);
        expectValid(run.object(), "error.schema.json"_s);
        const QString error = run.object()["error"_s].toString();
        EXPECT_TRUE(error.contains(reason)) << error.toStdString();
    }
};

TEST_F(LedgerPlace, IsTheOneThatIsNamedElseTheEnvironmentsElseTheHomes)
{
    const QString file = table(goodRow());
    ASSERT_EQ(0, create(file).status);
    ASSERT_EQ(0, create(table("000001,SZ,200,1,0,7\n", "others.csv"_s), {"--ledger"_s, other()}).status);
    ASSERT_EQ(0, create(file, {"--ledger"_s, other()}).status) << "that ledger knows nothing of the file";
    EXPECT_EQ(1, batchesIn({"--home"_s, home()}));
    EXPECT_EQ(2, batchesIn({"--home"_s, home(), "--ledger"_s, other()}));
    const QMap<QString, QString> environment = {{"ALGODESK_LEDGER"_s, other()}};
    EXPECT_EQ(2, run({"batches"_s, "--home"_s, home()}, environment).json().array().size());
    const QString homes = home() + "/ledger.sqlite"_s;
    EXPECT_EQ(1, run({"batches"_s, "--ledger"_s, homes}, environment).json().array().size());
}

TEST_F(LedgerPlace, IsRefusedWhereItsAddressIsNone)
{
    const Run secret = atHome({"batches"_s, "--ledger"_s, "postgresql://a:hush@db/desk"_s});
    expectRefused(secret, "密码"_s);
    EXPECT_FALSE(secret.err.contains("hush"));
    expectRefused(atHome({"batches"_s, "--ledger"_s, "mysql://db/desk"_s}), "地址"_s);
    expectRefused(run({"batches"_s}, {{"ALGODESK_LEDGER"_s, "mysql://db/desk"_s}}), "地址"_s);
    for (const QString& seconds : {"-1"_s, "soon"_s, "1.5"_s, "9999"_s}) {
        expectRefused(atHome({"batches"_s, "--wait"_s, seconds}), seconds);
    }
}

TEST_F(LedgerPlace, IsWaitedForBeforeAChange)
{
    ASSERT_EQ(0, create(table("600000,SH,1000,1,0,0\n")).status);
    QSqlDatabase other = writer();
    expectComplaint(atHome({"start"_s, "1-1"_s, "--wait"_s, "0"_s}), "正忙"_s);
    QProcess patient;
    prepare(patient);
    patient.setArguments({"start"_s, "1-1"_s, "--home"_s, home(), "--wait"_s, "60"_s});
    patient.start(QIODevice::ReadOnly);
    EXPECT_FALSE(patient.waitForFinished(1000)) << "it waits";
    EXPECT_TRUE(QSqlQuery(other).exec("ROLLBACK"_s));
    EXPECT_EQ(0, finish(patient).status);
}

/// The data folder is read before the wait, the file behind it: one that is put there meanwhile is imported.
TEST_F(LedgerPlace, IsWaitedForBeforeTheImportAndNotAfterIt)
{
    ASSERT_EQ(0, create(table(goodRow())).status);
    QSqlDatabase other = writer();
    const QString file = table(badRow(), "later.csv"_s);
    QProcess patient;
    prepare(patient);
    patient.setArguments(
        importArguments(file, aitwap() + QStringList{"--confirm"_s, "--create"_s, "--wait"_s, "60"_s}));
    patient.start(QIODevice::ReadOnly);
    EXPECT_FALSE(patient.waitForFinished(3000)) << "it waits";
    table("000001,SZ,200,1,0,7\n", "later.csv"_s);
    EXPECT_TRUE(QSqlQuery(other).exec("ROLLBACK"_s));
    const Run created = finish(patient);
    EXPECT_EQ(0, created.status) << created.out.constData();
    EXPECT_EQ(2, creation(created)["batch"_s].toObject()["number"_s].toInt());
}

TEST_F(LedgerPlace, OfAnImportThatWaitedInVainHasNoNewBatch)
{
    ASSERT_EQ(0, create(table(goodRow())).status);
    QSqlDatabase other = writer();
    const Run created = create(table("000001,SZ,200,1,0,7\n"), {"--wait"_s, "0"_s});
    EXPECT_EQ(1, created.status);
    expectValid(creation(created), "create.schema.json"_s);
    EXPECT_TRUE(creation(created)["error"_s].toString().contains("正忙"_s)) << created.out.constData();
    EXPECT_TRUE(QSqlQuery(other).exec("ROLLBACK"_s));
    EXPECT_EQ(1, batchesIn({"--home"_s, home()}));
}

TEST_F(LedgerPlace, IsBackedUpWhileItIsWrittenAndRestored)
{
    ASSERT_EQ(0, create(table(goodRow())).status);
    {
        QSqlDatabase other = writer();
        const Run saved = atHome({"backup"_s, backup()});
        EXPECT_EQ(0, saved.status) << saved.out.constData();
        expectValid(saved.object(), "keeping.schema.json"_s);
        EXPECT_TRUE(QSqlQuery(other).exec("ROLLBACK"_s));
        expectComplaint(atHome({"restore"_s, backup()}), "正被其他程序使用"_s);
        other.close();
    }
    expectComplaint(atHome({"backup"_s, backup()}), backup());
    ASSERT_EQ(0, create(table("000001,SZ,200,1,0,7\n")).status);
    EXPECT_EQ(2, batchesIn({"--home"_s, home()}));
    const Run restored = atHome({"restore"_s, backup()});
    EXPECT_EQ(0, restored.status) << restored.out.constData();
    expectValid(restored.object(), "keeping.schema.json"_s);
    EXPECT_EQ(1, batchesIn({"--home"_s, home()}));
    EXPECT_EQ(1, QDir(home()).entryList({"ledger.sqlite.before-restore-*"_s}).size())
        << "the old one is kept";
}

TEST_F(LedgerPlace, OfANewMachineIsMadeFromABackup)
{
    ASSERT_EQ(0, create(table(goodRow())).status);
    ASSERT_EQ(0, atHome({"backup"_s, backup()}).status);
    const QString fresh = folder() + "/fresh"_s;
    EXPECT_EQ(0, run({"restore"_s, backup(), "--home"_s, fresh}).status);
    EXPECT_EQ(1, batchesIn({"--home"_s, fresh}));
    EXPECT_EQ(QFile::Permissions(), QFile::permissions(fresh) & (QFile::ReadGroup | QFile::ReadOther));
}

TEST_F(LedgerPlace, IsNotReplacedByWhatIsNoBackup)
{
    ASSERT_EQ(0, create(table(goodRow())).status);
    expectComplaint(atHome({"restore"_s, write("no.sqlite"_s, "not a ledger at all")}), "no.sqlite"_s);
    expectComplaint(atHome({"restore"_s, folder() + "/missing.sqlite"_s}), "missing.sqlite"_s);
    EXPECT_EQ(1, batchesIn({"--home"_s, home()}));
}

TEST_F(LedgerPlace, IsVacuumed)
{
    ASSERT_EQ(0, create(table(goodRow())).status);
    const Run vacuumed = atHome({"vacuum"_s});
    EXPECT_EQ(0, vacuumed.status) << vacuumed.out.constData();
    expectValid(vacuumed.object(), "keeping.schema.json"_s);
    QSqlDatabase other = writer();
    expectComplaint(atHome({"vacuum"_s, "--wait"_s, "0"_s}), "正忙"_s);
}

TEST_F(LedgerPlace, ThatIsNotThereIsSaidAndNotMade)
{
    for (const QStringList& arguments :
         {QStringList{"backup"_s, backup()},
          {"vacuum"_s},
          {"audit"_s},
          {"audit"_s, "--verify"_s},
          {"start"_s, "1-1"_s},
          {"refuse"_s, "1"_s, "--reason"_s, "none"_s},
          {"settle"_s, "1-1"_s, "--as"_s, "stopped"_s, "--reason"_s, "none"_s}}) {
        expectComplaint(atHome(arguments), "没有算法台账"_s);
    }
    EXPECT_FALSE(QDir(home()).exists());
    EXPECT_FALSE(QFile::exists(backup()));
}
