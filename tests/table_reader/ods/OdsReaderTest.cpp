#include "tests/table_reader/Reading.h"
#include "tests/table_reader/Samples.h"

using samples::ods;
using table::Table;

namespace {

QByteArray sheet(const QByteArray& rows, const QByteArray& attributes = QByteArray())
{
    return "<table:table table:name=\"委托\" " + attributes + ">" + rows + "</table:table>";
}

std::string rows(const QByteArray& content)
{
    return shown(ods(sheet(content)));
}

std::string cells(const QByteArray& content)
{
    return rows("<table:table-row>" + content + "</table:table-row>");
}

QByteArray value(const char* type, const QByteArray& attributes, const QByteArray& text = QByteArray())
{
    return QByteArray("<table:table-cell office:value-type=\"") + type + "\" " + attributes + ">" + text +
           "</table:table-cell>";
}

std::string paragraph(const QByteArray& content)
{
    return cells(value("string", "", "<text:p>" + content + "</text:p>"));
}

} // namespace

TEST(OdsCells, AreReadByTheirTypes)
{
    EXPECT_EQ("600000|0.5|12.5|TRUE|FALSE|2021-01-01T00:00:00.000|2021-01-01T10:10:10.000|10:10:10|x\n",
              cells(value("float", "office:value=\"600000\"", "<text:p>600,000</text:p>") +
                    value("percentage", "office:value=\"0.5\"") +
                    value("currency", "office:value=\"1.25E1\"") +
                    value("boolean", "office:boolean-value=\"true\"") +
                    value("boolean", "office:boolean-value=\"false\"") +
                    value("date", "office:date-value=\"2021-01-01\"") +
                    value("date", "office:date-value=\"2021-01-01T10:10:10\"") +
                    value("time", "office:time-value=\"PT10H10M10S\"") +
                    value("string", "office:string-value=\"x\"", "<text:p>shown</text:p>")));
}

TEST(OdsCells, ShowTheTextOfAnError)
{
    EXPECT_EQ("#N/A\n", cells(value("string", "office:string-value=\"\" calcext:value-type=\"error\"",
                                    "<text:p>#N/A</text:p>")));
}

TEST(OdsCells, ShowTheTextOfAnErrorThatIsStoredAsANumber)
{
    EXPECT_EQ("#DIV/0!|Err:502|5\n", cells(value("float", "office:value=\"0\"", "<text:p>#DIV/0!</text:p>") +
                                           value("float", "office:value=\"0\"", "<text:p>Err:502</text:p>") +
                                           value("float", "office:value=\"5\"", "<text:p>#5</text:p>")));
}

TEST(OdsCells, ShowTheirParagraphsWhereTheStoredTextIsEmpty)
{
    EXPECT_EQ("#N/A\n", cells(value("string", "office:string-value=\"\"", "<text:p>#N/A</text:p>")));
}

TEST(OdsCells, KeepTimesBelowADayBelowIt)
{
    EXPECT_EQ("23:59:59|24:00:00\n", cells(value("time", "office:time-value=\"PT23H59M59.9999S\"") +
                                           value("time", "office:time-value=\"PT24H\"")));
}

TEST(OdsCells, KeepTimesBeyondADay)
{
    EXPECT_EQ("26:00:30|25:00:00\n", cells(value("time", "office:time-value=\"PT26H00M30.000S\"") +
                                           value("time", "office:time-value=\"P1DT1H\"")));
}

TEST(OdsTexts, KeepCountedBlanksTabsLineBreaksAndSpans)
{
    EXPECT_EQ(" a   b\tc\nd e\n", paragraph("<text:s/>a<text:s text:c=\"3\"/>b<text:tab/>c<text:line-break/>"
                                            "<text:span>d<text:a> e</text:a></text:span>"));
}

TEST(OdsTexts, RunBlanksOfTheFileTogether)
{
    EXPECT_EQ("a b\n", paragraph("\n   a \n\t b"));
}

TEST(OdsTexts, AreJoinedFromParagraphsWithoutRemarks)
{
    EXPECT_EQ("a\nb\n", cells(value("string", "",
                                    "<office:annotation><text:p>remark</text:p></office:annotation>"
                                    "<text:p>a</text:p><text:p>b</text:p>"
                                    "<draw:frame><text:p>drawn</text:p></draw:frame>")));
}

