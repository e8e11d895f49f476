#pragma once

#include <QString>

/// Fields of a quote snapshot that the dialog reads.
namespace QuotaFields {
inline const QString MaxPx = QStringLiteral("MaxPx");           ///< upper price limit of the day
inline const QString PreClosePx = QStringLiteral("PreClosePx"); ///< previous close
} // namespace QuotaFields
