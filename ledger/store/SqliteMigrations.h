#pragma once

#include <QStringList>

namespace ledger {

/// What leads a SQLite ledger from a version of an older program to today's; 0: from none.
QStringList sqliteMigrationFrom(int version);

} // namespace ledger
