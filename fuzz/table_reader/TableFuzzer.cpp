#include "fuzz/table_reader/FuzzSupport.h"

/// Any bytes as a file: the choice of the format, csv with its encodings, and containers as they are.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    fuzz::readAsFile(fuzz::bytesOf(data, size));
    return 0;
}
