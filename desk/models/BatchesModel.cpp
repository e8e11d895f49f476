#include "desk/models/BatchesModel.h"

#include "desk/models/Money.h"
#include "words/Words.h"

namespace {

QList<ListModel::Column> batchColumns()
{
    return {{Words::tr("批次"), true},     {Words::tr("状态")},   {Words::tr("创建时间")},
            {Words::tr("文件")},           {Words::tr("账户")},   {Words::tr("算法")},
            {Words::tr("行数"), true},     {Words::tr("进度")},   {Words::tr("预计买入"), true},
            {Words::tr("预计卖出"), true}, {Words::tr("创建人")}, {QStringLiteral("SHA-256")},
            {Words::tr("文件修改")}};
}

const QString Muted = QStringLiteral("muted");

QString tintOf(ledger::BatchState state)
{
    return state == ledger::BatchState::Created ? QString() : Muted;
}

using StateCounts = QMap<ledger::InstanceState, qint64>;

qint64 overIn(const StateCounts& counts)
{
    qint64 over = 0;
    for (auto state = counts.cbegin(); state != counts.cend(); ++state) {
        over += ledger::isOver(state.key()) ? state.value() : 0;
    }
    return over;
}

/// "18 / 20 · 已拒绝 2": what is over, and what of it somebody must look after.
QString progressText(const ledger::Batch& batch, const StateCounts& counts)
{
    QString text = QStringLiteral("%1 / %2").arg(overIn(counts)).arg(batch.rowCount);
    for (const ledger::InstanceState state :
         {ledger::InstanceState::Queued, ledger::InstanceState::Rejected, ledger::InstanceState::Unknown}) {
        if (counts.value(state) > 0) {
            text += QStringLiteral(" · %1 %2").arg(ledger::shownName(state)).arg(counts.value(state));
        }
    }
    return text;
}

} // namespace

BatchesModel::BatchesModel(QObject* parent) : PagedModel(batchColumns(), parent) {}

void BatchesModel::setCounts(const Counts& counts)
{
    mCounts = counts;
    if (rowCount() > 0) {
        emit dataChanged(index(0, Progress), index(rowCount() - 1, Progress));
    }
}

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
    case Progress:
        return {mCounts.contains(batch.number) ? progressText(batch, mCounts.value(batch.number))
                                               : QString()};
    case Buy:
        return {money::shown(batch.expectedBuy), money::plain(batch.expectedBuy)};
    case Sell:
        return {money::shown(batch.expectedSell), money::plain(batch.expectedSell)};
    case By:
        return {batch.createdBy};
    case Digest:
        return {batch.fileSha256, {}, Muted};
    case Edits:
        return {batch.fileEdits.isEmpty() ? QString() : Words::tr("%1 处").arg(batch.fileEdits.size())};
    }
    return {};
}

bool BatchesModel::isSame(const ledger::Batch& one, const ledger::Batch& other) const
{
    return one.number == other.number;
}

QVariant BatchesModel::roleOf(const ledger::Batch& batch, int role) const
{
    switch (role) {
    case BatchRole:
        return batch.number;
    case StateRole:
        return int(batch.state);
    case ProgressRole:
        return mCounts.contains(batch.number) && batch.rowCount > 0
                   ? QVariant(double(overIn(mCounts.value(batch.number))) / batch.rowCount)
                   : QVariant();
    default:
        return {};
    }
}
