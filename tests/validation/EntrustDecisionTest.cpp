#include "tests/support/DialogFixture.h"
#include "tests/support/LogCapture.h"
#include "validation/EntrustRules.h"

namespace {

using validation::EntrustFault;

/// What a row of the decision table says of the sides Buy, Sell, BuyOpen and the empty text, in this order:
/// '.' passes, 'A' the account does not take it, 'D' the wrong side, 'b' and 's' only collateral orders.
struct Decision {
    const char* property;
    const char* credit;
    const char* creditCollateralOnly; ///< under AITWAP7 and AIPOV7
    const char* cash;                 ///< under every strategy
};

const Decision decisions[] = {
    {"0", "AAAA", "AAAA", "...."},
    {"NewOrder", "AAAA", "AAAA", "...."},
    {"9", "....", "....", "AAAA"},
    {"6", "....", ".s..", "AAAA"},
    {"CreditTransaction", "....", "bs..", "AAAA"},
    {"8", ".D..", "bD..", "AAAA"},
    {"FundLoan", ".D..", "bD..", "AAAA"},
    {"7", "D...", "Ds..", "AAAA"},
    {"A", "D...", "Ds..", "AAAA"},
    {"", "AAAA", "AAAA", "AAAA"},
    {"1", "AAAA", "AAAA", "AAAA"},
    {"a", "AAAA", "AAAA", "AAAA"},
    {"neworder", "AAAA", "AAAA", "AAAA"},
    {" 9", "AAAA", "AAAA", "AAAA"},
};

const char* const sides[] = {"Buy", "Sell", "BuyOpen", ""};

/// The text of a decision for row 3.
QString textOf(char decision)
{
    switch (decision) {
    case 'A':
        return "第3行：当前资产账号与模板中委托属性校验未通过，请检查!\r\n"_s;
    case 'D':
        return "第3行：委托属性与交易方向不一致\r\n"_s;
    case 'b':
        return "第3行：仅支持担保品买入、融资买入\r\n"_s;
    case 's':
        return "第3行：仅支持担保品卖出\r\n"_s;
    default:
        return QString();
    }
}

EntrustFault faultOf(char decision)
{
    switch (decision) {
    case 'A':
        return EntrustFault::Account;
    case 'D':
        return EntrustFault::Direction;
    case 'b':
        return EntrustFault::CollateralBuyOnly;
    case 's':
        return EntrustFault::CollateralSellOnly;
    default:
        return EntrustFault::None;
    }
}

class EntrustDecision : public DialogFixture {
protected:
    void openUnder(const QString& strategy)
    {
        open();
        loadDocument({}, strategy);
    }

    void expectRow(const Decision& row, const char* expected, const QString& account)
    {
        for (int side = 0; side < 4; ++side) {
            EXPECT_EQ(inspect().checkEntrustProp(3, QString::fromLatin1(row.property), account,
                                                 QString::fromLatin1(sides[side])),
                      textOf(expected[side]))
                << qPrintable(account) << " " << row.property << " " << sides[side];
        }
    }
};

} // namespace

TEST_F(EntrustDecision, ACreditAccountTakesItsOwnPropertiesEachOnItsSide)
{
    for (const QString& strategy : {"AITWAP"_s, "AILOCK"_s, "AITWAP71"_s, "aitwap7"_s}) {
        openUnder(strategy);
        for (const Decision& row : decisions) {
            expectRow(row, row.credit, "CREDIT1"_s);
        }
    }
}

TEST_F(EntrustDecision, CollateralOnlyStrategiesNarrowACreditAccountFurther)
{
    for (const QString& strategy : {"AITWAP7"_s, "AIPOV7"_s}) {
        openUnder(strategy);
        for (const Decision& row : decisions) {
            expectRow(row, row.creditCollateralOnly, "CREDIT1"_s);
        }
    }
}

TEST_F(EntrustDecision, ACashAccountTakesNormalOrdersOnEverySideUnderEveryStrategy)
{
    for (const QString& strategy : {"AITWAP"_s, "AITWAP7"_s, "AIPOV7"_s}) {
        openUnder(strategy);
        for (const Decision& row : decisions) {
            expectRow(row, row.cash, "CASH1"_s);
        }
    }
}

TEST_F(EntrustDecision, AnAccountOfAnotherTypeTakesEverything)
{
    for (const QString& strategy : {"AITWAP"_s, "AITWAP7"_s}) {
        openUnder(strategy);
        for (const Decision& row : decisions) {
            expectRow(row, "....", "ODD"_s);
            expectRow(row, "....", "FUT1"_s);
        }
    }
}

