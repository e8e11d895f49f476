#pragma once

#include "fuzz/table_reader/FuzzSupport.h"
#include "tests/table_reader/Samples.h"

namespace fuzz {

/// An archive of parts with these names. Their contents are the pieces of the input between zero bytes; names
/// beyond the pieces are left away. So the fuzzer changes the parts themselves and need not find its way
/// through compression and checksums.
inline samples::Parts partsOf(const std::uint8_t* data, std::size_t size,
                              std::initializer_list<const char*> names)
{
    const QList<QByteArray> pieces = bytesOf(data, size).split('\0');
    samples::Parts parts;
    int at = 0;
    for (const char* const name : names) {
        if (at < pieces.size()) {
            parts.append({QString::fromLatin1(name), pieces.at(at++)});
        }
    }
    return parts;
}

} // namespace fuzz
