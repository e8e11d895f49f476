#include "host/SolveyAccountComboBox.h"
#include "host/SolveyDecimalLineEdit.h"
#include "host/SolveyPushButton.h"

#include <gtest/gtest.h>

#include <QLineEdit>
#include <QLocale>
#include <QSignalSpy>
#include <QTest>

namespace {

tagUserAccountInfo account(const char* tradingAccount, const char* name, const char* assetProp)
{
    tagUserAccountInfo info;
    info.tradingAccount = QString::fromUtf8(tradingAccount);
    info.name = QString::fromUtf8(name);
    info.assetProp = QString::fromUtf8(assetProp);
    return info;
}

QList<tagUserAccountInfo> accounts()
{
    return {account("A1", "张三", "Cash"), account("A2", "张三", "Credit"), account("A3", "李四", "Futures")};
}

} // namespace

TEST(SolveyAccountComboBoxTest, ShowsNameAndAccountAndKeepsTheAccount)
{
    SolveyAccountComboBox box;
    box.SetAccountList(accounts());
    ASSERT_EQ(box.count(), 3);
    EXPECT_EQ(box.itemText(1), QStringLiteral("张三 (A2)"));
    EXPECT_EQ(box.itemData(1).toString(), QStringLiteral("A2"));
    EXPECT_EQ(box.GetCurTradingAccount(), QStringLiteral("A1"));
    EXPECT_EQ(box.GetCurAccountAssetProp(), QStringLiteral("Cash"));
}

TEST(SolveyAccountComboBoxTest, KeepsItsTextsApartInEveryDisplayMode)
{
    using Mode = SolveyAccountComboBox::DisplayMode;
    SolveyAccountComboBox byName(nullptr, Mode::Name);
    byName.SetAccountList(accounts());
    EXPECT_EQ(byName.itemText(0), QStringLiteral("张三"));
    EXPECT_EQ(byName.itemText(1), QStringLiteral("张三 (A2)"));
    EXPECT_EQ(byName.itemText(2), QStringLiteral("李四"));
    SolveyAccountComboBox byAccount(nullptr, Mode::Account);
    byAccount.SetAccountList(accounts());
    EXPECT_EQ(byAccount.itemText(2), QStringLiteral("A3"));
}

TEST(SolveyAccountComboBoxTest, ChoosingAnAccountChangesTheText)
{
    SolveyAccountComboBox box;
    box.SetAccountList(accounts());
    QSignalSpy changed(&box, &QComboBox::currentTextChanged);
    box.SetCurTradingAccount(QStringLiteral("A2"));
    EXPECT_EQ(changed.size(), 1);
    EXPECT_EQ(box.GetCurAccountAssetProp(), QStringLiteral("Credit"));
    box.SetCurTradingAccount(QStringLiteral("unknown"));
    EXPECT_EQ(box.GetCurTradingAccount(), QStringLiteral("A2"));
    QTest::keyClick(&box, Qt::Key_Down);
    EXPECT_EQ(box.GetCurTradingAccount(), QStringLiteral("A3"));
    EXPECT_EQ(changed.size(), 2);
}

TEST(SolveyAccountComboBoxTest, AnswersEmptyWithoutAccounts)
{
    SolveyAccountComboBox box;
    EXPECT_TRUE(box.GetCurTradingAccount().isEmpty());
    EXPECT_TRUE(box.GetCurAccountAssetProp().isEmpty());
    box.SetAccountList(accounts());
    box.SetAccountList({});
    EXPECT_EQ(box.count(), 0);
    EXPECT_TRUE(box.GetCurTradingAccount().isEmpty());
}

TEST(SolveyDecimalLineEditTest, HoldsLargeSumsWithTwoDecimalsAndNoGroups)
{
    SolveyDecimalLineEdit edit;
    edit.setDecimals(2);
    edit.setValue(123456789012345.67);
    EXPECT_EQ(edit.text(), QStringLiteral("123456789012345.67"));
    edit.setValue(-1e15);
    EXPECT_EQ(edit.value(), -1e15);
    edit.setValue(2e15);
    EXPECT_EQ(edit.value(), 1e15);
    EXPECT_EQ(edit.buttonSymbols(), QAbstractSpinBox::NoButtons);
}

TEST(SolveyDecimalLineEditTest, WritesAPointInALocaleOfCommas)
{
    const QLocale before;
    QLocale::setDefault(QLocale(QLocale::German));
    SolveyDecimalLineEdit edit;
    edit.setDecimals(2);
    edit.setValue(1234567.5);
    EXPECT_EQ(edit.text(), QStringLiteral("1234567.50"));
    edit.selectAll();
    QTest::keyClicks(&edit, QStringLiteral("98.25"));
    EXPECT_EQ(edit.value(), 98.25);
    QLocale::setDefault(before);
}

TEST(SolveyPushButtonTest, IsPressedByMouseAndSpace)
{
    SolveyPushButton button;
    QSignalSpy clicked(&button, &QPushButton::clicked);
    QTest::mouseClick(&button, Qt::LeftButton);
    QTest::keyClick(&button, Qt::Key_Space);
    EXPECT_EQ(clicked.size(), 2);
}
