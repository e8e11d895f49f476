#include "desk/models/FindingsModel.h"

#include "table/CheckRules.h"
#include "table/FaultCatalogue.h"

namespace {

ListModel::Cell shownSeverity(table::Severity severity)
{
    switch (severity) {
    case table::Severity::Error:
        return {QStringLiteral("错误"), {}, QStringLiteral("error")};
    case table::Severity::Warning:
        return {QStringLiteral("警告"), {}, QStringLiteral("warning")};
    case table::Severity::Notice:
        break;
    }
    return {QStringLiteral("提示"), {}, QStringLiteral("notice")};
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

void FindingsModel::show(const FileReport& report)
{
    mSheet = report.sheet;
    mIsSpreadsheet = report.isSpreadsheet();
    if (report.error.isEmpty()) {
        setRecords(report.findings);
        return;
    }
    setRecords({{table::fault(table::rule::UnreadableFile, {report.error}), QString(), {}}});
}

QString FindingsModel::placeOf(const table_lint::Finding& finding) const
{
    if (finding.address.isEmpty()) {
        return QStringLiteral("整个文件");
    }
    if (!mIsSpreadsheet) {
        return QStringLiteral("%1（文件第 %2 行）").arg(finding.address).arg(finding.fault.line);
    }
    const bool wholeRow = finding.address.at(0).isDigit();
    const QString address = wholeRow ? QStringLiteral("第 %1 行").arg(finding.address) : finding.address;
    return mSheet.isEmpty() ? address : mSheet + QLatin1Char('!') + address;
}

ListModel::Cell FindingsModel::cellOf(const table_lint::Finding& finding, int column) const
{
    switch (Column(column)) {
    case Severity:
        return shownSeverity(finding.fault.severity);
    case Place:
        return {placeOf(finding)};
    case Raw:
        return {finding.fault.cell};
    case Sentence:
        return {table::sentence(finding.fault)};
    case Suggestions:
        return {finding.suggestions.join(QStringLiteral("，"))};
    }
    return {};
}

QVariant FindingsModel::roleOf(const table_lint::Finding& finding, int role) const
{
    return role == StateRole ? QVariant(int(finding.fault.severity)) : QVariant();
}
