#include "tests/support/DialogFixture.h"
#include "tests/support/LogCapture.h"

namespace {

class FixedTranslators : public DialogFixture {
protected:
    void SetUp() override { open(); }
};

struct Case {
    const char* input;
    const char* shown;
};

} // namespace

TEST_F(FixedTranslators, ACreateStatusIsNoOrYes)
{
    for (const Case& c :
         {Case{"0", "否"}, {"7", "是"}, {"1", "-1"}, {"", "-1"}, {"是", "-1"}, {" 7", "-1"}}) {
        EXPECT_EQ(inspect().getCreateIfStartName(QString::fromUtf8(c.input)), QString::fromUtf8(c.shown))
            << c.input;
    }
}

TEST_F(FixedTranslators, AStyleIsFoundInAnyLetterCaseAndGivesItsCode)
{
    struct StyleCase {
        const char* style;
        const char* shown;
        const char* code;
    };
    const StyleCase cases[] = {{"passive", "保守", "Conservative"},
                               {"PASSIVE", "保守", "Conservative"},
                               {"neutral", "平稳", "Balance"},
                               {"Neutral", "平稳", "Balance"},
                               {"aggressive", "激进", "Aggressive"},
                               {"aGGressive", "激进", "Aggressive"},
                               {"other", "-1", "before"},
                               {"", "-1", "before"}};
    for (const StyleCase& c : cases) {
        QString code = "before"_s;
        EXPECT_EQ(inspect().getStyleName(QString::fromUtf8(c.style), code), QString::fromUtf8(c.shown))
            << c.style;
        EXPECT_EQ(code, QString::fromUtf8(c.code)) << c.style;
    }
}

TEST_F(FixedTranslators, AnEntrustPropertyHasOneOfThreeNames)
{
    for (const Case& c :
         {Case{"0", "普通交易"}, {"9", "信用交易"}, {"6", "融资买入"}, {"7", "-1"}, {"", "-1"}}) {
        EXPECT_EQ(inspect().getEntrustPropertyName(QString::fromUtf8(c.input)), QString::fromUtf8(c.shown))
            << c.input;
    }
}

TEST_F(FixedTranslators, AnEntrustPositionNamesItsLevelFromOneToFive)
{
    for (const Case& c : {Case{"1", "对手盘1档"},
                          {"2", "对手盘2档"},
                          {"3", "对手盘3档"},
                          {"4", "对手盘4档"},
                          {"5", "对手盘5档"},
                          {"0", "-1"},
                          {"6", "-1"},
                          {"03", "-1"},
                          {"", "-1"}}) {
        EXPECT_EQ(inspect().getEntrustPosition(QString::fromUtf8(c.input)), QString::fromUtf8(c.shown))
            << c.input;
    }
}

TEST_F(FixedTranslators, AFlagIsNoOrYes)
{
    for (const Case& c : {Case{"0", "否"}, {"1", "是"}, {"2", "-1"}, {"", "-1"}, {"是", "-1"}}) {
        EXPECT_EQ(inspect().getUpNoSellAndDownNoBuy(QString::fromUtf8(c.input)), QString::fromUtf8(c.shown))
            << c.input;
    }
}

TEST_F(FixedTranslators, EveryUnknownInputIsLoggedWithWhatItWas)
{
    LogCapture log;
    QString code;
    inspect().getCreateIfStartName("甲"_s);
    inspect().getStyleName("乙"_s, code);
    inspect().getEntrustPropertyName("丙"_s);
    inspect().getEntrustPosition("丁"_s);
    inspect().getUpNoSellAndDownNoBuy("戊"_s);
    EXPECT_EQ(log.text(), "ifStart is other  ifStart:  \"甲\"\n"
                          "style is other  style:  \"乙\"\n"
                          "property is other  property:  \"丙\"\n"
                          "num is other  num:  \"丁\"\n"
                          "strUpNoSellAndDownNoBuy is other  strUpNoSellAndDownNoBuy:  \"戊\""_s);
}

TEST_F(FixedTranslators, AMarketsNameComesFromTheHostsConfiguration)
{
    host->journal().clear();
    EXPECT_EQ(inspect().getExchangeName("HKSH"_s), "沪港通"_s);
    EXPECT_EQ(inspect().getExchangeName("没有"_s), QString());
    const auto asked = callsOf("CDataBase::GetStaticCfgValue");
    ASSERT_EQ(asked.size(), 2);
    EXPECT_EQ(asked.first().arguments, (QVariantList{"TransExchangeToMarketName"_s, "HKSH"_s}));
}

TEST_F(FixedTranslators, ASecurityAccountIsTheChosenAccountsWhateverTheFirstTextSays)
{
    EXPECT_EQ(inspect().getSecurityAccount("NOHK"_s, "SH"_s), "CASH1-SH"_s);
    accounts().SetCurTradingAccount("NOHK"_s);
    EXPECT_EQ(inspect().getSecurityAccount("CASH1"_s, "SH"_s), "NOHK-SH"_s);
    EXPECT_EQ(inspect().getSecurityAccount("CASH1"_s, "HKSH"_s), QString());
}
