#include "embedded_host/table_reader/xls/BiffStream.h"
#include "tests/support/RestrictedPath.h"
#include "tests/table_reader/Reading.h"
#include "tests/table_reader/Samples.h"

#include <sys/stat.h>

#include <QFile>
#include <QTemporaryDir>
#include <QTemporaryFile>

using namespace samples;
using table::Table;
using table_reader::readTable;
namespace biff = table_reader::biff;

namespace {

constexpr char Encrypted[] = "! 文件已加密或受权限保护，请取消密码或保护后另存再导入";
constexpr char OtherDocument[] = "! 文件是文档、演示文稿或其他程序的文件，不是表格";

QByteArray withDocumentType(QByteArray xml)
{
    const int end = xml.indexOf("?>") + 2;
    return xml.insert(end, "<!DOCTYPE a [<!ENTITY b \"c\">]>");
}

/// A workbook whose sheet is this part.
QByteArray withSheet(const QByteArray& sheet)
{
    Xlsx sample;
    sample.references = relationship("rId1", "worksheet", "s.xml");
    sample.more = {{QStringLiteral("xl/s.xml"), sheet}};
    return sample.file();
}

Xlsx oneCell()
{
    Xlsx sample;
    sample.sheetData = "<row><c><v>12345</v></c></row>";
    return sample;
}

} // namespace

TEST(RefusedPaths, EachHaveTheirSentence)
{
    QTemporaryDir folder;
    EXPECT_EQ("! 文件不存在", shown(readTable(folder.filePath(QStringLiteral("none.csv")))));
    EXPECT_EQ("! 所选路径是文件夹，不是文件", shown(readTable(folder.path())));
    const QString pipe = folder.filePath(QStringLiteral("pipe.csv"));
    ASSERT_EQ(0, mkfifo(QFile::encodeName(pipe).constData(), 0600));
    EXPECT_EQ("! 所选路径不是普通文件，无法读取", shown(readTable(pipe)));
}

TEST(RefusedPaths, OfAFileThatMayNotBeReadSaysSo)
{
    QTemporaryDir folder;
    QFile::setPermissions(folder.path(), RestrictedPath::ReadAndEnter | QFile::WriteOwner);
    const QString path = folder.filePath(QStringLiteral("list.csv"));
    QFile file(path);
    ASSERT_TRUE(file.open(QIODevice::WriteOnly));
    file.write("600000\n");
    file.close();
    const RestrictedPath locked(path, QFile::Permissions());
    EXPECT_EQ(shown(readTable(path)).rfind("! 文件无法打开", 0), 0U) << shown(readTable(path));
}

TEST(RefusedPaths, DoNotCountTheFilesName)
{
    QTemporaryDir folder;
    const QString path = folder.filePath(QStringLiteral("表.csv"));
    QFile file(path);
    ASSERT_TRUE(file.open(QIODevice::WriteOnly));
    file.write(oneCell().file());
    file.close();
    EXPECT_EQ("12345\n", shown(readTable(path)));
}

