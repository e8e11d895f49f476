#include "desk/models/DiffModel.h"

#include "tests/support/ModelText.h"
#include "tests/support/Text.h"

#include <gtest/gtest.h>

TEST(DiffModelTest, ShowsOneChangeALineColumnsFirst)
{
    ledger::BatchDiff diff;
    diff.columnsAdded = QStringList{"备注"_s};
    diff.columnsRemoved = QStringList{"风格"_s};
    diff.cellsChanged = {{2, 3, "委托数量"_s, "100"_s, "200"_s}};
    diff.rowsRemoved = {{4, {"600000"_s, QString(), "300"_s}}};
    diff.rowsAdded = {{5, {"000001"_s}}};
    DiffModel model;
    model.setRecords(diffLines(diff));
    EXPECT_EQ(modelText(model), "变更|原行|现行|列|原值|新值\n"
                                "新增列|||备注||\n"
                                "删除列|||风格||\n"
                                "修改|2|3|委托数量|100|200\n"
                                "删除行|4|||600000  300|\n"
                                "新增行||5|||000001"_s);
    EXPECT_EQ(modelRole(model, ListModel::TintRole),
              QStringList({"warning"_s, "warning"_s, "warning"_s, "error"_s, "accent"_s}));
    EXPECT_EQ(model.index(3, 2).data(ListModel::StateRole).toInt(), int(DiffLine::Kind::RowRemoved));
}

TEST(DiffModelTest, IsEmptyWhereNothingChanged)
{
    EXPECT_TRUE(diffLines({}).isEmpty());
}
