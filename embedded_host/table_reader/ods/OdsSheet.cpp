#include "embedded_host/table_reader/ods/OdsSheet.h"

#include "embedded_host/table_reader/ods/OdsNames.h"
#include "embedded_host/table_reader/ods/OdsText.h"
#include "embedded_host/table_reader/shared/Limits.h"
#include "embedded_host/table_reader/shared/Messages.h"
#include "embedded_host/table_reader/shared/NumberLook.h"
#include "embedded_host/table_reader/shared/NumberText.h"

#include <QRegularExpression>

#include <algorithm>
#include <cmath>
#include <set>

namespace table_reader {
namespace {

using ods::value;

constexpr double DaySeconds = 24 * 60 * 60;

/// Of a row or a column: neither folded away by hand nor by a filter.
bool isVisible(const XmlAttributes& attributes)
{
    const QStringRef visibility = value(attributes, ods::TableSpace, "visibility");
    return visibility.isEmpty() || visibility == QLatin1String("visible");
}

bool isGroup(std::string_view name)
{
    static const std::set<std::string_view> groups = {"table-row-group",   "table-rows",
                                                      "table-header-rows", "table-column-group",
                                                      "table-columns",     "table-header-columns"};
    return groups.count(name) > 0;
}

/// Seconds of PT10H10M10.5S, with days before the T where a writer uses them.
std::optional<double> durationSeconds(const QString& text)
{
    static const QRegularExpression pattern(QStringLiteral(
        "^P(?:(\\d{1,6})D)?(?:T(?:(\\d{1,9})H)?(?:(\\d{1,9})M)?(?:(\\d{1,9}(?:[.,]\\d*)?)S)?)?$"));
    const QRegularExpressionMatch match = pattern.match(text.trimmed());
    if (!match.hasMatch()) {
        return std::nullopt;
    }
    const QString seconds = match.captured(4).replace(QLatin1Char(','), QLatin1Char('.'));
    const qint64 hours = match.captured(1).toLongLong() * 24 + match.captured(2).toLongLong();
    const qint64 minutes = hours * 60 + match.captured(3).toLongLong();
    return static_cast<double>(minutes) * 60 + seconds.toDouble();
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
    while (mOpen > 0 && !isFull() && !mPart.hasError()) {
        if (!mPart.nextChild()) {
            --mOpen;
        } else if (mPart.is(ods::TableSpace, QLatin1String("table-row"))) {
            readRow();
        } else if (mPart.is(ods::TableSpace, QLatin1String("table-column"))) {
            readColumn();
        } else if (ods::TableSpace.is(mPart.space()) && isGroup(mPart.name())) {
            ++mOpen;
        } else {
            mPart.skip();
        }
    }
}

void OdsSheet::leave()
{
    for (; mOpen > 0 && !mPart.hasError(); --mOpen) {
        mPart.skip();
    }
}

void OdsSheet::readColumn()
{
    const XmlAttributes attributes = mPart.attributes();
    const int repeated =
        std::max(1, intValue(value(attributes, ods::TableSpace, "number-columns-repeated"), 1));
    const int before = mColumns.isEmpty() ? 0 : mColumns.last().end;
    const int end = static_cast<int>(std::min<qint64>(qint64(before) + repeated, limits::Columns));
    if (!isVisible(attributes)) {
        mRows.noteHiddenColumns(before, end - 1);
    }
    if (mColumns.size() < limits::Columns) {
        mColumns.append({end, value(attributes, ods::TableSpace, "default-cell-style-name").toString()});
    }
    mPart.skip();
}

/// A cell's own style, or its row's, or its column's.
QString OdsSheet::styleOf(const XmlAttributes& attributes, int column) const
{
    const QStringRef own = value(attributes, ods::TableSpace, "style-name");
    if (!own.isEmpty() || !mRowStyle.isEmpty()) {
        return own.isEmpty() ? mRowStyle : own.toString();
    }
    const auto found = std::upper_bound(mColumns.begin(), mColumns.end(), column,
                                        [](int at, const DefaultStyle& style) { return at < style.end; });
    return found == mColumns.end() ? QString() : found->style;
}

void OdsSheet::readRow()
{
    const XmlAttributes attributes = mPart.attributes();
    const int repeated = std::max(1, intValue(value(attributes, ods::TableSpace, "number-rows-repeated"), 1));
    const int end = static_cast<int>(std::min<qint64>(qint64(mRow) + repeated, mRows.maxRows()));
    const bool isHidden = !isVisible(attributes);
    mRowStyle = value(attributes, ods::TableSpace, "default-cell-style-name").toString();
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
        if (isHidden) {
            mRows.noteHiddenRow(mRow);
        }
    }
}

void OdsSheet::readCell(QVector<Cell>& cells, int& column)
{
    const XmlAttributes attributes = mPart.attributes();
    const int repeated =
        std::max(1, intValue(value(attributes, ods::TableSpace, "number-columns-repeated"), 1));
    noteMergedArea(attributes, column);
    Cell cell;
    cell.column = column;
    cell.repeated = repeated;
    readCellText(attributes, cell);
    cell.isStruck = mRows.inspects() && mStyles.isStruck(styleOf(attributes, column));
    column = static_cast<int>(std::min<qint64>(qint64(column) + repeated, qint64(limits::Columns) * 4));
    if (cell.text.isEmpty() && !cell.isUncalculated) {
        return;
    }
    if (!cell.text.isEmpty() && cell.column + qint64(repeated) > limits::Columns) {
        mPart.fail(message::tooManyColumns(mRow));
    }
    cells.append(cell);
}

void OdsSheet::readCellText(const XmlAttributes& attributes, Cell& cell)
{
    const QString type = value(attributes, ods::Office, "value-type").toString();
    const bool isError =
        attributes.value(ods::CalcExtension, QLatin1String("value-type")) == QLatin1String("error");
    const QString paragraphs = readParagraphs();
    const bool isNumber = type == QLatin1String("float") || type == QLatin1String("currency") ||
                          type == QLatin1String("percentage");
    if (isError || (isNumber && isErrorText(paragraphs))) {
        cell.text = paragraphs;
    } else if (isNumber) {
        takeNumber(attributes, paragraphs, cell);
    } else if (type == QLatin1String("date")) {
        cell.text = isoDateText(value(attributes, ods::Office, "date-value").toString());
    } else if (type == QLatin1String("time")) {
        cell.text = timeText(value(attributes, ods::Office, "time-value").toString(),
                             styleOf(attributes, cell.column));
    } else if (type == QLatin1String("boolean")) {
        cell.text = boolText(boolValue(value(attributes, ods::Office, "boolean-value")));
    } else {
        const QStringRef stored = value(attributes, ods::Office, "string-value");
        cell.text = stored.isEmpty() ? paragraphs : stored.toString();
        cell.isUncalculated = mRows.inspects() && type.isEmpty() && cell.text.isEmpty() &&
                              !value(attributes, ods::TableSpace, "formula").isEmpty();
    }
}

void OdsSheet::takeNumber(const XmlAttributes& attributes, const QString& paragraphs, Cell& cell)
{
    const QString stored = value(attributes, ods::Office, "value").toString();
    const std::optional<double> read = parseNumber(QStringRef(&stored));
    cell.number = read ? stored : QString();
    cell.text = read ? numberText(*read) : paragraphs;
    const bool isOtherwise = mRows.inspects() && read && !paragraphs.isEmpty() && paragraphs != cell.text &&
                             saysOtherwise(paragraphs, *read);
    cell.shown = isOtherwise ? paragraphs : QString();
}

/// A date and time of which the style shows the time alone is stored as the hours since the first of all
/// days, and read as in every other format. So is, where no style says otherwise, what lasts for decades.
QString OdsSheet::timeText(const QString& stored, const QString& style) const
{
    const std::optional<double> seconds = durationSeconds(stored);
    if (!seconds) {
        return stored;
    }
    constexpr double Decades = 20'000 * DaySeconds;
    const bool isMoment =
        *seconds >= DaySeconds && (mStyles.showsTimeOfDay(style) || (style.isEmpty() && *seconds >= Decades));
    return isMoment ? shownNumber(*seconds / DaySeconds, NumberFormat::Time, DateSystem::From1900)
                    : table_reader::timeText(*seconds);
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
        const int end =
            static_cast<int>(std::min<qint64>(qint64(cell.column) + cell.repeated, limits::Columns));
        for (int column = cell.column; column < end; ++column) {
            if (!mRows.put(row, column, cell.text)) {
                mPart.fail(mRows.error());
                return;
            }
            if (mRows.inspects()) {
                inspect(cell, row, column);
            }
        }
    }
}

void OdsSheet::inspect(const Cell& cell, int row, int column)
{
    if (cell.isUncalculated) {
        mRows.noteUncalculated(row, column);
        return;
    }
    mRows.noteFilled(row, cell.isStruck);
    if (!cell.number.isEmpty()) {
        mRows.noteNumber(row, column, cell.number);
    }
    if (!cell.shown.isEmpty()) {
        mRows.noteShown(row, column, cell.shown);
    }
}

void OdsSheet::noteMergedArea(const XmlAttributes& attributes, int column)
{
    constexpr int Longest = 1 << 20; // as many rows as a sheet can have
    const int columns = intValue(value(attributes, ods::TableSpace, "number-columns-spanned"), 1);
    const int rows = intValue(value(attributes, ods::TableSpace, "number-rows-spanned"), 1);
    if (columns > 1 || rows > 1) {
        mRows.noteMergedArea(QRect(column, mRow, std::min(columns, Longest), std::min(rows, Longest)));
    }
}

} // namespace table_reader
