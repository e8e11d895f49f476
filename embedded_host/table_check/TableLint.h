#pragma once

#include "embedded_host/table_check/Expectation.h"
#include "table/Fault.h"
#include "table/Table.h"

#include <QList>
#include <QString>
#include <QStringList>

/// Looks for what may go wrong when a table is imported. Never changes a value; the reader's options must
/// have asked for inspection, or nothing is told of what only a spreadsheet has.
namespace table_lint {

/// A fault of the file check, whose rules are those of table/CheckRules.h, and where it stands on the sheet.
struct Finding {
    table::Fault fault;      ///< its cell is the text in question, as stored
    QString address;         ///< A1; of a whole row its number; empty where the finding is of the file
    QStringList suggestions; ///< titles, securities or numbers that could be meant
};

/// Of one rule at most this many, so that a thousand harmless findings hide no harmful one.
constexpr int MaxFindings = 1000;

/// All findings: of the file first, then of titles, then of rows and cells, row by row.
QList<Finding> lint(const table::Table& table, const Expectation& expectation);

} // namespace table_lint
