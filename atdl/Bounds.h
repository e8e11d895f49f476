#pragma once

#include "atdl/Loss.h"
#include "atdl/Parameters.h"

namespace atdl {

/// The entry of strategy_rules.json that holds a parameter to its bounds, in the terms of the table; empty
/// where it has none. What means nothing is a loss.
QJsonObject boundsOf(const XmlElement& element, const Parameter& parameter, LossBook& losses);

} // namespace atdl