TEST(RefusedTexts, EachHaveTheirSentence)
{
    EXPECT_EQ("! 文件内容是网页（HTML），不是表格，请另存为xlsx或csv后再导入",
              shown(" \n<html xmlns:x=\"urn:a\"><body><table><tr><td>1</td></tr></table></body></html>"));
    EXPECT_EQ("! 文件内容是网页（HTML），不是表格，请另存为xlsx或csv后再导入",
              shown("\xEF\xBB\xBF<!DOCTYPE html PUBLIC \"-//W3C//DTD XHTML 1.0\"><html>"));
    EXPECT_EQ("! 文件内容是XML电子表格2003，请另存为xlsx后再导入",
              shown("<?xml version=\"1.0\"?><?mso-application progid=\"Excel.Sheet\"?><Workbook "
                    "xmlns=\"urn:schemas-microsoft-com:office:spreadsheet\">"));
    EXPECT_EQ("! 文件内容是XML，不是表格，请另存为xlsx或csv后再导入", shown("<rows><row a=\"1\"/></rows>"));
    EXPECT_EQ("! 文件内容是RTF文档，不是表格", shown("{\\rtf1\\ansi a}"));
    EXPECT_EQ("! 文件内容是PDF文档，不是表格", shown("%PDF-1.4\n"));
    EXPECT_EQ("! 文件内容是单个文件网页（MHTML），请另存为xlsx或csv后再导入",
              shown("MIME-Version: 1.0\nX: y\n"));
    EXPECT_EQ("! 文件内容是单个文件网页（MHTML），请另存为xlsx或csv后再导入",
              shown("From: <Saved>\r\nSubject: a, b\r\n c\r\nMIME-Version: 1.0\r\n\r\n"));
    EXPECT_EQ("! 文件内容是XML，不是表格，请另存为xlsx或csv后再导入", shown("<!-- x, y -->\n<p>a</p>"));
}

TEST(RefusedTexts, AreNotHeadersInAngleBrackets)
{
    EXPECT_EQ("<TICKER>|<DATE>\n600000|20210101\n", shown("<TICKER>,<DATE>\n600000,20210101\n"));
    EXPECT_EQ("<title>|<table>\n", shown("<title>,<table>\n"));
    EXPECT_EQ("<code>|note\n1|</x>\n", shown("<code>,note\n1,</x>\n"));
    EXPECT_EQ("a|b: c\nMIME-Version:|1\n", shown("a,b: c\nMIME-Version:,1\n"));
}

TEST(RefusedTexts, HaveZeroBytes)
{
    EXPECT_EQ("! 文件不是文本，也不是可识别的表格（含有值为零的字节）",
              shown(QByteArray("code,amount\n1,2\0\n3,4\n", 20)));
}

TEST(RefusedBinaries, EachHaveTheirSentence)
{
    EXPECT_EQ("! 文件内容是图片，不是表格", shown("\x89PNG\r\n\x1A\n"));
    EXPECT_EQ("! 文件是压缩包，请解压后导入其中的表格", shown("\x1F\x8B\x08"));
    EXPECT_EQ("! 文件是压缩包或其他程序的文件，里面没有可读取的表格",
              shown(zip({{QStringLiteral("a.csv"), "1,2"}})));
    EXPECT_EQ(OtherDocument, shown(ole({{QStringLiteral("WordDocument"), "text"}})));
}

TEST(RefusedWorkbooks, AreThoseOfOtherKinds)
{
    const auto withMain = [](const char* target) {
        return shown(
            zip({{QStringLiteral("_rels/.rels"),
                  RelationshipsOpen + relationship("r", "officeDocument", target) + "</Relationships>"}}));
    };
    EXPECT_EQ("! 不支持xlsb（二进制工作簿），请另存为xlsx后再导入", withMain("xl/workbook.bin"));
    EXPECT_EQ(OtherDocument, withMain("word/document.xml"));
    EXPECT_EQ("! 不支持1993年以前的xls格式（BIFF2至BIFF4），请另存为xlsx后再导入",
              shown(Biff().record(biff::BofOf4, word(4) + word(0x100) + word(0)).end().bytes()));
}

TEST(RefusedWorkbooks, AreEncrypted)
{
    EXPECT_EQ(Encrypted, shown(ole({{QStringLiteral("EncryptionInfo"), "x"},
                                    {QStringLiteral("EncryptedPackage"), "x"}})));
    EXPECT_EQ(Encrypted, shown(ole({{QStringLiteral("\tDRMContent"), "x"}})));
    EXPECT_EQ(Encrypted,
              shown(xls(Biff().number(0, 0, 1).bytes(), Biff().record(biff::FilePass, word(1)).bytes())));
    EXPECT_EQ(Encrypted,
              shown(ods("<table:table/>", "",
                        "<manifest:file-entry manifest:full-path=\"content.xml\"><manifest:encryption-data/>"
                        "</manifest:file-entry>")));
}

