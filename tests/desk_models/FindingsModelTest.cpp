#include "desk/models/FindingsModel.h"

#include "tests/support/ModelText.h"
#include "tests/support/Text.h"

#include <gtest/gtest.h>

namespace {

table_lint::Finding finding(table_lint::Severity severity, const QString& sheet, const QString& address,
                            int line)
{
    table_lint::Finding made;
    made.severity = severity;
    made.sheet = sheet;
    made.address = address;
    made.line = line;
    made.raw = "1"_s;
    made.chinese = "丢了零"_s;
    made.suggestions = QStringList{"000001"_s, "00001"_s};
    return made;
}

TEST(FindingsModelTest, ShowsWhereAFindingStands)
{
    using table_lint::Severity;
    FindingsModel model;
    model.setRecords({finding(Severity::Error, QString(), "A3"_s, 5),
                      finding(Severity::Warning, "表一"_s, "B2"_s, 0),
                      finding(Severity::Warning, QString(), "7"_s, 0), finding(Severity::Error, {}, {}, 0)});
    EXPECT_EQ(modelText(model), "严重程度|位置|原文|说明|建议\n"
                                "错误|A3（文件第 5 行）|1|丢了零|000001，00001\n"
                                "警告|表一!B2|1|丢了零|000001，00001\n"
                                "警告|第 7 行|1|丢了零|000001，00001\n"
                                "错误|整个文件|1|丢了零|000001，00001"_s);
    EXPECT_EQ(modelRole(model, ListModel::TintRole),
              QStringList({"error"_s, "warning"_s, "warning"_s, "error"_s}));
    EXPECT_EQ(model.index(1, 3).data(ListModel::StateRole).toInt(), int(Severity::Warning));
}

} // namespace
