#include "desk/window/ProblemsPanel.h"

#include "desk/batch/DraftBuilder.h"
#include "desk/models/ProblemsModel.h"
#include "desk/window/DiffPanel.h"
#include "desk/window/FileGrid.h"
#include "desk/window/ProblemFacets.h"
#include "dialog/AlgoBatchImportParamSetting.h"
#include "embedded_host/table_reader/TableReader.h"
#include "host/AlgoTradeLogicNew.h"
#include "host/SolveyAccountComboBox.h"
#include "table/Rules.h"
#include "tests/desk_window/DeskWindowFixture.h"
#include "tests/support/Eventually.h"

#include <QComboBox>
#include <QFileDialog>
#include <QLabel>
#include <QLineEdit>
#include <QSignalSpy>
#include <QTableView>
#include <QTabWidget>
#include <QTextEdit>

class ProblemsPanelTest : public DeskWindowFixture {
protected:
    using Column = ProblemsModel::Column;

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
    /// Of the problems that the import and 确定 told, leaving the check of the file aside.
    QStringList told(Column column)
    {
        QStringList cells;
        for (const QStringList& row : table().shownRows().mid(1)) {
            if (row.at(ProblemsModel::Source) != "文件检查"_s) {
                cells.append(row.at(column));
            }
        }
        return cells;
    }
    QString currentLine()
    {
        const int row = table().currentRow();
        return row < 0 ? QString() : QString::number(panel().problems().at(row).fault.line);
    }
    ProblemsPanel& panel() { return *window->importPage()->problems(); }

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
    EXPECT_EQ(told(Column::Line), QStringList({"3"_s, "4"_s}));
    EXPECT_EQ(told(Column::Title), QStringList({"证券代码"_s, "交易方向"_s}));
    EXPECT_EQ(told(Column::Raw), QStringList({"999999"_s, "买"_s}));
    EXPECT_EQ(told(Column::Reason).first(), "证券代码999999不合法，未获取到市场"_s);
    EXPECT_EQ(told(Column::Cell).first(), "A3"_s);
    EXPECT_EQ(told(Column::Rule).first(), table::rule::UnknownCode);
    EXPECT_EQ(parameterTable()->getViewData().size(), 2) << "the good rows are there all the same";
}

TEST_F(ProblemsPanelTest, GoesThroughTheProblemsByF8RoundTheEnd)
{
    open();
    importFaultyFile();
    const int count = panel().problems().size();
    QStringList lines;
    for (int press = 0; press < count + 1; ++press) {
        QTest::keyClick(window.get(), Qt::Key_F8);
        lines.append(currentLine());
    }
    EXPECT_EQ(lines.first(), "3"_s);
    EXPECT_EQ(lines.last(), lines.first()) << "round the end";
    EXPECT_TRUE(lines.contains("4"_s));
    QTest::keyClick(window.get(), Qt::Key_F8, Qt::ShiftModifier);
    EXPECT_EQ(currentLine(), lines.at(count - 1));
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
    EXPECT_EQ(told(Column::Line), QStringList());
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
    EXPECT_EQ(told(Column::Line), QStringList({"2"_s, "3"_s}));
    EXPECT_EQ(told(Column::Raw), QStringList({"999999"_s, "1"_s}));
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
    EXPECT_EQ(told(Column::Line), QStringList{"1"_s}) << "the header";
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
    EXPECT_EQ(told(Column::Row), QStringList({"1"_s, "2"_s}));
    EXPECT_EQ(told(Column::Line), QStringList({"2"_s, "3"_s})) << "the rows of the file too";
    table().setCurrentRow(panel().problems().size() - 1);
    EXPECT_EQ(parameterTable()->currentIndex().row(), 1);
}

TEST_F(ProblemsPanelTest, StartsAfreshWithEveryFile)
{
    open();
    importFaultyFile();
    drop(writeFile({row()}, "good.csv"_s));
    EXPECT_EQ(told(Column::Line).size(), 0);
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
    EXPECT_EQ(told(Column::Raw), QStringList({"<b>1</b>"_s}));
    EXPECT_TRUE(table()
                    .view()
                    ->model()
                    ->index(0, Column::Raw)
                    .data(Qt::ToolTipRole)
                    .toString()
                    .contains("&lt;b&gt;"_s));
}

TEST_F(ProblemsPanelTest, AFilterTypedForOtherProblemsHidesNoneOfTheNext)
{
    open();
    importFaultyFile();
    const int all = table().shownRows().size();
    table().filter()->setText("买"_s);
    EXPECT_LT(table().shownRows().size(), all);
    importFaultyFile();
    EXPECT_EQ(table().shownRows().size(), all);
}

