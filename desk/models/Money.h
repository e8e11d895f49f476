#pragma once

#include "ledger/values/Decimal.h"

/// Sums of money, in every locale alike.
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

} // namespace money
