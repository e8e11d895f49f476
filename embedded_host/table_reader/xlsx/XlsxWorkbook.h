#pragma once

#include "embedded_host/table_reader/shared/CellStyles.h"
#include "embedded_host/table_reader/shared/NumberText.h"
#include "embedded_host/table_reader/xlsx/Package.h"

namespace table_reader {

struct XlsxSheetEntry {
    QString name;
    QString id;   ///< of its relationship
    QString part; ///< of a worksheet; charts, dialogs and macro sheets have none here
    bool hidden = false;
};

/// What a workbook's own part says: where its sheets, styles and texts lie, and how it counts days.
struct XlsxWorkbook {
    DateSystem dates = DateSystem::From1900;
    bool isRecalculated = false; ///< by whoever opens it, whatever results are stored
    QVector<XlsxSheetEntry> sheets;
    int readSheet = -1;  ///< number of the one to read
    int activeSheet = 0; ///< number of the one that is shown first
    QString sheetName;
    QString sheetPart;
    QString stylesPart; ///< empty: it has none
    QString textsPart;  ///< empty: it has none

    /// Makes another sheet than the first one that can be seen the one to read. Empty, or the sentence that
    /// says what is wrong.
    QString choose(const QString& name);
};

/// Empty, or the sentence that says what is wrong.
QString readXlsxWorkbook(ZipArchive& archive, const QString& part, XlsxWorkbook& workbook);

/// `forReport`: with what only a report needs. `error` takes what is wrong.
CellStyles readXlsxStyles(ZipArchive& archive, const QString& part, bool forReport, QString& error);

} // namespace table_reader
