#pragma once

#include "table/Table.h"

namespace table_reader {

class ZipArchive;

/// All sheets of a spreadsheet, with the first rows of those that can be seen, for a report. `table` is the
/// one that was read, from the sheet of this number. What cannot be read is left out.
QList<table::Sheet> listOdsSheets(ZipArchive& archive, int readSheet, const table::Table& table);

} // namespace table_reader
