#include "desk/models/ProblemsModel.h"

#include "table/FaultCatalogue.h"
#include "words/Language.h"
#include "words/Words.h"

#include <QRegularExpression>

namespace {

QString number(int value)
{
    return value > 0 ? QString::number(value) : QString();
}

/// On the sheet, or what a problem of no one row is about.
QString placeOf(const Problem& problem)
{
    if (!problem.address.isEmpty() || problem.fault.line > 0 || problem.row > 0) {
        return problem.address;
    }
    return problem.isOfBatch() ? Words::tr("整批") : Words::tr("整个文件");
}

} // namespace

ProblemsModel::ProblemsModel(QObject* parent)
    : RecordModel({{Words::tr("严重程度")},
                   {Words::tr("文件行"), true},
                   {Words::tr("单元格")},
                   {Words::tr("表格行"), true},
                   {Words::tr("列")},
                   {Words::tr("原值")},
                   {Words::tr("原因")},
                   {Words::tr("建议")},
                   {Words::tr("规则")},
                   {Words::tr("来源")}},
                  parent)
{
}

QString ProblemsModel::nameOf(table::Severity severity)
{
    switch (severity) {
    case table::Severity::Error:
        return Words::tr("错误");
    case table::Severity::Warning:
        return Words::tr("警告");
    case table::Severity::Notice:
        break;
    }
    return Words::tr("提示");
}

QString ProblemsModel::nameOf(Problem::Source source)
{
    switch (source) {
    case Problem::Source::Import:
        return Words::tr("导入");
    case Problem::Source::Check:
        return Words::tr("文件检查");
    case Problem::Source::Confirmation:
        return Words::tr("确定");
    case Problem::Source::Guard:
        return Words::tr("创建前检查");
    case Problem::Source::SetAside:
        break;
    }
    return Words::tr("已排除");
}

QString ProblemsModel::signOf(table::Severity severity)
{
    switch (severity) {
    case table::Severity::Error:
        return QStringLiteral("×");
    case table::Severity::Warning:
        return QStringLiteral("△");
    case table::Severity::Notice:
        break;
    }
    return QStringLiteral("·");
}

QString ProblemsModel::titleOfRule(const QString& rule)
{
    static const QRegularExpression placeholder(QStringLiteral("%\\d+"));
    const table::RuleEntry* known = table::findRule(rule);
    return known ? QString(known->chinese).replace(placeholder, QStringLiteral("…")).simplified() : rule;
}

ListModel::Cell ProblemsModel::cellOf(const Problem& problem, int column) const
{
    const table::Fault& fault = problem.fault;
    switch (Column(column)) {
    case Severity:
        return {signOf(fault.severity) + QLatin1Char(' ') + nameOf(fault.severity),
                {},
                table::nameOf(fault.severity)};
    case Line:
        return {number(fault.line)};
    case Cell:
        return {placeOf(problem)};
    case Row:
        return {number(problem.row)};
    case Title:
        return {fault.column};
    case Raw:
        return {fault.cell};
    case Reason:
        return {words::sentence(fault).replace(QLatin1Char('\n'), QLatin1Char(' '))};
    case Suggestions:
        return {problem.suggestions.join(Words::tr("，"))};
    case Rule:
        return {fault.rule};
    case Source:
        return {nameOf(problem.source)};
    }
    return {};
}

QVariant ProblemsModel::roleOf(const Problem& problem, int role) const
{
    return role == StateRole ? QVariant(int(problem.fault.severity)) : QVariant();
}
