#pragma once

#include "host/QuotaFields.h"

/// Fields of a quote: the columns of quotes.csv and the keys of a snapshot.
namespace QuoteFields {
using namespace QuotaFields; // MaxPx, PreClosePx
inline const QString LastPx = QStringLiteral("LastPx");
inline const QString MinPx = QStringLiteral("MinPx"); ///< lower price limit of the day
} // namespace QuoteFields
