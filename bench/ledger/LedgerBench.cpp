// How long creating, finding again, guarding and comparing a batch take.

#include "bench/ledger/BenchDrafts.h"
#include "ledger/draft/BatchDiff.h"
#include "ledger/Ledger.h"

#include <benchmark/benchmark.h>

#include <QCoreApplication>
#include <QTemporaryDir>

using namespace ledger;

namespace {

/// The whole transaction, on a real file, its wait for the disk included (wall clock).
void createBatch(benchmark::State& state)
{
    const QTemporaryDir home;
    const auto opened = Ledger::open(Address::ofFile(Ledger::pathIn(home.path())));
    BatchDraft draft = benchDraft(static_cast<int>(state.range(0)));
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
    opened.value->createBatch(benchDraft(1000));
    for (auto _ : state) {
        benchmark::DoNotOptimize(opened.value->instancesOf(1));
    }
}
BENCHMARK(readInstances)->Unit(benchmark::kMillisecond);

void undoBatch(benchmark::State& state)
{
    const QTemporaryDir home;
    const auto opened = Ledger::open(Address::ofFile(Ledger::pathIn(home.path())));
    BatchDraft draft = benchDraft(1000);
    for (auto _ : state) {
        state.PauseTiming();
        draft.id = QUuid::createUuid();
        const qint64 number = opened.value->createBatch(draft).value.number;
        state.ResumeTiming();
        benchmark::DoNotOptimize(opened.value->undo(number));
    }
}
BENCHMARK(undoBatch)->Unit(benchmark::kMillisecond)->UseRealTime()->Iterations(10);

void startBatch(benchmark::State& state)
{
    const QTemporaryDir home;
    const auto opened = Ledger::open(Address::ofFile(Ledger::pathIn(home.path())));
    BatchDraft draft = benchDraft(1000);
    for (auto _ : state) {
        state.PauseTiming();
        draft.id = QUuid::createUuid();
        const qint64 number = opened.value->createBatch(draft).value.number;
        state.ResumeTiming();
        benchmark::DoNotOptimize(opened.value->start({{}, number}));
    }
}
BENCHMARK(startBatch)->Unit(benchmark::kMillisecond)->UseRealTime()->Iterations(10);

void guardBatch(benchmark::State& state)
{
    const BatchDraft draft = benchDraft(1000);
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

void compare(benchmark::State& state, const QStringList& keyColumns)
{
    const BatchTable before = benchDraft(1000).table;
    BatchTable after = before;
    after.rows.removeAt(3);
    for (auto _ : state) {
        benchmark::DoNotOptimize(compareTables(before, after, keyColumns));
    }
}

void compareBatch(benchmark::State& state)
{
    compare(state, {});
}
BENCHMARK(compareBatch)->Unit(benchmark::kMillisecond);

void compareBatchByKeys(benchmark::State& state)
{
    compare(state, {QStringLiteral("列0")});
}
BENCHMARK(compareBatchByKeys)->Unit(benchmark::kMillisecond);

} // namespace

int main(int argc, char** argv)
{
    const QCoreApplication application(argc, argv);
    benchmark::Initialize(&argc, argv);
    benchmark::RunSpecifiedBenchmarks();
    return 0;
}
