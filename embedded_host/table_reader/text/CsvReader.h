#pragma once

#include "embedded_host/table_reader/TableReader.h"

namespace table_reader {

/// Reads comma, tab or semicolon separated text, no further than the rows wanted. Empty, or the sentence that
/// says what is wrong.
QString readCsv(QIODevice& file, const ReadOptions& options, table::Table& table);

} // namespace table_reader
