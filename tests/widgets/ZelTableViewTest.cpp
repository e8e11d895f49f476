#include "host/ZelTableView.h"

#include "tests/support/Eventually.h"

#include <gtest/gtest.h>

#include <QApplication>
#include <QClipboard>
#include <QHBoxLayout>
#include <QHeaderView>
#include <QTest>

namespace {

RecordData record(const QStringList& shown)
{
    RecordData result;
    for (int column = 0; column < shown.size(); ++column) {
        result[column][QStringLiteral("0")] = shown.at(column);
        result[column][QStringLiteral("256")] = QString(QStringLiteral("value ") + shown.at(column));
    }
    return result;
}

QList<QMap<QString, QVariant>> heads(const QStringList& names)
{
    QList<QMap<QString, QVariant>> result;
    for (const QString& name : names) {
        result.append({{Head_DisplayRole, name}});
    }
    return result;
}

RecordDataList threeRows()
{
    return {record({QStringLiteral("b"), QStringLiteral("9"), QStringLiteral("x")}),
            record({QStringLiteral("c"), QStringLiteral("1000"), QStringLiteral("y")}),
            record({QStringLiteral("a"), QStringLiteral("25.5"), QStringLiteral("z")})};
}

class ZelTableViewTest : public testing::Test {
protected:
    ZelTableViewTest()
    {
        table.setHeadList(heads({QStringLiteral("代码"), QStringLiteral("数量"), QStringLiteral("备注")}));
        table.setColumnDefaultWidth(90);
        table.resize(400, 300);
        table.show();
    }

    QStringList shownColumn(int column) const
    {
        QStringList texts;
        for (int row = 0; row < table.model()->rowCount(); ++row) {
            texts.append(table.model()->index(row, column).data().toString());
        }
        return texts;
    }

    QStringList shownNumbers() const
    {
        QStringList texts;
        for (int row = 0; row < table.model()->rowCount(); ++row) {
            texts.append(table.model()->headerData(row, Qt::Vertical).toString());
        }
        return texts;
    }

    void clickTitle(int column)
    {
        QHeaderView* titles = table.horizontalHeader();
        const QPoint middle(titles->sectionViewportPosition(column) + titles->sectionSize(column) / 2,
                            titles->height() / 2);
        QTest::mouseClick(titles->viewport(), Qt::LeftButton, {}, middle);
    }

    void clickRow(int row, Qt::KeyboardModifiers modifiers = {})
    {
        const QRect cell = table.visualRect(table.model()->index(row, 0));
        QTest::mouseClick(table.viewport(), Qt::LeftButton, modifiers, cell.center());
    }

    ZelTableView table;
};

const QStringList FileOrder{QStringLiteral("9"), QStringLiteral("1000"), QStringLiteral("25.5")};

} // namespace

TEST_F(ZelTableViewTest, ShowsTheDisplayTextAndKeepsTheValueUnderTheUserRole)
{
    table.addRecordDataList(threeRows());
    const QModelIndex cell = table.model()->index(1, 0);
    EXPECT_EQ(cell.data(Qt::DisplayRole).toString(), QStringLiteral("c"));
    EXPECT_EQ(cell.data(Qt::UserRole).toString(), QStringLiteral("value c"));
    EXPECT_EQ(table.headNames(),
              QStringList({QStringLiteral("代码"), QStringLiteral("数量"), QStringLiteral("备注")}));
}

TEST_F(ZelTableViewTest, GivesBackWhatWasAddedWithEveryKeyWhateverTheOrderShown)
{
    RecordDataList rows = threeRows();
    rows[0][1][QStringLiteral("257")] = 42;      // a key of another role
    rows[1][7][QStringLiteral("0")] = QString(); // a column beyond the head
    rows[2].remove(2);                           // a cell that is missing
    table.addRecordDataList(rows.mid(0, 1));
    table.addRecordDataList(rows.mid(1));
    table.setViewSortable(true);
    clickTitle(1);
    EXPECT_EQ(table.getViewData(), rows);
    EXPECT_FALSE(table.model()->index(2, 2).data().isValid() && table.model()->index(2, 2).data().isNull());
}

TEST_F(ZelTableViewTest, SortsNumbersAsNumbersUpThenDownThenBackToTheOrderAdded)
{
    table.setViewSortable(true);
    table.addRecordDataList(threeRows());
    EXPECT_EQ(shownColumn(1), FileOrder) << "nothing was clicked yet";
    clickTitle(1);
    EXPECT_EQ(shownColumn(1),
              QStringList({QStringLiteral("9"), QStringLiteral("25.5"), QStringLiteral("1000")}));
    clickTitle(1);
    EXPECT_EQ(shownColumn(1),
              QStringList({QStringLiteral("1000"), QStringLiteral("25.5"), QStringLiteral("9")}));
    clickTitle(1);
    EXPECT_EQ(shownColumn(1), FileOrder);
    EXPECT_FALSE(table.horizontalHeader()->isSortIndicatorShown());
}

