#include "gateway/handoff/FolderEngine.h"
#include "gateway/port/LedgerOutbox.h"
#include "gateway/program/Dispatch.h"
#include "tests/gateway/DeskLedger.h"
#include "tests/gateway/FolderBroker.h"
#include "tests/gateway/SampleOrders.h"
#include "tests/support/Text.h"

#include <gtest/gtest.h>

#include <QBuffer>
#include <QDir>
#include <QFile>
#include <QTemporaryDir>

#include <algorithm>
#include <atomic>
#include <thread>

using namespace gateway;

namespace {

using ledger::InstanceState;

/// A gateway between the desk's ledger and a real folder, in a thread of its own.
class FolderRun {
public:
    FolderRun(const QString& path, const DeskLedger& desk, const Profile& profile = sample::profile())
        : mLedger(desk.address()), mPrinter(mOutput), mEngine(optionsFor(path, profile), mInbox)
    {
        mOutput.open(QIODevice::WriteOnly);
        mThread = std::thread([this, profile] { run(profile); });
    }

    ~FolderRun()
    {
        mEnds = true;
        mThread.join();
    }

private:
    static FolderOptions optionsFor(const QString& path, const Profile& profile)
    {
        FolderOptions options;
        options.path = path;
        options.asksCounterparty = profile.statusRequest;
        options.quiet = std::chrono::milliseconds(300);
        options.pause = std::chrono::milliseconds(200);
        return options;
    }

    /// A ledger belongs to the thread that opened it.
    void run(const Profile& profile)
    {
        const auto opened = ledger::Ledger::open(mLedger);
        ASSERT_EQ(opened.error, QString());
        ledger::Gateway self;
        self.session = QString::fromStdString(mEngine.session());
        self.accounts = QStringList{"80010001"_s};
        auto claimed = ledger::Outbox::claim(opened.value, self);
        ASSERT_EQ(claimed.error, QString());
        LedgerOutbox port(opened.value, std::move(claimed.value));
        Dispatch::Terms terms;
        terms.profile = profile;
        terms.profile.statusRequest = true;
        terms.isAskedToEnd = [this] { return mEnds.load(); };
        Dispatch dispatch(terms, port, mEngine, mInbox, mPrinter);
        EXPECT_EQ(dispatch.begin().error, QString());
        EXPECT_EQ(mEngine.start(), "");
        dispatch.run();
        mEngine.stop();
        dispatch.finish();
    }

    const ledger::Address mLedger;
    Inbox mInbox;
    QBuffer mOutput;
    Printer mPrinter;
    FolderEngine mEngine;
    std::atomic<bool> mEnds{false};
    std::thread mThread;
};

class HandOff : public testing::Test {
protected:
    void SetUp() override { QDir(mFolder.path()).mkpath("in"_s); }

    /// One order, the only one of its batch.
    void add() { mLedger.create(1); }

    /// The ledger says `sending`, and the program is killed.
    void takeAndDie()
    {
        const auto opened = ledger::Ledger::open(mLedger.address());
        ledger::Gateway self;
        self.session = "FILES:"_s;
        self.accounts = QStringList{"80010001"_s};
        const auto claimed = ledger::Outbox::claim(opened.value, self);
        ASSERT_EQ(claimed.error, QString());
        ASSERT_EQ(claimed.value->take(10).value.size(), 1);
    }

    ledger::Instance order(int batch = 1) const { return mLedger.instance(batch, 1); }
    QString idOf(int batch = 1) const { return QString::fromStdString(mLedger.idOf(batch, 1)); }

    QStringList namesIn(const QString& folder) const
    {
        return QDir(mFolder.filePath(folder)).entryList(QDir::Files | QDir::Hidden, QDir::Name);
    }

    void put(const QString& name, const QByteArray& content, QIODevice::OpenMode mode = QIODevice::WriteOnly)
    {
        QFile file(mFolder.filePath(name));
        ASSERT_TRUE(file.open(mode)) << qPrintable(name);
        ASSERT_EQ(file.write(content), content.size());
    }

