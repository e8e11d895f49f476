#pragma once

#include "ledger/guard/Limits.h"
#include "ledger/records/Records.h"
#include "ledger/store/Statements.h"

namespace ledger {

/// SHA-256 over what a second person approves: the batch and its instances as the ledger holds them, the
/// limits and the verdict that they were judged by. Hexadecimal digits.
QString digestOf(Statements& statements, const Batch& batch, const Limits& limits, const QString& verdict);

} // namespace ledger
