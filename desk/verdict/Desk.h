#pragma once

#include "desk/verdict/RuleActions.h"
#include "embedded_host/reference_data/Calendar.h"
#include "ledger/guard/Limits.h"
#include "table/Outcome.h"

#include <QList>
#include <QString>

namespace verdict {

/// What a desk holds its batches against: limits.csv, calendar.csv and rules.csv of a reference data folder.
struct Desk {
    QList<ledger::LimitScope> limits;
    Calendar calendar;
    RuleActions actions;

    /// The error is "FILE:LINE: what is wrong".
    static Outcome<Desk> read(const QString& folder);
};

} // namespace verdict
