#pragma once

#include "strategy/Traits.h"
#include "table/Fault.h"

#include <QList>
#include <QMap>
#include <QString>
#include <QVariant>

#include <optional>

/// What is wrong with a batch under the chosen account, as faults; their `row` counts the instances from 1.
/// Asks the host for securities and account records.
namespace validation {

using Instances = QList<QMap<QString, QVariant>>;

struct ChosenAccount {
    QString tradingAccount;
    // What the account box shows and holds: for the log alone.
    QString shown;
    QVariant data;
};

/// The strategy that a batch was imported for.
struct ChosenStrategy {
    QString shown; ///< by the box of algorithm types; empty: none is chosen
    QString code;
    QString alias;
};

/// What 确定 says before it looks at the batch: that no strategy is chosen, or that the account may not run
/// it.
std::optional<table::Fault> faultOfChoice(const ChosenStrategy& strategy, const QString& tradingAccount);

/// What speaks against handing over the batch: of a lock strategy its legs, else its instances. An empty
/// batch, and no account, are one fault of no row.
table::Faults faultsOfBatch(const Instances& instances, const strategy::Traits& traits,
                            const ChosenAccount& account);

/// Every instance: its market, then its entrust property; of each the first fault. Each leg of a paired
/// strategy carries its own property and direction; the first one speaks for the row.
table::Faults faultsOfInstances(const Instances& instances, const strategy::Traits& traits,
                                const ChosenAccount& account);
/// Every leg of a lock strategy, and the number of legs.
table::Faults faultsOfLegs(const Instances& instances, const ChosenAccount& account);

/// A Hong Kong security must be ordered on a market on which it trades.
std::optional<table::Fault> faultOfMarket(int row, const QString& symbol, const QString& exchange);

/// An order as the entrust check sees it.
struct EntrustedOrder {
    int row;
    QString entrustProp;
    /// Of a leg none: it is held against the account alone.
    std::optional<QString> side;
};

/// The account's records are asked for anew for every order: they may change while a batch stands.
std::optional<table::Fault> faultOfEntrust(const EntrustedOrder& order, const strategy::Traits& traits,
                                           const ChosenAccount& account);

/// Symbol and exchange of an instance's first security; false, and nothing written, where it has none.
bool firstSecurity(const QVariantList& securities, QString& symbol, QString& exchange);

} // namespace validation
