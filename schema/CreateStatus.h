#pragma once

#include <QString>

namespace schema {

/// Stands for a text that a small vocabulary does not know.
inline const QString UnknownText = QStringLiteral("-1");

/// Whether an instance starts when it was created, as it is shown: 是 or 否; UnknownText for another value.
QString shownCreateStatus(const QString& value);

} // namespace schema
