#include "embedded_host/table_reader/xls/BiffStream.h"
#include "tests/table_reader/Reading.h"
#include "tests/table_reader/Samples.h"

using namespace samples;
using table::Table;
namespace biff = table_reader::biff;

namespace {

QByteArray style(int format)
{
    return Biff().record(biff::Xf, word(0) + word(format) + QByteArray(16, '\0')).bytes();
}

QByteArray workbook5(const QByteArray& records, const QByteArray& globals = QByteArray())
{
    return ole({{QStringLiteral("Book"), workbookStream(biff::Version5, globals, {{"a", records}})}});
}

QByteArray text5(const QByteArray& bytes)
{
    return word(bytes.size()) + bytes;
}

/// The stored result of a formula that is no number.
QByteArray noNumber(char kind, char value = 0)
{
    return QByteArray(1, kind) + '\0' + value + QByteArray(3, '\0') + "\xFF\xFF" + QByteArray(8, '\0');
}

QByteArray sharedTexts(int count, const QByteArray& first)
{
    return Biff().record(biff::Sst, dword(9) + dword(static_cast<quint32>(count)) + first).bytes();
}

std::string sharedTextsShown(const QByteArray& globals, int count)
{
    Biff records;
    for (int at = 0; at < count; ++at) {
        records.cell(biff::LabelSst, at, 0, 0, dword(static_cast<quint32>(at)));
    }
    return shown(xls(records.bytes(), globals));
}

const QByteArray Here = Biff().cell(biff::Label, 0, 0, 0, text8(QStringLiteral("here"), 2)).bytes();

} // namespace

TEST(XlsCells, AreReadByTheirRecords)
{
    const QByteArray records = Biff()
                                   .cell(biff::LabelSst, 0, 0, 0, dword(1))
                                   .cell(biff::LabelSst, 0, 1, 0, dword(0))
                                   .cell(biff::Label, 0, 2, 0, text8(QStringLiteral("买入"), 2))
                                   .number(1, 0, 600000)
                                   .cell(biff::Rk, 1, 1, 0, dword(static_cast<quint32>(1250) << 2 | 3))
                                   .cell(biff::Rk, 1, 2, 0, dword(0x3FF80000))
                                   .cell(biff::Rk, 1, 3, 0, dword(static_cast<quint32>(-7 * 4) | 2))
                                   .record(biff::MulRk, word(2) + word(1) + word(0) + dword(5 << 2 | 2) +
                                                            word(0) + dword(6 << 2 | 2) + word(2))
                                   .cell(biff::BoolErr, 3, 0, 0, QByteArray("\x01\x00", 2))
                                   .cell(biff::BoolErr, 3, 1, 0, QByteArray("\x2A\x01", 2))
                                   .bytes();
    const QByteArray texts =
        sharedTexts(2, text8(QStringLiteral("数量"), 2) + text8(QStringLiteral("code"), 2));
    const Table table = tableOf(xls(records, texts));
    EXPECT_EQ("code|数量|买入\n600000|12.5|1.5|-7\n|5|6\nTRUE|#N/A\n", shown(table));
    EXPECT_EQ("xls", table.format.toStdString());
    EXPECT_EQ("委托", table.sheet.toStdString());
}

TEST(XlsFormulas, GiveTheirStoredResults)
{
    const QByteArray records = Biff()
                                   .cell(biff::Formula, 0, 0, 0, real(2.5) + QByteArray(8, '\0'))
                                   .cell(biff::Formula, 0, 1, 0, noNumber(0))
                                   .record(0x04BC, QByteArray(10, '\0')) // a shared formula stands between
                                   .record(biff::String, text8(QStringLiteral("结果"), 2))
                                   .cell(biff::Formula, 0, 2, 0, noNumber(1, 1))
                                   .cell(biff::Formula, 0, 3, 0, noNumber(2, 0x07))
                                   .cell(biff::Formula, 0, 4, 0, noNumber(3))
                                   .number(0, 5, 1)
                                   .bytes();
    EXPECT_EQ("2.5|结果|TRUE|#DIV/0!||1\n", shown(xls(records)));
}

