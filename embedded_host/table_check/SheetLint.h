#pragma once

#include "embedded_host/table_check/Findings.h"

namespace table_lint {

/// What the workbook around the table may mean: another sheet, an unknown code page, bytes that were lost.
void lintFile(const table::Table& table, const Expectation& expectation, Findings& findings);

} // namespace table_lint
