#include "ledger/Ledger.h"

#include "ledger/store/LedgerStore.h"

#include <QDir>

namespace ledger {

namespace {

/// The trading day of the exchanges begins at midnight in Shanghai.
constexpr int ExchangeUtcOffset = 8 * 3600;

QDateTime now(const Ledger::Options& options)
{
    return options.clock ? options.clock() : QDateTime::currentDateTimeUtc();
}

QDateTime startOfDay(const QDateTime& now)
{
    const QDate day = now.toOffsetFromUtc(ExchangeUtcOffset).date();
    return QDateTime(day, QTime(0, 0), Qt::OffsetFromUTC, ExchangeUtcOffset);
}

const QString WhereBatch = QStringLiteral("WHERE batch_number = ?");

bool isAllowed(InstanceState before, InstanceState after)
{
    switch (before) {
    case InstanceState::Created:
        return after == InstanceState::Running || after == InstanceState::Withdrawn;
    case InstanceState::Running:
        return after == InstanceState::Stopped || after == InstanceState::Finished;
    default:
        return false;
    }
}

/// What undo makes of each instance, without doing it. One that ran may have traded: stopping it, now or
/// before, reverses nothing.
UndoReport undoPlan(qint64 batch, const QList<Instance>& instances)
{
    UndoReport report;
    report.batch = batch;
    report.state = BatchState::Withdrawn;
    for (const Instance& instance : instances) {
        UndoneInstance undone{instance.id, {}, instance.state, instance.state};
        for (const Leg& leg : instance.legs) {
            undone.symbols.append(leg.symbol);
        }
        if (instance.state == InstanceState::Created) {
            undone.after = InstanceState::Withdrawn;
            report.withdrawn.append(undone);
        } else if (instance.state == InstanceState::Running) {
            undone.after = InstanceState::Stopped;
            report.stopped.append(undone);
        } else if (instance.state == InstanceState::Finished) {
            report.notReversed.append(undone);
        } else {
            ++report.alreadyUndone;
        }
        if (undone.after != InstanceState::Withdrawn) {
            report.state = BatchState::PartlyReversed;
        }
    }
    return report;
}

Batch batchOfDraft(const BatchDraft& draft, qint64 number, const QDateTime& now)
{
    Batch batch;
    batch.number = number;
    batch.draftId = draft.id;
    batch.fileName = draft.fileName;
    batch.fileSha256 = draft.fileSha256;
    batch.account = draft.account;
    batch.strategy = draft.strategy;
    batch.rowCount = draft.instances.size();
    batch.expectedBuy = draft.expectedBuy;
    batch.expectedSell = draft.expectedSell;
    batch.createdAt = now.toUTC();
    batch.createdBy = draft.createdBy;
    return batch;
}

} // namespace

Ledger::Ledger(std::unique_ptr<Store> store) : mStore(std::move(store)) {}

Ledger::~Ledger() = default;

QString Ledger::pathIn(const QString& home)
{
    return QDir(home).filePath(QStringLiteral("ledger.sqlite"));
}

Outcome<std::shared_ptr<Ledger>> Ledger::open(const QString& home)
{
    return open(home, Options());
}

Outcome<std::shared_ptr<Ledger>> Ledger::open(const QString& home, const Options& options)
{
    auto store = std::make_unique<Store>(pathIn(home), options);
    const QString fault = store->open();
    if (!fault.isEmpty()) {
        return {nullptr, fault};
    }
    return {std::shared_ptr<Ledger>(new Ledger(std::move(store))), QString()};
}

QString Ledger::path() const
{
    return mStore->file.path();
}

Outcome<Batch> Ledger::createBatch(const BatchDraft& draft)
{
    if (draft.id.isNull() || draft.instances.isEmpty()) {
        return {{}, draft.id.isNull() ? texts::draftWithoutId() : texts::emptyDraft()};
    }
    return mStore->change<Batch>([&](Statements& statements) {
        const QList<Batch> known = selectBatches(statements, QStringLiteral("WHERE draft_id = ?"),
                                                 {draft.id.toString(QUuid::WithoutBraces)});
        if (!known.isEmpty()) {
            return Outcome<Batch>{known.first(), QString()};
        }
        const Batch batch = batchOfDraft(draft, takeNumber(statements), now(mStore->options));
        insertBatch(statements, batch);
        insertInstances(statements, batch, draft.instances);
        insertTable(statements, batch.number, draft.table);
        return Outcome<Batch>{batch, QString()};
    });
}

Outcome<QList<Batch>> Ledger::batches() const
{
    Statements statements(mStore->file.database());
    return mStore->outcome(selectBatches(statements), statements);
}

Outcome<Batch> Ledger::batch(qint64 number) const
{
    Statements statements(mStore->file.database());
    const QList<Batch> found = selectBatches(statements, QStringLiteral("WHERE number = ?"), {number});
    if (!statements.failed() && found.isEmpty()) {
        return {{}, texts::noSuchBatch(path(), number)};
    }
    return mStore->outcome(found.value(0), statements);
}

Outcome<QList<Instance>> Ledger::instances(std::optional<qint64> batchNumber) const
{
    Statements statements(mStore->file.database());
    return mStore->outcome(batchNumber ? selectInstances(statements, WhereBatch, {*batchNumber})
                                       : selectInstances(statements),
                           statements);
}

Outcome<BatchTable> Ledger::tableOf(qint64 batchNumber) const
{
    const Outcome<Batch> found = batch(batchNumber);
    if (!found.ok()) {
        return {{}, found.error};
    }
    Statements statements(mStore->file.database());
    const std::optional<BatchTable> table = selectTable(statements, batchNumber);
    if (!statements.failed() && !table) {
        return {{}, texts::noTableKept(batchNumber)};
    }
    return mStore->outcome(table.value_or(BatchTable()), statements);
}

Outcome<QList<EarlierBatch>> Ledger::createdToday(const QString& account) const
{
    Statements statements(mStore->file.database());
    return mStore->outcome(selectEarlier(statements, account, startOfDay(now(mStore->options))), statements);
}

Outcome<UndoReport> Ledger::undo(qint64 batchNumber)
{
    return mStore->change<UndoReport>([&](Statements& statements) {
        const QList<Instance> instances = selectInstances(statements, WhereBatch, {batchNumber});
        if (instances.isEmpty()) {
            return Outcome<UndoReport>{{}, texts::noSuchBatch(path(), batchNumber)};
        }
        const QDateTime at = now(mStore->options);
        const UndoReport report = undoPlan(batchNumber, instances);
        updateInstanceStates(statements, batchNumber, InstanceState::Created, InstanceState::Withdrawn, at);
        updateInstanceStates(statements, batchNumber, InstanceState::Running, InstanceState::Stopped, at);
        updateBatchState(statements, batchNumber, report.state);
        return Outcome<UndoReport>{report, QString()};
    });
}

QString Ledger::changeState(const InstanceId& instance, InstanceState state)
{
    const auto changed = mStore->change<InstanceState>([&](Statements& statements) {
        const QList<Instance> found = selectInstances(
            statements, WhereBatch + QLatin1String(" AND row_no = ?"), {instance.batch, instance.row});
        if (found.isEmpty()) {
            return Outcome<InstanceState>{{}, texts::noSuchInstance(instance.text())};
        }
        const InstanceState before = found.first().state;
        if (!isAllowed(before, state)) {
            return Outcome<InstanceState>{
                {}, texts::forbiddenChange(instance.text(), shownName(before), shownName(state))};
        }
        updateInstanceState(statements, instance, state, now(mStore->options));
        return Outcome<InstanceState>{state, QString()};
    });
    return changed.error;
}

} // namespace ledger
