#pragma once

#include <QJsonArray>
#include <QMap>
#include <QString>
#include <QStringList>
#include <QVariant>

/// JSON as columns hold it, without blanks, in UTF-8.
namespace ledger {

QByteArray jsonText(const QMap<QString, QVariant>& object);
QByteArray jsonText(const QStringList& texts);
QByteArray jsonText(const QList<QStringList>& rows);
/// Empty for an empty one.
QByteArray jsonText(const QJsonArray& array);

QMap<QString, QVariant> objectIn(const QString& json);
QStringList textsIn(const QString& json);
QList<QStringList> rowsIn(const QString& json);
QJsonArray arrayIn(const QString& json);

} // namespace ledger
