#pragma once

#include "strategy/Strategy.h"
#include "table/Fault.h"

#include <QMap>
#include <QString>
#include <QStringList>

#include <optional>

/// Finds the columns of an import file by its header row.
namespace import {

/// What the table wants of the file.
struct WantedColumns {
    QStringList titles;             ///< the table's columns, in table order
    QMap<QString, QString> aliases; ///< title that a file may use -> column title; read in both directions
    QStringList compulsory;         ///< columns that the file must have
};

struct HeaderMatch {
    QStringList fileTitles;            ///< the header that was matched
    QMap<QString, int> columnIndexMap; ///< table column title -> 0-based column of the file
    QStringList optionalMissing;       ///< table columns that the file lacks and may lack
    int directionColumn = -1;          ///< of the file, under its own title only, never under an alias
    int entrustPropColumn = -1;        ///< likewise
    /// The first column that the file must have and lacks; none on success. A column may have the empty
    /// title.
    std::optional<QString> missingColumn;

    /// The file's column under a title of the table; -1 when it has none.
    int columnOf(const QString& title) const { return columnIndexMap.value(title, -1); }
};

WantedColumns wantedColumns(const strategy::Strategy& strategy);

/// Titles match exactly: letter case and blanks count. Stops at the first missing column.
HeaderMatch matchHeader(const QStringList& fileHeader, const WantedColumns& wanted);

/// A header or data row as the strategy's columns want it. Strategies that always start on creation have no
/// column for it in their files: their rows are read as if they had it in front.
QStringList completedHeader(const QStringList& header, const strategy::Traits& traits);
QStringList completedRow(const QStringList& cells, const strategy::Traits& traits);

/// That the file lacks the missing column.
table::Fault missingColumnFault(const HeaderMatch& header);

/// Where a row's fault stands: the column under this title of the table, and what the row, completed, holds
/// there.
void place(table::Fault& fault, const HeaderMatch& header, const QString& title, const QStringList& cells);

} // namespace import
