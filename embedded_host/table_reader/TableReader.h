#pragma once

#include "table/Table.h"

#include <QString>

class QIODevice;

/// Reads a table file of a trader by its content, whatever its name says.
namespace table_reader {

struct ReadOptions {
    int maxRows = table::RowsToRead;
    QString encoding;     ///< of csv; empty: told from the bytes
    QString sheet;        ///< name of the sheet of a workbook; empty: the first that can be seen
    bool inspect = false; ///< fill Table::inspection and sheets too; costs time, so plain reads leave it away
};

/// See TableFile, which also gives the digest.
table::Table readTable(const QString& path, const ReadOptions& options = {});

/// The same from an open, seekable device.
table::Table readTable(QIODevice& file, const ReadOptions& options = {});

} // namespace table_reader
