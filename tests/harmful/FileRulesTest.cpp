#include "desk/check/ImportExpectation.h"
#include "embedded_host/table_check/NumberLint.h"
#include "embedded_host/table_check/TableLint.h"
#include "table/CheckRules.h"
#include "table/FaultCatalogue.h"
#include "tests/harmful/ShippedReference.h"
#include "tests/support/Text.h"
#include "tests/table_reader/Reading.h"
#include "tests/table_reader/Samples.h"

#include <QDir>
#include <QFile>

#include <random>

using table::Severity;
using table_lint::Finding;
using table_lint::NumberKind;

namespace {

QList<Finding> findings(const QString& strategy, const table::Table& table)
{
    EXPECT_EQ("", table.error.toStdString());
    return table_lint::lint(table, importExpectation(strategy, shippedTitles(strategy), shippedReference()));
}

/// "rule address" of each finding, a line each.
std::string found(const QString& strategy, const table::Table& table)
{
    std::string text;
    for (const Finding& finding : findings(strategy, table)) {
        text += (finding.fault.rule + QLatin1Char(' ') + finding.address).trimmed().toStdString() + "\n";
    }
    return text;
}

std::string found(const char* strategy, const QByteArray& bytes)
{
    return found(QString::fromLatin1(strategy), inspect(bytes));
}

const QByteArray Head =
    "证券代码,证券名称,市场,委托数量,交易方向,委托限价,委托属性,最大市场占比,开始时间,结束时间,风格"
    "参数,单笔最小委托金额,创建后是否立即启动\n";
const QByteArray Tail = ",2026-11-23 09:35:00,2026-11-23 14:50:00,neutral,0,0\n";

/// A row of AITWAP: quantity, direction, limit, property, share.
QByteArray aitwap(const QByteArray& cells, const QByteArray& security = "600000,示例银行,SH")
{
    return security + "," + cells + Tail;
}

std::string foundInAitwap(const QByteArray& rows)
{
    return found("AITWAP", Head + rows);
}

/// A sheet of AITWAP: code, market, quantity, direction, property, limit, share and start of each row.
struct Sheet {
    QByteArray rows;
    samples::Xlsx book;

    static QByteArray text(const QByteArray& cell) { return "<c t=\"str\"><v>" + cell + "</v></c>"; }
    static QByteArray number(const QByteArray& value, int style = 0)
    {
        return "<c s=\"" + QByteArray::number(style) + "\"><v>" + value + "</v></c>";
    }
    static QByteArray row(const QList<QByteArray>& cells)
    {
        QByteArray all;
        for (const QByteArray& cell : cells) {
            all += cell;
        }
        return "<row>" + all + "</row>";
    }
    static QByteArray head()
    {
        return row({text("证券代码"), text("市场"), text("委托数量"), text("交易方向"), text("委托属性"),
                    text("委托限价"), text("最大市场占比"), text("创建后是否立即启动")});
    }
    static QByteArray order(const QByteArray& quantity, const QByteArray& limit, const QByteArray& share)
    {
        return row({text("600000"), text("SH"), quantity, text("1"), text("0"), limit, share, text("0")});
    }
    table::Table read(const QByteArray& orders)
    {
        book.sheetData = head() + orders;
        return inspect(book.file());
    }
};

QString strategyOf(const QString& sample)
{
    return sample.section(QLatin1Char('.'), 0, 0)
        .section(QLatin1String("-"), 0, sample.startsWith("G-"_s) ? 1 : 0);
}

} // namespace

// ---- good files

TEST(GoodFiles, ShippedSamplesHaveNoFindingOfAnySeverity)
{
    const QDir folder(QStringLiteral(ALGO_PROJECT_DIR "/samples"));
    int files = 0;
    for (const QString& name : folder.entryList({"*.csv"_s, "*.xls*"_s}, QDir::Files)) {
        table_reader::ReadOptions options;
        options.inspect = true;
        const table::Table table = table_reader::readTable(folder.filePath(name), options);
        EXPECT_EQ("", found(strategyOf(name), table)) << name.toStdString();
        ++files;
    }
    EXPECT_GT(files, 40);
}

