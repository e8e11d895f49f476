#include "embedded_host/HostJournal.h"

#include "embedded_host/EmbeddedHost.h"
#include "host/AlgoTradeLogicNew.h"
#include "host/CBusinessDataBase.h"
#include "host/CommonQuotaHandler.h"
#include "host/FuturesLogicInterface.h"
#include "host/SolveyBusinessDataInterface.h"
#include "host/SolveyUtils.h"
#include "host/ZelCore.h"
#include "tests/embedded_host/SampleTables.h"
#include "tests/support/Text.h"

#include <gtest/gtest.h>

#include <QWidget>

namespace {

class HostJournalTest : public testing::Test {
protected:
    HostJournalTest() { host.journal().setRecording(true); }

    QVariantList onlyArgumentsOf(const QString& operation) const
    {
        const QList<HostJournal::Call> calls = host.journal().callsOf(operation);
        EXPECT_EQ(calls.size(), 1) << operation.toStdString();
        return calls.value(0).arguments;
    }

    mutable EmbeddedHost host{ReferenceData(sampleTables())};
};

TEST_F(HostJournalTest, NothingIsNotedWhileNotRecording)
{
    host.journal().setRecording(false);
    FuturesLogicInterface::InitData();
    EXPECT_TRUE(host.journal().calls().isEmpty());
}

TEST_F(HostJournalTest, CallsStandInTheirOrderUntilCleared)
{
    FuturesLogicInterface::InitData();
    CBusinessDataBase::GetInstance()->GetLoginAccount();
    ASSERT_EQ(host.journal().calls().size(), 2);
    EXPECT_EQ(host.journal().calls()[0].operation, "FuturesLogicInterface::InitData"_s);
    EXPECT_EQ(host.journal().calls()[1].operation, "CBusinessDataBase::GetLoginAccount"_s);
    host.journal().clear();
    EXPECT_TRUE(host.journal().calls().isEmpty());
}

TEST_F(HostJournalTest, SubscriptionIsNotedWithItsSymbolsFlagAndType)
{
    const QStringList symbols{"600000.SH"_s, QString(), "600000.SH"_s};
    CommonQuotaHandler::instance()->SubscribeQuota(symbols, true, 0);
    EXPECT_EQ(onlyArgumentsOf("CommonQuotaHandler::SubscribeQuota"_s), (QVariantList{symbols, true, 0}));
}

TEST_F(HostJournalTest, FundAccountQueryIsNotedWithItsFiveArguments)
{
    SolveyBusinessDataInterface::GetFundAccountListByFundProp(11, 16, true, {}, true);
    EXPECT_EQ(onlyArgumentsOf("SolveyBusinessDataInterface::GetFundAccountListByFundProp"_s),
              (QVariantList{11, 16, true, QStringList(), true}));
}

TEST_F(HostJournalTest, MapsAndListsAreNotedAsTheyCame)
{
    const QMap<QString, QVariant> account{{"tradingAccount"_s, "1001"_s}};
    CBusinessDataBase::GetInstance()->GetSysNodeIDByAccount(account);
    EXPECT_EQ(onlyArgumentsOf("CBusinessDataBase::GetSysNodeIDByAccount"_s), QVariantList{account});
    SolveyBusinessDataInterface::CheckSymbolRiskInfo({"600000.SH"_s}, "算法交易New"_s);
    EXPECT_EQ(onlyArgumentsOf("SolveyBusinessDataInterface::CheckSymbolRiskInfo"_s),
              (QVariantList{QStringList{"600000.SH"_s}, "算法交易New"_s}));
}

TEST_F(HostJournalTest, SettingsAreNotedWithTheScopeAsANumber)
{
    ZelCore::instance()->saveSetting("K"_s, true, "G"_s, "F"_s, QSettings::SystemScope);
    EXPECT_EQ(onlyArgumentsOf("ZelCore::saveSetting"_s), (QVariantList{"K"_s, true, "G"_s, "F"_s, 1}));
    ZelCore::instance()->settings("K"_s, QString(), QString(), QSettings::UserScope);
    EXPECT_EQ(onlyArgumentsOf("ZelCore::settings"_s), (QVariantList{"K"_s, QString(), QString(), 0}));
}

TEST_F(HostJournalTest, WidgetIsNotedByItsNameOrItsClass)
{
    QWidget named;
    named.setObjectName("box"_s);
    QWidget nameless;
    SolveyUtils::GetWidgetPos(&named, WidgetShowPosType::ActiveWindowCenter);
    SolveyUtils::GetWidgetPos(&nameless, WidgetShowPosType::CursorPos);
    SolveyUtils::GetWidgetPos(nullptr, WidgetShowPosType::ParentTopLeft);
    const QList<HostJournal::Call> calls = host.journal().callsOf("SolveyUtils::GetWidgetPos"_s);
    ASSERT_EQ(calls.size(), 3);
    EXPECT_EQ(calls[0].arguments, (QVariantList{"box"_s, 2}));
    EXPECT_EQ(calls[1].arguments, (QVariantList{"QWidget"_s, 0}));
    EXPECT_EQ(calls[2].arguments, (QVariantList{QString(), 1}));
}

TEST_F(HostJournalTest, AuthorityQuestionIsNotedWithAccountStrategyAndType)
{
    AlgoTradeLogicNew::GetInstance()->hasCorrespAuthority("1001"_s, "AITWAP"_s, "algo"_s);
    EXPECT_EQ(onlyArgumentsOf("AlgoTradeLogicNew::hasCorrespAuthority"_s),
              (QVariantList{"1001"_s, "AITWAP"_s, "algo"_s}));
}

} // namespace
