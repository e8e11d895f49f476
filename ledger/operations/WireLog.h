#pragma once

#include "ledger/records/Records.h"
#include "ledger/store/Statements.h"

#include <QJsonObject>

/// What gateways say and hear, kept in the audit trail: whoever follows its chain sees that no message was
/// dropped or changed afterwards.
namespace ledger::audit {

/// AuditEntry::what of a lot of messages.
inline const QString Wire = QStringLiteral("wire");

/// AuditEntry::detail of it.
QJsonObject detailOf(const QList<WireMessage>& messages);
/// Of the newest lots behind an entry, at most so many: oldest first.
QList<WireMessage> selectWire(Statements& statements, qint64 behind, int mostLots);

} // namespace ledger::audit
