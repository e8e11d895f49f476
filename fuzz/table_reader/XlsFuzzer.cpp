#include "fuzz/table_reader/FuzzSupport.h"

namespace {

/// A workbook stream without its container is read the same way; it must begin with the record BOF.
bool beginsLikeWorkbook(const std::uint8_t* data, std::size_t size)
{
    return size > 8 && data[0] == 0x09 && data[1] == 0x08;
}

} // namespace

/// The records of a workbook stream.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    if (!beginsLikeWorkbook(data, size)) {
        return -1; // not worth keeping
    }
    fuzz::readAsFile(fuzz::bytesOf(data, size));
    return 0;
}