TEST_F(ProblemsPanelTest, KeepsWhatAFileSuffersFromWhileABatchIsChecked)
{
    open();
    answer("button_ok"_s);
    drop(writeTable({{"a"_s, "b"_s}, {"1"_s, "2"_s}}, "foreign.csv"_s));
    answer("button_ok"_s);
    pressConfirm();
    ASSERT_EQ(told(Column::Reason).size(), 2);
    EXPECT_TRUE(told(Column::Reason).first().startsWith("导入文件表头缺少"_s));
    EXPECT_EQ(told(Column::Reason).last(), "未获取到数据！"_s);
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
    EXPECT_EQ(told(Column::Line), QStringList{"2"_s});
    const QString rejects = folder.filePath("rejects.csv"_s);
    saveAs(rejects);
    QTest::mouseClick(child<QAbstractButton>("button_saveRejects"), Qt::LeftButton);
    EXPECT_EQ(table_reader::readTable(rejects).rows.value(1).value(0), "999999"_s);
}

class FileCheckTest : public ProblemsPanelTest {
protected:
    QString facts() { return child<QLabel>("label_fileFacts")->text(); }
    QTabWidget& lower() { return *qobject_cast<QTabWidget*>(panel().parentWidget()->parentWidget()); }

    /// A title of which one character is wrong, and a number with a point.
    QString importSuspectFile()
    {
        QStringList header = small_market::ordinaryHeader();
        header.replace(header.indexOf("实例备注"_s), "实例备住"_s);
        const QString path =
            writeTable({header, row(), small_market::ordinaryRow("688001"_s, "SH"_s, "1.000"_s)}, "a.csv"_s);
        drop(path);
        return path;
    }
};

TEST_F(FileCheckTest, ShowsWhatLooksWrongInTheFileWithPlaceTextAndSuggestion)
{
    open();
    importSuspectFile();
    EXPECT_EQ(shown(table(), Column::Severity), QStringList({"× 错误"_s, "× 错误"_s}));
    EXPECT_EQ(shown(table(), Column::Cell), QStringList({"K1"_s, "D3"_s}));
    EXPECT_EQ(shown(table(), Column::Line), QStringList({"1"_s, "3"_s}));
    EXPECT_EQ(shown(table(), Column::Row), QStringList({QString(), "2"_s})) << "of the dialog's table";
    EXPECT_EQ(shown(table(), Column::Raw), QStringList({"实例备住"_s, "1.000"_s}));
    EXPECT_EQ(shown(table(), Column::Suggestions), QStringList({"实例备注"_s, "1000"_s}));
    EXPECT_EQ(shown(table(), Column::Source), QStringList({"文件检查"_s, "文件检查"_s}));
    EXPECT_EQ(lower().tabText(lower().indexOf(&panel())), "问题 2"_s);
}

TEST_F(FileCheckTest, StaysInFrontOfAComparisonWithTheBatchBefore)
{
    open();
    importSuspectFile();
    pressConfirm();
    window->importPage()->frame()->open();
    importSuspectFile();
    EXPECT_EQ(window->importPage()->diff()->table()->emptyText(), "没有变更"_s);
    EXPECT_EQ(lower().currentWidget(), &panel());
}

TEST_F(FileCheckTest, ShowsNoFindingForACleanFile)
{
    open();
    importSuspectFile();
    drop(writeFile({row(), row("688001"_s)}, "clean.csv"_s));
    EXPECT_EQ(shown(table(), Column::Reason), QStringList());
    EXPECT_EQ(lower().tabText(lower().indexOf(&panel())), "问题"_s);
}

TEST_F(FileCheckTest, TellsHowTheFileWasReadAndItsFingerprint)
{
    open();
    const QString path = writeFile({row(), row("688001"_s)});
    drop(path);
    const QString expected = "格式 csv  ·  编码 UTF-8  ·  分隔符 逗号  ·  行数 3（含表头）  ·  SHA-256 "_s +
                             batch::sha256OfFile(path);
    EXPECT_TRUE(eventually([&] { return facts() == expected; })) << facts().toStdString();
    EXPECT_EQ(child<QLabel>("label_fileFacts")->accessibleDescription(), expected);
}

TEST_F(FileCheckTest, SaysWhyAFileCannotBeRead)
{
    open();
    const QString path = folder.filePath("page.csv"_s);
    QFile file(path);
    ASSERT_TRUE(file.open(QIODevice::WriteOnly));
    file.write("<html><body><table><tr><td>1</td></tr></table></body></html>");
    file.close();
    answer("button_ok"_s);
    drop(path);
    EXPECT_EQ(shown(table(), Column::Cell), QStringList{"整个文件"_s});
    EXPECT_EQ(shown(table(), Column::Reason), QStringList{panel().report().error});
    EXPECT_FALSE(shown(table(), Column::Reason).first().isEmpty());
}

