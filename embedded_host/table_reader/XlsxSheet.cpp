#include "embedded_host/table_reader/XlsxSheet.h"

#include "embedded_host/table_reader/Limits.h"
#include "embedded_host/table_reader/Messages.h"
#include "embedded_host/table_reader/SpreadsheetNames.h"
#include "embedded_host/table_reader/SpreadsheetText.h"

namespace table_reader {
namespace {

constexpr int MaxSheetRow = 1 << 24;

QStringRef value(const QXmlStreamAttributes& attributes, const char* name)
{
    return attributes.value(QLatin1String(name));
}

QString boolText(const QString& stored)
{
    return boolValue(QStringRef(&stored)) ? QStringLiteral("TRUE") : QStringLiteral("FALSE");
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
        } else if (mRows.inspects() && part.is(Sheet, QLatin1String("mergeCells"))) {
            readMergedAreas(part);
        } else {
            part.skip();
        }
    }
    return mPastEnd ? part.error() : part.finish();
}

void XlsxSheet::readRows(XmlPart& part)
{
    while (part.nextChild()) {
        if (!part.is(Sheet, QLatin1String("row"))) {
            part.skip();
        } else if (enterRow(part.attributes())) {
            readCells(part);
        } else {
            mPastEnd = true;
            return;
        }
    }
}

/// Rows without a number follow the one before. False behind the last row wanted.
bool XlsxSheet::enterRow(const QXmlStreamAttributes& attributes)
{
    mRow = std::min(intValue(value(attributes, "r"), mRow + 2), MaxSheetRow) - 1;
    mColumn = -1;
    if (mRow >= mRows.maxRows()) {
        return false;
    }
    if (mRows.inspects() && boolValue(value(attributes, "hidden"))) {
        mRows.inspection().hiddenRows.insert(mRow);
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
    const QXmlStreamAttributes attributes = part.attributes();
    const CellPosition at = positionOf(attributes);
    mColumn = at.column;
    const Content content = readContent(part);
    if (at.column >= limits::Columns) {
        part.fail(message::tooManyColumns());
    } else if (!store(attributes, at, content)) {
        part.fail(mRows.error());
    }
}

/// A cell without an address follows the one before.
CellPosition XlsxSheet::positionOf(const QXmlStreamAttributes& attributes) const
{
    const CellPosition at = parseCellAddress(value(attributes, "r"));
    return at.isValid() ? at : CellPosition{std::max(mRow, 0), mColumn + 1};
}

XlsxSheet::Content XlsxSheet::readContent(XmlPart& part)
{
    Content content;
    while (part.nextChild()) {
        if (part.is(Sheet, QLatin1String("v"))) {
            content.value = part.readText();
        } else if (part.is(Sheet, QLatin1String("is"))) {
            content.text = readRichText(part);
            content.isInline = true;
        } else {
            part.skip();
        }
    }
    return content;
}

bool XlsxSheet::store(const QXmlStreamAttributes& attributes, CellPosition at, const Content& content)
{
    const QStringRef type = value(attributes, "t");
    if (content.isInline && (content.value.isEmpty() || type == QLatin1String("inlineStr"))) {
        return mRows.put(at.row, at.column, content.text);
    }
    if (content.value.isEmpty()) {
        return true;
    }
    if (type == QLatin1String("s")) {
        const std::optional<double> index = parseNumber(QStringRef(&content.value));
        if (at.row < mRows.maxRows()) {
            mTexts.want(index ? static_cast<qint64>(std::clamp(*index, -1.0, 1e12)) : -1, at.row, at.column);
        }
        return true;
    }
    if (type == QLatin1String("str") || type == QLatin1String("inlineStr")) {
        return mRows.put(at.row, at.column, decodeEscapes(content.value));
    }
    if (type == QLatin1String("b")) {
        return mRows.put(at.row, at.column, boolText(content.value));
    }
    if (type == QLatin1String("e")) {
        return mRows.put(at.row, at.column, content.value);
    }
    if (type == QLatin1String("d")) {
        return mRows.put(at.row, at.column, isoDateText(content.value));
    }
    return mRows.put(at.row, at.column, numberCell(value(attributes, "s"), at, content.value));
}

/// A number as its style shows it. What is no number in a cell of numbers is passed on as it stands.
QString XlsxSheet::numberCell(const QStringRef& style, CellPosition at, const QString& stored)
{
    const std::optional<double> number = parseNumber(QStringRef(&stored));
    if (!number) {
        return stored;
    }
    const NumberFormat format = mStyles.value(intValue(style, 0), NumberFormat::Plain);
    if (format == NumberFormat::Plain) {
        mRows.noteNumber(at.row, at.column, stored);
    }
    return shownNumber(*number, format, mDates);
}

void XlsxSheet::readMergedAreas(XmlPart& part)
{
    while (part.nextChild()) {
        const QString area = value(part.attributes(), "ref").toString();
        const int colon = area.indexOf(QLatin1Char(':'));
        const CellPosition first = parseCellAddress(area.leftRef(colon));
        const CellPosition last = parseCellAddress(area.midRef(colon + 1));
        if (colon > 0 && first.isValid() && last.isValid() && first.row < mRows.maxRows()) {
            mRows.inspection().mergedAreas.append(
                QRect(QPoint(first.column, first.row), QPoint(last.column, last.row)));
        }
        part.skip();
    }
}

} // namespace table_reader
