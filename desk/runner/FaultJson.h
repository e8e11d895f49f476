#pragma once

#include "table/Fault.h"

#include <QJsonArray>

namespace runner {

/// docs/schema/fault.schema.json, an array of them.
QJsonArray toJson(const table::Faults& faults);

} // namespace runner
