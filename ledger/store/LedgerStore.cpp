#include "ledger/store/LedgerStore.h"

#include "ledger/store/LedgerSchema.h"

#include <QDir>
#include <QFileInfo>

namespace ledger {

QString Ledger::Store::open()
{
    if (options.access == Access::Write) {
        return openForWriting();
    }
    const QFileInfo home(QFileInfo(file.path()).absolutePath());
    if (home.exists() && !home.isExecutable()) {
        return texts::unreadableFile(file.path()); // whether there is a ledger cannot be told
    }
    return SqliteFile::hasContent(file.path()) ? openForReading() : openNothing();
}

QString Ledger::Store::takeLock()
{
    if (!QDir().mkpath(QFileInfo(file.path()).absolutePath())) {
        return texts::readOnlyFile(file.path());
    }
    switch (lock.take()) {
    case OwnerLock::Answer::Taken:
        return QString();
    case OwnerLock::Answer::HeldByAnother:
        return texts::fileInUse(file.path(), lock.ownerProgram(), lock.ownerProcess());
    case OwnerLock::Answer::NotPermitted:
        return texts::readOnlyFile(file.path());
    case OwnerLock::Answer::Failed:
        break;
    }
    return texts::unreadableFile(file.path());
}

/// Looks at the file through a connection that cannot change it. Version 0: no tables yet.
QString Ledger::Store::inspect(const QString& path, qint64& version)
{
    SqliteFile probe(path);
    QString fault = probe.open(SqliteFile::Mode::Read);
    if (fault.isEmpty()) {
        fault = probe.inspect();
    }
    version = fault.isEmpty() ? versionOf(probe.database()) : 0;
    return version > schemaVersion() ? texts::newerFile(path, version, schemaVersion()) : fault;
}

QString Ledger::Store::openForWriting()
{
    QString fault = takeLock();
    qint64 version = 0;
    if (fault.isEmpty() && SqliteFile::hasContent(file.path())) {
        fault = inspect(file.path(), version);
    }
    if (fault.isEmpty()) {
        fault = file.open(SqliteFile::Mode::Write);
    }
    if (fault.isEmpty()) {
        fault = file.prepareForWriting(options.maxPages);
    }
    if (!fault.isEmpty() || version == schemaVersion()) {
        return fault;
    }
    const QSqlError error = migrate(file.database());
    return error.isValid() ? file.sentenceFor(error) : QString();
}

QString Ledger::Store::openForReading()
{
    qint64 version = 0;
    const QString fault = inspect(file.path(), version);
    if (!fault.isEmpty()) {
        return fault;
    }
    if (version == 0) {
        return openNothing(); // its program ended before the first table
    }
    return version < schemaVersion() ? texts::olderFile(file.path(), version)
                                     : file.open(SqliteFile::Mode::Read);
}

QString Ledger::Store::openNothing()
{
    const QString fault = file.open(SqliteFile::Mode::Memory);
    const QSqlError error = fault.isEmpty() ? migrate(file.database()) : QSqlError();
    return error.isValid() ? file.sentenceFor(error) : fault;
}

} // namespace ledger
