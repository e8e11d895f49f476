// Opens the desk window on a ledger, and says how long it took until it was shown with its pages filled, and
// the largest memory of the process:
//
//     QT_QPA_PLATFORM=offscreen growth_window ADDRESS HOME

#include "desk/runner/LedgerAccess.h"
#include "desk/runner/Session.h"
#include "desk/window/DeskApplication.h"
#include "desk/window/DeskBooks.h"
#include "desk/window/DeskWindow.h"

#include <sys/resource.h>

#include <QApplication>
#include <QElapsedTimer>
#include <QLoggingCategory>
#include <QTableView>

#include <cstdio>

namespace {

long peakMebibytes()
{
    rusage usage = {};
    getrusage(RUSAGE_SELF, &usage);
    return usage.ru_maxrss / 1024;
}

/// Every page is looked at once: what it shows is drawn.
int rowsShown(DeskWindow& window)
{
    int rows = 0;
    for (int page = 0; page < window.pageTitles().size(); ++page) {
        window.showPage(page);
        QCoreApplication::processEvents();
    }
    for (const QTableView* view : window.findChildren<QTableView*>()) {
        rows += view->model() ? view->model()->rowCount() : 0;
    }
    return rows;
}

} // namespace

int main(int argc, char** argv)
{
    QElapsedTimer watch;
    watch.start();
    QLoggingCategory::setFilterRules(QStringLiteral("algo.*=false"));
    QApplication application(argc, argv);
    if (argc != 3) {
        std::fprintf(stderr, "growth_window ADDRESS HOME\n");
        return 2;
    }
    desk_application::prepare();
    runner::CommandLine line;
    line.dataFolder = QStringLiteral(REFERENCE_DATA);
    line.ledger = QString::fromLocal8Bit(argv[1]);
    line.home = QString::fromLocal8Bit(argv[2]);
    QString error;
    const std::unique_ptr<EmbeddedHost> host = runner::openDeskHost(line, error);
    const auto books = openDeskBooks(runner::ledgerAddress(line).value, line.home, line.dataFolder, error);
    if (!host || !books || !books->ledger) {
        std::fprintf(stderr, "%s%s\n", qPrintable(error), books ? qPrintable(books->ledgerError) : "");
        return 1;
    }
    DeskWindow window(*host, *books);
    window.show();
    QCoreApplication::processEvents();
    const qint64 shown = watch.elapsed();
    const int rows = rowsShown(window);
    std::printf("%lld ms until it was shown, %lld ms with all pages drawn, %d rows, %ld MiB\n", shown,
                watch.elapsed(), rows, peakMebibytes());
    return 0;
}
