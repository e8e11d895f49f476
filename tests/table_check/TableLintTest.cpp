#include "embedded_host/table_check/TableLint.h"

#include "embedded_host/table_check/TitleLint.h"
#include "table/CheckRules.h"
#include "table/FaultCatalogue.h"
#include "tests/table_reader/Reading.h"
#include "tests/table_reader/Samples.h"

using namespace table_lint;
using samples::Xlsx;

namespace {

Expectation expectation()
{
    Expectation expected;
    expected.titles =
        QStringList{QStringLiteral("证券代码"), QStringLiteral("市场"), QStringLiteral("委托数量")};
    expected.aliases = {{QStringLiteral("代码"), QStringLiteral("证券代码")}};
    expected.codeTitle = QStringLiteral("证券代码");
    expected.securities = [](const QString& code) {
        return code == QLatin1String("000001")
                   ? QStringList{QStringLiteral("000001.SZ"), QStringLiteral("000001.SH")}
               : code == QLatin1String("00001") ? QStringList{QStringLiteral("00001.HK")}
               : code == QLatin1String("700")   ? QStringList{QStringLiteral("700.X")}
                                                : QStringList();
    };
    return expected;
}

/// "code address raw" of each finding, a line each.
std::string found(const table::Table& table)
{
    std::string text;
    for (const Finding& finding : lint(table, expectation())) {
        text += table::rule::codeOf(finding.fault.rule).toStdString() + " " + finding.address.toStdString() +
                " " + finding.fault.cell.toStdString() + "\n";
    }
    return text;
}

std::string found(const QByteArray& bytes)
{
    return found(inspect(bytes));
}

} // namespace

TEST(TableLint, FindsNothingInACleanTable)
{
    EXPECT_EQ("", found("证券代码,市场,委托数量\n600000,上海,100\n000001,深圳,-0.5\n"));
    EXPECT_EQ("", found("代码,市场\n600000,\n"));
    EXPECT_EQ("", found(""));
}

TEST(TableLint, FindsTitlesUnknownNearlyRightAndRepeated)
{
    EXPECT_EQ("title.near A1 证券代號\ntitle.unknown B1 备注\ntitle.repeated D1 市场\n",
              found("证券代號,备注,市场,市场,\n"));
    const Finding near = lint(inspect("证券 代码,市场,委托数量\n"), expectation()).first();
    EXPECT_EQ(QStringList{QStringLiteral("证券代码")}, near.suggestions);
    EXPECT_EQ("表头“证券 代码”不是该策略的列，是否应为“证券代码”", table::sentence(near.fault).toStdString());
    EXPECT_EQ(table::Severity::Error, near.fault.severity);
    EXPECT_EQ(table::Severity::Notice, lint(inspect("证券 代码,x\n"), expectation()).first().fault.severity)
        << "a table of something else";
}

TEST(TableLint, FindsCodesThatLostTheirZeros)
{
    EXPECT_EQ("code.zeros A2 1\n", found("代码\n1\n000001\n700\n2\n1x\n600000\n"));
    const Finding lost = lint(inspect("代码\n1\n"), expectation()).first();
    EXPECT_EQ(
        (QStringList{QStringLiteral("00001.HK"), QStringLiteral("000001.SZ"), QStringLiteral("000001.SH")}),
        lost.suggestions);
    EXPECT_EQ("证券代码“1”可能丢失了前面的零，可能是：00001.HK，000001.SZ，000001.SH",
              table::sentence(lost.fault).toStdString());
    EXPECT_EQ(2, lost.fault.line);
}

TEST(TableLint, FindsNumbersInExponentFormOrWithTooManyDigits)
{
    EXPECT_EQ(
        "number.exponent B2 6E+05\nnumber.digits C2 1234567890123456\n",
        found("证券代码,市场,委托数量\nx,6E+05,1234567890123456\nx,0000000000000000012,123456789012345\n"));
    EXPECT_EQ("number.digits A2 -0.1234567890123456\n",
              found("证券代码\n-0.1234567890123456\n1.2.34567890123456789\n"));
}

