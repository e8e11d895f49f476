#pragma once

#include "host/SolveyConstants.h"

#include <QMap>
#include <QString>
#include <QVariant>

/// What a security is worth, as arithmetic alone: whoever asks brings what the host knows. Expected amounts
/// and the guard before a batch agree on it.
namespace amounts {

/// A bond repo is valued at its face value; its quotes and limit prices are interest rates.
constexpr double BondRepoPrice = 100.0;

/// Money in CNY per price and unit, on each side; 0: not known.
struct SideFactors {
    double buy = 1.0;
    double sell = 1.0;

    /// `side`: "Buy" or "Sell"; any other has no factor of its own.
    double of(const QString& side) const
    {
        if (side == QLatin1String("Buy")) {
            return buy;
        }
        return side == QLatin1String("Sell") ? sell : 1.0;
    }
};

/// Whether a security's sub-type makes it one that is quoted in Hong Kong dollars.
inline bool isHongKongSubType(const QString& subType)
{
    namespace SubType = Solvey_Values::MdcSubSecurityType;
    return SubType::HKSharesTypeList.contains(subType) || subType == SubType::HStcokCirculation;
}

/// The factors of a Hong Kong security on one exchange. A purchase is valued at the rate at which the bank
/// sells, and a sale at the one at which it buys; one that is missing is 0. A host without any rates leaves
/// amounts in their own currency.
///
///     hongKongFactors({{"HKSH", {{"HKSExchgRateBuy", 0.90}, {"HKSExchgRateSell", 0.93}}}}, "HKSH")
///     → buy 0.93, sell 0.90
inline SideFactors hongKongFactors(const QMap<QString, QMap<QString, QVariant>>& rates,
                                   const QString& exchange)
{
    namespace Rate = Solvey_Fields::HKSExchgRate;
    if (rates.isEmpty()) {
        return {};
    }
    const QMap<QString, QVariant> ofExchange = rates.value(exchange);
    return {ofExchange.value(Rate::HKSExchgRateSell).toDouble(),
            ofExchange.value(Rate::HKSExchgRateBuy).toDouble()};
}

} // namespace amounts