    void answer(const QString& name, const QByteArray& rows)
    {
        put("in/"_s + name, "ClOrdID,ExecID,ExecType,OrdStatus,CumQty,AvgPx,OrdStatusReqID\n" + rows);
    }

    QByteArray row(const char* rest) const { return idOf().toUtf8() + ',' + rest + '\n'; }

    bool reaches(InstanceState state, int batch = 1)
    {
        return waitUntil([&] { return order(batch).state == state; });
    }
    bool isTold(const QString& complaint)
    {
        const auto tells = [&](const QString& kept) { return kept.endsWith(complaint); };
        return waitUntil(
            [&] {
                const QStringList kept = mLedger.kept();
                return std::any_of(kept.begin(), kept.end(), tells);
            },
            10000);
    }

    QTemporaryDir mFolder;
    DeskLedger mLedger;
};

} // namespace

TEST_F(HandOff, AnOrderGoesOutAndIsFilled)
{
    FolderBroker broker(mFolder.path(), {});
    add();
    FolderRun run(mFolder.path(), mLedger);
    EXPECT_TRUE(reaches(InstanceState::Finished));
    EXPECT_EQ(order().filledQuantity.text(), "1000"_s);
    EXPECT_EQ(order().averagePrice.text(), "11.5"_s);
    EXPECT_EQ(broker.taken()[idOf()], 1);
    EXPECT_TRUE(waitUntil([&] { return namesIn("in"_s).isEmpty() && namesIn("read"_s).size() == 2; }));
    EXPECT_EQ(namesIn("ready"_s) + namesIn("refused"_s) + namesIn("out"_s), QStringList());
}

TEST_F(HandOff, ACancelGoesOutAndIsAnswered)
{
    FolderBroker::Options quiet;
    quiet.fills = false;
    FolderBroker broker(mFolder.path(), quiet);
    add();
    FolderRun run(mFolder.path(), mLedger);
    ASSERT_TRUE(reaches(InstanceState::Running));
    mLedger.stop(1, 1);
    EXPECT_TRUE(reaches(InstanceState::Stopped));
    EXPECT_EQ(broker.countOf("F"_s), 1);
}

TEST_F(HandOff, AFolderServesOneGatewayAtATime)
{
    FolderRun run(mFolder.path(), mLedger);
    ASSERT_TRUE(waitUntil([&] { return QFile::exists(mFolder.filePath(".lock"_s)); }));
    Inbox inbox;
    FolderOptions options;
    options.path = mFolder.path();
    EXPECT_EQ(FolderEngine(options, inbox).start(),
              "“" + mFolder.path().toStdString() + "”正由另一个网关使用");
}

TEST_F(HandOff, AFolderThatLacksIsNotMade)
{
    Inbox inbox;
    FolderOptions options;
    options.path = mFolder.filePath("no such"_s);
    EXPECT_NE(FolderEngine(options, inbox).start(), "");
    EXPECT_FALSE(QDir(options.path).exists());
}

TEST_F(HandOff, AReportCountsOnce)
{
    add();
    FolderRun run(mFolder.path(), mLedger);
    ASSERT_TRUE(waitUntil([&] { return namesIn("out"_s).size() == 1; }));
    answer("a.csv"_s, row("E1,F,1,400,11.50,"));
    ASSERT_TRUE(reaches(InstanceState::Running));
    answer("b.csv"_s, row("E1,F,1,900,99,") + row("E2,F,1,500,11.60,"));
    EXPECT_TRUE(waitUntil([&] { return order().filledQuantity.text() == "500"_s; }));
    EXPECT_TRUE(waitUntil([&] { return namesIn("read"_s).size() == 2; }));
    EXPECT_EQ(order().averagePrice.text(), "11.6"_s);
}

