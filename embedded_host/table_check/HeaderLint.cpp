#include "embedded_host/table_check/HeaderLint.h"

#include "embedded_host/table_check/TitleLint.h"
#include "table/CellAddress.h"
#include "table/CheckRules.h"
#include "table/HarmlessCell.h"
#include "words/Words.h"

#include <algorithm>

namespace table_lint {

namespace rule = table::rule;

namespace {

/// Strategies that one line names.
constexpr int MostStrategies = 3;

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

/// Rows that a look at a column takes.
constexpr int RowsLookedAt = table::RowsToRead;

class HeaderLint {
public:
    HeaderLint(const table::Table& table, const Expectation& expectation, Findings& findings)
        : mTable(table), mHeader(table.rows.first()), mExpectation(expectation), mFindings(findings),
          mKnown(knownTitles(expectation))
    {
        for (const QString& title : mHeader) {
            mGiven.append(expectation.columnOf(title));
        }
        for (const QString& column : expectation.titles) {
            (mGiven.contains(column) ? mGivenColumns : mLacking).append(column);
        }
    }

    void lint()
    {
        for (int column = 0; column < mHeader.size(); ++column) {
            lintTitle(column);
        }
        if (!mExpectation.titles.isEmpty()) {
            lookBehindTheTitles();
        }
        if (!mExpectation.titles.isEmpty() && mExpectation.otherStrategies) {
            lookForABetterStrategy();
        }
    }

private:
    void lintTitle(int column)
    {
        const QString& title = mHeader.at(column);
        if (title.trimmed().isEmpty()) {
            return lookAtNameless(column);
        }
        if (mHeader.indexOf(title) < column) {
            mFindings.ofCell(rule::RepeatedTitle, 0, column, title);
            return;
        }
        if (mExpectation.titles.isEmpty()) {
            return;
        }
        if (!mGiven.at(column).isEmpty() && mTable.inspection.hiddenColumns.contains(column) &&
            isFilled(column)) {
            mFindings.ofCell(rule::HiddenColumn, 0, column, title);
        }
        if (mKnown.contains(title)) {
            lookForAnAlias(column);
            return;
        }
        lookAtUnknown(column);
    }

    void lookAtUnknown(int column)
    {
        const QString& title = mHeader.at(column);
        const QString meant = meantBy(title, isFilled(column));
        if (!meant.isEmpty()) {
            return mFindings.ofCell(rule::NearTitle, 0, column, title, {meant});
        }
        const QString given = synonymOf(title, mGivenColumns);
        if (!given.isEmpty()) {
            return mFindings.ofCell(rule::SecondTitle, 0, column, title, {mHeader.at(mGiven.indexOf(given))});
        }
        const bool makesAnOrder = !orderColumnOf(title).isEmpty() && isFilled(column);
        mFindings.ofCell(makesAnOrder ? rule::IgnoredTitle : rule::UnknownTitle, 0, column, title);
    }

    /// A column whose title was lost, or that nobody named.
    void lookAtNameless(int column)
    {
        if (!mExpectation.titles.isEmpty() && holdsNumbers(column)) {
            mFindings.ofCell(rule::NamelessColumn, 0, column, columnName(column));
        }
    }

    void lookBehindTheTitles()
    {
        int width = mHeader.size();
        for (const QStringList& cells : mTable.rows) {
            width = qMax(width, cells.size());
        }
        for (int column = mHeader.size(); column < width; ++column) {
            lookAtNameless(column);
        }
    }

    static QString columnName(int column)
    {
        QString address = table::cellAddress(0, column);
        address.chop(1); // the row
        return address;
    }

    /// Whether an order has anything in the column.
    bool isFilled(int column) const
    {
        return hasCell(column, [](const QString& cell) { return !cell.trimmed().isEmpty(); });
    }

    bool holdsNumbers(int column) const
    {
        return hasCell(column, [](const QString& cell) {
            bool isNumber = false;
            cell.trimmed().toDouble(&isNumber);
            return isNumber;
        });
    }

    template <typename Test> bool hasCell(int column, Test holds) const
    {
        for (int row = 1; row < qMin(mTable.rows.size(), RowsLookedAt); ++row) {
            const QStringList& cells = mTable.rows.at(row);
            if (column < cells.size() && !table::isBlankOrNote(cells) && holds(cells.at(column))) {
                return true;
            }
        }
        return false;
    }

    /// 数量 beside 委托数量: the import reads one of them.
    void lookForAnAlias(int column)
    {
        const QString& meant = mGiven.at(column);
        if (meant.isEmpty() || mGiven.count(meant) < 2 || mHeader.at(column) == meant) {
            return;
        }
        const int read = mHeader.contains(meant) ? mHeader.indexOf(meant) : mGiven.indexOf(meant);
        if (read != column) {
            mFindings.ofCell(rule::SecondTitle, 0, column, mHeader.at(column), {mHeader.at(read)});
        }
    }

