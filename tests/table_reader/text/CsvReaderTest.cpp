#include "tests/table_reader/Reading.h"

#include <QTextCodec>

using table::Table;
using table_reader::ReadOptions;

namespace {

const QString Header = QStringLiteral("证券代码,市场,委托数量\n600000,上海,100\n");
constexpr char HeaderShown[] = "证券代码|市场|委托数量\n600000|上海|100\n";

QByteArray encoded(const QString& text, const char* codec)
{
    return QTextCodec::codecForName(codec)->fromUnicode(text);
}

QByteArray utf16(const QString& text, bool bigEndian)
{
    QByteArray bytes;
    for (const QChar c : text) {
        const char high = static_cast<char>(c.unicode() >> 8);
        const char low = static_cast<char>(c.unicode() & 0xFF);
        bytes.append(bigEndian ? high : low).append(bigEndian ? low : high);
    }
    return bytes;
}

} // namespace

TEST(CsvEncoding, ReadsUtf8WithAndWithoutByteOrderMark)
{
    for (const QByteArray& bytes : {Header.toUtf8(), "\xEF\xBB\xBF" + Header.toUtf8()}) {
        const Table table = tableOf(bytes);
        EXPECT_EQ(HeaderShown, shown(table));
        EXPECT_EQ("UTF-8", table.encoding.toStdString());
    }
}

TEST(CsvEncoding, ReadsUtf16ByItsByteOrderMark)
{
    const Table little = tableOf("\xFF\xFE" + utf16(Header, false));
    EXPECT_EQ(HeaderShown, shown(little));
    EXPECT_EQ("UTF-16LE", little.encoding.toStdString());
    const Table big = tableOf("\xFE\xFF" + utf16(Header, true));
    EXPECT_EQ(HeaderShown, shown(big));
    EXPECT_EQ("UTF-16BE", big.encoding.toStdString());
}

TEST(CsvEncoding, TellsUtf16WithoutMarkByItsZeroBytes)
{
    EXPECT_EQ(HeaderShown, shown(utf16(Header, false)));
    EXPECT_EQ(HeaderShown, shown(utf16(Header, true)));
}

TEST(CsvEncoding, DoesNotTakeAStrayZeroByteForUtf16)
{
    const QString header = QStringLiteral("证券代码名称市场委托数量委托价格投资备注指令序号\n");
    EXPECT_EQ("! 文件不是文本，也不是可识别的表格（含有值为零的字节）",
              shown(encoded(header, "GB18030") + QByteArray("0\0\n", 3)));
    EXPECT_EQ("! 文件不是文本，也不是可识别的表格（含有值为零的字节）", shown(utf16(Header, false) + "\n"));
    EXPECT_EQ("证券代码|市场\n", shown(utf16(QStringLiteral("证券代码,市场\n"), false)));
}

TEST(CsvEncoding, ReadsWhatIsNotUtf8AsGb18030)
{
    const Table table = tableOf(encoded(Header, "GB18030"));
    EXPECT_EQ(HeaderShown, shown(table));
    EXPECT_EQ("GB18030", table.encoding.toStdString());
}

TEST(CsvEncoding, ReadsAChineseHeaderOfTwoCharactersAsGb18030)
{
    EXPECT_EQ("代码\n1\n", shown(encoded(QStringLiteral("代码\n1\n"), "GB18030")));
}

TEST(CsvEncoding, KeepsUtf8WithOneWrongByteIfThatHasFewerFaults)
{
    const Table table =
        inspect(QStringLiteral("甲,乙\n丙,").toUtf8() + "\xE4" + QStringLiteral("\n丁,戊己庚\n").toUtf8());
    EXPECT_EQ("UTF-8", table.encoding.toStdString());
    EXPECT_EQ("甲|乙\n丙|\xEF\xBF\xBD\n丁|戊己庚\n", shown(table));
    EXPECT_EQ(1, table.inspection.replacedCharacters);
}

TEST(CsvEncoding, WeighsFaultsThatComeLateAgainstTheWholeText)
{
    const QByteArray plain = QByteArray("a,b,c,d,e,f,g,h,i,j\n").repeated(900);
    const QByteArray chinese = QStringLiteral("甲,乙,丙,丁\n").toUtf8();
    EXPECT_EQ("UTF-8", tableOf(plain.repeated(4).left(70000) + "\n\xFF\n" + chinese).encoding.toStdString());
    EXPECT_EQ("UTF-8", tableOf(chinese + plain + "\xFF\n").encoding.toStdString());
    EXPECT_EQ("GB18030", tableOf(plain + "\xC2\xF2\xC8\xEB\n").encoding.toStdString());
}

