#pragma once

#include "table/Fault.h"
#include "validation/BatchRules.h"

namespace validation {

/// Has every instance and every leg trade through another account: the host's node of it, itself, and its
/// security account on each leg's exchange, empty where it holds none. One fault for each such leg.
/// `tradingAccount` is what is written, `chosen` the account whose security accounts are asked for.
table::Faults changeAccount(Instances& instances, const QString& tradingAccount, const QString& chosen);

} // namespace validation
