#include "tests/embedded_host/SampleTables.h"

#include "tests/embedded_host/Support.h"

namespace {

Security security(const QString& code, const QString& post, const QStringList& exchanges)
{
    Security made;
    made.symbol = code + u"."_s + post;
    made.code = code;
    made.name = u"样本"_s + code;
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
    Security repo = security(u"204001"_s, u"SH"_s, {u"SH"_s});
    repo.bondRepo = true;
    repo.pricePrecision = 3;
    repo.dispFactor = 10;
    Security future = security(u"IF2512"_s, u"CFE"_s, {u"CFFEX"_s});
    future.securityType = u"FUTURES"_s;
    future.pricePrecision = 1;
    Security unlisted = future;
    unlisted.symbol = u"IF2603.CFE"_s;
    unlisted.code = u"IF2603"_s;
    unlisted.pricePrecision = 3;
    return {security(u"600000"_s, u"SH"_s, {u"SH"_s}),
            security(u"000001"_s, u"SZ"_s, {u"SZ"_s}),
            withSubType(security(u"00700"_s, u"HK"_s, {u"HKSC"_s, u"HKSZ"_s}), u"HK_MAIN"_s, 100, 100),
            withSubType(security(u"688001"_s, u"SH"_s, {u"SH"_s}), u"STAR"_s, 200, 1),
            repo,
            future,
            unlisted,
            security(u"900001"_s, u"SH"_s, {})};
}

} // namespace

ReferenceTables sampleTables()
{
    ReferenceTables tables;
    tables.markets = {{u"SH"_s, u"上海"_s, u"SH"_s, 6, {u"沪市"_s, u"sse"_s}},
                      {u"SZ"_s, u"深圳"_s, u"SZ"_s, 6, {u"深市"_s}},
                      {u"HKSC"_s, u"沪港通"_s, u"HK"_s, 5, {u"SHHK"_s}},
                      {u"HKSZ"_s, u"深港通"_s, u"HK"_s, 5, {u"SZHK"_s}},
                      {u"CFFEX"_s, u"中金所"_s, u"CFE"_s, 0, {}}};
    tables.securities = securities();
    tables.futures = {{u"IF2512.CFE"_s, 300, 1}};
    tables.accounts = {{u"1001"_s, u"现金户"_s, u"Cash"_s, u"Cash"_s, u"node1"_s},
                       {u"2001"_s, u"信用户"_s, u"Credit"_s, u"Credit"_s, u"node2"_s}};
    tables.securityAccounts = {{u"1001"_s, u"SH"_s, u"A001"_s}, {u"1001"_s, u"SZ"_s, u"0001"_s}};
    tables.quotes = {{u"600000.SH"_s,
                      {{u"LastPx"_s, u"10.00"_s},
                       {u"MaxPx"_s, u"11.00"_s},
                       {u"MinPx"_s, u"9.00"_s},
                       {u"PreClosePx"_s, u"10.00"_s}}},
                     {u"000001.SZ"_s, {{u"PreClosePx"_s, u"12.5"_s}}},
                     {u"IF2512.CFE"_s, {{u"LastPx"_s, u"3900.2"_s}}}};
    tables.hkRates = {{u"HKSC"_s, {{u"HKSExchgRateBuy"_s, u"0.90"_s}, {u"HKSExchgRateSell"_s, u"0.95"_s}}},
                      {u"HKSZ"_s, {}}};
    tables.strategies = {{u"AITWAP"_s, u"智能TWAP"_s, u"[]"_s, u"algo"_s},
                         {u"GRID"_s, u"网格"_s, u"[]"_s, u"condition"_s},
                         {u"AIVWAP"_s, u"智能VWAP"_s, u"[]"_s, u"algo"_s}};
    return tables;
}