    /// A column that the file does not give under its own title. By a single word of it only where the column
    /// holds anything.
    QString meantBy(const QString& title, bool isFilled) const
    {
        const QString synonym = synonymOf(title, mLacking);
        if (!synonym.isEmpty()) {
            return synonym;
        }
        QStringList known;
        for (const QString& column : mLacking) {
            known << column << mExpectation.aliases.value(column) << mExpectation.aliases.key(column);
        }
        known.removeAll(QString());
        const QString nearest = nearestTitle(title, known);
        return nearest.isEmpty() && isFilled ? wordedAs(title, mLacking) : nearest;
    }

    /// Columns by which strategies are told apart: not those that every one has, or that are for people.
    static bool counts(const QString& title)
    {
        return !title.isEmpty() && title != QStringLiteral("证券名称") && title != QStringLiteral("名称") &&
               title != QStringLiteral("创建后是否立即启动") && !title.contains(QStringLiteral("备注"));
    }

    QStringList unknownTo(const QStringList& titles) const
    {
        QStringList unknown;
        for (const QString& title : mHeader) {
            const bool isKnown = !counts(title) || titles.contains(title) ||
                                 titles.contains(mExpectation.aliases.value(title)) ||
                                 titles.contains(mExpectation.aliases.key(title)) ||
                                 title == table::reasonTitle();
            if (!isKnown) {
                unknown.append(title);
            }
        }
        return unknown;
    }

    QStringList lackingOf(const QStringList& titles) const
    {
        QStringList lacking;
        for (const QString& title : titles) {
            const bool isGiven = !counts(title) || mHeader.contains(title) ||
                                 mHeader.contains(mExpectation.aliases.value(title)) ||
                                 mHeader.contains(mExpectation.aliases.key(title));
            if (!isGiven) {
                lacking.append(title);
            }
        }
        return lacking;
    }

    /// A strategy fits better that takes columns which this one ignores, and misses no more; or that takes
    /// the header as it stands where this one fills in columns of its own.
    void lookForABetterStrategy()
    {
        const QStringList ignored = unknownTo(mExpectation.titles);
        const QStringList filledIn = lackingOf(mExpectation.titles);
        if (ignored.isEmpty() && filledIn.isEmpty()) {
            return;
        }
        QList<QPair<int, QString>> better; // by how many columns the file lacks of it
        const QMap<QString, QStringList> others = mExpectation.otherStrategies();
        for (auto other = others.cbegin(); other != others.cend(); ++other) {
            const int lacking = lackingOf(*other).size();
            const bool takesTheHeader = unknownTo(*other).isEmpty();
            const bool takesMore = !ignored.isEmpty() && lacking <= filledIn.size();
            if (takesTheHeader && (takesMore || lacking == 0)) {
                better.append({lacking, other.key()});
            }
        }
        if (!better.isEmpty()) {
            tellOf(better, ignored.isEmpty() ? filledIn : ignored);
        }
    }

    void tellOf(QList<QPair<int, QString>>& better, const QStringList& because)
    {
        std::sort(better.begin(), better.end());
        QStringList names;
        for (const auto& strategy : better.mid(0, MostStrategies)) {
            names.append(strategy.second);
        }
        mFindings.ofCell(rule::OtherStrategy, 0, qMax(0, mHeader.indexOf(because.first())),
                         because.join(Words::tr("、")), names);
    }

    const table::Table& mTable;
    const QStringList& mHeader;
    const Expectation& mExpectation;
    Findings& mFindings;
    const QStringList mKnown;
    QStringList mGiven;        ///< of each file column the table's, or empty
    QStringList mGivenColumns; ///< of the table, that the file has
    QStringList mLacking;      ///< likewise, that it has not
};

} // namespace

FileColumns::FileColumns(const table::Table& table, const Expectation& expectation)
{
    const QStringList header = table.rows.value(0);
    for (const QString& title : header) {
        const QString column = expectation.columnOf(title);
        titles.append(titles.contains(column) ? QString() : column);
    }
    const auto place = [&](const QString& column) {
        const int direct = column.isEmpty() ? -1 : titles.indexOf(column);
        const QString alias = expectation.aliases.key(column);
        return direct >= 0 || alias.isEmpty() ? direct : titles.indexOf(alias);
    };
    code = place(expectation.codeTitle);
    market = place(QStringLiteral("市场"));
    name = place(QStringLiteral("证券名称"));
    quantity = place(QStringLiteral("委托数量"));
    direction = place(QStringLiteral("交易方向"));
    for (int column = 0; column < titles.size(); ++column) {
        const auto kind = expectation.numbers.constFind(titles.at(column));
        if (kind != expectation.numbers.constEnd() && !titles.at(column).isEmpty()) {
            numbers[column] = *kind;
        }
    }
}

void lintHeader(const table::Table& table, const Expectation& expectation, Findings& findings)
{
    HeaderLint(table, expectation, findings).lint();
}

} // namespace table_lint
