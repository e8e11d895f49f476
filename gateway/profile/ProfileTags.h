#pragma once

/// Which fields a profile may fill.
namespace gateway {

/// What the session or the program fills in itself, or what only makes sense inside a group.
bool isReservedTag(int tag);
/// Of those, what a strategy's constants may replace.
bool isReplaceableTag(int tag);

} // namespace gateway
