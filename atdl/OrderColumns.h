#pragma once

#include <QJsonArray>
#include <QJsonObject>
#include <QString>

/// The columns that every strategy of a broker has, beside its own parameters.
namespace atdl {

/// Security, quantity, direction and limit price: entries of a format document.
QJsonArray orderColumns();

/// The trader's own note, which does not go out.
inline const QString Remark = QStringLiteral("实例备注");
QJsonObject remarkColumn();

} // namespace atdl
