#pragma once

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
    QStringList required;           ///< further columns whose parameter is required
};

struct HeaderMatch {
    QMap<QString, int> columnIndexMap; ///< table column title -> 0-based column of the file
    QStringList optionalMissing;       ///< table columns that the file lacks and may lack
    int directionColumn = -1;          ///< of the file, under its own title only, never under an alias
    int entrustPropColumn = -1;        ///< likewise
    /// The first column that the file must have and lacks; none on success. A column may have the empty
    /// title.
    std::optional<QString> missingColumn;
};

/// Titles match exactly: letter case and blanks count. Stops at the first missing column.
HeaderMatch matchHeader(const QStringList& fileHeader, const WantedColumns& wanted);

} // namespace import
