#include "embedded_host/table_reader/xls/BiffText.h"

#include "embedded_host/table_reader/shared/Limits.h"

#include <QTextCodec>

#include <algorithm>

namespace table_reader {
namespace {

constexpr quint8 WideFlag = 0x01;
constexpr quint8 FarEastFlag = 0x04; ///< phonetic data behind the characters
constexpr quint8 RichFlag = 0x08;    ///< formatting runs behind the characters
constexpr int RunBytes = 4;

struct CodePageName {
    int codePage;
    const char* codec;
};

constexpr CodePageName CodePages[] = {
    {367, "ISO-8859-1"},    {437, "IBM437"},
    {850, "IBM850"},        {852, "IBM852"},
    {866, "IBM866"},        {874, "TIS-620"},
    {932, "Shift_JIS"},     {936, "GB18030"},
    {949, "windows-949"},   {950, "Big5"},
    {1200, "UTF-16LE"},     {1250, "windows-1250"},
    {1251, "windows-1251"}, {1252, "windows-1252"},
    {1253, "windows-1253"}, {1254, "windows-1254"},
    {1255, "windows-1255"}, {1256, "windows-1256"},
    {1257, "windows-1257"}, {1258, "windows-1258"},
    {10000, "macintosh"},   {10007, "x-mac-cyrillic"},
    {32768, "macintosh"},   {32769, "windows-1252"},
    {65001, "UTF-8"},
};

} // namespace

QTextCodec* codecOfCodePage(int codePage)
{
    for (const CodePageName& entry : CodePages) {
        if (entry.codePage == codePage) {
            return QTextCodec::codecForName(entry.codec);
        }
    }
    return nullptr;
}

QTextCodec* westernCodec()
{
    return QTextCodec::codecForName("windows-1252");
}

bool BiffText::continueRecord()
{
    if (mStream.peekType() != biff::Continue || !mStream.next(mRecord)) {
        return false;
    }
    mAt = 0;
    return true;
}

bool BiffText::readByte(quint8& byte)
{
    while (mAt >= mRecord.size()) {
        if (!continueRecord()) {
            return false;
        }
    }
    byte = mRecord.byte(mAt++);
    return true;
}

bool BiffText::readNumber(int bytes, quint32& number)
{
    number = 0;
    for (int at = 0; at < bytes; ++at) {
        quint8 byte = 0;
        if (!readByte(byte)) {
            return false;
        }
        number |= static_cast<quint32>(byte) << (8 * at);
    }
    return true;
}

bool BiffText::read(int lengthBytes, bool keep, QString& text)
{
    quint32 count = 0;
    quint8 flags = 0;
    quint32 runs = 0;
    quint32 farEast = 0;
    text.clear();
    const bool hasHead = readNumber(lengthBytes, count) && readByte(flags) &&
                         ((flags & RichFlag) == 0 || readNumber(2, runs)) &&
                         ((flags & FarEastFlag) == 0 || readNumber(4, farEast));
    return hasHead && readCharacters(count, (flags & WideFlag) != 0, keep, text) &&
           skip(qint64(runs) * RunBytes + farEast);
}

bool BiffText::readCharacters(quint32 count, bool wide, bool keep, QString& text)
{
    quint32 left = count;
    while (left > 0) {
        if (mAt >= mRecord.size()) {
            quint8 flags = 0;
            if (!continueRecord() || !readByte(flags)) {
                return false;
            }
            wide = (flags & WideFlag) != 0;
        }
        const int width = wide ? 2 : 1;
        const quint32 held = static_cast<quint32>((mRecord.size() - mAt) / width);
        const int take = static_cast<int>(std::min(left, held));
        if (take == 0 && mAt < mRecord.size()) {
            return false; // a wide character cut in two
        }
        for (int at = 0; keep && at < take; ++at) {
            text.append(QChar(wide ? mRecord.word(mAt + 2 * at) : ushort(mRecord.byte(mAt + at))));
        }
        mAt += take * width;
        left -= static_cast<quint32>(take);
    }
    return true;
}

bool BiffText::skip(qint64 bytes)
{
    while (bytes > 0) {
        if (mAt >= mRecord.size() && !continueRecord()) {
            return false;
        }
        const qint64 step = std::min<qint64>(bytes, mRecord.size() - mAt);
        mAt += static_cast<int>(step);
        bytes -= step;
    }
    return true;
}

} // namespace table_reader
