#include "desk/models/ProblemsModel.h"

#include "tests/support/ModelText.h"
#include "tests/support/Text.h"

#include <gtest/gtest.h>

TEST(ProblemsModelTest, ShowsAProblemALineWhateverStandsInTheCell)
{
    ProblemsModel model;
    model.setRecords({{Problem::Place::FileRow, 3, "证券代码"_s, "9"_s, "证券代码9\n不合法"_s},
                      {Problem::Place::BatchRow, 1, QString(), QString(), "不支持"_s},
                      {Problem::Place::Whole, 0, QString(), QString(), "读不了"_s}});
    EXPECT_EQ(modelText(model), "位置|列|原值|原因\n"
                                "文件第 3 行|证券代码|9|证券代码9 不合法\n"
                                "表格第 1 行|||不支持\n"
                                "整体|||读不了"_s);
}