TEST(XlsNumbers, AreDatesByTheirStyles)
{
    const QByteArray globals =
        Biff().record(biff::Format, word(164) + text8(QStringLiteral("yyyy\"年\""), 2)).bytes() + style(0) +
        style(14) + style(164) + style(20);
    const QByteArray records = Biff()
                                   .number(0, 0, 44197, 0)
                                   .number(0, 1, 44197, 1)
                                   .number(0, 2, 44197.5, 2)
                                   .number(0, 3, 0.25, 3)
                                   .bytes();
    EXPECT_EQ("44197|2021-01-01T00:00:00.000|2021-01-01T12:00:00.000|06:00:00\n",
              shown(xls(records, globals)));
}

TEST(XlsNumbers, CountDaysFrom1904WhereTheWorkbookSaysSo)
{
    EXPECT_EQ("2021-01-01T00:00:00.000\n",
              shown(xls(Biff().number(0, 0, 42735).bytes(),
                        Biff().record(biff::Date1904, word(1)).bytes() + style(14))));
}

TEST(XlsSharedTexts, PassOverRunsAndFarEastData)
{
    const QByteArray rich = word(2) + char(0x08) + word(1) + "ab" + dword(0xFFFF);
    const QByteArray farEast = word(2) + char(0x05) + dword(3) + word(0x4E70) + word(0x5165) + "xyz";
    EXPECT_EQ("ab\n买入\nend\n",
              sharedTextsShown(sharedTexts(3, rich + farEast + text8(QStringLiteral("end"), 2)), 3));
}

TEST(XlsSharedTexts, ChangeTheirWidthWhereARecordContinues)
{
    const QByteArray narrowFirst =
        sharedTexts(2, word(4) + char(0) + "ab") +
        Biff()
            .record(biff::Continue, char(1) + word(0x4E70) + word(0x5165) + text8(QStringLiteral("end"), 2))
            .bytes();
    EXPECT_EQ("ab买入\nend\n", sharedTextsShown(narrowFirst, 2));
    const QByteArray wideFirst = sharedTexts(2, word(3) + char(1) + word(0x4E70)) +
                                 Biff().record(biff::Continue, char(0) + QByteArray("cd")).bytes() +
                                 Biff().record(biff::Continue, text8(QStringLiteral("end"), 2)).bytes();
    EXPECT_EQ("买cd\nend\n", sharedTextsShown(wideFirst, 2));
}

TEST(XlsSharedTexts, ContinueWithinTheirRuns)
{
    const QByteArray globals =
        sharedTexts(2, word(1) + char(0x08) + word(2) + "a" + dword(0) + word(0)) +
        Biff().record(biff::Continue, word(0) + text8(QStringLiteral("end"), 2)).bytes();
    EXPECT_EQ("a\nend\n", sharedTextsShown(globals, 2));
}

TEST(XlsSharedTexts, ThatAreMissingAreAnError)
{
    EXPECT_EQ("! 文件已损坏，无法读取：单元格A2引用的文本不存在",
              sharedTextsShown(sharedTexts(1, text8(QStringLiteral("a"), 2)), 2));
    EXPECT_EQ("! 文件已损坏，无法读取：单元格A1引用的文本不存在", sharedTextsShown(QByteArray(), 1));
    EXPECT_EQ("! 文件已损坏，无法读取：单元格A2引用的文本不存在",
              sharedTextsShown(sharedTexts(2, text8(QStringLiteral("a"), 2) + word(9) + char(0) + "cut"), 2));
}

TEST(XlsBiff5, ReadsByteTextsByTheCodePage)
{
    const QByteArray records = Biff()
                                   .cell(biff::Label, 0, 0, 0, text5("\xC2\xF2\xC8\xEB"))
                                   .cell(biff::RString, 0, 1, 0, text5("ab") + QByteArray(1, '\0'))
                                   .cell(biff::Formula, 0, 2, 0, noNumber(0))
                                   .record(biff::String, text5("\xC2\xF4"))
                                   .number(0, 3, 44197, 1)
                                   .bytes();
    const QByteArray globals = Biff()
                                   .record(biff::CodePage, word(936))
                                   .record(biff::Format, word(164) + char(6) + "yymmdd")
                                   .bytes() +
                               style(0) + style(164);
    EXPECT_EQ("买入|ab|卖|2021-01-01T00:00:00.000\n", shown(workbook5(records, globals)));
}

