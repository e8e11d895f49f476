#pragma once

#include "ledger/draft/BatchDraft.h"

namespace ledger {

struct ChangedCell {
    int oldRow = 0; ///< 1-based
    int newRow = 0;
    QString column;
    QString before;
    QString after;
};

struct DiffRow {
    int row = 0; ///< 1-based, in its own table
    QStringList cells;
};

/// What an edited file changes against the batch imported earlier.
struct BatchDiff {
    QStringList columnsAdded;
    QStringList columnsRemoved;
    QList<DiffRow> rowsAdded;   ///< cells in the order of the new table's columns
    QList<DiffRow> rowsRemoved; ///< cells in the order of the old table's columns
    QList<ChangedCell> cellsChanged;
    QStringList oldColumns;
    QStringList newColumns;

    bool isEmpty() const;
};

/// Matches rows by the key columns (security, market, direction), as far as both tables have them: rows that
/// are alike in every cell first, the rest in their order. Cells are compared by column name.
BatchDiff compareTables(const BatchTable& before, const BatchTable& after, const QStringList& keyColumns);

} // namespace ledger