TEST(GoodFiles, ANumericCodeThatItsMarketCompletesIsNoError)
{
    EXPECT_EQ("", foundInAitwap(aitwap("100,1,11.52,0,15", "1,示例发展,SZ")));
    EXPECT_EQ("code.zeros A2\n", foundInAitwap(aitwap("100,1,11.52,0,15", "1,,SH")));
}

TEST(GoodFiles, AMinimalFileAnAliasAndAForeignRemarkPass)
{
    EXPECT_EQ("", found("AITWAP", "代码,市场,数量,方向,委托属性,创建后是否立即启动\n600000,SH,100,1,0,7\n"));
    EXPECT_EQ(
        "title.unknown G1\n",
        found("AITWAP",
              "证券代码,市场,委托数量,交易方向,委托属性,创建后是否立即启动,组合\n600000,SH,100,1,0,7,甲\n"));
}

TEST(GoodFiles, ATableThatIsNoListOfOrdersIsToldOfAndNoMore)
{
    const QList<Finding> all = findings("AITWAP"_s, inspect("name,amount\nx,1E+05\n１,2\n"));
    EXPECT_EQ(4, all.size());
    for (const Finding& finding : all) {
        EXPECT_EQ(Severity::Notice, finding.fault.severity) << finding.fault.rule.toStdString();
    }
}

// ---- numbers

TEST(HarmfulFiles, EveryColumnOfNumbersIsHeldToItsKindAndRange)
{
    const auto share = [](const char* cell) {
        return foundInAitwap(aitwap(QByteArray("100,1,9.86,0,") + cell));
    };
    EXPECT_EQ("", share("15"));
    EXPECT_EQ("", share("0"));
    EXPECT_EQ("", share("100"));
    for (const char* cell : {"#N/A", "15%", "abc", "1 5", "--"}) {
        EXPECT_EQ("number.invalid.free H2\n", share(cell)) << cell;
    }
    EXPECT_EQ("digit.fullwidth H2\nnumber.invalid.free H2\n", share("１５"));
    for (const char* cell : {"150", "-5", "100.01"}) {
        EXPECT_EQ("number.percent H2\n", share(cell)) << cell;
    }
    EXPECT_EQ("share.small H2\n", share("0.15"));
    EXPECT_EQ("number.range H2\n", share("inf"));
}

TEST(HarmfulFiles, ColumnsOfEveryStrategyAreHeldToTheirKind)
{
    const QMap<QString, QByteArray> bad = {
        {"委托间隔"_s, "三十"},    {"扫盘比例（%）"_s, "130"}, {"撤单时间"_s, "x"},
        {"配对比例"_s, "1:1"},     {"目标价差"_s, "5点"},      {"增减持比例（%）"_s, "1%"},
        {"触发涨幅（%）"_s, "九"}, {"最差滑点"_s, "5bp"},      {"单笔最小委托金额"_s, "5千"},
        {"单笔最大"_s, "1万"},     {"起始成本"_s, "x"},        {"单笔最小量"_s, "100股"},
        {"封单金额"_s, "3000万"},  {"卖单金额"_s, "300万"},    {"最大市场占比"_s, "15%"}};
    QSet<QString> seen;
    for (const AesStrategy& offered : shippedReference().tables().strategies) {
        const QStringList titles = shippedTitles(offered.name());
        for (const QString& title : titles) {
            const auto cell = bad.constFind(title);
            if (cell == bad.constEnd()) {
                continue;
            }
            seen.insert(title);
            const std::string text = found(
                offered.name(), inspect("证券代码,市场," + title.toUtf8() + "\n600000,SH," + *cell + "\n"));
            EXPECT_NE(std::string::npos, text.find("number."))
                << offered.name().toStdString() << " " << title.toStdString();
        }
    }
    EXPECT_EQ(bad.size(), seen.size());
}

