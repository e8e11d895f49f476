#include "desk/window/ImportProblems.h"

#include "strategy/ColumnRules.h"

#include <QRegularExpression>

namespace import_problems {

namespace {

const QString FileErrorsHead = QStringLiteral("导入文件中包含以下错误:");

// How the reasons name a column: the expression, and the column; an empty column is what the expression
// captures.
struct ColumnRule {
    QString pattern;
    QString column;
};

const QList<ColumnRule>& columnRules()
{
    static const QList<ColumnRule> rules = {
        {QStringLiteral("^证券代码.*不合法"), QStringLiteral("证券代码")},
        {QStringLiteral("^当前资产账号所属市场"), QStringLiteral("市场")},
        {QStringLiteral("^封单数量计算为0"), QStringLiteral("封单金额")},
        {QStringLiteral("^委托数量计算为0"), QStringLiteral("委托金额")},
        {QStringLiteral("^导入“([^、”]+).*”列值为空"), QString()},
        {QStringLiteral("^导入文件表头缺少“([^”]+)”列"), QString()},
        {QStringLiteral("^(.+?)不支持，目前支持"), QString()},
        {QStringLiteral("^(.+?)格式不正确"), QString()},
    };
    return rules;
}

QString columnNamedBy(const QString& reason)
{
    for (const ColumnRule& rule : columnRules()) {
        const QRegularExpression expression(rule.pattern, QRegularExpression::DotMatchesEverythingOption);
        const QRegularExpressionMatch match = expression.match(reason);
        if (match.hasMatch()) {
            return rule.column.isEmpty() ? match.captured(1) : rule.column;
        }
    }
    return {};
}

QString withoutLineEnd(QString text)
{
    while (text.endsWith(QLatin1Char('\n')) || text.endsWith(QLatin1Char('\r'))) {
        text.chop(1);
    }
    return text;
}

/// Not every check ends a row's text with a line end. Raw cells, which may hold anything, stand only in the
/// errors of a file, and there each row does.
QStringList linesOf(QString text, bool ofFile)
{
    static const QRegularExpression nextRow(QStringLiteral("(?=第(?:\\d+|%)行：)"));
    if (!ofFile) {
        text.replace(nextRow, QStringLiteral("\n"));
    }
    return text.split(QLatin1Char('\n'));
}

} // namespace

QList<Problem> fromBoxText(const QString& text)
{
    // A check that does not know the row leaves a % in its place.
    static const QRegularExpression rowStart(QStringLiteral("^第(\\d+|%)行：(.*)$"));
    const bool ofFile = text.startsWith(FileErrorsHead);
    QList<Problem> problems;
    for (QString line : linesOf(text, ofFile)) {
        line = withoutLineEnd(line);
        const QRegularExpressionMatch match = rowStart.match(line);
        if (match.hasMatch()) {
            Problem problem;
            problem.line = match.captured(1).toInt();
            problem.place = problem.line == 0 ? Problem::Place::Whole
                            : ofFile          ? Problem::Place::FileRow
                                              : Problem::Place::BatchRow;
            problem.reason = match.captured(2);
            problems.append(problem);
        } else if (!problems.isEmpty()) {
            problems.last().reason += QLatin1Char('\n') + line; // a raw cell with a line end in it
        } else if (!line.isEmpty() && line != FileErrorsHead) {
            Problem problem;
            problem.reason = line;
            problems.append(problem);
        }
    }
    for (Problem& problem : problems) {
        problem.reason = withoutLineEnd(problem.reason);
        problem.column = columnNamedBy(problem.reason);
    }
    return problems;
}

int columnOf(const QString& title, const QStringList& header)
{
    const int exact = title.isEmpty() ? -1 : header.indexOf(title);
    if (exact >= 0) {
        return exact;
    }
    const int byName = title.isEmpty() ? -1 : header.indexOf(strategy::HeadAliases.value(title, title));
    return byName >= 0 || strategy::HeadAliases.key(title).isEmpty()
               ? byName
               : header.indexOf(strategy::HeadAliases.key(title));
}

void locate(QList<Problem>& problems, const QList<QStringList>& rows)
{
    if (rows.isEmpty()) {
        return;
    }
    const QStringList& header = rows.first();
    for (Problem& problem : problems) {
        if (problem.place != Problem::Place::FileRow || problem.line < 1 || problem.line > rows.size()) {
            continue;
        }
        const int column = columnOf(problem.column, header);
        if (column >= 0) {
            problem.column = header.at(column);
            problem.cell = rows.at(problem.line - 1).value(column);
        }
    }
}

} // namespace import_problems
