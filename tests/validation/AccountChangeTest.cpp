#include "tests/support/DialogFixture.h"
#include "tests/support/LogCapture.h"

namespace {

using namespace small_market;

const QString Legs = QStringLiteral("证券代码和委托数量");
const QString LastLine = QStringLiteral("请检查后重新导入");

QString mismatch(const QString& symbol)
{
    return "当前资产账号所属市场与标的"_s + symbol + "市场存在不一致!\r\n"_s;
}

class AccountChange : public DialogFixture {
protected:
    void importMarkets(const QList<QStringList>& codesAndMarkets)
    {
        QList<QStringList> rows = {ordinaryHeader()};
        for (const QStringList& row : codesAndMarkets) {
            rows.append(ordinaryRow(row.at(0), row.at(1)));
        }
        importRows(rows);
        ASSERT_EQ(lastBoxText(), QString());
        ASSERT_EQ(dialog->getWidgetData().size(), codesAndMarkets.size());
    }

    /// The box that comes up when the account changes after an import of so many rows that it lacks the
    /// market for.
    ShownBox boxOfMismatches(int count)
    {
        open();
        const QVariantMap leg = {{"证券代码"_s, "00700.HK"_s}, {"市场"_s, "HKSH"_s}};
        for (int i = 0; i < count; ++i) {
            inspect().maps().append({{Legs, QVariantList{leg}}});
        }
        accounts().SetCurTradingAccount("NOHK"_s);
        EXPECT_EQ(prompts.boxes().size(), 1);
        return prompts.boxes().value(0);
    }

    void TearDown() override { prompts.clear(); }
};

} // namespace

TEST_F(AccountChange, WithoutImportedRowsItOnlyEnablesTheOkButton)
{
    open();
    button("btn_ok").setEnabled(false);
    host->journal().clear();
    accounts().SetCurTradingAccount("NOHK"_s);
    EXPECT_TRUE(button("btn_ok").isEnabled());
    EXPECT_TRUE(host->journal().calls().isEmpty());
    EXPECT_TRUE(prompts.boxes().isEmpty());
}

TEST_F(AccountChange, RewritesAccountNodeAndSecurityAccountOfEveryInstance)
{
    open();
    importMarkets({{"600000"_s, "SH"_s}, {"000001"_s, "SZ"_s}});
    EXPECT_EQ(dialog->getWidgetData().at(0).value("sysnodeid"_s), QVariant("node-1"_s));
    const QVariantMap before = leg(1);
    accounts().SetCurTradingAccount("NOHK"_s);
    EXPECT_EQ(lastBoxText(), QString());
    EXPECT_TRUE(button("btn_ok").isEnabled());
    const QString securityAccounts[] = {"NOHK-SH"_s, "NOHK-SZ"_s};
    for (int i = 0; i < 2; ++i) {
        const QVariantMap instance = dialog->getWidgetData().at(i);
        EXPECT_EQ(instance.value("sysnodeid"_s), QVariant("node-2"_s));
        EXPECT_EQ(instance.value("交易账号"_s), QVariant("NOHK"_s));
        EXPECT_EQ(leg(i).value("交易账号"_s), QVariant("NOHK"_s));
        EXPECT_EQ(leg(i).value("证券账号"_s), QVariant(securityAccounts[i]));
    }
    QVariantMap expected = before;
    expected["交易账号"_s] = "NOHK"_s;
    expected["证券账号"_s] = "NOHK-SZ"_s;
    EXPECT_EQ(leg(1), expected) << "the rest of the leg stays";
}

TEST_F(AccountChange, AMarketThatTheAccountLacksIsNamedAndDisablesTheOkButton)
{
    open();
    importMarkets({{"600000"_s, "SH"_s}, {"00700"_s, "HKSH"_s}});
    bool enabledWhileOpen = false;
    prompts.whileOpen([&](ZelMessageBox&) { enabledWhileOpen = button("btn_ok").isEnabled(); });
    accounts().SetCurTradingAccount("NOHK"_s);
    EXPECT_EQ(lastBoxText(), mismatch("00700.HK"_s) + LastLine);
    EXPECT_FALSE(button("btn_ok").isEnabled());
    EXPECT_TRUE(enabledWhileOpen) << "it is disabled when the user has closed the box";
    EXPECT_EQ(leg(0).value("证券账号"_s), QVariant("NOHK-SH"_s)) << "the other instances are rewritten";
    EXPECT_EQ(leg(1).value("证券账号"_s), QVariant(QString()));
    EXPECT_EQ(leg(1).value("证券账号"_s).type(), QVariant::String);
    EXPECT_EQ(leg(1).value("交易账号"_s), QVariant("NOHK"_s));
    EXPECT_EQ(dialog->getWidgetData().at(1).value("sysnodeid"_s), QVariant("node-2"_s));
}

TEST_F(AccountChange, AnAccountThatHoldsEveryMarketEnablesTheOkButtonAgain)
{
    open();
    importMarkets({{"00700"_s, "HKSH"_s}});
    accounts().SetCurTradingAccount("NOHK"_s);
    ASSERT_FALSE(button("btn_ok").isEnabled());
    prompts.clear();
    accounts().SetCurTradingAccount("CASH1"_s);
    EXPECT_TRUE(button("btn_ok").isEnabled());
    EXPECT_TRUE(prompts.boxes().isEmpty());
    EXPECT_EQ(leg(0).value("证券账号"_s), QVariant("CASH1-HKSH"_s));
}

