#include "desk/verdict/Desk.h"
#include "tests/ledger/LedgerPlace.h"
#include "tests/ledger/SampleDrafts.h"
#include "tests/runner/RunnerTest.h"

#include <QJsonArray>

/// What is done with batches and instances that exist: approval, start, stop, withdrawal, settlement, halts,
/// the audit trail.
class ControlCommands : public RunnerTest {
protected:
    /// Two instances that were not started.
    void createStill()
    {
        const Run created = create(table("600000,SH,1000,1,0,0\n000001,SZ,200,1,0,0\n"));
        ASSERT_EQ(0, created.status) << created.out.constData();
    }

    void expectComplaint(const Run& run, const QString& reason)
    {
        EXPECT_EQ(1, run.status);
        expectValid(run.object(), "error.schema.json"_s);
        const QString error = run.object()["error"_s].toString();
        EXPECT_TRUE(error.contains(reason)) << error.toStdString();
    }

    QStringList states()
    {
        QStringList states;
        const QJsonArray instances = atHome({"instances"_s}).json().array();
        for (const QJsonValue& instance : instances) {
            states.append(instance.toObject()["state"_s].toString());
        }
        return states;
    }

    std::shared_ptr<ledger::Ledger> ledgerOf(const QString& user)
    {
        ledger::Ledger::Options options;
        options.user = user;
        const auto opened = openIn(home(), options);
        EXPECT_TRUE(opened.ok()) << opened.error.toStdString();
        return opened.value;
    }

    /// A batch of another user that waits, judged by the ceilings of the data folder.
    void createWaiting()
    {
        writeData("limits.csv"_s, "account,strategy,approvalAmount\n*,*,1\n");
        ledger::BatchDraft draft = sampleDraft({SampleRow()});
        draft.account = "A1"_s;
        draft.instances.first().legs.first().amount = 10000;
        const Outcome<verdict::Desk> desk = verdict::Desk::read(dataFolder());
        ASSERT_TRUE(desk.ok()) << desk.error.toStdString();
        ledger::CreationTerms terms;
        terms.limits = ledger::limitsFor(desk.value.limits, draft.account, draft.strategy);
        const Outcome<ledger::Batch> made = ledgerOf("colleague"_s)->createBatch(draft, terms);
        ASSERT_TRUE(made.ok()) << made.error.toStdString();
        ASSERT_EQ(ledger::BatchState::Waiting, made.value.state);
    }

    Run approve() { return atHome({"approve"_s, "1"_s, "--data"_s, dataFolder()}); }
};

TEST_F(ControlCommands, ApproveABatchOfAColleague)
{
    createWaiting();
    EXPECT_EQ(1, atHome({"status"_s}).object()["waiting"_s].toInt());
    const Run approved = approve();
    EXPECT_EQ(0, approved.status) << approved.out.constData();
    expectValid(approved.object(), "batch.schema.json"_s);
    EXPECT_EQ("created"_s, approved.object()["state"_s].toString());
    expectComplaint(approve(), "批次 1"_s);
}

TEST_F(ControlCommands, ApproveNothingThatWasJudgedByOtherCeilings)
{
    createWaiting();
    writeData("limits.csv"_s, "account,strategy,approvalAmount\n*,*,2\n");
    expectComplaint(approve(), "批次 1"_s);
    EXPECT_EQ("lapsed"_s, atHome({"batches"_s}).json().array().at(0).toObject()["state"_s].toString());
}

TEST_F(ControlCommands, DecideOnNoBatchOfTheirOwnUser)
{
    writeData("limits.csv"_s, "account,strategy,approvalAmount\n*,*,1\n");
    ASSERT_EQ(6, create(table(goodRow())).status);
    expectComplaint(approve(), "批次 1"_s);
    expectComplaint(atHome({"refuse"_s, "1"_s, "--reason"_s, "mine"_s}), "批次 1"_s);
    EXPECT_EQ("waiting"_s, atHome({"batches"_s}).json().array().at(0).toObject()["state"_s].toString());
}

TEST_F(ControlCommands, RefuseABatchWithAReason)
{
    createWaiting();
    expectRefused(atHome({"refuse"_s, "1"_s}), "--reason"_s);
    expectRefused(atHome({"refuse"_s, "one"_s, "--reason"_s, "too large"_s}), "one"_s);
    const Run refused = atHome({"refuse"_s, "1"_s, "--reason"_s, "too large"_s});
    EXPECT_EQ(0, refused.status) << refused.out.constData();
    expectValid(refused.object(), "batch.schema.json"_s);
    EXPECT_EQ("refused"_s, refused.object()["state"_s].toString());
    EXPECT_EQ(QStringList{"withdrawn"_s}, states());
}

TEST_F(ControlCommands, StartStopAndWithdrawWhatIsNamed)
{
    createStill();
    const Run started = atHome({"start"_s, "1-2"_s});
    EXPECT_EQ(0, started.status) << started.out.constData();
    expectValid(started.json().array(), "changes.schema.json"_s);
    EXPECT_EQ(QStringList({"created"_s, "running"_s}), states());
    EXPECT_EQ(0, atHome({"stop"_s, "--batch"_s, "1"_s}).status);
    EXPECT_EQ(QStringList({"created"_s, "stopped"_s}), states());
    const Run withdrawn = atHome({"withdraw"_s, "1-1"_s});
    EXPECT_EQ("1-1"_s, withdrawn.json().array().at(0).toObject()["id"_s].toString());
    EXPECT_EQ(QStringList({"withdrawn"_s, "stopped"_s}), states());
}

