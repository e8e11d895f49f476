#include "desk/window/ProblemsPanel.h"

#include "dialog/AlgoBatchImportParamSetting.h"
#include "embedded_host/table_reader/TableReader.h"
#include "host/AlgoTradeLogicNew.h"
#include "host/SolveyAccountComboBox.h"
#include "tests/desk_window/DeskWindowFixture.h"

#include <QFileDialog>
#include <QLabel>
#include <QLineEdit>
#include <QSignalSpy>
#include <QTextEdit>

class ProblemsPanelTest : public DeskWindowFixture {
protected:
    /// Two faulty rows between two good ones, and the box that says so answered.
    QString importFaultyFile()
    {
        QStringList badDirection = row("688001"_s);
        badDirection[small_market::ordinaryHeader().indexOf("交易方向"_s)] = "买"_s;
        const QString path = writeFile({row(), row("999999"_s), badDirection, row()});
        answer("button_ok"_s);
        drop(path);
        return path;
    }

    FilteredTable& table() { return *window->importPage()->problems()->table(); }
    QString currentPlace() { return table().shownRows().value(table().currentRow() + 1).value(0); }

    /// Types a path into the file dialog that is about to open.
    void saveAs(const QString& path)
    {
        whenModal([path](QWidget& modal) {
            auto* dialog = qobject_cast<QFileDialog*>(&modal);
            ASSERT_NE(dialog, nullptr);
            dialog->findChild<QLineEdit*>("fileNameEdit"_s)->setText(path);
            QTest::keyClick(dialog->findChild<QLineEdit*>("fileNameEdit"_s), Qt::Key_Return);
        });
    }
};

TEST_F(ProblemsPanelTest, ListsEachRowErrorWithItsLineColumnRawCellAndReason)
{
    open();
    importFaultyFile();
    EXPECT_EQ(shown(table(), 0), QStringList({"文件第 3 行"_s, "文件第 4 行"_s}));
    EXPECT_EQ(shown(table(), 1), QStringList({"证券代码"_s, "交易方向"_s}));
    EXPECT_EQ(shown(table(), 2), QStringList({"999999"_s, "买"_s}));
    EXPECT_EQ(shown(table(), 3).first(), "证券代码999999不合法，未获取到市场"_s);
    EXPECT_EQ(parameterTable()->getViewData().size(), 2) << "the good rows are there all the same";
}

TEST_F(ProblemsPanelTest, GoesThroughTheProblemsByF8RoundTheEnd)
{
    open();
    importFaultyFile();
    QStringList places;
    for (int press = 0; press < 3; ++press) {
        QTest::keyClick(window.get(), Qt::Key_F8);
        places.append(currentPlace());
    }
    EXPECT_EQ(places, QStringList({"文件第 3 行"_s, "文件第 4 行"_s, "文件第 3 行"_s}));
    QTest::keyClick(window.get(), Qt::Key_F8, Qt::ShiftModifier);
    EXPECT_EQ(currentPlace(), "文件第 4 行"_s);
}

TEST_F(ProblemsPanelTest, WritesOutTheRowInWhichTheCurrentProblemStands)
{
    open();
    importFaultyFile();
    QTest::keyClick(window.get(), Qt::Key_F8);
    bool found = false;
    for (const QLabel* label : window->importPage()->problems()->findChildren<QLabel*>()) {
        found = found || label->text().startsWith("证券代码=999999  ·  "_s);
    }
    EXPECT_TRUE(found);
}

TEST_F(ProblemsPanelTest, SavesARejectFileThatImportsOnceItIsMended)
{
    open();
    importFaultyFile();
    const QString rejects = folder.filePath("rejects.csv"_s);
    saveAs(rejects);
    QTest::mouseClick(child<QAbstractButton>("button_saveRejects"), Qt::LeftButton);
    QList<QStringList> rows = table_reader::readTable(rejects).rows;
    ASSERT_EQ(rows.size(), 3);
    EXPECT_EQ(rows.at(1).last(), "证券代码999999不合法，未获取到市场"_s);

    rows[1][0] = "600000"_s;
    rows[2][rows.first().indexOf("交易方向"_s)] = "1"_s;
    for (QStringList& cells : rows) {
        cells.last().remove(QLatin1Char(','));
    }
    drop(writeTable(rows, "mended.csv"_s)); // with the column of reasons, as a trader leaves it
    EXPECT_EQ(parameterTable()->getViewData().size(), 2);
    EXPECT_TRUE(window->importPage()->problems()->problems().isEmpty());
}

