#pragma once

#include "embedded_host/table_reader/shared/NumberText.h"
#include "embedded_host/table_reader/xlsx/Package.h"

namespace table_reader {

/// What a workbook's own part says: where its sheets, styles and texts lie, and how it counts days.
struct XlsxWorkbook {
    DateSystem dates = DateSystem::From1900;
    QString sheetName;
    QString sheetPart;
    QString stylesPart; ///< empty: it has none
    QString textsPart;  ///< empty: it has none
};

/// Empty, or the sentence that says what is wrong.
QString readXlsxWorkbook(ZipArchive& archive, const QString& part, XlsxWorkbook& workbook);

/// The kind of number format of each cell style, by the style's number. `error` takes what is wrong.
QVector<NumberFormat> readXlsxStyles(ZipArchive& archive, const QString& part, QString& error);

} // namespace table_reader
