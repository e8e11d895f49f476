#include "embedded_host/table_check/HeaderLint.h"

#include "embedded_host/table_check/TitleLint.h"
#include "table/CheckRules.h"
#include "table/HarmlessCell.h"

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

class HeaderLint {
public:
    HeaderLint(const QStringList& header, const Expectation& expectation, Findings& findings)
        : mHeader(header), mExpectation(expectation), mFindings(findings), mKnown(knownTitles(expectation))
    {
        for (const QString& title : header) {
            mGiven.append(expectation.columnOf(title));
        }
    }

    void lint()
    {
        for (int column = 0; column < mHeader.size(); ++column) {
            lintTitle(column);
        }
        if (!mExpectation.titles.isEmpty() && mExpectation.otherStrategies) {
            lookForABetterStrategy();
        }
    }

private:
    void lintTitle(int column)
    {
        const QString& title = mHeader.at(column);
        if (title.isEmpty()) {
            return;
        }
        if (mHeader.indexOf(title) < column) {
            mFindings.ofCell(rule::RepeatedTitle, 0, column, title);
            return;
        }
        if (mExpectation.titles.isEmpty()) {
            return;
        }
        if (mKnown.contains(title)) {
            lookForAnAlias(column);
            return;
        }
        const QString meant = meantBy(title);
        if (meant.isEmpty()) {
            mFindings.ofCell(rule::UnknownTitle, 0, column, title);
        } else {
            mFindings.ofCell(rule::NearTitle, 0, column, title, {meant});
        }
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

    /// A column that the file does not give under its own title.
    QString meantBy(const QString& title) const
    {
        QStringList lacking;
        QStringList known;
        for (const QString& column : mExpectation.titles) {
            if (!mGiven.contains(column)) {
                lacking.append(column);
                known << column << mExpectation.aliases.value(column) << mExpectation.aliases.key(column);
            }
        }
        known.removeAll(QString());
        const QString synonym = synonymOf(title, lacking);
        return synonym.isEmpty() ? nearestTitle(title, known) : synonym;
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
                         because.join(QStringLiteral("、")), names);
    }

    const QStringList& mHeader;
    const Expectation& mExpectation;
    Findings& mFindings;
    const QStringList mKnown;
    QStringList mGiven; ///< of each file column the table's, or empty
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
    HeaderLint(table.rows.first(), expectation, findings).lint();
}

} // namespace table_lint
