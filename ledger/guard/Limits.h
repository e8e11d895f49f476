#pragma once

#include "ledger/values/Decimal.h"

#include <QList>
#include <QString>
#include <QStringList>

#include <optional>

/// The ceilings that a batch is held against (docs/ledger.md lists them).
namespace ledger {

/// Ceilings of one scope, or those in force for a batch. An absent value is no ceiling.
struct Limits {
    std::optional<Decimal> rowQuantity;     ///< units, of one row
    std::optional<Decimal> rowAmount;       ///< CNY, of one row
    std::optional<Decimal> securityAmount;  ///< CNY, of one security and side over the batch
    std::optional<Decimal> grossBuy;        ///< CNY, of the batch
    std::optional<Decimal> grossSell;       ///< CNY, of the batch
    std::optional<Decimal> priceDistance;   ///< per cent of the last price that a limit price may be away
    std::optional<Decimal> confirmAmount;   ///< CNY gross from which the amount is typed once more
    std::optional<Decimal> moneyLikeAmount; ///< CNY of one row from which its quantity looks like money
    std::optional<Decimal> dayBuy;          ///< CNY of an account and exchange day, this batch included
    std::optional<Decimal> daySell;         ///< likewise
    std::optional<Decimal> dayInstances;    ///< of an account and exchange day, this batch included
    std::optional<Decimal> batchRows;       ///< instances of the batch
    std::optional<Decimal> participation;   ///< per cent of the market, of one row
    std::optional<Decimal> ordersPerSecond; ///< that the gateway sends
    std::optional<Decimal> approvalAmount;  ///< CNY gross from which a second person approves
    bool refusesUnpriced = false;           ///< a row without any price is refused, instead of warned of
};

/// A ceiling by its column's name in limits.csv.
struct Ceiling {
    const char* column;
    std::optional<Decimal> Limits::*value;
};
const QList<Ceiling>& ceilings();

/// A row of limits.csv. "*" in account or strategy stands for all.
struct LimitScope {
    QString account = QStringLiteral("*");
    QString strategy = QStringLiteral("*");
    Limits limits;
    /// What it is for is taken out of the rows that are for everything ("*", "*"); only this row and others
    /// of the like hold.
    bool replacesGeneral = false;
};

/// Scopes that take a batch out of the general ceilings, as "account strategy": to be shown to whoever
/// creates.
QStringList optedOut(const QList<LimitScope>& scopes, const QString& account, const QString& strategy);

/// All rows that match take part, and of each value the strictest holds: no row can lift another's ceiling,
/// but for one that replaces the general ones.
Limits limitsFor(const QList<LimitScope>& scopes, const QString& account, const QString& strategy);

} // namespace ledger
