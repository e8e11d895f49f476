#include "ledger/store/ParameterText.h"

#include <QJsonDocument>
#include <QJsonObject>

namespace ledger {

QByteArray parametersToText(const QMap<QString, QVariant>& parameters)
{
    return QJsonDocument(QJsonObject::fromVariantMap(parameters)).toJson(QJsonDocument::Compact);
}

QMap<QString, QVariant> parametersFromText(const QByteArray& text)
{
    return QJsonDocument::fromJson(text).object().toVariantMap();
}

} // namespace ledger
