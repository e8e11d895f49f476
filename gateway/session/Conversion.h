#pragma once

#include "gateway/messages/Message.h"

#include <quickfix/Message.h>

namespace gateway {

/// To the engine's message: fields that belong into the header go there, groups keep the order of their
/// fields.
FIX::Message toEngine(const Message& message);
/// From it: all of the body, its groups one deep, and the header.
Message fromEngine(const FIX::Message& message);

/// A message on the wire with the values of credentials replaced by stars.
std::string masked(const std::string& text);

} // namespace gateway
