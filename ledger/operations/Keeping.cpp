// The audit trail, and keeping the ledger safe.

#include "ledger/operations/Core.h"
#include "ledger/store/AuditTrail.h"

namespace ledger {

Outcome<void> Ledger::awaitTurn()
{
    return {mCore->change<bool>([](Change&) { return Outcome<bool>{true, QString()}; }).error};
}

Outcome<QList<AuditEntry>> Ledger::audit(qint64 from, int most) const
{
    return mCore->read<QList<AuditEntry>>([&](Statements& statements) {
        return Outcome<QList<AuditEntry>>{audit::select(statements, from, most), QString()};
    });
}

Outcome<AuditVerdict> Ledger::verifyAudit() const
{
    return mCore->read<AuditVerdict>([&](Statements& statements) {
        return Outcome<AuditVerdict>{audit::verify(statements), QString()};
    });
}

QString Ledger::verify() const
{
    return mCore->store->verify();
}

Outcome<void> Ledger::backup(const QString& file) const
{
    return {mCore->store->backup(file)};
}

Outcome<void> Ledger::vacuum()
{
    return {mCore->options.access == Access::Read ? texts::openedForReading(path()) : mCore->store->vacuum()};
}

} // namespace ledger
