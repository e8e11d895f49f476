#pragma once

#include "embedded_host/table_reader/xls/XlsWorkbook.h"

namespace table_reader {

/// Reads the cells of one worksheet of a workbook stream, to its end: some writers go column by column.
class XlsSheet {
public:
    XlsSheet(BiffStream& stream, const XlsWorkbook& workbook, SheetRows& rows, SharedTexts& texts)
        : mStream(stream), mWorkbook(workbook), mRows(rows), mTexts(texts)
    {
    }

    /// From the sheet's beginning. Empty, or the sentence that says what is wrong.
    QString read(qint64 position);

private:
    bool take(const BiffRecord& record);
    bool putNumber(int row, int column, int style, double value);
    bool putNumbers(const BiffRecord& record);
    bool putFormula(const BiffRecord& record);
    void inspectFormula(const BiffRecord& record);
    bool putText(const BiffRecord& record, int offset, int row, int column);
    bool putSharedText(const BiffRecord& record);
    void noteStyle(int row, int style);
    void noteRow(const BiffRecord& record);
    void noteColumns(const BiffRecord& record);
    void noteMergedAreas(const BiffRecord& record);

    BiffStream& mStream;
    const XlsWorkbook& mWorkbook;
    SheetRows& mRows;
    SharedTexts& mTexts;
    QString mError;
    int mFormulaRow = -1; ///< of a formula whose text comes in a record of its own
    int mFormulaColumn = 0;
};

} // namespace table_reader
