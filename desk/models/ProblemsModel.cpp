#include "desk/models/ProblemsModel.h"

#include "table/FaultCatalogue.h"

namespace {

QString placeText(const Problem& problem)
{
    if (problem.subject == Problem::Subject::File && problem.fault.line > 0) {
        return QStringLiteral("文件第 %1 行").arg(problem.fault.line);
    }
    if (problem.subject == Problem::Subject::Batch && problem.fault.row > 0) {
        return QStringLiteral("表格第 %1 行").arg(problem.fault.row);
    }
    return QStringLiteral("整体");
}

} // namespace

ProblemsModel::ProblemsModel(QObject* parent)
    : RecordModel({{QStringLiteral("位置")},
                   {QStringLiteral("列")},
                   {QStringLiteral("原值")},
                   {QStringLiteral("原因")}},
                  parent)
{
}

ListModel::Cell ProblemsModel::cellOf(const Problem& problem, int column) const
{
    switch (Column(column)) {
    case Place:
        return {placeText(problem)};
    case Title:
        return {problem.fault.column};
    case Raw:
        return {problem.fault.cell};
    case Reason:
        return {table::sentence(problem.fault).replace(QLatin1Char('\n'), QLatin1Char(' '))};
    }
    return {};
}

QVariant ProblemsModel::roleOf(const Problem& problem, int role) const
{
    return role == StateRole ? QVariant(int(problem.fault.severity)) : QVariant();
}
