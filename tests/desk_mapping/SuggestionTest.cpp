// What is suggested for a stranger's table, and what is left to a person.

#include "desk/mapping/Suggestion.h"

#include "embedded_host/EmbeddedHost.h"
#include "import/TableReading.h"
#include "tests/support/Readings.h"
#include "tests/support/Sheet.h"
#include "tests/support/SmallMarket.h"
#include "tests/support/Text.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <random>

namespace {

using mapping::Found;
using mapping::Gaps;
using mapping::Mapping;
using mapping::Suggestion;

class Suggestions : public testing::Test {
protected:
    strategy::Strategy strategyOf(const QString& code) const
    {
        return readings::parsed(*host.referenceData().strategy(code));
    }
    Suggestion suggested(const QList<QStringList>& rows, const QString& code = "AITWAP"_s) const
    {
        return mapping::suggest(strategyOf(code), readings::tableOf(rows), surroundings);
    }
    Gaps gaps(const Mapping& mapping, const QList<QStringList>& rows, const QString& code = "AITWAP"_s) const
    {
        return mapping::gapsOf(mapping, strategyOf(code), readings::tableOf(rows), surroundings);
    }
    import::Reading read(const table::Table& table, const QString& code = "AITWAP"_s) const {
        return import::readRows(strategyOf(code), table, {"CASH1"_s, "Cash"_s},
                                import::dateTimeFormatOf("list.csv"_s));
}

EmbeddedHost host{ReferenceData(small_market::tables())};
mapping::Surroundings surroundings = mapping::surroundingsOf(host.referenceData());
}; // namespace

QStringList sentencesOf(const import::Reading& reading)
{
    QStringList sentences;
    for (const table::Fault& fault : reading.faults) {
        sentences.append(table::sentence(fault));
    }
    return sentences;
}

/// "Ticker>证券代码 Qty>委托数量"
QString shown(const Mapping& mapping)
{
    QStringList columns;
    for (const mapping::Column& column : mapping.columns) {
        columns.append(column.from + QLatin1Char('>') + column.to);
    }
    return columns.join(QLatin1Char(' '));
}

const QList<QStringList> English = {
    {"Program trades"_s, "as of today"_s},
    {"Ticker"_s, "Side"_s, "Qty"_s, "Limit"_s, "Start Time"_s, "End Time"_s, "Account"_s},
    {"600000.SH"_s, "B"_s, "1,000"_s, "9.86"_s, "2026/11/23 9:35"_s, "2026/11/23 14:50"_s, "X1"_s},
    {"000001.SZ"_s, "S"_s, "2,500"_s, ""_s, "2026/11/23 9:35"_s, ""_s, "X1"_s}};

TEST_F(Suggestions, AnEnglishTableUnderATitleRow)
{
    const Suggestion got = suggested(English);
    EXPECT_EQ(shown(got.mapping), "Ticker>证券代码 Side>交易方向 Qty>委托数量 Limit>委托限价 "
                                  "Start Time>开始时间 End Time>结束时间"_s);
    EXPECT_EQ(got.mapping.headerLine, readings::lineOfRow(1));
    EXPECT_EQ(got.mapping.columnTo("交易方向"_s)->values,
              (QMap<QString, QString>{{"B"_s, "1"_s}, {"S"_s, "2"_s}}));
    EXPECT_EQ(got.mapping.constants, (QMap<QString, QString>{{"创建后是否立即启动"_s, "0"_s}}));
    const Gaps open = gaps(got.mapping, English);
    EXPECT_EQ(open.missing, (QStringList{"委托属性"_s}));
    EXPECT_EQ(open.unmapped, (QStringList{"Account"_s}));
    EXPECT_TRUE(open.values.isEmpty());
    EXPECT_FALSE(open.isWhole());
}

TEST_F(Suggestions, TheSurestNameWins)
{
    const Suggestion got =
        suggested({{"数量"_s, "委托数量"_s, "代码"_s, "方向"_s}, {"5"_s, "100"_s, "600000"_s, "1"_s}});
    EXPECT_EQ(shown(got.mapping), "委托数量>委托数量 代码>证券代码 方向>交易方向"_s);
    EXPECT_EQ(got.found.value("委托数量"_s), Found::ByTitle);
    EXPECT_EQ(got.found.value("证券代码"_s), Found::ByAlias);
}

TEST_F(Suggestions, CodesSidesAndTimesAreKnownByTheirCellsAndQuantitiesNever)
{
    const QList<QStringList> rows = {
        {"c1"_s, "c2"_s, "c3"_s, "c4"_s, "c5"_s, "c6"_s},
        {"600000"_s, "沪市"_s, "买入"_s, "1000"_s, "2026-11-23 09:35"_s, "2026-11-23 14:50"_s},
        {"000001"_s, "深圳"_s, "卖出"_s, "600000"_s, "2026-11-23 09:40"_s, "2026-11-23 14:50"_s}};
    const Suggestion got = suggested(rows);
    EXPECT_EQ(shown(got.mapping), "c1>证券代码 c2>市场 c3>交易方向 c5>开始时间 c6>结束时间"_s);
    EXPECT_EQ(got.found.value("证券代码"_s), Found::ByContent);
    EXPECT_TRUE(gaps(got.mapping, rows).missing.contains("委托数量"_s));
}

TEST_F(Suggestions, AWordThatTheTradeReadsInTwoWaysIsLeftToAPerson)
{
    const QList<QStringList> rows = {{"Ticker"_s, "Side"_s, "Qty"_s}, {"600000.SH"_s, "SS"_s, "100"_s}};
    const Suggestion got = suggested(rows);
    EXPECT_TRUE(got.mapping.columnTo("交易方向"_s)->values.isEmpty());
    EXPECT_EQ(gaps(got.mapping, rows).values.value("交易方向"_s), (QStringList{"SS"_s}));
}

TEST_F(Suggestions, AnOrderWithoutAMarketIsAGap)
{
    const QList<QStringList> rows = {{"Ticker"_s, "Side"_s, "Qty"_s}, {"600000"_s, "B"_s, "100"_s}};
    Suggestion got = suggested(rows);
    EXPECT_TRUE(gaps(got.mapping, rows).missing.contains("市场"_s));
    got.mapping.constants["市场"_s] = "SH"_s;
    EXPECT_FALSE(gaps(got.mapping, rows).missing.contains("市场"_s));
}

TEST_F(Suggestions, TheOrderOfSmallNumbersIsTakenFromTheDaysThatTell)
{
    const auto order = [&](const QString& one, const QString& other) {
        return suggested({{"Ticker"_s, "Side"_s, "Qty"_s, "Start"_s},
                          {"600000.SH"_s, "B"_s, "1"_s, one},
                          {"600000.SH"_s, "B"_s, "1"_s, other}})
            .mapping.columnTo("开始时间"_s)
            ->order;
    };
    EXPECT_EQ(order("3/4/2026 9:35"_s, "23/11/2026 9:35"_s), mapping::DateOrder::DayFirst);
    EXPECT_EQ(order("3/4/2026 9:35"_s, "11/23/2026 9:35"_s), mapping::DateOrder::MonthFirst);
    EXPECT_EQ(order("3/4/2026 9:35"_s, "3/5/2026 9:35"_s), mapping::DateOrder::YearFirst);
    EXPECT_EQ(order("23/11/2026 9:35"_s, "11/23/2026 9:35"_s), mapping::DateOrder::YearFirst);
}

TEST_F(Suggestions, AColumnOfAnotherStrategyIsNone)
{
    Suggestion got = suggested(English);
    got.mapping.columns[0].to = "配对编号"_s;
    EXPECT_EQ(gaps(got.mapping, English).unknown, (QStringList{"配对编号"_s}));
}

TEST_F(Suggestions, AHeaderOfTheStrategyNeedsNone)
{
    EXPECT_TRUE(
        mapping::fitsAsItStands(strategyOf("AITWAP"_s), readings::tableOf({small_market::ordinaryHeader()})));
    EXPECT_FALSE(mapping::fitsAsItStands(strategyOf("AITWAP"_s), readings::tableOf(English)));
}

/// Writes a table in the words of a stranger.
class Disguise {
public:
    explicit Disguise(unsigned seed) : mRandom(seed) {}

