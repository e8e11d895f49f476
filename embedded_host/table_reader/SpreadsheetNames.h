#pragma once

#include "embedded_host/table_reader/XmlPart.h"

/// Namespaces and relationship types of Office Open XML workbooks.
namespace table_reader {

constexpr XmlNamespace Sheet = {QLatin1String("http://schemas.openxmlformats.org/spreadsheetml/2006/main"),
                                QLatin1String("http://purl.oclc.org/ooxml/spreadsheetml/main")};
constexpr XmlNamespace Relationship = {
    QLatin1String("http://schemas.openxmlformats.org/officeDocument/2006/relationships"),
    QLatin1String("http://purl.oclc.org/ooxml/officeDocument/relationships")};
constexpr XmlNamespace PackageRelationship = {
    QLatin1String("http://schemas.openxmlformats.org/package/2006/relationships"), QLatin1String()};
constexpr XmlNamespace ContentTypes = {
    QLatin1String("http://schemas.openxmlformats.org/package/2006/content-types"), QLatin1String()};

} // namespace table_reader
