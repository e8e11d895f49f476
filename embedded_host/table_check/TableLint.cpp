#include "embedded_host/table_check/TableLint.h"

#include "embedded_host/table_check/TitleLint.h"
#include "table/CellAddress.h"
#include "table/CheckRules.h"
#include "table/FaultCatalogue.h"
#include "table/HarmlessCell.h"

#include <QRegularExpression>

#include <algorithm>
#include <cmath>
#include <limits>
#include <numeric>

namespace table_lint {
namespace {

namespace rule = table::rule;
using table::Table;

bool isInvisibleBlank(QChar c)
{
    const ushort u = c.unicode();
    return u == 0x00A0 || u == 0x3000 || u == 0xFEFF || u == 0x202F || u == 0x205F || u == 0x2060 ||
           u == 0x00AD || (u >= 0x2000 && u <= 0x200F) || (u >= 0x202A && u <= 0x202E);
}

bool isFullWidthDigit(QChar c)
{
    return c.unicode() >= 0xFF10 && c.unicode() <= 0xFF19;
}

bool isExponentForm(const QString& text)
{
    static const QRegularExpression pattern(QStringLiteral("^\\s*[+-]?\\d+(\\.\\d*)?[eE][+-]?\\d+\\s*$"));
    return pattern.match(text).hasMatch();
}

/// Digits that carry the value: without zeros at the front, and for whole numbers as written to the end.
int significantDigits(const QString& text)
{
    const QString number = text.trimmed();
    int digits = 0;
    int points = 0;
    for (int at = number.startsWith(u'+') || number.startsWith(u'-') ? 1 : 0; at < number.size(); ++at) {
        const QChar c = number.at(at);
        if (c == u'.') {
            ++points;
        } else if (c < u'0' || c > u'9') {
            return 0;
        } else {
            digits += digits > 0 || c != u'0' ? 1 : 0;
        }
    }
    return points < 2 ? digits : 0;
}

/// Whole numbers have 32 bits; an infinity and "nan" are numbers as well.
bool fits(double number, NumberKind kind)
{
    constexpr double Least = std::numeric_limits<qint32>::min();
    constexpr double Greatest = std::numeric_limits<qint32>::max();
    return std::isfinite(number) && (kind != NumberKind::Whole || (number >= Least && number <= Greatest));
}

/// A fraction that gets lost: one that a spreadsheet's rounding leaves behind is none.
bool hasFraction(double number)
{
    constexpr double Noise = 1e-6;
    return std::fabs(number - std::round(number)) > Noise;
}

/// Every title that the import would find: the columns', what may stand for each, and the reasons of a reject
/// file.
QStringList knownTitles(const Expectation& expectation)
{
    QStringList known = {table::reasonTitle()};
    for (const QString& title : expectation.titles) {
        known << title << expectation.aliases.value(title, title) << expectation.aliases.key(title, title);
    }
    return known;
}

class Linter {
public:
    Linter(const Table& table, const Expectation& expectation)
        : mTable(table), mExpectation(expectation), mKnownTitles(knownTitles(expectation))
    {
    }

    QList<Finding> run();

private:
    void lintTitles();
    void lintTitle(int column, const QStringList& titles);
    void lintRow(int row);
    void lintCell(int row, int column, const QString& text);
    void lintCode(int row, int column, const QString& text);
    void lintNumber(int row, int column, const QString& text, NumberKind kind);
    QVector<int> areasOver(int row, int columns) const;
    void add(const QString& rule, int row, int column, const QString& text,
             const QStringList& suggestions = QStringList());

