#include "bench/table_reader/BenchFiles.h"
#include "embedded_host/table_reader/TableReader.h"

#include <benchmark/benchmark.h>
#include <sys/resource.h>
#include <zip.h>

#include <QFile>

#include <array>

using bench::files;

namespace {

/// Highest memory of the program so far, in MB.
double peakMegabytes()
{
    rusage usage = {};
    getrusage(RUSAGE_SELF, &usage);
    return static_cast<double>(usage.ru_maxrss) / 1024;
}

void read(benchmark::State& state, const QString& path, bool inspect = false)
{
    table_reader::ReadOptions options;
    options.inspect = inspect;
    int rows = 0;
    for (auto _ : state) {
        const table::Table table = table_reader::readTable(path, options);
        rows = table.rows.size();
        if (!table.error.isEmpty()) {
            state.SkipWithError(table.error.toUtf8().constData());
            break;
        }
    }
    state.counters["rows"] = rows;
    state.counters["peakMB"] = peakMegabytes();
}

void Csv1000x16(benchmark::State& state)
{
    read(state, files().csv);
}

void Xls1000x16(benchmark::State& state)
{
    read(state, files().xls);
}

void Xlsx1000x16(benchmark::State& state)
{
    read(state, files().xlsx);
}

void Xlsx1000x16Inspected(benchmark::State& state)
{
    read(state, files().xlsx, true);
}

void HeadOfXlsx100000x16(benchmark::State& state)
{
    read(state, files().longXlsx);
}

void HeadOfCsv5GB(benchmark::State& state)
{
    read(state, files().hugeCsv);
}

/// The limit: inflating the parts of the workbook and nothing else.
void Xlsx1000x16InflatedOnly(benchmark::State& state)
{
    const QByteArray path = QFile::encodeName(files().xlsx);
    std::array<char, 32768> piece;
    for (auto _ : state) {
        zip_t* const archive = zip_open(path.constData(), ZIP_RDONLY, nullptr);
        for (zip_int64_t entry = 0; entry < zip_get_num_entries(archive, 0); ++entry) {
            zip_file_t* const part = zip_fopen_index(archive, static_cast<zip_uint64_t>(entry), 0);
            while (zip_fread(part, piece.data(), piece.size()) > 0) {
                benchmark::DoNotOptimize(piece);
            }
            zip_fclose(part);
        }
        zip_discard(archive);
    }
}

BENCHMARK(Csv1000x16)->Unit(benchmark::kMillisecond);
BENCHMARK(HeadOfCsv5GB)->Unit(benchmark::kMillisecond);
BENCHMARK(Xls1000x16)->Unit(benchmark::kMillisecond);
BENCHMARK(Xlsx1000x16)->Unit(benchmark::kMillisecond);
BENCHMARK(HeadOfXlsx100000x16)->Unit(benchmark::kMillisecond);
BENCHMARK(Xlsx1000x16Inspected)->Unit(benchmark::kMillisecond);
BENCHMARK(Xlsx1000x16InflatedOnly)->Unit(benchmark::kMillisecond);

} // namespace

/// bench_table_reader --files FOLDER copies the files there, for other readers to be measured with.
int main(int argc, char** argv)
{
    if (argc == 3 && QByteArray(argv[1]) == "--files") {
        const QString folder = QString::fromLocal8Bit(argv[2]) + QLatin1Char('/');
        const bool copied = QFile::copy(files().xlsx, folder + QStringLiteral("1000.xlsx")) &&
                            QFile::copy(files().longXlsx, folder + QStringLiteral("100000.xlsx"));
        return copied ? 0 : 1;
    }
    files(); // made before any measurement
    benchmark::Initialize(&argc, argv);
    benchmark::RunSpecifiedBenchmarks();
    return 0;
}
