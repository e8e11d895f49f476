#include "ledger/BatchCreation.h"
#include "tests/ledger/SampleDrafts.h"

#include <gtest/gtest.h>

#include <QDir>
#include <QFileInfo>
#include <QJsonObject>

using namespace ledger;

namespace {

const QDate Day(2025, 11, 3);

} // namespace

TEST(DraftJournal, GivesARepeatedAttemptTheIdOfTheFirst)
{
    QTemporaryDir home;
    const DraftJournal journal(home.path());
    const BatchDraft first = sampleDraft(2);
    EXPECT_FALSE(journal.begin(first, Day).value.isRepeated);
    const BatchDraft second = sampleDraft(2); // another id
    const DraftJournal::Entry again = DraftJournal(home.path()).begin(second, Day).value;
    EXPECT_TRUE(again.isRepeated);
    EXPECT_EQ(again.id, first.id);
    journal.end(again);
    EXPECT_EQ(journal.begin(second, Day).value.id, second.id);
}

TEST(DraftJournal, TellsAnotherFileAccountStrategyAndDayApart)
{
    QTemporaryDir home;
    const DraftJournal journal(home.path());
    const BatchDraft first = sampleDraft(1);
    journal.begin(first, Day);
    QList<BatchDraft> others{sampleDraft(1), sampleDraft(1), sampleDraft(1), sampleDraft(1)};
    others[0].fileSha256 = QString(64, QLatin1Char('b'));
    others[1].account = "2001"_s;
    others[2].strategy = "AIVWAP"_s;
    others[3].fileEdits = {QJsonObject{{"edit"_s, "leaveOut"_s}}};
    for (const BatchDraft& other : others) {
        EXPECT_FALSE(journal.begin(other, Day).value.isRepeated);
    }
    EXPECT_FALSE(journal.begin(first, Day.addDays(1)).value.isRepeated);
    EXPECT_TRUE(journal.begin(sampleDraft(1), Day).value.isRepeated);
}

TEST(DraftJournal, IsItsOwnersAlone)
{
    QTemporaryDir home;
    const DraftJournal::Entry entry = DraftJournal(home.path()).begin(sampleDraft(1), Day).value;
    const auto others = QFile::ReadGroup | QFile::WriteGroup | QFile::ReadOther | QFile::WriteOther;
    EXPECT_FALSE(QFileInfo(QFileInfo(entry.file).path()).permissions() & others);
}

TEST(DraftJournal, CreatesNothingWhereItCannotBeKept)
{
    QTemporaryDir home;
    QFile inTheWay(QDir(home.path()).filePath("drafts"_s));
    ASSERT_TRUE(inTheWay.open(QIODevice::WriteOnly));
    EXPECT_FALSE(DraftJournal(home.path()).begin(sampleDraft(1), Day).ok());
}

TEST(Attempt, FindsTheBatchThatWasMadeWithoutAnAnswer)
{
    SampleLedger ledger;
    const DraftJournal journal(ledger.home());
    BatchDraft draft = sampleDraft(1);
    ASSERT_FALSE(beginAttempt(*ledger, journal, draft).value.made.has_value());
    ledger->createBatch(draft); // and the program is killed
    BatchDraft again = sampleDraft(1);
    const Outcome<Attempt> second = beginAttempt(*ledger, journal, again);
    ASSERT_TRUE(second.value.made.has_value());
    EXPECT_EQ(second.value.made->number, 1);
    journal.end(second.value.entry);
    BatchDraft meant = sampleDraft(1);
    EXPECT_FALSE(beginAttempt(*ledger, journal, meant).value.made.has_value()) << "asked for once more";
}
