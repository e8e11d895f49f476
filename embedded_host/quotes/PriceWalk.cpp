#include "embedded_host/quotes/PriceWalk.h"

#include "host/QuotaFields.h"

#include <algorithm>
#include <cmath>

namespace {

constexpr double WidestMove = 0.02; ///< of the start price
constexpr double MostTicks = 1e15;  ///< beyond, a double no longer tells ticks apart
constexpr qint64 LeastRoom = 2;     ///< ticks to either side that even a cheap security has

double ticksPerUnit(int precision)
{
    return std::pow(10.0, precision);
}

bool isWhole(double number)
{
    return std::fabs(number - std::round(number)) < 1e-6;
}

} // namespace

PriceWalk::PriceWalk(const QMap<QString, QVariant>& fields, int precision) : mPrecision(precision)
{
    const double start = fields.value(QuotaFields::LastPx).toDouble();
    const double scale = ticksPerUnit(precision);
    if (!(start > 0 && start * scale < MostTicks) || !isWhole(start * scale)) {
        return; // a price between two ticks could only jump
    }
    const qint64 room = std::max(LeastRoom, qRound64(start * scale * WidestMove));
    mStart = mLast = qRound64(start * scale);
    mLowest = std::max<qint64>(1, mStart - room);
    mHighest = mStart + room;
    const double lowerLimit = fields.value(QuotaFields::MinPx).toDouble();
    const double upperLimit = fields.value(QuotaFields::MaxPx).toDouble();
    if (lowerLimit > 0 && lowerLimit * scale < MostTicks) {
        mLowest = std::max(mLowest, qRound64(std::ceil(lowerLimit * scale - 1e-6)));
    }
    if (upperLimit > 0 && upperLimit * scale < MostTicks) {
        mHighest = std::min(mHighest, qRound64(std::floor(upperLimit * scale + 1e-6)));
    }
}

QString PriceWalk::next(std::mt19937& random)
{
    std::uniform_int_distribution<qint64> step(-2, 2);
    qint64 move = step(random);
    const bool leaves = (mLast - mStart) * move > 0;
    if (leaves && random() % 3 == 0) {
        move = -move; // away from the start less often than back to it
    }
    mLast = std::clamp(mLast + move, mLowest, mHighest);
    return QString::number(static_cast<double>(mLast) / ticksPerUnit(mPrecision), 'f', mPrecision);
}
