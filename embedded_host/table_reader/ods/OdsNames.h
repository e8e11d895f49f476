#pragma once

#include "embedded_host/table_reader/shared/XmlPart.h"

/// Namespaces of OpenDocument files.
namespace table_reader::ods {

constexpr XmlNamespace Office = {latin1("urn:oasis:names:tc:opendocument:xmlns:office:1.0"), QLatin1String()};
constexpr XmlNamespace TableSpace = {latin1("urn:oasis:names:tc:opendocument:xmlns:table:1.0"),
                                     QLatin1String()};
constexpr XmlNamespace Text = {latin1("urn:oasis:names:tc:opendocument:xmlns:text:1.0"), QLatin1String()};
constexpr XmlNamespace Style = {latin1("urn:oasis:names:tc:opendocument:xmlns:style:1.0"), QLatin1String()};
constexpr XmlNamespace DataStyle = {latin1("urn:oasis:names:tc:opendocument:xmlns:datastyle:1.0"),
                                    QLatin1String()};
constexpr XmlNamespace Config = {latin1("urn:oasis:names:tc:opendocument:xmlns:config:1.0"), QLatin1String()};
constexpr XmlNamespace Manifest = {latin1("urn:oasis:names:tc:opendocument:xmlns:manifest:1.0"),
                                   QLatin1String()};
constexpr QLatin1String CalcExtension =
    latin1("urn:org:documentfoundation:names:experimental:calc:xmlns:calcext:1.0");

inline QStringRef value(const XmlAttributes& attributes, const XmlNamespace& space, const char* name)
{
    return attributes.value(space.usual, QLatin1String(name));
}

} // namespace table_reader::ods
