#include "tests/table_reader/Reading.h"
#include "tests/table_reader/Samples.h"

using namespace samples;
using table::Table;

namespace {

std::string rows(const QByteArray& sheetData)
{
    Xlsx sample;
    sample.sheetData = sheetData;
    return shown(sample.file());
}

std::string cell(const QByteArray& content)
{
    return rows("<row><c " + content + "</c></row>");
}

QByteArray workbookOf(const QByteArray& sheets, const QByteArray& head = QByteArray())
{
    return "<workbook " + SheetNamespace +
           " xmlns:r=\"http://schemas.openxmlformats.org/officeDocument/2006/relationships\">" + head +
           "<sheets>" + sheets + "</sheets></workbook>";
}

const QByteArray OneCell = "<row><c t=\"str\"><v>here</v></c></row>";

} // namespace

TEST(XlsxCells, AreReadByTheirTypes)
{
    Xlsx sample;
    sample.texts = "<si><t>代码</t></si><si><t> 数量 </t></si>";
    sample.sheetData = "<row r=\"1\"><c r=\"A1\" t=\"s\"><v>1</v></c><c r=\"B1\" t=\"s\"><v>0</v></c></row>"
                       "<row r=\"2\"><c r=\"A2\"><v>600000</v></c><c r=\"B2\" t=\"n\"><v>1.5E-2</v></c>"
                       "<c r=\"C2\" t=\"b\"><v>1</v></c><c r=\"D2\" t=\"b\"><v>0</v></c>"
                       "<c r=\"E2\" t=\"e\"><v>#N/A</v></c><c r=\"F2\" t=\"str\"><f>A1</f><v>x</v></c>"
                       "<c r=\"G2\" t=\"inlineStr\"><is><t>in</t></is></c>"
                       "<c r=\"H2\" t=\"d\"><v>2021-01-01T10:10:10</v></c></row>";
    const Table table = tableOf(sample.file());
    EXPECT_EQ(" 数量 |代码\n600000|0.015|TRUE|FALSE|#N/A|x|in|2021-01-01T10:10:10.000\n", shown(table));
    EXPECT_EQ("xlsx", table.format.toStdString());
    EXPECT_EQ("委托", table.sheet.toStdString());
}

TEST(XlsxCells, StandWhereTheirAddressesSay)
{
    EXPECT_EQ("\n|x||y\n",
              rows("<row r=\"2\"><c r=\"B2\"><is><t>x</t></is></c><c r=\"D2\"><is><t>y</t></is></c></row>"));
}

TEST(XlsxCells, FollowOneAnotherWithoutAddresses)
{
    EXPECT_EQ("1|2\n3\n\n4\n", rows("<row><c><v>1</v></c><c><v>2</v></c></row><row><c><v>3</v></c></row>"
                                    "<row r=\"4\"><c><v>4</v></c></row>"));
}

TEST(XlsxCells, AreRefusedAtAddressesThatAreNone)
{
    EXPECT_EQ("! 文件已损坏，无法读取：部件xl/worksheets/sheet1.xml的单元格地址“7B”无效",
              rows("<row><c r=\"7B\"><v>1</v></c></row>"));
    EXPECT_EQ("! 文件已损坏，无法读取：部件xl/worksheets/sheet1.xml的单元格地址“XFE1”无效",
              rows("<row><c r=\"XFE1\"><v>1</v></c></row>"));
    for (const char* const number : {"x", "0", "-1", ""}) {
        EXPECT_EQ(std::string("! 文件已损坏，无法读取：部件xl/worksheets/sheet1.xml的行号“") + number +
                      "”无效",
                  rows(QByteArray("<row r=\"") + number + "\"><c><v>1</v></c></row>"));
    }
}

TEST(XlsxCells, AreEmptyWithoutValueOrWithAnEmptyOne)
{
    EXPECT_EQ("1||2\n",
              rows("<row><c><v>1</v></c><c t=\"s\"><v/></c><c><v>2</v></c><c s=\"0\"/></row><row r=\"9\"/>"));
}

