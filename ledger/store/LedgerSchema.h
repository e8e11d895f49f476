#pragma once

#include <QSqlDatabase>
#include <QSqlError>

/// The tables of the ledger and how older ones become today's. Standard SQL.
namespace ledger {

/// The version that this program writes; each has one list of statements that leads to it from the one
/// before.
int schemaVersion();

/// 0: no tables yet.
qint64 versionOf(const QSqlDatabase& database);

/// Brings the tables up to `version` in one transaction; an invalid error means success.
QSqlError migrate(const QSqlDatabase& database, int version = schemaVersion());

} // namespace ledger
