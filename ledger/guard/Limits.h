#pragma once

#include <QList>
#include <QString>

#include <optional>

/// The ceilings that a batch is held against (docs/ledger.md lists them).
namespace ledger {

/// Ceilings of one scope, or those in force for a batch. An absent value is no ceiling.
struct Limits {
    std::optional<double> rowQuantity;     ///< units, of one row
    std::optional<double> rowAmount;       ///< CNY, of one row
    std::optional<double> securityAmount;  ///< CNY, of one security and side over the batch
    std::optional<double> grossBuy;        ///< CNY, of the batch
    std::optional<double> grossSell;       ///< CNY, of the batch
    std::optional<double> priceDistance;   ///< per cent of the last price that a limit price may be away
    std::optional<double> confirmAmount;   ///< CNY gross from which the amount is typed once more
    std::optional<double> moneyLikeAmount; ///< CNY of one row from which its quantity looks like money
    bool refusesUnpriced = false;          ///< a row without any price is refused, instead of warned of
};

/// A ceiling by its column's name in limits.csv.
struct Ceiling {
    const char* column;
    std::optional<double> Limits::*value;
};
const QList<Ceiling>& ceilings();

/// A row of limits.csv. "*" in account or strategy stands for all.
struct LimitScope {
    QString account = QStringLiteral("*");
    QString strategy = QStringLiteral("*");
    Limits limits;
};

/// All rows that match take part, and of each value the strictest holds: no row can lift another's ceiling.
Limits limitsFor(const QList<LimitScope>& scopes, const QString& account, const QString& strategy);

} // namespace ledger
