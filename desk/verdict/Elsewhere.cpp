#include "desk/verdict/Elsewhere.h"

#include "embedded_host/reference_data/Calendar.h"
#include "table/FaultCatalogue.h"
#include "table/GuardRules.h"

#include <QSet>

namespace verdict {

namespace {

using ledger::Batch;
using ledger::BatchDraft;

QList<Batch> ofDay(const QList<Batch>& batches, const QDate& day)
{
    QList<Batch> those;
    for (const Batch& batch : batches) {
        if (exchangeTime(batch.createdAt).date() == day && batch.state != ledger::BatchState::Withdrawn) {
            those.append(batch);
        }
    }
    return those;
}

void addOrders(const BatchDraft& draft, const QString& account, const QList<ledger::EarlierBatch>& earlier,
               QMap<int, QStringList>& rows)
{
    for (const ledger::EarlierBatch& batch : earlier) {
        if (!draft.fileSha256.isEmpty() && batch.fileSha256 == draft.fileSha256) {
            continue; // told as a whole
        }
        for (int i = 0; i < draft.instances.size(); ++i) {
            if (batch.rowKeys.contains(ledger::rowKey(draft.strategy, draft.instances.at(i)))) {
                rows[i + 1].append(QStringLiteral("账户 %1 批次 %2").arg(account).arg(batch.number));
            }
        }
    }
}

table::Faults faultsOf(const QStringList& files, const QMap<int, QStringList>& rows)
{
    table::Faults faults;
    if (!files.isEmpty()) {
        faults.append(table::fault(table::rule::SameFileElsewhere, {files.join(QStringLiteral("、"))}));
    }
    for (auto row = rows.cbegin(); row != rows.cend(); ++row) {
        table::Fault fault = table::fault(table::rule::SameRowsElsewhere, {row->join(QStringLiteral("、"))});
        fault.row = row.key();
        faults.append(fault);
    }
    return faults;
}

} // namespace

Outcome<Elsewhere> lookElsewhere(const ledger::Ledger& ledger, const BatchDraft& draft, const QDateTime& now)
{
    const Outcome<QList<Batch>> all = ledger.batches();
    if (!all.ok()) {
        return {{}, all.error};
    }
    Elsewhere found;
    QSet<QString> accounts;
    QStringList files;
    for (const Batch& batch : ofDay(all.value, exchangeTime(now).date())) {
        if (batch.account == draft.account) {
            found.day.buy += batch.expectedBuy;
            found.day.sell += batch.expectedSell;
            found.instances += batch.rowCount;
            continue;
        }
        accounts.insert(batch.account);
        if (!draft.fileSha256.isEmpty() && batch.fileSha256 == draft.fileSha256) {
            files.append(QStringLiteral("账户 %1 批次 %2").arg(batch.account).arg(batch.number));
        }
    }
    QMap<int, QStringList> rows;
    for (const QString& account : qAsConst(accounts)) {
        const Outcome<QList<ledger::EarlierBatch>> earlier = ledger.createdToday(account);
        if (!earlier.ok()) {
            return {{}, earlier.error};
        }
        addOrders(draft, account, earlier.value, rows);
    }
    found.faults = faultsOf(files, rows);
    return {found, {}};
}

} // namespace verdict
