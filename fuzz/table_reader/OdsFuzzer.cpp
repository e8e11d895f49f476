#include "fuzz/table_reader/Pieces.h"

/// The content of an OpenDocument spreadsheet, its manifest, settings and named styles, divided by zero
/// bytes.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    samples::Parts parts =
        fuzz::partsOf(data, size, {"content.xml", "META-INF/manifest.xml", "settings.xml", "styles.xml"});
    parts.prepend({QStringLiteral("mimetype"), "application/vnd.oasis.opendocument.spreadsheet"});
    fuzz::readAsFile(samples::zip(parts, false));
    return 0;
}
