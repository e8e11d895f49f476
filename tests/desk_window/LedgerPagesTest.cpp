#include "desk/window/BatchesPage.h"
#include "desk/window/DiffPanel.h"
#include "desk/window/HaltButton.h"
#include "desk/window/InstancesPage.h"
#include "desk/window/VerdictDialog.h"
#include "dialog/AlgoBatchImportParamSetting.h"
#include "host/SolveyAccountComboBox.h"
#include "ledger/draft/DraftJournal.h"
#include "tests/desk_window/DeskWindowFixture.h"
#include "tests/support/Eventually.h"

#include <QDir>
#include <QFile>
#include <QFileDialog>
#include <QLineEdit>
#include <QSqlDatabase>
#include <QSqlQuery>
#include <QTableView>
#include <QTabWidget>
#include <QTextEdit>

class LedgerPagesTest : public DeskWindowFixture {
protected:
    void createBatch(const QList<QStringList>& rows)
    {
        window->importPage()->frame()->open();
        drop(writeFile(rows));
        pressConfirm();
    }

    FilteredTable& instances() { return *window->instancesPage()->table(); }
    FilteredTable& batches() { return *window->batchesPage()->table(); }

    const FilteredTable& diff() { return *window->importPage()->diff()->table(); }

    /// Takes from the ledger's file a table that every look into it needs.
    void spoilLedger()
    {
        {
            QSqlDatabase file = QSqlDatabase::addDatabase("QSQLITE"_s, "spoil"_s);
            file.setDatabaseName(ledger::Ledger::pathIn(home.path()));
            ASSERT_TRUE(file.open());
            QSqlQuery query(file);
            ASSERT_TRUE(query.exec("ALTER TABLE batch RENAME TO gone"_s));
            ASSERT_TRUE(query.exec("ALTER TABLE instance RENAME TO gone_too"_s));
        }
        QSqlDatabase::removeDatabase("spoil"_s);
    }

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
    EXPECT_EQ(batch.at(11).size(), 64);
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
    books.desk.limits = {scope};
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
    window->importPage()->frame()->open();
    drop(writeFile({row("600000"_s, "300"_s)}));
    answer("button_cancel"_s);
    pressConfirm();
    EXPECT_EQ(batches().shownRows().size(), 1 + 1);
    pressConfirm(); // and acknowledge it
    EXPECT_EQ(batches().shownRows().size(), 1 + 2);
}

/// What a kill between the commit and the window's answer leaves: the batch, and the draft's id in the home.
TEST_F(LedgerPagesTest, TheSameFileAfterAKillFindsItsBatch)
{
    open();
    createBatch({row("600000"_s, "300"_s)});
    EXPECT_TRUE(QDir(home.filePath("drafts"_s)).isEmpty()) << "the user was told";
    const ledger::Batch made = books.ledger->batch(1).value;
    ledger::BatchDraft untold;
    untold.id = made.draftId;
    untold.fileSha256 = made.fileSha256;
    untold.account = made.account;
    untold.strategy = made.strategy;
    ASSERT_TRUE(ledger::DraftJournal(home.path()).begin(untold, books.ledger->today()).ok());
    window->importPage()->frame()->open();
    drop(writeFile({row("600000"_s, "300"_s)}));
    answer("button_ok"_s);
    pressConfirm();
    EXPECT_EQ(batches().shownRows().size(), 1 + 1);
    EXPECT_TRUE(message().contains("批次 1"_s)) << message().toStdString();
    EXPECT_TRUE(QDir(home.filePath("drafts"_s)).isEmpty());
    window->importPage()->frame()->open();
    drop(writeFile({row("600000"_s, "300"_s)}));
    pressConfirm(); // meant once more
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
    window->importPage()->frame()->open();
    drop(writeFile({row("600000"_s, "900"_s), row("510300"_s, "500"_s)}));
    EXPECT_TRUE(diff().isVisible());
    EXPECT_EQ(shown(diff(), 0), QStringList({"修改"_s, "删除行"_s, "新增行"_s}));
    EXPECT_EQ(diff().shownRows().at(1).mid(3), QStringList({"委托数量"_s, "300"_s, "900"_s}));
    QTest::mouseClick(diff().findChild<QAbstractButton*>("button_copy"_s), Qt::LeftButton);
    EXPECT_EQ(message(), "已复制 3 行"_s);
}

TEST_F(LedgerPagesTest, TheSameFileImportedAgainChangesNothing)
{
    open();
    createBatch({row()});
    window->importPage()->frame()->open();
    drop(writeFile({row()}));
    EXPECT_EQ(diff().emptyText(), "没有变更"_s);
    child<QComboBox>("cbx_algoType")->setCurrentIndex(1);
    EXPECT_EQ(diff().emptyText(), "没有可比较的批次"_s);
}

TEST_F(LedgerPagesTest, AFileIsNotComparedWithABatchOfAnotherAccountOrOneThatWasTakenBack)
{
    open();
    QStringList notStarted = row();
    notStarted.last() = "0"_s; // a started one may have traded, and is compared for ever
    createBatch({notStarted});
    window->importPage()->frame()->open();
    child<SolveyAccountComboBox>("combx_account")->SetCurTradingAccount("NOHK"_s);
    drop(writeFile({row()}));
    EXPECT_EQ(diff().emptyText(), "没有可比较的批次"_s);
    answer("button_yes"_s);
    pressOnBatches("button_undo");
    child<SolveyAccountComboBox>("combx_account")->SetCurTradingAccount("CASH1"_s);
    drop(writeFile({row()}));
    EXPECT_EQ(diff().emptyText(), "没有可比较的批次"_s);
}

