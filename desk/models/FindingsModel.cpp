#include "desk/models/FindingsModel.h"

namespace {

ListModel::Cell shownSeverity(table_lint::Severity severity)
{
    return severity == table_lint::Severity::Error
               ? ListModel::Cell{QStringLiteral("错误"), {}, QStringLiteral("error")}
               : ListModel::Cell{QStringLiteral("警告"), {}, QStringLiteral("warning")};
}

QString placeText(const table_lint::Finding& finding)
{
    if (finding.address.isEmpty()) {
        return QStringLiteral("整个文件");
    }
    if (finding.line > 0) {
        return QStringLiteral("%1（文件第 %2 行）").arg(finding.address).arg(finding.line);
    }
    const bool wholeRow = finding.address.at(0).isDigit();
    const QString address = wholeRow ? QStringLiteral("第 %1 行").arg(finding.address) : finding.address;
    return finding.sheet.isEmpty() ? address : finding.sheet + QLatin1Char('!') + address;
}

} // namespace

FindingsModel::FindingsModel(QObject* parent)
    : RecordModel({{QStringLiteral("严重程度")},
                   {QStringLiteral("位置")},
                   {QStringLiteral("原文")},
                   {QStringLiteral("说明")},
                   {QStringLiteral("建议")}},
                  parent)
{
}

ListModel::Cell FindingsModel::cellOf(const table_lint::Finding& finding, int column) const
{
    switch (Column(column)) {
    case Severity:
        return shownSeverity(finding.severity);
    case Place:
        return {placeText(finding)};
    case Raw:
        return {finding.raw};
    case Sentence:
        return {finding.chinese};
    case Suggestions:
        return {finding.suggestions.join(QStringLiteral("，"))};
    }
    return {};
}

QVariant FindingsModel::roleOf(const table_lint::Finding& finding, int role) const
{
    return role == StateRole ? QVariant(int(finding.severity)) : QVariant();
}
