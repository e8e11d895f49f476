#include "desk/models/FindingsModel.h"

#include "table/CheckRules.h"
#include "table/FaultCatalogue.h"
#include "tests/support/ModelText.h"
#include "tests/support/Text.h"

#include <gtest/gtest.h>

namespace {

table_lint::Finding finding(const QString& rule, const QString& address, int line)
{
    table_lint::Finding made;
    made.fault = table::fault(rule, {"1"_s, "000001"_s});
    made.fault.line = line;
    made.fault.cell = "1"_s;
    made.address = address;
    made.suggestions = QStringList{"000001"_s, "00001"_s};
    return made;
}

FileReport reportOf(const QString& format, const QString& sheet, const QList<table_lint::Finding>& findings)
{
    FileReport report;
    report.format = format;
    report.sheet = sheet;
    report.findings = findings;
    return report;
}

TEST(FindingsModelTest, ShowsWhereAFindingOfACsvFileStands)
{
    FindingsModel model;
    model.show(
        reportOf("csv"_s, QString(),
                 {finding(table::rule::LostZeros, "A3"_s, 5), finding(table::rule::UnknownTitle, {}, 0)}));
    EXPECT_EQ(modelText(model),
              "严重程度|位置|原文|说明|建议\n"
              "错误|A3（文件第 5 行）|1|证券代码“1”可能丢失了前面的零，可能是：000001|000001，00001\n"
              "警告|整个文件|1|表头“1”不是该策略的列，将被忽略|000001，00001"_s);
    EXPECT_EQ(modelRole(model, ListModel::TintRole), QStringList({"error"_s, "warning"_s}));
    EXPECT_EQ(model.index(1, 3).data(ListModel::StateRole).toInt(), int(table::Severity::Warning));
}

TEST(FindingsModelTest, ShowsWhereAFindingOfASheetStands)
{
    FindingsModel model;
    model.show(reportOf(
        "xlsx"_s, "表一"_s,
        {finding(table::rule::NegativeNumber, "B2"_s, 2), finding(table::rule::NegativeNumber, "7"_s, 7)}));
    EXPECT_EQ(modelText(model), "严重程度|位置|原文|说明|建议\n"
                                "警告|表一!B2|1|“1”是负数|000001，00001\n"
                                "警告|表一!第 7 行|1|“1”是负数|000001，00001"_s);
}

TEST(FindingsModelTest, TellsWhyAFileCannotBeRead)
{
    FindingsModel model;
    FileReport report;
    report.error = "文件已加密"_s;
    model.show(report);
    EXPECT_EQ(modelText(model), "严重程度|位置|原文|说明|建议\n错误|整个文件||文件已加密|"_s);
}

} // namespace
