#pragma once

#include <QJsonArray>
#include <QMap>
#include <QString>
#include <QStringList>
#include <QVariant>

/// JSON as columns hold it, without blanks.
namespace ledger {

QString jsonText(const QMap<QString, QVariant>& object);
QString jsonText(const QStringList& texts);
QString jsonText(const QList<QStringList>& rows);
/// Empty for an empty one.
QString jsonText(const QJsonArray& array);

QMap<QString, QVariant> objectIn(const QString& json);
QStringList textsIn(const QString& json);
QList<QStringList> rowsIn(const QString& json);
QJsonArray arrayIn(const QString& json);

} // namespace ledger