    const Table& mTable;
    const Expectation& mExpectation;
    const QStringList mKnownTitles;
    int mCodeColumn = -1;
    QMap<int, NumberKind> mNumberColumns;
    QVector<int> mAreasOver; ///< of each column, in the row looked at
    QList<Finding> mFindings;
};

QList<Finding> Linter::run()
{
    if (mTable.inspection.replacedCharacters > 0) {
        const QString count = QString::number(mTable.inspection.replacedCharacters);
        add(rule::ReplacedText, -1, -1, count, {mTable.encoding});
    }
    if (mTable.inspection.unknownCodePage > 0) {
        add(rule::UnknownCodePage, -1, -1, QString::number(mTable.inspection.unknownCodePage));
    }
    if (!mTable.rows.isEmpty()) {
        lintTitles();
    }
    for (int row = 0; row < mTable.rows.size() && mFindings.size() < MaxFindings; ++row) {
        lintRow(row);
    }
    return mFindings;
}

void Linter::lintTitles()
{
    const QStringList& header = mTable.rows.first();
    for (int column = 0; column < header.size(); ++column) {
        const QString& title = header.at(column);
        const QString meant = mExpectation.aliases.value(title, title);
        if (mCodeColumn < 0 && !meant.isEmpty() && meant == mExpectation.codeTitle) {
            mCodeColumn = column;
        }
        const bool isRead = mExpectation.titles.isEmpty() || mKnownTitles.contains(title);
        if (isRead && header.indexOf(title) == column && mExpectation.numbers.contains(title)) {
            mNumberColumns[column] = mExpectation.numbers.value(title);
        }
        lintTitle(column, header);
    }
}

void Linter::lintTitle(int column, const QStringList& header)
{
    const QString& title = header.at(column);
    if (title.isEmpty()) {
        return;
    }
    if (header.indexOf(title) < column) {
        add(rule::RepeatedTitle, 0, column, title);
        return;
    }
    if (mExpectation.titles.isEmpty() || mKnownTitles.contains(title)) {
        return;
    }
    const QString nearest = nearestTitle(title, mKnownTitles);
    if (nearest.isEmpty()) {
        add(rule::UnknownTitle, 0, column, title);
    } else {
        add(rule::NearTitle, 0, column, title, {nearest});
    }
}

void Linter::lintRow(int row)
{
    const QStringList& cells = mTable.rows.at(row);
    const bool isEmpty =
        std::all_of(cells.begin(), cells.end(), [](const QString& c) { return c.isEmpty(); });
    if (!isEmpty && mTable.inspection.hiddenRows.contains(row)) {
        add(rule::HiddenRow, row, -1, QString());
    }
    const bool isImported = row > 0 && !table::isBlankOrNote(cells);
    mAreasOver = areasOver(row, cells.size());
    for (int column = 0; column < cells.size() && mFindings.size() < MaxFindings; ++column) {
        if (cells.at(column).isEmpty()) {
            continue;
        }
        lintCell(row, column, cells.at(column));
        if (isImported && mNumberColumns.contains(column)) {
            lintNumber(row, column, cells.at(column), mNumberColumns.value(column));
        }
    }
}

void Linter::lintCell(int row, int column, const QString& text)
{
    if (std::any_of(text.begin(), text.end(), isInvisibleBlank)) {
        add(rule::InvisibleBlank, row, column, text);
    }
    if (std::any_of(text.begin(), text.end(), isFullWidthDigit)) {
        add(rule::FullWidthDigit, row, column, text);
    }
    if (isExponentForm(text)) {
        add(rule::ExponentForm, row, column, text);
    } else if (constexpr int Kept = 15; significantDigits(text) > Kept) {
        add(rule::LostDigits, row, column, text);
    }
    if (mAreasOver.at(column) > 0) {
        add(rule::HiddenByMerge, row, column, text);
    }
    if (row > 0 && column == mCodeColumn) {
        lintCode(row, column, text);
    }
}

/// A code of digits alone that no security has, though some have it with zeros before it.
void Linter::lintCode(int row, int column, const QString& text)
{
    constexpr int LongestCode = 6;
    const QString code = text.trimmed();
    const bool isDigits =
        std::all_of(code.begin(), code.end(), [](QChar c) { return c >= u'0' && c <= u'9'; });
    if (!mExpectation.securities || !isDigits || code.isEmpty() || code.size() >= LongestCode ||
        !mExpectation.securities(code).isEmpty()) {
        return;
    }
    QStringList meant;
    for (int length = code.size() + 1; length <= LongestCode; ++length) {
        meant += mExpectation.securities(code.rightJustified(length, QLatin1Char('0')));
    }
    if (!meant.isEmpty()) {
        add(rule::LostZeros, row, column, text, meant);
    }
}

void Linter::lintNumber(int row, int column, const QString& text, NumberKind kind)
{
    const QStringList legs = text.split(QLatin1Char('/'));
    if (kind == NumberKind::Price && mExpectation.pairedPrices && legs.size() == 2) {
        lintNumber(row, column, legs.first(), kind);
        lintNumber(row, column, legs.last(), kind);
        return;
    }
    bool isNumber = false;
    const double number = text.toDouble(&isNumber); // as the import reads it
    if (!isNumber) {
        add(kind == NumberKind::Price ? rule::NoPrice : rule::NoNumber, row, column, text);
    } else if (!fits(number, kind)) {
        add(rule::OutOfRange, row, column, text);
    } else if (number < 0.0) {
        add(rule::NegativeNumber, row, column, text);
    } else if (kind == NumberKind::Whole && hasFraction(number)) {
        add(rule::LostFraction, row, column, text);
    }
}

/// How many merged areas hide each of the first columns of a row. An area does not hide its first cell.
QVector<int> Linter::areasOver(int row, int columns) const
{
    QVector<int> areas(columns + 1);
    for (const QRect& area : mTable.inspection.mergedAreas) {
        const int first = area.left() + (row == area.top() ? 1 : 0);
        if (area.top() <= row && row <= area.bottom() && first < columns) {
            ++areas[first];
            --areas[std::min(area.right() + 1, columns)];
        }
    }
    std::partial_sum(areas.begin(), areas.end(), areas.begin()); // from changes to counts
    return areas;
}

void Linter::add(const QString& rule, int row, int column, const QString& text,
                 const QStringList& suggestions)
{
    if (mFindings.size() >= MaxFindings) {
        return;
    }
    Finding finding;
    finding.fault = table::fault(rule, {text, suggestions.join(QStringLiteral("，"))});
    finding.fault.line = row >= 0 ? mTable.lineOf(row) : 0;
    finding.fault.column = column >= 0 ? mTable.rows.first().value(column) : QString();
    finding.fault.cell = mTable.inspection.numbers.value({row, column}, text);
    finding.address = column >= 0 ? table::cellAddress(row, column)
                      : row >= 0  ? QString::number(row + 1)
                                  : QString();
    finding.suggestions = suggestions;
    mFindings.append(finding);
}

} // namespace

QList<Finding> lint(const Table& table, const Expectation& expectation)
{
    return Linter(table, expectation).run();
}

} // namespace table_lint
