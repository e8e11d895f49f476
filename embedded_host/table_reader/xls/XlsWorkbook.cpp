#include "embedded_host/table_reader/xls/XlsWorkbook.h"

#include "embedded_host/table_reader/shared/Limits.h"
#include "embedded_host/table_reader/shared/Messages.h"
#include "embedded_host/table_reader/xls/BiffText.h"

#include <QTextCodec>

namespace table_reader {
namespace {

class GlobalsReader {
public:
    GlobalsReader(BiffStream& stream, XlsWorkbook& workbook) : mStream(stream), mWorkbook(workbook) {}

    QString read(bool forReport);

private:
    QString begin();
    QString take(const BiffRecord& record);
    void takeCodePage(int codePage);
    void takeStyle(const BiffRecord& record);
    void takeFont(const BiffRecord& record);
    QString takeFormat(const BiffRecord& record);
    QString takeSheet(const BiffRecord& record);
    QString chooseSheet();

    BiffStream& mStream;
    XlsWorkbook& mWorkbook;
    StyleParts mParts;
    bool mIsSheetAlone = false;
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
    mWorkbook.codec = westernCodec();
    mIsSheetAlone = record.word(2) == biff::WorksheetKind;
    if (mIsSheetAlone) {
        mWorkbook.sheets.append({QString(), 0, false, true});
    }
    return QString();
}

/// A sheet alone may hold charts, each with a beginning and an end of its own.
QString GlobalsReader::read(bool forReport)
{
    QString error = begin();
    BiffRecord record;
    int depth = 1;
    while (error.isEmpty()) {
        const qint64 position = mStream.position();
        if (!mStream.next(record)) {
            return mStream.hasTooMany() ? message::tooManyRecords() : message::truncatedWorkbook();
        }
        depth += mIsSheetAlone && record.type == biff::Bof ? 1 : 0;
        if (record.type == biff::Eof && --depth == 0) {
            break;
        }
        if (record.type == biff::Sst) {
            mWorkbook.textsPosition = position;
        }
        error = take(record);
    }
    mWorkbook.styles = mParts.styles(forReport);
    return error.isEmpty() ? chooseSheet() : error;
}

QString GlobalsReader::take(const BiffRecord& record)
{
    switch (record.type) {
    case biff::FilePass:
        return message::encrypted();
    case biff::CodePage:
        takeCodePage(record.word(0));
        break;
    case biff::Date1904:
        mWorkbook.dates = record.word(0) == 1 ? DateSystem::From1904 : DateSystem::From1900;
        break;
    case biff::Format:
        return takeFormat(record);
    case biff::Xf:
        takeStyle(record);
        break;
    case biff::Font:
        takeFont(record);
        break;
    case biff::Window1:
        mWorkbook.activeSheet = record.word(10);
        break;
    case biff::BoundSheet:
        return takeSheet(record);
    }
    return QString();
}

void GlobalsReader::takeCodePage(int codePage)
{
    QTextCodec* const codec = codecOfCodePage(codePage);
    mWorkbook.codec = codec ? codec : westernCodec();
    mWorkbook.unknownCodePage = codec ? 0 : codePage;
}

/// No font has the number 4.
void GlobalsReader::takeStyle(const BiffRecord& record)
{
    constexpr int Missing = 4;
    const int font = record.word(0);
    if (mParts.formatNumbers.size() < limits::CellStyles) {
        mParts.formatNumbers.append(record.word(2));
        mParts.fontNumbers.append(font > Missing ? font - 1 : font);
    }
}

void GlobalsReader::takeFont(const BiffRecord& record)
{
    constexpr int OptionsOffset = 2;
    constexpr quint16 StruckFlag = 0x08;
    if (mParts.struckFonts.size() < limits::CellStyles) {
        mParts.struckFonts.append((record.word(OptionsOffset) & StruckFlag) != 0);
    }
}

QString GlobalsReader::takeFormat(const BiffRecord& record)
{
    const int number = record.word(0);
    QString code;
    if (!readXlsText(mStream, mWorkbook, record, 2, mWorkbook.isVersion8 ? 2 : 1, code)) {
        return message::truncatedWorkbook();
    }
    mParts.codes.insert(number, code);
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
    mWorkbook.sheets.append({name, position, hidden, isWorksheet});
    return mWorkbook.sheets.size() > limits::SheetNames ? message::tooManySheets() : QString();
}

/// The first worksheet that can be seen, or the first one; charts and macro sheets are none.
QString GlobalsReader::chooseSheet()
{
    for (const bool acceptHidden : {false, true}) {
        for (int number = 0; number < mWorkbook.sheets.size(); ++number) {
            const XlsSheetEntry& sheet = mWorkbook.sheets.at(number);
            if (sheet.isWorksheet && (acceptHidden || !sheet.hidden)) {
                mWorkbook.readSheet = number;
                return QString();
            }
        }
    }
    return message::noSheet();
}

} // namespace

QString XlsWorkbook::choose(const QString& name)
{
    for (int number = 0; number < sheets.size(); ++number) {
        if (sheets.at(number).name == name && sheets.at(number).isWorksheet) {
            readSheet = number;
            return QString();
        }
    }
    return message::noSuchSheet(name);
}

QString readXlsWorkbook(BiffStream& stream, bool forReport, XlsWorkbook& workbook)
{
    return GlobalsReader(stream, workbook).read(forReport);
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

QString readXlsTexts(BiffStream& stream, const XlsWorkbook& workbook, SharedTexts& texts)
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
        const QString refused = index == texts.next() ? texts.supply(text) : QString();
        if (!refused.isEmpty()) {
            return refused;
        }
    }
    return QString();
}

} // namespace table_reader
