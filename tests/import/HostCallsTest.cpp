#include "tests/import/ImportTest.h"

/// What an import asks of the host, with which arguments and in which order.
class HostCalls : public ImportTest {
protected:
    /// Position of the first, or the last, call of an operation; -1 for none.
    int firstOf(const char* operation)
    {
        const auto& calls = host->journal().calls();
        for (int i = 0; i < calls.size(); ++i) {
            if (calls.at(i).operation == QLatin1String(operation)) {
                return i;
            }
        }
        return -1;
    }
    int lastOf(const char* operation)
    {
        const auto& calls = host->journal().calls();
        for (int i = calls.size() - 1; i >= 0; --i) {
            if (calls.at(i).operation == QLatin1String(operation)) {
                return i;
            }
        }
        return -1;
    }
    static constexpr const char* Subscribe = "CommonQuotaHandler::SubscribeQuota";
    static constexpr const char* Snapshot = "CommonQuotaHandler::GetQuotaSnapshot";
    static constexpr const char* Risk = "SolveyBusinessDataInterface::CheckSymbolRiskInfo";
    static constexpr const char* Node = "CBusinessDataBase::GetSysNodeIDByAccount";
};

TEST_F(HostCalls, SubscribesOnceForAllSecuritiesOfTheFileAndOnceForThoseThatArePriced)
{
    open();
    host->journal().clear();
    importRows(Sheet::ordinary()
                   .add()
                   .add({{"证券代码"_s, "999999"_s}})
                   .add({{"证券代码"_s, "000001"_s}, {"市场"_s, "SZ"_s}})
                   .add()
                   .rows());
    const auto calls = callsOf(Subscribe);
    ASSERT_EQ(2, calls.size());
    EXPECT_EQ((QVariantList{QStringList{"600000.SH"_s, QString(), "000001.SZ"_s, "600000.SH"_s}, true, 0}),
              calls.at(0).arguments);
    EXPECT_EQ((QVariantList{QStringList{"600000.SH"_s, "000001.SZ"_s, "600000.SH"_s}, true, 0}),
              calls.at(1).arguments);
}

TEST_F(HostCalls, WaitsForTheFirstQuotesBehindEachSubscription)
{
    open();
    host->journal().clear();
    importRows(Sheet::ordinary().add().rows());
    const auto& calls = host->journal().calls();
    int waits = 0;
    for (int i = 0; i + 1 < calls.size(); ++i) {
        if (calls.at(i).operation == QLatin1String(Subscribe)) {
            EXPECT_GE(calls.at(i + 1).time - calls.at(i).time, std::chrono::milliseconds(300));
            ++waits;
        }
    }
    EXPECT_EQ(2, waits);
}

TEST_F(HostCalls, PricesAmountDrivenStrategiesWithoutQuotes)
{
    open("AITWAP7"_s);
    host->journal().clear();
    importRows(Sheet::amount().add().rows());
    EXPECT_EQ(1, callsOf(Subscribe).size());
    EXPECT_TRUE(callsOf(Snapshot).isEmpty());
    EXPECT_TRUE(callsOf("CommonQuotaHandler::getLastPriceFromTick").isEmpty());
}

TEST_F(HostCalls, TakesSnapshotsOnlyAfterTheSubscription)
{
    open("PursueHighLimit"_s);
    host->journal().clear();
    importRows(Sheet::sealing().add().rows());
    ASSERT_LE(0, firstOf(Subscribe));
    EXPECT_LT(firstOf(Subscribe), firstOf(Snapshot));
    for (const auto& call : callsOf(Snapshot)) {
        EXPECT_EQ((QVariantList{"600000.SH"_s, 0}), call.arguments);
    }
}