TEST(XlsBiff5, RefusesTextsThatAreCutOff)
{
    const char sentence[] = "! 文件已损坏，无法读取：工作簿数据不完整";
    EXPECT_EQ(sentence, shown(workbook5(Biff().cell(biff::Label, 0, 0, 0, word(6) + "6000").bytes())));
    EXPECT_EQ(sentence, shown(workbook5(QByteArray(),
                                        Biff().record(biff::Format, word(164) + char(9) + "0.00").bytes())));
}

TEST(XlsBiff5, ReadsWesternTextsWithoutCodePage)
{
    EXPECT_EQ("\xC3\xA9\n", shown(workbook5(Biff().cell(biff::Label, 0, 0, 0, text5("\xE9")).bytes())));
}

TEST(XlsSheets, ThatHaveACutNameAreAnError)
{
    const QByteArray entry = dword(0) + char(0) + char(0) + char(9) + char(0) + "cut";
    EXPECT_EQ("! 文件已损坏，无法读取：工作簿数据不完整",
              shown(xls(Here, Biff().record(biff::BoundSheet, entry).bytes())));
}

TEST(XlsSheets, AreTheFirstThatCanBeSeen)
{
    const QByteArray stream = workbookStream(biff::Version8, QByteArray(),
                                             {{"chart", "", 0, 2},
                                              {"macros", "", 0, 1},
                                              {"hidden", "", 1, 0},
                                              {"very", "", 2, 0},
                                              {"seen", Here, 0, 0}});
    const Table table = tableOf(ole({{QStringLiteral("Workbook"), stream}}));
    EXPECT_EQ("here\n", shown(table));
    EXPECT_EQ("seen", table.sheet.toStdString());
}

TEST(XlsSheets, AreTheFirstWhereAllAreHidden)
{
    const QByteArray stream = workbookStream(biff::Version8, QByteArray(),
                                             {{"chart", "", 0, 2}, {"a", Here, 1, 0}, {"b", "", 1, 0}});
    EXPECT_EQ("here\n", shown(ole({{QStringLiteral("Workbook"), stream}})));
}

TEST(XlsSheets, PassOverChartsWithinThem)
{
    const QByteArray chart = Biff().begin(biff::Version8, 0x20).number(5, 5, 9).end().bytes();
    EXPECT_EQ("here\n", shown(xls(chart + Here)));
}

TEST(XlsContainers, NameTheirStreamInAnyLetterCase)
{
    const QByteArray stream = workbookStream(biff::Version8, QByteArray(), {{"a", Here}});
    for (const char* const name : {"WORKBOOK", "book", "Workbook"}) {
        EXPECT_EQ("here\n", shown(ole({{QString::fromLatin1(name), stream}}))) << name;
    }
}

TEST(XlsContainers, GiveTheNewerOfTwoWorkbooks)
{
    const QByteArray older =
        workbookStream(biff::Version5, QByteArray(), {{"a", Biff().number(0, 0, 5).bytes()}});
    const QByteArray newer = workbookStream(biff::Version8, QByteArray(), {{"a", Here}});
    EXPECT_EQ("here\n", shown(ole({{QStringLiteral("Book"), older}, {QStringLiteral("Workbook"), newer}})));
}

TEST(XlsContainers, AreRefusedWhereTheNewerWorkbookIsDamaged)
{
    const QByteArray records = Biff().number(0, 0, 5).bytes();
    const QByteArray older = workbookStream(biff::Version5, QByteArray(), {{"a", records}});
    const QByteArray newer = workbookStream(biff::Version8, QByteArray(), {{"a", Here}});
    QByteArray file = ole({{QStringLiteral("Book"), older}, {QStringLiteral("Workbook"), newer}});
    constexpr int SizeOffset = 0x78; // of a directory entry, which begins with the name
    file.replace(file.indexOf(QByteArray("W\0o\0r\0k\0", 8)) + SizeOffset, 4, dword(0x7FFFFFFF));
    EXPECT_EQ("! 文件已损坏，无法读取：复合文档结构不完整", shown(file));
}

TEST(XlsContainers, AreNotNeeded)
{
    EXPECT_EQ("here\n", shown(workbookStream(biff::Version8, QByteArray(), {{"a", Here}})));
}

