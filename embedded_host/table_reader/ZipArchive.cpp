#include "embedded_host/table_reader/ZipArchive.h"

#include "embedded_host/table_reader/Limits.h"
#include "embedded_host/table_reader/Messages.h"

#include <quazip/quazip.h>
#include <quazip/quazipfile.h>
#include <quazip/quazipfileinfo.h>

#include <algorithm>
#include <array>

namespace table_reader {
namespace {

constexpr quint16 EncryptedFlag = 1;

} // namespace

ZipArchive::ZipArchive(QIODevice& file) : mZip(std::make_unique<QuaZip>(&file))
{
    mZip->setAutoClose(false);
    mZip->setFileNameCodec("UTF-8");
}

ZipArchive::~ZipArchive()
{
    mZip->close();
}

QString ZipArchive::open()
{
    if (!mZip->open(QuaZip::mdUnzip)) {
        return message::damagedArchive();
    }
    const int entries = mZip->getEntriesCount();
    if (entries > limits::ArchiveEntries) {
        return message::tooManyParts();
    }
    return entries < 0 ? message::damagedArchive() : readDirectory();
}

QString ZipArchive::readDirectory()
{
    int number = 0;
    for (bool more = mZip->goToFirstFile(); more; more = mZip->goToNextFile()) {
        if (number >= limits::ArchiveEntries) {
            return message::tooManyParts();
        }
        mParts.insert(key(mZip->getCurrentFileName()), number++);
    }
    return mZip->getZipError() == UNZ_OK ? QString() : message::damagedArchive();
}

QString ZipArchive::key(const QString& name)
{
    QString key = name.toLower();
    key.replace(QLatin1Char('\\'), QLatin1Char('/'));
    return key.startsWith(QLatin1Char('/')) ? key.mid(1) : key;
}

bool ZipArchive::select(const QString& name)
{
    const int number = mParts.value(key(name), -1);
    bool found = number >= 0 && mZip->goToFirstFile();
    for (int at = 0; found && at < number; ++at) {
        found = mZip->goToNextFile();
    }
    return found;
}

PartStream::PartStream(ZipArchive& archive, const QString& name) : mArchive(archive), mName(name) {}

PartStream::~PartStream() = default;

QString PartStream::begin()
{
    if (!mArchive.contains(mName)) {
        return message::missingPart(mName);
    }
    QuaZipFileInfo64 info;
    if (!mArchive.select(mName) || !mArchive.mZip->getCurrentFileInfo(&info)) {
        return message::damagedArchive();
    }
    if ((info.flags & EncryptedFlag) != 0) {
        return message::encrypted();
    }
    mSize = static_cast<qint64>(info.uncompressedSize);
    mCompressed = static_cast<qint64>(info.compressedSize);
    mPart = std::make_unique<QuaZipFile>(mArchive.mZip.get());
    if (mSize < 0 || !mPart->open(QIODevice::ReadOnly)) {
        return message::damagedPart(mName);
    }
    open(QIODevice::ReadOnly | QIODevice::Unbuffered);
    return QString();
}

qint64 PartStream::readData(char* data, qint64 maximum)
{
    const qint64 got = mFailure.isEmpty() ? mPart->read(data, maximum) : -1;
    if (got <= 0) {
        return -1;
    }
    mRead += got;
    mTokenBytes += got;
    if (mRead > limits::PartBytes || mTokenBytes > limits::TokenBytes || isSuspicious()) {
        mFailure = message::partTooLarge(mName);
        return -1;
    }
    return got;
}

bool PartStream::isSuspicious() const
{
    return mRead > limits::SuspiciousPartBytes && mRead / limits::InflationRatio > mCompressed;
}

QString PartStream::finish()
{
    std::array<char, 32768> rest;
    do {
        beginToken();
    } while (read(rest.data(), rest.size()) > 0);
    if (!mFailure.isEmpty()) {
        return mFailure;
    }
    mPart->close();
    const bool sound = mPart->getZipError() == UNZ_OK && mRead == mSize;
    return sound ? QString() : message::damagedPart(mName);
}

} // namespace table_reader
