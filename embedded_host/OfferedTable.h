#pragma once

#include "table/Table.h"

#include <QString>

#include <optional>

/// A table that was read already, waiting for the import that wants it, so that a file is read once and all
/// who speak of it mean the same rows.
class OfferedTable {
public:
    /// For the next read of exactly this path; what was offered before is forgotten.
    void offer(const QString& path, const table::Table& table)
    {
        mPath = path;
        mTable = table;
    }

    /// The table, once, where it was offered for this path. Whatever else was offered is forgotten: a file
    /// that is read later may have changed.
    std::optional<table::Table> take(const QString& path)
    {
        std::optional<table::Table> offered;
        if (path == mPath) {
            offered.swap(mTable);
        }
        mTable.reset();
        return offered;
    }

private:
    QString mPath;
    std::optional<table::Table> mTable;
};
