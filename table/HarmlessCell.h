#pragma once

#include <QList>
#include <QString>
#include <QStringList>

/// A csv cell whose text begins with = + - @ (or their full-width forms), a tab or a line end could be taken
/// for a formula by the spreadsheet that opens the file. In every csv file that we write an apostrophe is put
/// before such a text (=A1 becomes '=A1) and before every text that already begins so behind apostrophes
/// ('=A1 becomes ''=A1), so that the added one can always be told and is taken away when we read the file
/// again. Signed numbers (-5, +3.5) are no formulas and stay as they are.
namespace table {

/// Title of the last column of a file of refused rows, by which it is known: why the row was refused.
QString reasonTitle();

/// The text that stands for a cell in the file.
QString harmlessCell(const QString& text);

/// The cell that harmlessCell() was given.
QString restoredCell(const QString& text);

/// Restores the cells where the rows are those of such a file, known by its title of reasons or by a title
/// that harmlessCell() changed; others stay as they are.
void restoreCells(QList<QStringList>& rows);

} // namespace table
