#pragma once

#include "table/Table.h"

#include <QList>
#include <QString>
#include <QStringList>

/// Cells as a spreadsheet program puts them on the clipboard, and takes them from there.
namespace clipboard_cells {

/// Lines, tabs between the cells, quotation marks round a cell that holds one of these.
QList<QStringList> cellsOf(const QString& text);
QString textOf(const QList<QStringList>& cells);

/// A whole table, to be imported without a file: where there is no tab, it is read as any text file is.
table::Table tableOf(const QString& text);

} // namespace clipboard_cells
