#include "desk/window/VerdictDialog.h"

#include "tests/support/Eventually.h"
#include "tests/support/Text.h"

#include <gtest/gtest.h>

#include <QCheckBox>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QTest>
#include <QTextEdit>

namespace {

verdict::Line line(verdict::Action action, const QString& rule, const QString& text,
                   const QList<int>& rows = {})
{
    verdict::Line result{rule, action, text, 1, {}};
    for (const int row : rows) {
        table::Fault fault;
        fault.row = row;
        result.faults.append(fault);
    }
    return result;
}

QCheckBox* question(const VerdictDialog& dialog, const char* rule)
{
    return dialog.findChild<QCheckBox*>("check_"_s + QString::fromLatin1(rule));
}

QPushButton* button(const VerdictDialog& dialog, const char* name)
{
    return dialog.findChild<QPushButton*>(QString::fromLatin1(name));
}

} // namespace

TEST(VerdictDialogTest, ShowsTheSummaryAlsoWhereNothingWasFound)
{
    verdict::Judgement judgement;
    judgement.summary.account = "80010001"_s;
    judgement.summary.accountName = "甲"_s;
    judgement.summary.taken = 3;
    judgement.summary.refused = 2;
    const VerdictDialog dialog(judgement);
    const QString summary = dialog.findChild<QTextEdit*>("findings_summary"_s)->toPlainText();
    EXPECT_TRUE(summary.contains("账户：甲（80010001）"_s)) << summary.toStdString();
    EXPECT_TRUE(summary.contains("导入 3 行，未导入 2 行，跳过 0 行"_s)) << summary.toStdString();
    EXPECT_TRUE(button(dialog, "button_create")->isEnabled());
}

TEST(VerdictDialogTest, OffersNoWayRoundARefusal)
{
    verdict::Judgement judgement;
    judgement.lines = {line(verdict::Action::Refuse, "time.ended"_s, "<b>超限</b>"_s),
                       line(verdict::Action::Ask, "sameFile"_s, "重复"_s)};
    judgement.review.verdict.confirmationAmount = 5;
    const VerdictDialog dialog(judgement);
    EXPECT_EQ(button(dialog, "button_create"), nullptr);
    EXPECT_EQ(dialog.findChild<QLineEdit*>(), nullptr);
    EXPECT_EQ(dialog.findChild<QTextEdit*>("findings_error"_s)->toPlainText(), "<b>超限</b>"_s);
    EXPECT_FALSE(question(dialog, "sameFile")->isEnabled());
}

TEST(VerdictDialogTest, EachRuleIsAcknowledgedByItself)
{
    verdict::Judgement judgement;
    judgement.lines = {line(verdict::Action::Ask, "rows.missing"_s, "13 行没有导入"_s),
                       line(verdict::Action::Ask, "sameFile"_s, "重复"_s),
                       line(verdict::Action::Tell, "title.unknown"_s, "多余的列"_s)};
    VerdictDialog dialog(judgement);
    EXPECT_EQ(2, dialog.findChildren<QCheckBox*>().size());
    EXPECT_FALSE(button(dialog, "button_create")->isEnabled());
    question(dialog, "rows.missing")->setChecked(true);
    EXPECT_FALSE(button(dialog, "button_create")->isEnabled());
    question(dialog, "sameFile")->setChecked(true);
    EXPECT_TRUE(button(dialog, "button_create")->isEnabled());
    EXPECT_EQ((QStringList{"rows.missing"_s, "sameFile"_s}), dialog.acceptance().rules);
    EXPECT_EQ(dialog.findChild<QTextEdit*>("findings_notice"_s)->toPlainText(), "多余的列"_s);
}

TEST(VerdictDialogTest, JumpsToARow)
{
    verdict::Judgement judgement;
    judgement.lines = {line(verdict::Action::Ask, "quantity.lot"_s, "零股"_s, {7, 9})};
    VerdictDialog dialog(judgement);
    int wanted = 0;
    QObject::connect(&dialog, &VerdictDialog::rowWanted, [&wanted](int row) { wanted = row; });
    for (QLabel* label : dialog.findChildren<QLabel*>()) {
        if (label->text().contains("href=\"9\""_s)) {
            emit label->linkActivated("9"_s);
        }
    }
    EXPECT_EQ(9, wanted);
}

TEST(VerdictDialogTest, CreatesOnlyOnceTheAmountIsTypedAgain)
{
    verdict::Judgement review;
    review.review.verdict.confirmationAmount = 1234567;
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
    EXPECT_EQ(dialog.acceptance().typedAmount, "1,234,567"_s);
}

TEST(VerdictDialogTest, EnterPressedInHasteCreatesNothing)
{
    verdict::Judgement review;
    review.lines = {line(verdict::Action::Ask, "sameFile"_s, "重复"_s)};
    VerdictDialog dialog(review);
    dialog.show();
    ASSERT_TRUE(QTest::qWaitForWindowActive(&dialog, PatienceMs));
    QTest::keyClick(dialog.focusWidget(), Qt::Key_Return);
    EXPECT_EQ(dialog.result(), int(QDialog::Rejected));
    EXPECT_FALSE(dialog.isVisible());
}

TEST(VerdictDialogTest, EnterCreatesOnceTheAmountIsTypedAgain)
{
    verdict::Judgement review;
    review.review.verdict.confirmationAmount = 1234567;
    VerdictDialog dialog(review);
    dialog.show();
    ASSERT_TRUE(QTest::qWaitForWindowActive(&dialog, PatienceMs));
    QTest::keyClicks(dialog.focusWidget(), "1234567"_s);
    EXPECT_TRUE(button(dialog, "button_create")->isDefault());
    QTest::keyClick(dialog.focusWidget(), Qt::Key_Backspace);
    EXPECT_TRUE(button(dialog, "button_cancel")->isDefault());
    QTest::keyClicks(dialog.focusWidget(), "7\r"_s);
    EXPECT_EQ(dialog.result(), int(QDialog::Accepted));
}
