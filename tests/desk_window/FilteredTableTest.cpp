#include "desk/window/FilteredTable.h"

#include "desk/models/PagedModel.h"
#include "desk/window/DeskPrompts.h"
#include "embedded_host/RecordingPrompts.h"
#include "tests/support/Text.h"
#include "tests/support/TextsModel.h"

#include <gtest/gtest.h>

#include <QFile>
#include <QLabel>
#include <QLineEdit>
#include <QSignalSpy>
#include <QTableView>
#include <QTemporaryDir>
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

/// A list of numbers, of which the ledger gives some and then fails.
class NumbersModel : public PagedModel<QStringList> {
public:
    explicit NumbersModel(int count, int sound) : PagedModel({{"号"_s}})
    {
        setPages([count, sound](const QStringList* last, int most) -> Outcome<QList<QStringList>> {
            const int begin = last ? last->first().toInt() + 1 : 0;
            if (begin >= sound) {
                return {{}, "磁盘坏了"_s};
            }
            QList<QStringList> page;
            for (int i = begin; i < qMin(begin + most, count); ++i) {
                page.append({QString::number(i)});
            }
            return {page, {}};
        });
    }

protected:
    Cell cellOf(const QStringList& row, int column) const override { return {row.value(column)}; }
};

TEST_F(FilteredTableTest, ExportsNoPartOfAListAsTheWhole)
{
    QTemporaryDir folder;
    const QString path = folder.filePath("list.csv"_s);
    RecordingPrompts choice;
    choice.setFileToSave(path);
    NumbersModel broken(3000, 1000);
    FilteredTable part{&broken, {"清单"_s, "还没有"_s}, choice};
    QSignalSpy said(&part, &FilteredTable::said);
    part.exportRows();
    EXPECT_EQ(said.last().first().toString(), "未导出：磁盘坏了"_s);
    EXPECT_FALSE(QFile::exists(path));

    NumbersModel endless(1000000, 1000000);
    FilteredTable head{&endless, {"清单"_s, "还没有"_s}, choice};
    QSignalSpy told(&head, &FilteredTable::said);
    head.exportRows();
    EXPECT_EQ(told.last().first().toString(), "列表过长，只导出了前 20000 行：%1"_s.arg(path));
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

namespace {

/// The numbers from 1 up to an end, a page at a time.
class NumbersModel : public PagedModel<int> {
public:
    explicit NumbersModel(int end) : PagedModel({{"数"_s, true}})
    {
        setPages([end](const int* last, int count) {
            QList<int> page;
            for (int next = last ? *last + 1 : 1; next <= end && page.size() < count; ++next) {
                page.append(next);
            }
            return Outcome<QList<int>>{page, {}};
        });
    }

protected:
    Cell cellOf(const int& number, int) const override { return {QString::number(number)}; }
};

/// A list of which a page is fetched at first.
class LongListTest : public testing::Test {
protected:
    QString count() const
    {
        for (const QLabel* label : table.findChildren<QLabel*>()) {
            if (label->text().endsWith("行"_s)) {
                return label->text();
            }
        }
        return {};
    }

    DeskPrompts prompts;
    NumbersModel model{1200};
    FilteredTable table{&model, {"清单"_s, QString()}, prompts};
};

} // namespace

TEST_F(LongListTest, SaysThatItShowsTheFirstRowsAlone)
{
    EXPECT_EQ(count(), "前 500 行"_s);
    model.fetchMore({});
    model.fetchMore({});
    EXPECT_EQ(count(), "共 1200 行"_s);
}

TEST_F(LongListTest, IsSortedAndFilteredAsAWhole)
{
    table.view()->model()->sort(0, Qt::DescendingOrder);
    EXPECT_EQ(table.shownRows().value(1), QStringList{"1200"_s});
    EXPECT_EQ(count(), "共 1200 行"_s);
}

TEST_F(LongListTest, FindsARowThatWasNotFetchedYet)
{
    table.filter()->setText("1199"_s);
    EXPECT_EQ(table.shownRows().mid(1), QList<QStringList>{QStringList{"1199"_s}});
    EXPECT_EQ(count(), "1 / 1200 行"_s);
}