TEST_F(FileCheckTest, FiltersWhatItShows)
{
    open();
    importSuspectFile();
    QTest::keyClick(window.get(), Qt::Key_F, Qt::ControlModifier);
    EXPECT_TRUE(table().filter()->hasFocus());
    table().filter()->setText("D3"_s);
    EXPECT_EQ(shown(table(), Column::Raw), QStringList{"1.000"_s});
}

TEST_F(FileCheckTest, ForgetsTheFileWhenTheDialogCloses)
{
    open();
    importSuspectFile();
    QTest::mouseClick(child<QAbstractButton>("btn_cancel"), Qt::LeftButton);
    EXPECT_EQ(lower().tabText(lower().indexOf(&panel())), "问题"_s);
    EXPECT_EQ(facts(), QString());
}

TEST_F(FileCheckTest, ShowsTextsThatLookLikeMarkupAsTheyStand)
{
    open();
    QStringList header = small_market::ordinaryHeader() + QStringList{"<b>x</b>"_s};
    drop(writeTable({header, row()}, "markup.csv"_s));
    EXPECT_EQ(shown(table(), Column::Raw), QStringList{"<b>x</b>"_s});
    EXPECT_EQ(shown(table(), Column::Severity), QStringList{"△ 警告"_s});
    const QModelIndex raw = table().view()->model()->index(0, Column::Raw);
    EXPECT_TRUE(raw.data(Qt::ToolTipRole).toString().contains("&lt;b&gt;"_s));
    EXPECT_EQ(child<QLabel>("label_fileFacts")->textFormat(), Qt::PlainText);
}

TEST_F(ProblemsPanelTest, CountsItsProblemsBySeverityAndRuleAndShowsSomeOfThem)
{
    open();
    QStringList odd = row();
    odd[3] = "1.000"_s;
    const QString path = writeFile({row("999999"_s), row("888888"_s), odd});
    answer("button_ok"_s);
    drop(path);
    auto* rules = child<QComboBox>("combo_rule");
    const int unknown = rules->findData(table::rule::UnknownCode);
    ASSERT_GT(unknown, 0);
    EXPECT_TRUE(rules->itemText(unknown).startsWith("2 × "_s)) << rules->itemText(unknown).toStdString();
    rules->setCurrentIndex(unknown);
    EXPECT_EQ(shown(table(), Column::Raw), QStringList({"999999"_s, "888888"_s}));
    rules->setCurrentIndex(0);
    QTest::keyClick(window.get(), Qt::Key_F7);
    for (const QString& severity : shown(table(), Column::Severity)) {
        EXPECT_EQ(severity, "× 错误"_s);
    }
    EXPECT_NE(child<QComboBox>("combo_severity")->currentIndex(), 0);
    QTest::keyClick(window.get(), Qt::Key_F7);
    EXPECT_EQ(table().shownRows().size(), 1 + panel().problems().size());
}

TEST_F(ProblemsPanelTest, KeepsWhatWasNotTakenAfterTheBatchWasCreated)
{
    open();
    importFaultyFile();
    pressConfirm();
    ASSERT_EQ(window->importPage()->dialog(), nullptr) << "created and closed";
    EXPECT_EQ(told(Column::Raw), QStringList({"999999"_s, "买"_s}));
    EXPECT_TRUE(child<QAbstractButton>("button_saveRejects")->isEnabled());
    window->importPage()->frame()->open();
    EXPECT_EQ(told(Column::Raw).size(), 2) << "until the next file";
    drop(writeFile({row()}, "next.csv"_s));
    EXPECT_EQ(told(Column::Raw).size(), 0);
}

TEST_F(ProblemsPanelTest, ListsWhatTheGuardSaysOfABatchThatWasNotCreated)
{
    const QDateTime evening(QDate(2024, 3, 5), QTime(18, 0), Qt::OffsetFromUTC, 8 * 3600);
    books.clock = [evening] { return evening; }; // when the day of the rows is over
    open();
    drop(writeFile({row(), row("688001"_s)}));
    answer("button_cancel"_s);
    QTest::mouseClick(child<QAbstractButton>("btn_ok"), Qt::LeftButton);
    const Problems guard = panel().problemsOf(Problem::Source::Guard);
    ASSERT_FALSE(guard.isEmpty());
    EXPECT_EQ(guard.first().fault.severity, table::Severity::Error) << "nobody can override it";
    EXPECT_TRUE(shown(table(), Column::Source).contains("创建前检查"_s));
}
