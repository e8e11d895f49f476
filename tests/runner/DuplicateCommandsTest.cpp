#include "tests/runner/RunnerTest.h"

#include <QJsonArray>

/// import --create --duplicates: what becomes of orders that the ledger holds already.
class DuplicateCommands : public RunnerTest {
protected:
    /// Two orders that were not started, batch 1.
    void createFirst() { ASSERT_EQ(0, create(table("600000,SH,1000,1,0,0\n000001,SZ,200,1,0,0\n")).status); }

    static QJsonObject duplicates(const Run& created)
    {
        expectValid(creation(created), "create.schema.json"_s);
        return creation(created)["duplicates"_s].toObject();
    }

    static int rowCount(const Run& created)
    {
        return creation(created)["batch"_s].toObject()["rowCount"_s].toInt();
    }

    QStringList batchStates()
    {
        QStringList states;
        const QJsonArray batches = atHome({"batches"_s}).json().array();
        for (const QJsonValue& batch : batches) {
            states.append(batch.toObject()["state"_s].toString());
        }
        return states;
    }

    void expectNotCreated(const Run& run, const QString& reason)
    {
        EXPECT_EQ(1, run.status);
        const QString error = creation(run)["error"_s].toString();
        EXPECT_TRUE(error.contains(reason)) << run.out.constData();
        EXPECT_EQ(QStringList{"created"_s}, batchStates());
    }
};

TEST_F(DuplicateCommands, LeaveOutWhatTheLedgerHolds)
{
    createFirst();
    const QString file =
        table("000001,SZ,200,1,0,0\n600000,SH,3000,1,0,0\n600000,SH,1000,1,0,0\n", "more.csv"_s);
    EXPECT_EQ(1, create(file).status) << "asked for without the option";
    const Run created = create(file, {"--duplicates"_s, "leave-out"_s});
    ASSERT_EQ(0, created.status) << created.out.constData();
    EXPECT_EQ((QJsonArray{1, 3}), duplicates(created)["leftOut"_s].toArray());
    EXPECT_EQ(1, rowCount(created));
    const QJsonObject leg = atHome({"instances"_s, "--batch"_s, "2"_s})
                                .json()
                                .array()
                                .at(0)
                                .toObject()["legs"_s]
                                .toArray()
                                .at(0)
                                .toObject();
    EXPECT_EQ(3000, leg["quantity"_s].toInt());
}

TEST_F(DuplicateCommands, LeaveOutEachOrderAsOftenAsItIsHeld)
{
    createFirst();
    const Run created = create(table("600000,SH,1000,1,0,0\n600000,SH,1000,1,0,0\n", "twice.csv"_s),
                               {"--duplicates"_s, "leave-out"_s, "--accept"_s, "row.repeated,sameRows"_s});
    ASSERT_EQ(0, created.status) << created.out.constData();
    EXPECT_EQ((QJsonArray{1}), duplicates(created)["leftOut"_s].toArray());
}

TEST_F(DuplicateCommands, CreateNothingWhereNothingIsLeft)
{
    createFirst();
    const QString file = table("600000,SH,1000,1,0,0\n000001,SZ,200,1,0,0\n");
    expectNotCreated(create(file, {"--duplicates"_s, "leave-out"_s}), "2 行都已在台账中"_s);
    expectNotCreated(create(file, {"--duplicates"_s, "changed-only"_s, "--against"_s, "1"_s}),
                     "2 行都已在台账中"_s);
}

TEST_F(DuplicateCommands, CreateOnlyWhatChangedAgainstABatch)
{
    createFirst();
    const Run created =
        create(table("600000,SH,1000,1,0,0\n000001,SZ,300,1,0,0\n600000,SH,100,2,0,0\n", "edited.csv"_s),
               {"--duplicates"_s, "changed-only"_s, "--against"_s, "1"_s});
    ASSERT_EQ(0, created.status) << created.out.constData();
    EXPECT_EQ((QJsonArray{1}), duplicates(created)["leftOut"_s].toArray());
    EXPECT_EQ(1, duplicates(created)["against"_s].toInt());
    EXPECT_EQ(2, rowCount(created));
}

TEST_F(DuplicateCommands, PutTheNewBatchInThePlaceOfTheOld)
{
    createFirst();
    const QString file = table("600000,SH,1000,1,0,0\n000001,SZ,300,1,0,0\n", "edited.csv"_s);
    const Run created = create(file, {"--duplicates"_s, "replace"_s, "--against"_s, "1"_s});
    ASSERT_EQ(0, created.status) << created.out.constData();
    EXPECT_EQ((QStringList{"withdrawn"_s, "created"_s}), batchStates());
    EXPECT_EQ("replace"_s, duplicates(created)["way"_s].toString());
    EXPECT_TRUE(duplicates(created)["leftOut"_s].toArray().isEmpty());
    const Run again = create(file, {"--duplicates"_s, "replace"_s, "--against"_s, "1"_s});
    EXPECT_EQ(1, again.status) << "it is gone already";
    EXPECT_EQ((QStringList{"withdrawn"_s, "created"_s}), batchStates());
}

TEST_F(DuplicateCommands, DoNotReplaceWhatWasStarted)
{
    createFirst();
    ASSERT_EQ(0, atHome({"start"_s, "1-1"_s}).status);
    expectNotCreated(create(table(goodRow()), {"--duplicates"_s, "replace"_s, "--against"_s, "1"_s}),
                     "1 个实例已经启动或发出（1-1）"_s);
    expectNotCreated(create(table(goodRow()), {"--duplicates"_s, "replace"_s, "--against"_s, "9"_s}),
                     "没有批次 9"_s);
}

TEST_F(DuplicateCommands, RefuseWrongUsage)
{
    const QString file = table(goodRow());
    expectRefused(create(file, {"--duplicates"_s, "drop"_s}), "leave-out"_s);
    expectRefused(create(file, {"--duplicates"_s, "replace"_s}), "--against N"_s);
    expectRefused(create(file, {"--duplicates"_s, "replace"_s, "--against"_s, "x"_s}), "“x”"_s);
    expectRefused(create(file, {"--against"_s, "1"_s}), "--against"_s);
    expectRefused(create(file, {"--duplicates"_s, "leave-out"_s, "--against"_s, "1"_s}), "--against"_s);
    expectRefused(import(file, aitwap() + QStringList{"--duplicates"_s, "leave-out"_s}), "--create"_s);
}
