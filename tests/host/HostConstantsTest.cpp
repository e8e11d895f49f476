#include "host/AlgoConstants.h"
#include "host/NorvikConstants.h"
#include "host/QuotaFields.h"
#include "host/SolveyConstants.h"
#include "tests/support/Text.h"

#include <gtest/gtest.h>

// The texts that travel between the dialog and its host, as others rely on them.

/// A constant whose text is its own name.
#define EXPECT_ITS_OWN_NAME(scope, name) EXPECT_EQ(scope::name, QStringLiteral(#name))

TEST(HostConstants, OfAParameterFormatAreTheirOwnNames)
{
    EXPECT_ITS_OWN_NAME(Algo_Fields::AlgoParamFields, paramName);
    EXPECT_ITS_OWN_NAME(Algo_Fields::AlgoParamFields, paramId);
    EXPECT_ITS_OWN_NAME(Algo_Fields::AlgoParamFields, ui);
    EXPECT_ITS_OWN_NAME(Algo_Fields::AlgoParamFields, columns);
    EXPECT_ITS_OWN_NAME(Algo_Fields::AlgoParamFields, display);
    EXPECT_ITS_OWN_NAME(Algo_Fields::AlgoParamFields, value);
    EXPECT_ITS_OWN_NAME(Algo_Fields::AlgoParamFields, strDefault);
    EXPECT_ITS_OWN_NAME(Algo_Fields::AlgoParamFields, visible);
    EXPECT_ITS_OWN_NAME(Algo_Fields::AlgoParamFields, required);
    EXPECT_ITS_OWN_NAME(Algo_Fields::AlgoParamFields, options);
    EXPECT_ITS_OWN_NAME(Algo_Values::AlgoParamUiType, Table);
    EXPECT_ITS_OWN_NAME(Algo_Values::AlgoParamUiType, ComboBox);
    EXPECT_ITS_OWN_NAME(Algo_Values::AlgoParamUiType, DateTime);
    EXPECT_ITS_OWN_NAME(Algo_Values::AlgoParamUiType, LineEdit);
    EXPECT_ITS_OWN_NAME(Algo_Values::AlgoParamOptions, currentTime);
    EXPECT_ITS_OWN_NAME(Algo_Values::AlgoGlobalType, algo);
}

TEST(HostConstants, OfAnInstanceAreTheColumnsAndKeysOfTheTrader)
{
    namespace Info = Algo_Fields::AlgoInstContentInfo;
    EXPECT_EQ(Info::Symbol, "证券代码"_s);
    EXPECT_EQ(Info::Exchange, "市场"_s);
    EXPECT_EQ(Info::Quantity, "委托数量"_s);
    EXPECT_EQ(Info::Quantity_Amount, "委托金额"_s);
    EXPECT_EQ(Info::PriceLimits, "委托限价"_s);
    EXPECT_EQ(Info::TradingAccount, "交易账号"_s);
    EXPECT_EQ(Info::SecurityAccount, "证券账号"_s);
    EXPECT_EQ(Info::fundAccount, "资金账号"_s);
    EXPECT_EQ(Info::SymbolMdcType, "证券子类型"_s);
    EXPECT_EQ(Info::maxPrice, "涨停价"_s);
    EXPECT_EQ(Info::preClosePrice, "昨收价"_s);
    EXPECT_EQ(Info::AlgoStartTime, "开始时间"_s);
    EXPECT_EQ(Info::AlgoEndTime, "结束时间"_s);
    EXPECT_EQ(Info::participationrate, "最大市场占比"_s);
    EXPECT_EQ(Info::minAmout, "单笔最小委托金额"_s);
    EXPECT_EQ(Algo_Values::AlgoParamId::AlgoSecurityList, "证券代码和委托数量"_s);
    EXPECT_EQ(Algo_Values::AlgoParamId::traderOrder, "交易方向"_s);
    EXPECT_EQ(Algo_Values::AlgoParamId::entrustProp, "委托属性"_s);
    EXPECT_EQ(Algo_Values::AlgoParamId::SellBalance, "卖单金额"_s);
    EXPECT_EQ(Algo_Values::AlgoParamId::InvestType, "投资类型"_s);
}

