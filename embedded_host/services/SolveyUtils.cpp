#include "host/SolveyUtils.h"

#include "embedded_host/services/Record.h"
#include "embedded_host/table_reader/TableReader.h"
#include "words/Words.h"

#include <QApplication>
#include <QCursor>
#include <QScreen>
#include <QWidget>

using services::record;

namespace {

QString nameFilter(ExportFileFormat format)
{
    switch (format) {
    case ExportFileFormat::Csv:
        return Words::tr("文本表格 (*.csv *.txt *.tsv);;所有文件 (*)");
    case ExportFileFormat::Spreadsheet:
        return Words::tr("电子表格 (*.xlsx *.xlsm *.xls *.ods);;所有文件 (*)");
    case ExportFileFormat::AllTables:
        break;
    }
    return Words::tr("表格文件 (*.csv *.txt *.tsv *.xlsx *.xlsm *.xls *.ods);;所有文件 (*)");
}

/// The window over which a pop-up is centred: its parent's, else the active one; null where there is neither.
const QWidget* windowUnder(const QWidget* popUp)
{
    const QWidget* parent = popUp ? popUp->parentWidget() : nullptr;
    const QWidget* window = parent ? parent->window() : QApplication::activeWindow();
    return window == popUp ? nullptr : window;
}

QPoint centredPos(const QWidget* popUp)
{
    const QWidget* window = windowUnder(popUp);
    const QScreen* screen = window && window->screen() ? window->screen() : QApplication::primaryScreen();
    const QRect available = screen->availableGeometry();
    QRect place(QPoint(), popUp ? popUp->size() : QSize());
    place.moveCenter(window ? window->frameGeometry().center() : available.center());
    // The title bar stays within reach, also where the pop-up is larger than the screen.
    place.moveRight(qMin(place.right(), available.right()));
    place.moveBottom(qMin(place.bottom(), available.bottom()));
    place.moveLeft(qMax(place.left(), available.left()));
    place.moveTop(qMax(place.top(), available.top()));
    return place.topLeft();
}

} // namespace

QString SolveyUtils::GetOpenTableFileName(QWidget* parent, const QString& title, const QString& directory,
                                          const ExportFileFormat& format)
{
    record("SolveyUtils::GetOpenTableFileName", parent, title, directory, format);
    return EmbeddedHost::current().prompts()->chooseOpenFile(parent, title, directory, nameFilter(format));
}

QList<QStringList> SolveyUtils::ReadTableData(const QString& path, ReadTableCfg cfg, QString& error)
{
    record("SolveyUtils::ReadTableData", path, cfg);
    // Whatever `cfg` says: this host reads one sheet.
    const std::optional<table::Table> offered = EmbeddedHost::current().offeredTable().take(path);
    const table::Table table = offered ? *offered : table_reader::readTable(path);
    error = table.error;
    return table.rows.mid(0, table::RowsToRead);
}

QPoint SolveyUtils::GetWidgetPos(QWidget* widget, WidgetShowPosType type)
{
    record("SolveyUtils::GetWidgetPos", widget, type);
    switch (type) {
    case WidgetShowPosType::CursorPos:
        return QCursor::pos();
    case WidgetShowPosType::ParentTopLeft:
        return widget && widget->parentWidget() ? widget->parentWidget()->mapToGlobal(QPoint(0, 0))
                                                : QPoint();
    case WidgetShowPosType::ActiveWindowCenter:
        break;
    }
    return centredPos(widget);
}
