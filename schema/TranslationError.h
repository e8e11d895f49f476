#pragma once

#include <QString>

namespace schema {

/// Shown text of a cell that could not be translated.
inline const QString TranslationError = QStringLiteral("TRANS_ERROR");

/// %1 column, %2 accepted values.
inline const QString NotSupported = QStringLiteral("%1不支持，目前支持：%2");

} // namespace schema
