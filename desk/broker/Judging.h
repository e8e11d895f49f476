#pragma once

#include "desk/broker/BrokerRules.h"

namespace broker {

/// What the parameters of an order break; a pure function.
table::Faults faultsOf(const Rules& rules, const QMap<QString, QVariant>& parameters);

} // namespace broker
