#pragma once

namespace table {

/// Rows behind the header of which one import takes no more.
constexpr int MaxDataRows = 1000;

} // namespace table
