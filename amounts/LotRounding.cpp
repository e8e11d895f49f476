#include "amounts/LotRounding.h"

namespace amounts {

qint64 roundedToLot(qint64 quantity, qint64 step, qint64 minimum)
{
    if (quantity < minimum) {
        return 0;
    }
    // The remainder by -1 overflows for the least integer, and is 0 for every other one.
    return step == -1 ? quantity : quantity - quantity % step;
}

qint64 atLeastMinimum(qint64 quantity, qint64 minimum)
{
    constexpr double tolerance = 1e-10;
    return double(quantity) < double(minimum) - tolerance ? 0 : quantity;
}

} // namespace amounts
