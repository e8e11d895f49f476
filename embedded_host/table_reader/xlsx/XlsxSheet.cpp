#include "embedded_host/table_reader/xlsx/XlsxSheet.h"

#include "embedded_host/table_reader/shared/Limits.h"
#include "embedded_host/table_reader/shared/Messages.h"
#include "embedded_host/table_reader/xlsx/SpreadsheetNames.h"
#include "embedded_host/table_reader/xlsx/SpreadsheetText.h"

#include <utility>

namespace table_reader {
namespace {

constexpr int MaxSheetRow = 1 << 24;
constexpr int EnoughLateRows = 64; // behind so many, each below the one before, no row is wanted

QStringRef value(const XmlAttributes& attributes, const char* name)
{
    return attributes.value(QLatin1String(name));
}

} // namespace

QString XlsxSheet::read(ZipArchive& archive, const QString& name)
{
    XmlPart part(archive, name);
    if (!part.begin(Sheet, QLatin1String("worksheet"))) {
        return part.error();
    }
    bool done = false; // nothing behind the cells is of use, unless a report wants it
    while (!done && !mPastEnd && part.nextChild()) {
        if (part.is(Sheet, QLatin1String("sheetData"))) {
            readRows(part);
            done = !mRows.inspects();
        } else if (mRows.inspects() && part.is(Sheet, QLatin1String("cols"))) {
            readColumns(part);
        } else if (mRows.inspects() && part.is(Sheet, QLatin1String("mergeCells"))) {
            readMergedAreas(part);
        } else {
            part.skip();
        }
    }
    return part.finish();
}

/// Hidden ones, or folded to nothing.
void XlsxSheet::readColumns(XmlPart& part)
{
    while (part.nextChild()) {
        const XmlAttributes attributes = part.attributes();
        const bool isFlat = value(attributes, "width") == QLatin1String("0");
        const int first = intValue(value(attributes, "min"), 0);
        if (first > 0 && (isFlat || boolValue(value(attributes, "hidden")))) {
            mRows.noteHiddenColumns(first - 1, intValue(value(attributes, "max"), first) - 1);
        }
        part.skip();
    }
}

void XlsxSheet::readRows(XmlPart& part)
{
    while (part.nextChild()) {
        if (part.is(Sheet, QLatin1String("row")) && enterRow(part)) {
            readCells(part);
        } else if (mPastEnd) {
            return;
        } else {
            part.skip();
        }
    }
}

/// Rows without a number follow the one before. False where the row is not wanted. The first late row does
/// not end the reading: some writers do not keep rows in order, and one that is wanted may come yet.
bool XlsxSheet::enterRow(XmlPart& part)
{
    const XmlAttributes attributes = part.attributes();
    const QStringRef stored = value(attributes, "r");
    const int number = stored.isNull() ? mRow + 2 : intValue(stored, 0);
    if (number == 0) {
        part.fail(message::badRowNumber(part.partName(), stored.toString()));
        return false;
    }
    const int before = std::exchange(mRow, std::min(number, MaxSheetRow) - 1);
    mColumn = -1;
    mIsRising = mIsRising && mRow > before;
    if (mRow >= mRows.maxRows()) {
        mPastEnd = mIsRising && ++mLateRows == EnoughLateRows;
        return false;
    }
    const bool isFlat = mRows.inspects() && value(attributes, "ht") == QLatin1String("0");
    if (isFlat || boolValue(value(attributes, "hidden"))) {
        mRows.noteHiddenRow(mRow);
    }
    return true;
}

void XlsxSheet::readCells(XmlPart& part)
{
    while (part.nextChild()) {
        if (part.is(Sheet, QLatin1String("c"))) {
            readCell(part);
        } else {
            part.skip();
        }
    }
}

void XlsxSheet::readCell(XmlPart& part)
{
    const Head head = headOf(part);
    mColumn = head.at.column;
    const Content content = readContent(part);
    if (head.at.column >= limits::Columns) {
        part.fail(message::tooManyColumns(head.at.row));
    } else if (!store(head, content)) {
        part.fail(mRows.error());
    }
}

XlsxSheet::CellType XlsxSheet::typeOf(std::string_view text)
{
    static constexpr struct {
        std::string_view name;
        CellType type;
    } types[] = {{"s", CellType::SharedText}, {"str", CellType::Text}, {"inlineStr", CellType::InlineText},
                 {"b", CellType::Bool},       {"e", CellType::Error},  {"d", CellType::Date}};
    for (const auto& entry : types) {
        if (text == entry.name) {
            return entry.type;
        }
    }
    return CellType::Number;
}

/// A cell without an address follows the one before.
XlsxSheet::Head XlsxSheet::headOf(XmlPart& part) const
{
    Head head;
    head.at = {std::max(mRow, 0), mColumn + 1};
    for (int number = 0; number < part.attributeCount(); ++number) { // once, not for each name
        const std::string_view name = part.attributeName(number);
        const std::string_view stored = part.attributeValue(number);
        if (name == "r") {
            head.at = table::parseCellAddress(stored);
            if (!head.at.isValid()) {
                const QString address = QString::fromUtf8(stored.data(), static_cast<int>(stored.size()));
                part.fail(message::badAddress(part.partName(), address));
            }
        } else if (name == "t") {
            head.type = typeOf(stored);
        } else if (name == "s") {
            head.style = intValue(stored, 0);
        }
    }
    return head;
}

XlsxSheet::Content XlsxSheet::readContent(XmlPart& part)
{
    Content content;
    while (part.nextChild()) {
        if (part.is(Sheet, QLatin1String("v"))) {
            content.value = part.readText();
            content.hasValue = true;
        } else if (part.is(Sheet, QLatin1String("is"))) {
            content.text = readRichText(part);
            content.isInline = true;
        } else {
            content.hasFormula = content.hasFormula || part.is(Sheet, QLatin1String("f"));
            part.skip();
        }
    }
    return content;
}

bool XlsxSheet::store(const Head& head, const Content& content)
{
    const auto put = [&](const QString& text) { return mRows.put(head.at.row, head.at.column, text); };
    if (mRows.inspects()) {
        inspect(head, content);
    }
    if (content.isInline && (content.value.isEmpty() || head.type == CellType::InlineText)) {
        return put(content.text);
    }
    if (content.value.isEmpty()) {
        return true;
    }
    switch (head.type) {
    case CellType::SharedText:
        wantText(head.at, content.value);
        return true;
    case CellType::Text:
    case CellType::InlineText:
        return put(decodeEscapes(content.value));
    case CellType::Bool:
        return put(boolText(boolValue(QStringRef(&content.value))));
    case CellType::Error:
        return put(content.value);
    case CellType::Date:
        return put(isoDateText(content.value));
    case CellType::Number:
        break;
    }
    return put(numberCell(head, content.value));
}

void XlsxSheet::inspect(const Head& head, const Content& content)
{
    if (isUncalculated(head, content)) {
        mRows.noteUncalculated(head.at.row, head.at.column);
    }
    if (!content.value.isEmpty() || !content.text.isEmpty()) {
        mRows.noteFilled(head.at.row, mStyles.isStruck(head.style));
    }
}

void XlsxSheet::inspectNumber(const Head& head, const QString& stored)
{
    if (const std::optional<double> number = parseNumber(QStringRef(&stored))) {
        mRows.noteLook(head.at.row, head.at.column, *number, mStyles.looks.value(head.style));
    }
}

/// A formula that gives an empty text stores that; one without any result was never calculated, nor was the
/// 0 that some writers put in its place.
bool XlsxSheet::isUncalculated(const Head& head, const Content& content) const
{
    if (!content.hasFormula || content.isInline) {
        return false;
    }
    const bool isEmptyText = head.type == CellType::Text && content.hasValue;
    const bool isStandIn = mIsRecalculated && content.value == QLatin1String("0");
    return isStandIn || (content.value.isEmpty() && !isEmptyText);
}

void XlsxSheet::wantText(table::CellPosition at, const QString& index)
{
    if (mRows.wants(at.row, at.column)) {
        mTexts.want(intValue(QStringRef(&index), -1), mRows, at.row, at.column);
    }
}

/// A number as its style shows it. What is no number in a cell of numbers is passed on as it stands.
QString XlsxSheet::numberCell(const Head& head, const QString& stored)
{
    const NumberFormat format = mStyles.formatOf(head.style);
    const bool staysAsItIs = format == NumberFormat::Plain && isShortestNumber(QStringRef(&stored));
    const std::optional<double> number = staysAsItIs ? std::nullopt : parseNumber(QStringRef(&stored));
    if (format == NumberFormat::Plain && (staysAsItIs || number)) {
        mRows.noteNumber(head.at.row, head.at.column, stored);
        if (mRows.inspects()) {
            inspectNumber(head, stored);
        }
    }
    return number ? shownNumber(*number, format, mDates) : stored;
}

void XlsxSheet::readMergedAreas(XmlPart& part)
{
    while (part.nextChild()) {
        const QString area = value(part.attributes(), "ref").toString();
        const int colon = area.indexOf(QLatin1Char(':'));
        const table::CellPosition first = table::parseCellAddress(area.leftRef(colon));
        const table::CellPosition last = table::parseCellAddress(area.midRef(colon + 1));
        if (colon > 0 && first.isValid() && last.isValid()) {
            mRows.noteMergedArea(QRect(QPoint(first.column, first.row), QPoint(last.column, last.row)));
        }
        part.skip();
    }
}

} // namespace table_reader
