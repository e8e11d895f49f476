#include "embedded_host/table_reader/xls/BiffStream.h"
#include "tests/table_reader/Reading.h"
#include "tests/table_reader/Samples.h"

using namespace samples;

// One sheet in three formats: A1 and B1 are merged, row 2 and column B are hidden.

namespace {

constexpr char Whole[] = "1||5\n2|3|6\n";

QByteArray xlsxNumber(const char* address, const char* number)
{
    return QByteArray("<c r=\"") + address + "\"><v>" + number + "</v></c>";
}

QByteArray odsNumber(const char* number, const char* attributes = "")
{
    return QByteArray("<table:table-cell office:value-type=\"float\" office:value=\"") + number + "\" " +
           attributes + "/>";
}

} // namespace

TEST(HiddenCells, AreReadLikeOthersInXlsx)
{
    Xlsx sample;
    sample.references = relationship("rId1", "worksheet", "s.xml");
    sample.more = {{QStringLiteral("xl/s.xml"),
                    "<worksheet " + SheetNamespace +
                        "><cols><col min=\"2\" max=\"2\" hidden=\"1\"/></cols><sheetData><row r=\"1\">" +
                        xlsxNumber("A1", "1") + "<c r=\"B1\"/>" + xlsxNumber("C1", "5") +
                        "</row><row r=\"2\" hidden=\"1\">" + xlsxNumber("A2", "2") + xlsxNumber("B2", "3") +
                        xlsxNumber("C2", "6") +
                        "</row></sheetData><mergeCells><mergeCell ref=\"A1:B1\"/></mergeCells></worksheet>"}};
    EXPECT_EQ(Whole, shown(sample.file()));
}

TEST(HiddenCells, AreReadLikeOthersInXls)
{
    constexpr quint16 ColumnInfo = 0x007D;
    constexpr quint16 Blank = 0x0201;
    namespace biff = table_reader::biff;
    EXPECT_EQ(Whole, shown(xls(Biff()
                                   .record(ColumnInfo, word(1) + word(1) + word(2304) + word(0) + word(1))
                                   .record(biff::Row, word(1) + QByteArray(10, '\0') + word(0x20) + word(0))
                                   .number(0, 0, 1)
                                   .cell(Blank, 0, 1, 0, QByteArray())
                                   .number(0, 2, 5)
                                   .number(1, 0, 2)
                                   .number(1, 1, 3)
                                   .number(1, 2, 6)
                                   .record(biff::MergedCells, word(1) + word(0) + word(0) + word(0) + word(1))
                                   .bytes())));
}

TEST(HiddenCells, AreReadLikeOthersInOds)
{
    const QByteArray columns = "<table:table-column/><table:table-column table:visibility=\"collapse\"/>"
                               "<table:table-column/>";
    EXPECT_EQ(Whole,
              shown(ods("<table:table>" + columns + "<table:table-row>" +
                        odsNumber("1", "table:number-columns-spanned=\"2\" table:number-rows-spanned=\"1\"") +
                        "<table:covered-table-cell/>" + odsNumber("5") +
                        "</table:table-row><table:table-row table:visibility=\"collapse\">" + odsNumber("2") +
                        odsNumber("3") + odsNumber("6") + "</table:table-row></table:table>")));
}
