#pragma once

#include <QStringList>

namespace ledger {

/// What leads a SQLite ledger from a version of an older program to the next one.
QStringList sqliteMigrationFrom(int version);

} // namespace ledger