TEST_F(ZelTableViewTest, AClickOnAnotherTitleSortsUpByThatColumn)
{
    table.setViewSortable(true);
    table.addRecordDataList(threeRows());
    clickTitle(1);
    clickTitle(0);
    EXPECT_EQ(shownColumn(0), QStringList({QStringLiteral("a"), QStringLiteral("b"), QStringLiteral("c")}));
}

TEST_F(ZelTableViewTest, StandsNumbersBeforeTextsBeforeEmptyCells)
{
    table.setViewSortable(true);
    for (const char* text : {"", "nan", "7", "-3", "1e3", "inf"}) {
        table.addRecordDataList({record({QString::fromLatin1(text)})});
    }
    clickTitle(0);
    EXPECT_EQ(shownColumn(0), QStringList({QStringLiteral("-3"), QStringLiteral("7"), QStringLiteral("1e3"),
                                           QStringLiteral("inf"), QStringLiteral("nan"), QString()}));
}

TEST_F(ZelTableViewTest, DoesNotSortWhenItMayNot)
{
    table.setViewSortable(false);
    table.addRecordDataList(threeRows());
    clickTitle(1);
    EXPECT_EQ(shownColumn(1), FileOrder);
    EXPECT_TRUE(table.selectionModel()->selectedIndexes().isEmpty()) << "a title selects no column either";
}

TEST_F(ZelTableViewTest, NewContentsBeginInTheOrderAddedAgain)
{
    table.setViewSortable(true);
    table.addRecordDataList(threeRows());
    clickTitle(1);
    table.clear();
    table.addRecordDataList(threeRows());
    EXPECT_EQ(shownColumn(1), FileOrder);
}

TEST_F(ZelTableViewTest, NumbersRowsAsShownOrAsAddedOrNotAtAll)
{
    using Order = ZelViewModel::SerialNumColumnOrder;
    const QStringList ascending{QStringLiteral("1"), QStringLiteral("2"), QStringLiteral("3")};
    table.setViewSortable(true);
    table.addRecordDataList(threeRows());
    clickTitle(0); // a: the third one added, b: the first, c: the second
    table.setSerialNumberColumnPropety(Order::ViewOrder);
    EXPECT_EQ(shownNumbers(), ascending);
    table.setSerialNumberColumnPropety(Order::RecordOrder);
    EXPECT_EQ(shownNumbers(), QStringList({QStringLiteral("3"), QStringLiteral("1"), QStringLiteral("2")}));
    EXPECT_TRUE(table.verticalHeader()->isVisible());
    table.setSerialNumberColumnPropety(Order::None);
    EXPECT_FALSE(table.verticalHeader()->isVisible());
}

TEST_F(ZelTableViewTest, CopiesTheSelectedRowsAsShownWithoutHiddenColumnsAndSerialNumbers)
{
    table.setSelectionBehavior(QAbstractItemView::SelectRows);
    table.setItemSelectable(true);
    table.setViewSortable(true);
    table.addRecordDataList(threeRows());
    table.addRecordDataList(
        {record({QStringLiteral("d\te\r\nf"), QStringLiteral("1"), QStringLiteral("w")})});
    table.setColumnShow(2, false);
    clickTitle(0);
    clickRow(0);
    clickRow(3, Qt::ControlModifier);
    QTest::keyClick(&table, Qt::Key_C, Qt::ControlModifier);
    EXPECT_EQ(QApplication::clipboard()->text(), QStringLiteral("a\t25.5\nd e  f\t1"));
}

TEST_F(ZelTableViewTest, LeavesTheClipboardAloneWhenNothingIsSelected)
{
    table.addRecordDataList(threeRows());
    QApplication::clipboard()->setText(QStringLiteral("kept"));
    table.setFocus();
    QTest::keyClick(&table, Qt::Key_C, Qt::ControlModifier);
    EXPECT_EQ(QApplication::clipboard()->text(), QStringLiteral("kept"));
}

TEST_F(ZelTableViewTest, SelectsNothingWhenItsItemsAreNotSelectable)
{
    table.addRecordDataList(threeRows());
    table.setItemSelectable(false);
    clickRow(1);
    EXPECT_TRUE(table.selectionModel()->selectedIndexes().isEmpty());
}

