#pragma once

#include <QString>

/// Quantities by the lot rules of exchanges: never to nearest, always down.
namespace amounts {

/// A divisor that reference data supplies (display factor, quantity step): 0 is logged and taken as 1.
/// `origin` names the security in the log.
int guardedDivisor(int divisor, const QString& origin);

/// Toward zero. The least integer, which stands for what is no quantity, stays itself when it is divided by
/// -1.
qint32 quotient(qint32 quantity, int divisor);

/// `quantity` down to a multiple of `step` > 0 or < 0; 0 where it is below `minimum`.
qint64 roundedToLot(qint64 quantity, qint64 step, qint64 minimum);

/// Boards without a step (STAR, Beijing): every quantity from `minimum` on is valid, nothing below.
qint64 atLeastMinimum(qint64 quantity, qint64 minimum);

} // namespace amounts
