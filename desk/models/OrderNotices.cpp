#include "desk/models/OrderNotices.h"

#include "words/Words.h"

namespace {

using ledger::InstanceState;
using StateCounts = QMap<InstanceState, qint64>;

qint64 openIn(const StateCounts& counts)
{
    qint64 open = counts.value(InstanceState::Queued);
    for (auto state = counts.cbegin(); state != counts.cend(); ++state) {
        open += ledger::isOpen(state.key()) ? state.value() : 0;
    }
    return open;
}

QString ended(qint64 batch, const StateCounts& counts)
{
    QStringList parts;
    for (const InstanceState state : {InstanceState::Finished, InstanceState::Stopped,
                                      InstanceState::Rejected, InstanceState::Withdrawn}) {
        if (counts.value(state) > 0) {
            parts.append(QStringLiteral("%1 %2").arg(ledger::shownName(state)).arg(counts.value(state)));
        }
    }
    return Words::tr("批次 %1 全部结束：%2").arg(batch).arg(parts.join(Words::tr("，")));
}

} // namespace

QList<OrderNotices::Notice> OrderNotices::take(const BatchesModel::Counts& counts)
{
    QList<Notice> notices;
    for (auto batch = counts.cbegin(); mLooked && batch != counts.cend(); ++batch) {
        const StateCounts before = mKnown.value(batch.key());
        for (const InstanceState state : {InstanceState::Rejected, InstanceState::Unknown}) {
            const qint64 more = batch->value(state) - before.value(state);
            if (more > 0) {
                notices.append({batch.key(),
                                Words::tr("批次 %1：%2 个实例%3")
                                    .arg(batch.key())
                                    .arg(more)
                                    .arg(ledger::shownName(state)),
                                true});
            }
        }
        if (openIn(before) > 0 && openIn(*batch) == 0) {
            notices.append({batch.key(), ended(batch.key(), *batch), false});
        }
    }
    mKnown = counts;
    mLooked = true;
    return notices;
}
