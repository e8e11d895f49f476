#include "embedded_host/table_check/TableLint.h"

#include "embedded_host/table_check/Findings.h"
#include "embedded_host/table_check/HeaderLint.h"
#include "embedded_host/table_check/NumberLint.h"
#include "embedded_host/table_check/RowLint.h"
#include "embedded_host/table_check/SheetLint.h"
#include "table/CheckRules.h"

#include <QRegularExpression>

#include <algorithm>
#include <numeric>
#include <optional>

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
    return text.contains(QLatin1Char('e'), Qt::CaseInsensitive) && pattern.match(text).hasMatch();
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

/// What is left of a name when what exchanges and systems add to it is taken away.
QString plainName(const QString& name)
{
    static const QRegularExpression marks(
        QStringLiteral("^(XD|XR|DR|\\*?ST|S\\*?ST|N|C|U|W)+(?=\\W|[^A-Z])"));
    QString plain;
    for (const QChar c : name.normalized(QString::NormalizationForm_KC).toUpper()) {
        if (c.isLetterOrNumber() || c == QLatin1Char('*')) {
            plain.append(c);
        }
    }
    return plain.remove(marks).remove(QLatin1Char('*'));
}

bool isChinese(const QString& text)
{
    return std::any_of(text.begin(), text.end(), [](QChar c) { return c.script() == QChar::Script_Han; });
}

/// Abbreviations are the same name; a name in another language is compared with nothing.
bool namesDiffer(const QString& typed, const QString& known)
{
    const QString one = plainName(typed);
    const QString other = plainName(known);
    return isChinese(one) && isChinese(other) && !one.contains(other) && !other.contains(one);
}

/// The cells of a table, a row at a time.
class CellLint {
public:
    CellLint(const Table& table, const Expectation& expectation, const FileColumns& columns,
             Findings& findings)
        : mTable(table), mExpectation(expectation), mFindings(findings), mColumns(columns)
    {
    }

    void look(int row);

private:
    void lookAtCell(int row, int column, const QString& text);
    void lookAtCode(int row, const QString& text);
    void lookAtValue(int row, int column, const QString& text);
    void lookAtNumber(int row, int column, const QString& text, NumberKind kind);
    void lookAtSecurity(int row);
    QString text(int row, int column) const { return mTable.rows.at(row).value(column); }
    QVector<int> areasOver(int row, int columns) const;

    const Table& mTable;
    const Expectation& mExpectation;
    Findings& mFindings;
    const FileColumns& mColumns;
    QVector<int> mAreasOver; ///< of each column, in the row looked at
    std::optional<KnownSecurity> mSecurity;
};

void CellLint::look(int row)
{
    const QStringList& cells = mTable.rows.at(row);
    const bool isImported = row > 0 && !table::isBlankOrNote(cells);
    mAreasOver = areasOver(row, cells.size());
    mSecurity = isImported && mExpectation.security && mColumns.code >= 0
                    ? mExpectation.security(cells.value(mColumns.code), cells.value(mColumns.market))
                    : std::nullopt;
    for (int column = 0; column < cells.size(); ++column) {
        if (cells.at(column).isEmpty()) {
            continue;
        }
        lookAtCell(row, column, cells.at(column));
        if (isImported) {
            lookAtValue(row, column, cells.at(column));
        }
    }
    if (mSecurity) {
        lookAtSecurity(row);
    }
}

void CellLint::lookAtCell(int row, int column, const QString& text)
{
    if (std::any_of(text.begin(), text.end(), isInvisibleBlank)) {
        mFindings.ofCell(rule::InvisibleBlank, row, column, text);
    }
    if (std::any_of(text.begin(), text.end(), isFullWidthDigit)) {
        mFindings.ofCell(rule::FullWidthDigit, row, column, text);
    }
    if (isExponentForm(text)) {
        mFindings.ofCell(rule::ExponentForm, row, column, text);
    } else if (constexpr int Kept = 15; significantDigits(text) > Kept) {
        mFindings.ofCell(rule::LostDigits, row, column, text);
    }
    if (mAreasOver.at(column) > 0) {
        mFindings.ofCell(rule::HiddenByMerge, row, column, text);
    }
    if (row > 0 && column == mColumns.code) {
        lookAtCode(row, text);
    }
}

/// A code of digits alone that no security has, though some have it with zeros before it; not one that the
/// import completes by its market.
void CellLint::lookAtCode(int row, const QString& text)
{
    constexpr int LongestCode = 6;
    const QString code = text.trimmed();
    const bool isDigits =
        std::all_of(code.begin(), code.end(), [](QChar c) { return c >= u'0' && c <= u'9'; });
    if (mSecurity || !mExpectation.securities || !isDigits || code.isEmpty() || code.size() >= LongestCode ||
        !mExpectation.securities(code).isEmpty()) {
        return;
    }
    QStringList meant;
    for (int length = code.size() + 1; length <= LongestCode; ++length) {
        meant += mExpectation.securities(code.rightJustified(length, QLatin1Char('0')));
    }
    if (!meant.isEmpty()) {
        mFindings.ofCell(rule::LostZeros, row, mColumns.code, text, meant);
    }
}