TEST(HarmfulFiles, ASpreadMayBeBelowZeroAndAnIntervalMayNot)
{
    EXPECT_EQ("", found("G-FuturesArbi", "证券代码,市场,目标价差\nIF2612,CFE,-12.5\n"));
    EXPECT_EQ("number.below C2\n", found("G-TWAP", "证券代码,市场,委托间隔\nIF2612,CFE,-5\n"));
    EXPECT_EQ("number.below.zero C2\n", found("G-TWAP", "证券代码,市场,委托间隔\nIF2612,CFE,0\n"));
    EXPECT_EQ("number.below.zero C2\n", found("AIPAIR", "证券代码,市场,配对比例\n600000,SH,0\n"));
    EXPECT_EQ("share.small C2\n", found("TWAP", "证券代码,市场,扫盘比例（%）\n600000,SH,0.3\n"));
}

TEST(HarmfulFiles, UnitsAndSignsAreToldWithThePlausibleNumber)
{
    const auto meant = [](const char* text, NumberKind kind) {
        return table_lint::plausibleNumber(QString::fromUtf8(text), kind).toStdString();
    };
    EXPECT_EQ("1000", meant("1.000", NumberKind::Whole));
    EXPECT_EQ("1", meant("1.000", NumberKind::Price));
    EXPECT_EQ("1000", meant("1000股", NumberKind::Whole));
    EXPECT_EQ("30000", meant("3万", NumberKind::Whole));
    EXPECT_EQ("30000", meant("3万股", NumberKind::Whole));
    EXPECT_EQ("9.86", meant("¥9.86", NumberKind::Price));
    EXPECT_EQ("9.86", meant("￥ 9.86元", NumberKind::Price));
    EXPECT_EQ("-100", meant("(100)", NumberKind::Whole));
    EXPECT_EQ("-100", meant("（１００）", NumberKind::Whole));
    EXPECT_EQ("15", meant("15%", NumberKind::Share));
    EXPECT_EQ("1000000", meant("1,000,000", NumberKind::Whole));
    EXPECT_EQ("150000000", meant("1.5亿", NumberKind::Amount));
    EXPECT_EQ("", meant("约1000", NumberKind::Whole));
    EXPECT_EQ("", meant("#N/A", NumberKind::Whole));

    EXPECT_EQ("number.grouping D2\n", foundInAitwap(aitwap("1.000,1,9.86,0,15")));
    EXPECT_EQ("number.fraction D2\n", foundInAitwap(aitwap("1000.5,1,9.86,0,15")));
    for (const char* cell : {"1000股", "3万", "(100)"}) {
        EXPECT_EQ("number.invalid D2\n", foundInAitwap(aitwap(QByteArray(cell) + ",1,9.86,0,15"))) << cell;
    }
    EXPECT_EQ("number.invalid.price F2\n", foundInAitwap(aitwap("100,1,¥9.86,0,15")));
}

TEST(HarmfulFiles, APriceOfMoreDecimalsThanTheSecurityHasIsToldOf)
{
    EXPECT_EQ("", foundInAitwap(aitwap("100,1,9.860,0,15")));
    EXPECT_EQ("price.rounded F2\n", foundInAitwap(aitwap("100,1,9.8666,0,15")));
    const Finding rounded = findings("AITWAP"_s, inspect(Head + aitwap("100,1,9.8666,0,15"))).first();
    EXPECT_EQ(Severity::Notice, rounded.fault.severity);
    EXPECT_EQ(QStringList{"9.87"_s}, rounded.suggestions);
}

