#pragma once

#include "table/Outcome.h"

#include <QByteArray>
#include <QList>
#include <QMap>
#include <QString>

/// An XML document from a stranger, as a tree.
namespace atdl {

struct XmlElement {
    QString space; ///< URI of its namespace; empty: none
    QString name;
    QMap<QString, QString> attributes; ///< those without a namespace by their names; xsi:type as "xsi:type"
    QList<XmlElement> children;
    QString text; ///< directly within
    int line = 0;

    bool is(const QString& wantedSpace, const QString& wantedName) const;
    QString attribute(const QString& key) const { return attributes.value(key).trimmed(); }
    bool has(const QString& key) const { return attributes.contains(key); }
    QList<XmlElement> all(const QString& wantedSpace, const QString& wantedName) const;
};

/// Reads it within limits: 4 MiB, 64 levels, 100,000 elements, 64 attributes of one, 65,536 characters of a
/// text. A document type declaration ends it, so that there are no entities; nothing outside is ever read.
/// The error says line and column.
Outcome<XmlElement> readXml(const QByteArray& bytes);

} // namespace atdl
