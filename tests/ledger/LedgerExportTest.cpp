#include "desk/ledger/LedgerExport.h"

#include "tests/ledger/SampleDrafts.h"

#include <gtest/gtest.h>

using namespace ledger;

namespace {

QString csvOf(const QStringList& cells)
{
    return QString::fromUtf8(toCsv({u"h"_s}, {cells})).section(u"\r\n"_s, 1);
}

} // namespace

TEST(Export, MakesTextsHarmlessThatASpreadsheetTakesForFormulas)
{
    EXPECT_EQ(csvOf({u"=HYPERLINK(1)"_s, u"+x"_s, u"-x"_s, u"@x"_s, u"\tx"_s}),
              u"'=HYPERLINK(1),'+x,'-x,'@x,'\tx\r\n"_s);
}

TEST(Export, LeavesNumbersAsTheyAre)
{
    EXPECT_EQ(csvOf({u"-5.5"_s, u"+7"_s, u"600000"_s}), u"-5.5,+7,600000\r\n"_s);
}

TEST(Export, QuotesWhatWouldBreakARow)
{
    EXPECT_EQ(csvOf({u"a,b"_s, u"say \"x\""_s, u"two\nlines"_s}),
              u"\"a,b\",\"say \"\"x\"\"\",\"two\nlines\"\r\n"_s);
}

TEST(Export, BeginsWithAByteOrderMark)
{
    EXPECT_TRUE(toCsv(QList<Batch>()).startsWith("\xef\xbb\xbf"));
}

TEST(Export, GivesOneRowPerInstanceAndPerBatch)
{
    SampleLedger ledger;
    BatchDraft draft = sampleDraft(2);
    draft.fileName = u"=cmd.csv"_s;
    draft.instances[0].legs.append(draft.instances[0].legs.first());
    draft.instances[0].legs[1].direction = u"Sell"_s;
    ledger->createBatch(draft);
    const QString instances = QString::fromUtf8(toCsv(ledger->instances().value));
    EXPECT_EQ(instances.count(u"\r\n"_s), 3);
    EXPECT_TRUE(
        instances.contains(u"1-1,1,1001,AITWAP,600000.SH/600000.SH,Buy/Sell,1000/1000,10/10,0/0,未启动"_s))
        << instances.toStdString();
    const QString batches = QString::fromUtf8(toCsv(ledger->batches().value));
    EXPECT_EQ(batches.count(u"\r\n"_s), 2);
    EXPECT_TRUE(batches.contains(u"1,'=cmd.csv,"_s));
}
