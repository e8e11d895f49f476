#include "tests/embedded_host/SampleTables.h"

#include "tests/support/Text.h"

namespace {

Security security(const QString& code, const QString& post, const QStringList& exchanges)
{
    Security made;
    made.symbol = code + "."_s + post;
    made.code = code;
    made.name = "样本"_s + code;
    made.post = post;
    made.exchanges = exchanges;
    return made;
}

Security withSubType(Security security, const QString& subType, int minQtyPerOrder, int qtyStep)
{
    security.subType = subType;
    security.minQtyPerOrder = minQtyPerOrder;
    security.qtyStep = qtyStep;
    return security;
}

QList<Security> securities()
{
    Security repo = security("204001"_s, "SH"_s, {"SH"_s});
    repo.bondRepo = true;
    repo.pricePrecision = 3;
    repo.dispFactor = 10;
    Security future = security("IF2512"_s, "CFE"_s, {"CFFEX"_s});
    future.securityType = "FUTURES"_s;
    future.pricePrecision = 1;
    Security unlisted = future;
    unlisted.symbol = "IF2603.CFE"_s;
    unlisted.code = "IF2603"_s;
    unlisted.pricePrecision = 3;
    return {security("600000"_s, "SH"_s, {"SH"_s}),
            security("000001"_s, "SZ"_s, {"SZ"_s}),
            withSubType(security("00700"_s, "HK"_s, {"HKSC"_s, "HKSZ"_s}), "HK_MAIN"_s, 100, 100),
            withSubType(security("688001"_s, "SH"_s, {"SH"_s}), "STAR"_s, 200, 1),
            repo,
            future,
            unlisted,
            security("900001"_s, "SH"_s, {})};
}

} // namespace

ReferenceTables sampleTables()
{
    ReferenceTables tables;
    tables.markets = {{"SH"_s, "上海"_s, "SH"_s, 6, {"沪市"_s, "sse"_s}},
                      {"SZ"_s, "深圳"_s, "SZ"_s, 6, {"深市"_s}},
                      {"HKSC"_s, "沪港通"_s, "HK"_s, 5, {"SHHK"_s}},
                      {"HKSZ"_s, "深港通"_s, "HK"_s, 5, {"SZHK"_s}},
                      {"CFFEX"_s, "中金所"_s, "CFE"_s, 0, {}}};
    tables.securities = securities();
    tables.futures = {{"IF2512.CFE"_s, 300, 1}};
    tables.accounts = {{"1001"_s, "现金户"_s, "Cash"_s, "Cash"_s, "node1"_s},
                       {"2001"_s, "信用户"_s, "Credit"_s, "Credit"_s, "node2"_s}};
    tables.securityAccounts = {{"1001"_s, "SH"_s, "A001"_s}, {"1001"_s, "SZ"_s, "0001"_s}};
    tables.quotes = {{"600000.SH"_s,
                      {{"LastPx"_s, "10.00"_s},
                       {"MaxPx"_s, "11.00"_s},
                       {"MinPx"_s, "9.00"_s},
                       {"PreClosePx"_s, "10.00"_s}}},
                     {"000001.SZ"_s, {{"PreClosePx"_s, "12.5"_s}}},
                     {"IF2512.CFE"_s, {{"LastPx"_s, "3900.2"_s}}}};
    tables.hkRates = {{"HKSC"_s, {{"HKSExchgRateBuy"_s, "0.90"_s}, {"HKSExchgRateSell"_s, "0.95"_s}}},
                      {"HKSZ"_s, {}}};
    tables.strategies = {{"AITWAP"_s, "智能TWAP"_s, "[]"_s, "algo"_s},
                         {"GRID"_s, "网格"_s, "[]"_s, "condition"_s},
                         {"AIVWAP"_s, "智能VWAP"_s, "[]"_s, "algo"_s}};
    return tables;
}
