#pragma once

#include <QByteArray>
#include <QMap>
#include <QString>
#include <QVariant>

/// How the ledger keeps parameter maps.
namespace ledger {

/// Parameters as JSON and back: texts, numbers, booleans, lists and maps.
QByteArray parametersToText(const QMap<QString, QVariant>& parameters);
QMap<QString, QVariant> parametersFromText(const QByteArray& text);

} // namespace ledger
