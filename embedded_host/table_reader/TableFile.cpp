#include "embedded_host/table_reader/TableFile.h"

#include "embedded_host/table_reader/shared/Messages.h"

#include <QCryptographicHash>
#include <QFileInfo>

namespace table_reader {
namespace {

/// Why there is nothing to open; empty where there is. A pipe could keep us waiting for ever.
QString refusalOf(const QString& path)
{
    const QFileInfo info(path);
    if (!info.exists()) {
        return message::missing();
    }
    if (info.isDir()) {
        return message::isDirectory();
    }
    return info.isFile() ? QString() : message::notRegular();
}

} // namespace

TableFile::TableFile(const QString& path) : mFile(path), mRefusal(refusalOf(path))
{
    if (mRefusal.isEmpty() && !mFile.open(QIODevice::ReadOnly)) {
        mRefusal = message::unreadable(mFile.errorString());
    }
    mOpened = stamp();
}

TableFile::Stamp TableFile::stamp() const
{
    return {mFile.size(), mFile.fileTime(QFileDevice::FileModificationTime)};
}

table::Table TableFile::read(const ReadOptions& options)
{
    if (mRefusal.isEmpty() && mFile.seek(0)) {
        return readTable(mFile, options);
    }
    table::Table refused;
    refused.error = mRefusal.isEmpty() ? message::unreadable(mFile.errorString()) : mRefusal;
    return refused;
}

Outcome<QString> TableFile::sha256()
{
    if (!mRefusal.isEmpty()) {
        return {QString(), mRefusal};
    }
    QCryptographicHash hash(QCryptographicHash::Sha256);
    if (!mFile.seek(0) || !hash.addData(&mFile)) {
        return {QString(), message::unreadable(mFile.errorString())};
    }
    if (!(stamp() == mOpened)) {
        return {QString(), message::changed()};
    }
    return {QString::fromLatin1(hash.result().toHex()), QString()};
}

} // namespace table_reader
