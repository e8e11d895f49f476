#pragma once

#include "desk/models/PagedModel.h"

/// The instances of the ledger. Roles: BatchRole; StateRole, a ledger::InstanceState; ProgressRole, what is
/// filled of what was ordered.
class InstancesModel : public PagedModel<ledger::Instance> {
public:
    enum Column {
        Id,
        State,
        Account,
        Strategy,
        Symbol,
        Name,
        Direction,
        Quantity,
        Filled,
        Average,
        Limit,
        Amount,
        Reason,
        Changed
    };

    /// A security's name, and the decimals of its prices, by its symbol.
    using NameOf = std::function<QString(const QString& symbol)>;
    using DecimalsOf = std::function<int(const QString& symbol)>;

    InstancesModel(const NameOf& nameOf, const DecimalsOf& decimalsOf, QObject* parent = nullptr);

protected:
    Cell cellOf(const ledger::Instance& instance, int column) const override;
    QVariant roleOf(const ledger::Instance& instance, int role) const override;
    bool isSame(const ledger::Instance& one, const ledger::Instance& other) const override;

private:
    QString priceText(const ledger::Decimal& price, const ledger::Leg& leg) const;
    QString averageText(const ledger::Instance& instance) const;

    NameOf mNameOf;
    DecimalsOf mDecimalsOf;
};
