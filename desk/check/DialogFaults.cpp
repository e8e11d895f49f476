#include "desk/check/DialogFaults.h"

#include "desk/check/OrderPlaces.h"
#include "strategy/Traits.h"
#include "table/FaultCatalogue.h"
#include "table/Rules.h"
#include "validation/AccountRules.h"

DialogFaults::DialogFaults(const AesStrategy& strategy, const import::Account& account)
    : mStrategy(strategy), mAccount(account)
{
}

table::Faults DialogFaults::ofFile(const table::Table& table, const QString& path) const
{
    return OrderPlaces(mStrategy, mAccount, table, path).refused();
}

table::Faults DialogFaults::ofBatch(const validation::Instances& instances, const table::Table& table,
                                    const QString& path) const
{
    const QString code = mStrategy.name();
    const std::optional<table::Fault> choice =
        validation::faultOfChoice({code, code, mStrategy.alias()}, mAccount.tradingAccount);
    const table::Faults faults = choice ? table::Faults{*choice}
                                        : validation::faultsOfBatch(instances, strategy::traitsOf(code),
                                                                    {mAccount.tradingAccount, {}, {}});
    return placed(faults, instances.size(), table, path);
}

table::Faults DialogFaults::ofAccount(const validation::Instances& instances, const table::Table& table,
                                      const QString& path) const
{
    validation::Instances changed = instances;
    const table::Faults faults =
        validation::changeAccount(changed, mAccount.tradingAccount, mAccount.tradingAccount);
    return placed(faults, instances.size(), table, path);
}

table::Faults DialogFaults::placed(table::Faults faults, int orders, const table::Table& table,
                                   const QString& path) const
{
    if (!faults.isEmpty()) {
        const OrderPlaces places(mStrategy, mAccount, table, path);
        for (table::Fault& fault : faults) {
            places.place(fault, orders);
        }
    }
    return faults;
}

QList<int> DialogFaults::linesOf(int orders, const table::Table& table, const QString& path) const
{
    return OrderPlaces(mStrategy, mAccount, table, path).linesOf(orders);
}

table::Faults DialogFaults::orWords(const table::Faults& faults, const QString& words)
{
    return faults.isEmpty() ? table::Faults{table::fault(table::rule::ReaderError, {words})} : faults;
}
