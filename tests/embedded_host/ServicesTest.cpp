#include "embedded_host/EmbeddedHost.h"
#include "embedded_host/quotes/QuoteBoard.h"
#include "host/AlgoTradeLogicNew.h"
#include "host/CBusinessDataBase.h"
#include "host/CDataBase.h"
#include "host/CommonQuotaHandler.h"
#include "host/FuturesLogicInterface.h"
#include "host/NorvikConstants.h"
#include "host/SolveyBusinessDataInterface.h"
#include "host/SolveyBusiUtils.h"
#include "tests/embedded_host/SampleTables.h"
#include "tests/embedded_host/Support.h"

#include <gtest/gtest.h>

#include <QLocale>

namespace {

using Data = SolveyBusinessDataInterface;
using Snapshot = QMap<QString, QVariant>;

class ServicesTest : public testing::Test {
protected:
    EmbeddedHost host{ReferenceData(sampleTables())};
};

TEST_F(ServicesTest, StrategiesOfAGlobalTypeComeInCatalogueOrder)
{
    const QList<AesStrategy> strategies = AlgoTradeLogicNew::GetInstance()->GetAllStrategies(u"algo"_s);
    ASSERT_EQ(strategies.size(), 2);
    EXPECT_EQ(strategies[0].name(), u"AITWAP"_s);
    EXPECT_EQ(strategies[1].name(), u"AIVWAP"_s);
    EXPECT_TRUE(AlgoTradeLogicNew::GetInstance()->GetAllStrategies(u"none"_s).isEmpty());
}

TEST_F(ServicesTest, UnknownStrategyIsADefaultOne)
{
    EXPECT_EQ(AlgoTradeLogicNew::GetInstance()->GetStrategy(u"GRID"_s).alias(), u"网格"_s);
    EXPECT_EQ(AlgoTradeLogicNew::GetInstance()->GetStrategy(u"?"_s).name(), QString());
}

TEST_F(ServicesTest, RepoIsTold)
{
    EXPECT_TRUE(AlgoTradeLogicNew::GetInstance()->isBondRepoSymbol(u"204001.SH"_s));
    EXPECT_FALSE(AlgoTradeLogicNew::GetInstance()->isBondRepoSymbol(u"600000.SH"_s));
    EXPECT_FALSE(AlgoTradeLogicNew::GetInstance()->isBondRepoSymbol(u"?"_s));
}

TEST_F(ServicesTest, AuthorityFollowsTheReferenceData)
{
    ReferenceTables tables = sampleTables();
    tables.everythingAllowed = false;
    tables.authorities = {{u"1001"_s, u"AITWAP"_s}};
    const EmbeddedHost strict{ReferenceData(tables)};
    EXPECT_TRUE(AlgoTradeLogicNew::GetInstance()->hasCorrespAuthority(u"1001"_s, u"AITWAP"_s, u"algo"_s));
    EXPECT_FALSE(AlgoTradeLogicNew::GetInstance()->hasCorrespAuthority(u"2001"_s, u"AITWAP"_s, u"algo"_s));
}

TEST_F(ServicesTest, FieldsOfASecurityAreAnswered)
{
    CBusinessDataBase* base = CBusinessDataBase::GetInstance();
    EXPECT_EQ(base->GetSecurityTypeBySymbol(u"IF2512.CFE"_s), Norvik_Values::MdcSecurityType::FuturesType);
    EXPECT_EQ(base->GetSecuritySubTypeBySymbol(u"688001.SH"_s), u"STAR"_s);
    EXPECT_EQ(base->GetSecurityExchangeBySymbol(u"00700.HK"_s), (QStringList{u"HKSC"_s, u"HKSZ"_s}));
    EXPECT_EQ(base->GetSymbolPostBySymbol(u"00700.HK"_s), Norvik_Values::SymbolPost::hk);
    EXPECT_EQ(base->GetSecurityChineseName(u"600000.SH"_s), u"样本600000"_s);
    EXPECT_EQ(Data::GetASecurityExchangeBySymbol(u"00700.HK"_s), u"HKSC"_s);
}

TEST_F(ServicesTest, UnknownSymbolAnswersEmpty)
{
    CBusinessDataBase* base = CBusinessDataBase::GetInstance();
    EXPECT_EQ(base->GetSecurityTypeBySymbol(u"?"_s), QString());
    EXPECT_EQ(base->GetSecurityExchangeBySymbol(u"?"_s), QStringList());
    EXPECT_EQ(Data::GetASecurityExchangeBySymbol(u"?"_s), QString());
    EXPECT_TRUE(Data::GetSecurityDetailsBySymbol(u"?"_s).isEmpty());
}

TEST_F(ServicesTest, SecurityWithoutExchangesHasNone)
{
    EXPECT_EQ(Data::GetASecurityExchangeBySymbol(u"900001.SH"_s), QString());
    EXPECT_EQ(Data::GetSymbolBySecurityIDAndExchange(u"900001"_s, u"SH"_s), u"900001.SH"_s);
}

TEST_F(ServicesTest, SystemNodeIsThatOfTheTradingAccount)
{
    CBusinessDataBase* base = CBusinessDataBase::GetInstance();
    EXPECT_EQ(base->GetSysNodeIDByAccount({{Norvik_Fields::UserAccount::tradingAccount, u"2001"_s}}),
              u"node2"_s);
    EXPECT_EQ(base->GetSysNodeIDByAccount({{Norvik_Fields::UserAccount::tradingAccount, u"9"_s}}), QString());
    EXPECT_EQ(base->GetSysNodeIDByAccount({}), QString());
}

TEST_F(ServicesTest, LoginAccountIsTheOptions)
{
    EmbeddedHost::Options options;
    options.loginAccount = u"张三"_s;
    const EmbeddedHost other(ReferenceData(sampleTables()), options);
    EXPECT_EQ(CBusinessDataBase::GetInstance()->GetLoginAccount(), u"张三"_s);
}

TEST_F(ServicesTest, LotRulesOfASecurityAndOfAnUnknownOne)
{
    EXPECT_EQ(Data::GetDispFactorBySymbol(u"204001.SH"_s), 10);
    EXPECT_EQ(Data::GetMinQtyPerOrderBySymbol(u"688001.SH"_s), 200);
    EXPECT_EQ(Data::GetQtyStepBySymbol(u"688001.SH"_s), 1);
    EXPECT_EQ(Data::GetPricePrecisionBySymbol(u"204001.SH"_s, u"SH"_s), 3);
    EXPECT_EQ(Data::GetDispFactorBySymbol(u"?"_s), 1);
    EXPECT_EQ(Data::GetMinQtyPerOrderBySymbol(u"?"_s), 100);
    EXPECT_EQ(Data::GetQtyStepBySymbol(u"?"_s), 100);
    EXPECT_EQ(Data::GetPricePrecisionBySymbol(u"?"_s, u"SH"_s), 2);
}

TEST_F(ServicesTest, DetailsHoldTheSubType)
{
    EXPECT_EQ(Data::GetSecurityDetailsBySymbol(u"00700.HK"_s)
                  .value(Norvik_Fields::MDCFieldDefine::mdcSubSecurityType)
                  .toString(),
              u"HK_MAIN"_s);
}

TEST_F(ServicesTest, OneRecordForAKnownAccountNoneForAnUnknownOne)
{
    const QList<tagUserAccountInfo> records = Data::GetAccountInfoListFromTrade(u"2001"_s, true);
    ASSERT_EQ(records.size(), 1);
    EXPECT_EQ(records[0].fundAccountType, u"Credit"_s);
    EXPECT_TRUE(Data::GetAccountInfoListFromTrade(u"9"_s, true).isEmpty());
}

TEST_F(ServicesTest, FundAccountsAreAllInFileOrder)
{
    const QList<tagUserAccountInfo> accounts = Data::GetFundAccountListByFundProp(11, 16, true, {}, true);
    ASSERT_EQ(accounts.size(), 2);
    EXPECT_EQ(accounts[0].tradingAccount, u"1001"_s);
    EXPECT_EQ(accounts[1].tradingAccount, u"2001"_s);
}

TEST_F(ServicesTest, SecurityAccountBelongsToAnExchange)
{
    EXPECT_EQ(Data::GetCurrentSecurityAccountByTradingAndExchange(u"1001"_s, u"SZ"_s), u"0001"_s);
    EXPECT_EQ(Data::GetCurrentSecurityAccountByTradingAndExchange(u"1001"_s, u"HKSC"_s), QString());
}

TEST_F(ServicesTest, MarketNameIsStaticConfiguration)
{
    CDataBase* config = CDataBase::GetInstance();
    EXPECT_EQ(config->GetStaticCfgValue(u"TransExchangeToMarketName"_s, u"HKSC"_s), u"沪港通"_s);
    EXPECT_EQ(config->GetStaticCfgValue(u"TransExchangeToMarketName"_s, u"NYSE"_s), QString());
    EXPECT_EQ(config->GetStaticCfgValue(u"Other"_s, u"HKSC"_s), QString());
    EXPECT_EQ(SolveyBusiUtils::NormalizeSecurityExchange(u" 沪港通"_s), u"HKSC"_s);
}

TEST_F(ServicesTest, RatesKeepEmptyExchangesAndMissingKeys)
{
    HKExchangeRateTable rates;
    Data::GetHKStockExchangeRate(rates);
    EXPECT_EQ(rates.keys(), (QStringList{u"HKSC"_s, u"HKSZ"_s}));
    EXPECT_EQ(rates[u"HKSC"_s][u"HKSExchgRateSell"_s], QVariant(u"0.95"_s));
    EXPECT_TRUE(rates[u"HKSZ"_s].isEmpty());
}

TEST_F(ServicesTest, NoRatesLeaveTheTableEmpty)
{
    const EmbeddedHost bare{ReferenceData()};
    HKExchangeRateTable rates;
    Data::GetHKStockExchangeRate(rates);
    EXPECT_TRUE(rates.isEmpty());
}

TEST_F(ServicesTest, FuturesMissingInTheContractListFallBackOnTheSecurity)
{
    EXPECT_EQ(FuturesLogicInterface::GetFuturesPricePrecision(u"IF2512.CFE"_s), 1);
    EXPECT_EQ(FuturesLogicInterface::GetFuturesPricePrecision(u"IF2603.CFE"_s), 3);
    EXPECT_EQ(FuturesLogicInterface::GetFuturesPricePrecision(u"?"_s), 2);
    EXPECT_EQ(FuturesLogicInterface::GetFuturesBaseData(u"IF2512.CFE"_s).contractMultiplier, 300);
    EXPECT_EQ(FuturesLogicInterface::GetFuturesBaseData(u"IF2603.CFE"_s).contractMultiplier, 1);
}

TEST_F(ServicesTest, RiskNoticeNeverStops)
{
    EXPECT_TRUE(Data::CheckSymbolRiskInfo({u"600000.SH"_s}, u"算法交易New"_s));
}

TEST_F(ServicesTest, LastPriceIsLastPxAboveZero)
{
    EXPECT_EQ(CommonQuotaHandler::getLastPriceFromTick({{u"LastPx"_s, u"10.5"_s}, {u"PreClosePx"_s, u"9"_s}}),
              10.5);
}

TEST_F(ServicesTest, LastPriceFallsBackOnThePreviousClose)
{
    EXPECT_EQ(CommonQuotaHandler::getLastPriceFromTick({{u"PreClosePx"_s, u"9"_s}}), 9);
    EXPECT_EQ(CommonQuotaHandler::getLastPriceFromTick({{u"LastPx"_s, u"0"_s}, {u"PreClosePx"_s, u"9"_s}}),
              9);
    EXPECT_EQ(CommonQuotaHandler::getLastPriceFromTick({{u"LastPx"_s, u"-1"_s}, {u"PreClosePx"_s, u"9"_s}}),
              9);
    EXPECT_EQ(CommonQuotaHandler::getLastPriceFromTick({{u"LastPx"_s, u"abc"_s}, {u"PreClosePx"_s, u"9"_s}}),
              9);
}

TEST_F(ServicesTest, LastPriceIsZeroWithoutAnyPrice)
{
    EXPECT_EQ(CommonQuotaHandler::getLastPriceFromTick({}), 0);
    EXPECT_EQ(CommonQuotaHandler::getLastPriceFromTick({{u"MaxPx"_s, u"11"_s}}), 0);
}

TEST_F(ServicesTest, PricesReadTheSameWhereTheDecimalSignIsAComma)
{
    const QLocale before;
    QLocale::setDefault(QLocale(QLocale::German));
    EXPECT_EQ(CommonQuotaHandler::getLastPriceFromTick({{u"LastPx"_s, u"1234.5"_s}}), 1234.5);
    EXPECT_EQ(CommonQuotaHandler::getLastPriceFromTick({{u"LastPx"_s, u"1234,5"_s}}), 0);
    QLocale::setDefault(before);
}

TEST_F(ServicesTest, StillSnapshotIsThereWhenTheSubscriptionReturns)
{
    CommonQuotaHandler* quotes = CommonQuotaHandler::instance();
    EXPECT_TRUE(quotes->GetQuotaSnapshot(u"000001.SZ"_s, 0).isEmpty());
    quotes->SubscribeQuota({u"000001.SZ"_s, u"00700.HK"_s}, true, 0);
    EXPECT_EQ(quotes->GetQuotaSnapshot(u"000001.SZ"_s, 0), (Snapshot{{u"PreClosePx"_s, u"12.5"_s}}));
    EXPECT_TRUE(quotes->GetQuotaSnapshot(u"00700.HK"_s, 0).isEmpty()) << "no quote row";
}

TEST_F(ServicesTest, StoppedSubscriptionForgetsTheSnapshot)
{
    CommonQuotaHandler* quotes = CommonQuotaHandler::instance();
    quotes->SubscribeQuota({u"600000.SH"_s, u"000001.SZ"_s}, true, 0);
    quotes->SubscribeQuota({u"600000.SH"_s}, false, 0);
    EXPECT_TRUE(quotes->GetQuotaSnapshot(u"600000.SH"_s, 0).isEmpty());
    EXPECT_EQ(host.quotes().subscribedSymbols(), QStringList{u"000001.SZ"_s});
}

} // namespace
