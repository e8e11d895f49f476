#include "fuzz/table_reader/Pieces.h"

/// The parts of a workbook, sheet first, as pieces divided by zero bytes.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    static const QByteArray root = samples::RelationshipsOpen +
                                   samples::relationship("r", "officeDocument", "xl/workbook.xml") +
                                   "</Relationships>";
    samples::Parts parts =
        fuzz::partsOf(data, size,
                      {"xl/worksheets/sheet1.xml", "xl/sharedStrings.xml", "xl/styles.xml", "xl/workbook.xml",
                       "xl/_rels/workbook.xml.rels", "xl/worksheets/sheet2.xml"});
    parts.prepend({QStringLiteral("_rels/.rels"), root});
    fuzz::readAsFile(samples::zip(parts, false));
    return 0;
}
