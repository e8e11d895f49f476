#pragma once

#include "ledger/draft/Prices.h"

namespace batch {

/// The prices of the draft's securities as the host knows them now. GUI thread; the securities are
/// subscribed, as they are after an import.
ledger::Prices hostPrices(const ledger::BatchDraft& draft);

} // namespace batch
