#pragma once

#include "embedded_host/table_writer/RejectFile.h"
#include "table/Fault.h"
#include "table/Table.h"

#include <QList>
#include <QString>

/// The rows that an import refused, as a file to mend and import again: the file's own header and cells, and
/// a last column that says what is wrong. The import passes over that column, since no strategy has one of
/// its title.
namespace rejected_rows {

/// The rows that faults name by their line, in the order of the file, each with all that is said of it;
/// faults of the header or of no line name none. `datesForCsv`: dates lose the T with which the reader spells
/// those of a spreadsheet, since an import from csv does not take it.
QList<table_writer::RefusedRow> of(const table::Faults& faults, const table::Table& table, bool datesForCsv);

/// Whether dates of the table must be spelt for the file that they go to.
bool needDatesForCsv(const table::Table& table, const QString& path);

/// Writes them. Empty, or a sentence for the user.
QString write(const QString& path, const table::Table& table, const QList<table_writer::RefusedRow>& rows);

/// Beside the original and of its kind: list.xls -> list_问题行.xlsx. Dots of the name's stem are replaced,
/// since the import takes what follows the first dot for the file's type.
QString suggestedPath(const QString& originalPath, bool spreadsheet);

} // namespace rejected_rows
