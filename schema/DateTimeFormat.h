#pragma once

#include <QString>

namespace schema {

/// How a date and time is shown and sent, for example 2024-03-05 09:30:00.
inline const QString SentDateTimeFormat = QStringLiteral("yyyy-MM-dd HH:mm:ss");

/// How one is typed: as above, with or without leading zeros.
inline const QString TypedDateTimeFormat = QStringLiteral("yyyy-M-d H:m:s");

} // namespace schema
