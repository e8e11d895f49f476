#pragma once

#include "embedded_host/table_reader/xls/XlsWorkbook.h"
#include "table/Table.h"

namespace table_reader {

/// All sheets of a workbook, with the first rows of those that can be seen, for a report. `table` is the one
/// that was read. A sheet that cannot be read has no first row.
QList<table::Sheet> listXlsSheets(BiffStream& stream, const XlsWorkbook& workbook, const table::Table& table);

} // namespace table_reader
