#pragma once

#include "embedded_host/table_reader/shared/XmlPart.h"

/// Namespaces and relationship types of Office Open XML workbooks.
namespace table_reader {

constexpr XmlNamespace Sheet = {latin1("http://schemas.openxmlformats.org/spreadsheetml/2006/main"),
                                latin1("http://purl.oclc.org/ooxml/spreadsheetml/main")};
constexpr XmlNamespace Relationship = {
    latin1("http://schemas.openxmlformats.org/officeDocument/2006/relationships"),
    latin1("http://purl.oclc.org/ooxml/officeDocument/relationships")};
constexpr XmlNamespace PackageRelationship = {
    latin1("http://schemas.openxmlformats.org/package/2006/relationships"), QLatin1String()};
constexpr XmlNamespace ContentTypes = {latin1("http://schemas.openxmlformats.org/package/2006/content-types"),
                                       QLatin1String()};

} // namespace table_reader
