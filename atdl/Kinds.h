#pragma once

#include "atdl/XmlTree.h"

/// The types of the standard, as the desk treats them.
namespace atdl {

/// How a value is typed into a table.
enum class Kind {
    Whole,
    Number,
    Percent, ///< 15 in the table, 0.15 in the document's bounds and on the wire
    Text,
    Flag,    ///< 1 and 0
    Choice,  ///< enumID of an enumeration
    Several, ///< wire values of an enumeration, blanks between
    Moment,  ///< date and time
    Clock,   ///< likewise; the time alone goes out
    Day,
};

bool isNumeric(Kind kind);
bool isTime(Kind kind);

struct Type {
    const char* name; ///< of the standard: Qty_t
    Kind kind;
    const char* wire; ///< as profiles name it: Qty
};

/// xsi:type without the prefix of a namespace.
QString typeNameOf(const XmlElement& element);
/// Null for a type that no table can hold.
const Type* typeOf(const XmlElement& element);

} // namespace atdl