TEST_F(HandOff, AFileThatGrowsIsReadOn)
{
    add();
    FolderRun run(mFolder.path(), mLedger);
    ASSERT_TRUE(waitUntil([&] { return namesIn("out"_s).size() == 1; }));
    answer("a.csv"_s, row("E1,F,1,400,11.50,") + idOf().toUtf8() + ",E2,F,2,10");
    ASSERT_TRUE(waitUntil([&] { return order().filledQuantity.text() == "400"_s; }));
    put("in/a.csv"_s, "00,11.55,\n", QIODevice::WriteOnly | QIODevice::Append);
    EXPECT_TRUE(reaches(InstanceState::Finished));
    EXPECT_EQ(order().filledQuantity.text(), "1000"_s);
    EXPECT_TRUE(waitUntil([&] { return namesIn("read"_s) == QStringList{"a.csv"_s}; }));
}

TEST_F(HandOff, AFileThatIsNeverFinishedIsPutAside)
{
    add();
    FolderRun run(mFolder.path(), mLedger);
    ASSERT_TRUE(waitUntil([&] { return namesIn("out"_s).size() == 1; }));
    answer("a.csv"_s, row("E1,F,1,400,11.50,") + idOf().toUtf8() + ",E2,F,2,10");
    EXPECT_TRUE(isTold("a.csv：没有写完，最后一行未换行或引号未闭合"_s));
    EXPECT_TRUE(waitUntil([&] { return namesIn("refused"_s) == QStringList{"a.csv"_s}; }));
    EXPECT_EQ(order().filledQuantity.text(), "400"_s);
    EXPECT_EQ(order().state, InstanceState::Running);
}

TEST_F(HandOff, HostileAnswersChangeNothing)
{
    add();
    FolderRun run(mFolder.path(), mLedger);
    ASSERT_TRUE(waitUntil([&] { return namesIn("out"_s).size() == 1; }));
    answer("above.csv"_s, row("E1,F,1,1001,11.50,"));
    answer("text.csv"_s, row("E2,F,1,viel,11.50,") + row("E3,F,1,100,teuer,"));
    answer("foreign.csv"_s, "ABCDEFGHIJKLMNOPQRSTUVWXYZ-1,E4,F,2,100,11.50,\n");
    answer("status.csv"_s, row("E5,F,Q,100,11.50,"));
    answer("nameless.csv"_s, row(",F,1,100,11.50,"));
    put("in/huge.csv"_s, QByteArray(5 * 1024 * 1024, 'x'));
    put("in/header.csv"_s, "ClOrdID,OrdStatus,CumQyt\n");
    QDir(mFolder.path()).mkpath("in/folder.csv"_s);
    QFile::link("/dev/zero"_s, mFolder.filePath("in/endless.csv"_s));
    EXPECT_TRUE(isTold("成交数量 1001 超过委托数量 1000"_s));
    EXPECT_TRUE(isTold("“viel”不是数量或价格"_s));
    EXPECT_TRUE(isTold("“teuer”不是数量或价格"_s));
    EXPECT_TRUE(isTold("不是本台账的订单"_s));
    EXPECT_TRUE(isTold("回报缺少字段 17"_s));
    EXPECT_TRUE(isTold("huge.csv：文件超过 4 MiB"_s));
    EXPECT_TRUE(isTold("header.csv：不认识的列“CumQyt”"_s));
    EXPECT_EQ(order().state, InstanceState::Sending);
    EXPECT_EQ(order().filledQuantity.text(), "0"_s);
    EXPECT_TRUE(waitUntil([&] {
        return namesIn("refused"_s) == QStringList({"header.csv"_s, "huge.csv"_s});
    }));
    answer("last.csv"_s, row("E9,F,2,1000,11.50,"));
    EXPECT_TRUE(reaches(InstanceState::Finished));
}