TEST(XlsxCells, KeepBlanksLineBreaksAndCharacterData)
{
    EXPECT_EQ(" a\nb <c>\n", cell("t=\"inlineStr\"><is><t> a&#10;b <![CDATA[<c>]]></t></is>"));
}

TEST(XlsxCells, PassOnWhatIsNoNumberAsItStands)
{
    EXPECT_EQ("abc\n", cell("><v>abc</v>"));
}

TEST(XlsxTexts, AreJoinedFromRunsWithoutPhonetics)
{
    EXPECT_EQ("委托数量\n", cell("t=\"inlineStr\"><is><r><rPr><b/></rPr><t>委托</t></r><r><t>数量</t></r>"
                                 "<rPh sb=\"0\" eb=\"1\"><t>wei</t></rPh></is>"));
}

TEST(XlsxTexts, DecodeEscapedCharacters)
{
    EXPECT_EQ("a\rb_x000D_c_x12_\n", cell("t=\"inlineStr\"><is><t>a_x000D_b_x005F_x000D_c_x12_</t></is>"));
    EXPECT_EQ("_x 12A_ _x0x1A_\n", cell("t=\"inlineStr\"><is><t>_x 12A_ _x0x1A_</t></is>"));
}

TEST(XlsxTexts, AreReadOnlyAsFarAsCellsWantThem)
{
    Xlsx sample;
    sample.sheetData = "<row><c t=\"s\"><v>0</v></c></row>";
    sample.texts = "<si><t>first</t></si><broken";
    EXPECT_EQ("first\n", shown(sample.file()));
}

TEST(XlsxTexts, ThatAreMissingAreAnError)
{
    Xlsx sample;
    sample.sheetData = "<row r=\"3\"><c r=\"B3\" t=\"s\"><v>1</v></c></row>";
    sample.texts = "<si><t>only</t></si>";
    EXPECT_EQ("! 文件已损坏，无法读取：单元格B3引用的文本不存在", shown(sample.file()));
}

TEST(XlsxNumbers, AreDatesByTheirStyles)
{
    Xlsx sample;
    sample.numberFormats = "<numFmt numFmtId=\"164\" formatCode=\"yyyy&quot;年&quot;m&quot;月&quot;\"/>"
                           "<numFmt numFmtId=\"165\" formatCode=\"0.00&quot;d&quot;\"/>";
    sample.cellStyles =
        "<xf numFmtId=\"0\"/><xf numFmtId=\"14\"/><xf numFmtId=\"164\"/><xf numFmtId=\"165\"/>"
        "<xf numFmtId=\"20\"/>";
    sample.sheetData =
        "<row><c s=\"0\"><v>44197</v></c><c s=\"1\"><v>44197</v></c><c s=\"2\"><v>44197.5</v></c>"
        "<c s=\"3\"><v>44197</v></c><c s=\"4\"><v>0.25</v></c><c s=\"99\"><v>1</v></c>"
        "<c s=\"\"><v>2</v></c></row>";
    EXPECT_EQ("44197|2021-01-01T00:00:00.000|2021-01-01T12:00:00.000|44197|06:00:00|1|2\n",
              shown(sample.file()));
}

TEST(XlsxNumbers, CountDaysFrom1904WhereTheWorkbookSaysSo)
{
    Xlsx sample;
    sample.workbook = workbookOf("<sheet name=\"a\" r:id=\"rId1\"/>", "<workbookPr date1904=\"true\"/>");
    sample.cellStyles = "<xf numFmtId=\"14\"/>";
    sample.sheetData = "<row><c><v>42735</v></c></row>";
    EXPECT_EQ("2021-01-01T00:00:00.000\n", shown(sample.file()));
}

