#include "embedded_host/table_reader/xls/BiffStream.h"

#include "embedded_host/table_reader/shared/Limits.h"

#include <algorithm>
#include <array>
#include <cstring>

#undef signals
#include <gsf/gsf-input.h>

namespace table_reader {
namespace {

constexpr int ChunkBytes = 64 * 1024;
constexpr int HeaderBytes = 4;

} // namespace

double BiffRecord::real(int at) const
{
    const quint64 bits = dword(at) | static_cast<quint64>(dword(at + 4)) << 32;
    double value = 0;
    static_assert(sizeof value == sizeof bits);
    std::memcpy(&value, &bits, sizeof value);
    return value;
}

QByteArray BiffRecord::bytes(int at, int length) const
{
    const int from = std::min(at, mSize);
    return QByteArray(reinterpret_cast<const char*>(mData) + from, std::min(length, mSize - from));
}

BiffStream::BiffStream(GsfInputPtr input) : mInput(std::move(input)), mSize(gsf_input_size(mInput.get())) {}

/// Holds at least so many bytes from the current place on. False where the stream has fewer.
bool BiffStream::fill(int bytes)
{
    if (mAt + bytes <= mChunk.size()) {
        return true;
    }
    const qint64 from = position();
    if (from + bytes > mSize) {
        return false;
    }
    const int length = static_cast<int>(std::min<qint64>(std::max(bytes, ChunkBytes), mSize - from));
    mChunk.resize(length);
    mChunkStart = from;
    mAt = 0;
    const bool read = gsf_input_seek(mInput.get(), from, G_SEEK_SET) == FALSE &&
                      gsf_input_read(mInput.get(), static_cast<size_t>(length),
                                     reinterpret_cast<guint8*>(mChunk.data())) != nullptr;
    if (!read) {
        mChunk.clear();
        mSize = from; // a damaged chain of blocks ends the stream
    }
    return read;
}

quint16 BiffStream::wordAt(int offset) const
{
    const auto* const at = reinterpret_cast<const quint8*>(mChunk.constData()) + mAt + offset;
    return static_cast<quint16>(at[0] | at[1] << 8);
}

bool BiffStream::next(BiffRecord& record)
{
    if (hasTooMany() || !fill(HeaderBytes)) {
        return false;
    }
    const quint16 type = wordAt(0);
    const int size = wordAt(2);
    if (!fill(HeaderBytes + size)) {
        return false;
    }
    ++mRecords;
    record.type = type;
    record.mSize = size;
    record.mData = reinterpret_cast<const quint8*>(mChunk.constData()) + mAt + HeaderBytes;
    mAt += HeaderBytes + size;
    return true;
}

quint16 BiffStream::peekType()
{
    const bool isHeld = mAt + HeaderBytes <= mChunk.size(); // else the current record would be lost
    if (isHeld) {
        return wordAt(0);
    }
    std::array<guint8, HeaderBytes> header = {};
    const bool read = position() + HeaderBytes <= mSize &&
                      gsf_input_seek(mInput.get(), position(), G_SEEK_SET) == FALSE &&
                      gsf_input_read(mInput.get(), header.size(), header.data()) != nullptr;
    return read ? static_cast<quint16>(header[0] | header[1] << 8) : quint16(0);
}

bool BiffStream::seek(qint64 target)
{
    if (target < 0 || target >= mSize) {
        return false;
    }
    mChunk.clear();
    mChunkStart = target;
    mAt = 0;
    return true;
}

bool BiffStream::hasTooMany() const
{
    return mRecords > limits::Records;
}

} // namespace table_reader