TEST(HostConstants, OfDirectionsTellTheSidesApart)
{
    EXPECT_EQ(Algo_Values::AlgoOrderSide::BuyValue, "Buy"_s);
    EXPECT_EQ(Algo_Values::AlgoOrderSide::SellValue, "Sell"_s);
    EXPECT_ITS_OWN_NAME(Algo_Values::FutureSide, BuyOpen);
    EXPECT_ITS_OWN_NAME(Algo_Values::FutureSide, SellOpen);
    EXPECT_ITS_OWN_NAME(Algo_Values::FutureSide, BuyClose);
    EXPECT_ITS_OWN_NAME(Algo_Values::FutureSide, SellClose);
    EXPECT_EQ(Algo_Values::FutureSide::BuyOpenChi, "买入开仓"_s);
    EXPECT_EQ(Algo_Values::FutureSide::SellOpenChi, "卖出开仓"_s);
    EXPECT_EQ(Algo_Values::FutureSide::BuyCloseChi, "买入平仓"_s);
    EXPECT_EQ(Algo_Values::FutureSide::SellCloseChi, "卖出平仓"_s);
    EXPECT_EQ(Norvik_Values::OrderSide::buy, "1"_s);
    EXPECT_EQ(Norvik_Values::OrderSide::sell, "2"_s);
    EXPECT_EQ(Solvey_Values::SideUnion::openBuy, "3"_s);
    EXPECT_EQ(Solvey_Values::SideUnion::openSell, "4"_s);
    EXPECT_EQ(Solvey_Values::SideUnion::closeBuy, "5"_s);
    EXPECT_EQ(Solvey_Values::SideUnion::closeSell, "6"_s);
}

TEST(HostConstants, OfAnOrderSayHowItIsEntrustedAndStarted)
{
    EXPECT_EQ(Algo_Values::entrustProp::normalTrade, "0"_s);
    EXPECT_EQ(Algo_Values::entrustProp::financingBuy, "6"_s);
    EXPECT_EQ(Algo_Values::entrustProp::creditTrade, "9"_s);
    EXPECT_EQ(Algo_Values::entrustProp::sellBondNormal, "7"_s);
    EXPECT_EQ(Algo_Values::entrustProp::sellBond_2, "A"_s);
    EXPECT_EQ(Algo_Values::AlgoInstruction::Create, "0"_s);
    EXPECT_EQ(Algo_Values::AlgoInstruction::StartOnCreate, "7"_s);
}

TEST(HostConstants, OfAccountsAndSecuritiesAreTheClassesOfTheMarket)
{
    namespace SubType = Solvey_Values::MdcSubSecurityType;
    EXPECT_ITS_OWN_NAME(Solvey_Values::FundAccountType, Cash);
    EXPECT_ITS_OWN_NAME(Solvey_Values::FundAccountType, Credit);
    EXPECT_EQ(SubType::ScienTechInnovateBoard, "STAR"_s);
    EXPECT_EQ(SubType::BjSelectedStock, "BJ_SELECTED"_s);
    EXPECT_EQ(SubType::HKSharesTypeList, (QStringList{"HK_MAIN"_s, "HK_GEM"_s}));
    EXPECT_EQ(SubType::HStcokCirculation, "H_CIRCULATION"_s);
    EXPECT_EQ(Norvik_Values::MdcSecurityType::FuturesType, "FUTURES"_s);
    EXPECT_EQ(Norvik_Values::SymbolPost::hk, "HK"_s);
}

TEST(HostConstants, OfFieldsAreTheirOwnNames)
{
    EXPECT_ITS_OWN_NAME(Norvik_Fields::UserAccount, tradingAccount);
    EXPECT_ITS_OWN_NAME(Norvik_Fields::MDCFieldDefine, mdcSubSecurityType);
    EXPECT_ITS_OWN_NAME(Solvey_Fields::HKSExchgRate, HKSExchgRateBuy);
    EXPECT_ITS_OWN_NAME(Solvey_Fields::HKSExchgRate, HKSExchgRateSell);
    EXPECT_ITS_OWN_NAME(SolveyConstants::TemplateFileType, AlgoBatchSingle);
    EXPECT_ITS_OWN_NAME(QuotaFields, MaxPx);
    EXPECT_ITS_OWN_NAME(QuotaFields, PreClosePx);
}
