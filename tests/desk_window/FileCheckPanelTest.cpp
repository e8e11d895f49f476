#include "desk/window/FileCheckPanel.h"

#include "desk/batch/DraftBuilder.h"
#include "desk/window/DiffPanel.h"
#include "desk/window/ProblemsPanel.h"
#include "tests/desk_window/DeskWindowFixture.h"
#include "tests/support/Eventually.h"

#include <QLabel>
#include <QLineEdit>
#include <QTableView>
#include <QTabWidget>

class FileCheckPanelTest : public DeskWindowFixture {
protected:
    enum Column { Severity, Place, Raw, Sentence, Suggestions };

    FilteredTable& table() { return *window->importPage()->fileCheck()->table(); }
    QString facts() { return child<QLabel>("label_fileFacts")->text(); }
    QTabWidget& tabs() { return *window->importPage()->findChild<QTabWidget*>(); }
    QString tabTitle() { return tabs().tabText(tabs().indexOf(window->importPage()->fileCheck())); }

    /// A code that lost its zeros, and a title of which one character is wrong.
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

TEST_F(FileCheckPanelTest, ShowsWhatLooksWrongInTheFileWithPlaceTextAndSuggestion)
{
    open();
    importSuspectFile();
    EXPECT_EQ(shown(table(), Severity), QStringList({"错误"_s, "错误"_s}));
    EXPECT_EQ(shown(table(), Place), QStringList({"K1（文件第 1 行）"_s, "D3（文件第 3 行）"_s}));
    EXPECT_EQ(shown(table(), Raw), QStringList({"实例备住"_s, "1.000"_s}));
    EXPECT_EQ(shown(table(), Suggestions).first(), "实例备注"_s);
    EXPECT_EQ(shown(table(), Suggestions).last(), "1000"_s);
    EXPECT_EQ(tabTitle(), "文件检查 2"_s);
}

TEST_F(FileCheckPanelTest, ComesToTheFrontWhereTheImportSawNoneOfTheErrors)
{
    open();
    importSuspectFile();
    ASSERT_TRUE(window->importPage()->problems()->problems().isEmpty());
    EXPECT_EQ(tabs().currentWidget(), window->importPage()->fileCheck());
}

TEST_F(FileCheckPanelTest, StaysInFrontOfAComparisonWithTheBatchBefore)
{
    open();
    importSuspectFile();
    pressConfirm();
    window->importPage()->frame()->open();
    importSuspectFile();
    EXPECT_EQ(window->importPage()->diff()->table()->emptyText(), "没有变更"_s);
    EXPECT_EQ(tabs().currentWidget(), window->importPage()->fileCheck());
}

TEST_F(FileCheckPanelTest, ShowsNoFindingForACleanFile)
{
    open();
    importSuspectFile();
    drop(writeFile({row(), row("688001"_s)}, "clean.csv"_s));
    EXPECT_EQ(shown(table(), Sentence), QStringList());
    EXPECT_EQ(tabTitle(), "文件检查"_s);
}

TEST_F(FileCheckPanelTest, TellsHowTheFileWasReadAndItsFingerprint)
{
    open();
    const QString path = writeFile({row(), row("688001"_s)});
    drop(path);
    const QString expected = "格式 csv  ·  编码 UTF-8  ·  分隔符 逗号  ·  行数 3（含表头）  ·  SHA-256 "_s +
                             batch::sha256OfFile(path);
    EXPECT_TRUE(eventually([&] { return facts() == expected; })) << facts().toStdString();
    EXPECT_EQ(child<QLabel>("label_fileFacts")->accessibleDescription(), expected);
}

TEST_F(FileCheckPanelTest, SaysWhyAFileCannotBeRead)
{
    open();
    const QString path = folder.filePath("page.csv"_s);
    QFile file(path);
    ASSERT_TRUE(file.open(QIODevice::WriteOnly));
    file.write("<html><body><table><tr><td>1</td></tr></table></body></html>");
    file.close();
    answer("button_ok"_s);
    drop(path);
    EXPECT_EQ(shown(table(), Place), QStringList{"整个文件"_s});
    EXPECT_EQ(shown(table(), Sentence), QStringList{window->importPage()->fileCheck()->report().error});
    EXPECT_FALSE(shown(table(), Sentence).first().isEmpty());
}

TEST_F(FileCheckPanelTest, FiltersTheFindings)
{
    open();
    importSuspectFile();
    tabs().setCurrentWidget(window->importPage()->fileCheck());
    QTest::keyClick(window.get(), Qt::Key_F, Qt::ControlModifier);
    EXPECT_TRUE(table().filter()->hasFocus());
    table().filter()->setText("D3"_s);
    EXPECT_EQ(shown(table(), Raw), QStringList{"1.000"_s});
}

TEST_F(FileCheckPanelTest, ForgetsTheFileWhenTheDialogCloses)
{
    open();
    importSuspectFile();
    QTest::mouseClick(child<QAbstractButton>("btn_cancel"), Qt::LeftButton);
    EXPECT_EQ(tabTitle(), "文件检查"_s);
    EXPECT_EQ(facts(), QString());
}

TEST_F(FileCheckPanelTest, ShowsTextsThatLookLikeMarkupAsTheyStand)
{
    open();
    QStringList header = small_market::ordinaryHeader() + QStringList{"<b>x</b>"_s};
    drop(writeTable({header, row()}, "markup.csv"_s));
    EXPECT_EQ(shown(table(), Raw), QStringList{"<b>x</b>"_s});
    EXPECT_EQ(shown(table(), Severity), QStringList{"警告"_s});
    const QModelIndex raw = table().view()->model()->index(0, Raw);
    EXPECT_TRUE(raw.data(Qt::ToolTipRole).toString().contains("&lt;b&gt;"_s));
    EXPECT_EQ(child<QLabel>("label_fileFacts")->textFormat(), Qt::PlainText);
}
