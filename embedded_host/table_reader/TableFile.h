#pragma once

#include "embedded_host/table_reader/TableReader.h"
#include "table/Outcome.h"

#include <QDateTime>
#include <QFile>

namespace table_reader {

/// A trader's file, opened once for all that is asked of it: what stands at its path later is another matter.
/// The table takes its first rows, the digest all of its bytes; of a large file the digest may be taken by
/// another thread, once read() has returned.
///
///     auto file = std::make_shared<TableFile>(path);
///     const table::Table table = file->read(options);
///     … file->sha256() …                     // here, or in the background
class TableFile {
public:
    explicit TableFile(const QString& path);
    TableFile(const TableFile&) = delete;
    TableFile& operator=(const TableFile&) = delete;

    /// Never throws, never hangs; memory stays bounded whatever the file holds. A file of no bytes is a table
    /// of no rows.
    table::Table read(const ReadOptions& options = {});

    /// Hexadecimal digits of all bytes. The error is a sentence for the user: the file cannot be read, or it
    /// was written to since it was opened, so that the digest is not the one of the table.
    Outcome<QString> sha256();

private:
    /// As the file was when it was opened.
    struct Stamp {
        qint64 size = 0;
        QDateTime modified;
        bool operator==(const Stamp& other) const { return size == other.size && modified == other.modified; }
    };
    Stamp stamp() const;

    QFile mFile;
    QString mRefusal; ///< why it cannot be opened; empty where it can
    Stamp mOpened;
};

} // namespace table_reader