TEST(XlsxSheets, AreTheFirstThatCanBeSeen)
{
    Xlsx sample;
    sample.workbook =
        workbookOf("<sheet name=\"图\" r:id=\"c\"/><sheet name=\"h\" state=\"hidden\" r:id=\"h\"/>"
                   "<sheet name=\"v\" state=\"veryHidden\" r:id=\"h\"/><sheet name=\"s\" r:id=\"rId1\"/>");
    sample.references += relationship("c", "chartsheet", "chartsheets/sheet1.xml") +
                         relationship("h", "worksheet", "worksheets/none.xml");
    sample.sheetData = OneCell;
    const Table table = tableOf(sample.file());
    EXPECT_EQ("here\n", shown(table));
    EXPECT_EQ("s", table.sheet.toStdString());
}

TEST(XlsxSheets, AreTheFirstWhereAllAreHidden)
{
    Xlsx sample;
    sample.workbook = workbookOf("<sheet name=\"a\" state=\"hidden\" r:id=\"rId1\"/>"
                                 "<sheet name=\"b\" state=\"hidden\" r:id=\"none\"/>");
    sample.sheetData = OneCell;
    EXPECT_EQ("here\n", shown(sample.file()));
}

TEST(XlsxSheets, OfChartsAloneAreAnError)
{
    Xlsx sample;
    sample.references = relationship("rId1", "chartsheet", "chartsheets/sheet1.xml");
    EXPECT_EQ("! 文件中没有工作表", shown(sample.file()));
}

TEST(XlsxParts, AreFoundUnderAbsoluteBackwardAndEscapedNames)
{
    for (const char* const target :
         {"/xl/worksheets/my sheet.xml", "worksheets\\my sheet.xml", "../xl/./worksheets/MY%20Sheet.xml"}) {
        Xlsx sample;
        sample.references = relationship("rId1", "worksheet", target);
        sample.more = {{QStringLiteral("xl\\worksheets\\My Sheet.xml"), worksheet(OneCell)}};
        EXPECT_EQ("here\n", shown(sample.file())) << target;
    }
}

TEST(XlsxParts, MayCarryPrefixesAndTheStrictNamespace)
{
    Xlsx sample;
    sample.references = relationship("rId1", "worksheet", "strict.xml");
    sample.more = {
        {QStringLiteral("xl/strict.xml"),
         "<x:worksheet xmlns:x=\"http://purl.oclc.org/ooxml/spreadsheetml/main\" xmlns:o=\"urn:other\">"
         "<x:sheetData><o:row><o:c><o:v>not ours</o:v></o:c></o:row><x:row><o:c/><x:c><x:v>7</x:v></x:c>"
         "</x:row></x:sheetData></x:worksheet>"}};
    EXPECT_EQ("7\n", shown(sample.file()));
}

TEST(XlsxParts, AreNotNeededWhereNothingRefersToThem)
{
    Xlsx sample;
    sample.references = relationship("rId1", "worksheet", "worksheets/sheet1.xml");
    sample.cellStyles = QByteArray();
    sample.texts = QByteArray();
    sample.sheetData = "<row><c s=\"3\"><v>44197</v></c></row>";
    EXPECT_EQ("44197\n", shown(sample.file()));
}

TEST(XlsxParts, ThatAreReferencedAndMissingAreAnError)
{
    Xlsx sample;
    sample.cellStyles = QByteArray();
    sample.sheetData = OneCell;
    EXPECT_EQ("! 文件已损坏，无法读取：缺少部件xl/styles.xml", shown(sample.file()));
}

TEST(XlsxParts, ThatNoReferenceLeadsToAreAnError)
{
    Xlsx sample;
    sample.references = QByteArray();
    EXPECT_EQ("! 文件已损坏，无法读取：缺少工作表“委托”的内容", shown(sample.file()));
}

TEST(XlsxParts, LeadToTheWorkbookByContentTypeTooWithMacrosOrWithout)
{
    for (const char* const type : {"vnd.openxmlformats-officedocument.spreadsheetml.sheet.main+xml",
                                   "vnd.ms-excel.sheet.macroEnabled.main+xml"}) {
        Parts parts = Xlsx().parts();
        parts.removeFirst();
        parts[2].second = worksheet(OneCell);
        parts.append(
            {QStringLiteral("[Content_Types].xml"),
             QByteArray("<Types xmlns=\"http://schemas.openxmlformats.org/package/2006/content-types\">"
                        "<Override PartName=\"/xl/workbook.xml\" ContentType=\"application/") +
                 type + "\"/></Types>"});
        EXPECT_EQ("here\n", shown(zip(parts))) << type;
    }
}

