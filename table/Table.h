#pragma once

#include <QHash>
#include <QList>
#include <QPair>
#include <QRect>
#include <QSet>
#include <QString>
#include <QStringList>

/// A table of texts as a trader's file holds it, wherever it came from: a file, the clipboard, a hand that
/// mended it.
namespace table {

/// Orders that an import takes; of a longer file it asks whether to take these alone.
constexpr int MostOrders = 1000;
/// What is read of a file at most: the header, the orders, and one row more that tells of too many.
constexpr int RowsToRead = MostOrders + 2;

/// (row, column), both from 0, those of Table::rows.
using Cell = QPair<int, int>;

/// One sheet of a workbook, as far as the reader looked at it.
struct Sheet {
    QString name;
    bool visible = true;
    bool active = false; ///< the one that the spreadsheet program shows first
    bool read = false;   ///< the one whose rows the table holds
    QStringList head;    ///< its first row that is not blank; empty where it was not looked at
};

/// What a report on a file needs beside the texts. In a spreadsheet the indices are the sheet's own, so that
/// row 2, column 1 is B3. Areas have columns as x and rows as y. A sheet made to have more areas or numbers
/// than any real one is told of in part. Empty unless it was asked for.
struct Inspection {
    QSet<int> hiddenRows;         ///< by hand or by a filter
    QSet<int> hiddenColumns;      ///< of those that a table may have
    QSet<int> struckRows;         ///< of whose cells several are struck out
    QList<QRect> mergedAreas;     ///< that begin in the rows read; none of an xlsx sheet of more rows, which
                                  ///< tells them last
    QHash<Cell, QString> numbers; ///< of cells stored as numbers: the stored text
    QHash<Cell, QString>
        shown; ///< of cells that the spreadsheet shows otherwise than the text that the table holds
    QSet<Cell> uncalculated;    ///< formulas without a stored result
    int unknownCodePage = 0;    ///< of xls: number of the code page of its texts where nobody knows it; they
                                ///< are read as Western then, and wrong but for ASCII
    int replacedCharacters = 0; ///< of csv: bytes that the encoding does not know, shown as U+FFFD
};

struct Table {
    QList<QStringList> rows; ///< cell texts, blanks included; empty when `error` is not
    /// Of each row the line of the file, from 1: in csv the line on which it begins, in a sheet its own row
    /// number. As long as `rows`.
    QList<int> lines;
    QString error;       ///< a Chinese sentence for the user; empty on success
    QString format;      ///< csv, xlsx, xls, ods: as what it was read; empty when it was refused before
    QString encoding;    ///< of csv: UTF-8, UTF-16LE, UTF-16BE, GB18030, or what the options named
    QString separator;   ///< of csv: ",", ";" or a tab
    QString sheet;       ///< name of the sheet that was read; empty for csv
    QList<Sheet> sheets; ///< of a workbook, all of them in its order, where inspection was asked for
    Inspection inspection;

    /// The line of a row of `rows`; row + 1 where the table does not know.
    int lineOf(int row) const { return lines.value(row, row + 1); }
};

/// Whether an import passes over a row: a blank one, or a note, whose first two of more than two cells are
/// blank.
bool isBlankOrNote(const QStringList& row);

} // namespace table
