// A table read without a dialog: records, maps and faults as values.

#include "embedded_host/EmbeddedHost.h"
#include "table/Rules.h"
#include "table/Table.h"
#include "tests/support/Readings.h"
#include "tests/support/Sheet.h"
#include "tests/support/SmallMarket.h"
#include "tests/support/Text.h"

#include <gtest/gtest.h>

namespace {

namespace rule = table::rule;
using readings::lineOfRow;

const QString Csv = QStringLiteral("list.csv");

class TableReading : public testing::Test {
protected:
    TableReading() : host(ReferenceData(small_market::tables())) { host.journal().setRecording(true); }

    import::Reading read(const QList<QStringList>& rows, const QString& code = QStringLiteral("AITWAP"),
                         const QString& account = QStringLiteral("CASH1")) {
        const AesStrategy* offered = host.referenceData().strategy(code);
    EXPECT_NE(offered, nullptr) << qPrintable(code);
    const strategy::Strategy strategy = readings::parsed(*offered);
    return import::readRows(strategy, readings::tableOf(rows), {account, "Cash"_s},
                            import::dateTimeFormatOf(Csv));
}

    int callsOf(const char* operation)
{
    int count = 0;
    for (const HostJournal::Call& call : host.journal().calls()) {
        count += call.operation == QLatin1String(operation) ? 1 : 0;
    }
    return count;
}

EmbeddedHost host;
}; // namespace

QStringList note()
{
    return {QString(), QString(), "备注："_s};
}

} // namespace

TEST_F(TableReading, GoodRowsAreRecordsAndMapsWithTheirLines)
{
    const import::Reading reading =
        read(Sheet::ordinary().add().addRow(note()).addRow({QString()}).add({{"委托数量"_s, "99"_s}}).rows());
    EXPECT_EQ(reading.records.size(), 2);
    EXPECT_EQ(reading.instances.size(), 2);
    EXPECT_EQ(reading.lines, (QList<int>{lineOfRow(1), lineOfRow(4)}));
    EXPECT_EQ(reading.passedOver, 2);
    EXPECT_TRUE(reading.faults.isEmpty());
    EXPECT_FALSE(reading.end);
    EXPECT_EQ(reading.instances.at(1).value("交易账号"_s), QVariant("CASH1"_s));
}

TEST_F(TableReading, NeitherSubscribesNorHasARiskNoticeShown)
{
    read(Sheet::ordinary().add().add().rows());
    EXPECT_EQ(callsOf("CommonQuotaHandler::SubscribeQuota"), 0);
    EXPECT_EQ(callsOf("SolveyBusinessDataInterface::CheckSymbolRiskInfo"), 0);
    EXPECT_GT(callsOf("CBusinessDataBase::GetSysNodeIDByAccount"), 0) << "the journal records";
}

namespace {

/// One cell of an otherwise good row, and the fault that it makes.
struct FaultyCell {
    const char* name;
    const char* title;
    const char* cell;
    QString rule;
    const char* column; ///< of the fault
    const char* raw;
};

class FaultOfARow : public TableReading, public testing::WithParamInterface<FaultyCell> {};

} // namespace

TEST_P(FaultOfARow, NamesItsRuleLineColumnAndCell)
{
    const FaultyCell& given = GetParam();
    const import::Reading reading =
        read(Sheet::ordinary()
                 .add()
                 .addRow(note())
                 .add({{QString::fromUtf8(given.title), QString::fromUtf8(given.cell)}})
                 .add()
                 .rows());
    ASSERT_EQ(reading.faults.size(), 1);
    const table::Fault& fault = reading.faults.first();
    EXPECT_EQ(fault.rule, given.rule);
    EXPECT_EQ(fault.severity, table::Severity::Error);
    EXPECT_EQ(fault.line, lineOfRow(3));
    EXPECT_EQ(fault.row, 3);
    EXPECT_EQ(fault.column, QString::fromUtf8(given.column));
    EXPECT_EQ(fault.cell, QString::fromUtf8(given.raw));
    EXPECT_EQ(reading.lines, (QList<int>{lineOfRow(1), lineOfRow(4)})) << "the other rows go on";
}

INSTANTIATE_TEST_SUITE_P(
    Cells, FaultOfARow,
    testing::Values(
        FaultyCell{"UnknownCode", "证券代码", "999999", rule::UnknownCode, "证券代码", "999999"},
        FaultyCell{"MarketNotOfTheAccount", "市场", "CFE?", rule::UnknownCode, "证券代码", "600000"},
        FaultyCell{"CreateStatus", "创建后是否立即启动", "5", rule::BadCreateStatus, "创建后是否立即启动",
                   "5"},
        FaultyCell{"Option", "风格参数", "bold", rule::NotSupported, "风格参数", "bold"},
        FaultyCell{"DateTime", "开始时间", "昨天", rule::BadDateTime, "开始时间", "昨天"},
        FaultyCell{"EmptyCell", "委托数量", "", rule::EmptyCells, "委托数量", ""},
        FaultyCell{"ReservedText", "实例备注", "TRANS_ERROR", rule::ReservedText, "实例备注", "TRANS_ERROR"}),
    [](const testing::TestParamInfo<FaultyCell>& tested) { return tested.param.name; });

TEST_F(TableReading, TheColumnIsTheTitleThatTheFileUses)
{
    const import::Reading reading =
        read(Sheet::ordinary().add({{"证券代码"_s, "999999"_s}}).rename("证券代码"_s, "代码"_s).rows());
    ASSERT_EQ(reading.faults.size(), 1);
    EXPECT_EQ(reading.faults.first().column, "代码"_s);
}

