#pragma once

#include <QString>

/// Rules of the last look at a batch, before it is created: what the orders themselves cannot mean, and, of
/// one word each, what the ledger holds against them. Programs know the latter by that word.
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
inline const QString ShortTime = QStringLiteral("time.short");     ///< seconds
inline const QString SeveralDays = QStringLiteral("time.days");    ///< the start's day, the end's
inline const QString DateOnly = QStringLiteral("time.midnight");   ///< title of the column

// ---- directions
inline const QString NoDirection = QStringLiteral("direction.empty");
inline const QString ForeignDirection = QStringLiteral("direction.foreign"); ///< the direction
inline const QString OneSide = QStringLiteral("pair.side");           ///< the pair's number, or the security
inline const QString PairTimes = QStringLiteral("pair.times");        ///< the pair's number
inline const QString OddRateOfDay = QStringLiteral("price.rate.day"); ///< rate, the last one
inline const QString HalfPair = QStringLiteral("pair.half");          ///< the pair's number

// ---- accounts
inline const QString OtherAccount = QStringLiteral("account.other"); ///< as typed, the chosen one

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

// ---- of the ledger: %1 is how many rows, securities or batches are concerned, unless told otherwise
inline const QString NotShown = QStringLiteral("notShown"); ///< rows shown, instances
inline const QString NoQuantity = QStringLiteral("noQuantity");
inline const QString Negative = QStringLiteral("negative");
inline const QString BatchRows = QStringLiteral("batchRows");           ///< rows, ceiling
inline const QString Participation = QStringLiteral("participation");   ///< count, ceiling
inline const QString RowQuantity = QStringLiteral("rowQuantity");       ///< likewise
inline const QString RowAmount = QStringLiteral("rowAmount");           ///< likewise
inline const QString SecurityAmount = QStringLiteral("securityAmount"); ///< count, ceiling, securities
inline const QString GrossBuy = QStringLiteral("grossBuy");             ///< amount, ceiling
inline const QString GrossSell = QStringLiteral("grossSell");           ///< likewise
inline const QString PriceDistance = QStringLiteral("priceDistance");   ///< count, ceiling
inline const QString Unpriced = QStringLiteral("unpriced");
inline const QString Halted = QStringLiteral("halted");                       ///< the halts
inline const QString DayBuy = QStringLiteral("dayBuy");                       ///< amount, ceiling
inline const QString DaySell = QStringLiteral("daySell");                     ///< likewise
inline const QString DayInstances = QStringLiteral("dayInstances");           ///< likewise
inline const QString CreatedMeanwhile = QStringLiteral("createdMeanwhile");   ///< user, batch, account
inline const QString SameFile = QStringLiteral("sameFile");                   ///< count, batches
inline const QString SameFileElsewhere = QStringLiteral("sameFileElsewhere"); ///< likewise
inline const QString SameFileLately = QStringLiteral("sameFileLately");       ///< likewise
inline const QString SameRows = QStringLiteral("sameRows");                   ///< likewise
inline const QString BothSides = QStringLiteral("bothSides");                 ///< count, securities
inline const QString MoneyLikeQuantity = QStringLiteral("moneyLikeQuantity");
inline const QString ZeroLimit = QStringLiteral("zeroLimit");
inline const QString EndBeforeStart = QStringLiteral("endBeforeStart");

/// Whether a rule is the ledger's.
inline bool isOfLedger(const QString& rule)
{
    return !rule.contains(QLatin1Char('.'));
}

} // namespace table::rule
