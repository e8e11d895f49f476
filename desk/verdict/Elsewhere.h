#pragma once

#include "desk/verdict/Summary.h"
#include "ledger/Ledger.h"
#include "table/Fault.h"

namespace verdict {

/// What the ledger holds of today beside the batch at hand.
struct Elsewhere {
    Summary::Side day; ///< of the batch's account, without it
    int instances = 0;
    table::Faults faults; ///< the same file or the same orders on another account
};

/// `now` decides which day it is on the exchanges.
Outcome<Elsewhere> lookElsewhere(const ledger::Ledger& ledger, const ledger::BatchDraft& draft,
                                 const QDateTime& now);

} // namespace verdict
