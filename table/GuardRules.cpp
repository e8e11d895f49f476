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
        {EndIsPast, Warning, QStringLiteral("结束时间 %1 已过"), QStringLiteral("The end %1 is past")},
        {StartIsPast, Warning, QStringLiteral("开始时间 %1 已过"), QStringLiteral("The start %1 is past")},
        {FarAhead, Warning, QStringLiteral("时间 %1 在 %2 天以后"), QStringLiteral("%1 is %2 days ahead")},
        {ClosedDay, Warning, QStringLiteral("%1 %2 休市（%3）"), QStringLiteral("%1 is closed on %2 (%3)")},
        {OutsideHours, Warning, QStringLiteral("%1 不在 %2 的交易时段内"),
         QStringLiteral("%1 is outside the hours of %2")},
        {ShortTime, Warning, QStringLiteral("开始与结束只差 %1 秒"),
         QStringLiteral("Start and end are %1 seconds apart")},
        {SeveralDays, Warning, QStringLiteral("开始在 %1，结束却在 %2"),
         QStringLiteral("It starts on %1 and ends on %2")},
        {DateOnly, Warning, QStringLiteral("%1只有日期，将按零点处理"),
         QStringLiteral("%1 is a date alone and means midnight")},
        {NoDirection, Error, QStringLiteral("交易方向为空"), QStringLiteral("The direction is empty")},
        {ForeignDirection, Error, QStringLiteral("期货的交易方向应为开仓或平仓：%1"),
         QStringLiteral("A future is opened or closed: %1")},
        {OneSide, Error, QStringLiteral("%1 的两腿在同一侧"),
         QStringLiteral("Both legs of %1 are on the same side")},
        {PairTimes, Warning, QStringLiteral("配对编号 %1 的两腿时间不同"),
         QStringLiteral("The legs of the pair %1 have different times")},
        {OddRateOfDay, Warning, QStringLiteral("回购利率 %1 与最新的 %2 相差数倍"),
         QStringLiteral("The rate %1 is several times away from the last one, %2")},
        {HalfPair, Error, QStringLiteral("配对编号 %1 只有一条腿"),
         QStringLiteral("The pair %1 has one leg alone")},
        {OtherAccount, Error, QStringLiteral("文件中的账户是 %1，所选账户却是 %2"),
         QStringLiteral("The file names the account %1, but %2 is chosen")},
        {QuantityIsMoney, Error, QStringLiteral("委托数量 %1 合 %2 元，应是把金额填成了数量"),
         QStringLiteral("The quantity %1 is worth %2 CNY; an amount was typed in its place")},

        {NotShown, Error,
         QStringLiteral("表格中有 %1 行，待创建的实例却有 %2 个：最近一次导入没有成功；请重新导入"),
         QStringLiteral(
             "The table shows %1 rows, but there are %2 instances: the last import failed; import again")},
        {NoQuantity, Error, QStringLiteral("%1 行既没有委托数量也没有委托金额"),
         QStringLiteral("%1 rows have neither a quantity nor an amount")},
        {Negative, Error, QStringLiteral("%1 行委托数量、金额或限价为负数"),
         QStringLiteral("%1 rows have a negative quantity, amount or limit")},
        {BatchRows, Error, QStringLiteral("批次有 %1 行，超过单批上限 %2 行"),
         QStringLiteral("The batch has %1 rows, above its ceiling of %2")},
        {Participation, Error, QStringLiteral("%1 行最大市场占比超过上限 %2%"),
         QStringLiteral("%1 rows take part with more than %2 per cent of the market")},
        {RowQuantity, Error, QStringLiteral("%1 行委托数量超过单行上限 %2"),
         QStringLiteral("%1 rows have a quantity above %2")},
        {RowAmount, Error, QStringLiteral("%1 行金额超过单行上限 %2 元"),
         QStringLiteral("%1 rows have an amount above %2 CNY")},
        {SecurityAmount, Error, QStringLiteral("%1 只证券单边金额超过单证券上限 %2 元：%3"),
         QStringLiteral("%1 securities are on one side above %2 CNY: %3")},
        {GrossBuy, Error, QStringLiteral("买入总金额 %1 元超过上限 %2 元"),
         QStringLiteral("The purchases of %1 CNY are above %2 CNY")},
        {GrossSell, Error, QStringLiteral("卖出总金额 %1 元超过上限 %2 元"),
         QStringLiteral("The sales of %1 CNY are above %2 CNY")},
        {PriceDistance, Error, QStringLiteral("%1 行限价偏离最新价超过 %2%"),
         QStringLiteral("%1 rows have a limit more than %2 per cent away from the last price")},
        {Unpriced, Warning, QStringLiteral("%1 行没有行情，未计入金额，无法核对上限"),
         QStringLiteral(
             "%1 rows have no quote: they count for nothing and no ceiling can be held against them")},
        {Halted, Error, QStringLiteral("%1"), QStringLiteral("%1")},
        {DayBuy, Error, QStringLiteral("账号当日买入 %1 元（含本批）超过当日上限 %2 元"),
         QStringLiteral("The purchases of the day, %1 CNY with this batch, are above %2 CNY")},
        {DaySell, Error, QStringLiteral("账号当日卖出 %1 元（含本批）超过当日上限 %2 元"),
         QStringLiteral("The sales of the day, %1 CNY with this batch, are above %2 CNY")},
        {DayInstances, Error, QStringLiteral("账号当日 %1 个实例（含本批）超过当日上限 %2 个"),
         QStringLiteral("The instances of the day, %1 with this batch, are above %2")},
        // Found inside the transaction that creates: another desk was faster than the question.
        {CreatedMeanwhile, Error, QStringLiteral("%1 刚刚创建了相同的委托（批次 %2，账号 %3）"),
         QStringLiteral("%1 has just created the same orders (batch %2, account %3)")},
        {SameFile, Warning, QStringLiteral("该文件今天在此账号已创建过 %1 次（批次 %2）"),
         QStringLiteral("This file was created %1 times today on this account (batch %2)")},
        {SameFileElsewhere, Warning, QStringLiteral("该文件今天在其他账号已创建过 %1 次（批次 %2）"),
         QStringLiteral("This file was created %1 times today on other accounts (batch %2)")},
        {SameFileLately, Warning,
         QStringLiteral("该文件不久前已创建过 %1 次（批次 %2），请核对日期和本机时钟"),
         QStringLiteral("This file was created %1 times lately (batch %2); check the date and the clock")},
        {SameRows, Warning, QStringLiteral("%1 行与今天在此账号已创建的委托相同（批次 %2）"),
         QStringLiteral("%1 rows are orders created today on this account (batch %2)")},
        {BothSides, Warning, QStringLiteral("%1 只证券同时买入和卖出：%2"),
         QStringLiteral("%1 securities are both bought and sold: %2")},
        {MoneyLikeQuantity, Warning, QStringLiteral("%1 行委托数量像是金额，请核对"),
         QStringLiteral("%1 rows have a quantity that looks like money")},
        {ZeroLimit, Warning, QStringLiteral("%1 行限价为 0，将不限价"),
         QStringLiteral("%1 rows have a limit of 0, which is no limit")},
        {EndBeforeStart, Warning, QStringLiteral("%1 行结束时间早于开始时间"),
         QStringLiteral("%1 rows end before they start")},
    };
    return rules;
}

} // namespace table
