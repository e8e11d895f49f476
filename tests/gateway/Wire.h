#pragma once

#include <string>
#include <utility>
#include <vector>

/// FIX on the wire, as the tests' own counterparty reads and writes it, with nobody's engine.
namespace wire {

using Fields = std::vector<std::pair<int, std::string>>;

/// The fields of a whole message in their order.
Fields parse(const std::string& message);
/// Empty where there is none; of several the first.
std::string get(const Fields& fields, int tag);
bool has(const Fields& fields, int tag);

/// Takes the first whole message off a stream; empty where there is none yet.
std::string takeMessage(std::string& stream);

/// With BodyLength and CheckSum; `body` is everything behind 9.
std::string frame(const std::string& beginString, const Fields& body);

/// With bars instead of separators.
std::string shown(const std::string& message);
/// Without what changes from run to run: 8, 9, 34, 49, 52, 56, 60, 10.
std::string essence(const std::string& message);

std::string utcNow();

} // namespace wire
