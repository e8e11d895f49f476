#pragma once

#include <QString>

/// Numbers as the texts that they are: no digit is lost or made up on the way to the wire and back.
namespace gateway::decimal {

/// An optional minus, digits, optionally a point and digits: "12", "-0.50", "12.", ".5". No exponent, no
/// blanks, no plus, at most 40 characters.
bool isNumber(const QString& text);
/// Digits with an optional minus.
bool isInteger(const QString& text);

/// Below, equal or above: -1, 0, 1. Both are numbers.
int compare(const QString& left, const QString& right);
bool isPositive(const QString& text);
bool isNegative(const QString& text);

/// A hundredth, digit for digit: "15" is "0.15", "1.5" is "0.015", "120" is "1.20".
QString hundredth(const QString& text);

} // namespace gateway::decimal
