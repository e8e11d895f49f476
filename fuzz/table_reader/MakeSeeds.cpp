#include "embedded_host/table_reader/xls/BiffStream.h"
#include "tests/table_reader/Samples.h"

#include <QDir>
#include <QFile>

#include <cstdio>

// Writes a few small, sound inputs for each target below the folder given: fuzz_seeds DIR.

namespace {

using namespace samples;
namespace biff = table_reader::biff;

bool write(const QDir& root, const char* target, const char* name, const QByteArray& bytes)
{
    const QString folder = QString::fromLatin1(target);
    root.mkpath(folder);
    QFile file(root.filePath(folder + QLatin1Char('/') + QString::fromLatin1(name)));
    return file.open(QIODevice::WriteOnly) && file.write(bytes) == bytes.size();
}

Xlsx workbook()
{
    Xlsx sample;
    sample.texts = "<si><t>证券代码</t></si><si><r><t>委托</t></r><r><t>数量</t></r><rPh><t>x</t></rPh></si>";
    sample.cellStyles = "<xf numFmtId=\"0\"/><xf numFmtId=\"14\"/><xf numFmtId=\"164\"/>";
    sample.cellStyles += "<xf numFmtId=\"9\" fontId=\"1\"/><xf numFmtId=\"165\"/>";
    sample.fonts = "<font/><font><strike/></font>";
    sample.numberFormats = "<numFmt numFmtId=\"164\" formatCode=\"[h]:mm:ss;@\"/><numFmt numFmtId=\"165\" "
                           "formatCode=\"[&gt;=10000]0!.0,&quot;万&quot;;(#,##0.0#);[$¥-804]0.00E+00\"/>";
    sample.sheetData = "<row r=\"1\"><c r=\"A1\" t=\"s\"><v>0</v></c><c r=\"B1\" t=\"s\"><v>1</v></c></row>"
                       "<row r=\"2\" hidden=\"1\"><c r=\"A2\" t=\"inlineStr\"><is><t>a_x000D_b</t></is></c>"
                       "<c r=\"B2\" s=\"1\"><v>44197.5</v></c><c r=\"C2\" s=\"2\"><v>0.25</v></c>"
                       "<c r=\"D2\" t=\"b\"><v>1</v></c><c t=\"e\"><v>#N/A</v></c></row>"
                       "<row><c s=\"3\"><v>0.15</v></c><c s=\"4\"><v>25000</v></c><c><f>1+1</f></c></row>";
    sample.workbook.replace("<sheets>", "<bookViews><workbookView activeTab=\"1\"/></bookViews><sheets>");
    sample.workbook.replace("</sheets>", "<sheet name=\"b\" sheetId=\"2\" r:id=\"rId4\"/></sheets>");
    sample.references += relationship("rId4", "worksheet", "worksheets/sheet2.xml");
    sample.more = {
        {QStringLiteral("xl/worksheets/sheet2.xml"), worksheet("<row><c t=\"s\"><v>1</v></c></row>")}};
    sample.behindData = "<mergeCells><mergeCell ref=\"A1:B2\"/></mergeCells>";
    return sample;
}

QByteArray xlsxPieces()
{
    const Parts parts = workbook().parts();
    const auto part = [&](const char* name) {
        for (const auto& entry : parts) {
            if (entry.first == QLatin1String(name)) {
                return entry.second;
            }
        }
        return QByteArray();
    };
    return QList<QByteArray>({part("xl/worksheets/sheet1.xml"), part("xl/sharedStrings.xml"),
                              part("xl/styles.xml"), part("xl/workbook.xml"),
                              part("xl/_rels/workbook.xml.rels"), part("xl/worksheets/sheet2.xml")})
        .join('\0');
}

/// With its sheet in UTF-16.
QByteArray wideFile()
{
    Parts parts = workbook().parts();
    for (auto& part : parts) {
        if (part.first == QLatin1String("xl/worksheets/sheet1.xml")) {
            const QString text = QString::fromUtf8(part.second);
            part.second =
                "\xFF\xFE" + QByteArray(reinterpret_cast<const char*>(text.utf16()), text.size() * 2);
        }
    }
    return zip(parts, false);
}

QByteArray odsFile()
{
    return ods("<table:table table:name=\"t\" table:style-name=\"v\"><table:table-row "
               "table:number-rows-repeated=\"2\"><table:table-cell office:value-type=\"float\" "
               "office:value=\"1.5\"/>"
               "<table:table-cell table:number-columns-repeated=\"3\"/><table:table-cell "
               "office:value-type=\"string\"><text:p>a<text:s "
               "text:c=\"2\"/>b<text:tab/>c</text:p></table:table-cell>"
               "<table:table-cell office:value-type=\"time\" office:time-value=\"PT10H10M10S\"/>"
               "<table:covered-table-cell/></table:table-row></table:table>",
               "<style:style style:name=\"h\" style:family=\"table\"><style:table-properties "
               "table:display=\"false\"/></style:style>");
}

QByteArray odsPieces()
{
    const QByteArray head(
        "<office:document-content xmlns:office=\"urn:oasis:names:tc:opendocument:xmlns:office:1.0\" "
        "xmlns:table=\"urn:oasis:names:tc:opendocument:xmlns:table:1.0\" "
        "xmlns:style=\"urn:oasis:names:tc:opendocument:xmlns:style:1.0\" "
        "xmlns:number=\"urn:oasis:names:tc:opendocument:xmlns:datastyle:1.0\" "
        "xmlns:text=\"urn:oasis:names:tc:opendocument:xmlns:text:1.0\"><office:automatic-styles>"
        "<number:time-style style:name=\"n\"/><style:style style:name=\"c\" style:family=\"table-cell\" "
        "style:parent-style-name=\"p\" style:data-style-name=\"n\"><style:text-properties "
        "style:text-line-through-style=\"solid\"/></style:style></office:automatic-styles><office:body>"
        "<office:spreadsheet><table:table><table:table-column table:default-cell-style-name=\"c\"/>"
        "<table:table-row><table:table-cell office:value-type=\"time\" office:time-value=\"PT1112385H35M\"/>"
        "<table:table-cell office:value-type=\"percentage\" office:value=\"0.15\"><text:p>15%</text:p>"
        "</table:table-cell><table:table-cell table:formula=\"x\"/><table:table-cell "
        "office:value-type=\"date\" office:date-value=\"2021-01-01\"/><table:table-cell "
        "table:number-columns-spanned=\"2\"><text:p>a<text:s text:c=\"2\"/></text:p>"
        "</table:table-cell></table:table-row></table:table></office:spreadsheet></office:body>"
        "</office:document-content>");
    return head + '\0' +
           "<m:manifest xmlns:m=\"urn:oasis:names:tc:opendocument:xmlns:manifest:1.0\"><m:file-entry "
           "m:full-path=\"/\" m:media-type=\"a\"/></m:manifest>" +
           '\0' +
           "<o:document-settings xmlns:o=\"urn:oasis:names:tc:opendocument:xmlns:office:1.0\" "
           "xmlns:c=\"urn:oasis:names:tc:opendocument:xmlns:config:1.0\"><c:config-item-set><c:config-item "
           "c:name=\"ActiveTable\">t</c:config-item></c:config-item-set></o:document-settings>" +
           '\0' +
           "<o:document-styles xmlns:o=\"urn:oasis:names:tc:opendocument:xmlns:office:1.0\" "
           "xmlns:s=\"urn:oasis:names:tc:opendocument:xmlns:style:1.0\"><o:styles><s:style s:name=\"p\" "
           "s:family=\"table-cell\"/></o:styles></o:document-styles>";
}

QByteArray stream8()
{
    const QByteArray globals =
        Biff()
            .record(biff::Date1904, word(0))
            .record(biff::Format, word(164) + text8(QStringLiteral("yyyy-mm-dd"), 2))
            .record(biff::Xf, word(0) + word(0) + QByteArray(16, '\0'))
            .record(biff::Xf, word(0) + word(164) + QByteArray(16, '\0'))
            .record(biff::Xf, word(5) + word(9) + QByteArray(16, '\0'))
            .record(biff::Font, word(200) + word(8) + QByteArray(12, '\0'))
            .record(biff::Window1, QByteArray(10, '\0') + word(1) + word(0))
            .record(biff::Sst,
                    dword(2) + dword(2) + text8(QStringLiteral("证券代码"), 2) + word(4) + char(0) + "ab")
            .record(biff::Continue, QByteArray("\0cd", 3))
            .bytes();
    const QByteArray records =
        Biff()
            .record(biff::Row, word(0) + QByteArray(14, '\0'))
            .cell(biff::LabelSst, 0, 0, 0, dword(0))
            .cell(biff::LabelSst, 0, 1, 0, dword(1))
            .cell(biff::Rk, 0, 2, 1, dword(0x40E5A0A0))
            .record(biff::MulRk, word(1) + word(0) + word(0) + dword(6) + word(0) + dword(7) + word(1))
            .cell(biff::Formula, 2, 0, 0, QByteArray("\0\0\0\0\0\0\xFF\xFF", 8) + QByteArray(8, '\0'))
            .record(biff::String, text8(QStringLiteral("买入"), 2))
            .cell(biff::BoolErr, 3, 0, 0, QByteArray("\x2A\x01", 2))
            .record(biff::MergedCells, word(1) + word(0) + word(1) + word(0) + word(1))
            .number(4, 0, 44197.5, 1)
            .number(4, 1, 0.15, 2)
            .bytes();
    return workbookStream(biff::Version8, globals,
                          {{"a", records}, {"b", Biff().cell(biff::LabelSst, 0, 0, 0, dword(1)).bytes()}});
}

QByteArray stream5()
{
    const QByteArray records = Biff()
                                   .cell(biff::Label, 0, 0, 0, word(4) + "\xC2\xF2\xC8\xEB")
                                   .cell(biff::RString, 0, 1, 0, word(2) + "ab" + QByteArray(1, '\0'))
                                   .bytes();
    return workbookStream(biff::Version5, Biff().record(biff::CodePage, word(936)).bytes(), {{"a", records}});
}

/// A sheet without a workbook around it.
QByteArray sheetAlone()
{
    return Biff()
        .begin(biff::Version5, biff::WorksheetKind)
        .record(biff::CodePage, word(20936))
        .cell(biff::Label, 0, 0, 0, word(4) + "\xC2\xF2\xC8\xEB")
        .end()
        .bytes();
}

bool writeSeeds(const QDir& root)
{
    const QByteArray csv("证券代码,委托数量\n\"600\"\"000\",100\r\n,\"a\nb\"\n");
    return write(root, "fuzz_csv_tokenizer", "records", '\3' + csv) &&
           write(root, "fuzz_table", "utf8.csv", csv) &&
           write(root, "fuzz_table", "utf16.csv",
                 QByteArray("\xFF\xFE"
                            "a\0;\0b\0\n\0",
                            10)) &&
           write(root, "fuzz_table", "gb.csv", "\xD6\xA4\xC8\xAF\t1\n") &&
           write(root, "fuzz_table", "page.html", "<html><body><table></table></body></html>") &&
           write(root, "fuzz_table", "book.xlsx", workbook().file()) &&
           write(root, "fuzz_table", "wide.xlsx", wideFile()) &&
           write(root, "fuzz_table", "book.ods", odsFile()) &&
           write(root, "fuzz_table", "book.xls", ole({{QStringLiteral("Workbook"), stream8()}})) &&
           write(root, "fuzz_xlsx", "parts", xlsxPieces()) && write(root, "fuzz_ods", "parts", odsPieces()) &&
           write(root, "fuzz_xls", "biff8", stream8()) && write(root, "fuzz_xls", "biff5", stream5()) &&
           write(root, "fuzz_xls", "alone", sheetAlone());
}

} // namespace

int main(int argc, char** argv)
{
    if (argc != 2 || !writeSeeds(QDir(QString::fromLocal8Bit(argv[1])))) {
        std::fprintf(stderr, "usage: fuzz_seeds DIR\n");
        return 2;
    }
    return 0;
}
