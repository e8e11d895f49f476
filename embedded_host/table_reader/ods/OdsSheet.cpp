#include "embedded_host/table_reader/ods/OdsSheet.h"

#include "embedded_host/table_reader/ods/OdsNames.h"
#include "embedded_host/table_reader/ods/OdsText.h"
#include "embedded_host/table_reader/shared/Limits.h"
#include "embedded_host/table_reader/shared/Messages.h"
#include "embedded_host/table_reader/shared/NumberText.h"

#include <QRegularExpression>

#include <algorithm>
#include <cmath>

namespace table_reader {
namespace {

using ods::value;

bool isRowGroup(const QStringRef& name)
{
    return name == QLatin1String("table-row-group") || name == QLatin1String("table-rows") ||
           name == QLatin1String("table-header-rows");
}

/// PT10H10M10.5S, with days before the T where a writer uses them, as HH:mm:ss.
QString durationText(const QString& text)
{
    static const QRegularExpression pattern(QStringLiteral(
        "^P(?:(\\d{1,6})D)?(?:T(?:(\\d{1,9})H)?(?:(\\d{1,9})M)?(?:(\\d{1,9}(?:[.,]\\d*)?)S)?)?$"));
    const QRegularExpressionMatch match = pattern.match(text.trimmed());
    if (!match.hasMatch()) {
        return text;
    }
    const QString seconds = match.captured(4).replace(QLatin1Char(','), QLatin1Char('.'));
    const qint64 hours = match.captured(1).toLongLong() * 24 + match.captured(2).toLongLong();
    const qint64 minutes = hours * 60 + match.captured(3).toLongLong();
    return timeText(static_cast<double>(minutes) * 60 + seconds.toDouble());
}

/// What a cell shows whose formula failed. Older writers store it as a number of 0.
bool isErrorText(const QString& shown)
{
    static const QRegularExpression pattern(
        QStringLiteral("^(#(N/A|DIV/0!|VALUE!|REF!|NAME\\?|NUM!|NULL!)|(Err|错误):\\d{3})$"));
    return pattern.match(shown).hasMatch();
}

} // namespace

void OdsSheet::read()
{
    int open = 1; // groups of rows, and the table itself
    while (open > 0 && !isFull() && !mPart.hasError()) {
        if (!mPart.nextChild()) {
            --open;
        } else if (!mPart.is(ods::TableSpace, QLatin1String("table-row"))) {
            if (ods::TableSpace.is(mPart.space()) && isRowGroup(mPart.name())) {
                ++open;
            } else {
                mPart.skip();
            }
        } else {
            readRow();
        }
    }
}

void OdsSheet::readRow()
{
    const QXmlStreamAttributes attributes = mPart.attributes();
    const int repeated = std::max(1, intValue(value(attributes, ods::TableSpace, "number-rows-repeated"), 1));
    const QStringRef visibility = value(attributes, ods::TableSpace, "visibility");
    const int end = static_cast<int>(std::min<qint64>(qint64(mRow) + repeated, mRows.maxRows()));
    QVector<Cell> cells;
    int column = 0;
    while (mPart.nextChild()) {
        const bool isCell = mPart.is(ods::TableSpace, QLatin1String("table-cell")) ||
                            mPart.is(ods::TableSpace, QLatin1String("covered-table-cell"));
        if (isCell) {
            readCell(cells, column);
        } else {
            mPart.skip();
        }
    }
    for (; mRow < end && !mPart.hasError(); ++mRow) {
        store(cells, mRow);
        if (!visibility.isEmpty() && visibility != QLatin1String("visible")) {
            mRows.noteHiddenRow(mRow);
        }
    }
}

void OdsSheet::readCell(QVector<Cell>& cells, int& column)
{
    const QXmlStreamAttributes attributes = mPart.attributes();
    const int repeated =
        std::max(1, intValue(value(attributes, ods::TableSpace, "number-columns-repeated"), 1));
    noteMergedArea(attributes, column);
    Cell cell = {column, repeated, QString(), QString()};
    cell.text = readCellText(attributes, cell.number);
    column = static_cast<int>(std::min<qint64>(qint64(column) + repeated, qint64(limits::Columns) * 4));
    if (cell.text.isEmpty()) {
        return;
    }
    if (cell.column + qint64(repeated) > limits::Columns) {
        mPart.fail(message::tooManyColumns(mRow));
    }
    cells.append(cell);
}

QString OdsSheet::readCellText(const QXmlStreamAttributes& attributes, QString& number)
{
    const QString type = value(attributes, ods::Office, "value-type").toString();
    const bool isError =
        attributes.value(ods::CalcExtension, QLatin1String("value-type")) == QLatin1String("error");
    const QString paragraphs = readParagraphs();
    const bool isNumber = type == QLatin1String("float") || type == QLatin1String("currency") ||
                          type == QLatin1String("percentage");
    if (isError || (isNumber && isErrorText(paragraphs))) {
        return paragraphs;
    }
    if (isNumber) {
        const QString stored = value(attributes, ods::Office, "value").toString();
        const std::optional<double> read = parseNumber(QStringRef(&stored));
        number = read ? stored : QString();
        return read ? numberText(*read) : paragraphs;
    }
    if (type == QLatin1String("date")) {
        return isoDateText(value(attributes, ods::Office, "date-value").toString());
    }
    if (type == QLatin1String("time")) {
        return durationText(value(attributes, ods::Office, "time-value").toString());
    }
    if (type == QLatin1String("boolean")) {
        return boolText(boolValue(value(attributes, ods::Office, "boolean-value")));
    }
    const QStringRef stored = value(attributes, ods::Office, "string-value");
    return stored.isEmpty() ? paragraphs : stored.toString();
}

/// The paragraphs directly within a cell; remarks, drawings and tables within it are no text of it.
QString OdsSheet::readParagraphs()
{
    QString text;
    bool first = true;
    while (mPart.nextChild()) {
        if (!mPart.is(ods::Text, QLatin1String("p")) && !mPart.is(ods::Text, QLatin1String("h"))) {
            mPart.skip();
            continue;
        }
        if (!first) {
            text += QLatin1Char('\n');
        }
        first = false;
        text += readOdsParagraph(mPart);
        if (text.size() > limits::TokenBytes) {
            mPart.fail(message::tooMuchText());
        }
    }
    return text;
}

void OdsSheet::store(const QVector<Cell>& cells, int row)
{
    for (const Cell& cell : cells) {
        for (int column = cell.column; column < cell.column + cell.repeated; ++column) {
            if (!mRows.put(row, column, cell.text)) {
                mPart.fail(mRows.error());
                return;
            }
            if (!cell.number.isEmpty()) {
                mRows.noteNumber(row, column, cell.number);
            }
        }
    }
}

void OdsSheet::noteMergedArea(const QXmlStreamAttributes& attributes, int column)
{
    constexpr int Longest = 1 << 20; // as many rows as a sheet can have
    const int columns = intValue(value(attributes, ods::TableSpace, "number-columns-spanned"), 1);
    const int rows = intValue(value(attributes, ods::TableSpace, "number-rows-spanned"), 1);
    if (columns > 1 || rows > 1) {
        mRows.noteMergedArea(QRect(column, mRow, std::min(columns, Longest), std::min(rows, Longest)));
    }
}

} // namespace table_reader
