#pragma once

#include <cstdint>

/// The first byte of an input of fuzz_import: which strategy of the small market, and which account.
namespace fuzz {

constexpr int Strategies = 12;

inline int strategyOf(std::uint8_t head)
{
    return head % Strategies;
}

inline int accountOf(std::uint8_t head)
{
    return head / Strategies;
}

} // namespace fuzz