TEST(HarmfulFiles, ARateOfAnotherUnitAndAnAmountInTenThousandsAreAskedFor)
{
    const auto repo = [](const char* rate) {
        return found("AINHG",
                     QByteArray("证券代码,市场,委托数量,交易方向,委托限价\n204001,SH,1000,2,") + rate + "\n");
    };
    EXPECT_EQ("", repo("1.785"));
    EXPECT_EQ("", repo("12"));
    EXPECT_EQ("price.rate E2\n", repo("178.5"));
    EXPECT_EQ("price.rate E2\n", repo("0.01785"));
    EXPECT_EQ("number.invalid.price E2\n", repo("1.785%"));
    const auto amount = [](const char* strategy, const char* cell) {
        return found(strategy, QByteArray("证券代码,市场,委托金额\n600036,SH,") + cell + "\n");
    };
    EXPECT_EQ("", amount("AITWAP7", "250000"));
    EXPECT_EQ("", amount("AITWAP7", "10000"));
    EXPECT_EQ("amount.small C2\n", amount("AITWAP7", "9999"));
    EXPECT_EQ("amount.small C2\n", amount("AITWAP7", "25"));
    EXPECT_EQ("amount.small C2\n", amount("PursueHighLimit", "10.5"));
}

/// A plausible number, read again, is a number, and the same.
TEST(HarmfulFiles, APlausibleNumberIsAlwaysANumberAndTheSame)
{
    std::mt19937 random(12);
    const QStringList parts = {"1"_s,  "2"_s,  "0"_s, "."_s, ","_s, "("_s,  ")"_s,  "-"_s,
                               "万"_s, "股"_s, "¥"_s, " "_s, "%"_s, "１"_s, "亿"_s, "x"_s};
    int numbers = 0;
    for (int i = 0; i < 20000; ++i) {
        QString text;
        for (unsigned n = 1 + random() % 8; n > 0; --n) {
            text += parts.at(int(random() % unsigned(parts.size())));
        }
        const QString meant = table_lint::plausibleNumber(text, NumberKind::Free);
        if (!meant.isEmpty()) {
            bool isNumber = false;
            meant.toDouble(&isNumber);
            EXPECT_TRUE(isNumber) << text.toStdString();
            EXPECT_EQ(meant, table_lint::plausibleNumber(meant, NumberKind::Free)) << text.toStdString();
            ++numbers;
        }
    }
    EXPECT_GT(numbers, 500);
}

/// Every quantity of a security with a lot is either a multiple that reaches the least, or found.
TEST(HarmfulFiles, LotsAreHeldAtEveryBoundary)
{
    table_lint::KnownSecurity stock;
    stock.leastQuantity = stock.quantityStep = 100;
    stock.hasOddLots = true;
    table_lint::KnownSecurity star = stock;
    star.leastQuantity = 200;
    star.quantityStep = 1;
    for (int quantity = 1; quantity <= 1000; ++quantity) {
        const QString text = QString::number(quantity);
        EXPECT_EQ(quantity % 100 != 0, faultOfLot(text, stock, false).has_value()) << quantity;
        EXPECT_EQ(quantity < 200, faultOfLot(text, star, false).has_value()) << quantity;
        const auto sold = faultOfLot(text, stock, true);
        EXPECT_TRUE(!sold || sold->rule == table::rule::OddLotSold) << quantity;
    }
    EXPECT_EQ("100"_s, faultOfLot("150"_s, stock, false)->meant);
    stock.hasOddLots = false;
    EXPECT_EQ(table::rule::NoWholeLot, faultOfLot("150"_s, stock, true)->rule);
}

TEST(HarmfulFiles, AnOddLotIsAskedForWhereItIsBought)
{
    EXPECT_EQ("quantity.lot D2\n", foundInAitwap(aitwap("150,1,9.86,0,15")));
    EXPECT_EQ("quantity.odd D2\n", foundInAitwap(aitwap("150,2,9.86,0,15")));
    EXPECT_EQ("quantity.lot C2\n", found("AINHG", "证券代码,市场,委托数量,交易方向\n204001,SH,150,2\n"));
}

