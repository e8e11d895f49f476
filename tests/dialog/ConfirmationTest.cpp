#include "embedded_host/settings/SettingsStore.h"
#include "host/SolveyUtils.h"
#include "host/ZelMessageBox.h"
#include "tests/support/DialogFixture.h"
#include "tests/support/LogCapture.h"

#include <QCheckBox>
#include <QSignalSpy>

namespace {

using namespace small_market;

const QString Key = QStringLiteral("IS_CREATED_CLOSE");
const QString Rows = QStringLiteral("GetAccountInfoListFromTrade");

class Confirmation : public DialogFixture {
protected:
    void openAndImport(const QString& strategy = QStringLiteral("AITWAP"),
                       BatchInsType type = SelectableStrategy)
    {
        open(strategy, "CASH1"_s, type);
        importRows({ordinaryHeader(), ordinaryRow()});
        ASSERT_EQ(lastBoxText(), QString());
        spy();
    }

    void spy()
    {
        confirmed =
            std::make_unique<QSignalSpy>(dialog.get(), &AlgoBatchImportParamSetting::signalBtnOkClicked);
    }

    /// An instance whose entrust property no cash account takes: one line in the box.
    static QVariantMap faulty()
    {
        const QVariantMap leg = {{"证券代码"_s, "600000.SH"_s}, {"市场"_s, "SH"_s}};
        return {{"委托属性"_s, "9"_s}, {"证券代码和委托数量"_s, QVariantList{leg}}};
    }

    bool sent(int index = 0) { return confirmed->at(index).first().toBool(); }

    std::unique_ptr<QSignalSpy> confirmed; // goes before the dialog
};

} // namespace

TEST_F(Confirmation, AGoodBatchIsHandedOverAndTheButtonStaysDisabled)
{
    openAndImport();
    const auto before = dialog->getWidgetData();
    button("btn_ok").click();
    ASSERT_EQ(confirmed->size(), 1);
    EXPECT_TRUE(sent()) << "nothing was stored but the default";
    EXPECT_TRUE(prompts.boxes().isEmpty());
    EXPECT_FALSE(button("btn_ok").isEnabled());
    EXPECT_EQ(dialog->getWidgetData(), before);
}

TEST_F(Confirmation, WithNothingStoredTheHostIsToCloseTheDialog)
{
    openAndImport();
    host->settings().setValue(Key, QVariant());
    button("btn_ok").click();
    ASSERT_EQ(confirmed->size(), 1);
    EXPECT_TRUE(sent());
    EXPECT_TRUE(inspect().isCreatedClose());
}

TEST_F(Confirmation, TheStoredChoiceIsSentAndNotTheBoxAsItStands)
{
    openAndImport();
    host->settings().setValue(Key, false);
    ASSERT_TRUE(child<QCheckBox>("checkbx_createdClose").isChecked());
    button("btn_ok").click();
    ASSERT_EQ(confirmed->size(), 1);
    EXPECT_FALSE(sent());
    EXPECT_FALSE(inspect().isCreatedClose());
}

TEST_F(Confirmation, AStoredListCountsAsTrue)
{
    openAndImport();
    host->settings().setValue(Key, QVariantList{1});
    button("btn_ok").click();
    ASSERT_EQ(confirmed->size(), 1);
    EXPECT_TRUE(sent());
}

TEST_F(Confirmation, AToggledBoxChangesWhatIsSentNext)
{
    openAndImport();
    child<QCheckBox>("checkbx_createdClose").click();
    button("btn_ok").click();
    dialog->slotResetOkBtn();
    child<QCheckBox>("checkbx_createdClose").click();
    button("btn_ok").click();
    ASSERT_EQ(confirmed->size(), 2);
    EXPECT_FALSE(sent(0));
    EXPECT_TRUE(sent(1));
}

TEST_F(Confirmation, ASecondPressIsIgnoredUntilTheHostHasDealtWithTheFirst)
{
    openAndImport();
    button("btn_ok").click();
    host->journal().clear();
    button("btn_ok").click();
    QMetaObject::invokeMethod(dialog.get(), "slotBtnOkClicked"); // whoever else might reach the slot
    EXPECT_EQ(confirmed->size(), 1);
    EXPECT_TRUE(host->journal().calls().isEmpty());
    dialog->slotResetOkBtn();
    EXPECT_TRUE(button("btn_ok").isEnabled());
    button("btn_ok").click();
    EXPECT_EQ(confirmed->size(), 2);
}

