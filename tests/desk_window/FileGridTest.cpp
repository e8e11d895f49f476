#include "desk/window/FileGrid.h"

#include "desk/models/ProblemsModel.h"
#include "desk/window/BatchesPage.h"
#include "desk/window/FileGridModel.h"
#include "desk/window/FileMending.h"
#include "desk/window/ProblemsPanel.h"
#include "embedded_host/skin/SkinService.h"
#include "embedded_host/table_reader/TableReader.h"
#include "host/SolveyAccountComboBox.h"
#include "table/Rules.h"
#include "tests/desk_window/DeskWindowFixture.h"
#include "tests/support/Eventually.h"

#include <QClipboard>
#include <QComboBox>
#include <QFileDialog>
#include <QLineEdit>
#include <QMenu>
#include <QTableView>
#include <QTextEdit>

/// A file that is mended in the window.
class FileGridTest : public DeskWindowFixture {
protected:
    FileGrid& grid() { return *window->importPage()->grid(); }
    QAbstractItemModel& cells() { return *grid().view()->model(); }
    ProblemsPanel& panel() { return *window->importPage()->problems(); }
    QAbstractButton& okButton() { return *child<QAbstractButton>("btn_ok"); }
    QStringList refused()
    {
        QStringList texts;
        for (const Problem& problem : panel().problemsOf(Problem::Source::Import)) {
            texts.append(QStringLiteral("%1 %2").arg(problem.fault.line).arg(problem.fault.cell));
        }
        return texts;
    }

    /// A good row, two with codes that nobody knows, a good row.
    void importFaultyFile()
    {
        answer("button_ok"_s);
        drop(writeFile({row(), row("999999"_s), row("888888"_s), row("688001"_s)}));
    }

    /// As a person types: into the cell's editor.
    void type(int line, int column, const QString& text)
    {
        ASSERT_TRUE(grid().showCell(line, column));
        grid().view()->setFocus();
        QTest::keyClick(grid().view(), Qt::Key_F2);
        QWidget* editor = QApplication::focusWidget();
        ASSERT_NE(qobject_cast<QLineEdit*>(editor), nullptr);
        QTest::keyClick(editor, Qt::Key_A, Qt::ControlModifier);
        QTest::keyClicks(editor, text);
        QTest::keyClick(editor, Qt::Key_Return);
        QCoreApplication::processEvents(); // the editor hands over what was typed afterwards
    }

    void openFileView()
    {
        QTest::keyClick(window.get(), Qt::Key_F6);
        ASSERT_TRUE(grid().view()->isVisible());
    }

    /// Until the dialog has imported what was mended.
    void awaitImport()
    {
        ASSERT_TRUE(eventually([this] { return !window->importPage()->mending()->isBehind(); }));
    }

    ledger::Batch lastBatch()
    {
        const auto batches = books.ledger->batchesBefore(std::nullopt, 1);
        return batches.value.value(0);
    }
};

TEST_F(FileGridTest, ShowsTheFileWithItsLinesAndWhatIsWrongAtTheCells)
{
    open();
    importFaultyFile();
    EXPECT_EQ(cells().rowCount(), 5);
    EXPECT_EQ(cells().index(0, 0).data().toString(), "证券代码"_s) << "the header is a row";
    EXPECT_EQ(cells().headerData(2, Qt::Vertical).toString(), "3"_s);
    const QModelIndex faulty = cells().index(2, 0);
    EXPECT_EQ(faulty.data().toString(), "× 999999"_s) << "a sign beside the colour";
    EXPECT_EQ(faulty.data(Qt::EditRole).toString(), "999999"_s);
    EXPECT_EQ(faulty.data(Qt::BackgroundRole).value<QColor>(),
              host->skins().colours().colour("errorSurface"_s));
    EXPECT_TRUE(faulty.data(Qt::ToolTipRole).toString().contains("证券代码999999不合法"_s));
    EXPECT_TRUE(faulty.data(Qt::AccessibleTextRole).toString().contains("错误"_s));
    EXPECT_FALSE(cells().index(1, 0).data(Qt::BackgroundRole).isValid());
    openFileView();
    grid().showCell(3, 0);
    EXPECT_TRUE(message().contains("证券代码999999不合法"_s)) << message().toStdString();
}

