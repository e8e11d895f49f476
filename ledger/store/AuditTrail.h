#pragma once

#include "ledger/records/Records.h"
#include "ledger/store/Statements.h"

/// The chain of entries: each one's hash covers the one before it.
namespace ledger::audit {

/// What stands before the first entry.
QString genesis();
/// Of an entry whose `hash` plays no part.
QString hashOf(const QString& before, const AuditEntry& entry);

/// Appends an entry behind the last one; its number and hash are filled in.
void append(Statements& statements, AuditEntry& entry);
QList<AuditEntry> select(Statements& statements, qint64 from, int most);
/// Follows the whole chain.
AuditVerdict verify(Statements& statements);
/// Whether that very entry stands in the ledger.
bool stands(Statements& statements, const AuditEntry& entry);

} // namespace ledger::audit
