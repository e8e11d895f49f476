#pragma once

#include "desk/window/ImportProblems.h"

#include <QList>
#include <QString>
#include <QStringList>

/// The rows that an import refused, as a file to mend and import again: the file's own header and cells, and
/// a last column that says what is wrong. The import passes over that column, since no strategy has one of
/// its title.
namespace reject_file {

/// The rows to write; the header alone where no problem is one of a file row. `spreadsheet`: the rows come
/// from a spreadsheet, whose dates the reader spells with a T that the csv import does not take.
QList<QStringList> rowsOf(const QList<Problem>& problems, const QList<QStringList>& fileRows,
                          bool spreadsheet);

/// A csv file beside the original: list.xlsx -> list_问题行.csv. Dots of the name's stem are replaced, since
/// the import takes what follows the first dot for the file's type.
QString suggestedPath(const QString& originalPath);

} // namespace reject_file
