#include "bench/table_reader/BenchFiles.h"
#include "embedded_host/table_reader/TableReader.h"

#include <benchmark/benchmark.h>
#include <expat.h>
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

void Xlsx100000x16(benchmark::State& state)
{
    table_reader::ReadOptions options;
    options.maxRows = 1 << 20;
    for (auto _ : state) {
        benchmark::DoNotOptimize(table_reader::readTable(files().longXlsx, options));
    }
    state.counters["peakMB"] = peakMegabytes();
}

/// Inflates the parts of a workbook; `take` sees the pieces, and no bytes at the end of each part.
template <typename Take> void inflateParts(const QString& file, Take take)
{
    std::array<char, 32768> piece;
    zip_t* const archive = zip_open(QFile::encodeName(file).constData(), ZIP_RDONLY, nullptr);
    for (zip_int64_t entry = 0; entry < zip_get_num_entries(archive, 0); ++entry) {
        zip_file_t* const part = zip_fopen_index(archive, static_cast<zip_uint64_t>(entry), 0);
        for (zip_int64_t got = 1; got > 0;) {
            got = zip_fread(part, piece.data(), piece.size());
            take(piece.data(), static_cast<int>(got));
        }
        zip_fclose(part);
    }
    zip_discard(archive);
}

/// The limit: inflating the parts of the workbook and nothing else.
void Xlsx1000x16InflatedOnly(benchmark::State& state)
{
    for (auto _ : state) {
        inflateParts(files().xlsx, [](const char* bytes, int) { benchmark::DoNotOptimize(bytes); });
    }
}

/// What the parser says is seen, and nothing done with it.
void seeElement(void* data, const XML_Char* name, const XML_Char**)
{
    *static_cast<qint64*>(data) += *name;
}

void seeEnd(void* data, const XML_Char* name)
{
    *static_cast<qint64*>(data) += *name;
}

void seeText(void* data, const XML_Char*, int length)
{
    *static_cast<qint64*>(data) += length;
}

/// A second limit: inflating them and letting bare expat say what they hold.
void inflateAndTokenize(benchmark::State& state, const QString& file)
{
    for (auto _ : state) {
        qint64 seen = 0;
        XML_Parser parser = XML_ParserCreate(nullptr);
        const auto prepare = [&] {
            XML_SetUserData(parser, &seen);
            XML_SetElementHandler(parser, seeElement, seeEnd);
            XML_SetCharacterDataHandler(parser, seeText);
        };
        prepare();
        inflateParts(file, [&](const char* bytes, int size) {
            if (XML_Parse(parser, bytes, size, size == 0 ? XML_TRUE : XML_FALSE) != XML_STATUS_OK) {
                state.SkipWithError("not well-formed");
            }
            if (size == 0) {
                XML_ParserReset(parser, nullptr);
                prepare();
            }
        });
        XML_ParserFree(parser);
        benchmark::DoNotOptimize(seen);
    }
}

void Xlsx1000x16InflatedAndTokenized(benchmark::State& state)
{
    inflateAndTokenize(state, files().xlsx);
}

void Xlsx100000x16InflatedAndTokenized(benchmark::State& state)
{
    inflateAndTokenize(state, files().longXlsx);
}

BENCHMARK(Csv1000x16)->Unit(benchmark::kMillisecond);
BENCHMARK(HeadOfCsv5GB)->Unit(benchmark::kMillisecond);
BENCHMARK(Xls1000x16)->Unit(benchmark::kMillisecond);
BENCHMARK(Xlsx1000x16)->Unit(benchmark::kMillisecond);
BENCHMARK(HeadOfXlsx100000x16)->Unit(benchmark::kMillisecond);
BENCHMARK(Xlsx1000x16Inspected)->Unit(benchmark::kMillisecond);
BENCHMARK(Xlsx1000x16InflatedOnly)->Unit(benchmark::kMillisecond);
BENCHMARK(Xlsx1000x16InflatedAndTokenized)->Unit(benchmark::kMillisecond);
BENCHMARK(Xlsx100000x16)->Unit(benchmark::kMillisecond);
BENCHMARK(Xlsx100000x16InflatedAndTokenized)->Unit(benchmark::kMillisecond);

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