TEST(DamagedArchives, AreRefusedHoweverTheyAreCut)
{
    const QByteArray whole = oneCell().file();
    ASSERT_EQ("12345\n", shown(whole));
    for (int length = 4; length < whole.size() - 1; length += 7) {
        EXPECT_FALSE(tableOf(whole.left(length)).error.isEmpty()) << length;
    }
}

TEST(DamagedArchives, AreRefusedByTheChecksumOfEachPartUsed)
{
    const Parts parts = oneCell().parts();
    const QByteArray whole = zip(parts, false);
    for (const auto& part : parts) {
        QByteArray damaged = whole;
        const int at = whole.indexOf(part.second) + part.second.lastIndexOf('>');
        damaged[at - 1] = damaged.at(at - 1) == 'X' ? 'Y' : 'X';
        if (part.first.endsWith(QLatin1String("sharedStrings.xml"))) {
            EXPECT_EQ("12345\n", shown(damaged)); // no cell wants a text
        } else {
            EXPECT_FALSE(tableOf(damaged).error.isEmpty()) << part.first.toStdString();
        }
    }
}

TEST(DamagedArchives, AreRefusedByTheChecksumAlone)
{
    QByteArray damaged = zip(oneCell().parts(), false);
    damaged.replace("12345", "12346");
    EXPECT_EQ("! 文件已损坏，无法读取：部件xl/worksheets/sheet1.xml校验失败", shown(damaged));
}

TEST(DamagedArchives, AreRefusedByTheChecksumOfTextsReadInPart)
{
    Xlsx sample = oneCell();
    sample.sheetData = "<row><c t=\"s\"><v>0</v></c></row>";
    sample.texts = "<si><t>600000</t></si><si><t>that nobody wants</t></si>";
    QByteArray damaged = zip(sample.parts(), false);
    ASSERT_EQ("600000\n", shown(damaged));
    damaged.replace("600000", "600001");
    EXPECT_EQ("! 文件已损坏，无法读取：部件xl/sharedStrings.xml校验失败", shown(damaged));
}

TEST(DamagedArchives, AreRefusedByTheChecksumThoughRowsAreLeftUnread)
{
    Xlsx sample;
    sample.sheetData = QByteArray("<row><c><v>12345</v></c></row>").repeated(1100);
    QByteArray damaged = zip(sample.parts(), false);
    damaged.replace(damaged.indexOf("12345"), 5, "12346");
    EXPECT_EQ("! 文件已损坏，无法读取：部件xl/worksheets/sheet1.xml校验失败", shown(damaged));
}

TEST(DamagedArchives, AreRefusedByTheChecksumThoughEmptyRowsFillTheSheet)
{
    const QByteArray tables =
        "<table:table><table:table-row><table:table-cell office:value-type=\"float\" "
        "office:value=\"600000\"/>"
        "</table:table-row><table:table-row table:number-rows-repeated=\"1048575\"/></table:table>";
    QByteArray damaged = ods(tables, "", "", false);
    ASSERT_EQ("600000\n", shown(damaged));
    damaged.replace("600000", "600001");
    EXPECT_EQ("! 文件已损坏，无法读取：部件content.xml校验失败", shown(damaged));
}

TEST(DamagedArchives, AreReadWhereTheFaultLiesFarBehindTheTextsWanted)
{
    Xlsx sample;
    sample.sheetData = "<row><c t=\"s\"><v>0</v></c></row>";
    sample.texts = "<si><t>a</t></si>" + QByteArray(20 << 20, ' ') + "<!--far behind-->";
    QByteArray damaged = zip(sample.parts(), false);
    damaged.replace("far behind", "FAR BEHIND");
    EXPECT_EQ("a\n", shown(damaged));
}

