#include "embedded_host/table_reader/ZipArchive.h"

#include "embedded_host/table_reader/Limits.h"
#include "embedded_host/table_reader/Messages.h"

#include <zip.h>

#include <algorithm>
#include <array>

namespace table_reader {
namespace {

/// Lets libzip read from a QIODevice; it never writes.
class DeviceSource {
public:
    static zip_source_t* create(QIODevice& device)
    {
        auto* source = new DeviceSource(device);
        zip_source_t* made = zip_source_function_create(&DeviceSource::answer, source, nullptr);
        if (made == nullptr) {
            delete source;
        }
        return made;
    }

private:
    explicit DeviceSource(QIODevice& device) : mDevice(device) { zip_error_init(&mError); }
    ~DeviceSource() { zip_error_fini(&mError); }

    static zip_int64_t answer(void* self, void* data, zip_uint64_t length, zip_source_cmd_t command)
    {
        auto& source = *static_cast<DeviceSource*>(self);
        switch (command) {
        case ZIP_SOURCE_OPEN:
            return source.mDevice.seek(0) ? 0 : source.fail(ZIP_ER_SEEK);
        case ZIP_SOURCE_CLOSE:
            return 0;
        case ZIP_SOURCE_READ: {
            const qint64 got = source.mDevice.read(static_cast<char*>(data), static_cast<qint64>(length));
            return got >= 0 ? got : source.fail(ZIP_ER_READ);
        }
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
    zip_error_t mError;
};

} // namespace

void ZipCloser::operator()(zip* archive) const
{
    zip_discard(archive);
}

void ZipCloser::operator()(zip_file* part) const
{
    zip_fclose(part);
}

QString ZipArchive::open()
{
    zip_source_t* source = DeviceSource::create(mFile);
    if (source == nullptr) {
        return message::damagedArchive();
    }
    mZip.reset(zip_open_from_source(source, ZIP_RDONLY, nullptr));
    if (!mZip) {
        zip_source_free(source);
        return message::damagedArchive();
    }
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
    const qint64 got =
        mFailure.isEmpty() ? zip_fread(mPart.get(), data, static_cast<zip_uint64_t>(maximum)) : -1;
    mSound = mSound && got >= 0;
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
    mPart.reset();
    return mSound && mRead == mSize ? QString() : message::damagedPart(mName);
}

} // namespace table_reader
