// A table told in the import's words.

#include "desk/mapping/Mapping.h"

#include "embedded_host/reference_data/ReferenceData.h"
#include "tests/support/Readings.h"
#include "tests/support/SmallMarket.h"
#include "tests/support/Text.h"

#include <gtest/gtest.h>

namespace {

using mapping::Column;
using mapping::DateOrder;
using mapping::Form;
using mapping::Mapping;

Column column(const QString& from, const QString& to, Form form = Form::AsIs,
              const QMap<QString, QString>& values = {})
{
    return {from, 1, to, form, DateOrder::YearFirst, values};
}

/// Of the table below.
Mapping english()
{
    return {"AITWAP"_s,
            QString(),
            0,
            {column("Side"_s, "交易方向"_s, Form::AsIs, {{"B"_s, "1"_s}, {"S"_s, "2"_s}}),
             column("Ticker"_s, "证券代码"_s, Form::Code), column("Qty"_s, "委托数量"_s, Form::Quantity)},
            {{"委托属性"_s, "0"_s}}};
}

const QList<QStringList> Rows = {{"Orders of the day"_s},
                                 {"Ticker"_s, "Trader"_s, "Side"_s, "Qty"_s},
                                 {"600000.SH"_s, "ann"_s, "B"_s, "1,000"_s},
                                 {},
                                 {"SZ000001"_s, "bob"_s, "s"_s, "2,500.50"_s},
                                 {""_s, ""_s, ""_s, "3,500"_s}};

class MappedTables : public testing::Test {
protected:
    Outcome<table::Table> told(const Mapping& mapping, const table::Table& table)
    {
        return mapping::apply(mapping, table, surroundings);
    }
    QList<QStringList> rows(const Mapping& mapping, const QList<QStringList>& rows = Rows)
    {
        return told(mapping, readings::tableOf(rows)).value.rows;
    }

    mapping::Surroundings surroundings = mapping::surroundingsOf(ReferenceData(small_market::tables()));
};

TEST_F(MappedTables, StandInTheImportsWordsUnderTheFilesLines)
{
    const Outcome<table::Table> own = told(english(), readings::tableOf(Rows));
    ASSERT_TRUE(own.ok()) << qPrintable(own.error);
    const QList<QStringList> expected = {{"证券代码"_s, "市场"_s, "交易方向"_s, "委托数量"_s, "委托属性"_s},
                                         {"600000"_s, "SH"_s, "1"_s, "1000"_s, "0"_s},
                                         {},
                                         {"000001"_s, "SZ"_s, "2"_s, "2,500.50"_s, "0"_s},
                                         {""_s, ""_s, ""_s, "3500"_s, "0"_s}};
    EXPECT_EQ(own.value.rows, expected);
    EXPECT_EQ(own.value.lines,
              (QList<int>{readings::lineOfRow(1), readings::lineOfRow(2), readings::lineOfRow(3),
                          readings::lineOfRow(4), readings::lineOfRow(5)}));
}

TEST_F(MappedTables, AMarketOfItsOwnColumnCountsAndADisagreementLeavesNone)
{
    Mapping mapping = english();
    mapping.columns.append(column("Exch"_s, "市场"_s, Form::AsIs, {{"Shanghai"_s, "SH"_s}}));
    const QList<QStringList> got = rows(mapping, {{"Ticker"_s, "Side"_s, "Qty"_s, "Exch"_s},
                                                  {"600000"_s, "B"_s, "1"_s, "Shanghai"_s},
                                                  {"600000.SH"_s, "B"_s, "1"_s, "沪市"_s},
                                                  {"600000.SH"_s, "B"_s, "1"_s, "SZ"_s},
                                                  {"00700.HK"_s, "B"_s, "1"_s, ""_s},
                                                  {"00700.HK"_s, "B"_s, "1"_s, "HKSZ"_s}});
    QStringList markets;
    for (const QStringList& row : got.mid(1)) {
        markets.append(row.at(0) + QLatin1Char('@') + row.at(1));
    }
    EXPECT_EQ(markets,
              (QStringList{"600000@SH"_s, "600000@沪市"_s, "600000@"_s, "00700@"_s, "00700@HKSZ"_s}));
}

TEST_F(MappedTables, AMarketForAllRowsStandsWhereTheCodeNamesNone)
{
    Mapping mapping = english();
    mapping.constants["市场"_s] = "SH"_s;
    const QList<QStringList> got =
        rows(mapping,
             {{"Ticker"_s, "Side"_s, "Qty"_s}, {"600000"_s, "B"_s, "1"_s}, {"000001.SZ"_s, "B"_s, "1"_s}});
    EXPECT_EQ(got.at(1).at(1), "SH"_s);
    EXPECT_EQ(got.at(2).at(1), QString()); // they disagree
}

TEST_F(MappedTables, OfTwoColumnsWithOneTitleTheNumberSaysWhich)
{
    Mapping mapping = english();
    mapping.columns[2].number = 2;
    const QList<QStringList> got =
        rows(mapping, {{"Ticker"_s, "Side"_s, "Qty"_s, "Qty"_s}, {"600000.SH"_s, "B"_s, "1"_s, "200"_s}});
    EXPECT_EQ(got.at(1).at(3), "200"_s);
}

TEST_F(MappedTables, ANamedLineOrSheetMustBeThere)
{
    Mapping mapping = english();
    mapping.headerLine = readings::lineOfRow(0);
    EXPECT_TRUE(told(mapping, readings::tableOf(Rows)).error.contains("Side、Ticker、Qty"_s));
    mapping.headerLine = readings::lineOfRow(1);
    EXPECT_TRUE(told(mapping, readings::tableOf(Rows)).ok());
    mapping.headerLine = 0;
    EXPECT_TRUE(told(mapping, readings::tableOf({{"Ticker"_s}})).error.contains("Qty"_s));
    mapping.sheet = "Orders"_s;
    EXPECT_TRUE(told(mapping, readings::tableOf(Rows)).error.contains("Orders"_s));
}

TEST_F(MappedTables, WhatCouldNotBeReadStaysTheReadersSentence)
{
    table::Table broken;
    broken.error = "坏"_s;
    EXPECT_EQ(told(english(), broken).value.error, "坏"_s);
}

TEST_F(MappedTables, TheReportFindsHiddenRowsWhereTheyStandNow)
{
    table::Table table = readings::tableOf(Rows);
    table.inspection.hiddenRows = {4};
    table.inspection.uncalculated = {{2, 3}};
    const table::Inspection told = this->told(english(), table).value.inspection;
    EXPECT_EQ(told.hiddenRows, (QSet<int>{3}));
    EXPECT_EQ(told.uncalculated, (QSet<table::Cell>{{1, 3}}));
}

} // namespace
