#include "embedded_host/table_writer/TextTable.h"

#include "embedded_host/table_reader/xlsx/SpreadsheetText.h"
#include "embedded_host/table_writer/XlsxDraft.h"
#include "files/CsvText.h"
#include "files/Save.h"
#include "table/CellAddress.h"
#include "words/Words.h"

#include <xlsxwriter.h>

#include <QFileInfo>

namespace table_writer {
namespace {

QString save(const QString& path, const QByteArray& bytes)
{
    const Outcome<void> saved = files::save(path, bytes);
    return saved.ok() ? QString() : files::cannotWrite(path, saved.error);
}

/// Empty, or the address of the cell that xlsx cannot hold.
QString writeRows(lxw_workbook* workbook, lxw_worksheet* sheet, const QList<QStringList>& table,
                  double lastWidth)
{
    lxw_format* const text = workbook_add_format(workbook);
    format_set_num_format(text, "@");
    QString refused;
    for (int row = 0; row < table.size(); ++row) {
        for (int column = 0; column < table.at(row).size(); ++column) {
            const lxw_error error = worksheet_write_string(
                sheet, static_cast<lxw_row_t>(row), static_cast<lxw_col_t>(column),
                table_reader::guardEscapes(table.at(row).at(column)).toUtf8().constData(), text);
            refused = error == LXW_NO_ERROR ? refused : table::cellAddress(row, column);
        }
    }
    worksheet_freeze_panes(sheet, 1, 0);
    if (lastWidth > 0) {
        const auto last = static_cast<lxw_col_t>(table.first().size() - 1);
        worksheet_set_column(sheet, last, last, lastWidth, nullptr);
    }
    return refused;
}

QString writeXlsx(const QString& path, const QList<QStringList>& table, double lastWidth)
{
    XlsxDraft draft;
    QString refused;
    if (draft.workbook() != nullptr) {
        refused =
            writeRows(draft.workbook(), workbook_add_worksheet(draft.workbook(), nullptr), table, lastWidth);
    }
    QString error;
    const QByteArray bytes = draft.close(error);
    if (!refused.isEmpty()) {
        return files::cannotWrite(path, Words::tr("单元格%1过长").arg(refused));
    }
    return error.isEmpty() ? save(path, bytes) : files::cannotWrite(path, error);
}

} // namespace

QString writeTable(const QString& path, const QList<QStringList>& table, double lastWidth)
{
    const bool isXlsx = QFileInfo(path).suffix().compare(QLatin1String("xlsx"), Qt::CaseInsensitive) == 0;
    return isXlsx ? writeXlsx(path, table, lastWidth) : save(path, files::csvText(table));
}

} // namespace table_writer
