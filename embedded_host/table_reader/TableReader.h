#pragma once

#include <QHash>
#include <QList>
#include <QPair>
#include <QRect>
#include <QSet>
#include <QString>
#include <QStringList>

class QIODevice;

/// Reads a table file of a trader by its content, whatever its name says.
namespace table_reader {

/// A header row, 1,000 data rows, and one more by which the import knows that there are too many.
constexpr int MaxRows = 1002;

struct ReadOptions {
    int maxRows = MaxRows;
    QString encoding;     ///< of csv; empty: told from the bytes
    bool inspect = false; ///< fill Table::inspection too; costs time, so plain reads leave it away
};

/// What a report on a file needs beside the texts. All indices count from 0 and are those of Table::rows; in
/// a spreadsheet they are the sheet's own, so that row 2, column 1 is B3. Areas have columns as x and rows as
/// y. A sheet made to have more areas or numbers than any real one is told of in part.
struct Inspection {
    QList<int> lines;     ///< of csv: 1-based line of the file on which each row begins
    QSet<int> hiddenRows; ///< by hand or by a filter
    /// That begin in the rows read; none of an xlsx sheet of more rows, which tells them last.
    QList<QRect> mergedAreas;
    QHash<QPair<int, int>, QString> numbers; ///< (row, column) of cells stored as numbers -> the stored text
    int replacedCharacters = 0; ///< of csv: bytes that the encoding does not know, shown as U+FFFD
};

struct Table {
    QList<QStringList> rows; ///< cell texts, blanks included; empty when `error` is not
    QString error;           ///< a Chinese sentence for the user; empty on success
    QString format;          ///< csv, xlsx, xls, ods: as what it was read; empty when it was refused before
    QString encoding;        ///< of csv: UTF-8, UTF-16LE, UTF-16BE, GB18030, or what the options named
    QString separator;       ///< of csv: ",", ";" or a tab
    QString sheet;           ///< name of the sheet that was read; empty for csv
    Inspection inspection;   ///< empty unless the options ask for it
};

/// Never throws, never hangs; memory stays bounded whatever the file holds. A file of no bytes is a table of
/// no rows.
Table readTable(const QString& path, const ReadOptions& options = {});

/// The same from an open, seekable device.
Table readTable(QIODevice& file, const ReadOptions& options = {});

} // namespace table_reader