TEST(XlsRows, StopBehindTheOnesWanted)
{
    Biff rowWise;
    for (int row = 0; row < 1100; ++row) {
        rowWise.number(row, 0, row).number(row, 1, row);
    }
    EXPECT_EQ(1002, tableOf(xls(rowWise.bytes())).rows.size());
}

TEST(XlsRows, WrittenColumnByColumnAreReadWhole)
{
    Biff columnWise;
    columnWise.number(0, 0, 7).number(0, 1, 8); // the header alone was written as a row
    for (int column = 0; column < 2; ++column) {
        for (int row = 1; row < 1100; ++row) {
            columnWise.number(row, column, row);
        }
    }
    const Table table = tableOf(xls(columnWise.bytes()));
    ASSERT_EQ(1002, table.rows.size());
    EXPECT_EQ("1001|1001", table.rows.last().join(QLatin1Char('|')).toStdString());
}

TEST(XlsRows, AreTheSameWhenInspectedThoughRowsComeOutOfOrder)
{
    const QByteArray file =
        xls(Biff().number(0, 0, 1).number(0, 1, 2).number(2000, 0, 3).number(1, 0, 4).bytes());
    EXPECT_EQ("1|2\n4\n", shown(file));
    EXPECT_EQ("1|2\n4\n", shown(inspect(file)));
}

TEST(XlsInspection, TellsHiddenRowsMergedAreasAndStoredNumbers)
{
    const Table table =
        inspect(xls(Biff()
                        .record(biff::Row, word(0) + QByteArray(10, '\0') + word(0x20) + word(0))
                        .number(0, 0, 7)
                        .record(biff::MergedCells, word(1) + word(0) + word(3) + word(1) + word(2))
                        .bytes()));
    EXPECT_EQ(QSet<int>{0}, table.inspection.hiddenRows);
    EXPECT_EQ(QList<QRect>{QRect(1, 0, 2, 4)}, table.inspection.mergedAreas);
    EXPECT_EQ("7", (table.inspection.numbers.value({0, 0}).toStdString()));
}

TEST(XlsInspection, TellsHiddenColumns)
{
    const auto columns = [](int first, int last, int options) {
        return word(first) + word(last) + word(0) + word(0) + word(options) + word(0);
    };
    const Table table = inspect(xls(Biff()
                                        .record(biff::ColInfo, columns(0, 1, 0))
                                        .record(biff::ColInfo, columns(2, 3, 1))
                                        .record(biff::ColInfo, word(7))
                                        .number(0, 0, 7)
                                        .bytes()));
    EXPECT_EQ((QSet<int>{2, 3}), table.inspection.hiddenColumns);
}

TEST(XlsSheets, AreReadWithoutAWorkbookAroundThem)
{
    const QByteArray stream = Biff().begin(biff::Version5, 0x10).bytes() +
                              Biff()
                                  .record(biff::CodePage, word(936))
                                  .record(biff::Format, word(164) + char(6) + "yymmdd")
                                  .bytes() +
                              style(0) + style(164) +
                              Biff()
                                  .cell(biff::Label, 0, 0, 0, text5("\xC2\xF2\xC8\xEB"))
                                  .begin(biff::Version5, 0x20) // a chart within the sheet
                                  .end()
                                  .number(0, 1, 44197, 1)
                                  .end()
                                  .bytes();
    EXPECT_EQ("买入|2021-01-01T00:00:00.000\n", shown(stream));
    EXPECT_EQ("买入|2021-01-01T00:00:00.000\n", shown(ole({{QStringLiteral("Book"), stream}})));
    const Table table = inspect(stream);
    EXPECT_EQ("", table.sheet.toStdString());
    ASSERT_EQ(1, table.sheets.size());
    EXPECT_TRUE(table.sheets.first().read);
}

TEST(XlsInspection, NamesACodePageThatNobodyKnows)
{
    const auto read = [](int page, const QByteArray& text) {
        return inspect(workbook5(Biff().cell(biff::Label, 0, 0, 0, text5(text)).bytes(),
                                 Biff().record(biff::CodePage, word(page)).bytes()))
            .inspection.unknownCodePage;
    };
    EXPECT_EQ(20936, read(20936, "\xC2\xF2"));
    EXPECT_EQ(0, read(20936, "buy")) << "no matter for ASCII";
    EXPECT_EQ(0, read(936, "\xC2\xF2"));
}

