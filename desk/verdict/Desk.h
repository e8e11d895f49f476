#pragma once

#include "desk/broker/BrokerRules.h"
#include "desk/verdict/RuleActions.h"
#include "embedded_host/reference_data/Calendar.h"
#include "ledger/guard/Limits.h"
#include "table/Outcome.h"

#include <QList>
#include <QString>

namespace verdict {

/// What a desk holds its batches against: limits.csv, calendar.csv, rules.csv and
/// strategy_rules.json of a reference data folder.
struct Desk {
    QList<ledger::LimitScope> limits;
    Calendar calendar;
    RuleActions actions;
    broker::BrokerRules brokerRules;

    /// The error is "FILE:LINE: what is wrong".
    static Outcome<Desk> read(const QString& folder);
};

} // namespace verdict
