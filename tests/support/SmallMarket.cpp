#include "tests/support/SmallMarket.h"

#include "host/AlgoConstants.h"
#include "tests/support/Text.h"

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
    result.name = "样本"_s + result.code;
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
    const QStringList sh = {"SH"_s};
    const QStringList sz = {"SZ"_s};
    const QStringList connects = {"HKSH"_s, "HKSZ"_s};
    Security repo = with(security("204001", "SH", sh), 10, 10, 3);
    repo.bondRepo = true;
    Security factor = security("131810", "SZ", sz);
    factor.dispFactor = 100;
    Security futures = with(security("IF2412", "CFE", {"CFE"_s}), 1, 1, 2);
    futures.securityType = "FUTURES"_s;
    return {security("600000", "SH", sh),
            security("000001", "SZ", sz),
            with(security("688001", "SH", sh, "STAR"), 200, 1, 2),
            with(security("430001", "BJ", {"BJ"_s}, "BJ_SELECTED"), 100, 1, 2),
            with(security("510300", "SH", sh), 100, 100, 3),
            repo,
            factor,
            security("00700", "HK", connects, "HK_MAIN"),
            security("08001", "HK", {"HKSH"_s}, "HK_GEM"),
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
    return {text(tradingAccount), "账户"_s + text(tradingAccount), text(type), text(type), text(node)};
}

QList<SecurityAccount> securityAccounts()
{
    QList<SecurityAccount> list;
    const auto add = [&](const char* account, const QStringList& exchanges) {
        for (const QString& exchange : exchanges) {
            list.append({text(account), exchange, text(account) + QLatin1Char('-') + exchange});
        }
    };
    add("CASH1", {"SH"_s, "SZ"_s, "BJ"_s, "HKSH"_s, "HKSZ"_s, "CFE"_s});
    add("NOHK", {"SH"_s, "SZ"_s});
    add("CREDIT1", {"SH"_s, "SZ"_s, "BJ"_s});
    add("FUT1", {"CFE"_s});
    add("ODD", {"SH"_s, "SZ"_s, "HKSH"_s});
    return list;
}

AesStrategy strategy(const char* code, const QVariantList& document)
{
    return AesStrategy(text(code), "策略"_s + text(code), toJson(document),
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
    return {"Buy=买入"_s, "Sell=卖出"_s};
}

QStringList entrustProperties()
{
    return {"0=普通交易"_s, "9=信用交易"_s, "6=融资买入/卖券还款"_s, "7=卖券还款"_s, "A=现券卖出"_s};
}

/// What ordinary instances have beside their security.
QVariantList instanceParameters(const QStringList& directionOptions)
{
    return {combo("交易方向"_s, directionOptions, {{"required"_s, true}}),
            combo("委托属性"_s, entrustProperties(), {{"required"_s, true}}),
            line("委托限价"_s, optional(QString(), QString())),
            dateTime("开始时间"_s, optional("09:30:00"_s, QString())),
            dateTime("结束时间"_s, optional("currentTime"_s, QString())),
            combo("风格参数"_s, {"neutral=平稳"_s, "aggressive=激进"_s}, optional("neutral"_s, "平稳"_s)),
            line("实例备注"_s, optional(QString(), QString()))};
}

} // namespace

ReferenceTables tables()
{
    ReferenceTables tables;
    tables.markets = {market("SH", "上海", "SH", 6, "沪市"),     market("SZ", "深圳", "SZ", 6, "深市"),
                      market("BJ", "北京", "BJ", 6, "北交所"),   market("HKSH", "沪港通", "HK", 5, "沪港"),
                      market("HKSZ", "深港通", "HK", 5, "深港"), market("CFE", "中金所", "CFE", 0, "中金")};
    tables.securities = securities();
    tables.futures = {{"IF2412.CFE"_s, 300, 1}};
    tables.accounts = {account("CASH1", "Cash", "node-1"), account("NOHK", "Cash", "node-2"),
                       account("CREDIT1", "Credit", "node-3"), account("FUT1", "Futures", "node-4"),
                       account("ODD", "Other", "")};
    tables.securityAccounts = securityAccounts();
    tables.quotes = quotes();
    tables.hkRates = {{"HKSH"_s, {{"HKSExchgRateBuy"_s, "0.9"_s}, {"HKSExchgRateSell"_s, "0.95"_s}}},
                      {"HKSZ"_s, {{"HKSExchgRateBuy"_s, "0.8"_s}}}};
    tables.strategies = strategies();
    return tables;
}

QVariantMap entry(const QString& name, const QString& ui, const QVariantMap& more)
{
    QVariantMap map = more;
    map["paramName"_s] = name;
    map["paramId"_s] = more.value("paramId"_s, name);
    map["ui"_s] = ui;
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
        list.append(QVariantMap{{"value"_s, option.left(equals)}, {"display"_s, option.mid(equals + 1)}});
    }
    QVariantMap map = more;
    map["options"_s] = list;
    return entry(name, Algo_Values::AlgoParamUiType::ComboBox, map);
}

QVariantMap table(const QVariantList& columns)
{
    return entry("证券列表"_s, Algo_Values::AlgoParamUiType::Table, {{"columns"_s, columns}});
}

QVariantMap optional(const QString& defaultValue, const QString& defaultShown)
{
    return {{"required"_s, false},
            {"strDefault"_s, QVariantMap{{"value"_s, defaultValue}, {"display"_s, defaultShown}}}};
}

QString toJson(const QVariantList& document)
{
    return QString::fromUtf8(QJsonDocument::fromVariant(document).toJson(QJsonDocument::Compact));
}

QVariantList ordinaryDocument()
{
    return QVariantList{table({line("证券代码"_s), line("委托数量"_s)})} + instanceParameters(directions());
}

QVariantList futuresDocument()
{
    return QVariantList{table({line("证券代码"_s), line("委托数量"_s)})} +
           instanceParameters({"BuyOpen=买入开仓"_s, "SellOpen=卖出开仓"_s, "BuyClose=买入平仓"_s,
                               "SellClose=卖出平仓"_s, "Buy=买入"_s, "Sell=卖出"_s});
}

QVariantList pairedDocument()
{
    return {table({line("证券代码"_s), line("委托数量"_s), combo("交易方向"_s, directions()),
                   combo("委托属性"_s, entrustProperties()), line("委托限价"_s)}),
            line("实例备注"_s, optional(QString(), QString()))};
}

QVariantList amountDocument()
{
    return QVariantList{table({line("证券代码"_s)}), line("委托金额"_s, {{"required"_s, true}})} +
           instanceParameters(directions());
}

QVariantList sealingDocument()
{
    return QVariantList{table({line("证券代码"_s)}), line("封单金额"_s, {{"required"_s, true}})} +
           instanceParameters(directions());
}

QStringList ordinaryHeader()
{
    return {"证券代码"_s, "证券名称"_s, "市场"_s,     "委托数量"_s, "交易方向"_s, "委托属性"_s,
            "委托限价"_s, "开始时间"_s, "结束时间"_s, "风格参数"_s, "实例备注"_s, "创建后是否立即启动"_s};
}

QStringList ordinaryRow(const QString& code, const QString& market, const QString& quantity,
                        const QString& direction)
{
    return {code,
            QString(),
            market,
            quantity,
            direction,
            "0"_s,
            "10.5"_s,
            "2024-3-5 9:30:0"_s,
            "2024-03-05 14:57:00"_s,
            "neutral"_s,
            "备忘"_s,
            "7"_s};
}

} // namespace small_market
