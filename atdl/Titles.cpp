#include "atdl/Titles.h"

#include "atdl/OrderColumns.h"
#include "host/AlgoConstants.h"
#include "strategy/ColumnNames.h"
#include "strategy/ColumnRules.h"

#include <QSet>

namespace atdl {

namespace Info = Algo_Fields::AlgoInstContentInfo;

bool isReserved(const QString& text)
{
    static const QSet<QString> own = [] {
        QSet<QString> all = {Info::Symbol,
                             Info::Exchange,
                             Info::Quantity,
                             Info::Quantity_Amount,
                             Info::PriceLimits,
                             Info::TradingAccount,
                             Info::SecurityAccount,
                             Info::fundAccount,
                             Info::SymbolMdcType,
                             Info::maxPrice,
                             Info::preClosePrice,
                             Info::minAmout,
                             Algo_Values::AlgoParamId::AlgoSecurityList,
                             Algo_Values::AlgoParamId::traderOrder,
                             Algo_Values::AlgoParamId::entrustProp,
                             columns::SecurityName,
                             columns::CreateAndStart,
                             columns::SealingAmount,
                             columns::Style,
                             columns::Code,
                             columns::Limit,
                             columns::OrderDirection,
                             instance_keys::SysNodeId,
                             instance_keys::BatchCreate,
                             instance_keys::SealingAmountInTenThousands,
                             Remark,
                             QStringLiteral("配对编号")};
        for (const QString& title : strategy::WholeNumberColumns) {
            all.insert(title);
        }
        for (auto it = strategy::HeadAliases.begin(); it != strategy::HeadAliases.end(); ++it) {
            all += {it.key(), it.value()};
        }
        return all;
    }();
    return own.contains(text);
}

bool isGuarded(const QString& text)
{
    return text == Info::AlgoStartTime || text == Info::AlgoEndTime || text == Info::participationrate;
}

QString knownTitle(int tag, Kind kind)
{
    if (kind == Kind::Moment && tag == 168) {
        return Info::AlgoStartTime;
    }
    if (kind == Kind::Moment && tag == 126) {
        return Info::AlgoEndTime;
    }
    return kind == Kind::Percent && tag == 849 ? Info::participationrate : QString();
}

QString labelOf(const XmlElement* control)
{
    QString label = control == nullptr ? QString() : control->attribute(QStringLiteral("label")).simplified();
    while (label.endsWith(QLatin1Char(':')) || label.endsWith(QChar(0xff1a))) {
        label = label.left(label.size() - 1).trimmed();
    }
    return label;
}

} // namespace atdl
