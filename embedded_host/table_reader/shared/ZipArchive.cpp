#include "embedded_host/table_reader/shared/ZipArchive.h"

#include "embedded_host/table_reader/shared/Limits.h"
#include "embedded_host/table_reader/shared/Messages.h"

#include <zip.h>

#include <QRegularExpression>
#include <QTextCodec>

#include <algorithm>
#include <array>
#include <cstring>
#include <limits>

namespace table_reader {
namespace {

/// Lets libzip read from a QIODevice, no more bytes than are left; it never writes.
class DeviceSource {
public:
    static zip_source_t* create(QIODevice& device, qint64& bytesLeft)
    {
        auto* source = new DeviceSource(device, bytesLeft);
        zip_source_t* made = zip_source_function_create(&DeviceSource::answer, source, nullptr);
        if (made == nullptr) {
            delete source;
        }
        return made;
    }

private:
    DeviceSource(QIODevice& device, qint64& bytesLeft) : mDevice(device), mBytesLeft(bytesLeft)
    {
        zip_error_init(&mError);
    }
    ~DeviceSource() { zip_error_fini(&mError); }

    static zip_int64_t answer(void* self, void* data, zip_uint64_t length, zip_source_cmd_t command)
    {
        auto& source = *static_cast<DeviceSource*>(self);
        switch (command) {
        case ZIP_SOURCE_OPEN:
            return source.mDevice.seek(0) ? 0 : source.fail(ZIP_ER_SEEK);
        case ZIP_SOURCE_CLOSE:
            return 0;
        case ZIP_SOURCE_READ:
            return source.read(static_cast<char*>(data), static_cast<qint64>(length));
        case ZIP_SOURCE_STAT:
            return source.stat(data);
        case ZIP_SOURCE_SEEK:
            return source.seek(data, length);
        case ZIP_SOURCE_TELL:
            return source.mDevice.pos();
        case ZIP_SOURCE_ERROR:
            return zip_error_to_data(&source.mError, data, length);
        case ZIP_SOURCE_FREE:
            delete &source;
            return 0;
        case ZIP_SOURCE_SUPPORTS:
            return zip_source_make_command_bitmap(ZIP_SOURCE_OPEN, ZIP_SOURCE_READ, ZIP_SOURCE_CLOSE,
                                                  ZIP_SOURCE_STAT, ZIP_SOURCE_ERROR, ZIP_SOURCE_FREE,
                                                  ZIP_SOURCE_SEEK, ZIP_SOURCE_TELL, ZIP_SOURCE_SUPPORTS, -1);
        default:
            return source.fail(ZIP_ER_OPNOTSUPP);
        }
    }

    zip_int64_t fail(int code)
    {
        zip_error_set(&mError, code, 0);
        return -1;
    }

    zip_int64_t read(char* data, qint64 length)
    {
        const qint64 got = mDevice.read(data, length);
        mBytesLeft -= std::max<qint64>(got, 0);
        return got >= 0 && mBytesLeft >= 0 ? got : fail(ZIP_ER_READ);
    }

    zip_int64_t stat(void* data) const
    {
        auto& answered = *static_cast<zip_stat_t*>(data);
        zip_stat_init(&answered);
        answered.size = static_cast<zip_uint64_t>(mDevice.size());
        answered.valid |= ZIP_STAT_SIZE;
        return sizeof(zip_stat_t);
    }

    zip_int64_t seek(void* data, zip_uint64_t length)
    {
        const zip_int64_t to =
            zip_source_seek_compute_offset(static_cast<zip_uint64_t>(mDevice.pos()),
                                           static_cast<zip_uint64_t>(mDevice.size()), data, length, &mError);
        if (to < 0) {
            return -1;
        }
        return mDevice.seek(to) ? 0 : fail(ZIP_ER_SEEK);
    }

