#pragma once

#include "ledger/values/Decimal.h"

#include <QString>

/// Numbers as the texts that stand on the wire: no digit is lost or made up on the way there and back. What
/// is reckoned with them is the ledger's Decimal.
namespace gateway::wire_number {

/// An optional minus, digits, optionally a point and digits: "12", "-0.50", "12.", ".5". No exponent, no
/// blanks, no plus, no more digits than a Decimal has.
bool isNumber(const QString& text);
/// Digits with an optional minus.
bool isInteger(const QString& text);

/// Its value; of an empty text 0, of what is no number none.
ledger::Decimal valueOf(const QString& text);

/// A hundredth, digit for digit: "15" is "0.15", "1.5" is "0.015", "120" is "1.20".
QString hundredth(const QString& text);

} // namespace gateway::wire_number
