#pragma once

#include "ledger/values/Decimal.h"

/// Sums of money and prices, in every locale alike: the same number always looks the same.
namespace money {

/// As a trader reads them: 1,234,567.00.
inline QString shown(const ledger::Decimal& amount)
{
    constexpr int cents = 2;
    return amount.shown(cents);
}

/// As other programs read them: 1234567.00.
inline QString plain(const ledger::Decimal& amount)
{
    return shown(amount).remove(QLatin1Char(','));
}

/// A price with the decimals of its security, and with more where it has more: 36.20, 1.205, 11.5533.
inline QString price(const ledger::Decimal& number, int decimals)
{
    constexpr int most = 12;
    int places = decimals;
    while (places < most && number.rounded(places) != number) {
        ++places;
    }
    return number.shown(places).remove(QLatin1Char(','));
}

} // namespace money
