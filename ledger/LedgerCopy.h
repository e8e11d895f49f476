#pragma once

#include "ledger/store/Address.h"

/// Making a ledger on a server, and carrying one over.
namespace ledger {

/// Tables, rules and roles in an empty database, or those of an older program brought up to date. Harmless
/// when repeated. Whoever does it owns the tables. A file needs none of it.
Outcome<void> initLedger(const Address& address);

/// What was carried over.
struct Copied {
    qint64 batches = 0;
    qint64 instances = 0;
    qint64 entries = 0; ///< of the audit trail
    QString head;       ///< of the audit trail: the same in both
};

/// Carries everything from one ledger into an empty other one, all or nothing, and reads it again there:
/// every row is there, no other is, and the audit trail has the same head. Ceilings and prices of a server
/// are not part of a ledger.
Outcome<Copied> copyLedger(const Address& from, const Address& to);

} // namespace ledger
