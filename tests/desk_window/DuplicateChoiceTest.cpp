#include "desk/window/BatchesPage.h"
#include "desk/window/InstancesPage.h"
#include "desk/window/VerdictDialog.h"
#include "tests/desk_window/DeskWindowFixture.h"

#include <QCheckBox>
#include <QComboBox>
#include <QTextEdit>

/// What becomes of orders that the ledger holds already, chosen where the batch is confirmed.
class DuplicateChoiceTest : public DeskWindowFixture {
protected:
    /// Batch 1: two orders.
    void createFirst(const QString& start)
    {
        window->importPage()->frame()->open();
        drop(writeFile({startedBy(start, "600000"_s, "300"_s), startedBy(start, "688001"_s, "400"_s)}));
        pressConfirm();
        ASSERT_EQ(batches().shownRows().size(), 1 + 1);
    }

    static QStringList startedBy(const QString& start, const QString& code, const QString& quantity)
    {
        QStringList cells = row(code, quantity);
        cells.last() = start;
        return cells;
    }

    void dropEdited(const QList<QStringList>& rows)
    {
        window->importPage()->frame()->open();
        drop(writeFile(rows));
    }

    /// Chooses by the keyboard, then looks.
    void confirmChoosing(Qt::Key key, const std::function<void(QWidget&)>& look)
    {
        whenModal([key, look](QWidget& modal) {
            auto* choice = modal.findChild<QComboBox*>("combo_duplicates"_s);
            ASSERT_NE(choice, nullptr);
            choice->setFocus();
            QTest::keyClick(choice, key);
            look(modal);
        });
        pressConfirm();
    }

    static void agree(QWidget& modal)
    {
        for (QCheckBox* question : modal.findChildren<QCheckBox*>()) {
            question->setChecked(true);
        }
        auto* create = modal.findChild<QAbstractButton*>("button_create"_s);
        ASSERT_TRUE(create && create->isEnabled());
        QTest::mouseClick(create, Qt::LeftButton);
    }

    FilteredTable& batches() { return *window->batchesPage()->table(); }
    FilteredTable& instances() { return *window->instancesPage()->table(); }
};

TEST_F(DuplicateChoiceTest, IsNotOfferedWhereNothingIsTheSame)
{
    open();
    drop(writeFile({row()}));
    whenModal([](QWidget& modal) {
        EXPECT_EQ(modal.findChild<QComboBox*>("combo_duplicates"_s), nullptr);
        agree(modal);
    });
    pressConfirm();
    EXPECT_EQ(batches().shownRows().size(), 1 + 1);
}

TEST_F(DuplicateChoiceTest, LeavesOutWhatTheLedgerHolds)
{
    open();
    createFirst("7"_s);
    dropEdited({startedBy("7"_s, "688001"_s, "400"_s), startedBy("7"_s, "510300"_s, "500"_s)});
    confirmChoosing(Qt::Key_Down, [](QWidget& modal) {
        const QString summary = modal.findChild<QTextEdit*>("findings_summary"_s)->toPlainText();
        EXPECT_TRUE(summary.contains("不再创建 1 行"_s)) << summary.toStdString();
        agree(modal);
    });
    EXPECT_EQ(shown(instances(), 4).first(), "510300.SH"_s);
    EXPECT_EQ(instances().shownRows().size(), 1 + 3);
    EXPECT_EQ(window->importPage()->handedOver()->shownRows().size(), 1 + 1);
    EXPECT_TRUE(message().contains("1 行台账中已有，没有再创建"_s)) << message().toStdString();
}

TEST_F(DuplicateChoiceTest, ReplacesTheEarlierBatch)
{
    open();
    createFirst("0"_s);
    dropEdited({startedBy("0"_s, "600000"_s, "900"_s), startedBy("0"_s, "688001"_s, "400"_s)});
    confirmChoosing(Qt::Key_End, &DuplicateChoiceTest::agree);
    EXPECT_EQ(shown(batches(), 1), QStringList({ledger::shownName(ledger::BatchState::Created),
                                                ledger::shownName(ledger::BatchState::Withdrawn)}));
    EXPECT_TRUE(message().contains("批次 1 已撤回"_s)) << message().toStdString();
}

TEST_F(DuplicateChoiceTest, SaysWhyABatchCannotBeReplaced)
{
    open();
    createFirst("7"_s);
    dropEdited({startedBy("7"_s, "600000"_s, "900"_s)});
    confirmChoosing(Qt::Key_End, [](QWidget& modal) {
        auto* fault = modal.findChild<QLabel*>("label_choiceFault"_s);
        EXPECT_TRUE(fault->isVisible());
        EXPECT_TRUE(fault->text().contains("2 个实例已经启动或发出"_s)) << fault->text().toStdString();
        EXPECT_EQ(modal.findChild<QComboBox*>("combo_duplicates"_s)->currentIndex(), 0);
        QTest::mouseClick(modal.findChild<QAbstractButton*>("button_cancel"_s), Qt::LeftButton);
    });
    EXPECT_EQ(batches().shownRows().size(), 1 + 1);
}

TEST_F(DuplicateChoiceTest, OffersNoCreationWhereNothingIsLeft)
{
    open();
    createFirst("0"_s);
    dropEdited({startedBy("0"_s, "600000"_s, "300"_s)});
    confirmChoosing(Qt::Key_Down, [](QWidget& modal) {
        EXPECT_EQ(modal.findChild<QAbstractButton*>("button_create"_s), nullptr);
        EXPECT_TRUE(
            modal.findChild<QTextEdit*>("findings_error"_s)->toPlainText().contains("1 行都已在台账中"_s));
        auto* choice = modal.findChild<QComboBox*>("combo_duplicates"_s);
        QTest::keyClick(choice, Qt::Key_Home);
        EXPECT_NE(modal.findChild<QAbstractButton*>("button_create"_s), nullptr) << "all once more";
        QTest::mouseClick(modal.findChild<QAbstractButton*>("button_cancel"_s), Qt::LeftButton);
    });
}
