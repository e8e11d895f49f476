#pragma once

#include <QString>

namespace validation {

/// The host's system node of a trading account; empty where the host knows none.
QString nodeOf(const QString& tradingAccount);

} // namespace validation
