#include "embedded_host/ScreenPrompts.h"

#include "tests/support/Text.h"

#include <gtest/gtest.h>

#include <QApplication>
#include <QDir>
#include <QFile>
#include <QFileDialog>
#include <QLineEdit>
#include <QMessageBox>
#include <QTemporaryDir>
#include <QTest>
#include <QTimer>

namespace {

class ScreenPromptsTest : public testing::Test {
protected:
    void TearDown() override { QApplication::setAttribute(Qt::AA_DontUseNativeDialogs, false); }
    ScreenPromptsTest() { QApplication::setAttribute(Qt::AA_DontUseNativeDialogs); }

    /// What comes back when the user chooses a filter, types a name and presses Enter.
    QString save(const QString& filter, const QString& name)
    {
        QTimer::singleShot(0, [&] {
            auto* dialog = qobject_cast<QFileDialog*>(QApplication::activeModalWidget());
            ASSERT_NE(dialog, nullptr);
            dialog->selectNameFilter(filter);
            emit dialog->filterSelected(filter); // as a click on the filter does
            dialog->findChild<QLineEdit*>("fileNameEdit"_s)->setText(name);
            QTimer::singleShot(0, dialog, [this, dialog] { refuseQuestion(dialog); });
            QTest::keyClick(dialog->findChild<QLineEdit*>("fileNameEdit"_s), Qt::Key_Return);
        });
        return prompts.chooseSaveFile(nullptr, "导出"_s, folder.filePath("模板"_s), Filters.join(";;"_s));
    }
    /// Where a file would be replaced the dialog stays and asks; the user says no, and gives up.
    void refuseQuestion(QFileDialog* dialog)
    {
        if (auto* question = qobject_cast<QMessageBox*>(QApplication::activeModalWidget())) {
            asked = question->text();
            question->reject();
            dialog->reject();
        }
    }

    const QStringList Filters = {"Excel 工作簿 (*.xlsx)"_s, "CSV 文件 (*.csv)"_s};
    QTemporaryDir folder;
    ScreenPrompts prompts;
    QString asked;
};

TEST_F(ScreenPromptsTest, NameWithoutAnEndingTakesThatOfTheChosenFilter)
{
    EXPECT_EQ(save(Filters[0], "a"_s), folder.filePath("a.xlsx"_s));
    EXPECT_EQ(save(Filters[1], "a"_s), folder.filePath("a.csv"_s));
    EXPECT_EQ(save(Filters[1], "a.xlsx"_s), folder.filePath("a.xlsx"_s));
    EXPECT_EQ(asked, QString());
}

TEST_F(ScreenPromptsTest, TheEndingCountsWhenItAsksWhetherAFileMayBeReplaced)
{
    QFile taken(folder.filePath("a.csv"_s));
    ASSERT_TRUE(taken.open(QIODevice::WriteOnly));
    EXPECT_EQ(save(Filters[1], "a"_s), QString());
    EXPECT_TRUE(asked.contains("a.csv"_s)) << qPrintable(asked);
}

} // namespace
