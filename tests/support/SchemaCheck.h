#pragma once

#include <QJsonValue>
#include <QString>
#include <QStringList>

/// What is wrong with a value by a schema file of docs/schema/, one line a fault; empty when nothing is.
/// Knows type, required, properties, additionalProperties, items, enum, minimum, anyOf and references to
/// other files.
QStringList faultsBySchema(const QJsonValue& value, const QString& schemaFile);
