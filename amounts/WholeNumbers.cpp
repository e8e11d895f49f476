#include "amounts/WholeNumbers.h"

#include "amounts/Logging.h"

#include <limits>

namespace amounts {

namespace {

constexpr double Tolerance = 0.000001;
constexpr double NegativeBelow = -1e-10;

/// The conversion is undefined outside the integer's range; both bounds are powers of two and exact as
/// doubles.
template <typename Integer> Integer truncated(double number)
{
    constexpr double least = static_cast<double>(std::numeric_limits<Integer>::min());
    if (number > least - 1.0 && number < -least) {
        return static_cast<Integer>(number);
    }
    return std::numeric_limits<Integer>::min();
}

} // namespace

qint32 tolerantTruncation(double number)
{
    return truncated<qint32>(number < NegativeBelow ? number - Tolerance : number + Tolerance);
}

qint64 truncation64(double number)
{
    return truncated<qint64>(number);
}

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

} // namespace amounts