TEST(CsvEncoding, TakesTheEncodingThatTheOptionsName)
{
    ReadOptions options;
    options.encoding = QStringLiteral("Big5");
    const Table table = tableOf(encoded(QStringLiteral("證券,數量\n"), "Big5"), options);
    EXPECT_EQ("證券|數量\n", shown(table));
    EXPECT_EQ("Big5", table.encoding.toStdString());
}

TEST(CsvEncoding, RefusesAnEncodingThatNobodyKnows)
{
    ReadOptions options;
    options.encoding = QStringLiteral("no-such-code");
    EXPECT_EQ("! 不认识的文件编码：no-such-code", shown(tableOf("a", options)));
}

TEST(CsvEncoding, KeepsACharacterWholeThatIsCutBetweenTwoPieces)
{
    for (const char* const codec : {"UTF-8", "GB18030"}) {
        for (int shift = 0; shift < 4; ++shift) {
            const QString text = QString(shift, QLatin1Char('x')) + QString(50000, QChar(u'买'));
            const Table table = tableOf(encoded(text, codec));
            ASSERT_EQ(1, table.rows.size());
            EXPECT_TRUE(table.rows.first().first() == text) << codec << shift;
        }
    }
}

TEST(CsvEncoding, CountsACharacterCutOffAtTheEndAsAFault)
{
    const Table table = inspect(QByteArray("甲,乙,丙\n丁,戊,\xE8\xBE"));
    EXPECT_EQ(1, table.inspection.replacedCharacters);
    EXPECT_EQ("甲|乙|丙\n丁|戊|\xEF\xBF\xBD\n", shown(table));
    const Table other = inspect(QByteArray("\xC2\xF2\xC8\xEB,\xC2\xF4\n\xC2"));
    EXPECT_EQ("GB18030", other.encoding.toStdString());
    EXPECT_EQ("买入|卖\n\xEF\xBF\xBD\n", shown(other));
}

TEST(CsvSeparator, IsACommaWhereTheFirstLineHasOneOutsideQuotes)
{
    EXPECT_EQ("a;b\tc|d\n", shown("a;b\tc,d\n"));
    EXPECT_EQ(",", tableOf("a;b\tc,d\n").separator.toStdString());
}

TEST(CsvSeparator, IsTabOrSemicolonWhereTheFirstLineHasNoComma)
{
    EXPECT_EQ("a|b,c\n1|2\n", shown("a\t\"b,c\"\n1\t2\n"));
    EXPECT_EQ("a|b\n1,5|2\n", shown("a;b\n1,5;2\n"));
    EXPECT_EQ("\t", tableOf("a;b\tc").separator.toStdString());
}

TEST(CsvSeparator, IsNotLookedForBehindTheFirstLine)
{
    EXPECT_EQ("a\nb;c\n", shown("a\nb;c\n"));
}

TEST(CsvRows, KeepAllTheirCellsAndBlankLines)
{
    EXPECT_EQ("a|b||\n\n1|\n", shown("a,b,,\n\n1,\n"));
    EXPECT_EQ(1, tableOf("a\n\nb").rows.at(1).size());
}

TEST(CsvRows, KeepBlanksAndLeadingZeros)
{
    EXPECT_EQ(" 000001 |\t1e5\n", shown(" 000001 ,\t1e5\n"));
}

TEST(CsvRows, AreNoneInAFileOfNoBytes)
{
    const Table table = tableOf("");
    EXPECT_TRUE(table.rows.isEmpty());
    EXPECT_TRUE(table.error.isEmpty());
    EXPECT_TRUE(tableOf("\xEF\xBB\xBF").rows.isEmpty());
}

TEST(CsvRows, StopBehindTheOnesWanted)
{
    ReadOptions options;
    options.maxRows = 2;
    EXPECT_EQ("1\n2\n", shown(tableOf("1\n2\n3\n", options)));
    EXPECT_EQ(1002, tableOf(QByteArray("x\n").repeated(5000)).rows.size());
}

TEST(CsvRows, DoNotMindWhatLiesFarBehindThem)
{
    QByteArray bytes = QByteArray("x\n").repeated(100000);
    EXPECT_EQ("", tableOf(bytes + '\0').error.toStdString());
    EXPECT_EQ("", tableOf(bytes + "\"open").error.toStdString());
}

TEST(CsvRows, AreRefusedWhereAQuoteIsNeverClosed)
{
    EXPECT_EQ("! 第2行的引号没有结束，后面的内容都会被它吞掉，请检查该行的引号", shown("a,b\n1,\"2\n3,4\n"));
}

TEST(CsvRows, TellTheLinesOnWhichTheyBeginWhenInspected)
{
    EXPECT_EQ((QList<int>{1, 2, 4}), tableOf("a\n\"b\nc\"\nd\n").lines);
}
