#pragma once

#include <QString>

namespace table_reader {

class XmlPart;

/// Reads a paragraph, whose element is current and is then left: its text with runs, counted blanks (text:s),
/// tabs and line breaks; blanks of the XML itself run together into one, and those at the beginning are
/// dropped.
QString readOdsParagraph(XmlPart& part);

} // namespace table_reader
