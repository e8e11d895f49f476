#include "validation/AccountRules.h"

#include "host/AlgoConstants.h"
#include "host/SolveyBusinessDataInterface.h"
#include "strategy/ColumnNames.h"
#include "table/FaultCatalogue.h"
#include "table/Rules.h"
#include "validation/AccountNode.h"

namespace validation {

namespace {

namespace Info = Algo_Fields::AlgoInstContentInfo;
namespace ParamId = Algo_Values::AlgoParamId;

table::Fault marketNotHeld(int row, const QVariantMap& leg)
{
    table::Fault fault = table::fault(table::rule::MarketNotHeld, {leg.value(Info::Symbol).toString()});
    fault.row = row;
    fault.column = Info::Exchange;
    return fault;
}

} // namespace

table::Faults changeAccount(Instances& instances, const QString& tradingAccount, const QString& chosen)
{
    table::Faults faults;
    int row = 0;
    for (QMap<QString, QVariant>& instance : instances) {
        ++row;
        instance[instance_keys::SysNodeId] = nodeOf(tradingAccount);
        instance[Info::TradingAccount] = tradingAccount;
        QVariantList legs = instance.value(ParamId::AlgoSecurityList).toList();
        for (QVariant& element : legs) {
            QVariantMap leg = element.toMap();
            const QString securityAccount =
                SolveyBusinessDataInterface::GetCurrentSecurityAccountByTradingAndExchange(
                    chosen, leg.value(Info::Exchange).toString());
            if (securityAccount.isEmpty()) {
                faults.append(marketNotHeld(row, leg));
            }
            leg[Info::TradingAccount] = tradingAccount;
            leg[Info::SecurityAccount] = securityAccount;
            element = leg;
        }
        if (!legs.isEmpty()) {
            instance[ParamId::AlgoSecurityList] = legs;
        }
    }
    return faults;
}

} // namespace validation
