#include "table/CellAddress.h"
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

TEST(OdsInspection, TellsHiddenColumns)
{
    const Table read = inspect(
        ods(sheet("<table:table-column table:number-columns-repeated=\"2\"/>"
                  "<table:table-column table:visibility=\"collapse\" table:number-columns-repeated=\"2\"/>"
                  "<table:table-column table:visibility=\"visible\"/>"
                  "<table:table-column table:visibility=\"filter\" "
                  "table:number-columns-repeated=\"2147483647\"/>"
                  "<table:table-row>" +
                  value("float", "office:value=\"1\"") + "</table:table-row>")));
    const QSet<int>& hidden = read.inspection.hiddenColumns;
    EXPECT_EQ((QSet<int>{2, 3}), hidden & (QSet<int>{0, 1, 2, 3, 4}));
    EXPECT_EQ(table::SheetColumns - 3, hidden.size()) << "up to the last one that a sheet has";
}

TEST(OdsInspection, TellsMergedAreasNoLongerThanASheet)
{
    const Table read = inspect(
        ods(sheet("<table:table-row><table:table-cell table:number-columns-repeated=\"9\"/><table:table-cell "
                  "table:number-columns-spanned=\"2147483647\" table:number-rows-spanned=\"2147483647\"/>"
                  "</table:table-row>")));
    EXPECT_EQ(QList<QRect>{QRect(9, 0, 1 << 20, 1 << 20)}, read.inspection.mergedAreas);
}

TEST(OdsCells, ShowAMomentStyledAsATimeAloneAsEveryFormatDoes)
{
    const QByteArray styles =
        "<number:time-style style:name=\"N1\"/><number:time-style style:name=\"N2\" "
        "number:truncate-on-overflow=\"false\"/>"
        "<style:style style:name=\"clock\" style:family=\"table-cell\" style:data-style-name=\"N1\"/>"
        "<style:style style:name=\"heir\" style:family=\"table-cell\" style:parent-style-name=\"clock\"/>"
        "<style:style style:name=\"hours\" style:family=\"table-cell\" style:data-style-name=\"N2\"/>";
    const auto cell = [](const char* style, const char* time) {
        return QByteArray("<table:table-cell office:value-type=\"time\" office:time-value=\"") + time +
               "\" " + (style[0] == '\0' ? QByteArray() : QByteArray("table:style-name=\"") + style + "\"") +
               "/>";
    };
    const QByteArray columns =
        "<table:table-columns><table:table-column table:number-columns-repeated=\"5\"/>"
        "<table:table-column table:default-cell-style-name=\"clock\"/></table:table-columns>";
    const QByteArray row = "<table:table-row>" + cell("clock", "PT1112385H35M00S") +
                           cell("heir", "PT1112385H35M00S") + cell("clock", "PT9H30M") +
                           cell("hours", "PT26H") + cell("", "PT26H") + cell("", "PT1112385H35M00S") +
                           "</table:table-row>";
    const QByteArray rowStyle = "<table:table-row table:default-cell-style-name=\"clock\">" +
                                cell("", "PT1112385H35M00S") + "</table:table-row>";
    EXPECT_EQ("2026-11-23T09:35:00.000|2026-11-23T09:35:00.000|09:30:00|26:00:00|26:00:00|"
              "2026-11-23T09:35:00.000\n2026-11-23T09:35:00.000\n",
              shown(ods(sheet(columns + row + rowStyle), styles)));
    const QByteArray plain = cell("", "PT1112385H35M00S") + cell("hours", "PT1112385H35M00S");
    EXPECT_EQ("2026-11-23T09:35:00.000|1112385:35:00\n",
              shown(ods(sheet("<table:table-row>" + plain + "</table:table-row>"), styles)))
        << "no style, and one of elapsed hours";
}