TEST(XlsxRows, StopBehindTheOnesWanted)
{
    QByteArray data;
    for (int row = 1; row <= 1100; ++row) {
        data += "<row><c><v>" + QByteArray::number(row) + "</v></c></row>";
    }
    Xlsx sample;
    sample.sheetData = data + "<row r=\"2000\"><c t=\"s\"><v>77</v></c></row><never read";
    const Table table = tableOf(sample.file());
    EXPECT_EQ("", table.error.toStdString());
    ASSERT_EQ(1002, table.rows.size());
    EXPECT_EQ("1002", table.rows.last().first().toStdString());
}

TEST(XlsxRows, StopBehindTheOnesWantedThoughThereAreGaps)
{
    QByteArray data;
    for (int row = 1; row <= 1201; row += 2) {
        data += "<row r=\"" + QByteArray::number(row) + "\"><c><v>1</v></c></row>";
    }
    Xlsx sample;
    sample.sheetData = data + "<never read";
    EXPECT_EQ(1001, tableOf(sample.file()).rows.size());
}

TEST(XlsxRows, AreReadWhereverTheyStand)
{
    const auto row = [](int number) {
        return "<row r=\"" + QByteArray::number(number) + "\"><c><v>" + QByteArray::number(number) +
               "</v></c></row>";
    };
    EXPECT_EQ("1\n2\n", rows(row(1) + row(2000) + row(2001) + row(2)));
    EXPECT_EQ("1\n2\n3\n", rows(row(3) + row(2) + row(2000) + row(2001) + row(1)));
}

TEST(XlsxRows, ThatAreEmptyAtTheEndAreDropped)
{
    EXPECT_EQ("1\n", rows("<row><c><v>1</v></c><c s=\"1\"/></row><row><c s=\"1\"/></row><row r=\"900\"/>"));
}

TEST(XlsxInspection, TellsHiddenColumns)
{
    Xlsx sample;
    sample.beforeData =
        "<cols><col min=\"1\" max=\"2\" width=\"9\"/><col min=\"3\" max=\"4\" hidden=\"1\"/>"
        "<col min=\"6\" max=\"6\" width=\"0\"/><col min=\"0\" max=\"9\" hidden=\"1\"/></cols>";
    sample.sheetData = "<row><c><v>1</v></c></row>";
    EXPECT_EQ((QSet<int>{2, 3, 5}), inspect(sample.file()).inspection.hiddenColumns);
}

TEST(XlsxInspection, TellsHiddenRowsMergedAreasAndStoredNumbers)
{
    Xlsx sample;
    sample.sheetData = "<row hidden=\"1\"><c><v>1E3</v></c></row><row><c t=\"str\"><v>2</v></c></row>";
    sample.behindData = "<mergeCells count=\"1\"><mergeCell ref=\"B1:C4\"/></mergeCells>";
    const Table table = inspect(sample.file());
    EXPECT_EQ("1000\n2\n", shown(table));
    EXPECT_EQ(QSet<int>{0}, table.inspection.hiddenRows);
    ASSERT_EQ(1, table.inspection.mergedAreas.size());
    EXPECT_EQ(QRect(1, 0, 2, 4), table.inspection.mergedAreas.first());
    EXPECT_EQ(1, table.inspection.numbers.size());
    EXPECT_EQ("1E3", (table.inspection.numbers.value({0, 0}).toStdString()));
}