TEST_F(FileGridTest, TellsAtOnceWhatAnEditMendsAndImportsItAfterAPause)
{
    open();
    importFaultyFile();
    openFileView();
    type(3, 0, "600000"_s);
    EXPECT_EQ(refused(), QStringList{"4 888888"_s}) << "before the dialog knows";
    EXPECT_EQ(parameterTable()->getViewData().size(), 2);
    EXPECT_FALSE(okButton().isEnabled()) << "its batch is not what the user has made";
    awaitImport();
    EXPECT_EQ(parameterTable()->getViewData().size(), 3);
    EXPECT_TRUE(okButton().isEnabled());
    EXPECT_EQ(refused(), QStringList{"4 888888"_s});
    EXPECT_EQ(panel().problemsOf(Problem::Source::Import).first().row, 0);
}

TEST_F(FileGridTest, UndoesAndRedoesByKeys)
{
    open();
    importFaultyFile();
    openFileView();
    type(3, 0, "600000"_s);
    QTest::keyClick(window.get(), Qt::Key_Z, Qt::ControlModifier);
    EXPECT_EQ(refused().size(), 2);
    EXPECT_FALSE(grid().copy().isEdited());
    QTest::keyClick(window.get(), Qt::Key_Z, Qt::ControlModifier | Qt::ShiftModifier);
    EXPECT_EQ(refused().size(), 1);
}

TEST_F(FileGridTest, LeavesRowsOutAndTakesThemIn)
{
    open();
    importFaultyFile();
    openFileView();
    grid().showCell(3, 0);
    QTest::keyClick(window.get(), Qt::Key_Minus, Qt::ControlModifier);
    EXPECT_EQ(refused(), QStringList{"4 888888"_s});
    EXPECT_TRUE(cells().index(2, 0).data(Qt::FontRole).value<QFont>().strikeOut());
    EXPECT_TRUE(cells().index(2, 0).data(Qt::AccessibleTextRole).toString().contains("不导入"_s));
    QTest::keyClick(window.get(), Qt::Key_Minus, Qt::ControlModifier);
    EXPECT_EQ(refused().size(), 2);
}

TEST_F(FileGridTest, ReplacesAValueInAColumn)
{
    open();
    answer("button_ok"_s);
    QStringList bold = row();
    bold[9] = "激进"_s;
    drop(writeFile({bold, row("688001"_s), bold}));
    ASSERT_EQ(refused().size(), 2);
    openFileView();
    grid().showCell(2, 9);
    whenModal([](QWidget& modal) {
        EXPECT_EQ(modal.findChild<QComboBox*>("combo_before"_s)->currentText(), "激进"_s);
        QTest::keyClicks(modal.findChild<QLineEdit*>("edit_after"_s), "aggressive"_s);
        QTest::keyClick(modal.findChild<QLineEdit*>("edit_after"_s), Qt::Key_Return);
    });
    QTest::keyClick(window.get(), Qt::Key_H, Qt::ControlModifier);
    EXPECT_EQ(refused(), QStringList());
    EXPECT_EQ(grid().copy().edits().size(), 1) << "undone at once";
    awaitImport();
    EXPECT_EQ(parameterTable()->getViewData().size(), 3);
}

