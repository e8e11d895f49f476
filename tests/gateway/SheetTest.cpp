#include "gateway/handoff/AnswerSheet.h"
#include "gateway/handoff/OrderSheet.h"
#include "gateway/messages/OrderMessages.h"
#include "gateway/reports/Report.h"
#include "tests/gateway/SampleOrders.h"
#include "tests/support/Text.h"

#include <gtest/gtest.h>

using namespace gateway;

namespace {

const QByteArray Header("ClOrdID,ExecID,ExecType,OrdStatus,CumQty,AvgPx,OrdStatusReqID,Text\n");

QString complaintOf(const QByteArray& rows)
{
    const AnswerSheet sheet = AnswerSheet::read(Header + rows);
    EXPECT_EQ(sheet.fault, QString());
    EXPECT_EQ(sheet.answers.size(), 1U);
    const Message& answer = sheet.answers.at(0);
    return answer.type.empty() ? QString::fromStdString(answer.text(58)) : QString();
}

} // namespace

TEST(OrderSheet, IsAHeaderAndARow)
{
    const Outcome<Message> order = newOrder(sample::profile(), sample::single(), sample::now());
    ASSERT_TRUE(order.ok()) << qPrintable(order.error);
    EXPECT_EQ(
        QString::fromUtf8(sheetOf(order.value)),
        "MsgType,ClOrdID,Account,HandlInst,Symbol,SecurityExchange,Side,OrderQty,OrdType,Price,TimeInForce,"
        "TransactTime,TargetStrategy,EffectiveTime,MaxPctVolume,Style,EntrustProperty\r\n"
        "D,NW66TGW5HBELBA4MNSSDJLTPKQ-7,80010001,1,600000,XSHG,1,1000,2,11.520,0,20261123-01:30:00.000,1001,"
        "20261123-01:35:00,0.15,1,0\r\n"_s);
    EXPECT_EQ(sheetName(order.value), "NW66TGW5HBELBA4MNSSDJLTPKQ-7.csv"_s);
}

TEST(OrderSheet, HasARowForEachOfTwoLegs)
{
    const Outcome<Message> order = newOrder(sample::profile(), sample::pair(), sample::now());
    ASSERT_TRUE(order.ok()) << qPrintable(order.error);
    EXPECT_EQ(
        QString::fromUtf8(sheetOf(order.value)),
        "MsgType,ClOrdID,Account,HandlInst,Symbol,SecurityExchange,Side,OrdType,TransactTime,TimeInForce,"
        "TargetStrategy,EffectiveTime,LegSymbol,LegSecurityExchange,LegSide,LegQty,LegPrice,LegRefID,"
        "20058\r\n"
        "AB,NW66TGW5HBELBA4MNSSDJLTPKQ-8,80010001,1,600000,XSHG,B,2,20261123-01:30:00.000,4,1002,"
        "20261123-01:35:00,600000,XSHG,1,2000,11.40,1,6\r\n"
        "AB,NW66TGW5HBELBA4MNSSDJLTPKQ-8,80010001,1,600000,XSHG,B,2,20261123-01:30:00.000,4,1002,"
        "20261123-01:35:00,000001,XSHE,2,1000,,2,0\r\n"_s);
}

TEST(OrderSheet, ARepeatedOrderSaysSoUnderTheSameName)
{
    const Message order = newOrder(sample::profile(), sample::single(), sample::now()).value;
    EXPECT_TRUE(sheetOf(repeated(order)).startsWith("MsgType,PossResend,ClOrdID,"));
    EXPECT_EQ(sheetName(repeated(order)), sheetName(order));
}

TEST(OrderSheet, CancelsAndQuestionsHaveNamesOfTheirOwn)
{
    const Message order = newOrder(sample::profile(), sample::single(), sample::now()).value;
    const Message cancel = cancelRequest(order, "NW66TGW5HBELBA4MNSSDJLTPKQ-7-C1"_s, sample::now());
    EXPECT_EQ(sheetName(cancel), "NW66TGW5HBELBA4MNSSDJLTPKQ-7-C1.csv"_s);
    EXPECT_EQ(sheetName(statusRequest(order, "S5-1"_s)), "NW66TGW5HBELBA4MNSSDJLTPKQ-7-S5-1.csv"_s);
}

TEST(OrderSheet, HasNoNameThatLeadsElsewhere)
{
    Message message;
    message.put(11, "../../etc/passwd");
    EXPECT_EQ(sheetName(message), QString());
}

