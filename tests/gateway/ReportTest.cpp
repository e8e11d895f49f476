#include "gateway/reports/Report.h"

#include <gtest/gtest.h>

namespace {

using namespace gateway;

Message message(const std::string& type, const Fields& body)
{
    Message result;
    result.type = type;
    result.body = body;
    return result;
}

TEST(Report, ReadsAnExecutionReport)
{
    const Outcome<Report> read = readReport(message(
        "8",
        {{11, "A-1"}, {17, "E1"}, {150, "F"}, {39, "1"}, {37, "O1"}, {14, "300"}, {6, "11.52"}, {58, "ok"}}));
    ASSERT_TRUE(read.ok());
    EXPECT_EQ(read.value.clOrdId, QStringLiteral("A-1"));
    EXPECT_EQ(read.value.execId, QStringLiteral("E1"));
    EXPECT_EQ(read.value.cumQty, QStringLiteral("300"));
    EXPECT_EQ(read.value.avgPx, QStringLiteral("11.52"));
}

TEST(Report, BelongsToTheOrderThatItsCancelNames)
{
    const auto orderOf = [](const Fields& ids) {
        Fields body = ids;
        body.insert(body.end(), {{17, "E1"}, {150, "4"}, {39, "4"}});
        return readReport(message("8", body)).value.clOrdId.toStdString();
    };
    EXPECT_EQ(orderOf({{11, "A-1-C2"}, {41, "A-1"}}), "A-1");
    EXPECT_EQ(orderOf({{11, "A-1-C2"}}), "A-1");
    EXPECT_EQ(orderOf({{11, "XYZ"}, {41, "A-1"}}), "A-1");
    EXPECT_EQ(orderOf({{11, "A-1"}}), "A-1");
    EXPECT_EQ(orderOf({}), "");
}

TEST(Report, LacksWhatIsNeededToCountIt)
{
    EXPECT_EQ(readReport(message("8", {{11, "A"}, {17, "E"}, {150, "0"}})).error,
              QStringLiteral("回报缺少字段 39"));
    EXPECT_EQ(readReport(message("8", {{11, "A"}, {39, "0"}, {150, "0"}})).error,
              QStringLiteral("回报缺少字段 17"));
    EXPECT_TRUE(readReport(message("8", {{11, "A"}, {39, "0"}, {150, "I"}})).ok());
    EXPECT_EQ(readReport(message("9", {{11, "A"}})).error, QStringLiteral("回报缺少字段 39"));
}

TEST(Report, KnowsADenialFromARejection)
{
    const auto denies = [](const Fields& body) { return readReport(message("8", body)).value.deniesOrder(); };
    EXPECT_TRUE(denies({{150, "I"}, {39, "8"}, {37, "NONE"}}));
    EXPECT_TRUE(denies({{150, "I"}, {39, "8"}, {37, "O1"}, {103, "5"}}));
    EXPECT_FALSE(denies({{150, "I"}, {39, "8"}, {37, "O1"}, {103, "0"}}));
    EXPECT_FALSE(denies({{150, "I"}, {39, "0"}, {37, "NONE"}}));
    EXPECT_FALSE(denies({{150, "8"}, {39, "8"}, {37, "NONE"}, {17, "E"}}));
}

TEST(Report, FindsItsLegInTheGroupToo)
{
    Message report = message("8", {{17, "E"}, {150, "F"}, {39, "1"}, {442, "2"}});
    Group legs;
    legs.countTag = 555;
    legs.entries.push_back({{600, "000001"}, {654, "2"}});
    report.groups.push_back(legs);
    EXPECT_EQ(readReport(report).value.legNumber, QStringLiteral("2"));
}

TEST(Report, ReadsRejects)
{
    const Report business =
        readReport(message("j", {{45, "12"}, {372, "D"}, {379, "A-1"}, {380, "3"}, {58, "no"}})).value;
    EXPECT_EQ(business.clOrdId, QStringLiteral("A-1"));
    EXPECT_EQ(business.refSeqNum, QStringLiteral("12"));
    const Report session = readReport(message("3", {{45, "12"}, {372, "D"}, {373, "1"}})).value;
    EXPECT_EQ(session.kind, Report::Kind::SessionReject);
    EXPECT_EQ(session.clOrdId, QString());
}

} // namespace
