// An amount of money as an order quantity that the day's upper price limit still covers.

#include "amounts/LotRounding.h"
#include "dialog/AlgoBatchImportParamSetting.h"
#include "dialog/Logging.h"
#include "host/AlgoConstants.h"
#include "host/CBusinessDataBase.h"
#include "host/CommonQuotaHandler.h"
#include "host/QuotaFields.h"
#include "host/SolveyBusinessDataInterface.h"
#include "host/SolveyConstants.h"
#include "schema/TolerantTruncation.h"

#include <cmath>

namespace {

/// Boards on which any quantity from the minimum on may be ordered.
bool hasNoStep(const QString& subType)
{
    namespace SubType = Solvey_Values::MdcSubSecurityType;
    return subType == SubType::ScienTechInnovateBoard || subType == SubType::BjSelectedStock;
}

} // namespace

qint64 AlgoBatchImportParamSetting::transBalance2Qty(QString& symbol, QString side, double amount)
{
    qCDebug(lcAmounts) << Q_FUNC_INFO << " symbol: " << symbol << " balance: " << amount;
    const QMap<QString, QVariant> quote = CommonQuotaHandler::instance()->GetQuotaSnapshot(symbol, 0);
    const double maxPx = quote.value(QuotaFields::MaxPx).toDouble();
    qCDebug(lcAmounts) << " quotaMap: " << quote << " maxPx: " << maxPx;
    if (std::fabs(maxPx) < 1e-15) {
        qCDebug(lcAmounts) << " maxPx is empty!";
        return 0;
    }
    const qint64 raw = schema::truncation64(amount / maxPx);

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
        return amounts::atLeastMinimum(raw, minimum);
    }
    return amounts::roundedToLot(raw, amounts::guardedDivisor(step, symbol), minimum);
}

qint64 AlgoBatchImportParamSetting::roundQty(qint64 qty, int step, int minimum) const
{
    return amounts::roundedToLot(qty, amounts::guardedDivisor(step, QString()), minimum);
}