    /// Other titles, another order, other texts for the same values, rows above the header.
    QList<QStringList> of(const QList<QStringList>& rows)
    {
        QList<int> order;
        for (int column = 0; column < rows.first().size(); ++column) {
            order.append(column);
        }
        std::shuffle(order.begin(), order.end(), mRandom);
        QList<QStringList> disguised;
        for (int above = pick(4); above > 0; --above) {
            disguised.append(pick(2) ? QStringList{"Orders"_s, "desk 7"_s} : QStringList());
        }
        for (int row = 0; row < rows.size(); ++row) {
            QStringList cells;
            for (const int column : qAsConst(order)) {
                const QString& title = rows.first().at(column);
                cells.append(row == 0 ? oneOf(titles().value(title)) : cell(title, rows.at(row).at(column)));
            }
            disguised.append(cells);
        }
        return disguised;
    }

private:
    int pick(int count) { return int(mRandom() % unsigned(count)); }
    QString oneOf(const QStringList& texts) { return texts.at(pick(texts.size())); }

    static const QMap<QString, QStringList>& titles()
    {
        static const QMap<QString, QStringList> others = {
            {"证券代码"_s, {"Ticker"_s, "Symbol"_s, "Code"_s, "代码"_s, "股票代码"_s}},
            {"证券名称"_s, {"Security Name"_s, "证券简称"_s}},
            {"市场"_s, {"Exchange"_s, "Market"_s, "交易所"_s}},
            {"委托数量"_s, {"Qty"_s, "Quantity"_s, "Shares"_s, "数量"_s, "股数"_s}},
            {"交易方向"_s, {"Side"_s, "Direction"_s, "方向"_s, "买卖方向"_s}},
            {"委托属性"_s, {"委托属性"_s}},
            {"委托限价"_s, {"Price"_s, "Limit"_s, "限价(元)"_s}},
            {"开始时间"_s, {"Start Time"_s, "Start"_s, "起始时间"_s}},
            {"结束时间"_s, {"End Time"_s, "End"_s, "截止时间"_s}},
            {"风格参数"_s, {"Style"_s, "风格"_s}},
            {"实例备注"_s, {"Remark"_s, "备注"_s}},
            {"创建后是否立即启动"_s, {"立即启动"_s, "创建后是否立即启动"_s}}};
        return others;
    }

