#include "tests/catalogue/ShippedDialog.h"

#include <QSet>

#include <algorithm>
#include <functional>

namespace {

class ShippedData : public testing::Test {
protected:
    int count(const std::function<bool(const Security&)>& wanted) const
    {
        return int(std::count_if(data.tables().securities.begin(), data.tables().securities.end(), wanted));
    }
    int ofSubType(const QString& subType) const
    {
        return count([&](const Security& security) { return security.subType == subType; });
    }

    const ReferenceData data{shipped::tables()};
};

TEST_F(ShippedData, HasSecuritiesOfEveryClassThatRulesTellApart)
{
    EXPECT_GE(data.tables().securities.size(), 80);
    for (const QString& subType : {"STAR"_s, "BJ_SELECTED"_s, "HK_MAIN"_s, "HK_GEM"_s, "H_CIRCULATION"_s,
                                   "CHINEXT"_s, "ETF"_s, "CONVERTIBLE"_s}) {
        EXPECT_GE(ofSubType(subType), 2) << qPrintable(subType);
    }
    EXPECT_GE(count([](const Security& s) { return s.bondRepo && s.post == "SH"_s; }), 1);
    EXPECT_GE(count([](const Security& s) { return s.bondRepo && s.post == "SZ"_s; }), 1);
    EXPECT_GE(count([](const Security& s) { return s.dispFactor == 100; }), 1);
    EXPECT_GE(count([](const Security& s) { return s.dispFactor == 10; }), 1);
    EXPECT_GE(count([](const Security& s) { return s.pricePrecision == 3; }), 1);
    EXPECT_GE(count([](const Security& s) { return s.post == "HK"_s && s.exchanges.size() == 1; }), 1);
    EXPECT_EQ(count([](const Security& s) { return s.exchanges.isEmpty(); }), 1);
}

TEST_F(ShippedData, NamesEverySymbolByItsCodeAndPost)
{
    QSet<QString> names;
    for (const Security& security : data.tables().securities) {
        EXPECT_EQ(security.symbol, security.code + QLatin1Char('.') + security.post);
        EXPECT_FALSE(names.contains(security.name)) << qPrintable(security.name);
        names.insert(security.name);
    }
}

TEST_F(ShippedData, GivesEveryFuturesContractItsBaseData)
{
    int contracts = 0;
    for (const Security& security : data.tables().securities) {
        const bool futures = security.securityType == "FUTURES"_s;
        contracts += futures ? 1 : 0;
        EXPECT_EQ(data.futuresContract(security.symbol) != nullptr, futures) << qPrintable(security.symbol);
    }
    EXPECT_EQ(contracts, data.tables().futures.size());
    EXPECT_GE(contracts, 10);
}

TEST_F(ShippedData, LeavesOneSecurityWithoutAQuoteAndOneWithoutAPriceLimit)
{
    EXPECT_EQ(data.quote("600090.SH"_s), nullptr);
    ASSERT_NE(data.quote("600091.SH"_s), nullptr);
    EXPECT_FALSE(data.quote("600091.SH"_s)->fields.contains("MaxPx"_s));
    for (const Quote& quote : data.tables().quotes) {
        EXPECT_NE(data.security(quote.symbol), nullptr) << qPrintable(quote.symbol);
    }
}

TEST_F(ShippedData, ReadsAMarketHoweverItIsWritten)
{
    const QList<QPair<QString, QString>> spellings = {
        {"sh"_s, "SH"_s},       {"上海"_s, "SH"_s},      {"沪市"_s, "SH"_s},   {"XSHG"_s, "SH"_s},
        {"上交所"_s, "SH"_s},   {" 深圳 "_s, "SZ"_s},    {"szse"_s, "SZ"_s},   {"北交所"_s, "BJ"_s},
        {"沪港通"_s, "HKSH"_s}, {"深港通"_s, "HKSZ"_s},  {"CFFEX"_s, "CFE"_s}, {"上期所"_s, "SHF"_s},
        {"CZCE"_s, "CZC"_s},    {"能源中心"_s, "INE"_s}, {"广期所"_s, "GFE"_s}};
    for (const auto& [written, exchange] : spellings) {
        EXPECT_EQ(data.normalizedExchange(written), exchange) << qPrintable(written);
    }
}

TEST_F(ShippedData, FindsHongKongSecuritiesUnderBothConnects)
{
    EXPECT_EQ(data.symbolOf("700"_s, "HKSH"_s), "00700.HK"_s);
    EXPECT_EQ(data.symbolOf("00700"_s, "深港通"_s), "00700.HK"_s);
}

TEST_F(ShippedData, HasAccountsOfEveryKind)
{
    const auto ofType = [&](const QString& type) {
        const QList<tagUserAccountInfo>& accounts = data.tables().accounts;
        return std::count_if(accounts.begin(), accounts.end(), [&](const tagUserAccountInfo& account) {
            return account.fundAccountType == type;
        });
    };
    EXPECT_GE(data.tables().accounts.size(), 6);
    EXPECT_GE(ofType("Cash"_s), 3);
    EXPECT_GE(ofType("Credit"_s), 1);
    EXPECT_GE(ofType("Futures"_s), 1);
    EXPECT_GE(ofType("Institution"_s), 1);
    EXPECT_EQ(data.securityAccount("80010002"_s, "HKSH"_s), QString());
    EXPECT_EQ(data.account("80010004"_s)->sysNodeId, QString());
    EXPECT_TRUE(data.isAllowed("80010003"_s, "AITWAP"_s));
    EXPECT_FALSE(data.isAllowed("80010003"_s, "AILOCK"_s));
}

} // namespace
