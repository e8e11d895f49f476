#include "desk/models/ProblemsModel.h"

#include "table/CheckRules.h"
#include "table/FaultCatalogue.h"
#include "table/Rules.h"
#include "tests/support/ModelText.h"
#include "tests/support/Text.h"

#include <gtest/gtest.h>

TEST(ProblemsModelTest, ShowsAProblemALineWhateverStandsInTheCell)
{
    Problem ofRow;
    ofRow.fault = table::fault(table::rule::UnknownCode, {"9\n9"_s});
    ofRow.fault.line = 3;
    ofRow.fault.column = "证券代码"_s;
    ofRow.fault.cell = "9"_s;
    ofRow.address = "A3"_s;
    Problem ofBatch;
    ofBatch.fault = table::fault(table::rule::EntrustDirection);
    ofBatch.source = Problem::Source::Confirmation;
    ofBatch.fault.line = 5;
    ofBatch.row = 1;
    Problem suspect;
    suspect.fault = table::fault(table::rule::LostZeros, {"1"_s, "000001"_s});
    suspect.source = Problem::Source::Check;
    suspect.suggestions = QStringList{"000001"_s, "00001"_s};
    Problem ofFile;
    ofFile.fault = table::fault(table::rule::UnknownTitle, {"x"_s});
    ofFile.source = Problem::Source::Check;
    Problem ofWhole;
    ofWhole.fault = table::fault(table::rule::NoBatch);
    ofWhole.source = Problem::Source::Guard;
    ProblemsModel model;
    model.setRecords({ofRow, ofBatch, suspect, ofFile, ofWhole});
    EXPECT_EQ(
        modelText(model),
        "严重程度|文件行|单元格|表格行|列|原值|原因|建议|规则|来源\n"
        "× 错误|3|A3||证券代码|9|证券代码9 9不合法，未获取到市场||import.unknownCode|导入\n"
        "× 错误|5||1|||委托属性与交易方向不一致||validation.entrustDirection|确定\n"
        "× "
        "错误||整个文件||||证券代码“1”可能丢失了前面的零，可能是：000001|000001，00001|code.zeros|文件检查\n"
        "△ 警告||整个文件||||表头“x”不是该策略的列，将被忽略||title.unknown|文件检查\n"
        "× 错误||整批||||未获取到数据！||validation.noBatch|创建前检查"_s);
    EXPECT_EQ(modelRole(model, ListModel::TintRole),
              QStringList({"error"_s, "error"_s, "error"_s, "warning"_s, "error"_s}));
    EXPECT_EQ(model.index(0, 0).data(ListModel::StateRole).toInt(), int(table::Severity::Error));
}

TEST(ProblemsModelTest, CallsARuleByItsSentenceWithoutWhatFillsIt)
{
    EXPECT_EQ(ProblemsModel::titleOfRule(table::rule::UnknownCode), "证券代码…不合法，未获取到市场"_s);
    EXPECT_EQ(ProblemsModel::titleOfRule("another.rule"_s), "another.rule"_s);
}
