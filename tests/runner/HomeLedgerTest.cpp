#include "tests/runner/RunnerTest.h"

#include <pwd.h>
#include <sys/file.h>
#include <unistd.h>

#include <QDir>
#include <QFile>
#include <QJsonArray>

/// What holds of a ledger in a file of the home, and where there is none yet.
class HomeLedger : public RunnerTest {
protected:
    void expectComplaint(const Run& run, const QString& reason)
    {
        EXPECT_EQ(1, run.status);
        expectValid(run.object(), "error.schema.json"_s);
        const QString error = run.object()["error"_s].toString();
        EXPECT_TRUE(error.contains(reason)) << error.toStdString();
    }
};

TEST_F(HomeLedger, CreatesNothingWhileAnotherProcessMakesTheLedger)
{
    ASSERT_TRUE(QDir().mkpath(home()));
    QFile lock(home() + "/ledger.sqlite.lock"_s);
    ASSERT_TRUE(lock.open(QIODevice::WriteOnly));
    ASSERT_EQ(0, flock(lock.handle(), LOCK_EX | LOCK_NB));
    const Run refused = create(table(goodRow()));
    EXPECT_EQ(1, refused.status);
    EXPECT_TRUE(creation(refused)["error"_s].toString().contains("正忙"_s)) << refused.out.constData();
    EXPECT_TRUE(atHome({"batches"_s}).json().array().isEmpty());
    lock.close();
    EXPECT_EQ(0, create(table(goodRow())).status);
}

TEST_F(HomeLedger, WritesDownTheUserOfTheSystem)
{
    ASSERT_EQ(0, create(table(goodRow())).status);
    const QJsonObject batch = atHome({"batches"_s}).json().array().at(0).toObject();
    EXPECT_EQ(QString::fromLocal8Bit(getpwuid(geteuid())->pw_name), batch["createdBy"_s].toString());
}

TEST_F(HomeLedger, LeaveNothingOutsideTheirHome)
{
    const QString file = table(goodRow());
    ASSERT_EQ(0, create(file).status);
    EXPECT_TRUE(QFile::exists(home() + "/ledger.sqlite"_s));
    EXPECT_EQ(QStringList({"data"_s, "home"_s, "list.csv"_s}),
              QDir(folder()).entryList(QDir::AllEntries | QDir::Hidden | QDir::NoDotAndDotDot, QDir::Name));
}

TEST_F(HomeLedger, MakeNoLedgerInAHomeThatWasMistyped)
{
    const Run run = atHome({"undo"_s, "7"_s});
    EXPECT_EQ(1, run.status);
    EXPECT_TRUE(run.object()["error"_s].toString().contains("没有批次 7"_s)) << run.out.constData();
    EXPECT_FALSE(QDir(home()).exists());
}

/// The program that comes later finds the halt; a home that was only mistyped is said to be a new one.
TEST_F(HomeLedger, HaltWhereThereIsNoLedgerYetAndSaySo)
{
    expectRefused(atHome({"halt"_s, "--reason"_s, " "_s}), "--reason"_s);
    EXPECT_FALSE(QDir(home()).exists());
    const Run halted = atHome({"halt"_s, "--reason"_s, "fat finger"_s});
    EXPECT_EQ(0, halted.status) << halted.out.constData();
    EXPECT_EQ(1, halted.object()["halts"_s].toArray().size());
    EXPECT_TRUE(QString::fromUtf8(halted.err).contains(home() + "/ledger.sqlite"_s))
        << halted.err.constData();
    EXPECT_EQ(1, create(table(goodRow())).status) << "nothing is created";
    EXPECT_EQ(QByteArray(), atHome({"halt"_s, "--reason"_s, "again"_s}).err);
}

TEST_F(HomeLedger, ResumeAndTellOfNothingWhereThereIsNoLedger)
{
    expectComplaint(atHome({"resume"_s, "--reason"_s, "checked"_s}), "没有算法台账"_s);
    const Run status = atHome({"status"_s});
    EXPECT_EQ(0, status.status);
    EXPECT_TRUE(status.object()["halts"_s].toArray().isEmpty());
    EXPECT_EQ(0, atHome({"report"_s}).status);
    EXPECT_EQ("[]"_s, QString::fromUtf8(atHome({"batches"_s}).out.simplified()).remove(QLatin1Char(' ')));
    EXPECT_FALSE(QDir(home()).exists()) << "looking leaves no trace";
}
