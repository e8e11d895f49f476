#pragma once

#include "desk/runner/CommandLine.h"
#include "desk/runner/Commands.h"
#include "ledger/Ledger.h"

#include <memory>
#include <optional>

/// What the subcommands of the ledger share.
namespace runner {

using LedgerPointer = std::shared_ptr<ledger::Ledger>;

/// Where the arguments, the environment or else the home say that the ledger is.
Outcome<ledger::Address> ledgerAddress(const CommandLine& line);
/// The ledger that the arguments name.
Outcome<LedgerPointer> openLedger(const CommandLine& line, ledger::Ledger::Access access);
/// One that is there: a home that was mistyped must not get a ledger, nor pass for an empty one.
Outcome<LedgerPointer> openExistingLedger(const CommandLine& line, ledger::Ledger::Access access);
/// Whether there is a ledger to open; one on a server is asked itself.
bool isLedgerThere(const CommandLine& line);

/// A batch as it is named; nothing where the text is no number of one.
std::optional<qint64> batchNumber(const QString& text);
Result refuseNumber(const QString& text);
/// {"error": …}
Result complain(const QString& error);

} // namespace runner