TEST(OdsRepetition, IsWrittenOut)
{
    const QByteArray x = "<table:table-cell table:number-columns-repeated=\"2\" office:value-type=\"string\">"
                         "<text:p>x</text:p></table:table-cell>";
    EXPECT_EQ("||x|x\n||x|x\n",
              rows("<table:table-row table:number-rows-repeated=\"2\"><table:table-cell "
                   "table:number-columns-repeated=\"2\"/>" +
                   x +
                   "<table:table-cell "
                   "table:number-columns-repeated=\"16000\"/></table:table-row><table:table-row "
                   "table:number-rows-repeated=\"1048000\"><table:table-cell "
                   "table:number-columns-repeated=\"16384\"/></table:table-row>"));
}

TEST(OdsRepetition, StopsBehindTheRowsWanted)
{
    const Table read = tableOf(ods(sheet("<table:table-row table:number-rows-repeated=\"1048576\">" +
                                         value("float", "office:value=\"1\"") + "</table:table-row>")));
    EXPECT_EQ(1002, read.rows.size());
}

TEST(OdsRepetition, BeyondTheColumnsOfASheetIsRefused)
{
    EXPECT_EQ(
        "! 文件超出读取限制：第1行超过16384列",
        cells("<table:table-cell table:number-columns-repeated=\"99999999\" office:value-type=\"string\">"
              "<text:p>x</text:p></table:table-cell>"));
}

TEST(OdsRows, MayStandInGroupsAndHeaders)
{
    const QByteArray row =
        "<table:table-row>" + value("string", "", "<text:p>r</text:p>") + "</table:table-row>";
    EXPECT_EQ("r\nr\nr\n", rows("<table:table-header-rows>" + row +
                                "</table:table-header-rows><table:table-row-group>"
                                "<table:table-row-group>" +
                                row + "</table:table-row-group></table:table-row-group>" + row));
}

TEST(OdsSheets, AreTheFirstThatCanBeSeen)
{
    const QByteArray hidden = "<style:style style:name=\"h\" style:family=\"table\"><style:table-properties "
                              "table:display=\"false\"/></style:style>";
    const QByteArray row =
        "<table:table-row>" + value("string", "", "<text:p>second</text:p>") + "</table:table-row>";
    const QByteArray first = sheet("<table:table-row/>", "table:style-name=\"h\"");
    EXPECT_EQ("second\n", shown(ods(first + sheet(row), hidden)));
    const Table all = tableOf(ods(sheet(row, "table:style-name=\"h\""), hidden));
    EXPECT_EQ("second\n", shown(all));
    EXPECT_EQ("委托", all.sheet.toStdString());
    EXPECT_EQ("ods", all.format.toStdString());
}

TEST(OdsSheets, ThatAreNoneAreAnError)
{
    EXPECT_EQ("! 文件中没有工作表", shown(ods("")));
}

TEST(OdsInspection, TellsHiddenRowsMergedAreasAndStoredNumbers)
{
    const Table read = inspect(
        ods(sheet("<table:table-row table:visibility=\"filter\">" + value("float", "office:value=\"1e2\"") +
                  "<table:table-cell table:number-columns-spanned=\"2\" table:number-rows-spanned=\"3\"/>"
                  "<table:covered-table-cell/></table:table-row>")));
    EXPECT_EQ(QSet<int>{0}, read.inspection.hiddenRows);
    EXPECT_EQ(QList<QRect>{QRect(1, 0, 2, 3)}, read.inspection.mergedAreas);
    EXPECT_EQ("1e2", (read.inspection.numbers.value({0, 0}).toStdString()));
}

TEST(OdsInspection, TellsMergedAreasNoLongerThanASheet)
{
    const Table read = inspect(
        ods(sheet("<table:table-row><table:table-cell table:number-columns-repeated=\"9\"/><table:table-cell "
                  "table:number-columns-spanned=\"2147483647\" table:number-rows-spanned=\"2147483647\"/>"
                  "</table:table-row>")));
    EXPECT_EQ(QList<QRect>{QRect(9, 0, 1 << 20, 1 << 20)}, read.inspection.mergedAreas);
}
