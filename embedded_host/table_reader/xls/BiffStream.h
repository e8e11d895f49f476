#pragma once

#include "embedded_host/table_reader/xls/OleContainer.h"

#include <QByteArray>

namespace table_reader {

/// Numbers of the records of a workbook stream that we read.
namespace biff {
enum Record : quint16 {
    Formula = 0x0006,
    BofOf2 = 0x0009,
    Eof = 0x000A,
    Date1904 = 0x0022,
    FilePass = 0x002F,
    Font = 0x0031,
    Continue = 0x003C,
    Window1 = 0x003D,
    CodePage = 0x0042,
    ColInfo = 0x007D,
    BoundSheet = 0x0085,
    MulRk = 0x00BD,
    RString = 0x00D6,
    Xf = 0x00E0,
    MergedCells = 0x00E5,
    Sst = 0x00FC,
    LabelSst = 0x00FD,
    Number = 0x0203,
    Label = 0x0204,
    BoolErr = 0x0205,
    String = 0x0207,
    Row = 0x0208,
    BofOf3 = 0x0209,
    Rk = 0x027E,
    FormulaOf3 = 0x0206,
    FormulaOf4 = 0x0406,
    BofOf4 = 0x0409,
    Format = 0x041E,
    Bof = 0x0809,
};
/// What a beginning begins.
constexpr quint16 WorksheetKind = 0x0010;
constexpr quint16 Version5 = 0x0500;
constexpr quint16 Version8 = 0x0600;
} // namespace biff

/// One record. Numbers are little endian; beyond the record's end they read as 0, and has() tells beforehand.
class BiffRecord {
public:
    quint16 type = 0;

    int size() const { return mSize; }
    bool has(int bytes) const { return mSize >= bytes; }
    quint8 byte(int at) const { return at < mSize ? mData[at] : quint8(0); }
    quint16 word(int at) const { return static_cast<quint16>(byte(at) | byte(at + 1) << 8); }
    quint32 dword(int at) const { return word(at) | static_cast<quint32>(word(at + 2)) << 16; }
    double real(int at) const;
    QByteArray bytes(int at, int length) const;

private:
    friend class BiffStream;
    const quint8* mData = nullptr;
    int mSize = 0;
};

/// Walks the records of a workbook stream. A record is valid until the next one is read.
class BiffStream {
public:
    explicit BiffStream(GsfInputPtr input);

    /// False behind the last record, at one that is cut off, and after too many: see hasTooMany().
    bool next(BiffRecord& record);
    /// Type of the record that next() would read; 0 at the end.
    quint16 peekType();
    bool seek(qint64 position);
    qint64 position() const { return mChunkStart + mAt; }
    bool hasTooMany() const;

private:
    bool fill(int bytes);
    quint16 wordAt(int offset) const;

    GsfInputPtr mInput;
    QByteArray mChunk;
    qint64 mSize;
    qint64 mChunkStart = 0;
    int mAt = 0;
    qint64 mRecords = 0;
};

} // namespace table_reader