TEST(OrderSheet, AParameterMayNotTakeAFieldsColumn)
{
    Profile profile = sample::profile();
    EXPECT_EQ(clashesIn(profile), QString());
    profile.strategies["AITWAP"_s].parameters[3].name = "Price"_s;
    EXPECT_EQ(clashesIn(profile), "strategies.AITWAP.parameters[3].name：“Price”是另一列的名称"_s);
}

TEST(AnswerSheet, IsReadAsReports)
{
    const AnswerSheet sheet =
        AnswerSheet::read(Header + "A-1,E1,F,1,400,11.50,,成交\nA-1-C1,E2,4,4,400,11.50,,\n");
    EXPECT_TRUE(sheet.isWhole);
    ASSERT_EQ(sheet.answers.size(), 2U);
    const Outcome<Report> fill = readReport(sheet.answers.at(0));
    ASSERT_TRUE(fill.ok()) << qPrintable(fill.error);
    EXPECT_EQ(fill.value.clOrdId, "A-1"_s);
    EXPECT_EQ(fill.value.execId, "E1"_s);
    EXPECT_EQ(fill.value.cumQty, "400"_s);
    EXPECT_EQ(fill.value.text, "成交"_s);
    EXPECT_EQ(readReport(sheet.answers.at(1)).value.clOrdId, "A-1"_s);
}

TEST(AnswerSheet, TakesColumnsByNumberAndInAnyOrder)
{
    const AnswerSheet sheet = AnswerSheet::read("\xEF\xBB\xBF"
                                                "39,MsgType,11,CxlRejReason\r\n0,9,A-1-C1,0\r\n\r\n");
    ASSERT_EQ(sheet.answers.size(), 1U);
    EXPECT_EQ(readReport(sheet.answers.at(0)).value.kind, Report::Kind::CancelReject);
    EXPECT_EQ(readReport(sheet.answers.at(0)).value.clOrdId, "A-1"_s);
}

TEST(AnswerSheet, LeavesARowThatIsNotEndedAlone)
{
    const AnswerSheet half = AnswerSheet::read(Header + "A-1,E1,F,1,400,11.50,,\nA-1,E2,F,2,10");
    EXPECT_FALSE(half.isWhole);
    EXPECT_EQ(half.rows.size(), 1);
    const AnswerSheet open =
        AnswerSheet::read(Header + "A-1,E1,F,1,400,11.50,,\nA-1,E2,F,2,1000,11.50,,\"so\n");
    EXPECT_FALSE(open.isWhole);
    EXPECT_EQ(open.rows.size(), 1);
    EXPECT_FALSE(AnswerSheet::read("ClOrdID,Exec").isWhole);
    EXPECT_FALSE(AnswerSheet::read("").isWhole);
}

TEST(AnswerSheet, RefusesAFileThatNobodyCanMean)
{
    const auto faultOf = [](const QByteArray& bytes) { return AnswerSheet::read(bytes).fault; };
    EXPECT_EQ(faultOf("ClOrdID,OrdStatus,CumQyt\n"), "不认识的列“CumQyt”"_s);
    EXPECT_EQ(faultOf("ClOrdID,OrdStatus,11\n"), "列“11”重复"_s);
    EXPECT_EQ(faultOf("ClOrdID,CumQty\n"), "缺少列“OrdStatus”"_s);
    EXPECT_EQ(faultOf("ClOrdID,OrdStatus\n\xff\xfe,2\n"), "不是有效的 UTF-8 文本"_s);
    EXPECT_EQ(faultOf(QByteArray("ClOrdID,OrdStatus\n\0,2\n", 22)), "不是有效的 UTF-8 文本"_s);
    EXPECT_EQ(faultOf(QByteArray(5 * 1024 * 1024, 'a')), "文件超过 4 MiB"_s);
    EXPECT_EQ(faultOf("ClOrdID,OrdStatus\n" + QByteArray("A,2\n").repeated(20001)), "超过 20000 行"_s);
}

TEST(AnswerSheet, TellsOfARowThatNobodyCanRead)
{
    EXPECT_EQ(complaintOf("A-1,E1,F,1,400,11.50,,,more\n"), "第 2 行：有 9 个单元格，表头只有 8 列"_s);
    EXPECT_EQ(complaintOf("A-1,E1,F,1,400,11.50,," + QByteArray(1025, 'x') + "\n"),
              "第 2 行：单元格超过 1024 个字符"_s);
    EXPECT_EQ(complaintOf("A-1,,I,8,0,0,,\n"), "第 2 行：状态答复缺少 OrdStatusReqID"_s);
    const AnswerSheet sheet = AnswerSheet::read("MsgType,ClOrdID,OrdStatus\nD,A-1,0\n");
    EXPECT_EQ(sheet.answers.at(0).text(58), "第 2 行：MsgType 应为 8 或 9：D");
}
