// How long creating, finding again, guarding and comparing a batch take.

#include "ledger/draft/BatchDiff.h"
#include "ledger/Ledger.h"

#include <benchmark/benchmark.h>

#include <QCoreApplication>
#include <QTemporaryDir>

using namespace ledger;

namespace {

/// A row with as many parameters as a usual strategy has.
InstanceDraft instanceOf(int row)
{
    InstanceDraft instance;
    Leg leg;
    leg.symbol = QStringLiteral("%1.SH").arg(600000 + row);
    leg.direction = QStringLiteral("Buy");
    leg.quantity = 1000 + row;
    leg.limitPrice = Decimal::fromDouble(10.5);
    leg.amount = leg.quantity * leg.limitPrice;
    instance.legs = {leg};
    QMap<QString, QVariant> security;
    for (int i = 0; i < 8; ++i) {
        security.insert(QStringLiteral("证券参数%1").arg(i), QStringLiteral("%1.SH").arg(600000 + row));
    }
    for (int i = 0; i < 14; ++i) {
        instance.parameters.insert(QStringLiteral("参数%1").arg(i), QStringLiteral("2025-11-03 09:30:00"));
    }
    instance.parameters.insert(QStringLiteral("证券代码和委托数量"), QVariantList{security});
    return instance;
}

BatchDraft draftOf(int rows)
{
    BatchDraft draft;
    draft.id = QUuid::createUuid();
    draft.fileName = QStringLiteral("bench.csv");
    draft.account = QStringLiteral("1001");
    draft.strategy = QStringLiteral("AITWAP");
    for (int i = 0; i < 14; ++i) {
        draft.table.columns.append(QStringLiteral("列%1").arg(i));
    }
    for (int row = 0; row < rows; ++row) {
        draft.instances.append(instanceOf(row));
        QStringList cells;
        for (int i = 0; i < 14; ++i) {
            cells.append(QStringLiteral("第%1行的内容").arg(row));
        }
        draft.table.rows.append(cells);
    }
    return draft;
}

/// The whole transaction, on a real file, its wait for the disk included (wall clock).
void createBatch(benchmark::State& state)
{
    const QTemporaryDir home;
    const auto opened = Ledger::open(Address::ofFile(Ledger::pathIn(home.path())));
    BatchDraft draft = draftOf(static_cast<int>(state.range(0)));
    for (auto _ : state) {
        draft.id = QUuid::createUuid();
        const auto created = opened.value->createBatch(draft);
        if (!created.ok()) {
            state.SkipWithError(qPrintable(created.error));
        }
    }
}
BENCHMARK(createBatch)->Arg(1)->Arg(1000)->Unit(benchmark::kMillisecond)->UseRealTime()->Iterations(30);

void readInstances(benchmark::State& state)
{
    const QTemporaryDir home;
    const auto opened = Ledger::open(Address::ofFile(Ledger::pathIn(home.path())));
    opened.value->createBatch(draftOf(1000));
    for (auto _ : state) {
        benchmark::DoNotOptimize(opened.value->instancesOf(1));
    }
}
BENCHMARK(readInstances)->Unit(benchmark::kMillisecond);

void undoBatch(benchmark::State& state)
{
    const QTemporaryDir home;
    const auto opened = Ledger::open(Address::ofFile(Ledger::pathIn(home.path())));
    BatchDraft draft = draftOf(1000);
    for (auto _ : state) {
        state.PauseTiming();
        draft.id = QUuid::createUuid();
        const qint64 number = opened.value->createBatch(draft).value.number;
        state.ResumeTiming();
        benchmark::DoNotOptimize(opened.value->undo(number));
    }
}
BENCHMARK(undoBatch)->Unit(benchmark::kMillisecond)->UseRealTime()->Iterations(10);

void guardBatch(benchmark::State& state)
{
    const BatchDraft draft = draftOf(1000);
    Standing standing;
    standing.duplicates.append(Duplicate());
    for (int row = 1; row <= draft.instances.size(); ++row) {
        standing.duplicates[0].rows.insert(row);
    }
    Limits limits;
    limits.rowAmount = limits.securityAmount = limits.grossBuy = 1000000000000;
    for (auto _ : state) {
        benchmark::DoNotOptimize(checkBatch(draft, limits, {}, standing));
    }
}
BENCHMARK(guardBatch)->Unit(benchmark::kMillisecond);

void compareBatch(benchmark::State& state)
{
    const BatchTable before = draftOf(1000).table;
    BatchTable after = before;
    after.rows.removeAt(3);
    for (auto _ : state) {
        benchmark::DoNotOptimize(compareTables(before, after, {QStringLiteral("列0")}));
    }
}
BENCHMARK(compareBatch)->Unit(benchmark::kMillisecond);

} // namespace

int main(int argc, char** argv)
{
    const QCoreApplication application(argc, argv);
    benchmark::Initialize(&argc, argv);
    benchmark::RunSpecifiedBenchmarks();
    return 0;
}