    QString cell(const QString& title, const QString& text)
    {
        if (title == "交易方向"_s) {
            return oneOf(text == "1"_s ? QStringList{"B"_s, "Buy"_s, "BUY"_s, "买入"_s, "买"_s, "1"_s}
                                       : QStringList{"S"_s, "Sell"_s, "SELL"_s, "卖出"_s, "卖"_s, "2"_s});
        }
        if (title == "市场"_s) {
            return oneOf(text == "SH"_s ? QStringList{"SH"_s, "沪市"_s, "上海"_s, "SS"_s}
                                        : QStringList{"SZ"_s, "深市"_s, "sz"_s});
        }
        if (title == "委托数量"_s && text.size() > 3) {
            return oneOf(
                {text, text.left(text.size() - 3) + QLatin1Char(',') + text.right(3), text + ".00"_s});
        }
        if (title == "委托属性"_s) {
            return oneOf({text, "普通交易"_s});
        }
        if (title == "风格参数"_s) {
            return oneOf({text, text == "neutral"_s ? "平稳"_s : "激进"_s});
        }
        if (title == "创建后是否立即启动"_s) {
            return oneOf({text, text == "7"_s ? "Yes"_s : "No"_s});
        }
        if (title.endsWith("时间"_s) && !text.isEmpty()) {
            QString slashes = text;
            return oneOf({text, slashes.replace(QLatin1Char('-'), QLatin1Char('/')), text.left(16),
                          QString(text).replace(QLatin1Char(' '), QLatin1Char('T')) + ".000"_s});
        }
        if (title == "证券代码"_s) {
            return oneOf(text == "000001"_s ? QStringList{text, text + ".SZ"_s, "SZ"_s + text}
                                            : QStringList{text, text + ".SH"_s, "sh"_s + text});
        }
        return text;
    }