TEST(HarmfulFiles, ANameOfAnotherSecurityIsAskedFor)
{
    EXPECT_EQ("name.differs B2\n", foundInAitwap(aitwap("100,1,9.86,0,15", "600000,示例机场,SH")));
    for (const char* name : {"示例银行", "XD示例银", "示 例 银 行", "示例银行Ａ", "SPD Bank", ""}) {
        EXPECT_EQ("", foundInAitwap(aitwap("100,1,9.86,0,15", QByteArray("600000,") + name + ",SH"))) << name;
    }
}

TEST(HarmfulFiles, ADirectionThatTheStrategyDoesNotHaveIsAnError)
{
    EXPECT_EQ("choice.lost D2\n", found("G-TWAP", "证券代码,市场,委托数量,交易方向\nIF2612,CFE,2,1\n"));
    EXPECT_EQ("", found("G-TWAP", "证券代码,市场,委托数量,交易方向\nIF2612,CFE,2,3\n"));
    EXPECT_EQ("choice.lost E2\n", foundInAitwap(aitwap("100,3,9.86,0,15")));
    EXPECT_EQ("choice.lost D2\n", found("AILOCK", "证券代码,市场,委托数量,交易方向\n600000,SH,100,1/4\n"));
}

// ---- the header

TEST(HarmfulFiles, AColumnTwiceAnAliasBesideItAndANameOfOtherSystems)
{
    const QByteArray start = "证券代码,市场,委托数量,交易方向,";
    EXPECT_EQ("title.repeated E1\n", found("AITWAP", start + "委托数量\n"));
    EXPECT_EQ("title.second E1\n", found("AITWAP", start + "数量\n"));
    for (const char* title : {"委托价格", "价格", "限价(元)", "委托限价（元）", "指令价格", "Price"}) {
        EXPECT_EQ("title.near E1\n", found("AITWAP", start + title + "\n")) << title;
        EXPECT_EQ("title.near E1\n", found("AIVWAP", start + title + "\n")) << title;
        EXPECT_EQ("title.second F1\n", found("AITWAP", start + "委托限价," + title + "\n")) << title;
    }
    EXPECT_EQ("title.near E1\n", found("AITWAP", start + "市场占比(%)\n"));
    EXPECT_EQ("title.near A1\n", found("AITWAP", "股票代码,市场\n"));
}

/// What else a person may call a limit: any title with the word, but for those that only tell.
TEST(HarmfulFiles, ATitleThatIsAboutAMissingColumnIsAnErrorWhereTheColumnIsFilled)
{
    const QByteArray start = "证券代码,市场,委托数量,交易方向,";
    for (const char* title : {"指定价格", "最高限价", "目标价", "保护价", "买入价上限", "单价"}) {
        EXPECT_EQ("title.near E1\n", found("AITWAP", start + title + "\n600000,SH,100,1,9.86\n")) << title;
    }
    for (const char* title : {"最新价", "昨收价", "持仓成本价", "涨停价", "价值评级", "持仓数量", "组合"}) {
        EXPECT_EQ("title.unknown E1\n", found("AITWAP", start + title + "\n600000,SH,100,1,9.86\n")) << title;
    }
    EXPECT_EQ("title.near E1\n", found("AITWAP", start + "执行风格\n600000,SH,100,1,aggressive\n"));
    EXPECT_EQ("title.near E1\n", found("AITWAP", start + "市占率\n600000,SH,100,1,15\n"));
}