TEST_F(HandOff, ADenialCountsOnlyWithItsQuestion)
{
    add();
    {
        FolderRun run(mFolder.path(), mLedger);
        ASSERT_TRUE(waitUntil([&] { return namesIn("out"_s).size() == 1; }));
    }
    QFile::remove(mFolder.filePath("out/"_s + namesIn("out"_s).first())); // the counterparty took it
    FolderRun run(mFolder.path(), mLedger);
    ASSERT_TRUE(waitUntil([&] { return namesIn("out"_s).size() == 1; }));
    EXPECT_TRUE(namesIn("out"_s).first().contains("-S"_s)) << "a question";
    answer("old.csv"_s, row(",I,8,0,0,S1-1") + row(",I,8,0,0,"));
    EXPECT_TRUE(isTold("old.csv：第 3 行：状态答复缺少 OrdStatusReqID"_s));
    std::this_thread::sleep_for(std::chrono::milliseconds(300));
    EXPECT_EQ(namesIn("out"_s).size(), 1) << "nothing was sent again";
}

TEST_F(HandOff, WhatNeverLeftIsSentWithoutAsking)
{
    add();
    takeAndDie();
    QDir(mFolder.path()).mkpath("ready"_s);
    put("ready/"_s + idOf() + ".csv"_s, "whole, and never out\n");
    FolderBroker broker(mFolder.path(), {});
    FolderRun run(mFolder.path(), mLedger);
    EXPECT_TRUE(reaches(InstanceState::Finished));
    EXPECT_EQ(broker.taken()[idOf()], 1);
    EXPECT_EQ(broker.countOf("H"_s), 0);
    EXPECT_EQ(namesIn("ready"_s), QStringList());
}

TEST_F(HandOff, WhatMayHaveLeftIsAPersonsWhereNobodyAnswersQuestions)
{
    add();
    takeAndDie();
    Profile profile = sample::profile();
    profile.statusRequest = false;
    FolderRun run(mFolder.path(), mLedger, profile);
    EXPECT_TRUE(reaches(InstanceState::Unknown));
    EXPECT_EQ(namesIn("out"_s), QStringList());
    answer("a.csv"_s, row("E1,F,2,1000,11.50,"));
    EXPECT_TRUE(reaches(InstanceState::Finished)) << "a report settles it after all";
}

TEST_F(HandOff, AnOrderThatLiesThereIsNotPutThereAgain)
{
    add();
    FolderRun run(mFolder.path(), mLedger);
    ASSERT_TRUE(waitUntil([&] { return namesIn("out"_s).size() == 1; }));
    const QString order = "out/"_s + namesIn("out"_s).first();
    put(order, "as the counterparty found it\n");
    const HandOffFolder folder(mFolder.path(), nullptr);
    EXPECT_TRUE(folder.placeOrder(idOf() + ".csv"_s, "another\n").ok());
    QFile file(mFolder.filePath(order));
    ASSERT_TRUE(file.open(QIODevice::ReadOnly));
    EXPECT_EQ(file.readAll(), "as the counterparty found it\n");
}

TEST_F(HandOff, AFolderThatGoesAndComesIsAskedAgain)
{
    FolderBroker::Options quiet;
    quiet.fills = false;
    FolderBroker broker(mFolder.path(), quiet);
    add();
    FolderRun run(mFolder.path(), mLedger);
    ASSERT_TRUE(reaches(InstanceState::Running));
    ASSERT_TRUE(QDir(mFolder.path()).rename("ready"_s, "away"_s));
    ASSERT_TRUE(waitUntil([&] { return mLedger.sessions().contains("disconnected 文件夹无法访问"_s); }));
    add();
    ASSERT_TRUE(QDir(mFolder.path()).rename("away"_s, "ready"_s));
    EXPECT_TRUE(reaches(InstanceState::Running, 2));
    EXPECT_TRUE(waitUntil([&] { return broker.countOf("H"_s) == 1; }));
    EXPECT_EQ(broker.taken().size(), 2U);
}
