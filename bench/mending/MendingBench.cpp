// What an edit of one cell costs among the most rows that an import takes, until the list of what is wrong
// and the sheet are right again: rows read anew, file checked anew, list and marks filled. CPU time; the
// dialog's own import comes after a pause and is not in it.

#include "desk/window/DeskBooks.h"
#include "desk/window/DeskWindow.h"
#include "desk/window/FileGrid.h"
#include "desk/window/ImportPage.h"
#include "desk/window/ProblemsPanel.h"
#include "desk/working_copy/WorkingCopy.h"
#include "embedded_host/EmbeddedHost.h"
#include "embedded_host/reference_data/ReferenceFolder.h"

#include <benchmark/benchmark.h>

#include <QAbstractItemView>
#include <QApplication>
#include <QClipboard>
#include <QLoggingCategory>
#include <QTableView>
#include <QTimer>

#include <memory>

namespace {

constexpr int CodeColumn = 0;
constexpr int EditedRow = 500;

/// Good rows of AITWAP; of each hundred, `faulty` with a code that nobody knows.
QString textOf(int faulty)
{
    QString text =
        QStringLiteral("证券代码\t证券名称\t市场\t委托数量\t交易方向\t委托限价\t开始时间\t结束时间\t"
                       "委托属性\t最大市场占比\t风格参数\t单笔最小委托金额\t实例备注\t"
                       "创建后是否立即启动\n");
    for (int row = 0; row < table::MostOrders; ++row) {
        text +=
            QStringLiteral("%1\t示例银行\tSH\t%2\t1\t9.86\t2026-11-23 09:35:00\t2026-11-23 14:50:00\t0\t15\t"
                           "neutral\t5000\t\t0\n")
                .arg(row % 100 < faulty ? QStringLiteral("609999") : QStringLiteral("600000"))
                .arg((row + 1) * 100);
    }
    return text;
}

/// The window with such a table imported from the clipboard.
struct Desk {
    explicit Desk(int faulty)
    {
        QString error;
        EmbeddedHost::Options options;
        host = std::make_unique<EmbeddedHost>(
            ReferenceData(*readReferenceFolder(QStringLiteral(REFERENCE_FOLDER), error)), options);
        window = std::make_unique<DeskWindow>(*host, books);
        window->show();
        QApplication::clipboard()->setText(textOf(faulty));
        QTimer closing; // of what the dialog says of the faulty rows
        QObject::connect(&closing, &QTimer::timeout, [] {
            if (QWidget* modal = QApplication::activeModalWidget()) {
                modal->close();
            }
        });
        closing.start(20);
        window->importPage()->importClipboard();
    }

    void type(const QString& code)
    {
        QAbstractItemModel* cells = window->importPage()->grid()->view()->model();
        cells->setData(cells->index(EditedRow, CodeColumn), code, Qt::EditRole);
    }

    DeskBooks books;
    std::unique_ptr<EmbeddedHost> host;
    std::unique_ptr<DeskWindow> window;
};

void BM_EditOfACell(benchmark::State& state)
{
    Desk desk(int(state.range(0)));
    bool isOdd = false;
    for (auto _ : state) {
        isOdd = !isOdd;
        desk.type(isOdd ? QStringLiteral("600010") : QStringLiteral("600001"));
    }
    state.counters["problems"] = desk.window->importPage()->problems()->problems().size();
    state.counters["edits"] = desk.window->importPage()->grid()->copy().edits().size();
}
BENCHMARK(BM_EditOfACell)->Arg(0)->Arg(10)->Iterations(50)->Unit(benchmark::kMillisecond);

void BM_UndoAfterManyEdits(benchmark::State& state)
{
    working_copy::WorkingCopy copy;
    {
        table::Table table;
        table.format = QStringLiteral("csv");
        for (int row = 0; row <= table::MostOrders; ++row) {
            table.rows.append({QStringLiteral("600000"), QString::number(row)});
            table.lines.append(row + 1);
        }
        copy = working_copy::WorkingCopy(table);
    }
    for (int edit = 0; edit < 500; ++edit) {
        copy.setCell(2 + edit, 0, QStringLiteral("600001"));
    }
    for (auto _ : state) {
        copy.undo();
        copy.redo();
    }
}
BENCHMARK(BM_UndoAfterManyEdits)->Unit(benchmark::kMillisecond);

} // namespace

int main(int argc, char** argv)
{
    QLoggingCategory::setFilterRules(QStringLiteral("algo.*=false"));
    qputenv("QT_QPA_PLATFORM", "offscreen");
    QApplication application(argc, argv);
    benchmark::Initialize(&argc, argv);
    benchmark::RunSpecifiedBenchmarks();
    return 0;
}
