#include "desk/models/BatchesModel.h"
#include "desk/models/InstancesModel.h"
#include "tests/support/ModelText.h"
#include "tests/support/Text.h"

#include <gtest/gtest.h>

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

    InstancesModel model{[](const QString& symbol) { return "名"_s + symbol.left(2); }};
};

TEST_F(InstancesModelTest, ShowsAnInstanceARowWithItsLegsInOneCell)
{
    EXPECT_EQ(modelText(model),
              "实例|状态|账户|算法|证券代码|名称|方向|数量|限价|金额|变更时间\n"
              "12-1|运行中|80010001|AITWAP|600000.SH|名60|买入|300||1,234,567.00|2026-11-22 12:00:00\n"
              "12-2|已撤回|80010001|AITWAP|000001.SZ|名00|卖出||10.5||2026-11-22 12:00:00\n"
              "11-1|未启动|80010001|AITWAP|IF2412.CFE / 600000.SH|名IF / 名60|买入开仓 / 卖出|1 / 2|3500 / "
              "|10.00 / 20.00|2026-11-22 12:00:00"_s);
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

TEST(BatchesModelTest, ShowsABatchARow)
{
    BatchesModel model;
    model.setRecords({batch(7, BatchState::Created), batch(6, BatchState::Withdrawn)});
    EXPECT_EQ(modelText(model),
              "批次|状态|创建时间|文件|账户|算法|行数|预计买入|预计卖出|创建人|SHA-256\n"
              "7|已创建|2026-11-22 12:00:00|list.csv|80010001|AITWAP|1200|1,234,567.50|0.00|trader|ab12\n"
              "6|已撤销|2026-11-22 12:00:00|list.csv|80010001|AITWAP|1200|1,234,567.50|0.00|trader|ab12"_s);
    EXPECT_EQ(modelRole(model, ListModel::BatchRole), QStringList({"7"_s, "6"_s}));
    EXPECT_EQ(model.index(1, 0).data(ListModel::StateRole).toInt(), int(BatchState::Withdrawn));
    EXPECT_EQ(model.index(0, BatchesModel::State).data(ListModel::TintRole).toString(), QString());
    EXPECT_EQ(model.index(1, BatchesModel::State).data(ListModel::TintRole).toString(), "muted"_s);
    EXPECT_EQ(model.index(0, BatchesModel::Buy).data(ListModel::PlainRole).toString(), "1234567.50"_s);
}

} // namespace
