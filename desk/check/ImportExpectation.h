#pragma once

#include "embedded_host/table_check/Expectation.h"

class ReferenceData;

/// What the file check compares a file with: what the import under a strategy makes of it. `titles`: the
/// columns of the strategy's table; empty with an empty `strategy`: of no strategy. The reference data must
/// outlive it.
table_lint::Expectation importExpectation(const QString& strategy, const QStringList& titles,
                                          const ReferenceData& data);