    std::mt19937 mRandom;
};

QList<QStringList> randomRows(unsigned seed)
{
    std::mt19937 random(seed);
    const auto pick = [&](const QStringList& texts) {
        return texts.at(int(random() % unsigned(texts.size())));
    };
    QList<QStringList> rows{small_market::ordinaryHeader()};
    for (unsigned left = 2 + random() % 8; left > 0; --left) {
        const bool shanghai = random() % 2 == 0;
        rows.append({shanghai ? pick({"600000"_s, "510300"_s}) : "000001"_s, QString(),
                     shanghai ? "SH"_s : "SZ"_s, pick({"100"_s, "1000"_s, "25000"_s, "900"_s}),
                     pick({"1"_s, "2"_s}), "0"_s, pick({QString(), "9.86"_s, "10"_s}),
                     "2026-11-23 09:3%1:00"_s.arg(random() % 10), "2026-11-23 14:50:00"_s,
                     pick({"neutral"_s, "aggressive"_s}), pick({QString(), "建仓"_s}), pick({"0"_s, "7"_s})});
    }
    return rows;
}

TEST_F(Suggestions, ADisguisedTableGivesTheSameOrders)
{
    for (unsigned seed = 1; seed <= 300; ++seed) {
        const QList<QStringList> rows = randomRows(seed);
        const table::Table disguised = readings::tableOf(Disguise(seed).of(rows));
        const Suggestion got = mapping::suggest(strategyOf("AITWAP"_s), disguised, surroundings);
        const Gaps open = mapping::gapsOf(got.mapping, strategyOf("AITWAP"_s), disguised, surroundings);
        ASSERT_TRUE(open.isWhole()) << "seed " << seed << ": " << qPrintable(shown(got.mapping)) << " "
                                    << qPrintable(open.missing.join(QLatin1Char(' '))) << " "
                                    << qPrintable(QStringList(open.values.keys()).join(QLatin1Char(' ')));
        const Outcome<table::Table> told = mapping::apply(got.mapping, disguised, surroundings);
        ASSERT_TRUE(told.ok()) << "seed " << seed << ": " << qPrintable(told.error);
        const import::Reading original = read(readings::tableOf(rows));
        const import::Reading mapped = read(told.value);
        ASSERT_FALSE(original.instances.isEmpty());
        ASSERT_EQ(mapped.instances, original.instances) << "seed " << seed;
        ASSERT_EQ(sentencesOf(mapped), sentencesOf(original)) << "seed " << seed;
    }
}

TEST_F(Suggestions, ALockTableIsToldLegByLeg)
{
    const QList<QStringList> rows = {{"Ticker"_s, "Side"_s, "Qty"_s, "委托属性"_s, "Price"_s, "Start"_s},
                                     {"600000.SH"_s, "B/S"_s, "1,000"_s, "0/0"_s, "9.8/9.9"_s, "N"_s}};
    const Suggestion got = suggested(rows, "AILOCK"_s);
    EXPECT_TRUE(gaps(got.mapping, rows, "AILOCK"_s).isWhole());
    const Outcome<table::Table> told = mapping::apply(got.mapping, readings::tableOf(rows), surroundings);
    EXPECT_EQ(told.value.rows.at(1).at(2), "1/2"_s);
    EXPECT_TRUE(read(told.value, "AILOCK"_s).faults.isEmpty());
}

} // namespace
