#include "embedded_host/skin/SkinService.h"
#include "tests/support/DialogFixture.h"
#include "tests/support/LogCapture.h"

#include <QCheckBox>
#include <QPointer>
#include <QSettings>
#include <QSignalSpy>

namespace {

using namespace small_market;

class Construction : public DialogFixture {};

} // namespace

TEST_F(Construction, ListsTheCatalogueInItsOrderWithTheCodesAsData)
{
    construct();
    ASSERT_EQ(algoTypes().count(), tables.strategies.size());
    for (int i = 0; i < algoTypes().count(); ++i) {
        EXPECT_EQ(algoTypes().itemText(i), tables.strategies.at(i).alias());
        EXPECT_EQ(algoTypes().itemData(i), QVariant(tables.strategies.at(i).name()));
        EXPECT_TRUE(algoTypes().itemIcon(i).isNull());
    }
    algoTypes().blockSignals(true);
    algoTypes().setCurrentIndex(1);
    EXPECT_EQ(algoTypes().currentData(), QVariant("AIVWAP"_s));
}

TEST_F(Construction, AsksTheHostForSkinFuturesAndCatalogueInThisOrderAndRunsNoSlot)
{
    construct();
    const QList<HostJournal::Call>& calls = host->journal().calls();
    ASSERT_EQ(calls.size(), 3);
    EXPECT_EQ(calls.at(0).operation, "ZelCore::addStyle2View"_s);
    EXPECT_EQ(calls.at(0).arguments, QVariantList{"Solvey/algoTrade/algoTradeNew.css"_s});
    EXPECT_EQ(calls.at(1).operation, "FuturesLogicInterface::InitData"_s);
    EXPECT_EQ(calls.at(2).operation, "AlgoTradeLogicNew::GetAllStrategies"_s);
    EXPECT_EQ(calls.at(2).arguments, QVariantList{"algo"_s});
}

TEST_F(Construction, TheFormStandsBeforeTheSkinIsAskedForAndTheFixedTablesBeforeTheFuturesData)
{
    openHost();
    QWidget parent;
    QStringList seen;
    host->journal().whileNoting([&](const HostJournal::Call& call) {
        auto& half = static_cast<AlgoBatchImportParamSetting&>(
            *parent.findChild<QWidget*>("AlgoBatchImportParamSetting"_s, Qt::FindDirectChildrenOnly));
        DialogInspector made(half);
        seen.append(
            "%1: form %2, tables %3, algorithm types %4"_s.arg(call.operation)
                .arg(half.findChild<QPushButton*>("btn_ok"_s) != nullptr)
                .arg(made.acceptedValues().size() + made.headAliases().size() + made.numericColumns().size())
                .arg(half.findChild<QComboBox*>("cbx_algoType"_s)->count()));
    });
    const AlgoBatchImportParamSetting whole(&parent, SelectableStrategy);
    host->journal().whileNoting({});
    EXPECT_EQ(seen,
              (QStringList{"ZelCore::addStyle2View: form 1, tables 0, algorithm types 0"_s,
                           "FuturesLogicInterface::InitData: form 1, tables 19, algorithm types 0"_s,
                           "AlgoTradeLogicNew::GetAllStrategies: form 1, tables 19, algorithm types 0"_s}));
}

TEST_F(Construction, PreparesFuturesDataOnceHoweverManyStrategiesAreLoaded)
{
    open();
    load("AILOCK"_s);
    load("G-TWAP"_s);
    EXPECT_EQ(callsOf("FuturesLogicInterface::InitData").size(), 1);
    EXPECT_EQ(callsOf("ZelCore::addStyle2View").size(), 1);
}

TEST_F(Construction, LoadsNoStrategyNoAccountsAndNoSettings)
{
    construct();
    EXPECT_EQ(table().headNames(), QStringList());
    EXPECT_EQ(accounts().count(), 0);
    EXPECT_EQ(inspect().settings(), nullptr);
    EXPECT_TRUE(inspect().isCreatedClose());
    EXPECT_FALSE(child<QCheckBox>("checkbx_createdClose").isChecked());
    EXPECT_TRUE(dialog->getWidgetData().isEmpty());
    EXPECT_EQ(dialog->getStrategy().name(), QString());
    EXPECT_FALSE(inspect().isCsvFile());
    EXPECT_EQ(inspect().dateTimeFormat(), QString());
    EXPECT_TRUE(inspect().strategyCodes().isEmpty());
    EXPECT_TRUE(inspect().extraColumns().isEmpty());
}

TEST_F(Construction, AnEmptyCatalogueLeavesTheBoxEmptyAndLogsItsCount)
{
    tables.strategies.clear();
    LogCapture log;
    construct();
    EXPECT_EQ(algoTypes().count(), 0);
    EXPECT_EQ(dialog->getCurrentAlgoName(), QString());
    EXPECT_TRUE(log.text().contains("###algoList.count():  0"_s)) << qPrintable(log.text());
}

TEST_F(Construction, LogsEachStrategysAliasAndName)
{
    LogCapture log;
    construct();
    EXPECT_TRUE(log.text().contains("alias:  \"策略AITWAP\" name:  \"AITWAP\""_s)) << qPrintable(log.text());
}

TEST_F(Construction, FillsTheAcceptedValuesOfStyleAndDirection)
{
    construct();
    const QMap<QString, QMap<QString, QString>> expected = {
        {"风格参数"_s, {{"neutral"_s, "平稳"_s}, {"aggressive"_s, "激进"_s}}},
        {"交易方向"_s,
         {{"1"_s, "买入"_s},
          {"2"_s, "卖出"_s},
          {"3"_s, "买入开仓"_s},
          {"4"_s, "卖出开仓"_s},
          {"5"_s, "买入平仓"_s},
          {"6"_s, "卖出平仓"_s}}}};
    EXPECT_EQ(inspect().acceptedValues(), expected);
}

