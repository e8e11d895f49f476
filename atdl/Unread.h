#pragma once

#include "atdl/Loss.h"
#include "atdl/XmlTree.h"

namespace atdl {

/// Everything within a strategy that nobody here knows or makes use of, by name: elements, and attributes of
/// those that are known. What tells of a ticket's looks alone (panels, tooltips, help texts, pictures) is not
/// asked of a table, and is passed over.
void tellOfUnread(const XmlElement& strategy, LossBook& losses);
/// The same of the document's own attributes.
void tellOfUnreadOfDocument(const XmlElement& document, LossBook& losses);

} // namespace atdl
