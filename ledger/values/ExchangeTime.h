#pragma once

#include <QDateTime>

/// The exchanges' own time, wherever the program runs: UTC+8, without summer time.
namespace ledger {

inline QDateTime exchangeTime(const QDateTime& at)
{
    constexpr int UtcOffset = 8 * 3600;
    return at.toOffsetFromUtc(UtcOffset);
}

/// The day that began at the last midnight in Shanghai.
inline QDate exchangeDay(const QDateTime& at)
{
    return exchangeTime(at).date();
}

inline QDateTime startOfExchangeDay(const QDateTime& at)
{
    QDateTime midnight = exchangeTime(at);
    midnight.setTime(QTime(0, 0));
    return midnight;
}

} // namespace ledger
