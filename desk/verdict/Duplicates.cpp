#include "desk/verdict/Duplicates.h"

#include "desk/batch/DraftBuilder.h"
#include "desk/verdict/OrderRules.h"
#include "ledger/draft/BatchDiff.h"
#include "words/Words.h"

#include <QHash>
#include <QMap>

namespace verdict {

namespace {

using Way = DuplicateChoice::Way;

const QMap<QString, Way>& wayNames()
{
    static const QMap<QString, Way> names = {{QStringLiteral("leave-out"), Way::LeaveOut},
                                             {QStringLiteral("changed-only"), Way::ChangedOnly},
                                             {QStringLiteral("replace"), Way::Replace}};
    return names;
}

/// No leg goes out alone: of rows bound by a number, one that is created takes the others along.
QSet<int> withWholePairs(const ledger::BatchDraft& draft, QSet<int> rows)
{
    QHash<QString, QSet<int>> pairs;
    for (int i = 0; i < draft.instances.size(); ++i) {
        const QString number = pairNumberOf(draft.instances.at(i));
        if (!number.isEmpty()) {
            pairs[number].insert(i + 1);
        }
    }
    for (const QSet<int>& pair : qAsConst(pairs)) {
        if (!rows.contains(pair)) {
            rows.subtract(pair);
        }
    }
    return rows;
}

/// The rows of a batch's table that were not withdrawn by themselves.
Outcome<ledger::BatchTable> standingRows(const ledger::Ledger& ledger, qint64 batch)
{
    Outcome<ledger::BatchTable> table = ledger.tableOf(batch);
    const Outcome<QList<ledger::Instance>> instances = ledger.instancesOf(batch);
    if (!table.ok() || !instances.ok()) {
        return {{}, table.ok() ? instances.error : table.error};
    }
    QList<QStringList> rows;
    for (const ledger::Instance& instance : instances.value) {
        if (instance.state != ledger::InstanceState::Withdrawn) {
            rows.append(table.value.rows.value(instance.id.row - 1));
        }
    }
    table.value.rows = rows;
    return table;
}

/// Why a table cannot be held against that of a batch; empty where it can.
QString incomparable(const ledger::BatchDraft& draft, const ledger::Batch& batch)
{
    if (batch.account == draft.account && batch.strategy == draft.strategy) {
        return QString();
    }
    return Words::tr("批次 %1 的账户是 %2、算法是 %3，与本批不同，不能按变更创建。")
        .arg(QString::number(batch.number), batch.account, batch.strategy);
}

/// Rows of the draft that stand in a batch's table already, cell for cell. What the import filled in, such as
/// a time, is no difference.
Outcome<QSet<int>> rowsUnchanged(const ledger::Ledger& ledger, const ledger::BatchDraft& draft,
                                 qint64 against, const TypedCell& typed)
{
    const Outcome<ledger::Batch> batch = ledger.batch(against);
    const QString fault = batch.ok() ? incomparable(draft, batch.value) : batch.error;
    const Outcome<ledger::BatchTable> before =
        fault.isEmpty() ? standingRows(ledger, against) : Outcome<ledger::BatchTable>{{}, fault};
    if (!before.ok()) {
        return {{}, before.error};
    }
    const ledger::BatchDiff diff = ledger::compareTables(before.value, draft.table, batch::orderColumns());
    QSet<int> rows;
    for (int row = 1; row <= draft.instances.size(); ++row) {
        rows.insert(row);
    }
    for (const ledger::DiffRow& added : diff.rowsAdded) {
        rows.remove(added.row);
    }
    for (const ledger::ChangedCell& cell : diff.cellsChanged) {
        if (!typed(cell.newRow, cell.column).isEmpty()) {
            rows.remove(cell.newRow);
        }
    }
    return {withWholePairs(draft, rows), QString()};
}

} // namespace

QString nameOf(Way way)
{
    return wayNames().key(way);
}

std::optional<Way> wayNamed(const QString& name)
{
    const auto found = wayNames().constFind(name);
    return found == wayNames().constEnd() ? std::nullopt : std::make_optional(*found);
}

QSet<int> rowsHeld(const ledger::BatchDraft& draft, const QList<ledger::Duplicate>& duplicates)
{
    QMap<int, int> held; // of a row, how many such orders there are in all
    for (const ledger::Duplicate& duplicate : duplicates) {
        for (auto row = duplicate.held.cbegin(); row != duplicate.held.cend(); ++row) {
            held[row.key()] += *row;
        }
    }
    QHash<QString, int> taken; // of an order, how many rows are left out already
    QSet<int> rows;
    for (auto row = held.cbegin(); row != held.cend(); ++row) {
        const QString order = ledger::rowKey(draft.strategy, draft.instances.at(row.key() - 1));
        if (taken[order]++ < *row) {
            rows.insert(row.key());
        }
    }
    return withWholePairs(draft, rows);
}

Outcome<Settlement> settle(const ledger::Ledger& ledger, const ledger::BatchDraft& draft,
                           const DuplicateChoice& choice, const TypedCell& typed)
{
    Settlement settlement;
    QString error;
    if (choice.way == Way::LeaveOut) {
        const Outcome<ledger::Standing> standing = ledger.standingOf(draft);
        settlement.leftOut = rowsHeld(draft, standing.value.duplicates);
        for (const ledger::Duplicate& duplicate : standing.value.duplicates) {
            if (!duplicate.held.isEmpty()) {
                settlement.terms.leftOut.insert(duplicate.batch);
            }
        }
        error = standing.error;
    } else if (choice.way == Way::ChangedOnly) {
        const Outcome<QSet<int>> unchanged = rowsUnchanged(ledger, draft, choice.against, typed);
        settlement.leftOut = unchanged.value;
        settlement.terms.leftOut = {choice.against};
        error = unchanged.error;
    } else if (choice.way == Way::Replace) {
        settlement.terms.replaces = choice.against;
    }
    return {settlement, error};
}

ledger::BatchDraft without(const ledger::BatchDraft& draft, const QSet<int>& rows)
{
    if (rows.isEmpty()) {
        return draft;
    }
    ledger::BatchDraft left = draft;
    left.instances.clear();
    left.table.rows.clear();
    for (int row = 1; row <= draft.instances.size(); ++row) {
        if (!rows.contains(row)) {
            left.instances.append(draft.instances.at(row - 1));
            left.table.rows.append(draft.table.rows.value(row - 1));
        }
    }
    const ledger::Gross gross = ledger::grossOf(left.instances);
    left.expectedBuy = gross.buy;
    left.expectedSell = gross.sell;
    return left;
}

} // namespace verdict