TEST_F(Construction, FillsTheHeaderAliases)
{
    construct();
    const QMap<QString, QString> expected = {{"方向"_s, "交易方向"_s},
                                             {"数量"_s, "委托数量"_s},
                                             {"限价"_s, "委托限价"_s},
                                             {"代码"_s, "证券代码"_s},
                                             {"扫盘比例(%)"_s, "扫盘比例（%）"_s},
                                             {"备注"_s, "实例备注"_s},
                                             {"名称"_s, "证券名称"_s}};
    EXPECT_EQ(inspect().headAliases(), expected);
}

TEST_F(Construction, FillsTheColumnsOfWholeNumbersInTheirOrder)
{
    construct();
    EXPECT_EQ(inspect().numericColumns(), (QStringList{"数量"_s, "委托数量"_s, "单笔最大"_s, "单笔最小"_s,
                                                       "单笔最小量"_s, "单笔最大委托数量"_s, "起始成本"_s,
                                                       "单笔最小委托金额"_s, "最差滑点"_s, "卖单金额"_s}));
}

TEST_F(Construction, TheMembersStandInTheirOrder)
{
    construct();
    const QVector<const void*> members = inspect().memberAddresses();
    for (int i = 1; i < members.size(); ++i) {
        EXPECT_LT(members.at(i - 1), members.at(i)) << i;
    }
}

// ---- skin

TEST_F(Construction, AnInvalidSkinLeavesTheStyleSheetAndATextBecomesIt)
{
    construct();
    dialog->loadSkin(QVariant("QLabel { color: red; }"_s));
    EXPECT_EQ(dialog->styleSheet(), "QLabel { color: red; }"_s);
    dialog->loadSkin(QVariant());
    EXPECT_EQ(dialog->styleSheet(), "QLabel { color: red; }"_s);
    dialog->loadSkin(QVariant(QString()));
    EXPECT_EQ(dialog->styleSheet(), QString()) << "an empty text is valid";
}

TEST_F(Construction, TheSkinServiceForgetsTheDialogWhenItIsGone)
{
    construct();
    EXPECT_EQ(host->skins().viewCount(), 1);
    dialog.reset();
    EXPECT_EQ(host->skins().viewCount(), 0);
}

// ---- wiring: each control reaches its slot once

TEST_F(Construction, CancelEmitsItsSignalOnceAndNeitherClosesNorHides)
{
    open();
    dialog->show();
    QSignalSpy cancelled(dialog.get(), &AlgoBatchImportParamSetting::signalBtnCancelClicked);
    QSignalSpy confirmed(dialog.get(), &AlgoBatchImportParamSetting::signalBtnOkClicked);
    host->journal().clear();
    button("btn_cancel").click();
    EXPECT_EQ(cancelled.size(), 1);
    EXPECT_EQ(confirmed.size(), 0);
    EXPECT_TRUE(dialog->isVisible());
    EXPECT_TRUE(host->journal().calls().isEmpty());
}

TEST_F(Construction, ImportAsksForAFileOnce)
{
    open();
    host->journal().clear();
    button("btn_import").click();
    const auto asked = callsOf("SolveyUtils::GetOpenTableFileName");
    ASSERT_EQ(asked.size(), 1);
    EXPECT_EQ(asked.first().arguments,
              (QVariantList{"AlgoBatchImportParamSetting"_s, "导入算法"_s, QString(), 0}));
    EXPECT_EQ(host->journal().calls().size(), 1) << "a cancelled dialog ends it";
}

TEST_F(Construction, TheCheckBoxSavesItsStateOnceAToggle)
{
    open();
    host->journal().clear();
    child<QCheckBox>("checkbx_createdClose").click();
    EXPECT_EQ(callsOf("ZelCore::saveSetting").size(), 1);
}

TEST_F(Construction, ConfirmingAsksForAuthorityOnce)
{
    open();
    host->journal().clear();
    button("btn_ok").click();
    EXPECT_EQ(callsOf("AlgoTradeLogicNew::hasCorrespAuthority").size(), 1);
    EXPECT_EQ(prompts.boxes().size(), 1);
}

TEST_F(Construction, AnotherAccountAsksForItsNodeOnceAnInstance)
{
    open();
    inspect().maps() = {QVariantMap{{"实例备注"_s, QString()}}};
    host->journal().clear();
    accounts().SetCurTradingAccount("NOHK"_s);
    EXPECT_EQ(callsOf("CBusinessDataBase::GetSysNodeIDByAccount").size(), 1);
}

TEST_F(Construction, AnotherAlgorithmTypeIsFetchedOnce)
{
    open();
    host->journal().clear();
    algoTypes().setCurrentText("策略AIVWAP"_s);
    EXPECT_EQ(callsOf("AlgoTradeLogicNew::GetStrategy").size(), 1);
}

TEST_F(Construction, TheSettingsObjectsGoWithTheDialog)
{
    open();
    const QPointer<QSettings> first = inspect().settings();
    load("AIVWAP"_s);
    const QPointer<QSettings> second = inspect().settings();
    EXPECT_NE(first.data(), second.data());
    ASSERT_FALSE(first.isNull()) << "the former one stays until the dialog goes";
    EXPECT_EQ(first->parent(), dialog.get());
    EXPECT_EQ(second->parent(), dialog.get());
    dialog.reset();
    EXPECT_TRUE(first.isNull());
    EXPECT_TRUE(second.isNull());
}