TEST(HarmfulFiles, AColumnOfAnOrderThatTheStrategyHasNotOrThatLostItsTitleIsAskedFor)
{
    EXPECT_EQ("title.ignored E1\n",
              found("AITWAP", "证券代码,市场,委托数量,交易方向,委托金额\n600000,SH,100,1,25000\n"));
    EXPECT_EQ("title.ignored E1\n",
              found("PursueHighLimit", "证券代码,市场,委托金额,交易方向,限价\n600276,SH,100000,1,9.86\n"));
    EXPECT_EQ("title.unknown E1\n",
              found("AITWAP", "证券代码,市场,委托数量,交易方向,委托金额\n600000,SH,100,1,\n"));
    EXPECT_EQ("title.empty E1\n",
              found("AITWAP", "证券代码,市场,委托数量,交易方向,\n600000,SH,100,1,9.86\n"));
    EXPECT_EQ("title.empty E1\n", found("AITWAP", "证券代码,市场,委托数量,交易方向\n600000,SH,100,1,9.86\n"));
    EXPECT_EQ("", found("AITWAP", "证券代码,市场,委托数量,交易方向,\n600000,SH,100,1,加急\n"));
}

TEST(HarmfulFiles, AFileOfAnotherStrategyNamesIt)
{
    const QByteArray rows = Head + aitwap("100,1,9.86,0,15");
    EXPECT_EQ("", found("AITWAP", rows));
    const QList<Finding> inTwap = findings("TWAP"_s, inspect(rows));
    bool isTold = false;
    for (const Finding& finding : inTwap) {
        if (finding.fault.rule == table::rule::OtherStrategy) {
            isTold = true;
            EXPECT_TRUE(finding.suggestions.contains("AITWAP 智能TWAP"_s));
            EXPECT_EQ("最大市场占比、风格参数、单笔最小委托金额"_s, finding.fault.cell);
        }
    }
    EXPECT_TRUE(isTold);
    EXPECT_EQ("title.strategy A1\n", found("AITWAPPLUS", rows)) << "a column of its own is filled in";
}

// ---- rows

TEST(HarmfulFiles, RowsThatAreNoOrdersOrLostTheirCode)
{
    const QByteArray good = aitwap("100,1,9.86,0,15");
    EXPECT_EQ("row.code 3\n", foundInAitwap(good + aitwap("200,1,9.86,0,15", ",,SH")));
    for (const char* row : {",,SH,,1,9.86,,,,,,,\n", ",,,200,1,,,,,,,,\n", ",,SZ,200,,,,,,,,,\n",
                            ",,上海,3万,,9.86元,,,,,,,\n"}) {
        EXPECT_EQ("row.code 3\n", foundInAitwap(good + row)) << row;
    }
    EXPECT_EQ(Severity::Error,
              findings("AITWAP"_s, inspect(Head + aitwap("200,1,9.86,0,15", ",,SH"))).first().fault.severity);
    EXPECT_EQ("", foundInAitwap(good + ",,制表：张三,2026年11月,,,,,,,,,\n"));
    EXPECT_EQ("", foundInAitwap(good + ",,备注：市场必填,,,,,,,,,,\n"));
    EXPECT_EQ("row.header 3\n", foundInAitwap(good + Head));
    EXPECT_EQ("row.total 3\n", foundInAitwap(good + "合计,,,100,,,,,,,,,\n"));
    EXPECT_EQ("row.total 3\n", foundInAitwap(good + ",,合 计：,100,1,,,,,,,,\n"));
    EXPECT_EQ("row.repeated 3\n", foundInAitwap(good + aitwap("100.0,1,9.860,0,20")));
    EXPECT_EQ("row.repeated 3\n", foundInAitwap(good + aitwap("100,1,9.86,0,15", " 600000,,上海")));
    EXPECT_EQ("", foundInAitwap(good + aitwap("200,1,9.86,0,15") + aitwap("100,2,9.86,0,15")));
}

// ---- spreadsheets

