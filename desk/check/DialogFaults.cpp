#include "desk/check/DialogFaults.h"

#include "host/AlgoConstants.h"
#include "host/AlgoTradeLogicNew.h"
#include "import/TableReading.h"
#include "strategy/Strategy.h"
#include "table/FaultCatalogue.h"
#include "table/Rules.h"
#include "validation/AccountRules.h"

#include <algorithm>

namespace {

strategy::Strategy schemaOf(const AesStrategy& offered)
{
    const Outcome<strategy::Strategy> parsed =
        strategy::Strategy::parse(offered.name(), offered.alias(), offered.paramFormats());
    return parsed.ok() ? parsed.value
                       : strategy::Strategy::withoutParameters(offered.name(), offered.alias());
}

} // namespace

DialogFaults::DialogFaults(const AesStrategy& strategy, const import::Account& account)
    : mStrategy(strategy), mAccount(account)
{
}

table::Faults DialogFaults::ofFile(const table::Table& table, const QString& path) const
{
    const import::Reading reading =
        import::readRows(schemaOf(mStrategy), table, mAccount, import::dateTimeFormatOf(path));
    table::Faults faults = reading.faults;
    std::stable_sort(faults.begin(), faults.end(),
                     [](const table::Fault& a, const table::Fault& b) { return a.line < b.line; });
    if (reading.end) {
        faults.append(*reading.end);
    }
    return faults;
}

table::Faults DialogFaults::ofBatch(const validation::Instances& instances) const
{
    if (mStrategy.name().isEmpty()) {
        return {table::fault(table::rule::NoAlgoType)};
    }
    if (!AlgoTradeLogicNew::GetInstance()->hasCorrespAuthority(mAccount.tradingAccount, mStrategy.name(),
                                                               Algo_Values::AlgoGlobalType::algo)) {
        return {table::fault(table::rule::NoAuthority, {mStrategy.alias()})};
    }
    return validation::faultsOfBatch(instances, strategy::traitsOf(mStrategy.name()),
                                     {mAccount.tradingAccount, {}, {}});
}

table::Faults DialogFaults::ofAccount(const validation::Instances& instances) const
{
    validation::Instances changed = instances;
    return validation::changeAccount(changed, mAccount.tradingAccount, mAccount.tradingAccount);
}

table::Faults DialogFaults::orWords(const table::Faults& faults, const QString& words)
{
    return faults.isEmpty() ? table::Faults{table::fault(table::rule::ReaderError, {words})} : faults;
}
