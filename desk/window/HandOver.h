#pragma once

#include "desk/batch/DraftBuilder.h"

/// A batch that the user confirmed in the dialog.
struct HandOver {
    batch::DialogContent content;
    bool closeAfterwards = true; ///< the user wants the dialog closed once the instances exist
};
