#pragma once

#include "desk/runner/CommandLine.h"
#include "ledger/Ledger.h"

#include <memory>

namespace runner {

/// The ledger that the arguments name.
Outcome<std::shared_ptr<ledger::Ledger>> openLedger(const CommandLine& line, ledger::Ledger::Access access);

} // namespace runner
