#pragma once

#include "desk/mapping/Mapping.h"

#include <optional>

class EmbeddedHost;

namespace mapping {

/// The mappings that a person made, in the host's settings under the header for which each was made: the same
/// titles under the same strategy are told alike the next time, wherever the header stands.
class MappingMemory {
public:
    explicit MappingMemory(EmbeddedHost& host) : mHost(host) {}

    /// That of one of the table's first rows, with that row's line; nothing where none is known. It may ask
    /// for another sheet than the table's, and may fit the table's cells no longer.
    std::optional<Mapping> find(const QString& strategy, const table::Table& table) const;
    /// `chosen`: the table of the mapping's sheet; `first`: the one that the reader chooses.
    void remember(const Mapping& mapping, const table::Table& chosen, const table::Table& first);
    void forget(const Mapping& mapping, const table::Table& table);

private:
    EmbeddedHost& mHost;
};

/// SHA-256 of strategy and titles, in hexadecimal digits; empty cells at the end do not count.
QString fingerprint(const QString& strategy, const QStringList& header);

} // namespace mapping