TEST_F(FileGridTest, PastesCellsAndFurtherRows)
{
    open();
    importFaultyFile();
    openFileView();
    QApplication::clipboard()->setText("600000\n688001\n"_s);
    grid().showCell(3, 0);
    QTest::keyClick(window.get(), Qt::Key_V, Qt::ControlModifier);
    EXPECT_EQ(refused(), QStringList());
    QApplication::clipboard()->setText(row().join(QLatin1Char('\t')) + "\n"_s +
                                       row("000000"_s).join(QLatin1Char('\t')));
    grid().showCell(5, 0);
    QTest::keyClick(window.get(), Qt::Key_V, Qt::ControlModifier);
    EXPECT_EQ(cells().rowCount(), 6);
    EXPECT_EQ(cells().headerData(5, Qt::Vertical).toString(), "6 +"_s);
    EXPECT_EQ(refused(), QStringList{"6 000000"_s}) << "a row that no file has, by the line behind the last";
}

TEST_F(FileGridTest, ImportsCellsFromTheClipboardWithoutAFile)
{
    open();
    QList<QStringList> rows{small_market::ordinaryHeader(), row(), row("688001"_s)};
    rows.last()[10] = "a,b"_s;
    QStringList lines;
    for (const QStringList& cells : qAsConst(rows)) {
        lines.append(cells.join(QLatin1Char('\t')));
    }
    QApplication::clipboard()->setText(lines.join(QLatin1Char('\n')));
    parameterTable()->setFocus();
    QTest::keyClick(window.get(), Qt::Key_V, Qt::ControlModifier);
    EXPECT_EQ(parameterTable()->getViewData().size(), 2);
    EXPECT_EQ(grid().copy().cell(3, 10), "a,b"_s) << "a tab alone separates cells";
    pressConfirm();
    EXPECT_EQ(lastBatch().fileName, "剪贴板.csv"_s);
    EXPECT_EQ(lastBatch().fileSha256.size(), 64);
}

TEST_F(FileGridTest, KeepsTheEditsWithTheBatchAndInTheTrail)
{
    open();
    importFaultyFile();
    openFileView();
    type(3, 0, "600000"_s);
    grid().leaveOut({4});
    awaitImport();
    QTest::keyClick(window.get(), Qt::Key_F6);
    pressConfirm();
    const ledger::Batch batch = lastBatch();
    EXPECT_EQ(batch.rowCount, 3);
    ASSERT_EQ(batch.fileEdits.size(), 2);
    EXPECT_EQ(batch.fileEdits.first().toObject()["edit"_s].toString(), "type"_s);
    EXPECT_EQ(batch.fileSha256, batch::sha256OfFile(folder.filePath("list.csv"_s))) << "of the file as it is";
    const auto entries = books.ledger->audit().value;
    EXPECT_TRUE(std::any_of(entries.begin(), entries.end(), [](const ledger::AuditEntry& entry) {
        return entry.what == "edit"_s && entry.detail.contains("600000"_s);
    }));
    BatchesPage& batches = *window->batchesPage();
    window->showPage(DeskWindow::BatchesPageIndex);
    batches.table()->setCurrentRow(0);
    QString told;
    whenModal([&told](QWidget& modal) {
        told = modal.findChild<QTextEdit*>("textEdit_message"_s)->toPlainText();
        QTest::keyClick(&modal, Qt::Key_Escape);
    });
    QTest::mouseClick(batches.findChild<QAbstractButton*>("button_edits"_s), Qt::LeftButton);
    EXPECT_TRUE(told.contains("文件第 3 行“证券代码”：“999999” → “600000”"_s)) << told.toStdString();
    EXPECT_TRUE(told.contains("不导入文件第 4 行"_s)) << told.toStdString();
}

