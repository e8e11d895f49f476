#include "embedded_host/table_reader/xlsx/XlsxReader.h"

#include "embedded_host/table_reader/xlsx/XlsxSheet.h"
#include "embedded_host/table_reader/xlsx/XlsxSheetList.h"
#include "embedded_host/table_reader/xlsx/XlsxTexts.h"
#include "embedded_host/table_reader/xlsx/XlsxWorkbook.h"

namespace table_reader {

QString readXlsx(ZipArchive& archive, const QString& workbookPart, const ReadOptions& options,
                 table::Table& table)
{
    XlsxWorkbook workbook;
    QString error = readXlsxWorkbook(archive, workbookPart, workbook);
    if (error.isEmpty() && !options.sheet.isEmpty()) {
        error = workbook.choose(options.sheet);
    }
    CellStyles styles;
    if (error.isEmpty() && !workbook.stylesPart.isEmpty()) {
        styles = readXlsxStyles(archive, workbook.stylesPart, options.inspect, error);
    }
    if (!error.isEmpty()) {
        return error;
    }
    table.sheet = workbook.sheetName;
    SheetRows rows(options, table);
    SharedTexts texts;
    XlsxSheet sheet(styles, workbook.dates, rows, texts);
    sheet.setRecalculated(workbook.isRecalculated);
    error = sheet.read(archive, workbook.sheetPart);
    if (error.isEmpty()) {
        error = supplyXlsxTexts(archive, workbook.textsPart, texts);
    }
    rows.finish();
    if (error.isEmpty() && options.inspect) {
        table.sheets = listXlsxSheets(archive, workbook, styles, table);
    }
    return error;
}

} // namespace table_reader
