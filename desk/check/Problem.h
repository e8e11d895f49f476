#pragma once

#include "table/Fault.h"

/// A fault of what the user has before him.
struct Problem {
    enum class Subject {
        File, ///< the imported file; `line` says where
        Batch ///< the batch that stands in the table; `row` says where
    };

    table::Fault fault;
    Subject subject = Subject::File;
};