TEST_F(FileGridTest, LeavesOutByOneButtonWhatFailsAtConfirmationAndSavesItWithTheRejects)
{
    open();
    QStringList financed = row("688001"_s);
    financed[5] = "9"_s; // not for a cash account
    drop(writeFile({row(), financed, row()}));
    ASSERT_EQ(parameterTable()->getViewData().size(), 3);
    answer("button_ok"_s);
    pressConfirm();
    ASSERT_EQ(panel().problemsOf(Problem::Source::Confirmation).size(), 1);
    QTest::keyClick(window.get(), Qt::Key_L, Qt::ControlModifier | Qt::ShiftModifier);
    EXPECT_EQ(grid().copy().leftOut(), QSet<int>{3});
    awaitImport();
    EXPECT_EQ(parameterTable()->getViewData().size(), 2);
    ASSERT_EQ(panel().problemsOf(Problem::Source::SetAside).size(), 1) << "it is not forgotten";
    pressConfirm();
    EXPECT_EQ(lastBatch().rowCount, 2);

    const QString rejects = folder.filePath("rejects.csv"_s);
    whenModal([rejects](QWidget& modal) {
        modal.findChild<QLineEdit*>("fileNameEdit"_s)->setText(rejects);
        QTest::keyClick(modal.findChild<QLineEdit*>("fileNameEdit"_s), Qt::Key_Return);
    });
    QTest::mouseClick(child<QAbstractButton>("button_saveRejects"), Qt::LeftButton);
    const QList<QStringList> rows = table_reader::readTable(rejects).rows;
    ASSERT_EQ(rows.size(), 2);
    EXPECT_EQ(rows.at(1).first(), "688001"_s);
    EXPECT_FALSE(rows.at(1).last().isEmpty()) << "with its reason";
}

TEST_F(FileGridTest, GoesFromAProblemToItsCellByEnter)
{
    open();
    importFaultyFile();
    panel().table()->setCurrentRow(panel().problems().size() - 1);
    panel().table()->view()->setFocus();
    QTest::keyClick(panel().table()->view(), Qt::Key_Return);
    EXPECT_TRUE(grid().view()->hasFocus());
    EXPECT_EQ(grid().view()->currentIndex().row(), 3);
}

TEST_F(FileGridTest, WaitsWithTheImportWhileACellIsTypedInto)
{
    open();
    importFaultyFile();
    openFileView();
    type(3, 0, "600000"_s);
    grid().showCell(4, 0);
    QTest::keyClick(grid().view(), Qt::Key_F2);
    ASSERT_TRUE(grid().isTyping());
    QTest::qWait(3 * FileMending::PauseMs);
    EXPECT_TRUE(window->importPage()->mending()->isBehind());
    EXPECT_TRUE(grid().isTyping());
    QTest::keyClick(QApplication::focusWidget(), Qt::Key_Escape);
    awaitImport();
    EXPECT_EQ(parameterTable()->getViewData().size(), 3);
}

TEST_F(FileGridTest, ImportsFirstWhereTheUserConfirmsBeforeThePauseIsOver)
{
    open();
    importFaultyFile();
    openFileView();
    type(3, 0, "600000"_s);
    QTest::keyClick(window.get(), Qt::Key_Return, Qt::ControlModifier);
    EXPECT_EQ(parameterTable()->getViewData().size(), 3);
    EXPECT_FALSE(window->importPage()->mending()->isBehind());
    EXPECT_EQ(lastBatch().number, 0) << "he has not seen it";
}

TEST_F(FileGridTest, SaysTheLineOfTheFileHoweverTheTableIsSorted)
{
    open();
    QStringList financed = row("688001"_s);
    financed[5] = "9"_s;
    drop(writeFile({row(), financed, row("600999"_s)}));
    parameterTable()->sortByColumn(1, Qt::DescendingOrder);
    answer("button_ok"_s);
    pressConfirm();
    const Problem problem = panel().problemsOf(Problem::Source::Confirmation).value(0);
    EXPECT_EQ(problem.fault.line, 3);
    panel().goToNext();
    const QModelIndex chosen = parameterTable()->currentIndex();
    EXPECT_TRUE(chosen.isValid());
    bool isMeant = false;
    for (int column = 0; column < parameterTable()->model()->columnCount(); ++column) {
        isMeant = isMeant || chosen.sibling(chosen.row(), column).data().toString().contains("688001"_s);
    }
    EXPECT_TRUE(isMeant) << "the row that is meant is selected";
}

