#pragma once

#include <QString>

namespace amounts {

/// An amount of money as an order quantity that the day's upper price limit still covers, in lots; 0 where
/// there is no such limit or the amount pays for no lot. `side`: Algo_Values::AlgoOrderSide::SellValue, or
/// any other for a purchase. Asks the host for the snapshot and the lot rules.
///
///     quantityFor("600000.SH", "Buy", 100000)   // 9000 at an upper limit of 11
qint64 quantityFor(const QString& symbol, const QString& side, double amount);

} // namespace amounts
