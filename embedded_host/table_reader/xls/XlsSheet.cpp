#include "embedded_host/table_reader/xls/XlsSheet.h"

#include "embedded_host/table_reader/shared/Limits.h"
#include "embedded_host/table_reader/shared/Messages.h"

#include <algorithm>
#include <cmath>
#include <cstring>
#include <utility>

namespace table_reader {
namespace {

QString errorText(quint8 code)
{
    switch (code) {
    case 0x00:
        return QStringLiteral("#NULL!");
    case 0x07:
        return QStringLiteral("#DIV/0!");
    case 0x0F:
        return QStringLiteral("#VALUE!");
    case 0x17:
        return QStringLiteral("#REF!");
    case 0x1D:
        return QStringLiteral("#NAME?");
    case 0x24:
        return QStringLiteral("#NUM!");
    case 0x2B:
        return QStringLiteral("#GETTING_DATA");
    default:
        return QStringLiteral("#N/A");
    }
}

/// A number packed into 30 bits: a whole one, or the upper bits of a real one, either in hundredths if the
/// lowest bit says so.
double unpack(quint32 packed)
{
    double value = 0;
    if ((packed & 2) != 0) {
        value = static_cast<qint32>(packed & ~quint32(3)) / 4.0;
    } else {
        const quint64 bits = static_cast<quint64>(packed & ~quint32(3)) << 32;
        std::memcpy(&value, &bits, sizeof value);
    }
    return (packed & 1) != 0 ? value / 100 : value;
}

/// Smallest length of a record that holds a cell; 0: it holds none.
int cellBytes(quint16 type)
{
    switch (type) {
    case biff::Number:
    case biff::Formula:
    case biff::FormulaOf3:
    case biff::FormulaOf4:
        return 14;
    case biff::Rk:
    case biff::LabelSst:
        return 10;
    case biff::MulRk:
        return 12;
    case biff::Label:
    case biff::RString:
    case biff::BoolErr:
        return 8;
    default:
        return 0;
    }
}

} // namespace

QString XlsSheet::read(qint64 position)
{
    BiffRecord record;
    if (!mStream.seek(position) || !mStream.next(record) || record.type != biff::Bof) {
        return message::truncatedWorkbook();
    }
    int depth = 1; // a chart within the sheet has a beginning and an end of its own
    while (mStream.next(record)) {
        if (record.type == biff::Bof) {
            ++depth;
        } else if (record.type == biff::Eof && --depth == 0) {
            return QString();
        } else if (depth == 1 && !take(record)) {
            return mError.isEmpty() ? mRows.error() : mError;
        }
    }
    return mStream.hasTooMany() ? message::tooManyRecords() : message::truncatedWorkbook();
}

bool XlsSheet::take(const BiffRecord& record)
{
    if (!record.has(cellBytes(record.type))) {
        mError = message::truncatedWorkbook();
        return false;
    }
    const int row = record.word(0);
    const int column = record.word(2);
    const int style = record.word(4);
    if (mRows.inspects() && record.type != biff::MulRk && cellBytes(record.type) > 0) {
        noteStyle(row, style);
    }
    switch (record.type) {
    case biff::Number:
        return putNumber(row, column, style, record.real(6));
    case biff::Rk:
        return putNumber(row, column, style, unpack(record.dword(6)));
    case biff::MulRk:
        return putNumbers(record);
    case biff::Formula:
    case biff::FormulaOf3:
    case biff::FormulaOf4:
        return putFormula(record);
    case biff::String:
        if (mFormulaRow < 0) {
            return true;
        }
        return putText(record, 0, std::exchange(mFormulaRow, -1), mFormulaColumn);
    case biff::Label:
    case biff::RString:
        return putText(record, 6, row, column);
    case biff::LabelSst:
        return putSharedText(record);
    case biff::BoolErr:
        return mRows.put(row, column,
                         record.byte(7) == 0 ? boolText(record.byte(6) != 0) : errorText(record.byte(6)));
    case biff::Row:
        noteRow(record);
        return true;
    case biff::ColInfo:
        noteColumns(record);
        return true;
    case biff::MergedCells:
        noteMergedAreas(record);
        return true;
    default:
        return true;
    }
}

bool XlsSheet::putNumber(int row, int column, int style, double value)
{
    if (!std::isfinite(value)) {
        return mRows.put(row, column, errorText(0x24));
    }
    const NumberFormat format = mWorkbook.styles.formatOf(style);
    if (row >= mRows.maxRows()) {
        return true;
    }
    if (mRows.inspects() && format == NumberFormat::Plain) {
        mRows.noteNumber(row, column, numberText(value));
        mRows.noteLook(row, column, value, mWorkbook.styles.looks.value(style));
    }
    return mRows.put(row, column, shownNumber(value, format, mWorkbook.dates));
}

bool XlsSheet::putNumbers(const BiffRecord& record)
{
    constexpr int HeadBytes = 4;
    constexpr int CellBytes = 6;
    const int row = record.word(0);
    const int first = record.word(2);
    const int count = (record.size() - HeadBytes - 2) / CellBytes;
    for (int at = 0; at < count; ++at) {
        const int offset = HeadBytes + at * CellBytes;
        if (mRows.inspects()) {
            noteStyle(row, record.word(offset));
        }
        if (!putNumber(row, first + at, record.word(offset), unpack(record.dword(offset + 2)))) {
            return false;
        }
    }
    return true;
}

/// A formula's stored result: a number, or by marked bytes something else.
bool XlsSheet::putFormula(const BiffRecord& record)
{
    enum Kind : quint8 { Text = 0, Bool = 1, Error = 2 };
    constexpr quint16 NoNumber = 0xFFFF;
    const int row = record.word(0);
    const int column = record.word(2);
    mFormulaRow = -1;
    if (mRows.inspects()) {
        inspectFormula(record);
    }
    if (record.word(12) != NoNumber) {
        return putNumber(row, column, record.word(4), record.real(6));
    }
    switch (record.byte(6)) {
    case Text:
        mFormulaRow = row;
        mFormulaColumn = column;
        return true;
    case Bool:
        return mRows.put(row, column, boolText(record.byte(8) != 0));
    case Error:
        return mRows.put(row, column, errorText(record.byte(8)));
    default:
        return true; // an empty text
    }
}

bool XlsSheet::putText(const BiffRecord& record, int offset, int row, int column)
{
    if (row >= mRows.maxRows()) {
        return true;
    }
    QString text;
    if (!readXlsText(mStream, mWorkbook, record, offset, 2, text)) {
        mError = message::truncatedWorkbook();
        return false;
    }
    const auto isForeign = [](QChar c) { return c.unicode() >= 0x80; };
    if (mWorkbook.unknownCodePage > 0 && !mWorkbook.isVersion8 &&
        std::any_of(text.begin(), text.end(), isForeign)) {
        mRows.noteUnknownCodePage(mWorkbook.unknownCodePage);
    }
    return mRows.put(row, column, text);
}

/// A formula that is to be calculated by whoever opens the file, and of which an empty text or a 0 is stored,
/// was never calculated: writers that cannot calculate leave such ones.
void XlsSheet::inspectFormula(const BiffRecord& record)
{
    constexpr int OptionsOffset = 14;
    constexpr quint16 CalculateOnLoad = 0x02;
    constexpr quint16 NoNumber = 0xFFFF;
    constexpr quint8 EmptyText = 3;
    const bool isEmpty = record.word(12) == NoNumber ? record.byte(6) == EmptyText : record.real(6) == 0;
    if (isEmpty && (record.word(OptionsOffset) & CalculateOnLoad) != 0) {
        mRows.noteUncalculated(record.word(0), record.word(2));
    }
}

void XlsSheet::noteStyle(int row, int style)
{
    mRows.noteFilled(row, mWorkbook.styles.isStruck(style));
}

bool XlsSheet::putSharedText(const BiffRecord& record)
{
    if (mRows.wants(record.word(0), record.word(2))) {
        mTexts.want(record.dword(6), mRows, record.word(0), record.word(2));
    }
    if (mTexts.count() > limits::Cells) {
        mError = message::tooManyCells();
    }
    return mError.isEmpty();
}

void XlsSheet::noteRow(const BiffRecord& record)
{
    constexpr int OptionsOffset = 12;
    constexpr quint16 HiddenFlag = 0x20;
    if ((record.word(OptionsOffset) & HiddenFlag) != 0) {
        mRows.noteHiddenRow(record.word(0));
    }
}

void XlsSheet::noteColumns(const BiffRecord& record)
{
    constexpr int OptionsOffset = 8;
    constexpr quint16 HiddenFlag = 0x01;
    if ((record.word(OptionsOffset) & HiddenFlag) != 0) {
        mRows.noteHiddenColumns(record.word(0), record.word(2));
    }
}

void XlsSheet::noteMergedAreas(const BiffRecord& record)
{
    constexpr int HeadBytes = 2;
    constexpr int AreaBytes = 8;
    const int count = std::min<int>(record.word(0), (record.size() - HeadBytes) / AreaBytes);
    for (int at = 0; mRows.inspects() && at < count; ++at) {
        const int offset = HeadBytes + at * AreaBytes;
        mRows.noteMergedArea(QRect(QPoint(record.word(offset + 4), record.word(offset)),
                                   QPoint(record.word(offset + 6), record.word(offset + 2))));
    }
}

} // namespace table_reader