TEST_F(AccountChange, AnInstanceWithoutLegsGetsAccountAndNodeAllTheSame)
{
    open();
    inspect().maps() = {{{"实例备注"_s, "备忘"_s}}, {{Legs, QVariantList()}}};
    accounts().SetCurTradingAccount("NOHK"_s);
    const QVariantMap expected = {
        {"实例备注"_s, "备忘"_s}, {"sysnodeid"_s, "node-2"_s}, {"交易账号"_s, "NOHK"_s}};
    EXPECT_EQ(inspect().maps().at(0), expected) << "and no list of legs";
    EXPECT_EQ(inspect().maps().at(1).value("sysnodeid"_s), QVariant("node-2"_s));
    EXPECT_TRUE(prompts.boxes().isEmpty());
}

TEST_F(AccountChange, AnEmptyNodeIsStoredAsItIs)
{
    open();
    importMarkets({{"600000"_s, "SH"_s}});
    accounts().SetCurTradingAccount("ODD"_s);
    EXPECT_EQ(dialog->getWidgetData().at(0).value("sysnodeid"_s), QVariant(QString()));
    EXPECT_TRUE(button("btn_ok").isEnabled());
}

TEST_F(AccountChange, TwoLegsOfOneInstanceGiveTwoLinesEachWithItsOwnSymbol)
{
    open();
    inspect().maps() = {
        {{Legs, QVariantList{QVariantMap{{"证券代码"_s, "00700.HK"_s}, {"市场"_s, "HKSH"_s}},
                             QVariantMap{{"证券代码"_s, "08001.HK"_s}, {"市场"_s, "HKSZ"_s}}}}}};
    accounts().SetCurTradingAccount("NOHK"_s);
    EXPECT_EQ(lastBoxText(), mismatch("00700.HK"_s) + mismatch("08001.HK"_s) + LastLine);
    EXPECT_EQ(prompts.boxes().first().size.height(), prompts.boxes().first().sizeBefore.height() + 40);
}

TEST_F(AccountChange, ItsBoxIsWiderByThirtyFiveAndItsTextByTwentyAndGrowsByTwentyALine)
{
    struct Case {
        int lines;
        int height;
    };
    for (const Case& c : {Case{1, 160 + 20}, {5, 160 + 100}, {9, 160 + 180}, {10, 350}, {30, 350}}) {
        const ShownBox box = boxOfMismatches(c.lines);
        ASSERT_EQ(box.sizeBefore.height(), 160);
        EXPECT_EQ(box.size, QSize(box.sizeBefore.width() + 35, c.height)) << c.lines;
        EXPECT_EQ(box.textWidth, box.textWidthBefore + 20);
        EXPECT_EQ(box.title, "错误"_s);
        EXPECT_EQ(box.type, 1);
        EXPECT_EQ(box.flag, 0);
        prompts.clear();
    }
}

TEST_F(AccountChange, AsksTheHostForNodeAndSecurityAccountsOnceEach)
{
    open();
    importMarkets({{"600000"_s, "SH"_s}, {"00700"_s, "HKSH"_s}});
    host->journal().clear();
    accounts().SetCurTradingAccount("NOHK"_s);
    QStringList operations;
    for (const HostJournal::Call& call : host->journal().calls()) {
        operations.append(call.operation);
    }
    const QString node = "CBusinessDataBase::GetSysNodeIDByAccount"_s;
    const QString held = "SolveyBusinessDataInterface::GetCurrentSecurityAccountByTradingAndExchange"_s;
    EXPECT_EQ(operations, (QStringList{node, held, node, held, "SolveyUtils::GetWidgetPos"_s}));
    EXPECT_EQ(host->journal().calls().at(0).arguments,
              (QVariantList{QVariantMap{{"tradingAccount"_s, "NOHK"_s}}}));
    EXPECT_EQ(host->journal().calls().at(3).arguments, (QVariantList{"NOHK"_s, "HKSH"_s}));
    EXPECT_EQ(host->journal().calls().last().arguments.last(), QVariant(2));
}

TEST_F(AccountChange, TheSlotIsTheHostsToCallToo)
{
    open();
    importMarkets({{"600000"_s, "SH"_s}});
    inspect().maps().first()["sysnodeid"_s] = "stale"_s;
    dialog->slotCbxAccountChanged();
    EXPECT_EQ(dialog->getWidgetData().first().value("sysnodeid"_s), QVariant("node-1"_s));
}

TEST_F(AccountChange, LogsTheNodeOfEveryInstance)
{
    open();
    importMarkets({{"600000"_s, "SH"_s}, {"000001"_s, "SZ"_s}});
    const LogCapture log;
    accounts().SetCurTradingAccount("NOHK"_s);
    const QString line = "get sysnodeid by trading account return: \"node-2\""_s;
    EXPECT_EQ(log.text().count(line), 2) << qPrintable(log.text());
}
