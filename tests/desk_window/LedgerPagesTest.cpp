#include "desk/window/BatchesPage.h"
#include "desk/window/DiffPanel.h"
#include "desk/window/InstancesPage.h"
#include "desk/window/VerdictDialog.h"
#include "dialog/AlgoBatchImportParamSetting.h"
#include "tests/desk_window/DeskWindowFixture.h"

#include <QFile>
#include <QFileDialog>
#include <QLineEdit>
#include <QTableView>
#include <QTabWidget>

class LedgerPagesTest : public DeskWindowFixture {
protected:
    void createBatch(const QList<QStringList>& rows)
    {
        window->importPage()->open();
        drop(writeFile(rows));
        pressConfirm();
    }

    FilteredTable& instances() { return *window->instancesPage()->table(); }
    FilteredTable& batches() { return *window->batchesPage()->table(); }

    void pressOnBatches(const char* button)
    {
        window->showPage(DeskWindow::BatchesPageIndex);
        batches().setCurrentRow(0);
        auto* found = batches().findChild<QAbstractButton*>(QString::fromLatin1(button));
        ASSERT_TRUE(found && found->isEnabled());
        QTest::mouseClick(found, Qt::LeftButton);
    }
};

TEST_F(LedgerPagesTest, ListsTheInstancesAndTheBatchThatAConfirmationCreated)
{
    open();
    createBatch({row("600000"_s, "300"_s), row("688001"_s, "400"_s)});
    EXPECT_EQ(shown(instances(), 4), QStringList({"600000.SH"_s, "688001.SH"_s}));
    EXPECT_EQ(shown(instances(), 6), QStringList({"买入"_s, "买入"_s}));
    EXPECT_EQ(shown(instances(), 7), QStringList({"300"_s, "400"_s}));
    ASSERT_EQ(batches().shownRows().size(), 2);
    const QStringList batch = batches().shownRows().last();
    EXPECT_EQ(batch.at(3), "list.csv"_s);
    EXPECT_EQ(batch.at(6), "2"_s);
    EXPECT_EQ(batch.last().size(), 64);
}

TEST_F(LedgerPagesTest, ShowsTheInstancesOfOneBatchAndOfAllAgain)
{
    open();
    createBatch({row("600000"_s, "300"_s)});
    createBatch({row("688001"_s, "400"_s), row("510300"_s, "500"_s)});
    EXPECT_EQ(instances().shownRows().size(), 1 + 3);
    pressOnBatches("button_instances"); // the newest batch stands first
    EXPECT_EQ(shown(instances(), 4), QStringList({"688001.SH"_s, "510300.SH"_s}));
    QTest::mouseClick(child<QAbstractButton>("button_allBatches"), Qt::LeftButton);
    EXPECT_EQ(instances().shownRows().size(), 1 + 3);
}

TEST_F(LedgerPagesTest, ACeilingKeepsTheBatchFromBeingCreatedAndTheDialogAsItWas)
{
    ledger::LimitScope scope;
    scope.limits.rowQuantity = 100;
    books.limits = {scope};
    open();
    drop(writeFile({row("600000"_s, "300"_s)}));
    whenModal([](QWidget& modal) {
        EXPECT_EQ(modal.findChild<QAbstractButton*>("button_create"_s), nullptr);
        QTest::mouseClick(modal.findChild<QAbstractButton*>("button_cancel"_s), Qt::LeftButton);
    });
    pressConfirm();
    EXPECT_EQ(batches().shownRows().size(), 1);
    ASSERT_NE(window->importPage()->dialog(), nullptr);
    EXPECT_TRUE(child<QAbstractButton>("btn_ok")->isEnabled());
    EXPECT_EQ(parameterTable()->getViewData().size(), 1);
}

TEST_F(LedgerPagesTest, TheSameFileAgainIsCreatedOnlyWhenTheUserInsists)
{
    open();
    createBatch({row("600000"_s, "300"_s)});
    window->importPage()->open();
    drop(writeFile({row("600000"_s, "300"_s)}));
    answer("button_cancel"_s);
    pressConfirm();
    EXPECT_EQ(batches().shownRows().size(), 1 + 1);
    answer("button_create"_s);
    pressConfirm();
    EXPECT_EQ(batches().shownRows().size(), 1 + 2);
}

