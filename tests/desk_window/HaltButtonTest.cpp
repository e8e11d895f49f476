#include "desk/window/HaltButton.h"

#include "desk/window/VerdictDialog.h"
#include "tests/desk_window/DeskWindowFixture.h"
#include "tests/support/Eventually.h"

#include <QTextEdit>

/// The button that halts all trading, on the real window and ledger.
class HaltButtonTest : public DeskWindowFixture {
protected:
    HaltButton& button() { return *child<HaltButton>("button_halt"); }
    void press() { QTest::mouseClick(&button(), Qt::LeftButton); }

    /// Accounts that are halted, as another program on the ledger sees them.
    QStringList halted()
    {
        const auto other =
            ledger::Ledger::open(ledger::Address::ofFile(ledger::Ledger::pathIn(home.path()))).value;
        QStringList accounts;
        for (const ledger::Halt& halt : other->status().value.halts) {
            accounts.append(halt.account);
        }
        return accounts;
    }

    /// Imports a good row and presses 确定; what the verdict refuses.
    QString refusalOfABatch()
    {
        QString text = "none"_s;
        drop(writeFile({row()}));
        whenModal([&text](QWidget& modal) {
            auto* refusals = modal.findChild<QTextEdit*>("findings_error"_s);
            text = refusals ? refusals->toPlainText() : QString();
            QTest::mouseClick(modal.findChild<QAbstractButton*>("button_cancel"_s), Qt::LeftButton);
        });
        pressConfirm();
        return text;
    }
};

TEST_F(HaltButtonTest, HaltsAtOnePressAndNothingIsCreated)
{
    open();
    EXPECT_EQ(button().text(), "停止交易"_s);
    EXPECT_EQ(refusalOfABatch(), QString());
    press(); // a question would fail the test: nobody waits for one
    EXPECT_EQ(QApplication::activeModalWidget(), nullptr);
    EXPECT_EQ(halted(), QStringList{"*"_s});
    EXPECT_EQ(button().text(), "恢复交易…"_s);
    EXPECT_TRUE(refusalOfABatch().contains("全部账号已暂停交易"_s));
    EXPECT_TRUE(books.ledger->batchesBefore({}).value.isEmpty());
}

TEST_F(HaltButtonTest, ResumesOnlyWhereTheQuestionIsAnsweredByYes)
{
    open();
    press();
    answer("button_no"_s);
    press();
    EXPECT_EQ(halted(), QStringList{"*"_s});
    EXPECT_TRUE(button().isHalted());
    answer("button_yes"_s);
    press();
    EXPECT_EQ(halted(), QStringList());
    EXPECT_FALSE(button().isHalted());
    EXPECT_EQ(refusalOfABatch(), QString());
}

TEST_F(HaltButtonTest, AHaltHoldsOverARestart)
{
    open();
    press();
    closeWindow();
    books = {};
    open();
    EXPECT_TRUE(button().isHalted());
    EXPECT_TRUE(button().toolTip().contains("交易台按钮"_s));
    EXPECT_TRUE(refusalOfABatch().contains("全部账号已暂停交易"_s));
}

TEST_F(HaltButtonTest, ShowsWhatAnotherProgramDecided)
{
    open();
    const auto other =
        ledger::Ledger::open(ledger::Address::ofFile(ledger::Ledger::pathIn(home.path()))).value;
    ASSERT_TRUE(other->halt(QString(), "行情异常"_s).ok());
    EXPECT_TRUE(eventually([this] { return button().isHalted(); }));
    EXPECT_TRUE(button().toolTip().contains("行情异常"_s));
    EXPECT_TRUE(refusalOfABatch().contains("行情异常"_s));
    ASSERT_TRUE(other->resume(QString(), "恢复"_s).ok());
    EXPECT_TRUE(eventually([this] { return !button().isHalted(); }));
}

TEST_F(HaltButtonTest, AHaltOfOneAccountIsShownAndLeavesTheButtonToHaltAll)
{
    open();
    ASSERT_TRUE(books.ledger->halt("1001"_s, "核查"_s).ok());
    button().refresh();
    EXPECT_FALSE(button().isHalted());
    EXPECT_TRUE(button().toolTip().contains("1001"_s));
    press();
    EXPECT_EQ(halted().size(), 2);
}