namespace {

/// "row,column shown" of each cell that shows otherwise than it reads, a line each.
std::string shownOtherwise(const Table& table)
{
    QStringList lines;
    for (auto cell = table.inspection.shown.cbegin(); cell != table.inspection.shown.cend(); ++cell) {
        lines.append(QStringLiteral("%1,%2 %3\n").arg(cell.key().first).arg(cell.key().second).arg(*cell));
    }
    lines.sort();
    return lines.join(QString()).toStdString();
}

/// "name visible active read head" of each sheet, a line each.
std::string sheetsOf(const Table& table)
{
    QString text;
    for (const table::Sheet& sheet : table.sheets) {
        text += sheet.name + (sheet.visible ? QStringLiteral(" seen") : QStringLiteral(" hidden")) +
                (sheet.active ? QStringLiteral(" active") : QString()) +
                (sheet.read ? QStringLiteral(" read") : QString()) + QLatin1Char(' ') +
                sheet.head.join(QLatin1Char('|')) + QLatin1Char('\n');
    }
    return text.toStdString();
}

} // namespace

TEST(XlsxInspection, TellsCellsThatShowAnotherNumber)
{
    Xlsx sample;
    sample.numberFormats = "<numFmt numFmtId=\"164\" formatCode=\"0&quot;手&quot;\"/>";
    sample.cellStyles = "<xf numFmtId=\"0\"/><xf numFmtId=\"9\"/><xf numFmtId=\"1\"/><xf numFmtId=\"164\"/>"
                        "<xf numFmtId=\"4\"/>";
    sample.sheetData =
        "<row><c s=\"1\"><v>0.15</v></c><c s=\"2\"><v>2499.6</v></c><c s=\"3\"><v>10</v></c>"
        "<c s=\"4\"><v>2500</v></c><c><v>2499.6</v></c><c s=\"2\" t=\"str\"><v>9.9</v></c></row>";
    const Table table = inspect(sample.file());
    EXPECT_EQ("0.15|2499.6|10|2500|2499.6|9.9\n", shown(table));
    EXPECT_EQ("0,0 15%\n0,1 2500\n0,2 10手\n", shownOtherwise(table));
    EXPECT_TRUE(tableOf(sample.file()).inspection.shown.isEmpty());
}

TEST(XlsxInspection, TellsFormulasThatWereNeverCalculated)
{
    const QByteArray none = "<c><f>1+1</f></c>";
    const QByteArray empty = "<c><f>1+1</f><v></v></c>";
    const QByteArray emptyText = "<c t=\"str\"><f>\"\"</f><v></v></c>";
    const QByteArray nothing = "<c t=\"str\"><f>1+1</f></c>";
    const QByteArray zero = "<c><f>1-1</f><v>0</v></c>";
    const QByteArray two = "<c><f>1+1</f><v>2</v></c>";
    Xlsx sample;
    sample.sheetData = "<row>" + none + empty + emptyText + nothing + zero + two + "</row>";
    using Cells = QSet<table::Cell>;
    EXPECT_EQ((Cells{{0, 0}, {0, 1}, {0, 3}}), inspect(sample.file()).inspection.uncalculated);
    sample.workbook.replace("</workbook>", "<calcPr fullCalcOnLoad=\"1\"/></workbook>");
    EXPECT_EQ((Cells{{0, 0}, {0, 1}, {0, 3}, {0, 4}}), inspect(sample.file()).inspection.uncalculated);
    EXPECT_EQ("||||0|2\n", shown(sample.file()));
}

TEST(XlsxInspection, TellsRowsOfWhichSeveralCellsAreStruckOut)
{
    Xlsx sample;
    sample.fonts = "<font/><font><strike/></font><font><strike val=\"0\"/></font>";
    sample.cellStyles =
        "<xf numFmtId=\"0\"/><xf numFmtId=\"0\" fontId=\"1\"/><xf numFmtId=\"0\" fontId=\"2\"/>";
    const auto row = [](const char* first, const char* second) {
        return QByteArray("<row><c s=\"") + first + "\"><v>1</v></c><c s=\"" + second +
               "\"><v>2</v></c><c/></row>";
    };
    sample.sheetData = row("1", "1") + row("1", "0") + row("0", "0") + row("2", "2") + row("1", "1");
    EXPECT_EQ((QSet<int>{0, 4}), inspect(sample.file()).inspection.struckRows);
    const QByteArray struck = "<c s=\"1\"><v>1</v></c>";
    const QByteArray plain = "<c><v>1</v></c>";
    sample.sheetData = "<row>" + struck + struck + struck + plain.repeated(9) + "</row><row>" + struck +
                       struck + plain.repeated(9) + "</row>";
    EXPECT_EQ(QSet<int>{0}, inspect(sample.file()).inspection.struckRows);
}

