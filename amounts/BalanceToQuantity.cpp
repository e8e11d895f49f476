#include "amounts/BalanceToQuantity.h"

#include "amounts/Logging.h"
#include "amounts/LotRounding.h"
#include "amounts/WholeNumbers.h"
#include "host/AlgoConstants.h"
#include "host/CBusinessDataBase.h"
#include "host/CommonQuotaHandler.h"
#include "host/QuotaFields.h"
#include "host/SolveyBusinessDataInterface.h"
#include "host/SolveyConstants.h"

#include <cmath>

namespace amounts {

namespace {

/// Boards on which any quantity from the minimum on may be ordered.
bool hasNoStep(const QString& subType)
{
    namespace SubType = Solvey_Values::MdcSubSecurityType;
    return subType == SubType::ScienTechInnovateBoard || subType == SubType::BjSelectedStock;
}

double upperLimit(const QString& symbol)
{
    const QMap<QString, QVariant> quote = CommonQuotaHandler::instance()->GetQuotaSnapshot(symbol, 0);
    const double maxPx = quote.value(QuotaFields::MaxPx).toDouble();
    qCDebug(lcAmounts) << " quotaMap: " << quote << " maxPx: " << maxPx;
    return maxPx;
}

qint64 inLots(qint64 quantity, const QString& symbol, const QString& side)
{
    using Data = SolveyBusinessDataInterface;
    int minimum = Data::GetMinQtyPerOrderBySymbol(symbol);
    int step = Data::GetQtyStepBySymbol(symbol);
    // For the log alone, yet asked for always: what the host is asked does not hang on a log being on.
    const QString exchange = Data::GetASecurityExchangeBySymbol(symbol);
    const QString type = CBusinessDataBase::GetInstance()->GetSecurityTypeBySymbol(symbol);
    qCDebug(lcAmounts) << " exchange: " << exchange << " type: " << type << " minimum: " << minimum
                       << " step: " << step;
    if (side == Algo_Values::AlgoOrderSide::SellValue) {
        minimum = step = Data::GetDispFactorBySymbol(symbol);
    }
    if (hasNoStep(CBusinessDataBase::GetInstance()->GetSecuritySubTypeBySymbol(symbol))) {
        return atLeastMinimum(quantity, minimum);
    }
    return roundedToLot(quantity, guardedDivisor(step, symbol), minimum);
}

} // namespace

qint64 quantityFor(const QString& symbol, const QString& side, double amount)
{
    qCDebug(lcAmounts) << "transBalance2Qty"
                       << " symbol: " << symbol << " balance: " << amount;
    const double maxPx = upperLimit(symbol);
    if (std::fabs(maxPx) < 1e-15) {
        qCDebug(lcAmounts) << " maxPx is empty!";
        return 0;
    }
    return inLots(truncation64(amount / maxPx), symbol, side);
}

} // namespace amounts
