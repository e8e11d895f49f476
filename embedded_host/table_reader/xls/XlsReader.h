#pragma once

#include "embedded_host/table_reader/TableReader.h"

namespace table_reader {

/// True where the first bytes are those of an OLE2 container or of a workbook stream without one.
bool isXls(const QByteArray& head);

/// Reads an Excel workbook of BIFF5 or BIFF8: the first sheet that can be seen. Empty, or the sentence that
/// says what is wrong; encrypted Office packages and documents of other programs come in the same container.
QString readXls(QIODevice& file, const ReadOptions& options, table::Table& table);

} // namespace table_reader