TEST_F(LedgerPagesTest, UndoAsksFirstAndTakesTheBatchBack)
{
    open();
    createBatch({row("600000"_s, "300"_s)});
    const QString before = batches().shownRows().last().at(1);
    answer("button_no"_s);
    pressOnBatches("button_undo");
    EXPECT_EQ(batches().shownRows().last().at(1), before);
    answer("button_yes"_s);
    pressOnBatches("button_undo");
    EXPECT_EQ(batches().shownRows().last().at(1), ledger::shownName(ledger::BatchState::PartlyReversed));
    EXPECT_EQ(shown(instances(), 1).first(), ledger::shownName(ledger::InstanceState::Stopped));
}

TEST_F(LedgerPagesTest, AnEditedFileImportedAgainShowsWhatItChanges)
{
    open();
    createBatch({row("600000"_s, "300"_s), row("688001"_s, "400"_s)});
    window->importPage()->open();
    drop(writeFile({row("600000"_s, "900"_s), row("510300"_s, "500"_s)}));
    const FilteredTable& diff = *window->findChild<DiffPanel*>()->table();
    EXPECT_TRUE(diff.isVisible());
    EXPECT_EQ(shown(diff, 0), QStringList({"修改"_s, "删除行"_s, "新增行"_s}));
    EXPECT_EQ(diff.shownRows().at(1).mid(3), QStringList({"委托数量"_s, "300"_s, "900"_s}));
}

TEST_F(LedgerPagesTest, ExportsTheListAsShown)
{
    open();
    createBatch({row("600000"_s, "300"_s), row("688001"_s, "400"_s)});
    window->showPage(DeskWindow::InstancesPageIndex);
    instances().filter()->setText("688001"_s);
    const QString path = folder.filePath("out.csv"_s);
    whenModal([path](QWidget& modal) {
        auto* name = modal.findChild<QLineEdit*>("fileNameEdit"_s);
        ASSERT_NE(name, nullptr);
        name->setText(path);
        QTest::keyClick(name, Qt::Key_Return);
    });
    QTest::keyClick(window.get(), Qt::Key_E, Qt::ControlModifier);
    QFile file(path);
    ASSERT_TRUE(file.open(QIODevice::ReadOnly));
    const QString text = QString::fromUtf8(file.readAll());
    EXPECT_TRUE(text.contains("688001.SH"_s));
    EXPECT_FALSE(text.contains("600000.SH"_s));
}

TEST_F(LedgerPagesTest, ALedgerThatCannotBeOpenedIsSaidAndNothingIsLost)
{
    books.ledgerError = "台账已被另一个程序打开"_s;
    open();
    drop(writeFile({row()}));
    answer("button_ok"_s);
    pressConfirm();
    ASSERT_NE(window->importPage()->dialog(), nullptr);
    EXPECT_EQ(parameterTable()->getViewData().size(), 1);
    EXPECT_TRUE(child<QAbstractButton>("btn_ok")->isEnabled());
}

TEST_F(LedgerPagesTest, KeepsTheColumnsAsTheUserSetThem)
{
    open();
    createBatch({row()});
    instances().view()->setColumnWidth(4, 177);
    createBatch({row("688001"_s)});
    EXPECT_EQ(instances().view()->columnWidth(4), 177) << "more rows do not set it back";
    closeWindow();
    books = {};
    open();
    EXPECT_EQ(instances().view()->columnWidth(4), 177);
}

TEST_F(LedgerPagesTest, KeepsBatchesFromOneSessionToTheNext)
{
    open();
    createBatch({row()});
    closeWindow();
    books = {};
    open();
    EXPECT_EQ(batches().shownRows().size(), 1 + 1);
    EXPECT_EQ(instances().shownRows().size(), 1 + 1);
}
