#pragma once

#include "desk/window/ImportProblems.h"
#include "embedded_host/table_writer/RejectFile.h"

#include <QList>
#include <QString>
#include <QStringList>

/// The rows that an import refused, as a file to mend and import again: the file's own header and cells, and
/// a last column that says what is wrong. The import passes over that column, since no strategy has one of
/// its title.
namespace reject_file {

struct Refused {
    QList<table_writer::RefusedRow> rows; ///< in file order, several problems of one row joined
    QString doubt; ///< a sentence where it cannot be told which rows are meant: all that may be are here
};

/// The file's rows that problems name. `datesForCsv`: dates lose the T with which the reader spells those of
/// a spreadsheet, since an import from csv does not take it.
///
/// The problem that a lock strategy finds in a row's two legs is an exception: its number counts the rows
/// that got that far, and it may stand in the place of another row's problem. The rows are then found by
/// their cells, and where those do not explain the numbers, the numbered rows come along, each with a word of
/// caution: a good row among them would be imported twice, a bad one left out would be lost.
Refused refusedRows(const QList<Problem>& problems, const QList<QStringList>& fileRows, bool datesForCsv);

/// Beside the original and of its kind: list.xls -> list_问题行.xlsx. Dots of the name's stem are replaced,
/// since the import takes what follows the first dot for the file's type.
QString suggestedPath(const QString& originalPath, bool spreadsheet);

} // namespace reject_file
