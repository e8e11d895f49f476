#include "desk/window/FilteredTable.h"

#include "desk/window/DeskPrompts.h"
#include "tests/support/Text.h"
#include "tests/support/TextsModel.h"

#include <gtest/gtest.h>

#include <QLineEdit>
#include <QTableView>
#include <QTest>

class FilteredTableTest : public testing::Test {
protected:
    FilteredTableTest()
    {
        model.setRecords({{"甲"_s, "900.00"_s}, {"乙"_s, "1,234.00"_s}, {"丙"_s, "50.00"_s}});
        table.show();
    }

    void click(int shownRow, Qt::KeyboardModifiers modifiers = {})
    {
        const QRect cell = table.view()->visualRect(table.view()->model()->index(shownRow, 0));
        QTest::mouseClick(table.view()->viewport(), Qt::LeftButton, modifiers, cell.center());
    }

    DeskPrompts prompts;
    TextsModel model{{{"名称"_s}, {"金额"_s, true}}};
    FilteredTable table{&model, {"清单"_s, "还没有"_s}, prompts};
};

TEST_F(FilteredTableTest, DoesNotSayOfFilteredRowsThatThereAreNone)
{
    EXPECT_EQ(table.emptyText(), QString());
    table.filter()->setText("丁"_s);
    EXPECT_EQ(table.emptyText(), "没有符合筛选的行"_s);
    model.setRecords({});
    EXPECT_EQ(table.emptyText(), "还没有"_s);
}

TEST_F(FilteredTableTest, AFilterThatHidesTheChosenRowChoosesNoOther)
{
    table.setSingleSelection();
    table.setCurrentRow(0);
    EXPECT_EQ(table.selectedRow(), 0);
    table.filter()->setText("0"_s);
    EXPECT_EQ(table.selectedRow(), 0) << "still shown";
    table.filter()->setText("乙"_s);
    EXPECT_EQ(table.selectedRow(), -1);
    EXPECT_EQ(table.currentRow(), -1);
    table.filter()->clear();
    EXPECT_EQ(table.selectedRow(), -1);
}

TEST_F(FilteredTableTest, ARowThatWasDeselectedIsNotTheSelectedOne)
{
    table.setSingleSelection();
    click(1);
    EXPECT_EQ(table.selectedRow(), 1);
    click(1, Qt::ControlModifier);
    EXPECT_EQ(table.selectedRow(), -1);
}

TEST_F(FilteredTableTest, OfSeveralSelectedRowsNoneIsTheOne)
{
    click(0);
    click(1, Qt::ControlModifier);
    EXPECT_EQ(table.selectedRow(), -1);
}

TEST_F(FilteredTableTest, SumsWithCommasAreSortedAsNumbersAndLeaveTheTableWithoutThem)
{
    EXPECT_EQ(table.view()->model()->index(1, 1).data().toString(), "1,234.00"_s);
    table.view()->model()->sort(1);
    EXPECT_EQ(table.shownRows().mid(1),
              QList<QStringList>({{"丙"_s, "50.00"_s}, {"甲"_s, "900.00"_s}, {"乙"_s, "1234.00"_s}}));
}
