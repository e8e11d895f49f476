#include "ledger/LedgerTexts.h"
#include "tests/ledger/SampleDrafts.h"
#include "tests/support/RestrictedPath.h"

#include <gtest/gtest.h>

#include <QDir>
#include <QFile>
#include <QSqlDatabase>
#include <QSqlQuery>

#include <thread>
#include <vector>

using namespace ledger;

namespace {

QByteArray bytesOf(const QString& path)
{
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

void write(const QString& path, const QByteArray& bytes)
{
    QFile file(path);
    ASSERT_TRUE(file.open(QIODevice::WriteOnly));
    file.write(bytes);
}

/// Opening a ledger file with these bytes says so, names the file, and changes no byte of it.
void expectRefused(const QByteArray& bytes, const QString& reason)
{
    QTemporaryDir home;
    const QString path = Ledger::pathIn(home.path());
    write(path, bytes);
    for (const QString& error : {openIn(home.path()).error, openToRead(home.path()).error}) {
        EXPECT_TRUE(error.contains(path)) << error.toStdString();
        EXPECT_TRUE(error.contains(reason)) << error.toStdString();
    }
    EXPECT_EQ(bytesOf(path), bytes);
}

/// Runs a statement on a ledger's file, as another program would.
void tamper(const QString& path, const QString& statement)
{
    {
        QSqlDatabase database = QSqlDatabase::addDatabase("QSQLITE"_s, "tamper"_s);
        database.setDatabaseName(path);
        ASSERT_TRUE(database.open());
        QSqlQuery query(database);
        ASSERT_TRUE(query.exec(statement)) << statement.toStdString();
    }
    QSqlDatabase::removeDatabase("tamper"_s);
}

/// The bytes of a closed ledger with some batches.
QByteArray soundLedger()
{
    SampleLedger ledger;
    for (int i = 0; i < 20; ++i) {
        ledger->createBatch(sampleDraft(50));
    }
    ledger.close();
    return bytesOf(ledger.path());
}

} // namespace

TEST(LedgerFile, IsMadeWithItsFolderWhereThereIsNone)
{
    QTemporaryDir folder;
    const QString home = folder.filePath("新/家"_s);
    EXPECT_EQ(openIn(home).error, QString());
    EXPECT_TRUE(QFile::exists(Ledger::pathIn(home)));
}

TEST(LedgerFile, ThatIsNoDatabaseIsLeftAlone)
{
    expectRefused(QByteArray("证券代码,市场\r\n600000,SH\r\n").repeated(100), "不是算法台账"_s);
}

TEST(LedgerFile, OfAnotherProgramIsLeftAlone)
{
    QTemporaryDir folder;
    const QString path = folder.filePath("foreign.sqlite"_s);
    {
        QSqlDatabase database = QSqlDatabase::addDatabase("QSQLITE"_s, "foreign"_s);
        database.setDatabaseName(path);
        ASSERT_TRUE(database.open());
        QSqlQuery(database).exec("CREATE TABLE batch (number INTEGER)"_s);
    }
    QSqlDatabase::removeDatabase("foreign"_s);
    expectRefused(bytesOf(path), "不是算法台账"_s);
}

TEST(LedgerFile, ThatWasCutOffIsLeftAlone)
{
    const QByteArray sound = soundLedger();
    expectRefused(sound.left(sound.size() / 2), "已损坏"_s);
}

TEST(LedgerFile, WithOverwrittenPagesIsToldWhereTheyAreReadAndByTheFullCheck)
{
    QByteArray bytes = soundLedger();
    bytes.replace(bytes.size() / 2, 8192, QByteArray(8192, '\x5a'));
    QTemporaryDir home;
    write(Ledger::pathIn(home.path()), bytes);
    const auto opened = openToRead(home.path());
    ASSERT_EQ(opened.error, QString()) << "opening reads no page that it does not need";
    EXPECT_TRUE(opened.value->verify().contains("已损坏"_s)) << opened.value->verify().toStdString();
    EXPECT_TRUE(SampleLedger()->verify().isEmpty());
}

TEST(LedgerFile, ThatGoesBadWhileItIsReadIsNotTakenForAShortOne)
{
    SampleLedger ledger;
    for (int i = 0; i < 20; ++i) {
        ledger->createBatch(sampleDraft(50));
    }
    ledger.close();
    const auto reader = openToRead(ledger.home());
    ASSERT_EQ(reader.error, QString());
    QFile file(ledger.path());
    ASSERT_TRUE(file.open(QIODevice::ReadWrite));
    ASSERT_TRUE(file.seek(file.size() / 2));
    file.write(QByteArray(static_cast<int>(file.size() / 2), '\x5a'));
    file.close();
    EXPECT_TRUE(allInstances(*reader.value).error.contains("已损坏"_s))
        << allInstances(*reader.value).value.size();
}

TEST(LedgerFile, WithoutItsCounterTakesNoBatch)
{
    SampleLedger ledger;
    ledger.close();
    tamper(ledger.path(), "DELETE FROM ledger_number WHERE name = 'last_batch'"_s);
    ASSERT_EQ(ledger.reopen(), QString());
    const QString error = ledger->createBatch(sampleDraft(1)).error;
    EXPECT_TRUE(error.contains("last_batch"_s)) << error.toStdString();
    EXPECT_TRUE(allBatches(*ledger).value.isEmpty());
}

TEST(LedgerFile, ThatWasNamedWithAPlaceholderIsNamedAsItIs)
{
    QTemporaryDir folder;
    const QString home = folder.filePath("%1%2"_s);
    const auto opened = openIn(home);
    ASSERT_EQ(opened.error, QString());
    EXPECT_EQ(opened.value->batch(7).error, texts::noSuchBatch(Ledger::pathIn(home), 7));
    EXPECT_TRUE(opened.value->batch(7).error.contains("%1%2"_s))
        << opened.value->batch(7).error.toStdString();
    EXPECT_TRUE(opened.value->batch(7).error.contains("批次 7"_s));
}

TEST(LedgerFile, ThatIsEmptyAsAfterAKillBecomesALedger)
{
    QTemporaryDir home;
    write(Ledger::pathIn(home.path()), QByteArray());
    const auto opened = openIn(home.path());
    ASSERT_EQ(opened.error, QString());
    EXPECT_EQ(opened.value->createBatch(sampleDraft(1)).error, QString());
}

TEST(LedgerFile, OnAFullDiskKeepsWhatItHoldsAndGoesOnWhenThereIsRoom)
{
    SampleLedger ledger;
    ASSERT_EQ(ledger->createBatch(sampleDraft(10)).error, QString());
    ASSERT_EQ(ledger.reopen(60), QString());
    const BatchDraft large = sampleDraft(1000);
    const Outcome<Batch> created = ledger->createBatch(large);
    EXPECT_TRUE(created.error.contains("磁盘空间不足"_s)) << created.error.toStdString();
    EXPECT_TRUE(created.error.contains(ledger.path()));
    EXPECT_EQ(allBatches(*ledger).value.size(), 1);
    EXPECT_EQ(allInstances(*ledger).value.size(), 10);
    EXPECT_EQ(ledger->createBatch(sampleDraft(1)).error, QString()) << "a smaller one still fits";

    ASSERT_EQ(ledger.reopen(), QString());
    EXPECT_EQ(ledger->createBatch(large).error, QString());
    EXPECT_EQ(allBatches(*ledger).value.size(), 3);
    EXPECT_EQ(allInstances(*ledger).value.size(), 1011);
}

TEST(LedgerFile, InAReadOnlyFolderCanBeReadButNotWritten)
{
    SampleLedger ledger;
    ledger->createBatch(sampleDraft(2));
    ledger.close();
    // as of a program before, or shown to others on purpose
    QFile::setPermissions(ledger.path(),
                          QFile::ReadOwner | QFile::WriteOwner | QFile::ReadGroup | QFile::ReadOther);
    const RestrictedPath folder(ledger.home());
    const QString error = ledger.reopen();
    EXPECT_TRUE(error.contains("只读"_s)) << error.toStdString();
    EXPECT_TRUE(error.contains(ledger.path()));
    const auto opened = openToRead(ledger.home());
    ASSERT_EQ(opened.error, QString());
    const Outcome<QList<Instance>> instances = allInstances(*opened.value);
    EXPECT_EQ(instances.error, QString());
    EXPECT_EQ(instances.value.size(), 2);
}

TEST(LedgerFile, CannotBeMadeInAReadOnlyFolder)
{
    QTemporaryDir home;
    const RestrictedPath folder(home.path());
    const QString error = openIn(home.path()).error;
    EXPECT_TRUE(error.contains("只读"_s)) << error.toStdString();
}

TEST(LedgerFile, InAFolderThatCannotBeEnteredIsNotTakenForNone)
{
    SampleLedger ledger;
    ledger->createBatch(sampleDraft(1));
    ledger.close();
    const RestrictedPath folder(ledger.home(), QFile::ReadOwner);
    const QString error = openToRead(ledger.home()).error;
    EXPECT_TRUE(error.contains("无法打开"_s)) << error.toStdString();
}

TEST(SecondProcess, MayReadWhileTheFirstWrites)
{
    SampleLedger ledger;
    ledger->createBatch(sampleDraft(2));
    const auto reader = openToRead(ledger.home());
    ASSERT_EQ(reader.error, QString());
    EXPECT_EQ(allInstances(*reader.value).value.size(), 2);
    ledger->createBatch(sampleDraft(3));
    EXPECT_EQ(allInstances(*reader.value).value.size(), 5);
}

TEST(SecondProcess, WritesBesideTheFirst)
{
    SampleLedger ledger;
    ledger->createBatch(sampleDraft(1));
    const auto second = openIn(ledger.home());
    ASSERT_EQ(second.error, QString());
    EXPECT_EQ(second.value->createBatch(sampleDraft(2)).value.number, 2);
    EXPECT_EQ(ledger->createBatch(sampleDraft(3)).value.number, 3);
    EXPECT_EQ(allInstances(*second.value).value.size(), 6);
}

TEST(SecondProcess, MakesOneLedgerWithTheFirstWhereTheyAllBegin)
{
    constexpr int Writers = 8;
    QTemporaryDir folder;
    const QString home = folder.filePath("home"_s);
    std::vector<std::thread> threads;
    for (int writer = 0; writer < Writers; ++writer) {
        threads.emplace_back([&] {
            const auto opened = openIn(home);
            ASSERT_EQ(opened.error, QString());
            EXPECT_EQ(opened.value->createBatch(sampleDraft(3)).error, QString());
        });
    }
    for (std::thread& thread : threads) {
        thread.join();
    }
    EXPECT_EQ(allBatches(*openIn(home).value).value.size(), Writers);
}

TEST(SecondProcess, WaitsForAChangeNoLongerThanItWasTold)
{
    SampleLedger ledger;
    Ledger::Options impatient;
    impatient.waitSeconds = 0;
    const auto second = openIn(ledger.home(), impatient);
    {
        QSqlDatabase database = QSqlDatabase::addDatabase("QSQLITE"_s, "writer"_s);
        database.setDatabaseName(ledger.path());
        ASSERT_TRUE(database.open());
        ASSERT_TRUE(QSqlQuery(database).exec("BEGIN IMMEDIATE"_s));
        EXPECT_EQ(second.value->createBatch(sampleDraft(1)).error, texts::busyFile(ledger.path()));
        EXPECT_TRUE(QSqlQuery(database).exec("COMMIT"_s));
    }
    QSqlDatabase::removeDatabase("writer"_s);
    EXPECT_EQ(second.value->createBatch(sampleDraft(1)).error, QString());
}

TEST(Reader, FindsNothingWhereThereIsNoLedgerAndMakesNone)
{
    QTemporaryDir home;
    const auto opened = openToRead(home.path());
    ASSERT_EQ(opened.error, QString());
    EXPECT_TRUE(allBatches(*opened.value).value.isEmpty());
    EXPECT_TRUE(QDir(home.path()).isEmpty());
}

TEST(Reader, TakesALedgerWithoutTablesForNone)
{
    QTemporaryDir home;
    tamper(Ledger::pathIn(home.path()), "PRAGMA application_id = 1094863180"_s);
    const auto opened = openToRead(home.path());
    ASSERT_EQ(opened.error, QString());
    EXPECT_TRUE(allBatches(*opened.value).value.isEmpty());
}

TEST(Reader, CreatesAndUndoesNothing)
{
    SampleLedger ledger;
    ledger->createBatch(sampleDraft(1));
    const auto reader = openToRead(ledger.home());
    EXPECT_NE(reader.value->createBatch(sampleDraft(1)).error, QString());
    EXPECT_NE(reader.value->undo(1).error, QString());
    EXPECT_NE(reader.value->changeState({1, 1}, InstanceState::Running).error, QString());
    EXPECT_EQ(allBatches(*ledger).value.size(), 1);
    EXPECT_EQ(allInstances(*ledger).value.first().state, InstanceState::Created);
}
