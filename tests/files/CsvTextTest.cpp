#include "files/CsvText.h"

#include "tests/support/Text.h"

#include <gtest/gtest.h>

using namespace files;

namespace {

QString harmless(const QStringList& cells)
{
    return QString::fromUtf8(csvText({cells}));
}

} // namespace

TEST(CsvText, BeginsWithAByteOrderMark)
{
    EXPECT_EQ(csvText({}), "\xef\xbb\xbf");
    EXPECT_EQ(csvText({{"甲"_s}, {"1"_s, "2"_s}}), "\xef\xbb\xbf甲\r\n1,2\r\n");
}

TEST(CsvText, HasNoMarkWhereAProgramReadsIt)
{
    EXPECT_EQ(csvRows({{"a"_s, "b,c"_s}}), "a,\"b,c\"\r\n");
}

TEST(CsvText, MakesTextsHarmlessThatASpreadsheetTakesForFormulas)
{
    EXPECT_EQ(harmless({"=HYPERLINK(1)"_s, "+x"_s, "-x"_s, "@x"_s, "\tx"_s}),
              "'=HYPERLINK(1),'+x,'-x,'@x,\"'\tx\"\r\n"_s);
}

TEST(CsvText, LeavesNumbersAsTheyAre)
{
    EXPECT_EQ(harmless({"-5.5"_s, "+7"_s, "600000"_s}), "-5.5,+7,600000\r\n"_s);
}

TEST(CsvText, QuotesWhatWouldBreakARow)
{
    EXPECT_EQ(harmless({"a,b"_s, "say \"x\""_s, "two\nlines"_s, "a;b"_s}),
              "\"a,b\",\"say \"\"x\"\"\",\"two\nlines\",\"a;b\"\r\n"_s);
}
