#pragma once

#include "gateway/session/Engine.h"

#include <quickfix/SessionSettings.h>

namespace gateway {

/// The settings of a file with what the program brings: its dictionaries, and leniency towards fields that
/// nobody here reads. False with a sentence in `error` where they cannot be used.
bool loadSettings(const Engine::Options& options, FIX::SessionSettings& settings, std::string& error);

/// A value of a session, else of the defaults, else empty.
std::string settingOf(const FIX::SessionSettings& settings, const FIX::SessionID& session, const char* key);

} // namespace gateway
