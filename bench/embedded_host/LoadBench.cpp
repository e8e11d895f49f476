#include "bench/embedded_host/LargeFolder.h"
#include "embedded_host/reference_data/ReferenceDatabase.h"
#include "embedded_host/reference_data/ReferenceFolder.h"

#include <benchmark/benchmark.h>

#include <QFile>

namespace {

constexpr int Accounts = 200;

/// From csv files to indexed tables, as --data does it.
void LoadFolder(benchmark::State& state)
{
    const LargeFolder folder(static_cast<int>(state.range(0)), Accounts);
    for (auto _ : state) {
        QString error;
        auto tables = readReferenceFolder(folder.path(), error);
        if (!tables) {
            state.SkipWithError(qPrintable(error));
            break;
        }
        benchmark::DoNotOptimize(ReferenceData(std::move(*tables)));
    }
}
BENCHMARK(LoadFolder)->Arg(1000)->Arg(10000)->Arg(20000)->Unit(benchmark::kMillisecond);

/// From the database of an unchanged folder to indexed tables, as the desk does it from its second start on.
void LoadDatabase(benchmark::State& state)
{
    const LargeFolder folder(static_cast<int>(state.range(0)), Accounts);
    const QString path = folder.filePath(QStringLiteral("reference.sqlite"));
    QString error;
    ReferenceDatabase::refresh(folder.path(), path, error);
    for (auto _ : state) {
        auto tables = ReferenceDatabase::refresh(folder.path(), path, error);
        benchmark::DoNotOptimize(ReferenceData(std::move(*tables)));
    }
}
BENCHMARK(LoadDatabase)->Arg(1000)->Arg(10000)->Arg(20000)->Unit(benchmark::kMillisecond);

/// The desk's first start with a folder: read it and write the database.
void FillDatabase(benchmark::State& state)
{
    const LargeFolder folder(static_cast<int>(state.range(0)), Accounts);
    const QString path = folder.filePath(QStringLiteral("reference.sqlite"));
    QString error;
    for (auto _ : state) {
        QFile::remove(path);
        auto tables = ReferenceDatabase::refresh(folder.path(), path, error);
        benchmark::DoNotOptimize(ReferenceData(std::move(*tables)));
    }
}
BENCHMARK(FillDatabase)->Arg(10000)->Unit(benchmark::kMillisecond);

} // namespace
