// CPU time of the import: rows in memory to table records and parameter maps, amounts, table view,
// construction. Logging is off unless QT_LOGGING_RULES turns it on, for example
// QT_LOGGING_RULES="algo.*=true" 2>/dev/null.

#include "dialog/AlgoBatchImportParamSetting.h"
#include "embedded_host/EmbeddedHost.h"
#include "host/ZelTableView.h"
#include "schema/DateTimeFormat.h"
#include "tests/support/DialogInspector.h"
#include "tests/support/SmallMarket.h"

#include <benchmark/benchmark.h>

#include <QApplication>
#include <QLoggingCategory>

#include <memory>

namespace {

const QString Strategy = QStringLiteral("AITWAP");

/// Extra optional parameters that bring the ordinary table to 16 columns.
QVariantList sixteenColumns()
{
    QVariantList document = small_market::ordinaryDocument();
    for (const char* name : {"最大市场占比", "委托间隔", "委托档位", "撤单时间"}) {
        document.append(small_market::line(QString::fromUtf8(name), small_market::optional({}, {})));
    }
    return document;
}

ReferenceTables tablesWith(int securities)
{
    ReferenceTables tables = small_market::tables();
    for (int i = tables.securities.size(); i < securities; ++i) {
        Security security = tables.securities.first();
        security.code = QStringLiteral("7%1").arg(i, 5, 10, QLatin1Char('0'));
        security.symbol = security.code + QStringLiteral(".SH");
        tables.securities.append(security);
        Quote quote = tables.quotes.first();
        quote.symbol = security.symbol;
        tables.quotes.append(quote);
    }
    tables.strategies.first() = AesStrategy(Strategy, QStringLiteral("时间加权"),
                                            small_market::toJson(sixteenColumns()), QStringLiteral("algo"));
    return tables;
}

/// A host with a dialog that has the strategy loaded.
struct Desk {
    explicit Desk(int securities) : host(ReferenceData(tablesWith(securities)))
    {
        dialog = std::make_unique<AlgoBatchImportParamSetting>(nullptr, SelectableStrategy);
        dialog->CreateStrategyInitWidget(*host.referenceData().strategy(Strategy));
    }

    QList<QStringList> rows(int count) const
    {
        QStringList header = small_market::ordinaryHeader();
        header << QStringLiteral("最大市场占比") << QStringLiteral("委托间隔") << QStringLiteral("委托档位")
               << QStringLiteral("撤单时间");
        QList<QStringList> rows = {header};
        const QList<Security>& securities = host.referenceData().tables().securities;
        for (int i = 0; i < count; ++i) {
            const int index = securities.size() > 20 ? 20 + i % (securities.size() - 20) : 0;
            rows.append(small_market::ordinaryRow(securities.at(index).code) +
                        QStringList{QStringLiteral("0.1"), QStringLiteral("5"), QStringLiteral("1"),
                                    QStringLiteral("30")});
        }
        return rows;
    }

    EmbeddedHost host;
    std::unique_ptr<AlgoBatchImportParamSetting> dialog;
};

RecordDataList imported(Desk& desk, QList<QStringList> rows)
{
    RecordDataList records;
    QMap<int, QString> errors;
    DialogInspector(*desk.dialog).parseStrLst2TableModel(rows, records, errors);
    return records;
}

/// Arguments: rows, securities.
void rowsToRecords(benchmark::State& state)
{
    Desk desk(int(state.range(1)));
    const QList<QStringList> rows = desk.rows(int(state.range(0)));
    for (auto _ : state) {
        const RecordDataList records = imported(desk, rows);
        if (records.size() != state.range(0)) {
            state.SkipWithError("rows were lost");
        }
    }
}
BENCHMARK(rowsToRecords)
    ->ArgsProduct({{10, 100, 200, 400, 600, 800, 1000}, {1000}})
    ->ArgsProduct({{1000}, {100, 10000, 20000}})
    ->Iterations(10)
    ->Unit(benchmark::kMillisecond);

/// Every row has times of its own, in the layout of a text file or of a spreadsheet: none is remembered from
/// another row.
void rowsWithTimesOfTheirOwn(benchmark::State& state)
{
    const bool isSheet = state.range(1) != 0;
    const QString layout = isSheet ? schema::SheetDateTimeFormat : schema::TypedDateTimeFormat;
    Desk desk(1000);
    QList<QStringList> rows = desk.rows(int(state.range(0)));
    const int start = rows.first().indexOf(QStringLiteral("开始时间"));
    const int end = rows.first().indexOf(QStringLiteral("结束时间"));
    const QDateTime open(QDate(2024, 3, 5), QTime(9, 30));
    for (int row = 1; row < rows.size(); ++row) {
        rows[row][start] = QLocale::c().toString(open.addSecs(row), layout);
        rows[row][end] = QLocale::c().toString(open.addSecs(3600 + row), layout);
    }
    for (auto _ : state) {
        DialogInspector(*desk.dialog).dateTimeFormat() = layout;
        const RecordDataList records = imported(desk, rows);
        if (records.size() != state.range(0)) {
            state.SkipWithError("rows were lost");
        }
    }
}
BENCHMARK(rowsWithTimesOfTheirOwn)
    ->ArgsProduct({{1000}, {0, 1}})
    ->Iterations(10)
    ->Unit(benchmark::kMillisecond);

void amounts(benchmark::State& state)
{
    Desk desk(1000);
    const RecordDataList records = imported(desk, desk.rows(int(state.range(0))));
    for (auto _ : state) {
        DialogInspector(*desk.dialog).calculateExpectAmount(records);
    }
}
BENCHMARK(amounts)->Arg(10)->Arg(100)->Arg(1000)->Iterations(10)->Unit(benchmark::kMillisecond);

void fillTable(benchmark::State& state)
{
    Desk desk(1000);
    const RecordDataList records = imported(desk, desk.rows(int(state.range(0))));
    auto* table = desk.dialog->findChild<ZelTableView*>(QStringLiteral("table_paramSettings"));
    desk.dialog->show();
    for (auto _ : state) {
        table->clear();
        table->addRecordDataList(records);
        QApplication::processEvents();
    }
}
BENCHMARK(fillTable)->Arg(10)->Arg(100)->Arg(1000)->Unit(benchmark::kMillisecond);

void constructAndLoad(benchmark::State& state)
{
    const EmbeddedHost host(ReferenceData(tablesWith(1000)));
    for (auto _ : state) {
        AlgoBatchImportParamSetting dialog(nullptr, SelectableStrategy);
        dialog.CreateStrategyInitWidget(*host.referenceData().strategy(Strategy));
    }
}
BENCHMARK(constructAndLoad)->Unit(benchmark::kMillisecond);

} // namespace

int main(int argc, char** argv)
{
    qputenv("QT_QPA_PLATFORM", "offscreen");
    QLoggingCategory::setFilterRules(QStringLiteral("algo.*=false"));
    QApplication application(argc, argv);
    benchmark::Initialize(&argc, argv);
    benchmark::RunSpecifiedBenchmarks();
    return 0;
}
