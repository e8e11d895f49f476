#pragma once

#include <QList>
#include <QString>
#include <QStringList>

/// Reads a table file of a trader by its content, whatever its name says.
namespace table_reader {

/// A header row, 1,000 data rows, and one more by which the import knows that there are too many.
constexpr int MaxRows = 1002;

struct ReadOptions {
    int maxRows = MaxRows;
    QString encoding; ///< of csv; empty: told from the bytes
};

struct Table {
    QList<QStringList> rows; ///< cell texts, blanks included; empty when `error` is not
    QString error;           ///< a Chinese sentence for the user; empty on success
    QString format;          ///< csv, xlsx, xls, ods; empty when the file is none of them
    QString encoding;        ///< of csv: UTF-8, UTF-16LE, UTF-16BE, GB18030, or what the options named
    QString separator;       ///< of csv: ",", ";" or a tab
    QString sheet;           ///< name of the sheet that was read; empty for csv
};

/// Never throws, never hangs; memory stays bounded whatever the file holds.
Table readTable(const QString& path, const ReadOptions& options = {});

} // namespace table_reader
