// All that is SQLite's own about the ledger.

#include "ledger/store/SqliteStore.h"

#include "ledger/LedgerTexts.h"
#include "ledger/store/FileLock.h"
#include "ledger/store/LedgerLog.h"
#include "ledger/store/Schema.h"
#include "ledger/store/SqliteMigrations.h"
#include "ledger/store/Statements.h"
#include "ledger/store/Sync.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <QCoreApplication>
#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QStorageInfo>
#include <QThread>
#include <QUrl>
#include <QUuid>

namespace ledger {

namespace {

/// Marks the file as ours in its header ("ABIL").
constexpr int ApplicationId = 0x4142494C;
const QByteArray Magic("SQLite format 3\0", 16);
/// How often a reader that may not write tries to find the file at rest, and how long it has to be so.
constexpr int MostAttempts = 50;
constexpr int SettledMs = 20;
const QString ReadOnlyOption = QStringLiteral(";QSQLITE_OPEN_READONLY");
/// On a disk with less room than this an error of writing is one of room.
constexpr qint64 NoRoom = 65536;

// Primary result codes of SQLite; the extended ones carry more in their upper bits.
enum ResultCode {
    Busy = 5,
    Locked = 6,
    ReadOnly = 8,
    InputOutput = 10,
    Corrupt = 11,
    Full = 13,
    CannotOpen = 14,
    NotADatabase = 26,
};

int codeOf(const QSqlError& error)
{
    return error.nativeErrorCode().toInt() & 0xff;
}

QString folderOf(const QString& path)
{
    return QFileInfo(path).absolutePath();
}

/// Whether there is anything at that path: a file killed before its first byte is none.
bool hasContent(const QString& path)
{
    return QFileInfo(path).size() > 0;
}

bool isSymlink(const QString& path)
{
    struct stat info = {};
    return lstat(QFile::encodeName(path).constData(), &info) == 0 && S_ISLNK(info.st_mode);
}

/// What tells whether a file was changed while it was copied: SQLite counts in its header, and a log beside
/// it means that someone writes.
QByteArray fingerprintOf(const QString& path)
{
    QFile file(path);
    const QFileInfo info(path);
    QByteArray header = file.open(QIODevice::ReadOnly) ? file.read(100) : QByteArray();
    return header + QByteArray::number(info.size()) +
           QByteArray::number(info.lastModified().toMSecsSinceEpoch());
}

bool isWrittenTo(const QString& path)
{
    return QFile::exists(path + QLatin1String("-wal")) || QFile::exists(path + QLatin1String("-journal"));
}

const QString AllAccounts = QStringLiteral("*");
/// For whoever only asks whether a lock is held to let go of it again.
constexpr int ClaimWaitMs = 1000;

/// The ledger's lock files of the accounts that a gateway serves: one for all accounts, shared by those that
/// serve some.
class SqliteClaim : public AccountClaim {
public:
    bool take(const QString& path, FileLock::Kind kind, const QString& signature, QString& holder)
    {
        auto lock = std::make_unique<FileLock>(path);
        if (lock->take(kind, ClaimWaitMs) != FileLock::Answer::Taken) {
            holder = lock->holder();
            return false;
        }
        if (kind == FileLock::Kind::Exclusive) {
            lock->sign(signature);
        }
        mLocks.push_back(std::move(lock));
        return true;
    }

private:
    std::vector<std::unique_ptr<FileLock>> mLocks;
};

} // namespace

SqliteStore::SqliteStore(const QString& path, const Settings& settings)
    : mPath(path), mSettings(settings), mConnection(QUuid::createUuid().toString())
{
}

SqliteStore::~SqliteStore()
{
    disconnect();
}

void SqliteStore::disconnect()
{
    if (QSqlDatabase::contains(mConnection)) {
        QSqlDatabase::database(mConnection, false).close();
        QSqlDatabase::removeDatabase(mConnection);
    }
    mPrepared.clear();
}

QSqlDatabase SqliteStore::database() const
{
    return QSqlDatabase::database(mConnection, false);
}

QString SqliteStore::waitOptions() const
{
    return QStringLiteral("QSQLITE_BUSY_TIMEOUT=%1").arg(mSettings.waitSeconds * 1000);
}

QString SqliteStore::connectTo(const QString& file, const QString& options)
{
    disconnect();
    QSqlDatabase opened = QSqlDatabase::addDatabase(QStringLiteral("QSQLITE"), mConnection);
    opened.setConnectOptions(waitOptions() + options);
    opened.setDatabaseName(file);
    if (!opened.open()) {
        return sentenceFor(opened.lastError());
    }
    Statements statements(opened);
    statements.run(QStringLiteral("PRAGMA foreign_keys = ON"));
    return statements.failed() ? sentenceFor(statements.error()) : QString();
}

QString SqliteStore::open()
{
    if (isSymlink(mPath)) {
        return texts::symlinkedFile(mPath);
    }
    if (mSettings.mode == Mode::Write) {
        return openForWriting();
    }
    const QFileInfo home(folderOf(mPath));
    if (home.exists() && !home.isExecutable()) {
        return texts::unreadableFile(mPath); // whether there is a ledger cannot be told
    }
    return hasContent(mPath) ? openForReading() : openNothing();
}

/// A folder that is made belongs to its owner alone.
QString SqliteStore::prepareFolder() const
{
    const QString folder = folderOf(mPath);
    if (QFileInfo(folder).isDir()) {
        return QString();
    }
    const QString parent = folderOf(folder);
    const bool isMade = QDir().mkpath(parent) && mkdir(QFile::encodeName(folder).constData(), 0700) == 0;
    if (!isMade && !QFileInfo(folder).isDir()) { // another program may have been faster
        return texts::readOnlyFile(mPath);
    }
    syncFolder(parent);
    return QString();
}

/// The file belongs to its owner alone, and with it the logs, which SQLite makes alike.
QString SqliteStore::prepareFile() const
{
    const bool isNew = !QFile::exists(mPath);
    const int descriptor =
        ::open(QFile::encodeName(mPath).constData(), O_RDWR | O_CREAT | O_CLOEXEC | O_NOFOLLOW, 0600);
    if (descriptor < 0) {
        return errno == EACCES || errno == EROFS || errno == EPERM ? texts::readOnlyFile(mPath)
               : errno == ENOSPC                                   ? texts::fullDisk(mPath)
                                                                   : texts::unreadableFile(mPath);
    }
    struct stat info = {};
    const bool isOpenToOthers =
        fstat(descriptor, &info) == 0 && info.st_uid == geteuid() && (info.st_mode & 077) != 0;
    if (isOpenToOthers) {
        fchmod(descriptor, 0600);
    }
    close(descriptor);
    if (isNew) {
        syncFolder(folderOf(mPath));
    }
    return QString();
}

/// Only one program at a time makes tables or changes them; what a killed one left is recovered before it is
/// judged.
QString SqliteStore::openForWriting()
{
    QString fault = prepareFolder();
    if (!fault.isEmpty()) {
        return fault;
    }
    FileLock lock(mPath + QLatin1String(".lock"));
    switch (lock.take(FileLock::Kind::Exclusive, mSettings.waitSeconds * 1000)) {
    case FileLock::Answer::Taken:
        break;
    case FileLock::Answer::HeldByAnother:
        return texts::busyFile(mPath);
    case FileLock::Answer::NotPermitted:
        return texts::readOnlyFile(mPath);
    case FileLock::Answer::Failed:
        return texts::unreadableFile(mPath);
    }
    fault = inspectHeader();
    if (fault.isEmpty()) {
        fault = prepareFile();
    }
    if (fault.isEmpty()) {
        fault = connectTo(mPath, QString());
    }
    qint64 version = 0;
    if (fault.isEmpty()) {
        fault = inspect(version);
    }
    if (fault.isEmpty()) {
        fault = configure();
    }
    return fault.isEmpty() && version < schemaVersion() ? migrate(version) : fault;
}

/// A reader leaves nothing beside the file that its owner could not write. Where it might, it looks at a
/// copy.
QString SqliteStore::openForReading()
{
    struct stat info = {};
    const bool isThere = stat(QFile::encodeName(mPath).constData(), &info) == 0;
    const bool isOurs =
        isThere && (info.st_uid == geteuid() || geteuid() == 0) && QFileInfo(folderOf(mPath)).isWritable();
    QString fault = inspectHeader();
    if (!fault.isEmpty()) {
        return fault;
    }
    // A journal that a killed program left is rolled back by whoever may write.
    const bool isHot = isOurs && QFile::exists(mPath + QLatin1String("-journal"));
    fault = isOurs ? connectTo(mPath, isHot ? QString() : ReadOnlyOption) : openAsStranger();
    qint64 version = 0;
    if (fault.isEmpty()) {
        fault = inspect(version);
    }
    if (!fault.isEmpty() || version == schemaVersion()) {
        return fault;
    }
    return version == 0 ? openNothing() : texts::olderFile(mPath, version);
}

/// One that may not write beside the file reads by its log while there is one, else a copy. Writers come and
/// go meanwhile, and the log with them: what could not be read is tried again in the other way.
QString SqliteStore::openAsStranger()
{
    QString fault = texts::busyFile(mPath);
    for (int i = 0; i < MostAttempts; ++i) {
        const bool hasLog = isWrittenTo(mPath);
        fault = hasLog ? connectTo(mPath, ReadOnlyOption) : openCopy();
        if (fault.isEmpty()) { // the log is opened by the first statement that reads
            Statements statements(database());
            statements.single(QStringLiteral("SELECT COUNT(*) FROM sqlite_master"));
            fault = statements.failed() ? sentenceFor(statements.error()) : QString();
        }
        if (fault.isEmpty() || (hasLog && isWrittenTo(mPath))) {
            break;
        }
        disconnect();
        QThread::msleep(SettledMs);
    }
    return fault;
}

/// A copy of the file as it is while nobody writes. A file's time is coarse: one that was changed a moment
/// ago may be changed again without a sign of it.
QString SqliteStore::openCopy()
{
    mCopy = std::make_unique<QTemporaryDir>();
    const QString copy = mCopy->filePath(QStringLiteral("ledger.sqlite"));
    const QByteArray before = fingerprintOf(mPath);
    const bool isSettled = QFileInfo(mPath).lastModified().msecsTo(QDateTime::currentDateTime()) >= SettledMs;
    QFile source(mPath);
    if (!source.open(QIODevice::ReadOnly)) {
        return texts::unreadableFile(mPath);
    }
    const bool isCopied = isSettled && !isWrittenTo(mPath) && source.copy(copy);
    if (!isCopied || isWrittenTo(mPath) || fingerprintOf(mPath) != before) {
        return texts::busyFile(mPath);
    }
    QFile::setPermissions(copy, QFile::ReadOwner | QFile::WriteOwner);
    return connectTo(copy, ReadOnlyOption);
}

QString SqliteStore::openNothing()
{
    const QString fault = connectTo(QStringLiteral(":memory:"), QString());
    return fault.isEmpty() ? migrate(0) : fault;
}

/// A file of another kind is told by its first bytes, before SQLite may call it damaged. Where a journal
/// stands beside it, its bytes are still to be mended.
QString SqliteStore::inspectHeader() const
{
    if (!hasContent(mPath) || QFile::exists(mPath + QLatin1String("-journal"))) {
        return QString();
    }
    QFile file(mPath);
    if (!file.open(QIODevice::ReadOnly)) {
        return texts::unreadableFile(mPath);
    }
    const QByteArray head = file.read(Magic.size());
    if (file.error() != QFileDevice::NoError) {
        return texts::failedReading(mPath);
    }
    return head == Magic ? QString() : texts::foreignFile(mPath);
}

/// Whether the open file is a ledger, and of which version; 0: no tables yet.
QString SqliteStore::inspect(qint64& version) const
{
    Statements statements(database());
    const int id = statements.single(QStringLiteral("PRAGMA application_id")).toInt();
    const int tables = statements.single(QStringLiteral("SELECT COUNT(*) FROM sqlite_master")).toInt();
    if (statements.failed()) {
        return sentenceFor(statements.error());
    }
    if (id != ApplicationId && (id != 0 || tables > 0)) {
        return texts::foreignFile(mPath);
    }
    if (tables == 0) {
        version = 0;
        return QString();
    }
    const QVariant found =
        statements.single(QStringLiteral("SELECT value FROM ledger_number WHERE name = 'schema_version'"));
    if (statements.failed() && codeOf(statements.error()) != 1) { // 1: no such table, which no ledger lacks
        return sentenceFor(statements.error());
    }
    version = found.toLongLong();
    if (version <= 0) {
        return texts::versionlessFile(mPath);
    }
    return version > schemaVersion() ? texts::newerFile(mPath, version, schemaVersion()) : QString();
}

QString SqliteStore::configure() const
{
    QStringList statements{
        QStringLiteral("PRAGMA journal_mode = WAL"),
        // a batch that was reported as created survives a power failure
        QStringLiteral("PRAGMA synchronous = FULL"),
        // some ten large batches, so that not every other one waits for the log to be moved
        QStringLiteral("PRAGMA wal_autocheckpoint = 4000"),
        // KiB: a large batch is written once, and not also when half of it has filled the cache; and of the
        // index of rows the pages of today are there
        QStringLiteral("PRAGMA cache_size = -32768")};
    if (Statements(database()).single(QStringLiteral("PRAGMA application_id")).toInt() != ApplicationId) {
        statements.append(QStringLiteral("PRAGMA application_id = %1").arg(ApplicationId));
    }
    if (mSettings.maxPages > 0) {
        statements.append(QStringLiteral("PRAGMA max_page_count = %1").arg(mSettings.maxPages));
    }
    const QSqlError error = run(statements);
    return error.isValid() ? sentenceFor(error) : QString();
}

QSqlError SqliteStore::run(const QStringList& statements) const
{
    Statements running(database());
    for (const QString& statement : statements) {
        running.run(statement);
    }
    return running.error();
}

QString SqliteStore::migrate(qint64 from) const
{
    const QStringList statements = QStringList{QStringLiteral("BEGIN IMMEDIATE")} +
                                   sqliteMigrationFrom(static_cast<int>(from)) +
                                   QStringList{versionStatement(schemaVersion()), QStringLiteral("COMMIT")};
    const QSqlError error = run(statements);
    if (error.isValid()) {
        run({QStringLiteral("ROLLBACK")});
        return sentenceFor(error);
    }
    return QString();
}

QSqlError SqliteStore::begin(Begin kind)
{
    return run({kind == Begin::Write ? QStringLiteral("BEGIN IMMEDIATE") : QStringLiteral("BEGIN")});
}

QSqlError SqliteStore::commit()
{
    return run({QStringLiteral("COMMIT")});
}

void SqliteStore::rollback()
{
    run({QStringLiteral("ROLLBACK")});
}

/// A commit that failed may yet stand in the log, and come back with it after a power failure. A small change
/// behind it decides: where that is durable, so is what can be read before it, and nothing else.
QString SqliteStore::settle()
{
    rollback();
    disconnect();
    const QString fault = openForWriting();
    if (!fault.isEmpty()) {
        return fault;
    }
    const QSqlError error =
        run({QStringLiteral("BEGIN IMMEDIATE"),
             QStringLiteral("UPDATE ledger_number SET value = value + 1 WHERE name = 'last_settled'"),
             QStringLiteral("INSERT INTO ledger_number (name, value) SELECT 'last_settled', 1 "
                            "WHERE NOT EXISTS (SELECT 1 FROM ledger_number WHERE name = 'last_settled')"),
             QStringLiteral("COMMIT")});
    if (error.isValid()) {
        rollback();
    }
    return error.isValid() ? sentenceFor(error) : QString();
}

Store::Failure SqliteStore::failureOf(const QSqlError&) const
{
    return Failure::Final; // whoever came second has waited already
}

QString SqliteStore::sentenceFor(const QSqlError& error) const
{
    qCInfo(lcLedger) << mPath << error.nativeErrorCode() << error.text();
    switch (codeOf(error)) {
    case Busy:
    case Locked:
        return texts::busyFile(mPath);
    case ReadOnly:
        return texts::readOnlyFile(mPath);
    case InputOutput:
        return QStorageInfo(folderOf(mPath)).bytesAvailable() < NoRoom ? texts::fullDisk(mPath)
                                                                       : texts::failedDisk(mPath);
    case Corrupt:
        return texts::damagedFile(mPath);
    case Full:
        return texts::fullDisk(mPath);
    case CannotOpen:
        return texts::unreadableFile(mPath);
    case NotADatabase:
        return texts::foreignFile(mPath);
    default:
        return texts::failedFile(mPath, error.databaseText());
    }
}

/// The lock file of an account, or of all.
QString SqliteStore::claimFile(const QString& account) const
{
    const QString all = mPath + QLatin1String(".gateway");
    return account == AllAccounts
               ? all
               : all + QLatin1Char('-') + QString::fromLatin1(QUrl::toPercentEncoding(account));
}

std::optional<bool> SqliteStore::isClaimed(const QString& account) const
{
    return FileLock(claimFile(account)).isHeldExclusively();
}

std::unique_ptr<AccountClaim> SqliteStore::claim(const QStringList& accounts, QString& holder)
{
    const QString signature = QStringLiteral("%1 %2")
                                  .arg(QCoreApplication::applicationName())
                                  .arg(QCoreApplication::applicationPid());
    auto claim = std::make_unique<SqliteClaim>();
    const bool takesAll = accounts.isEmpty() || accounts.contains(AllAccounts);
    if (!claim->take(claimFile(AllAccounts), takesAll ? FileLock::Kind::Exclusive : FileLock::Kind::Shared,
                     signature, holder)) {
        return nullptr;
    }
    QStringList sorted = takesAll ? QStringList() : accounts;
    sorted.sort();
    for (const QString& account : qAsConst(sorted)) {
        if (!claim->take(claimFile(account), FileLock::Kind::Exclusive, signature, holder)) {
            return nullptr;
        }
    }
    return claim;
}

QString SqliteStore::verify()
{
    Statements statements(database());
    const QString verdict = statements.single(QStringLiteral("PRAGMA integrity_check(1)")).toString();
    const bool hasOrphans = statements.single(QStringLiteral("PRAGMA foreign_key_check")).isValid();
    if (statements.failed()) {
        return sentenceFor(statements.error());
    }
    return verdict == QLatin1String("ok") && !hasOrphans ? QString() : texts::damagedFile(mPath);
}

/// One statement that reads a single state, whoever writes meanwhile.
QString SqliteStore::backup(const QString& file)
{
    const QByteArray encoded = QFile::encodeName(file);
    const int descriptor =
        ::open(encoded.constData(), O_RDWR | O_CREAT | O_EXCL | O_CLOEXEC | O_NOFOLLOW, 0600);
    if (descriptor < 0) {
        return errno == EEXIST ? texts::backupExists(file) : texts::backupFailed(file);
    }
    close(descriptor);
    Statements statements(database());
    statements.run(QStringLiteral("VACUUM INTO ?"), {file});
    if (statements.failed() || !syncFile(file) || !syncFolder(folderOf(file))) {
        QFile::remove(file);
        return texts::backupFailed(file);
    }
    return QString();
}

QString SqliteStore::closeLog()
{
    const QString fault = connectTo(mPath, QString());
    if (!fault.isEmpty()) {
        return fault;
    }
    Statements statements(database());
    const QString mode = statements.single(QStringLiteral("PRAGMA journal_mode = DELETE")).toString();
    switch (statements.failed() ? codeOf(statements.error()) : 0) {
    case 0:
        return mode == QLatin1String("delete") ? QString() : texts::ledgerInUse(mPath);
    case Busy:
    case Locked:
        return texts::ledgerInUse(mPath);
    case Corrupt:
    case NotADatabase:
        return QString(); // it cannot be moved: the log is kept beside the file
    default:
        return sentenceFor(statements.error());
    }
}

QString SqliteStore::vacuum()
{
    const QSqlError error =
        run({QStringLiteral("VACUUM"), QStringLiteral("PRAGMA wal_checkpoint(TRUNCATE)")});
    return error.isValid() ? sentenceFor(error) : QString();
}

} // namespace ledger