TEST_F(TableReading, SeveralEmptyCellsAreOneFaultAtTheFirst)
{
    const import::Reading reading =
        read(Sheet::ordinary().add({{"委托数量"_s, QString()}, {"交易方向"_s, QString()}}).rows());
    ASSERT_EQ(reading.faults.size(), 1);
    EXPECT_EQ(reading.faults.first().column, "委托数量"_s);
    EXPECT_EQ(reading.faults.first().arguments, QStringList{"委托数量、交易方向"_s});
}

TEST_F(TableReading, AMarketThatTheAccountLacksIsAFaultOfTheMarketCell)
{
    const import::Reading reading =
        read(Sheet::ordinary().add({{"证券代码"_s, "00700"_s}, {"市场"_s, "HKSH"_s}}).rows(), "AITWAP"_s,
             "NOHK"_s);
    ASSERT_EQ(reading.faults.size(), 1);
    EXPECT_EQ(reading.faults.first().rule, rule::MarketMismatch);
    EXPECT_EQ(reading.faults.first().column, "市场"_s);
    EXPECT_EQ(reading.faults.first().cell, "HKSH"_s);
    EXPECT_EQ(table::sentence(reading.faults.first()),
              "当前资产账号所属市场与标的00700.HK市场存在不一致，请检查！"_s);
}

TEST_F(TableReading, AMissingColumnEndsItAtTheHeader)
{
    const import::Reading reading = read(Sheet::ordinary().add().drop("委托数量"_s).rows());
    ASSERT_TRUE(reading.end);
    EXPECT_EQ(reading.end->rule, rule::MissingColumn);
    EXPECT_EQ(reading.end->line, lineOfRow(0));
    EXPECT_EQ(reading.end->column, "委托数量"_s);
    EXPECT_TRUE(reading.records.isEmpty());
}

TEST_F(TableReading, AHongKongSecurityEndsItAtItsRow)
{
    const import::Reading reading =
        read(Sheet::sealing().add().add({{"证券代码"_s, "00700"_s}, {"市场"_s, "HKSH"_s}}).rows(),
             "PursueHighLimit"_s);
    ASSERT_TRUE(reading.end);
    EXPECT_EQ(reading.end->rule, rule::NoHongKong);
    EXPECT_EQ(reading.end->line, lineOfRow(2));
    EXPECT_EQ(reading.end->cell, "00700"_s);
}

TEST_F(TableReading, WhatCannotBeReadEndsItWithTheReadersWords)
{
    const strategy::Strategy strategy = strategy::Strategy::withoutParameters("X"_s, QString());
    table::Table table;
    EXPECT_EQ(import::readRows(strategy, table, {}, QString()).end->rule, rule::ReadFailed);
    table.error = "文件已损坏"_s;
    EXPECT_EQ(table::sentence(*import::readRows(strategy, table, {}, QString()).end), "文件已损坏"_s);
}

TEST_F(TableReading, AHeaderAloneHasNoData)
{
    ASSERT_TRUE(read(Sheet::ordinary().rows()).end);
    EXPECT_EQ(read(Sheet::ordinary().rows()).end->rule, rule::NoDataRows);
}

TEST_F(TableReading, TakesAsManyRowsAsAnImport)
{
    QList<QStringList> rows = Sheet::ordinary().add().rows();
    for (int i = 1; i < table::MostOrders + 5; ++i) {
        rows.append(rows.at(1));
    }
    EXPECT_EQ(read(rows).records.size(), table::MostOrders);
}

// ---- legs

TEST_F(TableReading, ALockRowHasTwoLegs)
{
    const import::Reading reading = read(Sheet::paired().add().rows(), "AILOCK"_s);
    ASSERT_EQ(reading.instances.size(), 1);
    EXPECT_EQ(reading.instances.first().value("证券代码和委托数量"_s).toList().size(), 2);
}

TEST_F(TableReading, AFaultOfLegsHasItsTrueLineAndTheNumberOfItsInstance)
{
    const import::Reading reading = read(Sheet::paired()
                                             .add({{"证券代码"_s, "999999"_s}})
                                             .add()
                                             .addRow(note())
                                             .add({{"交易方向"_s, "1"_s}})
                                             .add()
                                             .rows(),
                                         "AILOCK"_s);
    ASSERT_EQ(reading.faults.size(), 2);
    const table::Fault& fault = reading.faults.last();
    EXPECT_EQ(fault.rule, rule::BadPairedFields);
    EXPECT_EQ(fault.line, lineOfRow(4));
    EXPECT_EQ(fault.row, 2) << "the second that was accepted";
    EXPECT_EQ(fault.column, "交易方向"_s);
    EXPECT_EQ(fault.cell, "1"_s);
    EXPECT_EQ(reading.lines, (QList<int>{lineOfRow(2), lineOfRow(5)}));
    EXPECT_EQ(reading.records.size(), 2);
    EXPECT_EQ(reading.instances.size(), 2);
}

TEST_F(TableReading, StrategiesThatAlwaysStartAreReadAsIfTheyHadTheColumn)
{
    const import::Reading reading =
        read(Sheet::ordinary().add().add({{"证券代码"_s, "999999"_s}}).drop("创建后是否立即启动"_s).rows(),
             "KF_TWAPPLUS"_s);
    ASSERT_EQ(reading.instances.size(), 1);
    EXPECT_EQ(reading.instances.first().value("创建后是否立即启动"_s), QVariant("7"_s));
    ASSERT_EQ(reading.faults.size(), 1);
    EXPECT_EQ(reading.faults.first().column, "证券代码"_s);
    EXPECT_EQ(reading.faults.first().cell, "999999"_s);
}
