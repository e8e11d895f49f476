#pragma once

#include <QString>

/// Rules of the last look at a batch, before it is created: what the orders themselves cannot mean. Those of
/// money stand in the ledger.
namespace table::rule {

// ---- rows of the file
inline const QString MissingRows =
    QStringLiteral("rows.missing"); ///< orders of the file, rows that are missing
inline const QString RowsBeyondLimit = QStringLiteral("rows.limit"); ///< the limit

// ---- times
inline const QString NoTime = QStringLiteral("time.none");         ///< start and end are the same moment
inline const QString EndIsPast = QStringLiteral("time.ended");     ///< the end
inline const QString StartIsPast = QStringLiteral("time.started"); ///< the start
inline const QString FarAhead = QStringLiteral("time.far");        ///< the time, days
inline const QString ClosedDay = QStringLiteral("time.closed");    ///< market, day, why
inline const QString OutsideHours = QStringLiteral("time.hours");  ///< time, market
inline const QString DateOnly = QStringLiteral("time.midnight");   ///< title of the column

// ---- directions
inline const QString NoDirection = QStringLiteral("direction.empty");
inline const QString ForeignDirection = QStringLiteral("direction.foreign"); ///< the direction
inline const QString OneSide = QStringLiteral("pair.side");  ///< the pair's number, or the security
inline const QString HalfPair = QStringLiteral("pair.half"); ///< the pair's number

// ---- sizes
inline const QString QuantityIsMoney = QStringLiteral("quantity.money"); ///< quantity, CNY

// ---- what a broker asks of a strategy
inline const QString NoBrokerMarket = QStringLiteral("broker.market");   ///< exchange
inline const QString NoBrokerValue = QStringLiteral("broker.value");     ///< title, value, what it should be
inline const QString BelowBroker = QStringLiteral("broker.least");       ///< title, value, least
inline const QString AboveBroker = QStringLiteral("broker.most");        ///< title, value, most
inline const QString BrokerDecimals = QStringLiteral("broker.decimals"); ///< title, value, how many
inline const QString BrokerTextShort = QStringLiteral("broker.short");   ///< title, value, least length
inline const QString BrokerTextLong = QStringLiteral("broker.long");     ///< title, value, most
inline const QString BrokerCondition = QStringLiteral("broker.condition"); ///< the broker's own words

} // namespace table::rule
