#include "desk/window/DialogFrame.h"

#include "desk/window/BatchesPage.h"
#include "desk/window/DiffPanel.h"
#include "desk/window/ProblemsPanel.h"
#include "host/SolveyAccountComboBox.h"
#include "table/FaultCatalogue.h"
#include "table/Rules.h"
#include "tests/desk_window/DeskWindowFixture.h"
#include "tests/support/Eventually.h"

#include <QFileDialog>
#include <QLineEdit>
#include <QMenu>
#include <QTabWidget>
#include <QWheelEvent>

class DialogFrameTest : public DeskWindowFixture {
protected:
    SolveyAccountComboBox& accounts() { return *child<SolveyAccountComboBox>("combx_account"); }
    QComboBox& strategies() { return *child<QComboBox>("cbx_algoType"); }
    ProblemsPanel& problems() { return *window->importPage()->problems(); }
    int batchCount() { return window->batchesPage()->table()->shownRows().size() - 1; }
    int currentPage() { return window->findChild<QTabWidget*>()->currentIndex(); }
    void pressKeysToConfirm()
    {
        window->activateWindow(); // off screen, a closed message box does not hand the activity back
        ASSERT_TRUE(QTest::qWaitForWindowActive(window.get(), PatienceMs));
        agreeingTo([this] { QTest::keyClick(window.get(), Qt::Key_Return, Qt::ControlModifier); });
    }

    static void turnWheelOver(QWidget& widget)
    {
        const QPointF middle = widget.rect().center();
        QWheelEvent turn(middle, widget.mapToGlobal(middle.toPoint()), {}, {0, -120}, Qt::NoButton,
                         Qt::NoModifier, Qt::NoScrollPhase, false);
        QApplication::sendEvent(&widget, &turn);
    }

    /// Saves a template as a file of no known type, which the host refuses with an error box.
    void failToExportATemplate()
    {
        QTimer::singleShot(100, window.get(), [] {
            auto* menu = qobject_cast<QMenu*>(QApplication::activePopupWidget());
            ASSERT_NE(menu, nullptr);
            menu->setActiveAction(menu->actions().first());
            QTest::keyClick(menu, Qt::Key_Return);
        });
        whenModal([this](QWidget& modal) {
            auto* name = modal.findChild<QLineEdit*>("fileNameEdit"_s);
            ASSERT_NE(name, nullptr);
            name->setText(folder.filePath("template.pdf"_s));
            answer("button_ok"_s);
            QTest::keyClick(name, Qt::Key_Return);
        });
        QTest::mouseClick(child<QAbstractButton>("pb_exportModules"), Qt::LeftButton);
    }
};

TEST_F(DialogFrameTest, ConfirmsByKeysOnlyABatchThatIsInFront)
{
    open();
    drop(writeFile({row()}));
    window->showPage(DeskWindow::QuotesPageIndex);
    pressKeysToConfirm();
    EXPECT_EQ(batchCount(), 0);
    EXPECT_EQ(currentPage(), int(DeskWindow::ImportPageIndex));
    EXPECT_EQ(message(), "请先核对批次，再提交"_s);
    pressKeysToConfirm();
    EXPECT_EQ(batchCount(), 1);
}

TEST_F(DialogFrameTest, SaysWhyThereIsNothingToConfirm)
{
    open();
    drop(writeFile({row()}));
    answer("button_ok"_s);
    accounts().SetCurTradingAccount("FUT1"_s);
    pressKeysToConfirm();
    EXPECT_TRUE(message().startsWith("“确定”不可用"_s)) << message().toStdString();
    QTest::mouseClick(child<QAbstractButton>("btn_cancel"), Qt::LeftButton);
    pressKeysToConfirm();
    EXPECT_TRUE(message().startsWith("批量导入已关闭"_s)) << message().toStdString();
}

TEST_F(DialogFrameTest, SaysThatItIsOpenWhereAnotherOneIsAskedFor)
{
    open();
    QTest::keyClick(window.get(), Qt::Key_N, Qt::ControlModifier);
    EXPECT_EQ(message(), "批量导入已经打开"_s);
}

TEST_F(DialogFrameTest, ATurnOfTheWheelMovesNeitherAccountNorStrategy)
{
    open();
    strategies().setCurrentIndex(1);
    accounts().setCurrentIndex(1);
    turnWheelOver(accounts());
    EXPECT_EQ(accounts().currentIndex(), 1);
    turnWheelOver(strategies());
    EXPECT_EQ(strategies().currentIndex(), 1);
}

TEST_F(DialogFrameTest, ShowsTheWholeAccountAsAToolTip)
{
    open();
    EXPECT_EQ(accounts().toolTip(), accounts().currentText());
    accounts().SetCurTradingAccount("CREDIT1"_s);
    EXPECT_EQ(accounts().toolTip(), accounts().currentText());
}

TEST_F(DialogFrameTest, TellsOfAnImportHowManyRowsAndProblemsItHas)
{
    open();
    const QString path = writeFile({row(), row("688001"_s)});
    drop(path);
    EXPECT_EQ(message(), "已导入 2 行，0 个问题 · "_s + path);
}

TEST_F(DialogFrameTest, SaysNothingOfAnImportThatTheUserCancelled)
{
    open();
    drop(writeFile({row()}));
    window->say("vorher"_s);
    whenModal([](QWidget& modal) {
        auto* dialog = qobject_cast<QFileDialog*>(&modal);
        ASSERT_NE(dialog, nullptr);
        dialog->reject();
    });
    QTest::keyClick(window.get(), Qt::Key_O, Qt::ControlModifier);
    EXPECT_EQ(message(), "vorher"_s);
    EXPECT_EQ(window->importPage()->fileName(), "list.csv"_s);
}

