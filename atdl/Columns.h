#pragma once

#include "atdl/Loss.h"
#include "atdl/Parameters.h"

namespace atdl {

/// The entry of the format document for a parameter: its title, editor, choices and what an empty cell means.
/// `control` is null where no control of the layout shows it. What cannot be a default is a loss.
QJsonObject columnOf(const XmlElement& element, const XmlElement* control, const Parameter& parameter,
                     LossBook& losses);

} // namespace atdl
