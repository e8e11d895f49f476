#include "ledger/store/SqliteFile.h"

#include "ledger/LedgerTexts.h"

#include <QFile>
#include <QFileInfo>
#include <QLoggingCategory>
#include <QSqlQuery>
#include <QUrl>
#include <QUuid>
#include <QVariant>

namespace ledger {

namespace {

Q_LOGGING_CATEGORY(lcLedger, "algo.desk.ledger")

/// Marks the file as ours in its header ("ABIL").
constexpr int ApplicationId = 0x4142494C;

/// How long a statement waits for another process.
const QString BusyTimeout = QStringLiteral("QSQLITE_BUSY_TIMEOUT=5000");

// Primary result codes of SQLite; the extended ones carry more in their upper bits.
enum ResultCode {
    Busy = 5,
    Locked = 6,
    ReadOnly = 8,
    Corrupt = 11,
    Full = 13,
    CannotOpen = 14,
    NotADatabase = 26,
};

/// The first value that a statement gives. An error that is there already stays.
QVariant single(const QSqlDatabase& database, const QString& statement, QSqlError& error)
{
    QSqlQuery query(database);
    const bool hasRow = query.exec(statement) && query.next();
    error = error.isValid() ? error : query.lastError();
    return hasRow ? query.value(0) : QVariant();
}

QString readOptions(bool immutable)
{
    QString options = BusyTimeout + QLatin1String(";QSQLITE_OPEN_READONLY");
    return immutable ? options + QLatin1String(";QSQLITE_OPEN_URI") : options;
}

/// A log cannot be shared in a folder that nothing can be written to; then nobody else writes it either.
bool isImmutable(const QString& path)
{
    return !QFileInfo(QFileInfo(path).absolutePath()).isWritable() &&
           !QFile::exists(path + QLatin1String("-wal"));
}

} // namespace

SqliteFile::SqliteFile(const QString& path) : mPath(path), mConnection(QUuid::createUuid().toString()) {}

SqliteFile::~SqliteFile()
{
    QSqlDatabase::database(mConnection, false).close();
    QSqlDatabase::removeDatabase(mConnection);
}

QSqlDatabase SqliteFile::database() const
{
    return QSqlDatabase::database(mConnection, false);
}

bool SqliteFile::hasContent(const QString& path)
{
    return QFileInfo(path).size() > 0;
}

QString SqliteFile::open(Mode mode)
{
    QSqlDatabase database = QSqlDatabase::addDatabase(QStringLiteral("QSQLITE"), mConnection);
    const bool immutable = mode == Mode::Read && isImmutable(mPath);
    database.setConnectOptions(mode == Mode::Read ? readOptions(immutable) : BusyTimeout);
    if (mode == Mode::Memory) {
        database.setDatabaseName(QStringLiteral(":memory:"));
    } else if (immutable) {
        database.setDatabaseName(QUrl::fromLocalFile(mPath).toString(QUrl::FullyEncoded) +
                                 QLatin1String("?immutable=1"));
    } else {
        database.setDatabaseName(mPath);
    }
    if (!database.open()) {
        return sentenceFor(database.lastError());
    }
    QSqlError error;
    single(database, QStringLiteral("PRAGMA foreign_keys = ON"), error);
    return error.isValid() ? sentenceFor(error) : QString();
}

/// A file of another kind is told by its first bytes, before SQLite may call it damaged.
QString SqliteFile::inspectHeader() const
{
    QFile file(mPath);
    if (!file.open(QIODevice::ReadOnly)) {
        return texts::unreadableFile(mPath);
    }
    const bool isSqlite = file.read(16) == QByteArray("SQLite format 3\0", 16);
    return isSqlite ? QString() : texts::foreignFile(mPath);
}

QString SqliteFile::inspect() const
{
    const QString fault = inspectHeader();
    if (!fault.isEmpty()) {
        return fault;
    }
    QSqlError error;
    const int id = single(database(), QStringLiteral("PRAGMA application_id"), error).toInt();
    const int tables =
        single(database(), QStringLiteral("SELECT COUNT(*) FROM sqlite_master"), error).toInt();
    if (error.isValid()) {
        return sentenceFor(error);
    }
    if (id != ApplicationId && (id != 0 || tables > 0)) {
        return texts::foreignFile(mPath);
    }
    const QString verdict = single(database(), QStringLiteral("PRAGMA quick_check(1)"), error).toString();
    if (error.isValid()) {
        return sentenceFor(error); // busy, or a disk that does not answer: that says nothing of the file
    }
    return verdict == QLatin1String("ok") ? QString() : texts::damagedFile(mPath);
}

QString SqliteFile::prepareForWriting(int maxPages) const
{
    QStringList statements{
        QStringLiteral("PRAGMA journal_mode = WAL"),
        // a batch that was reported as created survives a power failure
        QStringLiteral("PRAGMA synchronous = FULL"),
        // some ten large batches, so that not every other one waits for the log to be moved
        QStringLiteral("PRAGMA wal_autocheckpoint = 4000")};
    QSqlError error;
    if (single(database(), QStringLiteral("PRAGMA application_id"), error).toInt() != ApplicationId) {
        statements.append(QStringLiteral("PRAGMA application_id = %1").arg(ApplicationId));
    }
    if (maxPages > 0) {
        statements.append(QStringLiteral("PRAGMA max_page_count = %1").arg(maxPages));
    }
    for (const QString& statement : statements) {
        single(database(), statement, error);
        if (error.isValid()) {
            return sentenceFor(error);
        }
    }
    return QString();
}

QString SqliteFile::sentenceFor(const QSqlError& error) const
{
    qCInfo(lcLedger) << mPath << error.nativeErrorCode() << error.text();
    switch (error.nativeErrorCode().toInt() & 0xff) {
    case Busy:
    case Locked:
        return texts::busyFile(mPath);
    case ReadOnly:
        return texts::readOnlyFile(mPath);
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

Transaction::~Transaction()
{
    if (mOpen) {
        mDatabase.rollback();
    }
}

bool Transaction::commit()
{
    if (mOpen && mDatabase.commit()) {
        mOpen = false;
        return true;
    }
    return false;
}

} // namespace ledger
