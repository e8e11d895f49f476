#pragma once

#include "ledger/operations/Core.h"
#include "ledger/Outbox.h"

#include <QMap>

namespace ledger {

/// What a counterparty said, and what a gateway made of it, written down together: instances are read once
/// and written once, however many reports there are of each.
class Recording {
public:
    /// `accounts`: those that the gateway serves.
    Recording(Change& change, const QStringList& accounts)
        : mChange(change), mServed(accounts), mAccounts(change.statements)
    {
    }

    Recorded take(const Execution& execution);
    /// How the instance stands afterwards; an error where there is none.
    Outcome<Instance> decide(const Outbox::Decision& decision);
    /// Writes everything down.
    void finish();

private:
    Instance* find(const QString& clOrdId);
    Instance* load(const InstanceId& id);
    bool takeFill(Instance& instance, const Execution& execution);
    void takeState(Instance& instance, const Execution& execution);
    void follow(Instance& instance);
    Recorded keep(const Execution& execution, Recorded::Kind kind);

    Change& mChange;
    const QStringList mServed;
    operations::AccountsOfBatches mAccounts;
    QMap<QPair<qint64, int>, Instance> mInstances;
    QMap<QUuid, qint64> mBatches;
    QList<QPair<qint64, int>> mChanged;
    QStringList mStrays; ///< identifiers of those kept
};

/// The draft and the row that an order identifier names; a null draft where it names none.
QPair<QUuid, int> orderNamed(const QString& clOrdId);

} // namespace ledger
