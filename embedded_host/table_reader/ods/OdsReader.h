#pragma once

#include "embedded_host/table_reader/TableReader.h"

namespace table_reader {

class ZipArchive;

/// True where the archive says that it is an OpenDocument spreadsheet or a template of one.
bool isOdsArchive(ZipArchive& archive);

/// Reads an OpenDocument spreadsheet: the first sheet that can be seen. Empty, or the sentence that says what
/// is wrong.
QString readOds(ZipArchive& archive, const ReadOptions& options, table::Table& table);

} // namespace table_reader