TEST_F(ProblemsPanelTest, TellsOfTheLegsOfALockByTheLineOfTheFile)
{
    open();
    window->findChild<AlgoBatchImportParamSetting*>()->CreateStrategyInitWidget(
        AlgoTradeLogicNew::GetInstance()->GetStrategy("AILOCK"_s));
    const QString path = writeTable({{"证券代码"_s, "市场"_s, "委托数量"_s, "交易方向"_s, "委托属性"_s,
                                      "委托限价"_s, "创建后是否立即启动"_s},
                                     {"999999"_s, "SH"_s, "100"_s, "1/2"_s, "0/0"_s, "9/9"_s, "7"_s},
                                     {"600000"_s, "SH"_s, "100"_s, "1"_s, "0/0"_s, "9/9"_s, "7"_s}},
                                    "lock.csv"_s);
    answer("button_ok"_s); // whose one line stands for both: they have the same number there
    drop(path);
    EXPECT_EQ(shown(table(), 0), QStringList({"文件第 2 行"_s, "文件第 3 行"_s}));
    EXPECT_EQ(shown(table(), 2), QStringList({"999999"_s, "1"_s}));
    const QString rejects = folder.filePath("rejects.csv"_s);
    saveAs(rejects);
    QTest::mouseClick(child<QAbstractButton>("button_saveRejects"), Qt::LeftButton);
    const QList<QStringList> rows = table_reader::readTable(rejects).rows;
    ASSERT_EQ(rows.size(), 3);
    EXPECT_EQ(rows.at(1).last(), "证券代码999999不合法，未获取到市场"_s);
    EXPECT_EQ(rows.at(2).last(), "导入方向、委托属性、限价中，某字段格式错误"_s);
}

TEST_F(ProblemsPanelTest, ShowsWhatAFileAsAWholeSuffersFrom)
{
    open();
    const QString path = folder.filePath("foreign.csv"_s);
    QFile file(path);
    ASSERT_TRUE(file.open(QIODevice::WriteOnly));
    file.write("a,b\r\n1,2\r\n");
    file.close();
    answer("button_ok"_s);
    drop(path);
    EXPECT_EQ(shown(table(), 0), QStringList{"文件第 1 行"_s}) << "the header";
    EXPECT_FALSE(child<QAbstractButton>("button_saveRejects")->isEnabled());
}

TEST_F(ProblemsPanelTest, ShowsTheRowsOfTheTableThatAConfirmationComplainsAbout)
{
    open();
    child<SolveyAccountComboBox>("combx_account")->SetCurTradingAccount("CREDIT1"_s);
    drop(writeFile({row(), row("688001"_s)}));
    for (int press = 0; press < 2; ++press) { // a second complaint replaces the first one
        answer("button_ok"_s);
        pressConfirm();
    }
    EXPECT_EQ(shown(table(), 0), QStringList({"表格第 1 行"_s, "表格第 2 行"_s}));
    table().setCurrentRow(1);
    EXPECT_EQ(parameterTable()->currentIndex().row(), 1);
}

TEST_F(ProblemsPanelTest, StartsAfreshWithEveryFile)
{
    open();
    importFaultyFile();
    drop(writeFile({row()}, "good.csv"_s));
    EXPECT_EQ(window->importPage()->problems()->problems().size(), 0);
}

TEST_F(ProblemsPanelTest, ShowsTextsThatLookLikeMarkupAsTheyStand)
{
    open();
    const QString path = writeFile({row("<b>1</b>"_s)});
    whenModal([](QWidget& modal) {
        EXPECT_TRUE(modal.findChild<QTextEdit*>("textEdit_message"_s)->toPlainText().contains("<b>1</b>"_s));
        QTest::keyClick(&modal, Qt::Key_Escape);
    });
    drop(path);
    EXPECT_EQ(shown(table(), 2), QStringList({"<b>1</b>"_s}));
    EXPECT_TRUE(
        table().view()->model()->index(0, 2).data(Qt::ToolTipRole).toString().contains("&lt;b&gt;"_s));
}

TEST_F(ProblemsPanelTest, AFilterTypedForOtherProblemsHidesNoneOfTheNext)
{
    open();
    importFaultyFile();
    table().filter()->setText("999999"_s);
    EXPECT_EQ(table().shownRows().size(), 1 + 1);
    importFaultyFile();
    EXPECT_EQ(table().shownRows().size(), 1 + 2);
}

TEST_F(ProblemsPanelTest, KeepsWhatAFileSuffersFromWhileABatchIsChecked)
{
    open();
    answer("button_ok"_s);
    drop(writeTable({{"a"_s, "b"_s}, {"1"_s, "2"_s}}, "foreign.csv"_s));
    answer("button_ok"_s);
    pressConfirm();
    ASSERT_EQ(shown(table(), 3).size(), 2);
    EXPECT_TRUE(shown(table(), 3).first().startsWith("导入文件表头缺少"_s));
    EXPECT_EQ(shown(table(), 3).last(), "未获取到数据！"_s);
}

TEST_F(ProblemsPanelTest, SavesTheRefusedRowsOfAFileThatIsGone)
{
    open();
    QList<QStringList> rows{row("999999"_s)};
    while (rows.size() <= 1000) {
        rows.append(row());
    }
    const QString path = writeFile(rows);
    whenModal([this, path](QWidget& modal) {
        QFile::remove(path); // after it was read, before its problems are known
        answer("button_ok"_s);
        QTest::mouseClick(modal.findChild<QAbstractButton*>("button_yes"_s), Qt::LeftButton);
    });
    drop(path);
    EXPECT_EQ(shown(table(), 0), QStringList{"文件第 2 行"_s});
    const QString rejects = folder.filePath("rejects.csv"_s);
    saveAs(rejects);
    QTest::mouseClick(child<QAbstractButton>("button_saveRejects"), Qt::LeftButton);
    EXPECT_EQ(table_reader::readTable(rejects).rows.value(1).value(0), "999999"_s);
}
