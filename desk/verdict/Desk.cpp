#include "desk/verdict/Desk.h"

#include "desk/batch/LimitsFile.h"
#include "embedded_host/reference_data/CalendarFile.h"

namespace verdict {

Outcome<Desk> Desk::read(const QString& folder)
{
    QString error;
    const std::optional<QList<ledger::LimitScope>> limits = batch::readLimits(folder, error);
    if (!limits) {
        return {{}, error};
    }
    const Outcome<Calendar> calendar = readCalendar(folder);
    const Outcome<RuleActions> actions = RuleActions::read(folder);
    const Outcome<broker::BrokerRules> brokerRules = broker::BrokerRules::read(folder);
    for (const QString& fault : {calendar.error, actions.error, brokerRules.error}) {
        if (!fault.isEmpty()) {
            return {{}, fault};
        }
    }
    return {{*limits, calendar.value, actions.value, brokerRules.value}, {}};
}

} // namespace verdict
