#pragma once

#include "desk/ledger/DraftBuilder.h"

/// A batch that the user confirmed in the dialog.
struct HandOver {
    ledger::DialogContent content;
    bool closeAfterwards = true; ///< the user wants the dialog closed once the instances exist
};