TEST_F(DialogFrameTest, SaysThatNothingWasImportedWhereTheUserDeclinedTheRowLimit)
{
    open();
    drop(writeFile({row()}));
    QList<QStringList> rows;
    for (int i = 0; i < 1001; ++i) {
        rows.append(row());
    }
    const QString path = writeFile(rows, "long.csv"_s);
    answer("button_no"_s);
    drop(path);
    EXPECT_EQ(message(), "未导入任何行 · "_s + path);
    EXPECT_NE(problems().table()->emptyText(), "没有问题"_s);
}

TEST_F(DialogFrameTest, SaysThatNothingWasImportedOfAFileThatCannotBeRead)
{
    open();
    drop(writeFile({row()}));
    const QString path = writeTable({{"a"_s, "b"_s}, {"1"_s, "2"_s}}, "foreign.csv"_s);
    answer("button_ok"_s);
    drop(path);
    EXPECT_EQ(message(), "未导入任何行，1 个问题 · "_s + path)
        << "whatever the dialog kept of the file before";
}

TEST_F(DialogFrameTest, TellsOfRowsThatWerePassedOverThoughTheyLookLikeOrders)
{
    open();
    QStringList withoutCode = row();
    withoutCode[0].clear();
    withoutCode[1].clear();
    const QStringList blank =
        QStringList(withoutCode).replaceInStrings(QRegularExpression(".+"_s), QString());
    QStringList note = blank;
    note[2] = "备注：一行一个实例"_s;
    const QString path = writeFile({row(), note, withoutCode, blank, row()});
    drop(path);
    EXPECT_EQ(message(), "已导入 2 行，1 个问题，前两格为空而跳过 1 行 · "_s + path);
    EXPECT_TRUE(child<QLabel>("label_fileFacts")->text().contains("前两格为空而跳过 1 行"_s));
}

TEST_F(DialogFrameTest, TellsOfRowsThatAnImportLostBehindTheOneThatEndedIt)
{
    open();
    strategies().setCurrentIndex(strategies().findData("LOCAL"_s)); // takes no Hong Kong securities
    QStringList hongKong = row("00700"_s);
    hongKong[2] = "HKSH"_s;
    const QString path = writeFile({row("999999"_s), row(), hongKong, row()});
    answer("button_ok"_s);
    drop(path);
    EXPECT_EQ(message(), "已导入 1 行，3 个问题 · "_s + path);
    const Problems told = problems().problemsOf(Problem::Source::Import);
    ASSERT_EQ(told.size(), 3);
    EXPECT_EQ(told.at(1).fault.rule, table::rule::NoHongKong);
    EXPECT_EQ(told.at(1).fault.line, 4);
    EXPECT_EQ(table::sentence(told.last().fault), "另有 1 行既未导入，也未列出原因，请核对文件"_s);
}

TEST_F(DialogFrameTest, ATemplateThatCannotBeSavedIsNoProblemOfTheBatch)
{
    open();
    child<SolveyAccountComboBox>("combx_account")->SetCurTradingAccount("CREDIT1"_s);
    drop(writeFile({row()}));
    answer("button_ok"_s);
    pressConfirm();
    ASSERT_EQ(problems().problems().size(), 1);
    const QString before = problems().problems().first().fault.rule;
    failToExportATemplate();
    ASSERT_EQ(problems().problems().size(), 1);
    EXPECT_EQ(problems().problems().first().fault.rule, before);
}

TEST_F(DialogFrameTest, WhatAnAccountSufferedFromIsGoneWithIt)
{
    open();
    drop(writeFile({row()}));
    answer("button_ok"_s);
    accounts().SetCurTradingAccount("FUT1"_s);
    EXPECT_EQ(problems().problems().size(), 1);
    accounts().SetCurTradingAccount("CASH1"_s);
    EXPECT_EQ(problems().problems().size(), 0);
}

TEST_F(DialogFrameTest, AnotherStrategyForgetsTheFileWithAllThatWasSaidOfIt)
{
    open();
    answer("button_ok"_s);
    drop(writeFile({row(), row("999999"_s)}));
    QTest::keyClick(window.get(), Qt::Key_F5);
    EXPECT_FALSE(child<QLabel>("label_refreshed")->text().isEmpty());
    strategies().setCurrentIndex(1);
    EXPECT_EQ(window->importPage()->fileName(), QString());
    EXPECT_EQ(problems().problems().size(), 0);
    EXPECT_TRUE(problems().report().format.isEmpty());
    EXPECT_TRUE(child<QLabel>("label_refreshed")->text().isEmpty());
}

TEST_F(DialogFrameTest, BeforeAFileNothingIsSaidToBeRight)
{
    open();
    const ImportPage& page = *window->importPage();
    EXPECT_EQ(page.problems()->table()->emptyText(), "导入文件后，其中的问题显示在这里"_s);
    EXPECT_EQ(page.diff()->table()->emptyText(), "没有可比较的批次"_s);
    drop(writeFile({row()}));
    EXPECT_EQ(page.problems()->table()->emptyText(), "没有问题"_s);
    EXPECT_EQ(page.diff()->table()->emptyText(), "没有可比较的批次"_s);
}
