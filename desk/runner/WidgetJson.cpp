#include "desk/runner/WidgetJson.h"

#include "desk/probe/DialogProbe.h"
#include "host/SolveyDecimalLineEdit.h"
#include "host/ZelTableView.h"

#include <QAbstractButton>
#include <QLabel>

namespace runner {

namespace {

QJsonArray hiddenColumns(const ZelTableView& table)
{
    const QStringList names = table.headNames();
    QJsonArray hidden;
    for (int column = 0; column < names.size(); ++column) {
        if (table.isColumnHidden(column)) {
            hidden.append(names.at(column));
        }
    }
    return hidden;
}

QJsonArray recordsToJson(const RecordDataList& records)
{
    QJsonArray rows;
    for (const RecordData& record : records) {
        QJsonObject row;
        for (auto cell = record.constBegin(); cell != record.constEnd(); ++cell) {
            row[QString::number(cell.key())] = QJsonObject::fromVariantMap(cell.value());
        }
        rows.append(row);
    }
    return rows;
}

QJsonArray mapsToJson(const QList<QMap<QString, QVariant>>& maps)
{
    QJsonArray array;
    for (const QMap<QString, QVariant>& map : maps) {
        array.append(QJsonObject::fromVariantMap(map));
    }
    return array;
}

QJsonObject expectedToJson(const DialogProbe::Expected& expected)
{
    const SolveyDecimalLineEdit& box = expected.box;
    const QLabel& warning = expected.warning;
    return {{QStringLiteral("value"), box.value()},
            {QStringLiteral("text"), box.text()},
            {QStringLiteral("toolTip"), box.toolTip()},
            {QStringLiteral("styleSheet"), box.styleSheet()},
            {QStringLiteral("warningHidden"), warning.isHidden()},
            {QStringLiteral("warningToolTip"), warning.toolTip()}};
}

} // namespace

QJsonObject dialogToJson(AlgoBatchImportParamSetting& dialog)
{
    const DialogProbe probe(dialog);
    const ZelTableView& table = probe.table();
    return {{QStringLiteral("columns"), QJsonArray::fromStringList(table.headNames())},
            {QStringLiteral("hiddenColumns"), hiddenColumns(table)},
            {QStringLiteral("records"), recordsToJson(table.getViewData())},
            {QStringLiteral("parameterMaps"), mapsToJson(dialog.getWidgetData())},
            {QStringLiteral("expected"),
             QJsonObject{{QStringLiteral("buy"), expectedToJson(probe.expectedBuy())},
                         {QStringLiteral("sell"), expectedToJson(probe.expectedSell())}}},
            {QStringLiteral("okEnabled"), probe.confirmButton().isEnabled()}};
}

QJsonArray boxesToJson(const QList<ShownBox>& boxes)
{
    QJsonArray array;
    for (const ShownBox& box : boxes) {
        array.append(QJsonObject{{QStringLiteral("title"), box.title},
                                 {QStringLiteral("text"), box.text},
                                 {QStringLiteral("type"), box.type},
                                 {QStringLiteral("flag"), box.flag},
                                 {QStringLiteral("width"), box.size.width()},
                                 {QStringLiteral("height"), box.size.height()},
                                 {QStringLiteral("widthBefore"), box.sizeBefore.width()},
                                 {QStringLiteral("heightBefore"), box.sizeBefore.height()},
                                 {QStringLiteral("textWidth"), box.textWidth},
                                 {QStringLiteral("textWidthBefore"), box.textWidthBefore}});
    }
    return array;
}

} // namespace runner