TEST(DamagedParts, AreInAnEncodingWithoutAscii)
{
    const char sentence[] = "! 部件xl/s.xml的文字编码不受支持，请用电子表格程序另存后再导入";
    EXPECT_EQ(sentence, shown(withSheet(worksheet("").replace("UTF-8", "UTF-16"))));
    EXPECT_EQ(sentence, shown(withSheet(worksheet(QByteArray("a\0b", 3)))));
    EXPECT_EQ(sentence, shown(withSheet(worksheet("").replace("UTF-8", "ISO-2022-JP"))));
    EXPECT_EQ("", shown(withSheet(worksheet("").replace("UTF-8", "GB18030"))));
}

TEST(DamagedParts, NameThePartLineAndColumn)
{
    EXPECT_EQ("! 文件已损坏，无法读取：部件xl/s.xml第2行第3列不是有效的XML",
              shown(withSheet("<worksheet " + SheetNamespace + ">\n</a>")));
    EXPECT_EQ("! 文件已损坏，无法读取：部件xl/s.xml的内容与其用途不符", shown(withSheet("<worksheet/>")));
}

TEST(DamagedParts, MayNotDeclareDocumentTypes)
{
    EXPECT_EQ("! 文件含有不允许的文档类型声明（部件xl/s.xml），已拒绝读取",
              shown(withSheet(withDocumentType(worksheet("")))));
}

TEST(DamagedStreams, AreRefusedHoweverTheyAreCut)
{
    const QByteArray stream =
        workbookStream(biff::Version8, QByteArray(), {{"a", Biff().number(0, 0, 1).number(1, 0, 2).bytes()}});
    ASSERT_EQ("1\n2\n", shown(stream));
    for (int length = 8; length < stream.size(); ++length) {
        EXPECT_FALSE(tableOf(stream.left(length)).error.isEmpty()) << length;
    }
}

TEST(DamagedContainers, LoseNoRowHoweverTheyAreCut)
{
    const QByteArray stream =
        workbookStream(biff::Version8, QByteArray(), {{"a", Biff().number(0, 0, 1).number(1, 0, 2).bytes()}});
    const QByteArray whole = ole({{QStringLiteral("Workbook"), stream}});
    ASSERT_EQ("1\n2\n", shown(whole));
    int refused = 0;
    for (int length = 16; length < whole.size(); length += 64) {
        const std::string read = shown(whole.left(length));
        if (read != "1\n2\n") { // as it is where only padding is lost
            EXPECT_EQ("! ", read.substr(0, 2)) << length;
            ++refused;
        }
    }
    EXPECT_GT(refused, 0);
}

TEST(DamagedContainers, OfOpenDocumentsAreRefusedHoweverTheyAreCut)
{
    const QByteArray whole =
        ods("<table:table><table:table-row><table:table-cell office:value-type=\"float\" "
            "office:value=\"1\"/></table:table-row></table:table>");
    ASSERT_EQ("1\n", shown(whole));
    for (int length = 4; length < whole.size() - 1; length += 7) {
        EXPECT_EQ("! ", shown(whole.left(length)).substr(0, 2)) << length;
    }
}

TEST(Limits, RefuseDeepNesting)
{
    const QByteArray deep = QByteArray("<a>").repeated(5000);
    EXPECT_EQ("! 文件超出读取限制：部件xl/s.xml嵌套过深", shown(withSheet(worksheet(deep))));
}

TEST(Limits, RefuseTagsOfManyAttributes)
{
    const auto row = [](int attributes) {
        QByteArray tag = "<row";
        for (int number = 0; number < attributes; ++number) {
            tag += " a" + QByteArray::number(number) + " = '>'";
        }
        return withSheet(worksheet(tag + "><c t='str'><v>1 = \"2\"</v></c></row>"));
    };
    EXPECT_EQ("1 = \"2\"\n", shown(row(100)));
    EXPECT_EQ("! 文件超出读取限制：部件xl/s.xml的一个标签中属性过多", shown(row(101)));
}

