#include "embedded_host/table_check/RowLint.h"

#include "embedded_host/table_check/NumberLint.h"
#include "table/CellAddress.h"
#include "table/CheckRules.h"

#include <algorithm>

namespace table_lint {

namespace rule = table::rule;

namespace {

/// What makes two rows the same order; prices of the day and times play no part.
bool tellsOrdersApart(const QString& column)
{
    static const QSet<QString> names = {QStringLiteral("证券代码"), QStringLiteral("代码"),
                                        QStringLiteral("市场"),     QStringLiteral("交易方向"),
                                        QStringLiteral("委托方向"), QStringLiteral("委托数量"),
                                        QStringLiteral("委托金额"), QStringLiteral("委托限价"),
                                        QStringLiteral("限价"),     QStringLiteral("配对编号")};
    return names.contains(column);
}

/// Cells that harm nobody where they are empty.
bool isForPeople(const QString& column)
{
    return column.isEmpty() || column == QStringLiteral("证券名称") ||
           column.contains(QStringLiteral("备注"));
}

bool isFilled(const QString& cell)
{
    return !cell.trimmed().isEmpty();
}

/// A code, a number with its unit, a time: not a sentence.
bool isTyped(const QString& cell)
{
    constexpr int Longest = 32;
    const bool isChinese =
        std::any_of(cell.begin(), cell.end(), [](QChar c) { return c.script() == QChar::Script_Han; });
    return isFilled(cell) && cell.size() <= Longest &&
           (!isChinese || !plausibleNumber(cell, NumberKind::Free).isEmpty());
}

} // namespace

RowLint::RowLint(const table::Table& table, const Expectation& expectation, const FileColumns& columns,
                 Findings& findings)
    : mTable(table), mExpectation(expectation), mFindings(findings), mColumns(columns)
{
}

bool RowLint::look(int row)
{
    const QStringList& cells = mTable.rows.at(row);
    if (std::none_of(cells.begin(), cells.end(), isFilled)) {
        return true;
    }
    if (mTable.inspection.hiddenRows.contains(row)) {
        mFindings.ofRow(rule::HiddenRow, row);
    }
    if (row == 0) {
        return true;
    }
    if (mTable.inspection.struckRows.contains(row)) {
        mFindings.ofRow(rule::StruckRow, row);
    }
    if (isHeaderAgain(cells)) {
        mFindings.ofRow(rule::HeaderAgain, row);
        return false;
    }
    if (isTotal(cells)) {
        mFindings.ofRow(rule::TotalRow, row);
        return false;
    }
    if (table::isBlankOrNote(cells)) {
        if (isOrderWithoutCode(row)) {
            mFindings.ofRow(rule::OrderWithoutCode, row);
        }
    } else {
        lookForTheSame(row);
        lookAtMerges(row);
    }
    return true;
}

/// A note has a sentence or two; an order says things in the way of its columns.
bool RowLint::isOrderWithoutCode(int row) const
{
    const QStringList& cells = mTable.rows.at(row);
    int typed = 0;
    for (int column = 0; column < cells.size(); ++column) {
        const QString& title = mColumns.titles.value(column);
        typed += !isForPeople(title) && isTyped(cells.at(column)) ? 1 : 0;
    }
    constexpr int Enough = 2;
    return typed >= Enough || (typed > 0 && isBelowAMergedCode(row));
}

bool RowLint::isBelowAMergedCode(int row) const
{
    const QList<QRect>& areas = mTable.inspection.mergedAreas;
    return std::any_of(areas.begin(), areas.end(), [&](const QRect& area) {
        return area.top() > 0 && area.top() < row && row <= area.bottom() && area.left() <= mColumns.code &&
               mColumns.code <= area.right();
    });
}

bool RowLint::isHeaderAgain(const QStringList& cells) const
{
    const QStringList& header = mTable.rows.first();
    int same = 0;
    int other = 0;
    for (int column = 0; column < cells.size(); ++column) {
        if (isFilled(cells.at(column))) {
            ++(cells.at(column).trimmed() == header.value(column).trimmed() ? same : other);
        }
    }
    constexpr int Enough = 2;
    return same >= Enough && same > other;
}

bool RowLint::isTotal(const QStringList& cells) const
{
    static const QSet<QString> words = {
        QStringLiteral("合计"), QStringLiteral("总计"), QStringLiteral("小计"),  QStringLiteral("汇总"),
        QStringLiteral("共计"), QStringLiteral("累计"), QStringLiteral("total"), QStringLiteral("sum")};
    QString first;
    for (const QString& cell : cells) {
        if (isFilled(cell)) {
            first = cell;
            break;
        }
    }
    QString word;
    for (const QChar c : first.normalized(QString::NormalizationForm_KC)) {
        word += c.isLetter() ? QString(c.toLower()) : QString();
    }
    return words.contains(word);
}

/// What the row orders, in one spelling; empty where it does not say how much.
QStringList RowLint::orderOf(const QStringList& cells) const
{
    const std::optional<KnownSecurity> security =
        mExpectation.security && mColumns.code >= 0
            ? mExpectation.security(cells.value(mColumns.code), cells.value(mColumns.market))
            : std::nullopt;
    QStringList order{security ? security->symbol : QString()};
    bool saysHowMuch = false;
    for (int column = 0; column < mColumns.titles.size(); ++column) {
        const QString& title = mColumns.titles.at(column);
        const bool isSecurity = column == mColumns.code || (security && column == mColumns.market);
        if (!tellsOrdersApart(title) || (security && isSecurity)) {
            continue;
        }
        bool isNumber = false;
        const QString cell = cells.value(column).trimmed();
        const double number = cell.toDouble(&isNumber);
        order << title << (isNumber && !isSecurity ? QString::number(number, 'g', 15) : cell);
        saysHowMuch = saysHowMuch || (title.startsWith(QStringLiteral("委托数量")) && !cell.isEmpty()) ||
                      (title == QStringLiteral("委托金额") && !cell.isEmpty());
    }
    return saysHowMuch ? order : QStringList();
}

void RowLint::lookForTheSame(int row)
{
    const QStringList order = orderOf(mTable.rows.at(row));
    if (order.isEmpty()) {
        return;
    }
    const auto seen = mSeen.constFind(order);
    if (seen != mSeen.constEnd()) {
        mFindings.ofRow(rule::SameOrder, row, QString::number(*seen));
    } else {
        mSeen.insert(order, mTable.lineOf(row));
    }
}

/// An area has its text in its first cell alone: for the import the other rows say nothing.
void RowLint::lookAtMerges(int row)
{
    const QStringList& cells = mTable.rows.at(row);
    for (const QRect& area : mTable.inspection.mergedAreas) {
        const bool coversFromAbove = area.top() > 0 && area.top() < row && row <= area.bottom();
        const int last = coversFromAbove ? std::min(area.right(), mColumns.titles.size() - 1) : -1;
        for (int column = area.left(); column <= last; ++column) {
            const QString text = mTable.rows.at(area.top()).value(area.left());
            if (!isForPeople(mColumns.titles.at(column)) && !isFilled(cells.value(column)) &&
                isFilled(text)) {
                mFindings.ofCell(rule::EmptyByMerge, row, column, text,
                                 {table::cellAddress(area.top(), area.left())});
            }
        }
    }
}

} // namespace table_lint
