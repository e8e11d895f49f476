#pragma once

#include "desk/check/FileReport.h"
#include "table/Fault.h"

#include <QJsonArray>
#include <QJsonObject>

namespace runner {

/// docs/schema/fault.schema.json, an array of them.
QJsonArray toJson(const table::Faults& faults);
/// What became of the orders of a file, of which so many were imported: docs/schema/counts.schema.json.
QJsonObject countsOf(const FileReport& report, int imported);

} // namespace runner
