#include "desk/models/BatchesModel.h"

#include "desk/models/Money.h"

namespace {

const QList<ListModel::Column>& columns()
{
    static const QList<ListModel::Column> all = {
        {QStringLiteral("批次"), true},     {QStringLiteral("状态")},
        {QStringLiteral("创建时间")},       {QStringLiteral("文件")},
        {QStringLiteral("账户")},           {QStringLiteral("算法")},
        {QStringLiteral("行数"), true},     {QStringLiteral("预计买入"), true},
        {QStringLiteral("预计卖出"), true}, {QStringLiteral("创建人")},
        {QStringLiteral("SHA-256")}};
    return all;
}

const QString Muted = QStringLiteral("muted");

QString tintOf(ledger::BatchState state)
{
    return state == ledger::BatchState::Created ? QString() : Muted;
}

} // namespace

BatchesModel::BatchesModel(QObject* parent) : PagedModel(columns(), parent) {}

ListModel::Cell BatchesModel::cellOf(const ledger::Batch& batch, int column) const
{
    switch (Column(column)) {
    case Number:
        return {QString::number(batch.number)};
    case State:
        return {ledger::shownName(batch.state), {}, tintOf(batch.state)};
    case Created:
        return {batch.createdAt.toLocalTime().toString(QStringLiteral("yyyy-MM-dd HH:mm:ss"))};
    case File:
        return {batch.fileName};
    case Account:
        return {batch.account};
    case Strategy:
        return {batch.strategy};
    case Rows:
        return {QString::number(batch.rowCount)};
    case Buy:
        return {money::shown(batch.expectedBuy), money::plain(batch.expectedBuy)};
    case Sell:
        return {money::shown(batch.expectedSell), money::plain(batch.expectedSell)};
    case By:
        return {batch.createdBy};
    case Digest:
        return {batch.fileSha256, {}, Muted};
    }
    return {};
}

QVariant BatchesModel::roleOf(const ledger::Batch& batch, int role) const
{
    switch (role) {
    case BatchRole:
        return batch.number;
    case StateRole:
        return int(batch.state);
    default:
        return {};
    }
}
