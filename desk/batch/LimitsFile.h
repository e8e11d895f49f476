#pragma once

#include "ledger/guard/Limits.h"

#include <QList>
#include <QString>

#include <optional>

namespace batch {

/// Reads limits.csv of a reference data folder (docs/ledger.md lists its columns); no such file: no ceilings.
/// On a fault returns nothing and sets `error` to "FILE:LINE: what is wrong".
std::optional<QList<ledger::LimitScope>> readLimits(const QString& folder, QString& error);

} // namespace batch
