#include "desk/broker/BrokerRules.h"

#include "desk/broker/Judging.h"

namespace broker {

table::Faults BrokerRules::faultsOf(const QString& strategy, const QMap<QString, QVariant>& parameters) const
{
    const auto rules = mRules.find(strategy);
    return rules == mRules.end() ? table::Faults() : broker::faultsOf(*rules, parameters);
}

} // namespace broker
