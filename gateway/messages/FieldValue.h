#pragma once

#include "gateway/profile/Profile.h"

#include <QDateTime>
#include <QString>
#include <QVariant>

/// A value of the table as it stands on the wire.
namespace gateway {

/// The text of a parameter: texts as they are, numbers digit for digit.
QString textOf(const QVariant& value);

/// By the rule's map of values, then by its type; the error says what the value is not.
///
///     {Percentage}, "15" → "0.15"
///     {UtcTimestamp}, "2026-11-23 09:35:00" → "20261123-01:35:00"
Outcome<QString> wireValue(const ParameterRule& rule, const QString& value);

/// "20261123-01:35:00.123"
QString utcTimestamp(const QDateTime& time);

} // namespace gateway
