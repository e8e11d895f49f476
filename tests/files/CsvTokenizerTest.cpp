#include "files/CsvTokenizer.h"

#include <gtest/gtest.h>

#include <string>

using files::CsvTokenizer;

namespace {

struct Split {
    std::string records; ///< "a|b" for each record, with its line before it: "1:a|b\n"
    int openQuoteLine = 0;
};

Split split(const char* text, int piece = 1 << 20, char separator = ',')
{
    CsvTokenizer csv{QLatin1Char(separator)};
    const QString whole = QString::fromUtf8(text);
    Split result;
    QStringList cells;
    const auto take = [&] {
        while (csv.next(cells)) {
            result.records +=
                std::to_string(csv.recordLine()) + ":" + cells.join(QLatin1Char('|')).toStdString() + "\n";
        }
    };
    for (int at = 0; at < whole.size(); at += piece) {
        csv.feed(whole.mid(at, piece));
        take();
    }
    csv.finish();
    take();
    result.openQuoteLine = csv.hasOpenQuote() ? csv.openQuoteLine() : 0;
    return result;
}

std::string records(const char* text)
{
    return split(text).records;
}

} // namespace

TEST(CsvTokenizer, EndsRecordsAtEachKindOfLineEnd)
{
    EXPECT_EQ("1:a|b\n2:c|d\n3:e|f\n4:g\n", records("a,b\nc,d\r\ne,f\rg"));
}

TEST(CsvTokenizer, BeginsNoRecordAtTheLineEndOfTheText)
{
    EXPECT_EQ("1:a\n", records("a\n"));
    EXPECT_EQ("1:a\n", records("a\r\n"));
    EXPECT_EQ("1:a\n", records("a\r"));
    EXPECT_EQ("", records(""));
}

TEST(CsvTokenizer, TakesABlankLineAsOneEmptyCell)
{
    EXPECT_EQ("1:a\n2:\n3:b\n", records("a\n\nb"));
    EXPECT_EQ("1:\n", records("\n"));
}

TEST(CsvTokenizer, KeepsEmptyCellsAtBothEnds)
{
    EXPECT_EQ("1:|a||\n", records(",a,,"));
}

TEST(CsvTokenizer, KeepsSeparatorsLineEndsAndDoubledQuotesWithinQuotes)
{
    EXPECT_EQ("1:a,b|c\nd|e\"f\n3:g\n", records("\"a,b\",\"c\nd\",\"e\"\"f\"\ng"));
}

TEST(CsvTokenizer, CountsEachLineEndWithinQuotesOnce)
{
    EXPECT_EQ("1:a\r\nb\rc\n4:d\n", records("\"a\r\nb\rc\"\nd"));
}

TEST(CsvTokenizer, TakesAQuoteWithinAnUnquotedCellAsText)
{
    EXPECT_EQ("1:5\" tube|x\n", records("5\" tube,x"));
    EXPECT_EQ("1: \"a\"|b\n", records(" \"a\",b"));
}

TEST(CsvTokenizer, AddsWhatFollowsAClosingQuoteToTheCell)
{
    EXPECT_EQ("1:abc\"d|e\n", records("\"ab\"c\"d,e"));
}

TEST(CsvTokenizer, TellsWhereAQuoteWasNeverClosed)
{
    const Split open = split("a\nb,\"c\nd\ne");
    EXPECT_EQ("1:a\n2:b|c\nd\ne\n", open.records);
    EXPECT_EQ(2, open.openQuoteLine);
    EXPECT_EQ(0, split("a\n\"b\"").openQuoteLine);
}

TEST(CsvTokenizer, SplitsTheSameHoweverTheTextIsCut)
{
    const char* const text = "证券,\"a\"\"b\"\r\n\r\n\"c\r\nd\",e\rf,\"\"\n\"\"\"\",g\n";
    const std::string whole = records(text);
    EXPECT_EQ("1:证券|a\"b\n2:\n3:c\r\nd|e\n5:f|\n6:\"|g\n", whole);
    for (int piece = 1; piece < 12; ++piece) {
        EXPECT_EQ(whole, split(text, piece).records) << piece;
    }
}

TEST(CsvTokenizer, SplitsAtTheSeparatorGivenAlone)
{
    EXPECT_EQ("1:a,b|c\n", split("a,b\tc", 9, '\t').records);
}

TEST(CsvTokenizer, TellsHowMuchOfAnUnfinishedRecordItHolds)
{
    CsvTokenizer csv{QLatin1Char(',')};
    QStringList cells;
    csv.feed(QStringLiteral("a\n\"bcd"));
    ASSERT_TRUE(csv.next(cells));
    ASSERT_FALSE(csv.next(cells));
    EXPECT_EQ(4, csv.pendingCharacters());
}
