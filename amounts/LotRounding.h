#pragma once

#include <QtGlobal>

/// Quantities by the lot rules of exchanges: never to nearest, always down.
namespace amounts {

/// `quantity` down to a multiple of `step` > 0 or < 0; 0 where it is below `minimum`.
qint64 roundedToLot(qint64 quantity, qint64 step, qint64 minimum);

/// Boards without a step (STAR, Beijing): every quantity from `minimum` on is valid, nothing below.
qint64 atLeastMinimum(qint64 quantity, qint64 minimum);

} // namespace amounts
