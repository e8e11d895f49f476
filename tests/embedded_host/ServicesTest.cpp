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
#include "tests/support/Text.h"

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
    const QList<AesStrategy> strategies = AlgoTradeLogicNew::GetInstance()->GetAllStrategies("algo"_s);
    ASSERT_EQ(strategies.size(), 2);
    EXPECT_EQ(strategies[0].name(), "AITWAP"_s);
    EXPECT_EQ(strategies[1].name(), "AIVWAP"_s);
    EXPECT_TRUE(AlgoTradeLogicNew::GetInstance()->GetAllStrategies("none"_s).isEmpty());
}

TEST_F(ServicesTest, UnknownStrategyIsADefaultOne)
{
    EXPECT_EQ(AlgoTradeLogicNew::GetInstance()->GetStrategy("GRID"_s).alias(), "网格"_s);
    EXPECT_EQ(AlgoTradeLogicNew::GetInstance()->GetStrategy("?"_s).name(), QString());
}

TEST_F(ServicesTest, RepoIsTold)
{
    EXPECT_TRUE(AlgoTradeLogicNew::GetInstance()->isBondRepoSymbol("204001.SH"_s));
    EXPECT_FALSE(AlgoTradeLogicNew::GetInstance()->isBondRepoSymbol("600000.SH"_s));
    EXPECT_FALSE(AlgoTradeLogicNew::GetInstance()->isBondRepoSymbol("?"_s));
}

TEST_F(ServicesTest, AuthorityFollowsTheReferenceData)
{
    ReferenceTables tables = sampleTables();
    tables.everythingAllowed = false;
    tables.authorities = {{"1001"_s, "AITWAP"_s}};
    const EmbeddedHost strict{ReferenceData(tables)};
    EXPECT_TRUE(AlgoTradeLogicNew::GetInstance()->hasCorrespAuthority("1001"_s, "AITWAP"_s, "algo"_s));
    EXPECT_FALSE(AlgoTradeLogicNew::GetInstance()->hasCorrespAuthority("2001"_s, "AITWAP"_s, "algo"_s));
}

TEST_F(ServicesTest, FieldsOfASecurityAreAnswered)
{
    CBusinessDataBase* base = CBusinessDataBase::GetInstance();
    EXPECT_EQ(base->GetSecurityTypeBySymbol("IF2512.CFE"_s), Norvik_Values::MdcSecurityType::FuturesType);
    EXPECT_EQ(base->GetSecuritySubTypeBySymbol("688001.SH"_s), "STAR"_s);
    EXPECT_EQ(base->GetSecurityExchangeBySymbol("00700.HK"_s), (QStringList{"HKSC"_s, "HKSZ"_s}));
    EXPECT_EQ(base->GetSymbolPostBySymbol("00700.HK"_s), Norvik_Values::SymbolPost::hk);
    EXPECT_EQ(base->GetSecurityChineseName("600000.SH"_s), "样本600000"_s);
    EXPECT_EQ(Data::GetASecurityExchangeBySymbol("00700.HK"_s), "HKSC"_s);
}

TEST_F(ServicesTest, UnknownSymbolAnswersEmpty)
{
    CBusinessDataBase* base = CBusinessDataBase::GetInstance();
    EXPECT_EQ(base->GetSecurityTypeBySymbol("?"_s), QString());
    EXPECT_EQ(base->GetSecurityExchangeBySymbol("?"_s), QStringList());
    EXPECT_EQ(Data::GetASecurityExchangeBySymbol("?"_s), QString());
    EXPECT_TRUE(Data::GetSecurityDetailsBySymbol("?"_s).isEmpty());
}

TEST_F(ServicesTest, SecurityWithoutExchangesHasNone)
{
    EXPECT_EQ(Data::GetASecurityExchangeBySymbol("900001.SH"_s), QString());
    EXPECT_EQ(Data::GetSymbolBySecurityIDAndExchange("900001"_s, "SH"_s), "900001.SH"_s);
}

TEST_F(ServicesTest, SystemNodeIsThatOfTheTradingAccount)
{
    CBusinessDataBase* base = CBusinessDataBase::GetInstance();
    EXPECT_EQ(base->GetSysNodeIDByAccount({{Norvik_Fields::UserAccount::tradingAccount, "2001"_s}}),
              "node2"_s);
    EXPECT_EQ(base->GetSysNodeIDByAccount({{Norvik_Fields::UserAccount::tradingAccount, "9"_s}}), QString());
    EXPECT_EQ(base->GetSysNodeIDByAccount({}), QString());
}

