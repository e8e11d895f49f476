#pragma once

#include <QString>

namespace table_reader {

class XmlPart;

/// Reads the text of a shared or inline string, whose element is current and is then left: what stands in
/// `t`, directly or in the runs `r` of a rich text. Phonetic runs are no text of the cell.
QString readRichText(XmlPart& part);

/// Decodes characters that XML cannot hold: "a_x000D_b" has a carriage return, and "_x005F_" an underscore
/// that guards what follows from being decoded.
QString decodeEscapes(const QString& text);

/// Guards what decodeEscapes() would decode, so that it comes back as it is: "_x000D_" becomes
/// "_x005F_x000D_".
QString guardEscapes(const QString& text);

} // namespace table_reader
