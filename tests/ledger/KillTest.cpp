#include "tests/ledger/SampleDrafts.h"

#include <gtest/gtest.h>

#include <QElapsedTimer>
#include <QProcess>
#include <QSet>
#include <QThread>

#include <algorithm>
#include <random>

using namespace ledger;

namespace {

constexpr int Kills = 200;
constexpr int InstancesPerBatch = 100;
constexpr int RetriedDrafts = 3;
/// A slow machine does fewer kills, but never fewer than this.
constexpr int LeastKills = 50;
constexpr qint64 TimeBoxMs = 150000;

/// Starts the victim, lets it work for a moment and kills it. What it complained of, if anything.
QString killOneRun(const QString& home, int firstDraft, int milliseconds, bool waitUntilOpen)
{
    QProcess victim;
    victim.start(QStringLiteral(LEDGER_VICTIM),
                 {home, QString::number(firstDraft), QString::number(InstancesPerBatch)});
    if (!victim.waitForStarted() || (waitUntilOpen && !victim.waitForReadyRead())) {
        return "did not get ready: "_s + QString::fromUtf8(victim.readAllStandardError());
    }
    QThread::msleep(static_cast<unsigned long>(milliseconds));
    victim.kill();
    victim.waitForFinished();
    return QString::fromUtf8(victim.readAllStandardError());
}

/// Every batch is there whole and once, and none before the last is missing. Returns how many there are.
int expectSound(const QString& home, bool withInstances)
{
    const auto opened = openToRead(home);
    EXPECT_EQ(opened.error, QString());
    if (!opened.ok()) {
        return 0;
    }
    const QList<Batch> batches = allBatches(*opened.value).value;
    QSet<QUuid> drafts;
    for (int i = 0; i < batches.size(); ++i) {
        drafts.insert(batches.at(i).draftId);
        EXPECT_EQ(batches.at(i).number, i + 1);
        EXPECT_EQ(batches.at(i).fileName, QString::number(i)) << "a draft was left out, or made twice";
    }
    EXPECT_EQ(drafts.size(), batches.size());
    if (withInstances) {
        const QList<Instance> instances = allInstances(*opened.value).value;
        EXPECT_EQ(instances.size(), batches.size() * InstancesPerBatch);
        for (const Instance& instance : instances) {
            EXPECT_EQ(instance.legs.size(), 1) << instance.id.text().toStdString();
        }
        for (const Batch& batch : batches) {
            EXPECT_EQ(opened.value->tableOf(batch.number).value.rows.size(), InstancesPerBatch);
        }
    }
    return batches.size();
}

} // namespace

TEST(KilledAtAnyMoment, TheLedgerHoldsEveryBatchWholeAndOnce)
{
    QTemporaryDir home;
    std::mt19937 random(20251103);
    constexpr int shortest = 25;
    constexpr int longest = 8000;
    int patience = shortest; // milliseconds within which a run is killed
    QElapsedTimer watch;
    watch.start();
    int kills = 0;
    int batches = 0;
    while (kills < Kills && (kills < LeastKills || batches <= kills / 4 || watch.elapsed() < TimeBoxMs)) {
        // every fourth is killed while it starts, opens, or makes the ledger
        const bool waitUntilOpen = kills % 4 != 0;
        const int moment = std::uniform_int_distribution<int>(0, patience)(random);
        ASSERT_EQ(killOneRun(home.path(), qMax(0, batches - RetriedDrafts), moment, waitUntilOpen),
                  QString());
        ++kills;
        const int now = expectSound(home.path(), kills % 20 == 0);
        ASSERT_GE(now, batches) << "a batch was lost";
        ASSERT_FALSE(HasFailure());
        // A machine so busy that hardly a batch comes through is given more time.
        patience = now * 3 >= kills ? shortest : std::min(longest, patience * 2);
        batches = now;
    }
    EXPECT_EQ(expectSound(home.path(), true), batches);
    EXPECT_GT(batches, kills / 4) << "the kills came too early to prove anything";
    RecordProperty("kills", kills);
    RecordProperty("batches", batches);
    const auto opened = openIn(home.path());
    ASSERT_EQ(opened.error, QString());
    EXPECT_EQ(opened.value->createBatch(sampleDraft(1)).value.number, batches + 1);
}
