#include "embedded_host/table_reader/TableLint.h"

#include "embedded_host/table_reader/CellAddress.h"
#include "embedded_host/table_reader/HarmlessCell.h"
#include "embedded_host/table_reader/TitleLint.h"

#include <QRegularExpression>

#include <algorithm>
#include <cmath>
#include <limits>
#include <numeric>

namespace table_lint {
namespace {

using table_reader::Table;

struct Kind {
    const char* code;
    Severity severity;
    const char* chinese; ///< %1: the text in question, %2: suggestions
    const char* english;
};

constexpr Kind Unknown = {"title.unknown", Severity::Warning, "表头“%1”不是该策略的列，将被忽略",
                          "The title \"%1\" is no column of the strategy and will be ignored"};
constexpr Kind Near = {"title.near", Severity::Error, "表头“%1”不是该策略的列，是否应为“%2”",
                       "The title \"%1\" is no column of the strategy; did you mean \"%2\"?"};
constexpr Kind Repeated = {"title.repeated", Severity::Error, "表头“%1”出现了不止一次",
                           "The title \"%1\" occurs more than once"};
constexpr Kind LostZeros = {"code.zeros", Severity::Error, "证券代码“%1”可能丢失了前面的零，可能是：%2",
                            "The code \"%1\" seems to have lost its leading zeros; it could be: %2"};
constexpr Kind Exponent = {"number.exponent", Severity::Error, "“%1”是科学计数法，原来的数字可能已经丢失",
                           "\"%1\" is in exponent form; its digits may be lost"};
constexpr Kind Digits = {"number.digits", Severity::Warning, "“%1”超过15位有效数字，电子表格只能保留15位",
                         "\"%1\" has more than the 15 digits that a spreadsheet keeps"};
constexpr Kind NoNumber = {"number.invalid", Severity::Error, "“%1”不是数字，将按0处理",
                           "\"%1\" is no number and will be taken as 0"};
constexpr Kind NoPrice = {"number.invalid", Severity::Error, "“%1”不是数字，将按0处理，即不限价",
                          "\"%1\" is no number and will be taken as 0, which means no limit"};
constexpr Kind OutOfRange = {"number.range", Severity::Error, "“%1”超出数值范围，将变成另一个数",
                             "\"%1\" is out of range and will become another number"};
constexpr Kind Fraction = {"number.fraction", Severity::Warning, "“%1”的小数部分将被舍去",
                           "The fraction of \"%1\" will be cut off"};
constexpr Kind Negative = {"number.negative", Severity::Warning, "“%1”是负数", "\"%1\" is negative"};
constexpr Kind Invisible = {"blank.invisible", Severity::Warning, "“%1”含有看不见的空白字符",
                            "\"%1\" holds blanks that cannot be seen"};
constexpr Kind FullWidth = {"digit.fullwidth", Severity::Warning, "“%1”含有全角数字",
                            "\"%1\" holds full-width digits"};
constexpr Kind Merged = {"merged.hidden", Severity::Warning, "“%1”被合并单元格遮住，但仍会被导入",
                         "\"%1\" is hidden under a merged cell and is imported all the same"};
constexpr Kind HiddenRow = {"row.hidden", Severity::Warning, "该行是隐藏行，但仍会被导入",
                            "The row is hidden and is imported all the same"};
constexpr Kind Replaced = {"text.replaced", Severity::Warning, "文件中有%1处字符无法按%2解码",
                           "%1 places of the file could not be decoded as %2"};

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
    QStringList known = {table_reader::reasonTitle()};
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
    void add(const Kind& kind, int row, int column, const QString& text,
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
        add(Replaced, -1, -1, count, {mTable.encoding});
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
        add(Repeated, 0, column, title);
        return;
    }
    if (mExpectation.titles.isEmpty() || mKnownTitles.contains(title)) {
        return;
    }
    const QString nearest = nearestTitle(title, mKnownTitles);
    if (nearest.isEmpty()) {
        add(Unknown, 0, column, title);
    } else {
        add(Near, 0, column, title, {nearest});
    }
}

void Linter::lintRow(int row)
{
    const QStringList& cells = mTable.rows.at(row);
    const bool isEmpty =
        std::all_of(cells.begin(), cells.end(), [](const QString& c) { return c.isEmpty(); });
    if (!isEmpty && mTable.inspection.hiddenRows.contains(row)) {
        add(HiddenRow, row, -1, QString());
    }
    const bool isImported = row > 0 && !isPassedOver(cells);
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
        add(Invisible, row, column, text);
    }
    if (std::any_of(text.begin(), text.end(), isFullWidthDigit)) {
        add(FullWidth, row, column, text);
    }
    if (isExponentForm(text)) {
        add(Exponent, row, column, text);
    } else if (constexpr int Kept = 15; significantDigits(text) > Kept) {
        add(Digits, row, column, text);
    }
    if (mAreasOver.at(column) > 0) {
        add(Merged, row, column, text);
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
        add(LostZeros, row, column, text, meant);
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
        add(kind == NumberKind::Price ? NoPrice : NoNumber, row, column, text);
    } else if (!fits(number, kind)) {
        add(OutOfRange, row, column, text);
    } else if (number < 0.0) {
        add(Negative, row, column, text);
    } else if (kind == NumberKind::Whole && hasFraction(number)) {
        add(Fraction, row, column, text);
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

void Linter::add(const Kind& kind, int row, int column, const QString& text, const QStringList& suggestions)
{
    if (mFindings.size() >= MaxFindings) {
        return;
    }
    const QString suggested = suggestions.join(QStringLiteral("，"));
    const auto sentence = [&](const char* pattern) {
        const QString format = QString::fromUtf8(pattern);
        return format.contains(QLatin1String("%2"))   ? format.arg(text, suggested)
               : format.contains(QLatin1String("%1")) ? format.arg(text)
                                                      : format;
    };
    Finding finding;
    finding.code = QLatin1String(kind.code);
    finding.severity = kind.severity;
    finding.chinese = sentence(kind.chinese);
    finding.english = sentence(kind.english);
    finding.sheet = mTable.sheet;
    finding.line = row >= 0 ? mTable.inspection.lines.value(row, 0) : 0;
    finding.address = column >= 0 ? table_reader::cellAddress(row, column)
                      : row >= 0  ? QString::number(row + 1)
                                  : QString();
    finding.raw = mTable.inspection.numbers.value({row, column}, text);
    finding.suggestions = suggestions;
    mFindings.append(finding);
}

} // namespace

bool isPassedOver(const QStringList& row)
{
    if (row.isEmpty() || (row.size() == 1 && row.first().isEmpty())) {
        return true;
    }
    return row.size() > 2 && row.at(0).trimmed().isEmpty() && row.at(1).trimmed().isEmpty();
}

QList<Finding> lint(const Table& table, const Expectation& expectation)
{
    return Linter(table, expectation).run();
}

} // namespace table_lint