TEST_F(LedgerPagesTest, UndoNamesTheBatchThatItIsAbout)
{
    open();
    createBatch({row("600000"_s, "300"_s), row("688001"_s, "400"_s)});
    QString question;
    whenModal([&question](QWidget& modal) {
        question = modal.findChild<QTextEdit*>("textEdit_message"_s)->toPlainText();
        QTest::mouseClick(modal.findChild<QAbstractButton*>("button_no"_s), Qt::LeftButton);
    });
    pressOnBatches("button_undo");
    EXPECT_TRUE(question.startsWith("撤销批次 1？\n文件 list.csv\n账户 CASH1，算法 AITWAP，2 行\n"_s))
        << question.toStdString();
}

TEST_F(LedgerPagesTest, OffersNothingForABatchThatAFilterHides)
{
    open();
    createBatch({row("600000"_s, "300"_s)});
    window->importPage()->frame()->open();
    drop(writeFile({row("688001"_s, "400"_s)}, "other.csv"_s));
    pressConfirm();
    window->showPage(DeskWindow::BatchesPageIndex);
    auto* undo = batches().findChild<QAbstractButton*>("button_undo"_s);
    batches().setCurrentRow(0);
    EXPECT_TRUE(undo->isEnabled());
    batches().filter()->setText("list.csv"_s); // the one below
    EXPECT_FALSE(undo->isEnabled());
    window->batchesPage()->undo();
    EXPECT_EQ(shown(batches(), 1), QStringList{ledger::shownName(ledger::BatchState::Created)});
}

TEST_F(LedgerPagesTest, EnterOnABatchShowsItsInstances)
{
    open();
    createBatch({row("600000"_s, "300"_s)});
    createBatch({row("688001"_s, "400"_s)});
    window->showPage(DeskWindow::BatchesPageIndex);
    batches().setCurrentRow(1);
    QTest::keyClick(batches().view(), Qt::Key_Return);
    EXPECT_EQ(shown(instances(), 4), QStringList{"600000.SH"_s});
}

/// Of another program on the same file, which knows nothing of this window.
TEST_F(LedgerPagesTest, ShowsWhatOtherProgramsDo)
{
    open();
    createBatch({row()});
    window->showPage(DeskWindow::InstancesPageIndex);
    const auto other = ledger::Ledger::open(books.address).value;
    ASSERT_EQ(other->undo(1).error, QString());
    EXPECT_TRUE(eventually([this] { return shown(instances(), 1).contains("已撤单"_s); }))
        << shown(instances(), 1).join(QLatin1Char(' ')).toStdString();
    ASSERT_EQ(other->halt("*"_s, "行情异常"_s).error, QString());
    auto* halt = child<HaltButton>("button_halt");
    EXPECT_TRUE(eventually([halt] { return halt->isHalted(); }));
}

TEST_F(LedgerPagesTest, ALedgerThatCannotBeReadDoesNotLookEmpty)
{
    open();
    createBatch({row()});
    spoilLedger();
    window->batchesPage()->reload();
    const QString error = window->batchesPage()->error();
    EXPECT_FALSE(error.isEmpty());
    EXPECT_EQ(message(), error);
    EXPECT_EQ(batches().shownRows().size(), 1 + 1) << "what is on screen stays there";
    window->instancesPage()->showBatch(std::nullopt);
    EXPECT_EQ(instances().shownRows().size(), 1);
    EXPECT_EQ(instances().emptyText(), window->instancesPage()->error());
    EXPECT_FALSE(instances().emptyText().isEmpty());
    window->importPage()->frame()->open();
    drop(writeFile({row()}));
    EXPECT_TRUE(message().startsWith("已导入 1 行"_s));
    EXPECT_TRUE(message().endsWith(error)) << message().toStdString();
}

TEST_F(LedgerPagesTest, GivesAPairThatBuysAndSellsTheColourOfNeither)
{
    open();
    child<QComboBox>("cbx_algoType")->setCurrentText("策略AILOCK"_s);
    drop(writeTable({{"证券代码"_s, "市场"_s, "委托数量"_s, "交易方向"_s, "委托属性"_s, "委托限价"_s,
                      "创建后是否立即启动"_s},
                     {"600000"_s, "SH"_s, "1000"_s, "1/2"_s, "0/0"_s, "10.5/10.6"_s, "7"_s}},
                    "pairs.csv"_s));
    pressConfirm();
    const QModelIndex direction = instances().view()->model()->index(0, 6);
    EXPECT_EQ(direction.data().toString(), "买入 / 卖出"_s);
    EXPECT_FALSE(direction.data(Qt::ForegroundRole).isValid());
}

TEST_F(LedgerPagesTest, ShowsSumsWithCommas)
{
    open();
    createBatch({row("600000"_s, "200000"_s)});
    window->showPage(DeskWindow::BatchesPageIndex);
    const QAbstractItemModel& batchCells = *batches().view()->model();
    EXPECT_EQ(batchCells.index(0, 8).data().toString(), "2,000,000.00"_s);
    const QAbstractItemModel& cells = *instances().view()->model();
    EXPECT_EQ(cells.index(0, 11).data().toString(), "2,000,000.00"_s);
    EXPECT_TRUE(cells.index(0, 6).data(Qt::ForegroundRole).isValid());
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
    EXPECT_EQ(message(), books.ledgerError);
    EXPECT_EQ(batches().emptyText(), books.ledgerError);
    EXPECT_EQ(instances().emptyText(), books.ledgerError);
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
