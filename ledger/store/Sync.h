#pragma once

#include <QString>

namespace ledger {

/// Carries a file to the disk, and the names in a folder; whether that could be done.
bool syncFile(const QString& path);
bool syncFolder(const QString& path);

} // namespace ledger