TEST_F(ControlCommands, ChangeNoneWhereOneCannotBe)
{
    createStill();
    ASSERT_EQ(0, atHome({"start"_s, "1-2"_s}).status);
    expectComplaint(atHome({"start"_s, "1-1"_s, "1-2"_s}), "1-2"_s);
    expectComplaint(atHome({"withdraw"_s, "1-1"_s, "1-9"_s}), "1-9"_s);
    expectComplaint(atHome({"stop"_s, "--batch"_s, "9"_s}), "没有批次 9"_s);
    EXPECT_EQ(QStringList({"created"_s, "running"_s}), states());
}

TEST_F(ControlCommands, WantInstancesNamedInOneWay)
{
    createStill();
    for (const QString& command : {"start"_s, "stop"_s, "withdraw"_s}) {
        expectRefused(atHome({command}), "--batch"_s);
        expectRefused(atHome({command, "1-1"_s, "--batch"_s, "1"_s}), "--batch"_s);
        expectRefused(atHome({command, "1-1"_s, "first"_s}), "first"_s);
        expectRefused(atHome({command, ""_s}), "不能为空"_s);
        expectRefused(atHome({command, "--batch"_s, "first"_s}), "first"_s);
    }
    EXPECT_EQ(QStringList({"created"_s, "created"_s}), states());
}

TEST_F(ControlCommands, StartNothingWhileItsAccountIsHalted)
{
    createStill();
    expectRefused(atHome({"halt"_s, "--account"_s, "A1"_s}), "--reason"_s);
    const Run halted = atHome({"halt"_s, "--account"_s, "A1"_s, "--reason"_s, "fat finger"_s});
    EXPECT_EQ(0, halted.status);
    expectValid(halted.object(), "status.schema.json"_s);
    expectComplaint(atHome({"start"_s, "--batch"_s, "1"_s}), "fat finger"_s);
    const Run status = atHome({"status"_s});
    expectValid(status.object(), "status.schema.json"_s);
    EXPECT_EQ("A1"_s, status.object()["halts"_s].toArray().at(0).toObject()["account"_s].toString());
    expectComplaint(atHome({"resume"_s, "--reason"_s, "all of them"_s}), "没有对全部账号的暂停"_s);
    EXPECT_EQ(0, atHome({"resume"_s, "--account"_s, "A1"_s, "--reason"_s, "checked"_s}).status);
    EXPECT_EQ(0, atHome({"start"_s, "--batch"_s, "1"_s}).status);
    EXPECT_EQ(QStringList({"running"_s, "running"_s}), states());
}

TEST_F(ControlCommands, SettleWhatIsUnknownAndNothingElse)
{
    createStill();
    expectComplaint(atHome({"settle"_s, "1-1"_s, "--as"_s, "stopped"_s, "--reason"_s, "asked"_s}), "1-1"_s);
    ASSERT_TRUE(tamperWith(home(), "UPDATE instance SET state = 'unknown' WHERE row_no = 1"_s));
    expectRefused(atHome({"settle"_s, "1-1"_s, "--as"_s, "created"_s, "--reason"_s, "asked"_s}), "created"_s);
    expectRefused(atHome({"settle"_s, "1-1"_s, "--as"_s, "stopped"_s}), "--reason"_s);
    expectRefused(atHome({"settle"_s, "1-1"_s, "--reason"_s, "asked"_s}), "--as"_s);
    const Run settled = atHome({"settle"_s, "1-1"_s, "--as"_s, "stopped"_s, "--reason"_s, "asked"_s});
    EXPECT_EQ(0, settled.status) << settled.out.constData();
    expectValid(settled.object(), "change.schema.json"_s);
    EXPECT_EQ(QStringList({"stopped"_s, "created"_s}), states());
}

TEST_F(ControlCommands, ListTheAuditTrailAndSeeWhereItWasChanged)
{
    createStill();
    ASSERT_EQ(0, atHome({"start"_s, "1-2"_s}).status);
    const Run all = atHome({"audit"_s});
    EXPECT_EQ(0, all.status);
    expectValid(all.json().array(), "audit.schema.json"_s);
    ASSERT_EQ(2, all.json().array().size());
    const QJsonArray later = atHome({"audit"_s, "--from"_s, "2"_s}).json().array();
    ASSERT_EQ(1, later.size());
    EXPECT_EQ("start"_s, later.at(0).toObject()["what"_s].toString());

    const Run sound = atHome({"audit"_s, "--verify"_s});
    EXPECT_EQ(0, sound.status);
    expectValid(sound.object(), "audit-verdict.schema.json"_s);
    EXPECT_EQ(later.at(0).toObject()["hash"_s], sound.object()["head"_s]);
    ASSERT_TRUE(tamperWith(home(), "UPDATE audit_entry SET subject = '1-1' WHERE number = 2"_s));
    const Run broken = atHome({"audit"_s, "--verify"_s});
    EXPECT_EQ(1, broken.status);
    expectValid(broken.object(), "audit-verdict.schema.json"_s);
    EXPECT_EQ(2, broken.object()["broken"_s].toInt());
}

TEST_F(ControlCommands, ReadAnAuditTrailByTheNumbersOfItsEntries)
{
    createStill();
    expectRefused(atHome({"audit"_s, "--from"_s, "0"_s}), "--from"_s);
    expectRefused(atHome({"audit"_s, "--verify"_s, "--from"_s, "2"_s}), "--from"_s);
    EXPECT_TRUE(atHome({"audit"_s, "--from"_s, "9"_s}).json().array().isEmpty());
}