void CellLint::lookAtValue(int row, int column, const QString& text)
{
    const QString title = mColumns.titles.value(column); // a row may be longer than the header
    const auto lost = mExpectation.lostTexts.constFind(title);
    if (lost != mExpectation.lostTexts.constEnd()) {
        for (const QString& leg : text.split(QLatin1Char('/'))) {
            if (lost->contains(leg)) {
                mFindings.ofCell(rule::LostChoice, row, column, leg);
            }
        }
    }
    const auto kind = mColumns.numbers.constFind(column);
    if (kind == mColumns.numbers.constEnd()) {
        return;
    }
    const QString shown = mTable.inspection.shown.value({row, column});
    if (!shown.isEmpty() && showsAnother(shown, text, *kind, mSecurity ? mSecurity->precision : 2)) {
        mFindings.ofCell(rule::ShownOtherwise, row, column, text, {shown});
    }
    lookAtNumber(row, column, text, *kind);
}

void CellLint::lookAtNumber(int row, int column, const QString& text, NumberKind kind)
{
    const QStringList legs = text.split(QLatin1Char('/'));
    if (kind == NumberKind::Price && mExpectation.pairedPrices && legs.size() == 2) {
        lookAtNumber(row, column, legs.first(), kind);
        lookAtNumber(row, column, legs.last(), kind);
        return;
    }
    std::optional<NumberFault> fault = faultOfNumber(text, kind);
    if (!fault && kind == NumberKind::Price && mSecurity) {
        fault = mSecurity->isBondRepo ? faultOfRate(text) : std::nullopt;
        const bool isShownSo = mTable.inspection.shown.contains({row, column}); // and was compared
        fault = fault || isShownSo ? fault : faultOfDecimals(text, mSecurity->precision);
    }
    if (fault) {
        mFindings.ofCell(fault->rule, row, column, text,
                         fault->meant.isEmpty() ? QStringList() : QStringList{fault->meant});
    }
}

/// What the row says of its security, against what is known of it.
void CellLint::lookAtSecurity(int row)
{
    const QString name = text(row, mColumns.name);
    if (mColumns.name >= 0 && !name.isEmpty() && namesDiffer(name, mSecurity->name)) {
        mFindings.ofCell(rule::OtherName, row, mColumns.name, name,
                         {mSecurity->symbol + QLatin1Char(' ') + mSecurity->name});
    }
    const QString quantity = text(row, mColumns.quantity);
    if (mColumns.quantity < 0 || faultOfNumber(quantity, NumberKind::Whole)) {
        return;
    }
    const bool sells = text(row, mColumns.direction).trimmed() == QLatin1String("2");
    if (const std::optional<NumberFault> fault = faultOfLot(quantity, *mSecurity, sells)) {
        mFindings.ofCell(fault->rule, row, mColumns.quantity, quantity, {fault->meant});
    }
}

/// How many merged areas hide each of the first columns of a row. An area does not hide its first cell.
QVector<int> CellLint::areasOver(int row, int columns) const
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

} // namespace

QString Expectation::columnOf(const QString& title) const
{
    if (titles.isEmpty() || titles.contains(title)) {
        return titles.isEmpty() ? aliases.value(title, title) : title;
    }
    for (const QString& other : {aliases.value(title), aliases.key(title)}) {
        if (!other.isEmpty() && titles.contains(other)) {
            return other;
        }
    }
    return QString();
}

namespace {

/// A table without a column of codes is no list of orders, and nothing in it becomes one.
bool holdsNoOrders(const FileColumns& columns, const Expectation& expectation)
{
    return !expectation.codeTitle.isEmpty() && columns.code < 0;
}

/// Whether a title may be meant for another, which would be why nothing is imported: in a table that has some
/// of the columns.
bool mayBeMisspelt(const Finding& finding, const FileColumns& columns)
{
    constexpr int Enough = 2;
    const auto known = std::count_if(columns.titles.begin(), columns.titles.end(),
                                     [](const QString& title) { return !title.isEmpty(); });
    return finding.fault.rule == rule::NearTitle && known >= Enough;
}

/// But for what may be why it looks like that.
QList<Finding> softened(QList<Finding> findings, const FileColumns& columns)
{
    for (Finding& finding : findings) {
        if (finding.fault.rule != rule::UnknownCodePage && !mayBeMisspelt(finding, columns)) {
            finding.fault.severity = table::Severity::Notice;
        }
    }
    return findings;
}

/// Wherever they stand: in rows that only look like notes or like none since nothing was ever calculated.
void lintFormulas(const Table& table, const FileColumns& columns, Findings& findings)
{
    QList<table::Cell> cells = table.inspection.uncalculated.values();
    std::sort(cells.begin(), cells.end());
    for (const table::Cell& cell : qAsConst(cells)) {
        if (cell.first > 0 && !columns.titles.value(cell.second).isEmpty()) {
            findings.ofCell(rule::Uncalculated, cell.first, cell.second,
                            table.rows.value(cell.first).value(cell.second));
        }
    }
}

} // namespace

QList<Finding> lint(const Table& table, const Expectation& expectation)
{
    Findings findings(table);
    lintFile(table, expectation, findings);
    const FileColumns columns(table, expectation);
    if (!table.rows.isEmpty()) {
        lintHeader(table, expectation, findings);
        lintFormulas(table, columns, findings);
    }
    RowLint rows(table, expectation, columns, findings);
    CellLint cells(table, expectation, columns, findings);
    for (int row = 0; row < table.rows.size(); ++row) {
        if (rows.look(row)) {
            cells.look(row);
        }
    }
    return holdsNoOrders(columns, expectation) ? softened(findings.take(), columns) : findings.take();
}

} // namespace table_lint