// ---- what may be lost, and what changes meanwhile

TEST_F(FileGridTest, AsksBeforeABatchIsThrownAwayAndKeepsIt)
{
    open();
    drop(writeFile({row()}));
    discards = false;
    auto* strategies = child<QComboBox>("cbx_algoType");
    const QString loaded = strategies->currentText();
    answer("button_keep"_s);
    strategies->setCurrentIndex(strategies->currentIndex() == 0 ? 1 : 0);
    EXPECT_EQ(strategies->currentText(), loaded);
    EXPECT_EQ(parameterTable()->getViewData().size(), 1);
    QCoreApplication::processEvents();
    answer("button_keep"_s);
    drop(writeFile({row(), row()}, "other.csv"_s));
    EXPECT_EQ(parameterTable()->getViewData().size(), 1);
    answer("button_keep"_s);
    QTest::mouseClick(child<QAbstractButton>("btn_cancel"), Qt::LeftButton);
    EXPECT_NE(window->importPage()->dialog(), nullptr);
    answer("button_keep"_s);
    EXPECT_FALSE(window->close());
    EXPECT_TRUE(window->isVisible());
    answer("button_discard"_s);
    strategies->setCurrentIndex(strategies->currentIndex() == 0 ? 1 : 0);
    EXPECT_NE(strategies->currentText(), loaded);
    EXPECT_EQ(parameterTable()->getViewData().size(), 0);
    EXPECT_TRUE(window->close()) << "nothing is left to lose";
}

TEST_F(FileGridTest, AsksNothingOfABatchThatWasCreatedNorOfTheSameFileOnceMore)
{
    open();
    discards = false;
    QTest::mouseClick(child<QAbstractButton>("checkbx_createdClose"), Qt::LeftButton, {}, QPoint(8, 9));
    const QString path = writeFile({row()});
    drop(path);
    drop(path);
    pressConfirm();
    ASSERT_NE(window->importPage()->dialog(), nullptr);
    EXPECT_FALSE(window->importPage()->hasOpenBatch());
    drop(writeFile({row(), row()}, "other.csv"_s));
    EXPECT_EQ(parameterTable()->getViewData().size(), 2);
    discards = true;
}

TEST_F(FileGridTest, ReloadsTheFileByAKeyAndOffersItWhenItChanged)
{
    open();
    const QString path = writeFile({row()});
    drop(path);
    writeFile({row(), row("688001"_s)}); // in place of the other
    auto* notice = child<QLabel>("label_notice");
    ASSERT_TRUE(eventually([&] { return notice->isVisible(); }));
    EXPECT_TRUE(notice->text().contains(path)) << notice->text().toStdString();
    EXPECT_EQ(parameterTable()->getViewData().size(), 1) << "nothing happens unasked";
    QTest::mouseClick(child<QAbstractButton>("button_noticeBatch"), Qt::LeftButton);
    EXPECT_EQ(parameterTable()->getViewData().size(), 2);
    writeFile({row(), row(), row()});
    QTest::keyClick(window.get(), Qt::Key_R, Qt::ControlModifier);
    EXPECT_EQ(parameterTable()->getViewData().size(), 3);
}

TEST_F(FileGridTest, ListsTheFilesImportedLast)
{
    open();
    const QString first = writeFile({row()}, "a&b.csv"_s);
    const QString second = writeFile({row(), row()}, "second.csv"_s);
    drop(first);
    drop(second);
    EXPECT_EQ(window->importPage()->recentFiles(), QStringList({second, first}));
    auto* recent = child<QMenu>("menu_recent");
    emit recent->aboutToShow();
    ASSERT_EQ(recent->actions().size(), 2);
    recent->actions().last()->trigger();
    EXPECT_EQ(window->importPage()->fileName(), "a&b.csv"_s);
    EXPECT_EQ(parameterTable()->getViewData().size(), 1);
}
