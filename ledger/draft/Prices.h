#pragma once

#include "ledger/draft/BatchDraft.h"

#include <QHash>
#include <QPair>

namespace ledger {

struct Price {
    Decimal last; ///< last price, else the previous close; 0: none
    Decimal buyFactor =
        1; ///< money in CNY per price and unit: exchange rate or contract multiplier; 0: not known
    Decimal sellFactor = 1; ///< likewise for a sale
    bool isNominal = false; ///< `last` is a face value, and limit prices are interest rates
};

/// By symbol and exchange.
using Prices = QHash<QPair<QString, QString>, Price>;

/// Fills every leg's amount: the typed amount, else price times quantity, else limit price times quantity,
/// else 0, as where a factor is not known. A leg that both buys and sells counts once on either side.
void valueLegs(BatchDraft& draft, const Prices& prices);

} // namespace ledger