TEST_F(HostCalls, AsksForTheRiskNoticeOfTheAcceptedRowsAtTheEnd)
{
    open();
    host->journal().clear();
    importRows(Sheet::ordinary()
                   .add()
                   .add({{"证券代码"_s, "999999"_s}})
                   .add({{"证券代码"_s, "000001"_s}, {"市场"_s, "SZ"_s}})
                   .rows());
    const auto calls = callsOf(Risk);
    ASSERT_EQ(1, calls.size());
    EXPECT_EQ((QVariantList{QStringList{"600000.SH"_s, "000001.SZ"_s}, "算法交易New"_s}),
              calls.first().arguments);
    EXPECT_LT(lastOf(Node), firstOf(Risk));
    EXPECT_LT(firstOf(Risk), lastOf(Subscribe));
}

TEST_F(HostCalls, AsksForItEvenWhereNoRowWasAccepted)
{
    open();
    importRows(Sheet::ordinary().add({{"证券代码"_s, "999999"_s}}).rows());
    ASSERT_EQ(1, callsOf(Risk).size());
    EXPECT_EQ(QStringList(), callsOf(Risk).first().arguments.first().toStringList());
}

TEST_F(HostCalls, ResolvesASecurityByItsTypedCodeAndMarket)
{
    open();
    host->journal().clear();
    importRows(Sheet::ordinary().add({{"证券代码"_s, " 600000 "_s}, {"市场"_s, "沪市"_s}}).rows());
    const auto calls = callsOf("SolveyBusinessDataInterface::GetSymbolBySecurityIDAndExchange");
    ASSERT_FALSE(calls.isEmpty());
    EXPECT_EQ((QVariantList{" 600000 "_s, "沪市"_s}), calls.first().arguments);
    const auto normalized = callsOf("SolveyBusiUtils::NormalizeSecurityExchange");
    ASSERT_FALSE(normalized.isEmpty());
    EXPECT_EQ(QVariantList{"沪市"_s}, normalized.first().arguments);
    const auto accounts =
        callsOf("SolveyBusinessDataInterface::GetCurrentSecurityAccountByTradingAndExchange");
    ASSERT_FALSE(accounts.isEmpty());
    EXPECT_EQ((QVariantList{"CASH1"_s, "SH"_s}), accounts.first().arguments);
    const auto names = callsOf("CDataBase::GetStaticCfgValue");
    ASSERT_FALSE(names.isEmpty());
    EXPECT_EQ((QVariantList{"TransExchangeToMarketName"_s, "SH"_s}), names.first().arguments);
}

TEST_F(HostCalls, LooksTheMarketUpBeforeItKnowsWhetherTheSecurityExists)
{
    open();
    host->journal().clear();
    importRows(Sheet::ordinary().add({{"证券代码"_s, "999999"_s}}).rows());
    EXPECT_EQ(1, callsOf("SolveyBusiUtils::NormalizeSecurityExchange").size());
    EXPECT_EQ(1, callsOf("CDataBase::GetStaticCfgValue").size());
    EXPECT_LT(lastOf("CDataBase::GetStaticCfgValue"),
              firstOf("CBusinessDataBase::GetSecurityExchangeBySymbol"));
}

TEST_F(HostCalls, AsksForTheNodeWithNothingButTheAccount)
{
    open();
    host->journal().clear();
    importRows(Sheet::ordinary().add().rows());
    ASSERT_EQ(1, callsOf(Node).size());
    EXPECT_EQ((QVariantMap{{"tradingAccount"_s, "CASH1"_s}}),
              callsOf(Node).first().arguments.first().toMap());
}

TEST_F(HostCalls, CountsARowWithoutASecurityInTheSubscriptionToo)
{
    open("KF_TWAPPLUS"_s);
    host->journal().clear();
    importRows(Sheet::ordinary().add().addRow({QString()}).drop("创建后是否立即启动"_s).rows());
    ASSERT_LE(1, callsOf(Subscribe).size());
    EXPECT_EQ((QStringList{"600000.SH"_s, QString()}),
              callsOf(Subscribe).first().arguments.first().toStringList());
}
