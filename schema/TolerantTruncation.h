#pragma once

#include <QtGlobal>

/// Conversions of a number to an integer that never round to nearest: a quantity must not grow.
namespace schema {

/// Truncates toward zero after stepping 0.000001 away from it, so that 99.9999995 is 100 and 12.7 is 12. What
/// does not fit 32 bits, and what is no number, becomes the least 32-bit integer, which no host takes for a
/// quantity.
qint32 tolerantTruncation(double number);

/// Truncates toward zero. What does not fit 64 bits, and what is no number, becomes the least 64-bit integer.
qint64 truncation64(double number);

} // namespace schema
