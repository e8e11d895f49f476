#include "embedded_host/table_reader/xls/XlsWorkbook.h"

#include "embedded_host/table_reader/shared/Limits.h"
#include "embedded_host/table_reader/shared/Messages.h"
#include "embedded_host/table_reader/xls/BiffText.h"

#include <QTextCodec>

namespace table_reader {
namespace {

struct SheetEntry {
    QString name;
    qint64 position;
    bool hidden;
    bool isWorksheet;
};

class GlobalsReader {
public:
    GlobalsReader(BiffStream& stream, XlsWorkbook& workbook) : mStream(stream), mWorkbook(workbook) {}

    QString read();

private:
    QString begin();
    QString take(const BiffRecord& record);
    QString takeFormat(const BiffRecord& record);
    QString takeSheet(const BiffRecord& record);
    QString chooseSheet();

    BiffStream& mStream;
    XlsWorkbook& mWorkbook;
    QHash<int, NumberFormat> mFormats;
    QVector<int> mStyleFormats;
    QVector<SheetEntry> mSheets;
};

QString GlobalsReader::begin()
{
    BiffRecord record;
    if (!mStream.next(record)) {
        return message::truncatedWorkbook();
    }
    if (record.type == biff::BofOf2 || record.type == biff::BofOf3 || record.type == biff::BofOf4) {
        return message::oldWorkbook();
    }
    const quint16 version = record.word(0);
    if (record.type != biff::Bof || !record.has(4)) {
        return message::damagedContainer();
    }
    if (version != biff::Version5 && version != biff::Version8) {
        return message::oldWorkbook();
    }
    mWorkbook.isVersion8 = version == biff::Version8;
    mWorkbook.codec = codecOfCodePage(0);
    return QString();
}

QString GlobalsReader::read()
{
    QString error = begin();
    BiffRecord record;
    while (error.isEmpty()) {
        const qint64 position = mStream.position();
        if (!mStream.next(record)) {
            return mStream.hasTooMany() ? message::tooManyRecords() : message::truncatedWorkbook();
        }
        if (record.type == biff::Eof) {
            break;
        }
        if (record.type == biff::Sst) {
            mWorkbook.textsPosition = position;
        }
        error = take(record);
    }
    mWorkbook.styles = formatsOf(mStyleFormats, mFormats);
    return error.isEmpty() ? chooseSheet() : error;
}

QString GlobalsReader::take(const BiffRecord& record)
{
    switch (record.type) {
    case biff::FilePass:
        return message::encrypted();
    case biff::CodePage:
        mWorkbook.codec = codecOfCodePage(record.word(0));
        break;
    case biff::Date1904:
        mWorkbook.dates = record.word(0) == 1 ? DateSystem::From1904 : DateSystem::From1900;
        break;
    case biff::Format:
        return takeFormat(record);
    case biff::Xf:
        if (mStyleFormats.size() < limits::CellStyles) {
            mStyleFormats.append(record.word(2));
        }
        break;
    case biff::BoundSheet:
        return takeSheet(record);
    }
    return QString();
}

QString GlobalsReader::takeFormat(const BiffRecord& record)
{
    const int number = record.word(0);
    QString code;
    if (!readXlsText(mStream, mWorkbook, record, 2, mWorkbook.isVersion8 ? 2 : 1, code)) {
        return message::truncatedWorkbook();
    }
    mFormats.insert(number, customFormat(code));
    return QString();
}

QString GlobalsReader::takeSheet(const BiffRecord& record)
{
    constexpr quint8 VisibilityMask = 0x03;
    const qint64 position = record.dword(0);
    const bool hidden = (record.byte(4) & VisibilityMask) != 0;
    const bool isWorksheet = record.byte(5) == 0;
    QString name;
    if (!readXlsText(mStream, mWorkbook, record, 6, 1, name)) {
        return message::truncatedWorkbook();
    }
    mSheets.append({name, position, hidden, isWorksheet});
    return mSheets.size() > limits::SheetNames ? message::tooManySheets() : QString();
}

/// The first worksheet that can be seen, or the first one; charts and macro sheets are none.
QString GlobalsReader::chooseSheet()
{
    for (const bool acceptHidden : {false, true}) {
        for (const SheetEntry& sheet : mSheets) {
            if (sheet.isWorksheet && (acceptHidden || !sheet.hidden)) {
                mWorkbook.sheetName = sheet.name;
                mWorkbook.sheetPosition = sheet.position;
                return QString();
            }
        }
    }
    return message::noSheet();
}

} // namespace

QString readXlsWorkbook(BiffStream& stream, XlsWorkbook& workbook)
{
    return GlobalsReader(stream, workbook).read();
}

bool readXlsText(BiffStream& stream, const XlsWorkbook& workbook, const BiffRecord& record, int offset,
                 int lengthBytes, QString& text)
{
    if (workbook.isVersion8) {
        return BiffText(stream, record, offset).read(lengthBytes, true, text);
    }
    const int length = lengthBytes == 1 ? record.byte(offset) : record.word(offset);
    text = workbook.codec->toUnicode(record.bytes(offset + lengthBytes, length));
    return record.has(offset + lengthBytes + length);
}

QString readXlsTexts(BiffStream& stream, const XlsWorkbook& workbook, SharedTexts& texts, SheetRows& rows)
{
    if (texts.isEmpty()) {
        return QString();
    }
    texts.sort();
    BiffRecord record;
    constexpr int CountsBytes = 8;
    if (workbook.textsPosition < 0 || !stream.seek(workbook.textsPosition) || !stream.next(record)) {
        return message::badSharedText(texts.nextCell());
    }
    const qint64 count = record.dword(4);
    BiffText reader(stream, record, CountsBytes);
    QString text;
    for (qint64 index = 0; texts.next() >= 0; ++index) {
        if (texts.next() >= count || !reader.read(2, index == texts.next(), text)) {
            return message::badSharedText(texts.nextCell());
        }
        if (index == texts.next() && !texts.supply(text, rows)) {
            return rows.error();
        }
    }
    return QString();
}

} // namespace table_reader