TEST(XlsxInspection, TakesARowWithoutHeightForHidden)
{
    Xlsx sample;
    sample.sheetData =
        "<row ht=\"0\" customHeight=\"1\"><c><v>1</v></c></row><row ht=\"12\"><c><v>2</v></c></row>";
    EXPECT_EQ(QSet<int>{0}, inspect(sample.file()).inspection.hiddenRows);
}

TEST(XlsxInspection, TellsAllSheetsAndTheFirstRowsOfThoseThatAreSeen)
{
    Xlsx sample;
    sample.sheetData = "<row><c t=\"s\"><v>0</v></c></row>";
    sample.texts = "<si><t>代码</t></si><si><t>市场</t></si>";
    sample.workbook.replace("<sheets>", "<bookViews><workbookView activeTab=\"2\"/></bookViews><sheets>");
    sample.workbook.replace("</sheets>", "<sheet name=\"藏\" sheetId=\"2\" state=\"hidden\" r:id=\"rId4\"/>"
                                         "<sheet name=\"另\" sheetId=\"3\" r:id=\"rId5\"/>"
                                         "<sheet name=\"图\" sheetId=\"4\" r:id=\"rId6\"/>"
                                         "<sheet name=\"坏\" sheetId=\"5\" r:id=\"rId7\"/></sheets>");
    sample.references += relationship("rId4", "worksheet", "worksheets/sheet2.xml") +
                         relationship("rId5", "worksheet", "worksheets/sheet3.xml") +
                         relationship("rId6", "chartsheet", "charts/1.xml") +
                         relationship("rId7", "worksheet", "worksheets/none.xml");
    sample.more = {
        {QStringLiteral("xl/worksheets/sheet2.xml"), worksheet("<row><c><v>1</v></c></row>")},
        {QStringLiteral("xl/worksheets/sheet3.xml"),
         worksheet("<row/><row><c t=\"s\"><v>1</v></c><c><v>2</v></c></row><row><c><v>3</v></c></row>")}};
    EXPECT_EQ("委托 seen read 代码\n藏 hidden \n另 seen active 市场|2\n图 seen \n坏 seen \n",
              sheetsOf(inspect(sample.file())));
    EXPECT_TRUE(tableOf(sample.file()).sheets.isEmpty());
}

TEST(XlsxParts, AreReadInUtf16OfEitherOrder)
{
    const auto wide = [](const QByteArray& text, bool mark, bool big) {
        QByteArray bytes = mark ? QByteArray(big ? "\xFE\xFF" : "\xFF\xFE") : QByteArray();
        for (const QChar c : QString::fromUtf8(text)) {
            const char low = static_cast<char>(c.unicode() & 0xFF);
            const char high = static_cast<char>(c.unicode() >> 8);
            bytes.append(big ? high : low).append(big ? low : high);
        }
        return bytes;
    };
    const QByteArray cells = "<row><c t=\"inlineStr\"><is><t>买入😀</t></is></c></row>";
    const QByteArray plain = worksheet(cells + QByteArray(50'000, ' '));
    for (const QByteArray& declared : {QByteArray(plain).replace("UTF-8", "UTF-16"), plain}) {
        for (const bool mark : {true, false}) {
            for (const bool big : {true, false}) {
                Xlsx sample;
                QList<QPair<QString, QByteArray>> parts = sample.parts();
                for (auto& part : parts) {
                    if (part.first == QLatin1String("xl/worksheets/sheet1.xml")) {
                        part.second = wide(declared, mark, big);
                    }
                }
                EXPECT_EQ("买入😀\n", shown(zip(parts))) << mark << big;
            }
        }
    }
}