TEST_F(EntrustDecision, WithoutADirectionOnlyTheAccountTypeCountsAndTheTextHasNoExclamationMark)
{
    openUnder("AITWAP7"_s);
    const QString fault = "第3行：当前资产账号与模板中委托属性校验未通过，请检查\r\n"_s;
    for (const Decision& row : decisions) {
        const QString property = QString::fromLatin1(row.property);
        EXPECT_EQ(inspect().checkEntrustProp(3, property, "CREDIT1"_s),
                  row.credit[2] == 'A' ? fault : QString())
            << row.property;
        EXPECT_EQ(inspect().checkEntrustProp(3, property, "CASH1"_s), row.cash[2] == 'A' ? fault : QString())
            << row.property;
        EXPECT_EQ(inspect().checkEntrustProp(3, property, "ODD"_s), QString()) << row.property;
    }
}

TEST_F(EntrustDecision, AnAccountWithoutRecordsShowsItsPlaceholderAsItStands)
{
    open();
    const QString text = "第%行：未获取到账号类型!\r\n"_s;
    EXPECT_EQ(inspect().checkEntrustProp(3, "0"_s, "NOBODY"_s), text);
    EXPECT_EQ(inspect().checkEntrustProp(3, "0"_s, "NOBODY"_s, "Buy"_s), text);
    EXPECT_EQ(inspect().checkEntrustProp(12, QString(), QString(), QString()), text);
}

TEST_F(EntrustDecision, TheRecordsAreAskedForWithTheAccountAndTrue)
{
    open();
    host->journal().clear();
    inspect().checkEntrustProp(1, "0"_s, "CASH1"_s);
    inspect().checkEntrustProp(1, "0"_s, "NOHK"_s, "Buy"_s);
    const auto asked = callsOf("SolveyBusinessDataInterface::GetAccountInfoListFromTrade");
    ASSERT_EQ(asked.size(), 2);
    EXPECT_EQ(asked.at(0).arguments, (QVariantList{"CASH1"_s, true}));
    EXPECT_EQ(asked.at(1).arguments, (QVariantList{"NOHK"_s, true}));
}

TEST_F(EntrustDecision, LogsWhatItDecidedFromAndTheAccountThatFailed)
{
    open();
    LogCapture log;
    inspect().checkEntrustProp(1, "9"_s, "CASH1"_s, "Buy"_s);
    for (const QString& marker : {" accountType: "_s, "entrustProp"_s, "orderSide"_s, " account: "_s}) {
        EXPECT_TRUE(log.text().contains(marker)) << qPrintable(marker);
    }
    inspect().checkEntrustProp(1, "9"_s, "NOBODY"_s);
    for (const QString& marker : {"get accountType is error, tradingAccount: "_s,
                                  " combx_account currentData : "_s, " currentText : "_s, "NOBODY"_s}) {
        EXPECT_TRUE(log.text().contains(marker)) << qPrintable(marker);
    }
}

// ---- the rules by themselves

TEST(EntrustRules, TellWhatTheAccountTheSideAndTheStrategyForbid)
{
    for (const Decision& row : decisions) {
        const QString property = QString::fromLatin1(row.property);
        const bool creditTakes = row.credit[2] != 'A';
        EXPECT_EQ(validation::faultOfAccount("Credit"_s, property),
                  creditTakes ? EntrustFault::None : EntrustFault::Account);
        EXPECT_EQ(validation::faultOfAccount("Cash"_s, property),
                  row.cash[0] == 'A' ? EntrustFault::Account : EntrustFault::None);
        EXPECT_EQ(validation::faultOfAccount("Futures"_s, property), EntrustFault::None);
        for (int side = 0; creditTakes && side < 4; ++side) {
            const QString orderSide = QString::fromLatin1(sides[side]);
            EXPECT_EQ(validation::faultOfDirection("Credit"_s, property, orderSide),
                      faultOf(row.credit[side]))
                << row.property << " " << sides[side];
            if (row.credit[side] == '.') {
                EXPECT_EQ(validation::faultOfCollateral("Credit"_s, property, orderSide),
                          faultOf(row.creditCollateralOnly[side]))
                    << row.property << " " << sides[side];
            }
        }
    }
}

TEST(EntrustRules, OfSideAndStrategyConcernCreditAccountsOnly)
{
    for (const QString& type : {"Cash"_s, "Futures"_s, QString()}) {
        EXPECT_EQ(validation::faultOfDirection(type, "7"_s, "Buy"_s), EntrustFault::None);
        EXPECT_EQ(validation::faultOfCollateral(type, "7"_s, "Sell"_s), EntrustFault::None);
    }
}
