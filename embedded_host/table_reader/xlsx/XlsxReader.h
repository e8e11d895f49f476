#pragma once

#include "embedded_host/table_reader/TableReader.h"

namespace table_reader {

class ZipArchive;

/// Reads an Office Open XML workbook (xlsx, xlsm; usual and strict namespaces): the first sheet that can be
/// seen. `workbook` is the name of its part. Empty, or the sentence that says what is wrong.
QString readXlsx(ZipArchive& archive, const QString& workbook, const ReadOptions& options,
                 table::Table& table);

} // namespace table_reader
