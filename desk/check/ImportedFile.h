#pragma once

#include "table/Table.h"

#include <QString>

#include <memory>

namespace table_reader {
class TableFile;
}

/// A file that was chosen for an import, opened once: what the import takes, what is said of it, what is
/// refused and the digest all come of the same bytes, whatever becomes of the file meanwhile.
struct ImportedFile {
    QString path;
    table::Table table;                            ///< inspected
    std::shared_ptr<table_reader::TableFile> file; ///< for the digest, and for another reading

    /// `encoding`: of csv; empty: told from the bytes.
    static ImportedFile read(const QString& path, const QString& encoding = {});
};
