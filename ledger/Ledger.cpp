// Opening a ledger, and looking at what it holds.

#include "ledger/Ledger.h"

#include "ledger/operations/Core.h"
#include "ledger/operations/WireLog.h"
#include "ledger/store/BatchQueries.h"
#include "ledger/store/ControlQueries.h"
#include "ledger/store/InstanceQueries.h"

#include <QDir>

#include <algorithm>

namespace ledger {

namespace {

/// Rows that are in memory at a time while all are handed out.
constexpr int BatchesAtATime = 500;
constexpr int InstancesAtATime = 1000;

const QString PageOfBatches = QStringLiteral(" ORDER BY number LIMIT %1").arg(BatchesAtATime);

/// Hands out rows until `take` wants no more, a page in memory at a time. `behind` reads the page behind a
/// row; before the first one there is a row of no ledger.
template <typename Row, typename Page>
Outcome<void> eachRow(int most, const std::function<bool(const Row&)>& take, Page behind)
{
    Row last;
    while (true) {
        const Outcome<QList<Row>> page = behind(last);
        for (const Row& row : page.value) {
            if (!take(row)) {
                return {};
            }
        }
        if (!page.ok() || page.value.size() < most) {
            return {page.error};
        }
        last = page.value.last();
    }
}

/// As the table has them, and as the claims of their accounts tell: those end with the process.
QList<Gateway> gatewaysNow(Statements& statements, const Store& store)
{
    QList<Gateway> gateways = selectGateways(statements);
    for (Gateway& gateway : gateways) {
        gateway.isGone =
            std::any_of(gateway.accounts.cbegin(), gateway.accounts.cend(), [&store](const QString& account) {
                return !store.isClaimed(account).value_or(true);
            });
    }
    return gateways;
}

} // namespace

Ledger::Ledger(std::unique_ptr<Core> core) : mCore(std::move(core)) {}

Ledger::~Ledger() = default;

QString Ledger::pathIn(const QString& home)
{
    return QDir(home).filePath(QStringLiteral("ledger.sqlite"));
}

Outcome<std::shared_ptr<Ledger>> Ledger::open(const Address& address)
{
    return open(address, Options());
}

Outcome<std::shared_ptr<Ledger>> Ledger::open(const Address& address, const Options& options)
{
    auto core = std::make_unique<Core>(address, options);
    const QString fault = core->open();
    if (!fault.isEmpty()) {
        return {nullptr, fault};
    }
    return {std::shared_ptr<Ledger>(new Ledger(std::move(core))), QString()};
}

QString Ledger::path() const
{
    return mCore->name();
}

QDate Ledger::today() const
{
    return exchangeDay(mCore->now());
}

Outcome<std::optional<Batch>> Ledger::batchOfDraft(const QUuid& draft, const QString& account) const
{
    return mCore->read<std::optional<Batch>>([&](Statements& statements) {
        const QStringList accounts = account.isEmpty() ? QStringList() : QStringList{account};
        return Outcome<std::optional<Batch>>{selectBatchOf(statements, draft, accounts), QString()};
    });
}

Outcome<Batch> Ledger::batch(qint64 number) const
{
    return mCore->read<Batch>([&](Statements& statements) {
        const std::optional<Batch> found = selectBatch(statements, number);
        return found ? Outcome<Batch>{*found, QString()}
                     : Outcome<Batch>{{}, texts::noSuchBatch(path(), number)};
    });
}

Outcome<QList<Batch>> Ledger::batchesBefore(std::optional<qint64> number, int most) const
{
    return mCore->read<QList<Batch>>([&](Statements& statements) {
        const QString order = QStringLiteral("ORDER BY number DESC LIMIT %1").arg(most);
        return Outcome<QList<Batch>>{
            number ? selectBatches(statements, QStringLiteral("WHERE number < ? ") + order, {*number})
                   : selectBatches(statements, order),
            QString()};
    });
}

Outcome<QList<Instance>> Ledger::instancesOf(qint64 batchNumber) const
{
    return mCore->read<QList<Instance>>([&](Statements& statements) {
        const std::optional<Batch> batch = selectBatch(statements, batchNumber);
        return Outcome<QList<Instance>>{
            batch ? selectInstances(statements, choiceOf(*batch)) : QList<Instance>(), QString()};
    });
}

/// The first condition is one that an index answers by itself.
Outcome<QList<Instance>> Ledger::instancesBehind(std::optional<InstanceId> id, int most) const
{
    return mCore->read<QList<Instance>>([&](Statements& statements) {
        InstanceChoice choice{QString(), {}, true, most};
        if (id) {
            choice.condition = QStringLiteral("batch_number <= ? AND (batch_number < ? OR row_no > ?)");
            choice.values = {id->batch, id->batch, id->row};
        }
        return Outcome<QList<Instance>>{selectInstances(statements, choice), QString()};
    });
}

Outcome<void> Ledger::eachBatch(const std::function<bool(const Batch&)>& take) const
{
    return eachRow<Batch>(BatchesAtATime, take, [this](const Batch& last) {
        return mCore->read<QList<Batch>>([&](Statements& statements) {
            const QString rest = QStringLiteral("WHERE number > ?") + PageOfBatches;
            return Outcome<QList<Batch>>{selectBatches(statements, rest, {last.number}), QString()};
        });
    });
}

Outcome<void> Ledger::eachBatchOfDay(const QDate& day, const std::function<bool(const Batch&)>& take) const
{
    return eachRow<Batch>(BatchesAtATime, take, [this, day](const Batch& last) {
        return mCore->read<QList<Batch>>([&](Statements& statements) {
            const QString rest = QStringLiteral("WHERE day = ? AND number > ?") + PageOfBatches;
            return Outcome<QList<Batch>>{
                selectBatches(statements, rest, {day.toString(Qt::ISODate), last.number}), QString()};
        });
    });
}

Outcome<void> Ledger::eachInstance(const std::function<bool(const Instance&)>& take,
                                   std::optional<qint64> ofBatch) const
{
    return eachRow<Instance>(InstancesAtATime, take, [this, ofBatch](const Instance& last) {
        return mCore->read<QList<Instance>>([&](Statements& statements) {
            InstanceChoice choice{QStringLiteral("(batch_number, row_no) > (?, ?)"),
                                  {last.id.batch, last.id.row},
                                  false,
                                  InstancesAtATime};
            if (ofBatch) {
                const Batch batch = selectBatch(statements, *ofBatch).value_or(Batch());
                choice = choiceOf(batch, QStringLiteral("row_no > ?"), {last.id.row});
                choice.most = InstancesAtATime;
            }
            return Outcome<QList<Instance>>{selectInstances(statements, choice), QString()};
        });
    });
}

Outcome<QMap<InstanceState, qint64>> Ledger::counts(std::optional<qint64> batchNumber) const
{
    return mCore->read<QMap<InstanceState, qint64>>([&](Statements& statements) {
        const std::optional<Batch> batch = batchNumber ? selectBatch(statements, *batchNumber) : std::nullopt;
        const bool isOfNone = batchNumber && !batch;
        return Outcome<QMap<InstanceState, qint64>>{
            isOfNone ? QMap<InstanceState, qint64>() : countStates(statements, batch), QString()};
    });
}

Outcome<qint64> Ledger::countIn(InstanceState state) const
{
    return mCore->read<qint64>([&](Statements& statements) {
        return Outcome<qint64>{
            statements
                .single(QStringLiteral("SELECT COUNT(*) FROM instance WHERE state = ?"), {nameOf(state)})
                .toLongLong(),
            QString()};
    });
}

Outcome<QMap<qint64, QMap<InstanceState, qint64>>> Ledger::countsOf(const QList<qint64>& batches) const
{
    using Counts = QMap<qint64, QMap<InstanceState, qint64>>;
    return batches.isEmpty() ? Outcome<Counts>() : mCore->read<Counts>([&](Statements& statements) {
        return Outcome<Counts>{countStatesOf(statements, batches), QString()};
    });
}

Outcome<QList<WireMessage>> Ledger::wireMessages(qint64 behind, int mostLots) const
{
    return mCore->read<QList<WireMessage>>([&](Statements& statements) {
        return Outcome<QList<WireMessage>>{audit::selectWire(statements, behind, mostLots), QString()};
    });
}

Outcome<QList<StrayReport>> Ledger::strays(int most) const
{
    return mCore->read<QList<StrayReport>>([&](Statements& statements) {
        return Outcome<QList<StrayReport>>{selectStrays(statements, most), QString()};
    });
}

Outcome<BatchTable> Ledger::tableOf(qint64 batchNumber) const
{
    return mCore->read<BatchTable>([&](Statements& statements) {
        const std::optional<Batch> batch = selectBatch(statements, batchNumber);
        if (!batch) {
            return Outcome<BatchTable>{{}, texts::noSuchBatch(path(), batchNumber)};
        }
        const std::optional<BatchTable> table = selectTable(statements, *batch);
        return table ? Outcome<BatchTable>{*table, QString()}
                     : Outcome<BatchTable>{{}, texts::noTableKept(batchNumber)};
    });
}

Outcome<QList<Gateway>> Ledger::gateways() const
{
    return mCore->read<QList<Gateway>>([&](Statements& statements) {
        return Outcome<QList<Gateway>>{gatewaysNow(statements, *mCore->store), QString()};
    });
}

Outcome<Status> Ledger::status() const
{
    return mCore->read<Status>([&](Statements& statements) {
        Status status;
        status.halts = selectHalts(statements);
        status.gateways = gatewaysNow(statements, *mCore->store);
        status.waiting =
            statements
                .single(QStringLiteral("SELECT COUNT(*) FROM batch WHERE state = 'waiting' AND day = ?"),
                        {exchangeDay(mCore->now()).toString(Qt::ISODate)})
                .toLongLong();
        status.days = selectDays(statements, exchangeDay(mCore->now()));
        return Outcome<Status>{status, QString()};
    });
}

void Ledger::listen(const std::function<void()>& changed)
{
    mCore->store->listen(changed);
}

Outcome<qint64> Ledger::changeCount() const
{
    return mCore->read<qint64>([&](Statements& statements) {
        return Outcome<qint64>{
            statements.single(QStringLiteral("SELECT value FROM ledger_number WHERE name = 'last_audit'"))
                .toLongLong(),
            QString()};
    });
}

} // namespace ledger
