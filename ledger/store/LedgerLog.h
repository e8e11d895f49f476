#pragma once

#include <QLoggingCategory>

namespace ledger {

/// "algo.ledger": what the stores learn of their databases and tell nobody else.
Q_DECLARE_LOGGING_CATEGORY(lcLedger)

} // namespace ledger
