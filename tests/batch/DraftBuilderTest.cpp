#include "desk/batch/DraftBuilder.h"

#include "tests/ledger/SampleDrafts.h"

#include <gtest/gtest.h>

#include <QFile>
#include <QTemporaryDir>

using namespace batch;
using namespace ledger;

namespace {

QMap<QString, QVariant> cell(const QString& shown, const QString& value)
{
    return {{"0"_s, shown}, {"256"_s, value}};
}

/// One row of an ordinary strategy: 1,000 units of which ten make a displayed one.
DialogContent ordinaryContent()
{
    DialogContent content;
    content.strategy = "AITWAP"_s;
    content.account = "1001"_s;
    content.filePath = "/some/where/早盘.csv"_s;
    content.columns = QStringList{"证券代码"_s, "市场"_s, "委托数量"_s, "交易方向"_s};
    content.records = {{{0, cell("600000"_s, "600000.SH"_s)},
                        {1, cell("上海"_s, "SH"_s)},
                        {2, cell("1000"_s, "1000"_s)},
                        {3, cell("买入"_s, "Buy"_s)}}};
    const QMap<QString, QVariant> leg{{"证券代码"_s, "600000.SH"_s}, {"委托数量"_s, "100"_s}};
    content.parameterMaps = {
        {{"证券代码和委托数量"_s, QVariantList{leg}}, {"交易方向"_s, "Buy"_s}, {"委托限价"_s, "10.5"_s}}};
    return content;
}

} // namespace

TEST(Draft, ReadsTheLegFromRecordAndParameterMap)
{
    const BatchDraft draft = makeDraft(ordinaryContent());
    EXPECT_FALSE(draft.id.isNull());
    EXPECT_EQ(draft.fileName, "早盘.csv"_s);
    ASSERT_EQ(draft.instances.size(), 1);
    ASSERT_EQ(draft.instances.first().legs.size(), 1);
    const Leg leg = draft.instances.first().legs.first();
    EXPECT_EQ(leg.symbol, "600000.SH"_s);
    EXPECT_EQ(leg.exchange, "SH"_s);
    EXPECT_EQ(leg.direction, "Buy"_s);
    EXPECT_EQ(leg.quantity, 1000) << "units, not displayed ones";
    EXPECT_EQ(leg.limitPrice, 10.5_d);
    EXPECT_EQ(leg.typedAmount, 0);
    EXPECT_FALSE(draft.instances.first().startsNow);
    EXPECT_EQ(draft.table.rows, (QList<QStringList>{{"600000"_s, "上海"_s, "1000"_s, "买入"_s}}));
}

TEST(Draft, TakesDirectionAndLimitPriceOfAPairFromEachLeg)
{
    DialogContent content = ordinaryContent();
    content.records[0][3] = cell("买入/卖出"_s, "Buy/Sell"_s);
    const QMap<QString, QVariant> buy{
        {"证券代码"_s, "600000.SH"_s}, {"交易方向"_s, "Buy"_s}, {"委托限价"_s, "10.5"_s}};
    const QMap<QString, QVariant> sell{
        {"证券代码"_s, "600000.SH"_s}, {"交易方向"_s, "Sell"_s}, {"委托限价"_s, "10.6"_s}};
    content.parameterMaps = {{{"证券代码和委托数量"_s, QVariantList{buy, sell}}}};
    const QList<Leg> legs = makeDraft(content).instances.first().legs;
    ASSERT_EQ(legs.size(), 2);
    EXPECT_EQ(legs.at(0).direction, "Buy"_s);
    EXPECT_EQ(legs.at(1).direction, "Sell"_s);
    EXPECT_EQ(legs.at(1).limitPrice, 10.6_d);
    EXPECT_EQ(legs.at(1).quantity, 1000);
}

TEST(Draft, KnowsAnAmountFromAQuantity)
{
    DialogContent content = ordinaryContent();
    content.columns[2] = "委托金额"_s;
    content.records[0][2] = cell("50000"_s, "50000"_s);
    content.parameterMaps[0].insert("委托数量"_s, "50000"_s);
    const InstanceDraft instance = makeDraft(content).instances.first();
    EXPECT_EQ(instance.legs.first().typedAmount, 50000);
    EXPECT_EQ(instance.legs.first().quantity, 100);
}

TEST(Draft, StartsRowsThatSaySeven)
{
    DialogContent content = ordinaryContent();
    content.columns.append("创建后是否立即启动"_s);
    content.records[0][4] = cell("创建并立即启动"_s, "7"_s);
    EXPECT_TRUE(makeDraft(content).instances.first().startsNow);
    content.records[0][4] = cell("创建不启动"_s, "0"_s);
    EXPECT_FALSE(makeDraft(content).instances.first().startsNow);
}

TEST(Draft, TakesNoTextThatIsNoNumberPastACeiling)
{
    DialogContent content = ordinaryContent();
    for (const QString& text : {"nan"_s, "inf"_s, "abc"_s}) {
        content.records[0][2] = cell(text, text);
        EXPECT_EQ(makeDraft(content).instances.first().legs.first().quantity, 0) << text.toStdString();
    }
    content.records[0][2] = cell("-300"_s, "-300"_s);
    EXPECT_EQ(makeDraft(content).instances.first().legs.first().quantity, 300);
}

TEST(Draft, KnowsALimitThatBecameNoneFromOneThatWasNotNamed)
{
    DialogContent content = ordinaryContent();
    const auto leg = [&](const QString& limit) {
        content.parameterMaps[0]["委托限价"_s] = limit;
        return makeDraft(content).instances.first().legs.first();
    };
    EXPECT_FALSE(leg("10.5"_s).hasZeroLimit);
    EXPECT_FALSE(leg(""_s).hasZeroLimit);
    EXPECT_TRUE(leg("0.00"_s).hasZeroLimit);
    EXPECT_TRUE(leg("9.86元"_s).hasZeroLimit);
}

TEST(Draft, IsAnotherEveryTime)
{
    EXPECT_NE(makeDraft(ordinaryContent()).id, makeDraft(ordinaryContent()).id);
}

TEST(Draft, CarriesTheSha256OfTheFile)
{
    QTemporaryDir folder;
    DialogContent content = ordinaryContent();
    content.filePath = folder.filePath("abc.csv"_s);
    QFile file(content.filePath);
    ASSERT_TRUE(file.open(QIODevice::WriteOnly));
    file.write("abc");
    file.close();
    EXPECT_EQ(makeDraft(content).fileSha256,
              "ba7816bf8f01cfea414140de5dae2223b00361a396177a9cb410ff61f20015ad"_s);
    content.fileSha256 = "taken before"_s;
    EXPECT_EQ(makeDraft(content).fileSha256, "taken before"_s);
}

TEST(Draft, KnowsTheTimesOfARowAndWhetherQuantitiesAreAskedFor)
{
    DialogContent content = ordinaryContent();
    content.parameterMaps[0].insert("开始时间"_s, "2025-11-03 09:31:07"_s);
    const BatchDraft draft = makeDraft(content);
    EXPECT_EQ(draft.instances.first().start, QDateTime(QDate(2025, 11, 3), QTime(9, 31, 7)));
    EXPECT_FALSE(draft.instances.first().end.isValid());
    EXPECT_TRUE(draft.asksQuantity);
    content.columns[2] = "封单金额"_s;
    EXPECT_FALSE(makeDraft(content).asksQuantity);
}
