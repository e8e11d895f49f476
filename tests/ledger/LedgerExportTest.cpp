#include "desk/ledger/LedgerExport.h"

#include "tests/ledger/SampleDrafts.h"

#include <gtest/gtest.h>

using namespace ledger;

namespace {

QString csvOf(const QStringList& cells)
{
    return QString::fromUtf8(toCsv({"h"_s}, {cells})).section("\r\n"_s, 1);
}

} // namespace

TEST(Export, MakesTextsHarmlessThatASpreadsheetTakesForFormulas)
{
    EXPECT_EQ(csvOf({"=HYPERLINK(1)"_s, "+x"_s, "-x"_s, "@x"_s, "\tx"_s}),
              "'=HYPERLINK(1),'+x,'-x,'@x,'\tx\r\n"_s);
}

TEST(Export, LeavesNumbersAsTheyAre)
{
    EXPECT_EQ(csvOf({"-5.5"_s, "+7"_s, "600000"_s}), "-5.5,+7,600000\r\n"_s);
}

TEST(Export, QuotesWhatWouldBreakARow)
{
    EXPECT_EQ(csvOf({"a,b"_s, "say \"x\""_s, "two\nlines"_s}),
              "\"a,b\",\"say \"\"x\"\"\",\"two\nlines\"\r\n"_s);
}

TEST(Export, BeginsWithAByteOrderMark)
{
    EXPECT_TRUE(toCsv(QList<Batch>()).startsWith("\xef\xbb\xbf"));
}

TEST(Export, GivesOneRowPerInstanceAndPerBatch)
{
    SampleLedger ledger;
    BatchDraft draft = sampleDraft(2);
    draft.fileName = "=cmd.csv"_s;
    draft.instances[0].legs.append(draft.instances[0].legs.first());
    draft.instances[0].legs[1].direction = "Sell"_s;
    ledger->createBatch(draft);
    const QString instances = QString::fromUtf8(toCsv(ledger->instances().value));
    EXPECT_EQ(instances.count("\r\n"_s), 3);
    EXPECT_TRUE(
        instances.contains("1-1,1,1001,AITWAP,600000.SH/600000.SH,Buy/Sell,1000/1000,10/10,0/0,未启动"_s))
        << instances.toStdString();
    const QString batches = QString::fromUtf8(toCsv(ledger->batches().value));
    EXPECT_EQ(batches.count("\r\n"_s), 2);
    EXPECT_TRUE(batches.contains("1,'=cmd.csv,"_s));
}
