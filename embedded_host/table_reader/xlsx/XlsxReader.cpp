#include "embedded_host/table_reader/xlsx/XlsxReader.h"

#include "embedded_host/table_reader/shared/Messages.h"
#include "embedded_host/table_reader/xlsx/SpreadsheetNames.h"
#include "embedded_host/table_reader/xlsx/SpreadsheetText.h"
#include "embedded_host/table_reader/xlsx/XlsxSheet.h"
#include "embedded_host/table_reader/xlsx/XlsxWorkbook.h"

namespace table_reader {
namespace {

/// Looks at the list of texts up to the last one that a cell wants.
QString readTexts(ZipArchive& archive, const QString& name, SharedTexts& texts, SheetRows& rows)
{
    XmlPart part(archive, name);
    if (!part.begin(Sheet, QLatin1String("sst"))) {
        return part.error();
    }
    qint64 index = 0;
    while (texts.next() >= index && part.nextChild()) {
        if (!part.is(Sheet, QLatin1String("si"))) {
            part.skip();
            continue;
        }
        if (index++ != texts.next()) {
            part.skip();
        } else if (!texts.supply(readRichText(part), rows)) {
            return rows.error();
        }
    }
    const QString error = part.finish();
    return error.isEmpty() && texts.next() >= 0 ? message::badSharedText(texts.nextCell()) : error;
}

QString supplyTexts(ZipArchive& archive, const QString& name, SharedTexts& texts, SheetRows& rows)
{
    if (texts.isEmpty()) {
        return QString();
    }
    texts.sort();
    if (name.isEmpty() || texts.next() < 0) {
        return message::badSharedText(texts.nextCell());
    }
    return readTexts(archive, name, texts, rows);
}

} // namespace

QString readXlsx(ZipArchive& archive, const QString& workbookPart, const ReadOptions& options,
                 table::Table& table)
{
    XlsxWorkbook workbook;
    QString error = readXlsxWorkbook(archive, workbookPart, workbook);
    QVector<NumberFormat> styles;
    if (error.isEmpty() && !workbook.stylesPart.isEmpty()) {
        styles = readXlsxStyles(archive, workbook.stylesPart, error);
    }
    if (!error.isEmpty()) {
        return error;
    }
    table.sheet = workbook.sheetName;
    SheetRows rows(options, table);
    SharedTexts texts;
    error = XlsxSheet(styles, workbook.dates, rows, texts).read(archive, workbook.sheetPart);
    if (error.isEmpty()) {
        error = supplyTexts(archive, workbook.textsPart, texts, rows);
    }
    rows.finish();
    return error;
}

} // namespace table_reader
