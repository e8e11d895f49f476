#pragma once

#include <QMap>
#include <QString>
#include <QVariant>

#include <random>

/// A simulated last price: steps of one or two price ticks, up and down, within 2 % of its start and within
/// the price limits of the day, with a pull back to the start.
///
///     PriceWalk walk({{"LastPx", "10.50"}, {"MaxPx", "11.55"}, {"MinPx", "9.45"}}, 2);
///     walk.next(random); // "10.51", perhaps
class PriceWalk {
public:
    PriceWalk() = default;
    /// `fields` as in a snapshot; a price tick is 10 to the power of -`precision`.
    PriceWalk(const QMap<QString, QVariant>& fields, int precision);

    /// False where there is no last price to start from, where it is no whole number of ticks, or where there
    /// is no room between the limits.
    bool canMove() const { return mLowest < mHighest; }
    /// The next price as a text with `precision` decimals.
    QString next(std::mt19937& random);

private:
    // In ticks.
    qint64 mLast = 0;
    qint64 mStart = 0;
    qint64 mLowest = 0;
    qint64 mHighest = 0;
    int mPrecision = 0;
};
