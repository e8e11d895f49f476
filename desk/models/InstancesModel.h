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

    /// A security's name by its symbol.
    using NameOf = std::function<QString(const QString& symbol)>;

    explicit InstancesModel(const NameOf& nameOf, QObject* parent = nullptr);

protected:
    Cell cellOf(const ledger::Instance& instance, int column) const override;
    QVariant roleOf(const ledger::Instance& instance, int role) const override;

private:
    NameOf mNameOf;
};
