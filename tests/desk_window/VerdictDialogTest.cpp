#include "desk/window/VerdictDialog.h"

#include "tests/support/Text.h"

#include <gtest/gtest.h>

#include <QLineEdit>
#include <QPushButton>
#include <QTest>
#include <QTextEdit>

namespace {

ledger::Finding finding(const QString& text)
{
    ledger::Finding result;
    result.text = text;
    result.count = 1;
    return result;
}

QPushButton* button(const VerdictDialog& dialog, const char* name)
{
    return dialog.findChild<QPushButton*>(QString::fromLatin1(name));
}

} // namespace

TEST(VerdictDialogTest, IsNotNeededWhereThereIsNothingToSay)
{
    ledger::Verdict verdict;
    EXPECT_FALSE(VerdictDialog::isNeeded(verdict));
    verdict.warnings = {finding("警告"_s)};
    EXPECT_TRUE(VerdictDialog::isNeeded(verdict));
}

TEST(VerdictDialogTest, OffersNoWayRoundARefusal)
{
    ledger::Review review;
    review.verdict.refusals = {finding("<b>超限</b>"_s)};
    review.verdict.confirmationAmount = 5;
    const VerdictDialog dialog(review);
    EXPECT_EQ(button(dialog, "button_create"), nullptr);
    EXPECT_EQ(dialog.findChild<QLineEdit*>(), nullptr);
    EXPECT_EQ(dialog.findChild<QTextEdit*>("findings_error"_s)->toPlainText(), "<b>超限</b>"_s);
}

TEST(VerdictDialogTest, CreatesOnlyOnceTheAmountIsTypedAgain)
{
    ledger::Review review;
    review.verdict.confirmationAmount = 1234567;
    VerdictDialog dialog(review);
    auto* amount = dialog.findChild<QLineEdit*>("edit_amount"_s);
    EXPECT_FALSE(button(dialog, "button_create")->isEnabled());
    QTest::keyClicks(amount, "1234568"_s);
    EXPECT_FALSE(button(dialog, "button_create")->isEnabled());
    amount->clear();
    QTest::keyClicks(amount, "1,234,567"_s);
    EXPECT_TRUE(button(dialog, "button_create")->isEnabled());
    QTest::mouseClick(button(dialog, "button_create"), Qt::LeftButton);
    EXPECT_EQ(dialog.result(), int(QDialog::Accepted));
    EXPECT_EQ(dialog.consent().typedAmount, "1,234,567"_s);
    EXPECT_TRUE(dialog.consent().toWarnings);
}

TEST(VerdictDialogTest, EnterPressedInHasteCreatesNothing)
{
    ledger::Review review;
    review.verdict.warnings = {finding("重复"_s)};
    VerdictDialog dialog(review);
    dialog.show();
    ASSERT_TRUE(QTest::qWaitForWindowActive(&dialog));
    QTest::keyClick(dialog.focusWidget(), Qt::Key_Return);
    EXPECT_EQ(dialog.result(), int(QDialog::Rejected));
    EXPECT_FALSE(dialog.isVisible());
}

TEST(VerdictDialogTest, EnterCreatesOnceTheAmountIsTypedAgain)
{
    ledger::Review review;
    review.verdict.confirmationAmount = 1234567;
    VerdictDialog dialog(review);
    dialog.show();
    ASSERT_TRUE(QTest::qWaitForWindowActive(&dialog));
    QTest::keyClicks(dialog.focusWidget(), "1234567"_s);
    EXPECT_TRUE(button(dialog, "button_create")->isDefault());
    QTest::keyClick(dialog.focusWidget(), Qt::Key_Backspace);
    EXPECT_TRUE(button(dialog, "button_cancel")->isDefault());
    QTest::keyClicks(dialog.focusWidget(), "7\r"_s);
    EXPECT_EQ(dialog.result(), int(QDialog::Accepted));
}
