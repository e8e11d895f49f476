#pragma once

#include "ledger/records/Records.h"
#include "ledger/store/Statements.h"
#include "ledger/store/Store.h"

#include <QJsonObject>

namespace ledger {

/// One change of the ledger, while its transaction is open.
struct Change {
    Statements& statements;
    Store& store;
    const QDateTime at; ///< UTC
    const QString by;
    const QString program;
    QList<AuditEntry> entries; ///< appended at its end

    /// Notes what is changed, for the audit trail.
    void note(const QString& what, const QString& subject, const QJsonObject& detail = {});
};

} // namespace ledger
