// The guard.

#include "table/GuardRules.h"

#include "table/CatalogueParts.h"

namespace table {

const QList<RuleEntry>& guardRules()
{
    using namespace rule;
    constexpr Severity Error = Severity::Error;
    constexpr Severity Warning = Severity::Warning;
    static const QList<RuleEntry> rules = {
        {MissingRows, Error, QStringLiteral("文件的 %1 行委托中有 %2 行没有导入"),
         QStringLiteral("Of the %1 orders of the file %2 were not imported")},
        {RowsBeyondLimit, Error, QStringLiteral("文件超过 %1 行，只导入了前 %1 行"),
         QStringLiteral("The file has more than %1 rows, of which only the first were imported")},
        {NoTime, Error, QStringLiteral("开始时间与结束时间相同"),
         QStringLiteral("Start and end are the same")},
        {EndIsPast, Error, QStringLiteral("结束时间 %1 已过"), QStringLiteral("The end %1 is past")},
        {StartIsPast, Warning, QStringLiteral("开始时间 %1 已过"), QStringLiteral("The start %1 is past")},
        {FarAhead, Warning, QStringLiteral("时间 %1 在 %2 天以后"), QStringLiteral("%1 is %2 days ahead")},
        {ClosedDay, Warning, QStringLiteral("%1 %2 休市（%3）"), QStringLiteral("%1 is closed on %2 (%3)")},
        {OutsideHours, Warning, QStringLiteral("%1 不在 %2 的交易时段内"),
         QStringLiteral("%1 is outside the hours of %2")},
        {DateOnly, Warning, QStringLiteral("%1只有日期，将按零点处理"),
         QStringLiteral("%1 is a date alone and means midnight")},
        {NoDirection, Error, QStringLiteral("交易方向为空"), QStringLiteral("The direction is empty")},
        {ForeignDirection, Error, QStringLiteral("期货的交易方向应为开仓或平仓：%1"),
         QStringLiteral("A future is opened or closed: %1")},
        {OneSide, Error, QStringLiteral("%1 的两腿在同一侧"),
         QStringLiteral("Both legs of %1 are on the same side")},
        {HalfPair, Error, QStringLiteral("配对编号 %1 只有一条腿"),
         QStringLiteral("The pair %1 has one leg alone")},
        {QuantityIsMoney, Error, QStringLiteral("委托数量 %1 合 %2 元，应是把金额填成了数量"),
         QStringLiteral("The quantity %1 is worth %2 CNY; an amount was typed in its place")},
        {NoBrokerMarket, Error, QStringLiteral("该算法不用于市场 %1"),
         QStringLiteral("The strategy is not offered on %1")},
        {NoBrokerValue, Error, QStringLiteral("%1“%2”应为%3"),
         QStringLiteral("%1 is \"%2\" and should be %3")},
        {BelowBroker, Error, QStringLiteral("%1 %2 小于算法允许的最小值 %3"),
         QStringLiteral("%1 is %2, below the strategy's least, %3")},
        {AboveBroker, Error, QStringLiteral("%1 %2 大于算法允许的最大值 %3"),
         QStringLiteral("%1 is %2, above the strategy's most, %3")},
        {BrokerDecimals, Error, QStringLiteral("%1 %2 的小数超过 %3 位"),
         QStringLiteral("%1 is %2, with more than %3 decimals")},
        {BrokerTextShort, Error, QStringLiteral("%1“%2”少于 %3 个字符"),
         QStringLiteral("%1 is \"%2\", shorter than %3 characters")},
        {BrokerTextLong, Error, QStringLiteral("%1“%2”超过 %3 个字符"),
         QStringLiteral("%1 is \"%2\", longer than %3 characters")},
        {BrokerCondition, Error, QStringLiteral("不符合算法的要求：%1"),
         QStringLiteral("The strategy asks: %1")},
    };
    return rules;
}

} // namespace table
