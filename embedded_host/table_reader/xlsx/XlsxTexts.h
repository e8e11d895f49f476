#pragma once

#include "embedded_host/table_reader/shared/SheetRows.h"

namespace table_reader {

class ZipArchive;

/// Reads the part of shared texts as far as cells want it; `part` empty: there is none. Empty, or the
/// sentence that says what is wrong.
QString supplyXlsxTexts(ZipArchive& archive, const QString& part, SharedTexts& texts);

} // namespace table_reader
