#pragma once

#include "table/Fault.h"

#include <QString>

/// How the faults of a batch stand in the dialog's boxes.
namespace validation {

/// One text of all: a fault of a row begins with it and ends its line, but for two. That of a market ends
/// without a line break, so that the next row's text follows on the same line; and where the account is not
/// known, the placeholder has no digit and shows as it stands.
QString textOfBatch(const table::Faults& faults);

/// A line a leg, then what to do.
QString textOfAccountChange(const table::Faults& faults);

} // namespace validation
