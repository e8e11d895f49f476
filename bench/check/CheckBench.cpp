// The file check of the most rows that an import takes. It comes on top of the import, which reads the file
// anyway.

#include "desk/check/FileReport.h"
#include "embedded_host/reference_data/ReferenceData.h"
#include "embedded_host/reference_data/ReferenceFolder.h"
#include "embedded_host/table_reader/TableReader.h"
#include "strategy/Strategy.h"

#include <benchmark/benchmark.h>

#include <QBuffer>

namespace {

const ReferenceData& shipped()
{
    static const ReferenceData data = [] {
        QString error;
        return ReferenceData(*readReferenceFolder(QStringLiteral(REFERENCE_FOLDER), error));
    }();
    return data;
}

/// Good rows of AITWAP; `spoilt`: each with a finding or two.
table::Table tableOf(bool spoilt)
{
    QByteArray csv =
        "证券代码,证券名称,市场,委托数量,交易方向,委托限价,开始时间,结束时间,委托属性,最大市场占比,风格参数,"
        "单笔最小委托金额,实例备注,创建后是否立即启动\n";
    for (int row = 0; row < table::MostOrders; ++row) {
        csv += "600000,示例银行,SH," + QByteArray::number((row + 1) * 100) + (spoilt ? "股" : "") +
               ",1,9.86,2026-11-23 09:35:00,2026-11-23 14:50:00,0," + (spoilt ? "150" : "15") +
               ",neutral,5000,,0\n";
    }
    QBuffer file(&csv);
    file.open(QIODevice::ReadOnly);
    table_reader::ReadOptions options;
    options.inspect = true;
    return table_reader::readTable(file, options);
}

void BM_Check(benchmark::State& state)
{
    const table::Table table = tableOf(state.range(0) != 0);
    const AesStrategy& offered = *shipped().strategy(QStringLiteral("AITWAP"));
    const QStringList titles =
        strategy::Strategy::parse(offered.name(), offered.alias(), offered.paramFormats()).value.titles();
    for (auto _ : state) {
        benchmark::DoNotOptimize(fileReport(table, offered.name(), titles, shipped()));
    }
}
BENCHMARK(BM_Check)->Arg(0)->Arg(1)->Unit(benchmark::kMillisecond);

} // namespace

BENCHMARK_MAIN();
