// A backup in the place of a ledger.

#include "ledger/Ledger.h"
#include "ledger/LedgerTexts.h"
#include "ledger/store/FileLock.h"
#include "ledger/store/SqliteStore.h"
#include "ledger/store/Sync.h"

#include <unistd.h>

#include <QDateTime>
#include <QFile>
#include <QFileInfo>

#include <cstdio>

namespace ledger {

namespace {

/// What the backup holds, a log beside it included, in a file beside the ledger: whole on the disk before it
/// takes the ledger's name. Empty, or why the backup is no sound ledger, or cannot be copied.
QString copyBeside(const QString& backup, const QString& copy)
{
    if (!QFileInfo(backup).isFile()) {
        return texts::unreadableFile(backup);
    }
    SqliteStore store(backup, {Store::Mode::Read, 0, 0});
    QString fault = store.open();
    if (fault.isEmpty()) {
        fault = store.verify();
    }
    QFile::remove(copy);
    return fault.isEmpty() ? store.backup(copy) : fault;
}

bool moveAway(const QString& from, const QString& to)
{
    return !QFile::exists(from) ||
           rename(QFile::encodeName(from).constData(), QFile::encodeName(to).constData()) == 0;
}

/// The ledger gets a second name, and logs that would be taken for those of the new file lose theirs.
bool keepOld(const QString& path, const QString& kept)
{
    const bool isThere = QFileInfo(path).size() > 0;
    return (!isThere ||
            link(QFile::encodeName(path).constData(), QFile::encodeName(kept).constData()) == 0) &&
           moveAway(path + QLatin1String("-wal"), kept + QLatin1String("-wal")) &&
           moveAway(path + QLatin1String("-shm"), kept + QLatin1String("-shm")) &&
           moveAway(path + QLatin1String("-journal"), kept + QLatin1String("-journal")) &&
           syncFolder(QFileInfo(path).absolutePath());
}

} // namespace

/// At every moment there is a whole ledger under its name: killed or failed, it is the old one or the backup.
Outcome<void> restoreLedger(const QString& backup, const QString& path)
{
    FileLock lock(path + QLatin1String(".lock"));
    if (QFileInfo(backup).isFile() && lock.take(FileLock::Kind::Exclusive, 0) != FileLock::Answer::Taken) {
        return {texts::ledgerInUse(path)};
    }
    const QString copy = path + QLatin1String(".restoring");
    QString fault = copyBeside(backup, copy);
    if (fault.isEmpty() && QFileInfo(path).size() > 0) {
        fault = SqliteStore(path, {Store::Mode::Write, 0, 0}).closeLog();
    }
    if (!fault.isEmpty()) {
        QFile::remove(copy);
        return {fault};
    }
    const QString kept = path + QLatin1String(".before-restore-") +
                         QDateTime::currentDateTimeUtc().toString(QStringLiteral("yyyyMMddHHmmsszzz"));
    if (!keepOld(path, kept) ||
        rename(QFile::encodeName(copy).constData(), QFile::encodeName(path).constData()) != 0) {
        QFile::remove(kept);
        QFile::remove(copy);
        return {texts::restoreFailed(path)};
    }
    return {syncFolder(QFileInfo(path).absolutePath()) ? QString() : texts::restoreUnconfirmed(path)};
}

} // namespace ledger
