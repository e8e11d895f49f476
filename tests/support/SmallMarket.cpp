#include "tests/support/SmallMarket.h"

#include "host/AlgoConstants.h"

#include <QJsonDocument>

namespace small_market {

namespace {

QString text(const char* utf8)
{
    return QString::fromUtf8(utf8);
}

Market market(const char* exchange, const char* name, const char* post, int codeLength, const char* alias)
{
    return {text(exchange), text(name), text(post), codeLength, {text(alias)}};
}

Security security(const char* code, const char* post, const QStringList& exchanges, const char* subType = "")
{
    Security result;
    result.code = text(code);
    result.post = text(post);
    result.symbol = result.code + QLatin1Char('.') + result.post;
    result.name = text("样本") + result.code;
    result.exchanges = exchanges;
    result.subType = text(subType);
    return result;
}

Security with(Security base, int minimum, int step, int precision)
{
    base.minQtyPerOrder = minimum;
    base.qtyStep = step;
    base.pricePrecision = precision;
    return base;
}

QList<Security> securities()
{
    const QStringList sh = {text("SH")};
    const QStringList sz = {text("SZ")};
    const QStringList connects = {text("HKSH"), text("HKSZ")};
    Security repo = with(security("204001", "SH", sh), 10, 10, 3);
    repo.bondRepo = true;
    Security factor = security("131810", "SZ", sz);
    factor.dispFactor = 100;
    Security futures = with(security("IF2412", "CFE", {text("CFE")}), 1, 1, 2);
    futures.securityType = text("FUTURES");
    return {security("600000", "SH", sh),
            security("000001", "SZ", sz),
            with(security("688001", "SH", sh, "STAR"), 200, 1, 2),
            with(security("430001", "BJ", {text("BJ")}, "BJ_SELECTED"), 100, 1, 2),
            with(security("510300", "SH", sh), 100, 100, 3),
            repo,
            factor,
            security("00700", "HK", connects, "HK_MAIN"),
            security("08001", "HK", {text("HKSH")}, "HK_GEM"),
            security("00939", "HK", connects, "H_CIRCULATION"),
            security("00001", "HK", {}, "HK_MAIN"),
            futures,
            security("600999", "SH", sh),
            security("600998", "SH", {})};
}

Quote quote(const char* symbol, const char* last, const char* max, const char* preClose)
{
    Quote result;
    result.symbol = text(symbol);
    const auto put = [&](const char* field, const char* value) {
        if (*value != '\0') {
            result.fields[text(field)] = text(value);
        }
    };
    put("LastPx", last);
    put("MaxPx", max);
    put("PreClosePx", preClose);
    return result;
}

QList<Quote> quotes()
{
    return {quote("600000.SH", "10", "11", "9.9"), quote("000001.SZ", "20", "22", "20"),
            quote("688001.SH", "30", "33", "29"),  quote("430001.BJ", "5", "6.5", "5"),
            quote("510300.SH", "4", "4.4", "4"),   quote("204001.SH", "1.5", "", ""),
            quote("131810.SZ", "50", "55", "50"),  quote("00700.HK", "300", "", "298"),
            quote("08001.HK", "2", "", "2"),       quote("00939.HK", "5", "", "5"),
            quote("00001.HK", "40", "", "40"),     quote("IF2412.CFE", "3500", "3800", "3490"),
            quote("600998.SH", "10", "11", "10")};
}

tagUserAccountInfo account(const char* tradingAccount, const char* type, const char* node)
{
    return {text(tradingAccount), text("账户") + text(tradingAccount), text(type), text(type), text(node)};
}

QList<SecurityAccount> securityAccounts()
{
    QList<SecurityAccount> list;
    const auto add = [&](const char* account, const QStringList& exchanges) {
        for (const QString& exchange : exchanges) {
            list.append({text(account), exchange, text(account) + QLatin1Char('-') + exchange});
        }
    };
    add("CASH1", {text("SH"), text("SZ"), text("BJ"), text("HKSH"), text("HKSZ"), text("CFE")});
    add("NOHK", {text("SH"), text("SZ")});
    add("CREDIT1", {text("SH"), text("SZ"), text("BJ")});
    add("FUT1", {text("CFE")});
    add("ODD", {text("SH"), text("SZ"), text("HKSH")});
    return list;
}

AesStrategy strategy(const char* code, const QVariantList& document)
{
    return AesStrategy(text(code), text("策略") + text(code), toJson(document),
                       Algo_Values::AlgoGlobalType::algo);
}

QList<AesStrategy> strategies()
{
    return {strategy("AITWAP", ordinaryDocument()),      strategy("AIVWAP", ordinaryDocument()),
            strategy("LOCAL", ordinaryDocument()),       strategy("QND_TWAP", ordinaryDocument()),
            strategy("KF_TWAPPLUS", ordinaryDocument()), strategy("KF_VWAPPLUS", ordinaryDocument()),
            strategy("AILOCK", pairedDocument()),        strategy("AIPAIR", pairedDocument()),
            strategy("G-TWAP", futuresDocument()),       strategy("AITWAP7", amountDocument()),
            strategy("AMOUNT", amountDocument()),        strategy("PursueHighLimit", sealingDocument())};
}

QStringList directions()
{
    return {text("Buy=买入"), text("Sell=卖出")};
}

QStringList entrustProperties()
{
    return {text("0=普通交易"), text("9=信用交易"), text("6=融资买入/卖券还款"), text("7=卖券还款"),
            text("A=现券卖出")};
}

/// What ordinary instances have beside their security.
QVariantList instanceParameters(const QStringList& directionOptions)
{
    return {combo(text("交易方向"), directionOptions, {{text("required"), true}}),
            combo(text("委托属性"), entrustProperties(), {{text("required"), true}}),
            line(text("委托限价"), optional(QString(), QString())),
            dateTime(text("开始时间"), optional(text("09:30:00"), QString())),
            dateTime(text("结束时间"), optional(text("currentTime"), QString())),
            combo(text("风格参数"), {text("neutral=平稳"), text("aggressive=激进")},
                  optional(text("neutral"), text("平稳"))),
            line(text("实例备注"), optional(QString(), QString()))};
}

} // namespace

ReferenceTables tables()
{
    ReferenceTables tables;
    tables.markets = {market("SH", "上海", "SH", 6, "沪市"),     market("SZ", "深圳", "SZ", 6, "深市"),
                      market("BJ", "北京", "BJ", 6, "北交所"),   market("HKSH", "沪港通", "HK", 5, "沪港"),
                      market("HKSZ", "深港通", "HK", 5, "深港"), market("CFE", "中金所", "CFE", 0, "中金")};
    tables.securities = securities();
    tables.futures = {{text("IF2412.CFE"), 300, 1}};
    tables.accounts = {account("CASH1", "Cash", "node-1"), account("NOHK", "Cash", "node-2"),
                       account("CREDIT1", "Credit", "node-3"), account("FUT1", "Futures", "node-4"),
                       account("ODD", "Other", "")};
    tables.securityAccounts = securityAccounts();
    tables.quotes = quotes();
    tables.hkRates = {
        {text("HKSH"), {{text("HKSExchgRateBuy"), text("0.9")}, {text("HKSExchgRateSell"), text("0.95")}}},
        {text("HKSZ"), {{text("HKSExchgRateBuy"), text("0.8")}}}};
    tables.strategies = strategies();
    return tables;
}

QVariantMap entry(const QString& name, const QString& ui, const QVariantMap& more)
{
    QVariantMap map = more;
    map[text("paramName")] = name;
    map[text("paramId")] = more.value(text("paramId"), name);
    map[text("ui")] = ui;
    return map;
}

QVariantMap line(const QString& name, const QVariantMap& more)
{
    return entry(name, Algo_Values::AlgoParamUiType::LineEdit, more);
}

QVariantMap dateTime(const QString& name, const QVariantMap& more)
{
    return entry(name, Algo_Values::AlgoParamUiType::DateTime, more);
}

QVariantMap combo(const QString& name, const QStringList& options, const QVariantMap& more)
{
    QVariantList list;
    for (const QString& option : options) {
        const int equals = option.indexOf(QLatin1Char('='));
        list.append(
            QVariantMap{{text("value"), option.left(equals)}, {text("display"), option.mid(equals + 1)}});
    }
    QVariantMap map = more;
    map[text("options")] = list;
    return entry(name, Algo_Values::AlgoParamUiType::ComboBox, map);
}

QVariantMap table(const QVariantList& columns)
{
    return entry(text("证券列表"), Algo_Values::AlgoParamUiType::Table, {{text("columns"), columns}});
}

QVariantMap optional(const QString& defaultValue, const QString& defaultShown)
{
    return {
        {text("required"), false},
        {text("strDefault"), QVariantMap{{text("value"), defaultValue}, {text("display"), defaultShown}}}};
}

QString toJson(const QVariantList& document)
{
    return QString::fromUtf8(QJsonDocument::fromVariant(document).toJson(QJsonDocument::Compact));
}

QVariantList ordinaryDocument()
{
    return QVariantList{table({line(text("证券代码")), line(text("委托数量"))})} +
           instanceParameters(directions());
}

QVariantList futuresDocument()
{
    return QVariantList{table({line(text("证券代码")), line(text("委托数量"))})} +
           instanceParameters({text("BuyOpen=买入开仓"), text("SellOpen=卖出开仓"), text("BuyClose=买入平仓"),
                               text("SellClose=卖出平仓"), text("Buy=买入"), text("Sell=卖出")});
}

QVariantList pairedDocument()
{
    return {table({line(text("证券代码")), line(text("委托数量")), combo(text("交易方向"), directions()),
                   combo(text("委托属性"), entrustProperties()), line(text("委托限价"))}),
            line(text("实例备注"), optional(QString(), QString()))};
}

QVariantList amountDocument()
{
    return QVariantList{table({line(text("证券代码"))}), line(text("委托金额"), {{text("required"), true}})} +
           instanceParameters(directions());
}

QVariantList sealingDocument()
{
    return QVariantList{table({line(text("证券代码"))}), line(text("封单金额"), {{text("required"), true}})} +
           instanceParameters(directions());
}

QStringList ordinaryHeader()
{
    return {text("证券代码"), text("证券名称"), text("市场"),     text("委托数量"),
            text("交易方向"), text("委托属性"), text("委托限价"), text("开始时间"),
            text("结束时间"), text("风格参数"), text("实例备注"), text("创建后是否立即启动")};
}

QStringList ordinaryRow(const QString& code, const QString& market, const QString& quantity,
                        const QString& direction)
{
    return {code,
            QString(),
            market,
            quantity,
            direction,
            text("0"),
            text("10.5"),
            text("2024-3-5 9:30:0"),
            text("2024-03-05 14:57:00"),
            text("neutral"),
            text("备忘"),
            text("7")};
}

} // namespace small_market
