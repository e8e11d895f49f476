#include "tests/ledger/LedgerPlace.h"
#include "tests/ledger/SampleDrafts.h"

#include <gtest/gtest.h>

#include <QElapsedTimer>
#include <QProcess>
#include <QThread>

#include <algorithm>
#include <random>

using namespace ledger;

namespace {

constexpr int Kills = 40;
/// A slow machine does fewer kills, but never fewer than this.
constexpr int LeastKills = 10;
constexpr qint64 TimeBoxMs = 30000;
constexpr int RetriedDrafts = 2;

/// Starts the replacer, lets it work for a moment and kills it. What it complained of, if anything.
QString killOneRun(const Address& place, int firstDraft, int milliseconds)
{
    QProcess replacer;
    replacer.start(QStringLiteral(LEDGER_REPLACER), {place.shown(), QString::number(firstDraft)});
    if (!replacer.waitForStarted() || !replacer.waitForReadyRead(60000)) {
        return "did not get ready: "_s + QString::fromUtf8(replacer.readAllStandardError());
    }
    QThread::msleep(static_cast<unsigned long>(milliseconds));
    replacer.kill();
    replacer.waitForFinished();
    return QString::fromUtf8(replacer.readAllStandardError());
}

/// The newest batch stands, and all before it are withdrawn, each throughout. How many there are.
int expectOneStanding(const Ledger& ledger)
{
    const QList<Batch> batches = allBatches(ledger).value;
    for (const Batch& batch : batches) {
        const bool isLast = batch.number == batches.size();
        EXPECT_EQ(batch.fileName, QString::number(batch.number - 1)) << "a draft was left out, or made twice";
        EXPECT_EQ(batch.state, isLast ? BatchState::Created : BatchState::Withdrawn) << batch.number;
        const auto counts = ledger.counts(batch.number).value;
        EXPECT_EQ(counts.value(isLast ? InstanceState::Created : InstanceState::Withdrawn), 5)
            << batch.number;
    }
    const AccountDay day = ledger.status().value.days.value(0);
    EXPECT_EQ(day.buy.text(), batches.isEmpty() ? "0"_s : "500"_s) << "of one batch";
    EXPECT_EQ(day.batches, batches.isEmpty() ? 0 : 1);
    return batches.size();
}

} // namespace

TEST(AReplacementKilledAtAnyMoment, WithdrawsAndCreatesOrDoesNeither)
{
    const QTemporaryDir home;
    const Address place = ledgerPlace(home.path(), QString());
    std::mt19937 random(20261122);
    constexpr int shortest = 25;
    constexpr int longest = 8000;
    int patience = shortest; // milliseconds within which a run is killed
    QElapsedTimer watch;
    watch.start();
    int kills = 0;
    int batches = 0;
    while (kills < Kills && (kills < LeastKills || batches <= kills / 4 || watch.elapsed() < TimeBoxMs)) {
        const int moment = std::uniform_int_distribution<int>(0, patience)(random);
        ASSERT_EQ(killOneRun(place, std::max(0, batches - RetriedDrafts), moment), QString());
        ++kills;
        const auto opened = openToRead(home.path());
        ASSERT_EQ(opened.error, QString());
        const int now = expectOneStanding(*opened.value);
        ASSERT_GE(now, batches) << "a batch was lost";
        ASSERT_FALSE(HasFailure());
        patience = now * 3 >= kills ? shortest : std::min(longest, patience * 2);
        batches = now;
    }
    EXPECT_GT(batches, kills / 4) << "the kills came too early to prove anything";
    EXPECT_FALSE(openToRead(home.path()).value->verifyAudit().value.broken.has_value());
    RecordProperty("kills", kills);
    RecordProperty("batches", batches);
}
