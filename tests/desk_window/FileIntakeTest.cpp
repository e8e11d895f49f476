// From a chosen file to the dialog's table: a stranger's columns, several files, several sheets, long files.

#include "desk/window/ImportQueue.h"
#include "desk/window/MappingDialog.h"
#include "tests/desk_window/DeskWindowFixture.h"
#include "tests/support/Workbook.h"

#include <QCheckBox>
#include <QComboBox>
#include <QListWidget>
#include <QPushButton>
#include <QTableWidget>

namespace {

constexpr int PatienceMs = 60000;

void pressAccept(QWidget& modal)
{
    auto* accept = modal.findChild<QPushButton*>("button_acceptMapping"_s);
    accept->setFocus();
    QTest::keyClick(accept, Qt::Key_Space);
}

class FileIntakeTest : public DeskWindowFixture {
protected:
    void SetUp() override { open(); }

    /// A stranger's table under a title row; `quantity` as he writes it.
    QString english(const QString& name, const QString& quantity)
    {
        QFile file(folder.filePath(name));
        EXPECT_TRUE(file.open(QIODevice::WriteOnly));
        file.write("Program trades\nTicker,Side,Qty,Trader\n600000.SH,B,\"" + quantity.toUtf8() +
                   "\",ann\n000001.SZ,S,\"2,500\",bob\n");
        return file.fileName();
    }
    /// What the mapping step cannot know is chosen by keyboard, and the step accepted.
    void completeMapping()
    {
        whenModal([](QWidget& modal) {
            auto* dialog = qobject_cast<MappingDialog*>(&modal);
            ASSERT_NE(dialog, nullptr) << qPrintable(modal.windowTitle());
            auto* accept = dialog->findChild<QPushButton*>("button_acceptMapping"_s);
            EXPECT_FALSE(accept->isEnabled());
            auto* property = dialog->findChild<QComboBox*>("constant_委托属性"_s);
            ASSERT_NE(property, nullptr);
            property->setFocus();
            QTest::keyClick(property, Qt::Key_Down);
            EXPECT_EQ(dialog->mapping().constants.value("委托属性"_s), "0"_s);
            EXPECT_TRUE(accept->isEnabled());
            pressAccept(*dialog);
        });
    }
    /// 委托数量 of the dialog's rows.
    QStringList quantities()
    {
        QStringList shown;
        const int column = parameterTable()->headNames().indexOf("委托数量"_s);
        for (const RecordData& record : parameterTable()->getViewData()) {
            shown.append(record.value(column).value("0"_s).toString());
        }
        return shown;
    }
    QString notice()
    {
        return child<QLabel>("label_notice")->isVisible() ? child<QLabel>("label_notice")->text() : QString();
    }
    ImportQueue* queue() { return window->importPage()->queue(); }
    QStringList queued()
    {
        QStringList lines;
        for (const IntakeItem& item : queue()->items()) {
            lines.append(item.shown());
        }
        return lines;
    }
    bool awaitQuantities(const QStringList& wanted)
    {
        return QTest::qWaitFor([&] { return quantities() == wanted; }, PatienceMs);
    }
};

TEST_F(FileIntakeTest, AStrangersTableIsMappedOnceAndNotAskedForAgain)
{
    completeMapping();
    drop(english("monday.csv"_s, "1,000"_s));
    EXPECT_EQ(quantities(), (QStringList{"1000"_s, "2500"_s}));
    EXPECT_EQ(notice(), QString());

    drop(english("tuesday.csv"_s, "3,000"_s));
    EXPECT_EQ(quantities(), (QStringList{"3000"_s, "2500"_s}));
    EXPECT_TRUE(notice().contains("Ticker → 证券代码"_s)) << qPrintable(notice());
    EXPECT_TRUE(notice().contains("委托属性 = 0"_s)) << qPrintable(notice());

    whenModal([](QWidget& modal) {
        ASSERT_NE(qobject_cast<MappingDialog*>(&modal), nullptr);
        EXPECT_TRUE(modal.findChild<QPushButton*>("button_acceptMapping"_s)->isEnabled());
        modal.findChild<QCheckBox*>("check_remember"_s)->setChecked(false);
        pressAccept(modal);
    });
    QTest::mouseClick(child<QPushButton>("button_noticeBatch"), Qt::LeftButton); // 重新询问
    completeMapping();                                                           // it is forgotten
    drop(english("wednesday.csv"_s, "4,000"_s));
    EXPECT_EQ(quantities(), (QStringList{"4000"_s, "2500"_s}));
}

TEST_F(FileIntakeTest, AValueThatTheRememberedMappingDoesNotKnowIsAskedFor)
{
    completeMapping();
    drop(english("monday.csv"_s, "1,000"_s));
    whenModal([](QWidget& modal) {
        auto* dialog = qobject_cast<MappingDialog*>(&modal);
        ASSERT_NE(dialog, nullptr);
        auto* value = dialog->findChild<QComboBox*>("value_交易方向_Short"_s);
        ASSERT_NE(value, nullptr);
        value->setFocus();
        QTest::keyClick(value, Qt::Key_End);
        EXPECT_EQ(dialog->mapping().columnTo("交易方向"_s)->values.value("Short"_s), "2"_s);
        pressAccept(*dialog);
    });
    drop(writeTable({{"Ticker"_s, "Side"_s, "Qty"_s, "Trader"_s}, {"600000.SH"_s, "Short"_s, "700"_s, "x"_s}},
                    "short.csv"_s));
    EXPECT_EQ(quantities(), (QStringList{"700"_s}));
}

TEST_F(FileIntakeTest, GivingTheMappingUpLeavesEverythingAsItWas)
{
    drop(writeFile({row()}));
    const QString before = window->importPage()->fileName();
    whenModal([](QWidget& modal) { QTest::keyClick(&modal, Qt::Key_Escape); });
    drop(english("monday.csv"_s, "1,000"_s));
    EXPECT_EQ(window->importPage()->fileName(), before);
    EXPECT_EQ(quantities(), (QStringList{"1000"_s}));
}

TEST_F(FileIntakeTest, ThePreviewShowsWhatTheImportWillSee)
{
    whenModal([](QWidget& modal) {
        auto* preview = modal.findChild<QTableWidget*>("table_mappingPreview"_s);
        ASSERT_EQ(preview->rowCount(), 2);
        EXPECT_EQ(preview->horizontalHeaderItem(0)->text(), "证券代码"_s);
        EXPECT_EQ(preview->item(0, 0)->text(), "600000"_s);
        EXPECT_EQ(preview->item(0, 1)->text(), "SH"_s);
        EXPECT_EQ(preview->verticalHeaderItem(0)->text(), "3"_s); // its line of the file
        EXPECT_TRUE(modal.findChild<QLabel*>("label_mappingState"_s)->text().contains("Trader"_s));
        auto* qty = modal.findChild<QComboBox*>("combo_column_2"_s);
        qty->setFocus();
        QTest::keyClick(qty, Qt::Key_Home); // （不导入）
        EXPECT_TRUE(modal.findChild<QLabel*>("label_mappingState"_s)->text().contains("委托数量"_s));
        QTest::keyClick(&modal, Qt::Key_Escape);
    });
    drop(english("monday.csv"_s, "1,000"_s));
}

TEST_F(FileIntakeTest, SeveralFilesWaitForEachOther)
{
    drop({writeFile({row("600000"_s, "100"_s)}, "a.csv"_s), writeFile({row("600000"_s, "200"_s)}, "b.csv"_s),
          writeFile({row("600000"_s, "300"_s)}, "c.csv"_s)});
    EXPECT_EQ(quantities(), (QStringList{"100"_s}));
    EXPECT_TRUE(queue()->isVisible());
    EXPECT_EQ(queued(), (QStringList{"b.csv"_s, "c.csv"_s}));

    pressConfirm();
    EXPECT_TRUE(awaitQuantities({"200"_s}));
    EXPECT_EQ(queued(), (QStringList{"c.csv"_s}));

    QTest::mouseClick(child<QPushButton>("button_queueNext"), Qt::LeftButton);
    EXPECT_TRUE(awaitQuantities({"300"_s}));
    EXPECT_FALSE(queue()->isVisible());
}

TEST_F(FileIntakeTest, SheetsNamedAfterStrategiesBecomeOneBatchAfterAnother)
{
    const QStringList header = small_market::ordinaryHeader();
    const QString path = folder.filePath("all.xlsx"_s);
    ASSERT_TRUE(workbook::write(path, {{"AITWAP"_s, {header, row("600000"_s, "100"_s)}},
                                       {"AILOCK"_s, {{"证券代码"_s}}},
                                       {"AIVWAP"_s, {header, row("600000"_s, "200"_s)}}}));
    drop(path);
    EXPECT_TRUE(awaitQuantities({"100"_s}));
    EXPECT_EQ(window->importPage()->dialog()->getCurrentAlgoName(), "AITWAP"_s);
    EXPECT_EQ(queued(), (QStringList{"all.xlsx · AIVWAP"_s}));
    pressConfirm();
    EXPECT_TRUE(awaitQuantities({"200"_s}));
    EXPECT_EQ(window->importPage()->dialog()->getCurrentAlgoName(), "AIVWAP"_s);
}

TEST_F(FileIntakeTest, OfALongFileTheRestComesNext)
{
    QList<QStringList> rows;
    for (int number = 1; number <= 1003; ++number) {
        rows.append(row("600000"_s, QString::number(number * 100)));
    }
    const QString path = writeFile(rows);
    whenModal([](QWidget& modal) { QTest::keyClick(&modal, Qt::Key_Return); }); // the dialog's own question
    drop(path);
    if (quantities().isEmpty()) {
        FAIL() << "the question was declined";
    }
    EXPECT_EQ(quantities().size(), 1000);
    EXPECT_EQ(queued(), (QStringList{"list.csv · 第 1001 行起"_s}));
    QTest::mouseClick(child<QPushButton>("button_queueNext"), Qt::LeftButton);
    EXPECT_TRUE(awaitQuantities({"100100"_s, "100200"_s, "100300"_s}));
    EXPECT_TRUE(queued().isEmpty());
}

} // namespace
