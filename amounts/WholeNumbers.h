#pragma once

#include <QString>
#include <QtGlobal>

/// Whole numbers out of doubles and of each other, never to nearest: a quantity must not grow. What is no
/// quantity becomes the least integer, which no host takes for one.
namespace amounts {

/// Truncates toward zero after stepping 0.000001 away from it, so that 99.9999995 is 100 and 12.7 is 12. What
/// does not fit 32 bits, and what is no number, becomes the least 32-bit integer.
qint32 tolerantTruncation(double number);

/// Truncates toward zero. What does not fit 64 bits, and what is no number, becomes the least 64-bit integer.
qint64 truncation64(double number);

/// A divisor that reference data supplies (display factor, quantity step): 0 is logged and taken as 1.
/// `origin` names the security in the log.
int guardedDivisor(int divisor, const QString& origin);

/// Toward zero. The least integer, which stands for what is no quantity, stays itself when it is divided by
/// -1.
qint32 quotient(qint32 quantity, int divisor);

} // namespace amounts