TEST(HarmfulFiles, ACellThatShowsAnotherNumberThanIsTaken)
{
    Sheet sheet;
    sheet.book.numberFormats = "<numFmt numFmtId=\"170\" formatCode=\"0&quot;手&quot;\"/><numFmt "
                               "numFmtId=\"171\" formatCode=\"0.000%\"/>";
    sheet.book.cellStyles =
        "<xf numFmtId=\"0\"/><xf numFmtId=\"9\"/><xf numFmtId=\"1\"/><xf numFmtId=\"170\"/>"
        "<xf numFmtId=\"2\"/><xf numFmtId=\"171\"/>";
    const auto order = [&](const QByteArray& quantity, const QByteArray& limit, const QByteArray& share) {
        return found("AITWAP"_s, sheet.read(Sheet::order(quantity, limit, share)));
    };
    EXPECT_EQ("number.shown G2\nshare.small G2\n",
              order(Sheet::number("100"), Sheet::number("9.86"), Sheet::number("0.15", 1)));
    EXPECT_EQ("number.shown C2\nnumber.fraction C2\n",
              order(Sheet::number("2499.6", 2), Sheet::number("9.86"), Sheet::number("15")).substr(0, 35));
    EXPECT_EQ("number.shown C2\n",
              order(Sheet::number("100", 3), Sheet::number("9.86"), Sheet::number("15")));
    EXPECT_EQ("number.shown F2\n",
              order(Sheet::number("100"), Sheet::number("0.01785", 5), Sheet::number("15")));
    EXPECT_EQ("", order(Sheet::number("100", 2), Sheet::number("9.8649", 4), Sheet::number("15")))
        << "the import rounds a price as the cell does";
}

TEST(HarmfulFiles, AFormulaWithoutAResultIsAnErrorWhereverItStands)
{
    Sheet sheet;
    const QByteArray formula = "<c><f>A1*2</f></c>";
    EXPECT_EQ(
        "formula.uncalculated F2\n",
        found("AITWAP"_s, sheet.read(Sheet::order(Sheet::number("100"), formula, Sheet::number("15")))));
    EXPECT_EQ(
        "formula.uncalculated G2\n",
        found("AITWAP"_s, sheet.read(Sheet::order(Sheet::number("100"), Sheet::number("9.86"), formula))));
}

/// A row that looks like a note, or like none, since nothing in it was ever calculated.
TEST(HarmfulFiles, AFormulaWithoutAResultIsToldThoughTheRowIsPassedOver)
{
    Sheet sheet;
    const QByteArray formula = "<c><f>A1*2</f></c>";
    const QByteArray good = Sheet::order(Sheet::number("100"), Sheet::number("9.86"), Sheet::number("15"));
    const QByteArray lost = Sheet::row({formula, formula, Sheet::number("200"), Sheet::text("1")});
    EXPECT_EQ("formula.uncalculated A3\nformula.uncalculated B3\nrow.code 3\n",
              found("AITWAP"_s, sheet.read(good + lost)));
    EXPECT_EQ("formula.uncalculated A3\n", found("AITWAP"_s, sheet.read(good + Sheet::row({formula}))));
}

TEST(HarmfulFiles, CellsBelowAMergedOneAreEmpty)
{
    Sheet sheet;
    const QByteArray empty = "<c/>";
    const QByteArray two = Sheet::order(Sheet::number("100"), Sheet::number("9.86"), Sheet::number("15"));
    for (const char* area : {"F2:F3", "F2:F9"}) {
        sheet.book.behindData = QByteArray("<mergeCells><mergeCell ref=\"") + area + "\"/></mergeCells>";
        EXPECT_EQ("merged.empty F3\n",
                  found("AITWAP"_s,
                        sheet.read(two + Sheet::order(Sheet::number("200"), empty, Sheet::number("15")))));
    }
    sheet.book.behindData = "<mergeCells><mergeCell ref=\"G2:G3\"/></mergeCells>";
    EXPECT_EQ("merged.empty G3\n",
              found("AITWAP"_s,
                    sheet.read(two + Sheet::order(Sheet::number("200"), Sheet::number("9.86"), empty))));
    sheet.book.behindData = "<mergeCells><mergeCell ref=\"C2:C3\"/></mergeCells>";
    EXPECT_EQ(
        "merged.empty C3\n",
        found("AITWAP"_s, sheet.read(two + Sheet::order(empty, Sheet::number("9.87"), Sheet::number("15")))));
}

