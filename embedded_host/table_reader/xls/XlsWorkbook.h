#pragma once

#include "embedded_host/table_reader/shared/CellStyles.h"
#include "embedded_host/table_reader/shared/NumberText.h"
#include "embedded_host/table_reader/shared/SheetRows.h"
#include "embedded_host/table_reader/xls/BiffStream.h"

#include <QHash>

class QTextCodec;

namespace table_reader {

struct XlsSheetEntry {
    QString name;
    qint64 position = -1; ///< of its beginning in the stream
    bool hidden = false;
    bool isWorksheet = true; ///< charts and macro sheets are none
};

/// What the first part of a workbook stream says: where the sheet and the texts lie, the cell styles, how it
/// counts days.
struct XlsWorkbook {
    bool isVersion8 = true;
    QTextCodec* codec = nullptr; ///< of the byte texts of BIFF5
    int unknownCodePage = 0;     ///< that they are said to be in, where nobody knows it
    DateSystem dates = DateSystem::From1900;
    CellStyles styles;
    QVector<XlsSheetEntry> sheets;
    int readSheet = -1;        ///< number of the one to read
    int activeSheet = 0;       ///< number of the one that is shown first
    qint64 textsPosition = -1; ///< of the list of shared texts; -1: it has none

    /// Makes another sheet than the first one that can be seen the one to read. Empty, or the sentence that
    /// says what is wrong.
    QString choose(const QString& name);
};

/// Reads from the stream's beginning; `forReport`: with what only a report needs. A stream may be one sheet
/// alone, which then says by itself what else the workbook would. Empty, or the sentence that says what is
/// wrong.
QString readXlsWorkbook(BiffStream& stream, bool forReport, XlsWorkbook& workbook);

/// Reads a text of a record, with a length of one or two bytes before it, as the workbook's version stores
/// it. False where it is cut off.
bool readXlsText(BiffStream& stream, const XlsWorkbook& workbook, const BiffRecord& record, int offset,
                 int lengthBytes, QString& text);

/// Reads the list of shared texts as far as cells want it. Empty, or the sentence that says what is wrong.
QString readXlsTexts(BiffStream& stream, const XlsWorkbook& workbook, SharedTexts& texts);

} // namespace table_reader
