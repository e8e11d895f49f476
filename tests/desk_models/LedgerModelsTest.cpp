#include "desk/models/BatchesModel.h"
#include "desk/models/InstancesModel.h"
#include "desk/models/OrderNotices.h"
#include "desk/models/WireModel.h"
#include "tests/support/ModelText.h"
#include "tests/support/Text.h"

#include <gtest/gtest.h>

#include <QJsonObject>

namespace {

using ledger::Batch;
using ledger::BatchState;
using ledger::Instance;
using ledger::InstanceState;

const QDateTime Noon(QDate(2026, 11, 22), QTime(12, 0), Qt::LocalTime);

ledger::Decimal decimal(const char* text)
{
    return ledger::Decimal::fromText(QString::fromLatin1(text));
}

ledger::Leg leg(const QString& symbol, const QString& direction, const char* quantity, const char* limit,
                const char* amount)
{
    ledger::Leg made;
    made.symbol = symbol;
    made.direction = direction;
    made.quantity = decimal(quantity);
    made.limitPrice = decimal(limit);
    made.amount = decimal(amount);
    return made;
}

Instance instance(qint64 batch, int row, InstanceState state, const QList<ledger::Leg>& legs)
{
    Instance made;
    made.id = {batch, row};
    made.account = "80010001"_s;
    made.strategy = "AITWAP"_s;
    made.state = state;
    made.changedAt = Noon.toUTC();
    made.legs = legs;
    return made;
}

Batch batch(qint64 number, BatchState state)
{
    Batch made;
    made.number = number;
    made.fileName = "list.csv"_s;
    made.fileSha256 = "ab12"_s;
    made.account = "80010001"_s;
    made.strategy = "AITWAP"_s;
    made.rowCount = 1200;
    made.expectedBuy = decimal("1234567.5");
    made.createdAt = Noon.toUTC();
    made.createdBy = "trader"_s;
    made.state = state;
    return made;
}

class InstancesModelTest : public testing::Test {
protected:
    InstancesModelTest()
    {
        model.setRecords(
            {instance(12, 1, InstanceState::Running, {leg("600000.SH"_s, "Buy"_s, "300", "0", "1234567")}),
             instance(12, 2, InstanceState::Withdrawn, {leg("000001.SZ"_s, "Sell"_s, "0", "10.5", "0")}),
             instance(11, 1, InstanceState::Created,
                      {leg("IF2412.CFE"_s, "BuyOpen"_s, "1", "3500", "10"),
                       leg("600000.SH"_s, "Sell"_s, "2", "0", "20")})});
    }

    QString tint(int row, InstancesModel::Column column) const
    {
        return model.index(row, column).data(ListModel::TintRole).toString();
    }