TEST(TableLint, FindsBlanksThatCannotBeSeenAndFullWidthDigits)
{
    EXPECT_EQ(
        "blank.invisible A2 a\xC2\xA0\nblank.invisible A3 \xE3\x80\x80 b\nblank.invisible A4 c\xE2\x80\x8B\n"
        "digit.fullwidth A5 １００\n",
        found("证券代码\na\xC2\xA0\n\xE3\x80\x80 b\nc\xE2\x80\x8B\n１００\nplain x\n"));
}

TEST(TableLint, FindsValuesUnderMergedCellsAndInHiddenRows)
{
    Xlsx sample;
    sample.sheetData =
        "<row><c t=\"str\"><v>市场</v></c></row><row hidden=\"1\"><c><v>1</v></c><c><v>2</v></c></row>"
        "<row hidden=\"1\"/>";
    sample.behindData = "<mergeCells><mergeCell ref=\"A2:B2\"/></mergeCells>";
    const table::Table table = inspect(sample.file());
    EXPECT_EQ("title.empty B1 B\nrow.hidden 2 \nmerged.hidden B2 2\n", found(table));
    EXPECT_EQ(2, lint(table, expectation()).last().fault.line);
}

TEST(TableLint, TellsTheLineOfTheFileAndWhatCouldNotBeDecoded)
{
    EXPECT_EQ(4, lint(inspect("市场\n\"a\nb\"\n１\n"), expectation()).first().fault.line);
    EXPECT_EQ("text.replaced  1\n", found("市场\n甲,乙,\xFF,丙\n"));
}

TEST(TableLint, StopsAtAThousandFindings)
{
    EXPECT_EQ(MaxFindings,
              lint(inspect("市场\n" + QByteArray("１,１,\n").repeated(900)), expectation()).size());
}

TEST(TableLint, StopsAtAThousandFindingsOfTitlesToo)
{
    const QList<Finding> findings = lint(inspect(QByteArray("x,").repeated(3000)), expectation());
    EXPECT_EQ(1 + MaxFindings, findings.size()) << "of one rule; the first is another one";
}

TEST(TableLint, FindsValuesUnderAnyOfTheMergedAreasOverARow)
{
    table::Table table;
    table.rows = {{QStringLiteral("市场"), QStringLiteral("a"), QStringLiteral("b")},
                  {QStringLiteral("1"), QStringLiteral("2"), QStringLiteral("3")}};
    table.inspection.mergedAreas = {QRect(0, 0, 1, 2), QRect(2, 0, 9, 1), QRect(1, 1, 1, 1),
                                    QRect(2, 1, 5, 5)};
    EXPECT_EQ("title.unknown B1 a\ntitle.unknown C1 b\nmerged.hidden A2 1\n", found(table));
}

TEST(NearestTitle, ToleratesAThirdOfTheCharacters)
{
    const QStringList known = {QStringLiteral("委托数量"), QStringLiteral("委托金额"),
                               QStringLiteral("市场")};
    const auto nearest = [&](const char* title) {
        return nearestTitle(QString::fromUtf8(title), known).toStdString();
    };
    EXPECT_EQ("委托数量", nearest("委托数"));
    EXPECT_EQ("委托金额", nearest("委托　金额*"));
    EXPECT_EQ("市场", nearest("市場"));
    EXPECT_EQ("", nearest("交易账号"));
    EXPECT_EQ("", nearest("备注"));
    EXPECT_EQ("", nearest("x"));
}

TEST(TableLint, KnowsAnAliasInBothDirectionsAndTheColumnOfReasons)
{
    Expectation expected = expectation();
    expected.titles = QStringList{QStringLiteral("代码"), QStringLiteral("限价")};
    expected.aliases.insert(QStringLiteral("限价"), QStringLiteral("委托限价"));
    EXPECT_TRUE(lint(inspect("证券代码,委托限价,错误原因\n"), expected).isEmpty());
    EXPECT_EQ(lint(inspect("方向盘\n"), expected).size(), 1);
}

