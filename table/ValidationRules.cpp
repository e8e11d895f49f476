// The batch at 确定 and after a change of account, in the exact words of the dialog.

#include "table/CatalogueParts.h"
#include "table/Rules.h"

namespace table {

const QList<RuleEntry>& validationRules()
{
    constexpr Severity error = Severity::Error;
    static const QList<RuleEntry> rules = {
        {rule::NoAlgoType, error, QStringLiteral("未选择任意算法类型"), {}},
        {rule::NoAuthority, error, QStringLiteral("当前账号未授权%1算法，请联系客户经理授权！"), {}},
        {rule::NoBatch, error, QStringLiteral("未获取到数据！"), {}},
        {rule::NoAccount, error, QStringLiteral("未获取到交易账号！"), {}},
        {rule::BadData, error, QStringLiteral("获取数据错误！"), {}},
        {rule::OnlyOnMarket, error, QStringLiteral("%1标的仅是%2标的！"), {}},
        {rule::NoAccountType, error, QStringLiteral("未获取到账号类型!"), {}},
        {rule::EntrustProperty, error, QStringLiteral("当前资产账号与模板中委托属性校验未通过，请检查!"), {}},
        // Without the exclamation mark.
        {rule::LegEntrustProperty,
         error,
         QStringLiteral("当前资产账号与模板中委托属性校验未通过，请检查"),
         {}},
        {rule::EntrustDirection, error, QStringLiteral("委托属性与交易方向不一致"), {}},
        {rule::CollateralBuyOnly, error, QStringLiteral("仅支持担保品买入、融资买入"), {}},
        {rule::CollateralSellOnly, error, QStringLiteral("仅支持担保品卖出"), {}},
        {rule::LegCount, error, QStringLiteral("标的数目错误！"), {}},
        {rule::LegDirection, error, QStringLiteral("交易方向与委托属性不符！"), {}},
        {rule::BadDirection, error, QStringLiteral("交易方向错误！"), {}},

        {rule::MarketNotHeld, error, QStringLiteral("当前资产账号所属市场与标的%1市场存在不一致!"), {}},
    };
    return rules;
}

} // namespace table
