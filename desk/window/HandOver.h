#pragma once

#include "desk/batch/DraftBuilder.h"
#include "table/Table.h"

#include <optional>

/// A batch that the user confirmed in the dialog.
struct HandOver {
    batch::DialogContent content;
    table::Table table;                 ///< of the file, as it was imported
    std::optional<qint64> comparedWith; ///< the batch that its table is held against
    bool closeAfterwards = true;        ///< the user wants the dialog closed once the instances exist
};