TEST_F(Confirmation, TheButtonIsDisabledWhileTheHostIsTold)
{
    openAndImport();
    bool enabled = true;
    QObject::connect(dialog.get(), &AlgoBatchImportParamSetting::signalBtnOkClicked, dialog.get(),
                     [&] { enabled = button("btn_ok").isEnabled(); });
    button("btn_ok").click();
    EXPECT_FALSE(enabled);
}

TEST_F(Confirmation, TheHostMayDeleteTheDialogInASlotOfEitherSignal)
{
    openAndImport();
    QObject::connect(dialog.get(), &AlgoBatchImportParamSetting::signalBtnOkClicked, [&] { dialog.reset(); });
    button("btn_ok").click();
    EXPECT_EQ(dialog, nullptr);
    open();
    QObject::connect(dialog.get(), &AlgoBatchImportParamSetting::signalBtnCancelClicked,
                     [&] { dialog.reset(); });
    button("btn_cancel").click();
    EXPECT_EQ(dialog, nullptr);
}

TEST_F(Confirmation, WithoutAnAlgorithmTypeNothingElseIsChecked)
{
    tables.strategies.clear();
    open();
    spy();
    host->journal().clear();
    button("btn_ok").click();
    EXPECT_EQ(lastBoxText(), "未选择任意算法类型"_s);
    EXPECT_EQ(confirmed->size(), 0);
    EXPECT_TRUE(button("btn_ok").isEnabled());
    EXPECT_TRUE(callsOf("AlgoTradeLogicNew::hasCorrespAuthority").isEmpty());
}

TEST_F(Confirmation, AnAccountWithoutAuthorityIsToldWithTheAliasAndNoBatchCheckRuns)
{
    tables.everythingAllowed = false;
    tables.authorities = {{"CASH1"_s, "AILOCK"_s}};
    openAndImport();
    host->journal().clear();
    button("btn_ok").click();
    EXPECT_EQ(lastBoxText(), "当前账号未授权策略AITWAP算法，请联系客户经理授权！"_s);
    EXPECT_EQ(confirmed->size(), 0);
    EXPECT_TRUE(button("btn_ok").isEnabled());
    const auto asked = callsOf("AlgoTradeLogicNew::hasCorrespAuthority");
    ASSERT_EQ(asked.size(), 1);
    EXPECT_EQ(asked.first().arguments, (QVariantList{"CASH1"_s, "AITWAP"_s, "algo"_s}));
    EXPECT_TRUE(host->journal().callsOf("SolveyBusinessDataInterface::"_s + Rows).isEmpty());
    EXPECT_TRUE(callsOf("CBusinessDataBase::GetSymbolPostBySymbol").isEmpty());
}

TEST_F(Confirmation, ALockStrategyRunsThePairedCheckAlone)
{
    for (const QString& code : {"AILOCK"_s, "AILOCKPLUS"_s, "AILOCK3"_s}) {
        open();
        loadDocument({}, code);
        inspect().maps() = {faulty()};
        host->journal().clear();
        button("btn_ok").click();
        EXPECT_EQ(lastBoxText(), "第1行：标的数目错误！\r\n"
                                 "第1行：当前资产账号与模板中委托属性校验未通过，请检查\r\n"
                                 "第1行：交易方向错误！\r\n"_s)
            << qPrintable(code);
        EXPECT_TRUE(callsOf("CBusinessDataBase::GetSymbolPostBySymbol").isEmpty());
    }
}

TEST_F(Confirmation, AnyOtherStrategyRunsTheAccountTypeCheckAlone)
{
    for (const QString& code : {"AITWAP"_s, "AIPAIR"_s, "AILOCK2"_s, "ailock"_s}) {
        open();
        loadDocument({}, code);
        inspect().maps() = {{{"证券代码和委托数量"_s, QVariantList()}}};
        button("btn_ok").click();
        EXPECT_EQ(lastBoxText(), "第1行：获取数据错误！\r\n"_s) << qPrintable(code);
    }
}

