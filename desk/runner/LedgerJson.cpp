#include "desk/runner/LedgerJson.h"

namespace runner {

using namespace ledger;

namespace {

QString key(const char* name)
{
    return QString::fromLatin1(name);
}

QString utc(const QDateTime& time)
{
    return time.toUTC().toString(Qt::ISODateWithMs);
}

template <typename Item, typename Convert> QJsonArray arrayOf(const QList<Item>& items, Convert convert)
{
    QJsonArray array;
    for (const Item& item : items) {
        array.append(convert(item));
    }
    return array;
}

QJsonObject legToJson(const Leg& leg)
{
    return {{key("symbol"), leg.symbol},
            {key("direction"), leg.direction},
            {key("quantity"), leg.quantity.toDouble()},
            {key("limitPrice"), leg.limitPrice.toDouble()},
            {key("amount"), leg.amount.toDouble()}};
}

void addFill(QJsonObject& json, const Decimal& filled, const Decimal& average)
{
    json[key("filledQuantity")] = filled.text();
    json[key("averagePrice")] = average.text();
}

/// Of a pair, whose legs are filled each by itself.
QJsonObject filledLegToJson(const Leg& leg)
{
    QJsonObject json = legToJson(leg);
    addFill(json, leg.filledQuantity, leg.averagePrice);
    return json;
}

QJsonObject findingToJson(const Finding& finding)
{
    return {{key("rule"), finding.rule},
            {key("count"), finding.count},
            {key("text"), finding.text()},
            {key("rows"), arrayOf(finding.rows, [](int row) { return row; })}};
}

QJsonObject changedToJson(const ChangedCell& cell)
{
    return {{key("oldRow"), cell.oldRow},
            {key("newRow"), cell.newRow},
            {key("column"), cell.column},
            {key("before"), cell.before},
            {key("after"), cell.after}};
}

/// Cells by column name.
QJsonArray rowsToJson(const QList<DiffRow>& rows, const QStringList& columns)
{
    return arrayOf(rows, [&columns](const DiffRow& row) {
        QJsonObject cells;
        for (int i = 0; i < columns.size(); ++i) {
            cells[columns.at(i)] = row.cells.value(i);
        }
        return QJsonObject{{key("row"), row.row}, {key("cells"), cells}};
    });
}

} // namespace

QJsonObject toJson(const Batch& batch)
{
    return {{key("number"), batch.number},
            {key("draftId"), batch.draftId.toString(QUuid::WithoutBraces)},
            {key("fileName"), batch.fileName},
            {key("fileSha256"), batch.fileSha256},
            {key("account"), batch.account},
            {key("strategy"), batch.strategy},
            {key("rowCount"), batch.rowCount},
            {key("expectedBuy"), batch.expectedBuy.toDouble()},
            {key("expectedSell"), batch.expectedSell.toDouble()},
            {key("createdAt"), utc(batch.createdAt)},
            {key("createdBy"), batch.createdBy},
            {key("state"), nameOf(batch.state)},
            {key("fileEdits"), batch.fileEdits}};
}

QJsonObject toJson(const Instance& instance)
{
    const bool isPair = instance.legs.size() > 1;
    QJsonObject json{{key("id"), instance.id.text()},
                     {key("batch"), instance.id.batch},
                     {key("row"), instance.id.row},
                     {key("account"), instance.account},
                     {key("strategy"), instance.strategy},
                     {key("state"), nameOf(instance.state)},
                     {key("changedAt"), utc(instance.changedAt)},
                     {key("clOrdId"), instance.clOrdId},
                     {key("reason"), instance.reason},
                     {key("legs"), arrayOf(instance.legs, isPair ? filledLegToJson : legToJson)},
                     {key("parameters"), QJsonObject::fromVariantMap(instance.parameters)}};
    if (!isPair) {
        addFill(json, instance.filledQuantity, instance.averagePrice);
    }
    return json;
}

QJsonObject toJson(const Verdict& verdict)
{
    return {{key("refusals"), arrayOf(verdict.refusals, findingToJson)},
            {key("warnings"), arrayOf(verdict.warnings, findingToJson)},
            {key("grossBuy"), verdict.grossBuy.toDouble()},
            {key("grossSell"), verdict.grossSell.toDouble()},
            {key("confirmationAmount"), verdict.confirmationAmount}};
}

QJsonObject toJson(const ChangedInstance& changed)
{
    return {{key("id"), changed.id.text()},
            {key("row"), changed.id.row},
            {key("symbols"), QJsonArray::fromStringList(changed.symbols)},
            {key("before"), nameOf(changed.before)},
            {key("after"), nameOf(changed.after)}};
}

QJsonArray toJson(const QList<ChangedInstance>& changed)
{
    return arrayOf(changed, [](const ChangedInstance& instance) { return toJson(instance); });
}

/// The detail stays the text that the hash covers.
QJsonObject toJson(const AuditEntry& entry)
{
    return {{key("number"), entry.number},   {key("at"), utc(entry.at)}, {key("by"), entry.by},
            {key("program"), entry.program}, {key("what"), entry.what},  {key("subject"), entry.subject},
            {key("detail"), entry.detail},   {key("hash"), entry.hash}};
}

QJsonObject toJson(const AuditVerdict& verdict)
{
    return {{key("entries"), verdict.entries},
            {key("head"), verdict.head},
            {key("broken"), verdict.broken ? QJsonValue(*verdict.broken) : QJsonValue(QJsonValue::Null)}};
}

QJsonObject toJson(const UndoReport& report)
{
    return {{key("batch"), report.batch},
            {key("state"), nameOf(report.state)},
            {key("withdrawn"), toJson(report.withdrawn)},
            {key("stopped"), toJson(report.stopped)},
            {key("notReversed"), toJson(report.notReversed)},
            {key("alreadyUndone"), report.alreadyUndone}};
}

QJsonObject toJson(const BatchDiff& diff, qint64 batch, const QString& fileName)
{
    return {{key("batch"), batch},
            {key("fileName"), fileName},
            {key("columnsAdded"), QJsonArray::fromStringList(diff.columnsAdded)},
            {key("columnsRemoved"), QJsonArray::fromStringList(diff.columnsRemoved)},
            {key("rowsAdded"), rowsToJson(diff.rowsAdded, diff.newColumns)},
            {key("rowsRemoved"), rowsToJson(diff.rowsRemoved, diff.oldColumns)},
            {key("cellsChanged"), arrayOf(diff.cellsChanged, changedToJson)}};
}

QJsonObject creationToJson(const Verdict& verdict, const Outcome<Batch>& created)
{
    return {{key("guard"), toJson(verdict)},
            {key("batch"), created.ok() ? QJsonValue(toJson(created.value)) : QJsonValue(QJsonValue::Null)},
            {key("error"), created.error}};
}

QJsonObject repeatedToJson(const Batch& batch)
{
    return {{key("guard"), QJsonValue::Null},
            {key("batch"), toJson(batch)},
            {key("error"), QString()},
            {key("repeated"), true}};
}

QJsonObject noCreationToJson(const QString& error)
{
    return {{key("guard"), QJsonValue::Null}, {key("batch"), QJsonValue::Null}, {key("error"), error}};
}

} // namespace runner
