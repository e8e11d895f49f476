#pragma once

#include "embedded_host/table_reader/shared/CellStyles.h"
#include "embedded_host/table_reader/xlsx/XlsxWorkbook.h"
#include "table/Table.h"

namespace table_reader {

/// All sheets of a workbook, with the first rows of those that can be seen, for a report. `table` is the one
/// that was read. A sheet that cannot be read has no first row.
QList<table::Sheet> listXlsxSheets(ZipArchive& archive, const XlsxWorkbook& workbook,
                                   const CellStyles& styles, const table::Table& table);

} // namespace table_reader