TEST(OdsInspection, TellsCellsThatShowAnotherNumber)
{
    const Table read = inspect(
        ods(sheet("<table:table-row>" + value("percentage", "office:value=\"0.15\"", "<text:p>15%</text:p>") +
                  value("float", "office:value=\"2499.6\"", "<text:p>2,500</text:p>") +
                  value("float", "office:value=\"2500\"", "<text:p>2,500.00</text:p>") +
                  value("currency", "office:value=\"9.86\"", "<text:p>¥9.86</text:p>") +
                  value("float", "office:value=\"10\"", "<text:p>10手</text:p>") + "</table:table-row>")));
    const QHash<table::Cell, QString> expected = {
        {{0, 0}, QStringLiteral("15%")}, {{0, 1}, QStringLiteral("2,500")}, {{0, 4}, QStringLiteral("10手")}};
    EXPECT_EQ(expected, read.inspection.shown);
}

TEST(OdsInspection, TellsFormulasThatWereNeverCalculated)
{
    const QByteArray never = "<table:table-cell table:formula=\"of:=1+1\"/>";
    const QByteArray emptyText = "<table:table-cell table:formula=\"of:=T()\" office:value-type=\"string\"/>";
    const Table read = inspect(ods(sheet("<table:table-row>" + never + emptyText + "</table:table-row>")));
    EXPECT_EQ((QSet<table::Cell>{{0, 0}}), read.inspection.uncalculated);
}

TEST(OdsInspection, TellsRowsOfWhichSeveralCellsAreStruckOut)
{
    const QByteArray styles =
        "<style:style style:name=\"s\" style:family=\"table-cell\"><style:text-properties "
        "style:text-line-through-style=\"solid\"/></style:style>"
        "<style:style style:name=\"none\" style:family=\"table-cell\" style:parent-style-name=\"s\">"
        "<style:text-properties style:text-line-through-style=\"none\"/></style:style>";
    const auto row = [](const char* first, const char* second) {
        const auto cell = [](const char* style) {
            return QByteArray("<table:table-cell office:value-type=\"float\" office:value=\"1\" "
                              "table:style-name=\"") +
                   style + "\"/>";
        };
        return "<table:table-row>" + cell(first) + cell(second) + "</table:table-row>";
    };
    const Table read =
        inspect(ods(sheet(row("s", "s") + row("s", "none") + row("s", "x") + row("s", "s")), styles));
    EXPECT_EQ((QSet<int>{0, 3}), read.inspection.struckRows);
}

TEST(OdsInspection, TellsAllSheetsAndTheFirstRowsOfThoseThatAreSeen)
{
    const QByteArray styles = "<style:style style:name=\"h\" style:family=\"table\"><style:table-properties "
                              "table:display=\"false\"/></style:style>";
    const auto named = [](const QByteArray& name, const QByteArray& text, const QByteArray& attributes = "") {
        return "<table:table table:name=\"" + name + "\" " + attributes +
               "><table:table-row/><table:table-row>" + value("string", "", "<text:p>" + text + "</text:p>") +
               "</table:table-row><table:table-row table:number-rows-repeated=\"1048000\">" +
               value("float", "office:value=\"1\"") + "</table:table-row></table:table>";
    };
    const QByteArray settings =
        "<office:document-settings xmlns:office=\"urn:oasis:names:tc:opendocument:xmlns:office:1.0\" "
        "xmlns:config=\"urn:oasis:names:tc:opendocument:xmlns:config:1.0\"><office:settings>"
        "<config:config-item-set><config:config-item-map-entry><config:config-item "
        "config:name=\"ActiveTable\">third</config:config-item></config:config-item-map-entry>"
        "</config:config-item-set></office:settings></office:document-settings>";
    const Table read = inspect(
        ods(named("first", "x", "table:style-name=\"h\"") + named("second", "代码") + named("third", "市场"),
            styles, QByteArray(), true, {{QStringLiteral("settings.xml"), settings}}));
    ASSERT_EQ(3, read.sheets.size()) << read.error.toStdString();
    EXPECT_FALSE(read.sheets.at(0).visible);
    EXPECT_TRUE(read.sheets.at(0).head.isEmpty());
    EXPECT_TRUE(read.sheets.at(1).read);
    EXPECT_FALSE(read.sheets.at(1).active);
    EXPECT_EQ("代码", read.sheets.at(1).head.first().toStdString());
    EXPECT_TRUE(read.sheets.at(2).active);
    EXPECT_EQ("third", read.sheets.at(2).name.toStdString());
    EXPECT_EQ("市场", read.sheets.at(2).head.first().toStdString());
}
