#include "ledger/store/LedgerLog.h"

namespace ledger {

Q_LOGGING_CATEGORY(lcLedger, "algo.ledger")

} // namespace ledger