TEST_F(Confirmation, OnFailureNothingIsSentAndTheBatchIsKept)
{
    openAndImport();
    inspect().maps().append(faulty());
    const auto before = dialog->getWidgetData();
    bool enabledWhileOpen = true;
    prompts.whileOpen([&](ZelMessageBox&) { enabledWhileOpen = button("btn_ok").isEnabled(); });
    button("btn_ok").click();
    EXPECT_EQ(prompts.boxes().size(), 1);
    EXPECT_EQ(confirmed->size(), 0);
    EXPECT_FALSE(enabledWhileOpen) << "a second press cannot open a second box";
    EXPECT_TRUE(button("btn_ok").isEnabled());
    EXPECT_EQ(dialog->getWidgetData(), before);
    inspect().maps().removeLast();
    button("btn_ok").click();
    EXPECT_EQ(confirmed->size(), 1) << "and may be confirmed again";
}

TEST_F(Confirmation, TheBoxIsWiderByTenAndGrowsByTwentyALineUpTo350)
{
    struct Case {
        int lines;
        int height;
    };
    open();
    for (const Case& c : {Case{1, 160 + 20}, {5, 160 + 100}, {9, 160 + 180}, {10, 350}, {30, 350}}) {
        inspect().maps().clear();
        for (int i = 0; i < c.lines; ++i) {
            inspect().maps().append(faulty());
        }
        prompts.clear();
        button("btn_ok").click();
        ASSERT_EQ(prompts.boxes().size(), 1);
        const ShownBox& box = prompts.boxes().first();
        EXPECT_EQ(box.text.count(QLatin1Char('\n')), c.lines);
        ASSERT_EQ(box.sizeBefore.height(), 160);
        EXPECT_EQ(box.size, QSize(box.sizeBefore.width() + 10, c.height)) << c.lines;
        EXPECT_EQ(box.textWidth, box.textWidthBefore);
        EXPECT_EQ(box.title, "错误"_s);
        EXPECT_EQ(box.type, 1);
        EXPECT_EQ(box.flag, 0);
    }
}

TEST_F(Confirmation, ATextWithoutALineFeedKeepsTheBoxsHeight)
{
    open();
    button("btn_ok").click();
    ASSERT_EQ(lastBoxText(), "未获取到数据！"_s);
    EXPECT_EQ(prompts.boxes().first().size, prompts.boxes().first().sizeBefore + QSize(10, 0));
}

TEST_F(Confirmation, TheBoxIsPlacedByTheHostWithPositionTypeTwo)
{
    open();
    host->journal().clear();
    button("btn_ok").click();
    const auto placed = callsOf("SolveyUtils::GetWidgetPos");
    ASSERT_EQ(placed.size(), 1);
    EXPECT_EQ(placed.first().arguments, (QVariantList{"ZelMessageBox"_s, 2}));
}

TEST_F(Confirmation, TheBoxStandsWhereTheHostPutIt)
{
    open();
    QPoint expected;
    prompts.whileOpen(
        [&](ZelMessageBox& box) { expected = SolveyUtils::GetWidgetPos(&box, WidgetShowPosType(2)); });
    button("btn_ok").click();
    ASSERT_EQ(prompts.boxes().size(), 1);
    EXPECT_FALSE(expected.isNull());
    EXPECT_EQ(prompts.boxes().first().position, expected);
}

TEST_F(Confirmation, ReadsTheChoiceAgainFromTheHostsDefaultStore)
{
    openAndImport();
    host->journal().clear();
    button("btn_ok").click();
    const auto reads = callsOf("ZelCore::settings");
    ASSERT_EQ(reads.size(), 1);
    EXPECT_EQ(reads.first().arguments, (QVariantList{Key, QString(), QString(), int(QSettings::UserScope)}));
    EXPECT_TRUE(callsOf("ZelCore::saveSetting").isEmpty());
}

TEST_F(Confirmation, BeforeAnImportThereIsNoDataAndThatIsLogged)
{
    open();
    LogCapture log;
    EXPECT_TRUE(dialog->getWidgetData().isEmpty());
    EXPECT_EQ(log.firstMissing({"getWidgetData"_s, "can not get widget data!"_s}), QString())
        << qPrintable(log.text());
}

TEST_F(Confirmation, TheDataIsACopyAndNothingIsLoggedWhereThereIsSome)
{
    openAndImport();
    LogCapture log;
    auto copy = dialog->getWidgetData();
    EXPECT_FALSE(log.text().contains("can not get widget data!"_s));
    copy.clear();
    EXPECT_EQ(dialog->getWidgetData().size(), 1);
}