TEST(XlsInspection, TellsCellsThatShowAnotherNumber)
{
    const QByteArray globals =
        Biff().record(biff::Format, word(164) + text8(QStringLiteral("0\"手\""), 2)).bytes() + style(0) +
        style(9) + style(1) + style(164) + style(4);
    const Table table = inspect(xls(Biff()
                                        .number(0, 0, 0.15, 1)
                                        .number(0, 1, 2499.6, 2)
                                        .number(0, 2, 10, 3)
                                        .number(0, 3, 2500, 4)
                                        .number(0, 4, 2499.6)
                                        .bytes(),
                                    globals));
    const QHash<table::Cell, QString> expected = {
        {{0, 0}, QStringLiteral("15%")}, {{0, 1}, QStringLiteral("2500")}, {{0, 2}, QStringLiteral("10手")}};
    EXPECT_EQ(expected, table.inspection.shown);
}

TEST(XlsInspection, TellsFormulasThatWereNeverCalculated)
{
    const QByteArray later = word(2) + QByteArray(6, '\0'); // to be calculated by whoever opens the file
    const QByteArray empty = noNumber(3).left(8);
    const Table table = inspect(xls(Biff()
                                        .cell(biff::Formula, 0, 0, 0, empty + later)
                                        .cell(biff::Formula, 0, 1, 0, noNumber(3))
                                        .cell(biff::Formula, 0, 2, 0, real(0) + later)
                                        .cell(biff::Formula, 0, 3, 0, real(2) + later)
                                        .cell(biff::Formula, 0, 4, 0, real(0) + QByteArray(8, '\0'))
                                        .bytes()));
    EXPECT_EQ((QSet<table::Cell>{{0, 0}, {0, 2}}), table.inspection.uncalculated);
}

TEST(XlsInspection, TellsRowsOfWhichSeveralCellsAreStruckOut)
{
    const auto font = [](int options) {
        return Biff().record(biff::Font, word(200) + word(options) + QByteArray(12, '\0')).bytes();
    };
    const auto styleOfFont = [](int number) {
        return Biff().record(biff::Xf, word(number) + word(0) + QByteArray(16, '\0')).bytes();
    };
    // The fifth font is called 5: none is called 4.
    const QByteArray globals =
        font(0) + font(0) + font(0) + font(0) + font(8) + styleOfFont(0) + styleOfFont(5);
    const Table table = inspect(xls(Biff()
                                        .number(0, 0, 1, 1)
                                        .record(biff::MulRk, word(1) + word(0) + word(1) + dword(5 << 2 | 2) +
                                                                 word(0) + dword(6 << 2 | 2) + word(1))
                                        .number(2, 0, 1, 0)
                                        .bytes(),
                                    globals));
    EXPECT_EQ(QSet<int>{0}, table.inspection.struckRows);
}

TEST(XlsInspection, TellsAllSheetsAndTheFirstRowsOfThoseThatAreSeen)
{
    const auto text = [](const QString& cell) {
        return Biff().cell(biff::Label, 3, 0, 0, text8(cell, 2)).bytes();
    };
    const QByteArray window = Biff().record(biff::Window1, QByteArray(10, '\0') + word(2) + word(0)).bytes();
    const QByteArray texts = sharedTexts(1, text8(QStringLiteral("共享"), 2));
    const QByteArray stream =
        workbookStream(biff::Version8, window + texts,
                       {{"first", text(QStringLiteral("x")), 1},
                        {"second", text(QStringLiteral("代码"))},
                        {"third", Biff().cell(biff::LabelSst, 0, 0, 0, dword(0)).bytes()}});
    const Table table = inspect(ole({{QStringLiteral("Workbook"), stream}}));
    ASSERT_EQ(3, table.sheets.size());
    EXPECT_FALSE(table.sheets.at(0).visible);
    EXPECT_TRUE(table.sheets.at(0).head.isEmpty());
    EXPECT_TRUE(table.sheets.at(1).read);
    EXPECT_EQ("代码", table.sheets.at(1).head.first().toStdString());
    EXPECT_TRUE(table.sheets.at(2).active);
    EXPECT_EQ("third", table.sheets.at(2).name.toStdString());
    EXPECT_EQ("共享", table.sheets.at(2).head.first().toStdString());
}
