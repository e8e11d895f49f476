#include "desk/window/BatchesPage.h"
#include "desk/window/DiffPanel.h"
#include "desk/window/InstancesPage.h"
#include "ledger/Outbox.h"
#include "tests/desk_window/DeskWindowFixture.h"

#include <QAction>
#include <QPlainTextEdit>
#include <QTableView>
#include <QTextEdit>

using ledger::InstanceState;

/// Starting, stopping and withdrawing what is selected on the page of instances.
class InstanceActionsTest : public DeskWindowFixture {
protected:
    /// Batch 1 of four: finished, running, created, running.
    void createMixed()
    {
        open();
        QList<QStringList> rows = {row("600000"_s, "300"_s), row("688001"_s, "400"_s),
                                   row("510300"_s, "500"_s), row("000001"_s, "600"_s)};
        rows[2].last() = "0"_s;
        rows[3][2] = "SZ"_s;
        drop(writeFile(rows));
        pressConfirm();
        ASSERT_EQ(books.ledger->changeState({1, 1}, InstanceState::Finished).error, QString());
        window->showPage(DeskWindow::InstancesPageIndex);
        window->instancesPage()->reload();
        ASSERT_EQ(states(), (QStringList{"已完成"_s, "运行中"_s, "未启动"_s, "运行中"_s}));
    }

    FilteredTable& instances() { return *window->instancesPage()->table(); }
    QStringList states() { return shown(instances(), 1); }

    QAbstractButton& button(const char* name)
    {
        return *instances().findChild<QAbstractButton*>(QString::fromLatin1(name));
    }

    QAction& action(const char* name) { return *instances().findChild<QAction*>(QString::fromLatin1(name)); }

    /// What the question says; answered by one of its buttons.
    QString questionOf(const std::function<void()>& act, const char* answer)
    {
        QString question;
        whenModal([&question, answer](QWidget& modal) {
            question = modal.findChild<QTextEdit*>("textEdit_message"_s)->toPlainText();
            QTest::mouseClick(modal.findChild<QAbstractButton*>(QString::fromLatin1(answer)), Qt::LeftButton);
        });
        act();
        window->activateWindow(); // off screen, a closed dialog does not hand the activity back
        EXPECT_TRUE(QTest::qWaitForWindowActive(window.get()));
        return question;
    }

    QStringList results()
    {
        auto* text = child<QPlainTextEdit>("text_results");
        return text->isVisible() ? text->toPlainText().split(QLatin1Char('\n')) : QStringList();
    }
};

TEST_F(InstanceActionsTest, AllowsWhatDoesSomethingToTheSelectionAndSaysWhyNot)
{
    createMixed();
    EXPECT_FALSE(button("button_stop").isEnabled());
    EXPECT_EQ(button("button_stop").toolTip(), "先选择实例"_s);
    instances().selectRows({0});
    for (const char* name : {"button_start", "button_stop", "button_withdraw"}) {
        EXPECT_FALSE(button(name).isEnabled()) << name;
    }
    EXPECT_EQ(button("button_start").toolTip(), "选中的实例没有未启动的"_s);
    instances().selectRows({0, 1});
    EXPECT_TRUE(button("button_stop").isEnabled());
    EXPECT_TRUE(action("action_stop").isEnabled());
    EXPECT_FALSE(button("button_start").isEnabled());
    EXPECT_FALSE(button("button_withdraw").isEnabled()) << "it runs";
    instances().selectRows({2});
    EXPECT_TRUE(button("button_start").isEnabled());
    EXPECT_TRUE(button("button_withdraw").isEnabled());
    EXPECT_EQ(button("button_withdraw").toolTip(), "撤回（Del）"_s);
}

TEST_F(InstanceActionsTest, StopsThoseOfAMixedSelectionThatWorkAndTellsOfEach)
{
    createMixed();
    instances().view()->setFocus();
    QTest::keyClick(instances().view(), Qt::Key_A, Qt::ControlModifier);
    EXPECT_EQ(message(), "已选 4 个：买入 29,000.00，卖出 0.00"_s);
    const QString question =
        questionOf([this] { QTest::mouseClick(&button("button_stop"), Qt::LeftButton); }, "button_yes");
    EXPECT_TRUE(question.startsWith("停止 2 个实例？\n"_s)) << question.toStdString();
    EXPECT_TRUE(question.contains("另选中的 2 个因状态不适用"_s)) << question.toStdString();
    EXPECT_EQ(states(), (QStringList{"已完成"_s, "已撤单"_s, "未启动"_s, "已撤单"_s}));
    EXPECT_EQ(message(), "停止 2 个实例：已撤单 2"_s);
    EXPECT_EQ(results(),
              (QStringList{"1-2 688001.SH：运行中 → 已撤单"_s, "1-4 000001.SZ：运行中 → 已撤单"_s}));
    EXPECT_FALSE(button("button_stop").isEnabled()) << "nothing of the selection works any more";
    EXPECT_EQ(instances().selectedRows().size(), 4);
}

