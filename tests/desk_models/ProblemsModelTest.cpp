#include "desk/models/ProblemsModel.h"

#include "table/FaultCatalogue.h"
#include "table/Rules.h"
#include "tests/support/ModelText.h"
#include "tests/support/Text.h"

#include <gtest/gtest.h>

TEST(ProblemsModelTest, ShowsAProblemALineWhateverStandsInTheCell)
{
    table::Fault ofRow = table::fault(table::rule::UnknownCode, {"9\n9"_s});
    ofRow.line = 3;
    ofRow.row = 2;
    ofRow.column = "证券代码"_s;
    ofRow.cell = "9"_s;
    table::Fault ofBatch = table::fault(table::rule::EntrustDirection);
    ofBatch.row = 1;
    ProblemsModel model;
    model.setRecords({{ofRow, Problem::Subject::File},
                      {ofBatch, Problem::Subject::Batch},
                      {table::fault(table::rule::ReaderError, {"读不了"_s}), Problem::Subject::File}});
    EXPECT_EQ(modelText(model), "位置|列|原值|原因\n"
                                "文件第 3 行|证券代码|9|证券代码9 9不合法，未获取到市场\n"
                                "表格第 1 行|||委托属性与交易方向不一致\n"
                                "整体|||读不了"_s);
    EXPECT_EQ(model.index(0, 0).data(ListModel::StateRole).toInt(), int(table::Severity::Error));
}
