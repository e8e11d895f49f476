#include "desk/models/ProblemsModel.h"

namespace {

QString placeText(const Problem& problem)
{
    switch (problem.place) {
    case Problem::Place::FileRow:
        return QStringLiteral("文件第 %1 行").arg(problem.line);
    case Problem::Place::BatchRow:
        return QStringLiteral("表格第 %1 行").arg(problem.line);
    case Problem::Place::Whole:
        break;
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
        return {problem.column};
    case Raw:
        return {problem.cell};
    case Reason:
        return {QString(problem.reason).replace(QLatin1Char('\n'), QLatin1Char(' '))};
    }
    return {};
}