    InstancesModel model{[](const QString& symbol) { return "名"_s + symbol.left(2); },
                         [](const QString& symbol) { return symbol.endsWith(".CFE"_s) ? 1 : 2; }};
};

TEST_F(InstancesModelTest, ShowsAnInstanceARowWithItsLegsInOneCell)
{
    EXPECT_EQ(
        modelText(model),
        "实例|状态|账户|算法|证券代码|名称|方向|数量|成交|均价|限价|金额|原因|变更时间\n"
        "12-1|运行中|80010001|AITWAP|600000.SH|名60|买入|300||||1,234,567.00||2026-11-22 12:00:00\n"
        "12-2|已撤回|80010001|AITWAP|000001.SZ|名00|卖出||||10.50|||2026-11-22 12:00:00\n"
        "11-1|未启动|80010001|AITWAP|IF2412.CFE / 600000.SH|名IF / 名60|买入开仓 / 卖出|1 / 2|||3500.0 / "
        "|10.00 / 20.00||2026-11-22 12:00:00"_s);
}

TEST_F(InstancesModelTest, TellsBatchAndStateAsData)
{
    EXPECT_EQ(modelRole(model, ListModel::BatchRole), QStringList({"12"_s, "12"_s, "11"_s}));
    EXPECT_EQ(model.index(1, 5).data(ListModel::StateRole).toInt(), int(InstanceState::Withdrawn));
}

TEST_F(InstancesModelTest, TintsASideAndWhatIsOverAndNoPairThatBuysAndSells)
{
    EXPECT_EQ(tint(0, InstancesModel::Direction), "buy"_s);
    EXPECT_EQ(tint(1, InstancesModel::Direction), "sell"_s);
    EXPECT_EQ(tint(2, InstancesModel::Direction), QString());
    EXPECT_EQ(tint(0, InstancesModel::State), QString());
    EXPECT_EQ(tint(1, InstancesModel::State), "muted"_s);
}

TEST_F(InstancesModelTest, GivesSumsToOtherProgramsWithoutCommas)
{
    EXPECT_EQ(model.index(0, InstancesModel::Amount).data(ListModel::PlainRole).toString(), "1234567.00"_s);
    EXPECT_EQ(model.index(2, InstancesModel::Amount).data(ListModel::PlainRole).toString(),
              "10.00 / 20.00"_s);
    EXPECT_EQ(model.index(0, InstancesModel::Symbol).data(ListModel::PlainRole).toString(), "600000.SH"_s);
}

TEST_F(InstancesModelTest, ShowsWhatWasTradedOfWhatWasOrdered)
{
    Instance single =
        instance(12, 1, InstanceState::Running, {leg("600000.SH"_s, "Buy"_s, "1000", "0", "0")});
    single.clOrdId = "A-1"_s;
    single.filledQuantity = decimal("250");
    single.averagePrice = decimal("11.52");
    Instance pair = instance(
        12, 2, InstanceState::Rejected,
        {leg("600000.SH"_s, "Buy"_s, "300", "0", "0"), leg("000001.SZ"_s, "Sell"_s, "100", "0", "0")});
    pair.clOrdId = "A-2"_s;
    pair.legs[0].filledQuantity = decimal("300");
    pair.reason = "no such account"_s;
    Instance queued = instance(12, 3, InstanceState::Queued, {leg("600000.SH"_s, "Buy"_s, "1000", "0", "0")});
    Instance amount =
        instance(12, 4, InstanceState::Running, {leg("600000.SH"_s, "Buy"_s, "0", "0", "5000")});
    amount.clOrdId = "A-4"_s;
    amount.filledQuantity = decimal("100");
    amount.averagePrice = decimal("10");
    model.setRecords({single, pair, queued, amount});
    const auto text = [this](int row, InstancesModel::Column column) {
        return model.index(row, column).data().toString();
    };
    EXPECT_EQ(text(0, InstancesModel::Filled), "250 / 1000"_s);
    EXPECT_EQ(text(0, InstancesModel::Average), "11.52"_s);
    EXPECT_EQ(text(1, InstancesModel::Filled), "300 / 300；0 / 100"_s);
    EXPECT_EQ(text(1, InstancesModel::Reason), "no such account"_s);
    EXPECT_EQ(tint(1, InstancesModel::State), "warning"_s);
    EXPECT_EQ(text(2, InstancesModel::Filled), QString());
    EXPECT_EQ(text(3, InstancesModel::Filled), "100"_s);
    EXPECT_EQ(modelRole(model, ListModel::ProgressRole),
              QStringList({"0.25"_s, "0.75"_s, QString(), "0.2"_s}));
}

TEST(BatchesModelTest, ShowsHowFarABatchHasCome)
{
    BatchesModel model;
    model.setRecords({batch(7, BatchState::Created), batch(6, BatchState::Created)});
    model.setCounts(
        {{7, {{InstanceState::Finished, 600}, {InstanceState::Queued, 599}, {InstanceState::Rejected, 1}}}});
    EXPECT_EQ(model.index(0, BatchesModel::Progress).data().toString(),
              "601 / 1200 · 待发送 599 · 已拒绝 1"_s);
    EXPECT_EQ(model.index(1, BatchesModel::Progress).data().toString(), QString());
    EXPECT_DOUBLE_EQ(model.index(0, 0).data(ListModel::ProgressRole).toDouble(), 601.0 / 1200);
}

TEST(OrderNoticesTest, TellWhatEndedAndWhatWasRejectedOnce)
{
    OrderNotices notices;
    BatchesModel::Counts counts{{7, {{InstanceState::Running, 2}}}, {6, {{InstanceState::Rejected, 3}}}};
    EXPECT_TRUE(notices.take(counts).isEmpty()) << "what was so before";
    counts[7] = {{InstanceState::Running, 1}, {InstanceState::Rejected, 1}};
    const QList<OrderNotices::Notice> rejected = notices.take(counts);
    ASSERT_EQ(rejected.size(), 1);
    EXPECT_EQ(rejected.first().text, "批次 7：1 个实例已拒绝"_s);
    EXPECT_TRUE(rejected.first().isWarning);
    counts[7] = {{InstanceState::Finished, 1}, {InstanceState::Rejected, 1}};
    const QList<OrderNotices::Notice> ended = notices.take(counts);
    ASSERT_EQ(ended.size(), 1);
    EXPECT_EQ(ended.first().text, "批次 7 全部结束：已完成 1，已拒绝 1"_s);
    EXPECT_EQ(ended.first().batch, 7);
    EXPECT_TRUE(notices.take(counts).isEmpty());
}

TEST(WireModelTest, ShowsAMessageByTheNamesOfItsFields)
{
    ledger::WireMessage message;
    message.at = Noon.toUTC();
    message.session = "FIX.4.4:DESK->BROKER"_s;
    message.isOutgoing = true;
    message.text =
        QString("8=FIX.4.4|9=1|35=D|34=2|11=A-1|55=600000|957=1|958=Style|960=1|9999=x|junk|10=000|"_s)
            .replace(QLatin1Char('|'), QChar(1));
    WireModel model;
    model.setRecords({message});
    EXPECT_EQ(
        modelText(model),
        "时间|会话|方向|消息|委托编号|内容\n"
        "11-22 12:00:00.000|FIX.4.4:DESK->BROKER|→ 发出|委托 NewOrderSingle|A-1|ClOrdID=A-1  Symbol=600000  "
        "NoStrategyParameters=1  StrategyParameterName=Style  StrategyParameterValue=1  9999=x"_s);
    WireFieldsModel fields;
    fields.setRecords(wire_text::fieldsOf(message.text));
    EXPECT_EQ(fields.rowCount(), 11);
    EXPECT_EQ(fields.index(4, WireFieldsModel::Name).data().toString(), "ClOrdID"_s);
    EXPECT_EQ(fields.index(9, WireFieldsModel::Name).data().toString(), QString());
}

TEST(BatchesModelTest, ShowsABatchARow)
{
    BatchesModel model;
    Batch mended = batch(7, BatchState::Created);
    mended.fileEdits = {QJsonObject{{"edit"_s, "leaveOut"_s}}};
    model.setRecords({mended, batch(6, BatchState::Withdrawn)});
    EXPECT_EQ(
        modelText(model),
        "批次|状态|创建时间|文件|账户|算法|行数|进度|预计买入|预计卖出|创建人|SHA-256|文件修改\n"
        "7|已创建|2026-11-22 12:00:00|list.csv|80010001|AITWAP|1200||1,234,567.50|0.00|trader|ab12|1 处\n"
        "6|已撤销|2026-11-22 12:00:00|list.csv|80010001|AITWAP|1200||1,234,567.50|0.00|trader|ab12|"_s);
    EXPECT_EQ(modelRole(model, ListModel::BatchRole), QStringList({"7"_s, "6"_s}));
    EXPECT_EQ(model.index(1, 0).data(ListModel::StateRole).toInt(), int(BatchState::Withdrawn));
    EXPECT_EQ(model.index(0, BatchesModel::State).data(ListModel::TintRole).toString(), QString());
    EXPECT_EQ(model.index(1, BatchesModel::State).data(ListModel::TintRole).toString(), "muted"_s);
    EXPECT_EQ(model.index(0, BatchesModel::Buy).data(ListModel::PlainRole).toString(), "1234567.50"_s);
}

} // namespace