TEST(Limits, RefuseManyNamespacesAtOnePlace)
{
    const auto declared = [](int depth, char letter) {
        QByteArray tag = "<a";
        for (int number = 0; number < depth; ++number) {
            tag += QByteArray(" xmlns:") + letter + QByteArray::number(number) + "=\"u\"";
        }
        return tag + ">";
    };
    const QByteArray nested = declared(60, 'x') + declared(60, 'y') + "</a></a>";
    EXPECT_EQ("! 文件超出读取限制：部件xl/s.xml的命名空间过多", shown(withSheet(worksheet(nested))));
    const QByteArray beside = declared(60, 'x') + "</a>" + declared(60, 'y') + "</a>";
    EXPECT_EQ("", shown(withSheet(worksheet(beside))));
}

TEST(Limits, RefuseArchivesOfManyParts)
{
    Parts parts;
    for (int number = 0; number < 150; ++number) {
        parts.append({QString::number(number).rightJustified(60000, QLatin1Char('a')), QByteArray()});
    }
    EXPECT_EQ("! 文件超出读取限制：压缩包内文件过多", shown(zip(parts)));
}

TEST(Limits, RefuseArchivesOfManyMegabytes)
{
    QTemporaryFile file;
    ASSERT_TRUE(file.open());
    file.write(oneCell().file());
    ASSERT_TRUE(file.resize(Q_INT64_C(300) << 20)); // takes no room on the disk
    EXPECT_EQ("! 文件超出读取限制：文件过大", shown(readTable(file.fileName())));
}

TEST(Limits, RefuseTooManyColumns)
{
    EXPECT_EQ("! 文件超出读取限制：第2行超过16384列", shown("a\n" + QByteArray(20000, ',')));
    EXPECT_EQ("! 文件超出读取限制：第1行超过16384列",
              shown(withSheet(worksheet("<row>" + QByteArray("<c/>").repeated(16385) + "</row>"))));
}

TEST(Limits, RefuseTooManyCells)
{
    EXPECT_EQ(
        "! 文件超出读取限制：单元格过多",
        shown(ods("<table:table><table:table-row table:number-rows-repeated=\"1000\"><table:table-cell "
                  "table:number-columns-repeated=\"16000\" office:value-type=\"float\" office:value=\"1\"/>"
                  "</table:table-row></table:table>")));
}

TEST(Limits, RefuseOverlongCells)
{
    EXPECT_EQ("! 文件超出读取限制：单元格A1的文字过长", shown(QByteArray(2 << 20, 'x')));
}

TEST(Limits, RefuseMoreTextThanATableHolds)
{
    Xlsx sample;
    sample.texts = "<si><t>" + QByteArray(100000, 'x') + "</t></si>";
    sample.sheetData = "<row>" + QByteArray("<c t=\"s\"><v>0</v></c>").repeated(200) + "</row>";
    EXPECT_EQ("! 文件超出读取限制：文字总量过大", shown(sample.file()));
}

TEST(Limits, RefuseAnEndlessTagOrText)
{
    EXPECT_EQ("! 文件超出读取限制：部件xl/s.xml解压后过大",
              shown(withSheet(worksheet("<row><c><v>" + QByteArray(9 << 20, '1') + "</v></c></row>"))));
}

TEST(Limits, RefusePartsThatInflateSuspiciously)
{
    EXPECT_EQ("! 文件超出读取限制：部件xl/s.xml解压后过大",
              shown(withSheet(worksheet(QByteArray("<row r=\"1\"/>").repeated(2 << 20)))));
}

TEST(Limits, RefuseAnEndlessCsvCell)
{
    EXPECT_EQ("! 第2行的引号没有结束，后面的内容都会被它吞掉，请检查该行的引号",
              shown("a\n\"" + QByteArray("x,\n").repeated(4 << 20)));
}
