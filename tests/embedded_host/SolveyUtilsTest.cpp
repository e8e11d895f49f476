#include "host/SolveyUtils.h"

#include "embedded_host/EmbeddedHost.h"
#include "tests/embedded_host/SampleTables.h"
#include "tests/support/Text.h"

#include <gtest/gtest.h>

#include <QFile>
#include <QGuiApplication>
#include <QScreen>
#include <QTemporaryDir>
#include <QWidget>

namespace {

/// Answers with the path that it was given and keeps what it was asked.
class FixedPrompts : public UserPrompts {
public:
    explicit FixedPrompts(const QString& path) : mPath(path) {}

    QString chooseOpenFile(QWidget* parent, const QString& title, const QString& directory,
                           const QString& filter) override
    {
        asked = QStringList{title, directory, filter};
        askedBy = parent;
        return mPath;
    }
    QString chooseSaveFile(QWidget*, const QString&, const QString&, const QString&) override
    {
        return QString();
    }
    int answerMessageBox(ZelMessageBox&) override { return 0; }

    QStringList asked;
    QWidget* askedBy = nullptr;

private:
    QString mPath;
};

class SolveyUtilsTest : public testing::Test {
protected:
    EmbeddedHost host{ReferenceData(sampleTables())};
};

TEST_F(SolveyUtilsTest, OpenFileQuestionGoesToTheHostsPrompts)
{
    FixedPrompts prompts("/data/表.csv"_s);
    host.setPrompts(&prompts);
    QWidget parent;
    const QString path =
        SolveyUtils::GetOpenTableFileName(&parent, "导入"_s, "/data"_s, ExportFileFormat::AllTables);
    EXPECT_EQ(path, "/data/表.csv"_s);
    EXPECT_EQ(prompts.askedBy, &parent);
    ASSERT_EQ(prompts.asked.size(), 3);
    EXPECT_EQ(prompts.asked[0], "导入"_s);
    EXPECT_EQ(prompts.asked[1], "/data"_s);
    EXPECT_TRUE(prompts.asked[2].contains("*.csv"_s) && prompts.asked[2].contains("*.xlsx"_s));
}

TEST_F(SolveyUtilsTest, FilterFollowsTheFormat)
{
    FixedPrompts prompts{QString()};
    host.setPrompts(&prompts);
    SolveyUtils::GetOpenTableFileName(nullptr, QString(), QString(), ExportFileFormat::Csv);
    EXPECT_FALSE(prompts.asked[2].contains("xlsx"_s));
    SolveyUtils::GetOpenTableFileName(nullptr, QString(), QString(), ExportFileFormat::Spreadsheet);
    EXPECT_FALSE(prompts.asked[2].contains("csv"_s));
}

TEST_F(SolveyUtilsTest, TableIsReadIntoRows)
{
    const QTemporaryDir folder;
    QFile file(folder.filePath("a.csv"_s));
    ASSERT_TRUE(file.open(QIODevice::WriteOnly));
    file.write("证券代码,市场\n600000,SH\n");
    file.close();
    QString error = "left from before"_s;
    const QList<QStringList> rows =
        SolveyUtils::ReadTableData(file.fileName(), ReadTableCfg::FirstSheet, error);
    EXPECT_EQ(rows, (QList<QStringList>{{"证券代码"_s, "市场"_s}, {"600000"_s, "SH"_s}}));
    EXPECT_EQ(error, QString());
}

TEST_F(SolveyUtilsTest, TableThatWasOfferedIsTakenOnceAndForItsPathAlone)
{
    const auto firstCell = [](const QString& path) {
        QString error;
        const QList<QStringList> rows = SolveyUtils::ReadTableData(path, ReadTableCfg::FirstSheet, error);
        return rows.isEmpty() ? error : rows.first().value(0);
    };
    table::Table offered;
    offered.rows = {{"offered"_s}};
    host.offeredTable().offer("/no/such.csv"_s, offered);
    EXPECT_EQ("offered"_s, firstCell("/no/such.csv"_s));
    EXPECT_EQ("文件不存在"_s, firstCell("/no/such.csv"_s));

    host.offeredTable().offer("/no/such.csv"_s, offered);
    EXPECT_EQ("文件不存在"_s, firstCell("/no/other.csv"_s));
    EXPECT_EQ("文件不存在"_s, firstCell("/no/such.csv"_s)) << "an offer outlasts no read";

    offered.error = "已损坏"_s;
    offered.rows.clear();
    host.offeredTable().offer("/no/such.csv"_s, offered);
    EXPECT_EQ("已损坏"_s, firstCell("/no/such.csv"_s));
}

TEST_F(SolveyUtilsTest, TableThatWasOfferedIsHandedOnAsFarAsAFileIsRead)
{
    table::Table offered;
    for (int row = 0; row < 1500; ++row) {
        offered.rows.append({QString::number(row)});
    }
    host.offeredTable().offer("/no/such.csv"_s, offered);
    QString error;
    EXPECT_EQ(table::RowsToRead,
              SolveyUtils::ReadTableData("/no/such.csv"_s, ReadTableCfg::FirstSheet, error).size());
}

TEST_F(SolveyUtilsTest, TableThatIsMissingGivesAnErrorAndNoRows)
{
    QString error;
    EXPECT_TRUE(SolveyUtils::ReadTableData("/no/such.csv"_s, ReadTableCfg::FirstSheet, error).isEmpty());
    EXPECT_FALSE(error.isEmpty());
}

TEST_F(SolveyUtilsTest, PopUpIsCentredOnItsParentsWindow)
{
    QWidget window;
    window.setGeometry(200, 150, 400, 300);
    QWidget inside(&window);
    QWidget popUp(&inside, Qt::Window);
    popUp.resize(100, 60);
    const QPoint pos = SolveyUtils::GetWidgetPos(&popUp, WidgetShowPosType::ActiveWindowCenter);
    EXPECT_LE((QRect(pos, popUp.size()).center() - window.frameGeometry().center()).manhattanLength(), 2);
}

TEST_F(SolveyUtilsTest, PopUpWithoutAnyWindowIsCentredOnTheScreen)
{
    QWidget popUp;
    popUp.resize(100, 60);
    const QPoint pos = SolveyUtils::GetWidgetPos(&popUp, WidgetShowPosType::ActiveWindowCenter);
    const QRect screen = QGuiApplication::primaryScreen()->availableGeometry();
    EXPECT_LE((QRect(pos, popUp.size()).center() - screen.center()).manhattanLength(), 2);
}

TEST_F(SolveyUtilsTest, PopUpStaysOnTheScreen)
{
    const QRect screen = QGuiApplication::primaryScreen()->availableGeometry();
    QWidget window;
    window.setGeometry(screen.right() - 20, screen.bottom() - 20, 400, 300);
    QWidget popUp(&window, Qt::Window);
    popUp.resize(100, 60);
    QPoint pos = SolveyUtils::GetWidgetPos(&popUp, WidgetShowPosType::ActiveWindowCenter);
    EXPECT_TRUE(screen.contains(QRect(pos, popUp.size())));
    popUp.resize(screen.size() * 2);
    pos = SolveyUtils::GetWidgetPos(&popUp, WidgetShowPosType::ActiveWindowCenter);
    EXPECT_EQ(pos, screen.topLeft()) << "its title bar within reach";
}

TEST_F(SolveyUtilsTest, PopUpAtItsParentsCorner)
{
    QWidget parent;
    parent.move(120, 80);
    QWidget popUp(&parent, Qt::Window);
    EXPECT_EQ(SolveyUtils::GetWidgetPos(&popUp, WidgetShowPosType::ParentTopLeft),
              parent.mapToGlobal(QPoint(0, 0)));
}

} // namespace