    QIODevice& mDevice;
    qint64& mBytesLeft;
    zip_error_t mError;
};

/// The name of the encoding in a part's declaration; empty where it names none.
QString declaredEncoding(const QByteArray& head)
{
    static const QRegularExpression declaration(
        QStringLiteral("^(?:\\xEF\\xBB\\xBF)?<\\?xml\\s[^>]*?encoding\\s*=\\s*[\"']([^\"']*)[\"']"));
    return declaration.match(QString::fromLatin1(head)).captured(1);
}

/// Whether markup is the same bytes in this encoding as in ASCII.
bool keepsAscii(const QString& encoding)
{
    static const QRegularExpression known(
        QStringLiteral("^(UTF-?8|(US-)?ASCII|ISO-8859-\\d+|windows-\\d+|GB2312|GBK|GB18030)?$"),
        QRegularExpression::CaseInsensitiveOption);
    return known.match(encoding).hasMatch();
}

/// UTF-16 as the first bytes show it, with a byte order mark or without; empty: it is none.
QByteArray wideEncoding(const QByteArray& head)
{
    const bool isLittle = head.startsWith("\xFF\xFE") || head.startsWith(QByteArray("<\0", 2));
    const bool isBig = head.startsWith("\xFE\xFF") || head.startsWith(QByteArray("\0<", 2));
    return isLittle ? "UTF-16LE" : isBig ? "UTF-16BE" : "";
}

bool isUtf8(const QString& encoding)
{
    return encoding.isEmpty() || encoding.compare(QLatin1String("UTF-8"), Qt::CaseInsensitive) == 0 ||
           encoding.compare(QLatin1String("UTF8"), Qt::CaseInsensitive) == 0;
}

} // namespace

void ZipCloser::operator()(zip* archive) const
{
    zip_discard(archive);
}

void ZipCloser::operator()(zip_file* part) const
{
    zip_fclose(part);
}

ZipArchive::ZipArchive(QIODevice& file) : mFile(file), mBytesLeft(limits::DirectoryBytes) {}

QString ZipArchive::open()
{
    if (mFile.size() > limits::ZipFileBytes) {
        return message::fileTooLarge();
    }
    zip_source_t* source = DeviceSource::create(mFile, mBytesLeft);
    if (source == nullptr) {
        return message::damagedArchive();
    }
    mZip.reset(zip_open_from_source(source, ZIP_RDONLY, nullptr));
    if (!mZip) {
        zip_source_free(source);
        return mBytesLeft < 0 ? message::tooManyParts() : message::damagedArchive();
    }
    mBytesLeft = std::numeric_limits<qint64>::max();
    const qint64 entries = zip_get_num_entries(mZip.get(), 0);
    return entries > limits::ArchiveEntries ? message::tooManyParts() : readDirectory(entries);
}

QString ZipArchive::readDirectory(qint64 entries)
{
    for (qint64 number = 0; number < entries; ++number) {
        const char* name = zip_get_name(mZip.get(), static_cast<zip_uint64_t>(number), ZIP_FL_ENC_RAW);
        if (name == nullptr) {
            return message::damagedArchive();
        }
        mParts.insert(key(QString::fromUtf8(name)), number);
    }
    return QString();
}

QString ZipArchive::key(const QString& name)
{
    QString key = name.toLower();
    key.replace(QLatin1Char('\\'), QLatin1Char('/'));
    return key.startsWith(QLatin1Char('/')) ? key.mid(1) : key;
}

PartStream::PartStream(ZipArchive& archive, const QString& name) : mArchive(archive), mName(name) {}

PartStream::~PartStream() = default;

QString PartStream::begin()
{
    if (!mArchive.contains(mName)) {
        return message::missingPart(mName);
    }
    zip* archive = mArchive.mZip.get();
    const auto entry = static_cast<zip_uint64_t>(mArchive.entryOf(mName));
    zip_stat_t info;
    if (zip_stat_index(archive, entry, 0, &info) != 0) {
        return message::damagedArchive();
    }
    if (info.encryption_method != ZIP_EM_NONE) {
        return message::encrypted();
    }
    mSize = static_cast<qint64>(info.size);
    mCompressed = static_cast<qint64>(info.comp_size);
    mPart.reset(zip_fopen_index(archive, entry, 0));
    if (mSize < 0 || !mPart) {
        return message::damagedPart(mName);
    }
    open(QIODevice::ReadOnly | QIODevice::Unbuffered);
    return QString();
}

qint64 PartStream::readData(char* data, qint64 maximum)
{
    const qint64 got = mFailure.isEmpty() ? readBytes(data, maximum) : -1;
    if (got <= 0) {
        return -1;
    }
    mTokenBytes += got;
    const bool isTooLarge = mRead > limits::PartBytes || mTokenBytes > limits::TokenBytes || isSuspicious();
    if (isTooLarge) {
        mFailure = message::partTooLarge(mName);
    } else if (std::memchr(data, '\0', static_cast<size_t>(got)) != nullptr) {
        mFailure = message::foreignEncoding(mName);
    }
    return mFailure.isEmpty() ? got : -1;
}

qint64 PartStream::readBytes(char* data, qint64 maximum)
{
    if (mDecoder) {
        return takeRecoded(data, maximum);
    }
    const qint64 got = inflate(data, maximum);
    if (mHasBegun || got <= 0) {
        return got;
    }
    mHasBegun = true;
    const QByteArray head(data, static_cast<int>(got));
    const QString declared = declaredEncoding(head);
    QByteArray encoding = wideEncoding(head);
    if (encoding.isEmpty() && isUtf8(declared)) {
        return got;
    }
    if (encoding.isEmpty() && keepsAscii(declared)) {
        encoding = declared.toLatin1();
    }
    const QTextCodec* const codec = encoding.isEmpty() ? nullptr : QTextCodec::codecForName(encoding);
    if (codec == nullptr) {
        mFailure = message::foreignEncoding(mName);
        return -1;
    }
    mDecoder.reset(codec->makeDecoder());
    recode(head);
    return takeRecoded(data, maximum);
}

qint64 PartStream::takeRecoded(char* data, qint64 maximum)
{
    while (mRecoded.isEmpty()) {
        std::array<char, 8192> encoded;
        const qint64 got = inflate(encoded.data(), encoded.size());
        if (got <= 0) {
            return got;
        }
        recode(QByteArray(encoded.data(), static_cast<int>(got)));
    }
    const qint64 length = std::min<qint64>(maximum, mRecoded.size());
    std::copy_n(mRecoded.constData(), length, data);
    mRecoded.remove(0, static_cast<int>(length));
    return length;
}

/// What is not of the encoding becomes a byte that is not of UTF-8: whoever reads it says where it stands.
void PartStream::recode(const QByteArray& bytes)
{
    mRecoded += mDecoder->toUnicode(bytes).toUtf8();
    if (mDecoder->hasFailure()) {
        mRecoded += '\xFF';
    }
}

qint64 PartStream::inflate(char* data, qint64 maximum)
{
    const qint64 got = zip_fread(mPart.get(), data, static_cast<zip_uint64_t>(maximum));
    mRead += std::max<qint64>(got, 0);
    return got;
}

bool PartStream::isSuspicious() const
{
    return mRead > limits::SuspiciousPartBytes && mRead / limits::InflationRatio > mCompressed;
}

QString PartStream::finish()
{
    if (!mFailure.isEmpty()) {
        return mFailure;
    }
    if (mSize - mRead > limits::RestBytes) {
        return QString();
    }
    std::array<char, 32768> rest;
    const qint64 end = mRead + limits::RestBytes;
    qint64 got = 1;
    while (got > 0 && mRead < end) {
        got = inflate(rest.data(), rest.size());
    }
    mPart.reset();
    const bool isSound = got > 0 || (got == 0 && mRead == mSize); // libzip compares the checksum at the end
    return isSound ? QString() : message::damagedPart(mName);
}

} // namespace table_reader