namespace {

/// Findings in one column of numbers, as "code raw", a line each.
std::string foundInNumbers(NumberKind kind, const QByteArray& cells, bool paired = false)
{
    Expectation expected;
    expected.numbers = {{QStringLiteral("数"), kind}};
    expected.pairedPrices = paired;
    std::string text;
    for (const Finding& finding : lint(inspect("代码,市场,数\n" + cells), expected)) {
        if (finding.fault.rule.startsWith(QLatin1String("number."))) {
            text += table::rule::codeOf(finding.fault.rule).toStdString() + " " +
                    finding.fault.cell.toStdString() + "\n";
        }
    }
    return text;
}

} // namespace

TEST(TableLint, FindsWhatTheImportTakesForNothing)
{
    EXPECT_EQ("number.invalid 1,000\nnumber.invalid １０００\nnumber.invalid 1000股\nnumber.invalid  \n",
              foundInNumbers(NumberKind::Whole,
                             "x,y,\"1,000\"\nx,y,１０００\nx,y,1000股\nx,y, \nx,y,\nx,y,1000\n"));
    EXPECT_EQ("number.invalid 5万\n", foundInNumbers(NumberKind::Amount, "x,y,5万\nx,y,5000.55\n"));
    EXPECT_EQ("number.invalid 9.86元\n", foundInNumbers(NumberKind::Price, "x,y,9.86元\nx,y,9.86\n"));
}

TEST(TableLint, SaysWhatBecomesOfACellThatIsNoNumber)
{
    Expectation expected;
    expected.numbers = {{QStringLiteral("数量"), NumberKind::Whole},
                        {QStringLiteral("限价"), NumberKind::Price}};
    const QList<Finding> findings = lint(inspect("限价,数量\n9.86元,1000股\n"), expected);
    ASSERT_EQ(2, findings.size());
    EXPECT_EQ("“9.86元”不是数字，将按0处理，即不限价", table::sentence(findings.first().fault).toStdString());
    EXPECT_EQ("“1000股”不是数字，将按0处理", table::sentence(findings.last().fault).toStdString());
    EXPECT_EQ(table::Severity::Error, findings.first().fault.severity);
}

TEST(TableLint, FindsNumbersThatTheImportChanges)
{
    EXPECT_EQ(
        "number.fraction 12.7\nnumber.negative -300\nnumber.range 30000000000\nnumber.range nan\n",
        foundInNumbers(NumberKind::Whole,
                       "x,y,12.7\nx,y,-300\nx,y,30000000000\nx,y,nan\nx,y,99.9999995\nx,y,2147483647\n"));
    EXPECT_EQ("number.range inf\n", foundInNumbers(NumberKind::Price, "x,y,inf\nx,y,30000000000.5\n"));
}

TEST(TableLint, ReadsEachPriceOfAPairWhereThereArePairs)
{
    EXPECT_EQ("number.invalid b\n", foundInNumbers(NumberKind::Price, "x,y,9.8/9.9\nx,y,9.8/b\n", true));
    EXPECT_EQ("number.invalid 9.8/9.9\n", foundInNumbers(NumberKind::Price, "x,y,9.8/9.9\n"));
    EXPECT_EQ("number.invalid 1/2\n", foundInNumbers(NumberKind::Whole, "x,y,1/2\n", true));
}

TEST(TableLint, LeavesNotesAndForeignColumnsAlone)
{
    EXPECT_EQ("", foundInNumbers(NumberKind::Whole, ",,整数\n , ,整数\n"));
    Expectation expected;
    expected.titles = QStringList{QStringLiteral("市场")};
    expected.numbers = {{QStringLiteral("数量"), NumberKind::Whole}};
    EXPECT_EQ("title.ignored", lint(inspect("数量\nabc\n"), expected).first().fault.rule.toStdString());
    EXPECT_EQ(1, lint(inspect("数量\nabc\n"), expected).size());
}
