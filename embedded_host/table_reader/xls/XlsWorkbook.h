#pragma once

#include "embedded_host/table_reader/shared/NumberText.h"
#include "embedded_host/table_reader/shared/SheetRows.h"
#include "embedded_host/table_reader/xls/BiffStream.h"

#include <QHash>

class QTextCodec;

namespace table_reader {

/// What the first part of a workbook stream says: where the sheet and the texts lie, the cell styles, how it
/// counts days.
struct XlsWorkbook {
    bool isVersion8 = true;
    QTextCodec* codec = nullptr; ///< of the byte texts of BIFF5
    DateSystem dates = DateSystem::From1900;
    QVector<NumberFormat> styles;
    QString sheetName;
    qint64 sheetPosition = -1;
    qint64 textsPosition = -1; ///< of the list of shared texts; -1: it has none
};

/// Reads from the stream's beginning. Empty, or the sentence that says what is wrong.
QString readXlsWorkbook(BiffStream& stream, XlsWorkbook& workbook);

/// Reads a text of a record, with a length of one or two bytes before it, as the workbook's version stores
/// it. False where it is cut off.
bool readXlsText(BiffStream& stream, const XlsWorkbook& workbook, const BiffRecord& record, int offset,
                 int lengthBytes, QString& text);

/// Reads the list of shared texts as far as cells want it. Empty, or the sentence that says what is wrong.
QString readXlsTexts(BiffStream& stream, const XlsWorkbook& workbook, SharedTexts& texts, SheetRows& rows);

} // namespace table_reader