TEST_F(ServicesTest, LoginAccountIsTheOptions)
{
    EmbeddedHost::Options options;
    options.loginAccount = "张三"_s;
    const EmbeddedHost other(ReferenceData(sampleTables()), options);
    EXPECT_EQ(CBusinessDataBase::GetInstance()->GetLoginAccount(), "张三"_s);
}

TEST_F(ServicesTest, LotRulesOfASecurityAndOfAnUnknownOne)
{
    EXPECT_EQ(Data::GetDispFactorBySymbol("204001.SH"_s), 10);
    EXPECT_EQ(Data::GetMinQtyPerOrderBySymbol("688001.SH"_s), 200);
    EXPECT_EQ(Data::GetQtyStepBySymbol("688001.SH"_s), 1);
    EXPECT_EQ(Data::GetPricePrecisionBySymbol("204001.SH"_s, "SH"_s), 3);
    EXPECT_EQ(Data::GetDispFactorBySymbol("?"_s), 1);
    EXPECT_EQ(Data::GetMinQtyPerOrderBySymbol("?"_s), 100);
    EXPECT_EQ(Data::GetQtyStepBySymbol("?"_s), 100);
    EXPECT_EQ(Data::GetPricePrecisionBySymbol("?"_s, "SH"_s), 2);
}

TEST_F(ServicesTest, DetailsHoldTheSubType)
{
    EXPECT_EQ(Data::GetSecurityDetailsBySymbol("00700.HK"_s)
                  .value(Norvik_Fields::MDCFieldDefine::mdcSubSecurityType)
                  .toString(),
              "HK_MAIN"_s);
}

TEST_F(ServicesTest, OneRecordForAKnownAccountNoneForAnUnknownOne)
{
    const QList<tagUserAccountInfo> records = Data::GetAccountInfoListFromTrade("2001"_s, true);
    ASSERT_EQ(records.size(), 1);
    EXPECT_EQ(records[0].fundAccountType, "Credit"_s);
    EXPECT_TRUE(Data::GetAccountInfoListFromTrade("9"_s, true).isEmpty());
}

TEST_F(ServicesTest, FundAccountsAreAllInFileOrder)
{
    const QList<tagUserAccountInfo> accounts = Data::GetFundAccountListByFundProp(11, 16, true, {}, true);
    ASSERT_EQ(accounts.size(), 2);
    EXPECT_EQ(accounts[0].tradingAccount, "1001"_s);
    EXPECT_EQ(accounts[1].tradingAccount, "2001"_s);
}

TEST_F(ServicesTest, ExcludedFundAccountsAreLeftOut)
{
    const QStringList excluded = {"1001"_s};
    const QList<tagUserAccountInfo> accounts =
        Data::GetFundAccountListByFundProp(11, 16, true, excluded, true);
    ASSERT_EQ(accounts.size(), 1);
    EXPECT_EQ(accounts[0].tradingAccount, "2001"_s);
}

TEST_F(ServicesTest, SecurityAccountBelongsToAnExchange)
{
    EXPECT_EQ(Data::GetCurrentSecurityAccountByTradingAndExchange("1001"_s, "SZ"_s), "0001"_s);
    EXPECT_EQ(Data::GetCurrentSecurityAccountByTradingAndExchange("1001"_s, "HKSC"_s), QString());
}

TEST_F(ServicesTest, MarketNameIsStaticConfiguration)
{
    CDataBase* config = CDataBase::GetInstance();
    EXPECT_EQ(config->GetStaticCfgValue("TransExchangeToMarketName"_s, "HKSC"_s), "沪港通"_s);
    EXPECT_EQ(config->GetStaticCfgValue("TransExchangeToMarketName"_s, "NYSE"_s), QString());
    EXPECT_EQ(config->GetStaticCfgValue("Other"_s, "HKSC"_s), QString());
    EXPECT_EQ(SolveyBusiUtils::NormalizeSecurityExchange(" 沪港通"_s), "HKSC"_s);
}

