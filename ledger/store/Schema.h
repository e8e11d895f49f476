#pragma once

#include <QSet>
#include <QStringList>

/// The tables of the ledger and how older ones become today's.
namespace ledger {

/// The version that this program writes.
int schemaVersion();

/// Today's tables, in standard SQL, with the store's type of decimals; made in an empty ledger.
QStringList tablesOfToday(const QString& decimalType);
/// Their names in the order in which they may be filled.
QStringList tableNames();
/// Columns of exact decimals, of all tables.
QSet<QString> decimalColumns();

/// Version 3 becomes 4: what was looked for among all batches and days is found by an index.
QStringList stepsToVersionFour();
/// Version 4 becomes 5: a batch has the list of what was changed in its file on the desk.
QStringList stepsToVersionFive();
/// Writes the version down; the last statement of a migration.
QString versionStatement(int version);

} // namespace ledger
