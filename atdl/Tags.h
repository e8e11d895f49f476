#pragma once

#include "atdl/XmlTree.h"
#include "gateway/profile/ProfileTags.h"

/// FIX fields that a document names.
namespace atdl {

constexpr int SideTag = 54; ///< the row's direction says it

/// The field that an attribute names; 0: none that a strategy may use.
inline int usableTagOf(const XmlElement& element, const QString& attribute)
{
    const int tag = element.attribute(attribute).toInt();
    return tag < 1 || tag == SideTag || gateway::isReservedTag(tag) ? 0 : tag;
}

} // namespace atdl
