// What stands beside the ledger, whose it is, and what a killed program leaves.

#include "ledger/LedgerTexts.h"
#include "tests/ledger/SampleDrafts.h"
#include "tests/support/RestrictedPath.h"

#include <gtest/gtest.h>
#include <sys/wait.h>
#include <unistd.h>

#include <QDir>
#include <QFileInfo>
#include <QSqlDatabase>
#include <QSqlQuery>

using namespace ledger;

namespace {

const auto Others = QFile::ReadGroup | QFile::WriteGroup | QFile::ExeGroup | QFile::ReadOther |
                    QFile::WriteOther | QFile::ExeOther;

/// A program that is killed in the middle of its first transaction, after some of it went to the file.
void leaveHotJournal(const QString& path)
{
    const pid_t child = fork();
    if (child == 0) {
        QSqlDatabase database = QSqlDatabase::addDatabase("QSQLITE"_s, "killed"_s);
        database.setDatabaseName(path);
        database.open();
        QSqlQuery query(database);
        query.exec("PRAGMA cache_size = 1"_s);
        query.exec("PRAGMA application_id = 1094863180"_s);
        query.exec("BEGIN"_s);
        query.exec("CREATE TABLE ledger_number (name TEXT, value BIGINT)"_s);
        query.exec("WITH RECURSIVE n(i) AS (SELECT 1 UNION ALL SELECT i + 1 FROM n WHERE i < 20000) "
                   "INSERT INTO ledger_number SELECT hex(randomblob(20)), i FROM n"_s);
        _exit(0);
    }
    int status = 0;
    waitpid(child, &status, 0);
}

} // namespace

TEST(Privacy, OfLedgerAndHomeIsTheOwners)
{
    QTemporaryDir folder;
    const QString home = folder.filePath("home"_s);
    const auto opened = openIn(home);
    opened.value->createBatch(sampleDraft(1));
    EXPECT_FALSE(QFileInfo(home).permissions() & Others);
    const QFileInfoList files = QDir(home).entryInfoList(QDir::Files | QDir::Hidden);
    EXPECT_GE(files.size(), 3) << "ledger, log and lock";
    for (const QFileInfo& file : files) {
        EXPECT_FALSE(file.permissions() & Others) << file.fileName().toStdString();
    }
}

TEST(Privacy, IsGivenToALedgerThatWasOpenToAll)
{
    SampleLedger ledger;
    ledger.close();
    QFile::setPermissions(ledger.path(),
                          QFile::ReadOwner | QFile::WriteOwner | QFile::ReadGroup | QFile::ReadOther);
    ASSERT_EQ(ledger.reopen(), QString());
    EXPECT_FALSE(QFileInfo(ledger.path()).permissions() & Others);
}

TEST(Symlink, IsFollowedNeitherToTheLedgerNorToItsLock)
{
    QTemporaryDir folder;
    const QString target = folder.filePath("target"_s);
    const QString home = folder.filePath("home"_s);
    ASSERT_TRUE(QDir().mkpath(home));
    ASSERT_TRUE(QFile::link(target, Ledger::pathIn(home)));
    EXPECT_EQ(openIn(home).error, texts::symlinkedFile(Ledger::pathIn(home)));
    ASSERT_TRUE(QFile::remove(Ledger::pathIn(home)));
    ASSERT_TRUE(QFile::link(target, Ledger::pathIn(home) + ".lock"_s));
    EXPECT_FALSE(openIn(home).ok());
    EXPECT_FALSE(QFile::exists(target));
}

TEST(HotJournal, OfAFirstCreationIsRolledBackByWriterAndReader)
{
    for (const bool byReader : {false, true}) {
        QTemporaryDir home;
        const QString path = Ledger::pathIn(home.path());
        leaveHotJournal(path);
        ASSERT_TRUE(QFileInfo(path + "-journal"_s).size() > 0) << "the sample is no such file";
        ASSERT_GT(QFileInfo(path).size(), 100000);
        if (byReader) {
            const auto read = openToRead(home.path());
            ASSERT_EQ(read.error, QString());
            EXPECT_TRUE(allBatches(*read.value).value.isEmpty());
        }
        const auto opened = openIn(home.path());
        ASSERT_EQ(opened.error, QString());
        EXPECT_EQ(opened.value->createBatch(sampleDraft(1)).value.number, 1);
    }
}

TEST(Reader, LeavesNothingBesideALedgerThatItMayNotWrite)
{
    SampleLedger ledger;
    ledger->createBatch(sampleDraft(2));
    ledger.close();
    QFile::setPermissions(ledger.path(),
                          QFile::ReadOwner | QFile::WriteOwner | QFile::ReadGroup | QFile::ReadOther);
    const QStringList before = QDir(ledger.home()).entryList(QDir::Files | QDir::Hidden);
    {
        const RestrictedPath folder(ledger.home());
        const auto reader = openToRead(ledger.home());
        ASSERT_EQ(reader.error, QString());
        EXPECT_EQ(allInstances(*reader.value).value.size(), 2);
    }
    EXPECT_EQ(QDir(ledger.home()).entryList(QDir::Files | QDir::Hidden), before);
}

TEST(Backup, IsAWholeLedgerWhileTheFirstIsWritten)
{
    SampleLedger ledger;
    ledger->createBatch(sampleDraft(3));
    QTemporaryDir other;
    const QString file = Ledger::pathIn(other.path());
    ASSERT_EQ(ledger->backup(file).error, QString());
    ledger->createBatch(sampleDraft(1));
    EXPECT_FALSE(QFileInfo(file).permissions() & Others);
    EXPECT_FALSE(ledger->backup(file).ok()) << "nothing is overwritten";
    const auto copy = openIn(other.path());
    ASSERT_EQ(copy.error, QString());
    EXPECT_EQ(allInstances(*copy.value).value.size(), 3);
    EXPECT_EQ(copy.value->verify(), QString());
}

TEST(Backup, CanBePutInThePlaceOfTheLedger)
{
    SampleLedger ledger;
    ledger->createBatch(sampleDraft(3));
    const QString file = ledger.home() + "/backup.sqlite"_s;
    ASSERT_EQ(ledger->backup(file).error, QString());
    ledger->createBatch(sampleDraft(1));
    EXPECT_FALSE(restoreLedger(file, ledger.path()).ok()) << "it is open";
    ledger.close();
    ASSERT_EQ(restoreLedger(file, ledger.path()).error, QString());
    ASSERT_EQ(ledger.reopen(), QString());
    EXPECT_EQ(allBatches(*ledger).value.size(), 1);
    EXPECT_EQ(QDir(ledger.home()).entryList({"ledger.sqlite.before-restore*"_s}).size(), 1)
        << "the old one is kept";
    EXPECT_FALSE(restoreLedger(ledger.home() + "/none"_s, ledger.path()).ok());
}

TEST(Vacuum, KeepsWhatTheLedgerHolds)
{
    SampleLedger ledger;
    ledger->createBatch(sampleDraft(50));
    EXPECT_EQ(ledger->vacuum().error, QString());
    EXPECT_EQ(allInstances(*ledger).value.size(), 50);
    EXPECT_FALSE(openToRead(ledger.home()).value->vacuum().ok());
}
