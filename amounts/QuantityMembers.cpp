// The dialog's own names of what turns money into quantities.

#include "amounts/BalanceToQuantity.h"
#include "amounts/LotRounding.h"
#include "amounts/WholeNumbers.h"
#include "dialog/AlgoBatchImportParamSetting.h"

qint64 AlgoBatchImportParamSetting::transBalance2Qty(QString& symbol, QString side, double amount)
{
    return amounts::quantityFor(symbol, side, amount);
}

qint64 AlgoBatchImportParamSetting::roundQty(qint64 qty, int step, int minimum) const
{
    return amounts::roundedToLot(qty, amounts::guardedDivisor(step, QString()), minimum);
}
