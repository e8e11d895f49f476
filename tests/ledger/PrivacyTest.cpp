// What stands beside the ledger, whose it is, and what a killed program leaves.

#include "ledger/LedgerTexts.h"
#include "tests/ledger/SampleDrafts.h"
#include "tests/support/RestrictedPath.h"

#include <gtest/gtest.h>
#include <sys/stat.h>
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

constexpr uid_t Nobody = 65534;
constexpr useconds_t PauseMicroseconds = 10000;

/// What one look at a ledger showed.
enum Look : char { Sound = 's', Refused = 'r', Wrong = 'w' };

/// Reads all that stands there. What may not be read, or not now, is refused; every other fault is a lie.
Look lookAt(const QString& home)
{
    const auto read = openToRead(home);
    if (!read.ok()) {
        const QString path = Ledger::pathIn(home);
        const bool isTrue = read.error == texts::unreadableFile(path) ||
                            read.error == texts::readOnlyFile(path) || read.error == texts::busyFile(path);
        return isTrue ? Refused : Wrong;
    }
    qint64 rows = 0;
    const QList<Batch> batches = allBatches(*read.value).value;
    for (const Batch& batch : batches) {
        rows += batch.rowCount;
    }
    const auto trail = read.value->verifyAudit();
    const bool isSound = read.value->verify().isEmpty() && trail.ok() && !trail.value.broken &&
                         !batches.isEmpty() && allInstances(*read.value).value.size() >= rows;
    return isSound ? Sound : Wrong;
}

/// Another user, in a process of its own that looks at a ledger so many times. It is made before the test
/// opens that ledger: what the database's library knows of open files must not be inherited.
class Stranger {
public:
    Stranger(const QString& home, int count) : mLooks(count, '\0')
    {
        EXPECT_EQ(pipe(mBegin), 0);
        EXPECT_EQ(pipe(mTold), 0);
        mProcess = fork();
        if (mProcess == 0) {
            char go = 0;
            bool isTold = setresuid(Nobody, Nobody, Nobody) == 0 && read(mBegin[0], &go, 1) == 1;
            for (int i = 0; i < count && isTold; ++i) {
                const char look = lookAt(home);
                isTold = write(mTold[1], &look, 1) == 1;
                usleep(PauseMicroseconds);
            }
            _exit(0);
        }
        close(mBegin[0]);
        close(mTold[1]);
    }
    ~Stranger()
    {
        close(mBegin[1]);
        close(mTold[0]);
    }
    Stranger(const Stranger&) = delete;
    Stranger& operator=(const Stranger&) = delete;

    void begin() const { EXPECT_EQ(write(mBegin[1], "g", 1), 1); }
    bool isOver() const { return waitpid(mProcess, nullptr, WNOHANG) != 0; }
    /// One letter each.
    QByteArray looks()
    {
        const ssize_t length = read(mTold[0], mLooks.data(), static_cast<size_t>(mLooks.size()));
        return mLooks.left(static_cast<int>(length));
    }

private:
    int mBegin[2];
    int mTold[2];
    pid_t mProcess = 0;
    QByteArray mLooks;
};

/// For a reader in another account, as an owner may wish it.
void openToAll(const QString& home)
{
    for (const char* ending : {"", "-wal", "-shm"}) {
        chmod((QFile::encodeName(Ledger::pathIn(home)) + ending).constData(), 0644);
    }
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

/// Writers come and go, and with them the log: whatever moment a reader comes at, it sees a state that was,
/// or is told that it may not.
TEST(Reader, OfAnotherUserSeesNothingThatNeverWasBesideAWriter)
{
    if (geteuid() != 0) {
        GTEST_SKIP() << "only the superuser can become another user";
    }
    QTemporaryDir folder;
    const QString home = folder.path();
    chmod(QFile::encodeName(home).constData(), 0755);
    Stranger stranger(home, 50);
    auto ledger = openIn(home).value;
    ledger->createBatch(sampleDraft(3));
    openToAll(home);
    stranger.begin();
    int changes = 0;
    for (; !stranger.isOver(); ++changes) {
        if (changes % 3 == 0) {
            ledger.reset();
            ledger = openIn(home).value;
        }
        openToAll(home);
        EXPECT_EQ(ledger->createBatch(sampleDraft(3)).error, QString());
        openToAll(home);
    }
    const QByteArray looks = stranger.looks();
    EXPECT_EQ(looks.size(), 50);
    EXPECT_EQ(looks.count(Wrong), 0) << looks.constData();
    EXPECT_GT(looks.count(Sound), 10) << looks.constData();
    EXPECT_GT(changes, 20);
    RecordProperty("sound", looks.count(Sound));
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

TEST(Backup, TakesThePlaceOfADamagedLedgerAndOfLogsThatBelongToNone)
{
    SampleLedger ledger;
    ledger->createBatch(sampleDraft(3));
    const QString file = ledger.home() + "/backup.sqlite"_s;
    ASSERT_EQ(ledger->backup(file).error, QString());
    ledger.close();
    for (const QByteArray& left : {QByteArray(20000, 'x'), QByteArray()}) {
        for (const QString& ending : {QString(), "-wal"_s, "-journal"_s}) {
            QFile damaged(ledger.path() + ending);
            ASSERT_TRUE(damaged.open(QIODevice::WriteOnly));
            damaged.write(ending.isEmpty() ? left : QByteArray(5000, 'y'));
        }
        ASSERT_EQ(restoreLedger(file, ledger.path()).error, QString());
        ASSERT_EQ(ledger.reopen(), QString());
        EXPECT_EQ(ledger->verify(), QString());
        EXPECT_EQ(allInstances(*ledger).value.size(), 3);
        ledger.close();
    }
    EXPECT_GE(QDir(ledger.home()).entryList({"ledger.sqlite.before-restore*"_s}).size(), 3)
        << "the damaged one, and the two logs without a ledger";
}

/// A copy of a folder in which a program was killed: what was committed last stands in the log alone.
TEST(Backup, ThatHasALogBesideItIsRestoredWithIt)
{
    SampleLedger ledger;
    ledger->createBatch(sampleDraft(3));
    QTemporaryDir other;
    const QString copied = other.filePath("copied.sqlite"_s);
    ASSERT_TRUE(QFile::copy(ledger.path(), copied));
    ASSERT_TRUE(QFile::copy(ledger.path() + "-wal"_s, copied + "-wal"_s));
    const QString restored = other.filePath("restored.sqlite"_s);
    ASSERT_EQ(restoreLedger(copied, restored).error, QString());
    const auto opened = Ledger::open(Address::ofFile(restored));
    ASSERT_EQ(opened.error, QString());
    EXPECT_EQ(allInstances(*opened.value).value.size(), 3);
}

TEST(Vacuum, KeepsWhatTheLedgerHolds)
{
    SampleLedger ledger;
    ledger->createBatch(sampleDraft(50));
    EXPECT_EQ(ledger->vacuum().error, QString());
    EXPECT_EQ(allInstances(*ledger).value.size(), 50);
    EXPECT_FALSE(openToRead(ledger.home()).value->vacuum().ok());
}