TEST_F(ZelTableViewTest, KeepsAHiddenColumnHiddenThroughNewRecordsAndIgnoresOneThatIsNotThere)
{
    table.setColumnShow(1, false);
    table.setColumnShow(-1, false);
    table.setColumnShow(3, false);
    table.addRecordDataList(threeRows());
    table.clear();
    table.addRecordDataList(threeRows());
    EXPECT_FALSE(table.isColumnHidden(0));
    EXPECT_TRUE(table.isColumnHidden(1));
    EXPECT_FALSE(table.isColumnHidden(2));
    table.setColumnShow(1, true);
    EXPECT_FALSE(table.isColumnHidden(1));
}

TEST_F(ZelTableViewTest, ShowsEveryColumnOfANewHead)
{
    table.setColumnShow(1, false);
    table.setHeadList(heads({QStringLiteral("甲"), QStringLiteral("乙")}));
    EXPECT_FALSE(table.isColumnHidden(1));
    EXPECT_EQ(table.columnWidth(1), 90);
    EXPECT_EQ(table.model()->rowCount(), 0);
}

TEST_F(ZelTableViewTest, ClearKeepsTheColumns)
{
    table.addRecordDataList(threeRows());
    table.clear();
    EXPECT_TRUE(table.getViewData().isEmpty());
    EXPECT_EQ(table.model()->columnCount(), 3);
    EXPECT_EQ(table.columnWidth(0), 90);
}

TEST_F(ZelTableViewTest, AlignsItsCellsAndTitlesAndTellsWholeTextsAsPlainToolTips)
{
    table.setColumnDefaultTextAlignment(Qt::AlignCenter);
    table.addRecordDataList({record({QStringLiteral("<b>1</b>"), QStringLiteral("plain")})});
    const QModelIndex markup = table.model()->index(0, 0);
    EXPECT_EQ(markup.data(Qt::TextAlignmentRole).toInt(), int(Qt::AlignCenter));
    EXPECT_EQ(table.horizontalHeader()->defaultAlignment(), Qt::AlignCenter);
    EXPECT_TRUE(markup.data(Qt::ToolTipRole).toString().contains(QStringLiteral("&lt;b&gt;1&lt;/b&gt;")));
    EXPECT_EQ(table.model()->index(0, 1).data(Qt::ToolTipRole).toString(), QStringLiteral("plain"));
}

TEST_F(ZelTableViewTest, ChecksRowsByTheirBoxesAndRemembersThemBySourceRow)
{
    table.setViewSortable(true);
    table.setCheckBoxShow(true);
    table.addRecordDataList(threeRows());
    clickTitle(0);
    const QModelIndex first = table.model()->index(0, 0); // "a", the third one added
    table.model()->setData(first, Qt::Checked, Qt::CheckStateRole);
    EXPECT_EQ(table.checkedRows(), QList<int>({2}));
    table.setCheckBoxShow(false);
    EXPECT_TRUE(table.checkedRows().isEmpty());
    EXPECT_FALSE(table.model()->index(0, 0).data(Qt::CheckStateRole).isValid());
}

TEST_F(ZelTableViewTest, CarriesAnEmptyLayoutOfItsOwnerUndisturbed)
{
    auto* layout = new QHBoxLayout(&table);
    layout->setContentsMargins(0, 0, 0, 0);
    table.addRecordDataList(threeRows());
    QApplication::processEvents();
    EXPECT_EQ(table.layout(), layout);
    EXPECT_GT(table.viewport()->height(), 200);
    EXPECT_TRUE(table.horizontalHeader()->isVisible());
}

TEST_F(ZelTableViewTest, SaysThatNothingWasImportedWhileItIsEmpty)
{
    const auto inkInTheMiddle = [this] {
        const QImage image = table.viewport()->grab().toImage();
        const QRgb ground = image.pixel(2, 2);
        for (int x = image.width() / 4; x < image.width() * 3 / 4; ++x) {
            for (int y = image.height() / 2 - 8; y < image.height() / 2 + 8; ++y) {
                if (image.pixel(x, y) != ground) {
                    return true;
                }
            }
        }
        return false;
    };
    EXPECT_TRUE(inkInTheMiddle());
    table.setShowGrid(false);
    table.addRecordDataList({record({QStringLiteral("a")})});
    EXPECT_FALSE(inkInTheMiddle());
}

TEST_F(ZelTableViewTest, LetsTheTabKeyLeave)
{
    QWidget window;
    auto* inner = new ZelTableView(&window);
    auto* next = new QWidget(&window);
    next->setFocusPolicy(Qt::StrongFocus);
    window.show();
    ASSERT_TRUE(QTest::qWaitForWindowActive(&window, PatienceMs));
    inner->setHeadList(heads({QStringLiteral("甲"), QStringLiteral("乙")}));
    inner->addRecordDataList(threeRows());
    inner->setFocus();
    QTest::keyClick(inner, Qt::Key_Tab);
    EXPECT_TRUE(next->hasFocus());
}