/// 证券代码 and 市场 stand first here, so that a code merged over two orders leaves a row that looks like a
/// note.
TEST(HarmfulFiles, ACodeMergedOverTwoOrdersIsToldWithItsLine)
{
    Sheet sheet;
    sheet.book.behindData = "<mergeCells><mergeCell ref=\"A2:A3\"/><mergeCell ref=\"B2:B3\"/></mergeCells>";
    const QByteArray second =
        Sheet::row({"<c/>", "<c/>", Sheet::number("200"), Sheet::text("1"), Sheet::text("0"),
                    Sheet::number("9.9"), Sheet::number("15"), Sheet::text("0")});
    EXPECT_EQ("row.code 3\n",
              found("AITWAP"_s, sheet.read(Sheet::order(Sheet::number("100"), Sheet::number("9.86"),
                                                        Sheet::number("15")) +
                                           second)));
}

TEST(HarmfulFiles, HiddenAndStruckRowsAreTold)
{
    table::Table table = inspect(Head + aitwap("100,1,9.86,0,15") + aitwap("200,1,9.86,0,15"));
    table.inspection.struckRows = {1};
    table.inspection.hiddenRows = {2};
    EXPECT_EQ("row.struck 2\nrow.hidden 3\n", found("AITWAP"_s, table));
}

/// One whose content counts; of any other nobody need know.
TEST(HarmfulFiles, AHiddenColumnIsTold)
{
    table::Table table = inspect(Head + aitwap("100,1,9.86,0,15"));
    table.inspection.hiddenColumns = {5, 50};
    EXPECT_EQ("title.hidden F1\n", found("AITWAP"_s, table));
    table.rows[1][5].clear();
    EXPECT_EQ("", found("AITWAP"_s, table)) << "nothing stands in it";
}

/// The titles of such a file are not known again, which is no reason to be silent.
TEST(HarmfulFiles, ACodePageThatNobodyKnowsIsAnErrorThatNamesIt)
{
    table::Table table = inspect("Ö¤È¯´úÂë,ÊÐ³¡\n600000,SH\n");
    table.inspection.unknownCodePage = 65111;
    const table::Fault fault = findings("AITWAP"_s, table).first().fault;
    EXPECT_EQ(table::rule::UnknownCodePage, fault.rule);
    EXPECT_EQ(Severity::Error, fault.severity);
    EXPECT_TRUE(table::sentence(fault).contains("65111"_s));
}

TEST(HarmfulFiles, AnotherSheetIsToldByName)
{
    table::Table table = inspect(Head + aitwap("100,1,9.86,0,15"));
    const QStringList head = table.rows.first();
    table.sheet = "旧"_s;
    table.sheets = {{"旧"_s, true, false, true, head}, {"新"_s, true, true, false, head}};
    EXPECT_EQ("sheet.active\n", found("AITWAP"_s, table));
    EXPECT_EQ("打开文件时显示的工作表是“新”，导入读取的却是“旧”",
              table::sentence(findings("AITWAP"_s, table).first().fault).toStdString());
    table::Table blank;
    blank.sheets = table.sheets;
    EXPECT_EQ(Severity::Notice, findings("AITWAP"_s, blank).first().fault.severity)
        << "the import takes nothing, and says so";
    table.sheets = {{"旧"_s, true, true, true, head}, {"新"_s, true, false, false, head}};
    EXPECT_EQ("sheet.other\n", found("AITWAP"_s, table));
    table.sheets[1].head = QStringList{"说明"_s};
    EXPECT_EQ("", found("AITWAP"_s, table));
    table.sheets[1] = {"新"_s, false, false, false, head};
    EXPECT_EQ("", found("AITWAP"_s, table)) << "hidden";
}
