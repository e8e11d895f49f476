#pragma once

#include <QString>

/// Fields of a quote snapshot. The dialog itself reads the first two; the others are for
/// CommonQuotaHandler::getLastPriceFromTick and whoever shows quotes.
namespace QuotaFields {
inline const QString MaxPx = QStringLiteral("MaxPx");           ///< upper price limit of the day
inline const QString PreClosePx = QStringLiteral("PreClosePx"); ///< previous close
inline const QString MinPx = QStringLiteral("MinPx");           ///< lower price limit of the day
inline const QString LastPx = QStringLiteral("LastPx");         ///< last price
} // namespace QuotaFields
