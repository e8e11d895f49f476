#include "tests/gateway/DeskLedger.h"
#include "tests/gateway/FolderBroker.h"
#include "tests/gateway/GatewayRun.h"
#include "tests/gateway/SampleOrders.h"

#include <gtest/gtest.h>

#include <QDir>
#include <QFile>
#include <QProcess>

#include <random>

namespace {

using ledger::InstanceState;

QString handOffFolder(const DeskLedger& desk)
{
    const QString path = desk.folder().filePath(QStringLiteral("handoff"));
    for (const QString& name : {QStringLiteral("/out"), QStringLiteral("/in")}) {
        EXPECT_TRUE(QDir().mkpath(path + name));
    }
    return path;
}

/// A gateway in a process of its own, which kills itself behind a number of steps; 0: it does not.
class FolderVictim {
public:
    FolderVictim(const DeskLedger& desk, const QString& folder, int steps,
                 int statusTimeoutSeconds = PatientSeconds)
    {
        QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
        environment.insert(QStringLiteral("KILL_AT_STEP"), QString::number(steps));
        mProcess.setProcessEnvironment(environment);
        mProcess.setProcessChannelMode(QProcess::ForwardedErrorChannel);
        mProcess.setStandardOutputFile(QProcess::nullDevice());
        mProcess.start(QStringLiteral(GATEWAY_VICTIM),
                       {folder, profileFile(desk.folder(), statusTimeoutSeconds), desk.address().shown(),
                        QStringLiteral("0")});
        EXPECT_TRUE(mProcess.waitForStarted());
    }

    ~FolderVictim()
    {
        mProcess.kill();
        mProcess.waitForFinished();
    }

    /// Whether it died by itself within so many milliseconds.
    bool dies(int milliseconds)
    {
        return mProcess.waitForFinished(milliseconds) && mProcess.exitStatus() == QProcess::CrashExit;
    }

    int end()
    {
        mProcess.terminate();
        EXPECT_TRUE(mProcess.waitForFinished(60000));
        return mProcess.exitCode();
    }

private:
    QProcess mProcess;
};

class HandOffKills : public testing::TestWithParam<unsigned int> {};

} // namespace

/// At whatever step it dies, each order is taken out of the folder once, and the ledger says so in the end.
TEST_P(HandOffKills, EveryOrderIsTakenOnce)
{
    const int count = 60;
    DeskLedger desk;
    const QString folder = handOffFolder(desk);
    FolderBroker::Options clumsy;
    clumsy.seed = GetParam();
    clumsy.isClumsy = true;
    FolderBroker broker(folder, clumsy);
    desk.create(count / 2);
    desk.create(count - count / 2);
    std::mt19937 random(GetParam());
    int deaths = 0;
    for (int i = 0; i < 15 || (deaths <= 5 && i < 60); ++i) { // a slow machine needs more attempts
        FolderVictim victim(desk, folder, 1 + static_cast<int>(random() % 40));
        deaths += victim.dies(1500) ? 1 : 0;
    }
    FolderVictim survivor(desk, folder, 0);
    EXPECT_TRUE(waitUntil([&] { return desk.countOf(InstanceState::Finished) == count; }, 180000))
        << desk.story();
    EXPECT_EQ(survivor.end(), 0);
    EXPECT_GT(deaths, 5) << "few were killed";
    const std::map<QString, int> taken = broker.taken();
    EXPECT_EQ(taken.size(), static_cast<std::size_t>(count));
    for (const auto& order : taken) {
        EXPECT_EQ(order.second, 1) << qPrintable(order.first);
    }
    EXPECT_EQ(desk.instance(1, 1).filledQuantity.text(), QStringLiteral("1000"));
    EXPECT_EQ(desk.instance(2, 30).averagePrice.text(), QStringLiteral("11.5"));
}

INSTANTIATE_TEST_SUITE_P(BySeed, HandOffKills, testing::Range(1U, 7U));

/// Where the counterparty answers no questions, nothing goes out that may have gone out before.
TEST(HandOffWithoutAnswers, NoOrderIsTakenTwice)
{
    DeskLedger desk;
    const QString folder = handOffFolder(desk);
    FolderBroker::Options silent;
    silent.answersQuestions = false;
    FolderBroker broker(folder, silent);
    desk.create(40);
    for (const int steps : {2, 3, 4, 7, 11}) {
        FolderVictim victim(desk, folder, steps, SilentSeconds);
        EXPECT_TRUE(victim.dies(60000));
    }
    FolderVictim survivor(desk, folder, 0, SilentSeconds);
    EXPECT_TRUE(waitUntil(
        [&] { return desk.countOf(InstanceState::Finished) + desk.countOf(InstanceState::Unknown) == 40; },
        180000))
        << desk.story();
    EXPECT_EQ(survivor.end(), 0);
    for (const auto& order : broker.taken()) {
        EXPECT_EQ(order.second, 1) << qPrintable(order.first);
    }
    EXPECT_EQ(desk.countOf(InstanceState::Finished), static_cast<int>(broker.taken().size()));
}
