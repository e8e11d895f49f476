#pragma once

#include "table/Table.h"

#include <QString>

#include <memory>

namespace table_reader {
class TableFile;
struct ReadOptions;
} // namespace table_reader

/// A file that was chosen for an import, opened once: what the import takes, what is said of it, what is
/// refused and the digest all come of the same bytes, whatever becomes of the file meanwhile.
struct ImportedFile {
    QString path;
    table::Table table;                            ///< inspected
    std::shared_ptr<table_reader::TableFile> file; ///< for the digest, and for another reading

    static ImportedFile read(const QString& path);
    /// In an encoding or from a sheet of the caller's; inspected anyhow.
    static ImportedFile read(const QString& path, table_reader::ReadOptions options);
};