TEST_F(ServicesTest, RatesKeepEmptyExchangesAndMissingKeys)
{
    HKExchangeRateTable rates;
    Data::GetHKStockExchangeRate(rates);
    EXPECT_EQ(rates.keys(), (QStringList{"HKSC"_s, "HKSZ"_s}));
    EXPECT_EQ(rates["HKSC"_s]["HKSExchgRateSell"_s], QVariant("0.95"_s));
    EXPECT_TRUE(rates["HKSZ"_s].isEmpty());
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
    EXPECT_EQ(FuturesLogicInterface::GetFuturesPricePrecision("IF2512.CFE"_s), 1);
    EXPECT_EQ(FuturesLogicInterface::GetFuturesPricePrecision("IF2603.CFE"_s), 3);
    EXPECT_EQ(FuturesLogicInterface::GetFuturesPricePrecision("?"_s), 2);
    EXPECT_EQ(FuturesLogicInterface::GetFuturesBaseData("IF2512.CFE"_s).contractMultiplier, 300);
    EXPECT_EQ(FuturesLogicInterface::GetFuturesBaseData("IF2603.CFE"_s).contractMultiplier, 1);
}

TEST_F(ServicesTest, RiskNoticeNeverStops)
{
    EXPECT_TRUE(Data::CheckSymbolRiskInfo({"600000.SH"_s}, "算法交易New"_s));
}

TEST_F(ServicesTest, LastPriceIsLastPxAboveZero)
{
    EXPECT_EQ(CommonQuotaHandler::getLastPriceFromTick({{"LastPx"_s, "10.5"_s}, {"PreClosePx"_s, "9"_s}}),
              10.5);
}

TEST_F(ServicesTest, LastPriceFallsBackOnThePreviousClose)
{
    EXPECT_EQ(CommonQuotaHandler::getLastPriceFromTick({{"PreClosePx"_s, "9"_s}}), 9);
    EXPECT_EQ(CommonQuotaHandler::getLastPriceFromTick({{"LastPx"_s, "0"_s}, {"PreClosePx"_s, "9"_s}}), 9);
    EXPECT_EQ(CommonQuotaHandler::getLastPriceFromTick({{"LastPx"_s, "-1"_s}, {"PreClosePx"_s, "9"_s}}), 9);
    EXPECT_EQ(CommonQuotaHandler::getLastPriceFromTick({{"LastPx"_s, "abc"_s}, {"PreClosePx"_s, "9"_s}}), 9);
}

TEST_F(ServicesTest, LastPriceIsZeroWithoutAnyPrice)
{
    EXPECT_EQ(CommonQuotaHandler::getLastPriceFromTick({}), 0);
    EXPECT_EQ(CommonQuotaHandler::getLastPriceFromTick({{"MaxPx"_s, "11"_s}}), 0);
}

TEST_F(ServicesTest, PricesReadTheSameWhereTheDecimalSignIsAComma)
{
    const QLocale before;
    QLocale::setDefault(QLocale(QLocale::German));
    EXPECT_EQ(CommonQuotaHandler::getLastPriceFromTick({{"LastPx"_s, "1234.5"_s}}), 1234.5);
    EXPECT_EQ(CommonQuotaHandler::getLastPriceFromTick({{"LastPx"_s, "1234,5"_s}}), 0);
    QLocale::setDefault(before);
}

TEST_F(ServicesTest, StillSnapshotIsThereWhenTheSubscriptionReturns)
{
    CommonQuotaHandler* quotes = CommonQuotaHandler::instance();
    EXPECT_TRUE(quotes->GetQuotaSnapshot("000001.SZ"_s, 0).isEmpty());
    quotes->SubscribeQuota({"000001.SZ"_s, "00700.HK"_s}, true, 0);
    EXPECT_EQ(quotes->GetQuotaSnapshot("000001.SZ"_s, 0), (Snapshot{{"PreClosePx"_s, "12.5"_s}}));
    EXPECT_TRUE(quotes->GetQuotaSnapshot("00700.HK"_s, 0).isEmpty()) << "no quote row";
}

TEST_F(ServicesTest, StoppedSubscriptionForgetsTheSnapshot)
{
    CommonQuotaHandler* quotes = CommonQuotaHandler::instance();
    quotes->SubscribeQuota({"600000.SH"_s, "000001.SZ"_s}, true, 0);
    quotes->SubscribeQuota({"600000.SH"_s}, false, 0);
    EXPECT_TRUE(quotes->GetQuotaSnapshot("600000.SH"_s, 0).isEmpty());
    EXPECT_EQ(host.quotes().subscribedSymbols(), QStringList{"000001.SZ"_s});
}

} // namespace
