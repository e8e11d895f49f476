#pragma once

#include "embedded_host/table_check/Findings.h"

#include <QMap>

namespace table_lint {

/// Where a file has the columns that the check looks at; -1: nowhere.
struct FileColumns {
    FileColumns(const table::Table& table, const Expectation& expectation);

    QStringList titles; ///< of each file column the table's; empty: the import reads it for none
    int code = -1;
    int market = -1;
    int name = -1;
    int quantity = -1;
    int direction = -1;
    QMap<int, NumberKind> numbers;
};

/// Titles that the import does not know, or reads otherwise than they are meant; and other strategies that
/// the header fits better.
void lintHeader(const table::Table& table, const Expectation& expectation, Findings& findings);

} // namespace table_lint
