#include "amounts/LotRounding.h"

#include "dialog/Logging.h"

#include <limits>

namespace amounts {

int guardedDivisor(int divisor, const QString& origin)
{
    if (divisor == 0) {
        qCDebug(lcAmounts) << "divisor is 0, taken as 1"
                           << " symbol: " << origin;
        return 1;
    }
    return divisor;
}

qint32 quotient(qint32 quantity, int divisor)
{
    const bool overflows = divisor == -1 && quantity == std::numeric_limits<qint32>::min();
    return overflows ? quantity : quantity / divisor;
}

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