TEST_F(InstanceActionsTest, IsAskedFirst)
{
    createMixed();
    instances().selectRows({1});
    questionOf([this] { QTest::mouseClick(&button("button_stop"), Qt::LeftButton); }, "button_no");
    EXPECT_EQ(states().at(1), "运行中"_s);
    EXPECT_TRUE(results().isEmpty());
}

TEST_F(InstanceActionsTest, StartsAndWithdrawsByKeyAndContextMenu)
{
    createMixed();
    instances().setCurrentRow(2);
    instances().view()->setFocus();
    questionOf([this] { QTest::keyClick(instances().view(), Qt::Key_F9); }, "button_yes");
    EXPECT_EQ(states().at(2), "运行中"_s);
    questionOf([this] { QTest::keyClick(instances().view(), Qt::Key_F9, Qt::ShiftModifier); }, "button_yes");
    EXPECT_EQ(states().at(2), "已撤单"_s);
    EXPECT_EQ(instances().view()->contextMenuPolicy(), Qt::ActionsContextMenu);
    EXPECT_TRUE(instances().view()->actions().contains(&action("action_withdraw")));
    QTest::keyClick(instances().view(), Qt::Key_Delete); // no question: it is over
    EXPECT_EQ(states().at(2), "已撤单"_s);
}

/// Between the question and the answer somebody else was faster.
TEST_F(InstanceActionsTest, TellsOfThoseThatCouldNotBeChangedAnyMore)
{
    createMixed();
    instances().selectRows({1, 3});
    whenModal([this](QWidget& modal) {
        EXPECT_EQ(books.ledger->changeState({1, 2}, InstanceState::Finished).error, QString());
        QTest::mouseClick(modal.findChild<QAbstractButton*>("button_yes"_s), Qt::LeftButton);
    });
    action("action_stop").trigger();
    EXPECT_EQ(states(), (QStringList{"已完成"_s, "已完成"_s, "未启动"_s, "已撤单"_s}));
    EXPECT_EQ(message(), "停止 1 个实例：已撤单 1；1 个未变更"_s);
    ASSERT_EQ(results().size(), 2);
    EXPECT_TRUE(results().first().startsWith("1-2 688001.SH：未变更，"_s)) << results().first().toStdString();
}

TEST_F(InstanceActionsTest, KeepsTheSelectionOnItsInstancesWhenOthersComeBeforeThem)
{
    createMixed();
    instances().selectRows({1, 3});
    window->importPage()->frame()->open();
    drop(writeFile({row("600000"_s, "700"_s)}, "other.csv"_s));
    pressConfirm();
    window->showPage(DeskWindow::InstancesPageIndex);
    window->instancesPage()->reload();
    ASSERT_EQ(states().size(), 5);
    EXPECT_EQ(shown(instances(), 0).first(), "2-1"_s) << "the newest first";
    instances().selectRows({2, 4});
    ASSERT_TRUE(books.ledger->undo(2).ok());
    window->instancesPage()->reload();
    EXPECT_EQ(instances().selectedRows(), (QList<int>{2, 4}));
}

TEST_F(InstanceActionsTest, ABatchIsTakenBackOnlyWhereThatDoesSomething)
{
    createMixed();
    window->showPage(DeskWindow::BatchesPageIndex);
    FilteredTable& batches = *window->batchesPage()->table();
    auto* undo = batches.findChild<QAbstractButton*>("button_undo"_s);
    auto* compare = batches.findChild<QAbstractButton*>("button_compare"_s);
    EXPECT_EQ(undo->toolTip(), "先选择一个批次"_s);
    batches.setCurrentRow(0);
    EXPECT_TRUE(undo->isEnabled());
    EXPECT_FALSE(compare->isEnabled());
    EXPECT_EQ(compare->toolTip(), "先在“批量导入”中导入要比较的文件"_s);
    ASSERT_TRUE(books.ledger->undo(1).ok());
    window->batchesPage()->reload();
    EXPECT_FALSE(undo->isEnabled());
    EXPECT_EQ(undo->toolTip(), "批次部分撤销，没有可以撤销的实例"_s);
    window->importPage()->frame()->open();
    drop(writeFile({row()}, "other.csv"_s));
    EXPECT_TRUE(compare->isEnabled());
}

TEST_F(InstanceActionsTest, EnterOnAChangeShowsItsRow)
{
    open();
    drop(writeFile({row("600000"_s, "300"_s), row("688001"_s, "400"_s)}));
    pressConfirm();
    window->importPage()->frame()->open();
    drop(writeFile({row("600000"_s, "300"_s), row("688001"_s, "900"_s)}));
    FilteredTable& diff = *window->importPage()->diff()->table();
    diff.setCurrentRow(0);
    QTest::keyClick(diff.view(), Qt::Key_Return);
    const QModelIndexList selected = parameterTable()->selectionModel()->selectedRows();
    ASSERT_EQ(selected.size(), 1);
    EXPECT_EQ(selected.first().row(), 1);
}
