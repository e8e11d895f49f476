// A backup in the place of a ledger.

#include "ledger/Ledger.h"
#include "ledger/LedgerTexts.h"
#include "ledger/store/FileLock.h"
#include "ledger/store/SqliteStore.h"
#include "ledger/store/Statements.h"
#include "ledger/store/Sync.h"

#include <QDateTime>
#include <QFile>
#include <QFileInfo>
#include <QUuid>

#include <cstdio>

namespace ledger {

namespace {

/// Empty, or why the backup is no sound ledger.
QString faultOfBackup(const QString& backup)
{
    if (!QFileInfo(backup).isFile()) {
        return texts::unreadableFile(backup);
    }
    SqliteStore store(backup, {Store::Mode::Read, 0, 0});
    const QString fault = store.open();
    return fault.isEmpty() ? store.verify() : fault;
}

/// Moves everything out of the log into the file, which only works where nobody else has it open.
bool closeLog(const QString& path)
{
    const QString connection = QUuid::createUuid().toString();
    bool isAlone = false;
    {
        QSqlDatabase database = QSqlDatabase::addDatabase(QStringLiteral("QSQLITE"), connection);
        database.setConnectOptions(QStringLiteral("QSQLITE_BUSY_TIMEOUT=0"));
        database.setDatabaseName(path);
        if (database.open()) {
            Statements statements(database);
            const QString mode = statements.single(QStringLiteral("PRAGMA journal_mode = DELETE")).toString();
            isAlone = !statements.failed() && mode == QLatin1String("delete");
        }
        database.close();
    }
    QSqlDatabase::removeDatabase(connection);
    return isAlone;
}

/// A copy beside the ledger that is whole on the disk before it takes the ledger's name.
bool copyBeside(const QString& backup, const QString& copy)
{
    QFile::remove(copy);
    return QFile::copy(backup, copy) && QFile::setPermissions(copy, QFile::ReadOwner | QFile::WriteOwner) &&
           syncFile(copy);
}

} // namespace

Outcome<void> restoreLedger(const QString& backup, const QString& path)
{
    const QString fault = faultOfBackup(backup);
    if (!fault.isEmpty()) {
        return {fault};
    }
    FileLock lock(path + QLatin1String(".lock"));
    if (lock.take(FileLock::Kind::Exclusive, 0) != FileLock::Answer::Taken) {
        return {texts::ledgerInUse(path)};
    }
    const bool isThere = QFileInfo(path).size() > 0;
    if (isThere && !closeLog(path)) {
        return {texts::ledgerInUse(path)};
    }
    const QString copy = path + QLatin1String(".restoring");
    const QString kept = path + QLatin1String(".before-restore-") +
                         QDateTime::currentDateTimeUtc().toString(QStringLiteral("yyyyMMddHHmmsszzz"));
    const bool isRestored =
        copyBeside(backup, copy) && (!isThere || QFile::rename(path, kept)) &&
        rename(QFile::encodeName(copy).constData(), QFile::encodeName(path).constData()) == 0 &&
        syncFolder(QFileInfo(path).absolutePath());
    return {isRestored ? QString() : texts::restoreFailed(path)};
}

} // namespace ledger
