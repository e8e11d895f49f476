#include "tests/runner/RunnerTest.h"

#include <QDir>
#include <QFile>
#include <QJsonArray>
#include <QSet>

/// From a confirmed import to instances, and back: --create, batches, instances, undo, diff; and the refused
/// rows.
class LedgerCommands : public RunnerTest {
protected:
    /// The answer goes to a full disk.
    Run createUntold(const QString& file)
    {
        QProcess process;
        prepare(process);
        process.setStandardOutputFile("/dev/full"_s);
        process.setArguments(importArguments(
            file, aitwap() + QStringList{"--confirm"_s, "--create"_s, "--accept"_s, "sameFile"_s}));
        process.start(QIODevice::ReadOnly);
        return finish(process);
    }

    static QJsonObject guard(const Run& created) { return creation(created)["guard"_s].toObject(); }

    /// Says why nothing was created, and has nothing in the ledger.
    void expectNotCreated(const Run& run, const QString& reason)
    {
        EXPECT_EQ(1, run.status);
        expectValid(creation(run), "create.schema.json"_s);
        EXPECT_TRUE(creation(run)["batch"_s].isNull());
        const QString error = creation(run)["error"_s].toString();
        EXPECT_TRUE(error.contains(reason)) << error.toStdString();
        EXPECT_TRUE(atHome({"batches"_s}).json().array().isEmpty());
    }

    static QStringList rules(const Run& created, const QString& kind)
    {
        QStringList rules;
        for (const QJsonValue& finding : guard(created).value(kind).toArray()) {
            rules.append(finding.toObject().value("rule"_s).toString());
        }
        return rules;
    }
};

TEST_F(LedgerCommands, CreatesAConfirmedBatchListsItAndTakesItBack)
{
    const Run created = create(table(goodRow() + goodRow()), {"--accept"_s, "row.repeated"_s});
    ASSERT_EQ(0, created.status) << created.out.constData();

    const QJsonArray batches = atHome({"batches"_s}).json().array();
    ASSERT_EQ(1, batches.size());
    EXPECT_EQ(2, batches.at(0).toObject().value("rowCount"_s).toInt());
    EXPECT_EQ(2, atHome({"instances"_s, "--batch"_s, "1"_s}).json().array().size());

    const Run undone = atHome({"undo"_s, "1"_s});
    EXPECT_EQ("partly_reversed"_s, undone.object().value("state"_s).toString()) << "they were running";
    const QJsonArray after = atHome({"batches"_s}).json().array();
    EXPECT_EQ("partly_reversed"_s, after.at(0).toObject().value("state"_s).toString());
}

TEST_F(LedgerCommands, WantsConsentToASecondImportOfTheSameFile)
{
    const QString file = table(goodRow());
    ASSERT_EQ(0, create(file).status);
    const Run again = create(file);
    EXPECT_EQ(1, again.status);
    EXPECT_TRUE(rules(again, "warnings"_s).contains("sameFile"_s)) << again.out.constData();
    EXPECT_EQ(1, atHome({"batches"_s}).json().array().size());
    EXPECT_EQ(1, create(file, {"--yes"_s}).status) << "of messages alone";
    EXPECT_EQ(1, create(file, {"--accept"_s, "bothSides"_s}).status) << "another rule";
    EXPECT_EQ(0, create(file, {"--accept"_s, "bothSides,sameFile"_s}).status);
    EXPECT_EQ(2, atHome({"batches"_s}).json().array().size());
}

TEST_F(LedgerCommands, LetsNobodyPastACeiling)
{
    writeData("limits.csv"_s, "account,strategy,maxRowQuantity\n*,*,999\n");
    const Run refused = create(table(goodRow()), {"--yes"_s});
    EXPECT_EQ(1, refused.status);
    EXPECT_EQ(QStringList{"rowQuantity"_s}, rules(refused, "refusals"_s));
    EXPECT_TRUE(atHome({"batches"_s}).json().array().isEmpty());
}

TEST_F(LedgerCommands, CreatesNothingWhereTheDialogComplains)
{
    expectNotCreated(create(table(badRow())), "未能确定"_s);
}

TEST_F(LedgerCommands, CreatesPartOfAFileOnlyWithConsent)
{
    const QString file = table(goodRow() + badRow());
    const Run refused = create(file);
    expectNotCreated(refused, "导入时有提示"_s);
    EXPECT_TRUE(creation(refused)["guard"_s].isNull());
    const Run asked = create(file, {"--yes"_s});
    EXPECT_EQ(QStringList{"rows.missing"_s}, rules(asked, "warnings"_s));
    expectNotCreated(asked, "文件的 2 行委托中有 1 行没有导入"_s);
    const Run agreed = create(file, {"--yes"_s, "--accept"_s, "rows.missing"_s});
    EXPECT_EQ(1, agreed.status) << "there was a message";
    EXPECT_EQ(1, creation(agreed)["batch"_s].toObject()["rowCount"_s].toInt());
}

TEST_F(LedgerCommands, CreatesNothingOfAQuantityThatIsNoNumber)
{
    const Run refused = create(table("600000,SH,\"1,000\",1,0,7\n"), {"--yes"_s});
    expectNotCreated(refused, "既没有委托数量也没有委托金额"_s);
    EXPECT_EQ(QStringList{"noQuantity"_s}, rules(refused, "refusals"_s));
}

TEST_F(LedgerCommands, WantsALargeAmountTypedOnceMore)
{
    writeData("limits.csv"_s, "account,strategy,confirmAmount\n*,*,10000\n");
    const QString file = table(goodRow());
    expectNotCreated(create(file, {"--yes"_s}), "10,000"_s);
    expectNotCreated(create(file, {"--amount"_s, "9999"_s}), "10,000"_s);
    EXPECT_EQ(0, create(file, {"--amount"_s, "10,000"_s}).status);
}

TEST_F(LedgerCommands, OfManyProcessesAtOnceMakeAsManyBatchesAsTheySay)
{
    ASSERT_EQ(0, create(table(goodRow())).status);
    const QStringList arguments = importArguments(
        table(goodRow()), aitwap() + QStringList{"--confirm"_s, "--create"_s, "--accept"_s, "sameFile"_s});
    QProcess processes[4];
    for (QProcess& process : processes) {
        prepare(process);
        process.setArguments(arguments);
        process.start(QIODevice::ReadOnly);
    }
    QSet<int> numbers = {1};
    for (QProcess& process : processes) {
        const Run run = finish(process);
        if (run.status == 0) {
            numbers.insert(creation(run)["batch"_s].toObject()["number"_s].toInt());
        } else {
            EXPECT_TRUE(creation(run)["error"_s].toString().contains("刚刚创建了相同的委托"_s))
                << run.out.constData();
        }
    }
    EXPECT_EQ(numbers.size(), atHome({"batches"_s}).json().array().size());
}

/// What a kill between the commit and the answer leaves: the batch, and the draft's id in the home.
TEST_F(LedgerCommands, FindTheBatchAgainThatAKilledRunDidNotTell)
{
    const QString file = table(goodRow());
    ASSERT_EQ(0, create(file).status);
    EXPECT_TRUE(QDir(home() + "/drafts"_s).isEmpty()) << "who was told needs no id";
    const Run untold = createUntold(file);
    EXPECT_EQ(5, untold.status);
    ASSERT_FALSE(QDir(home() + "/drafts"_s).isEmpty());
    const Run again = create(file, {"--accept"_s, "sameFile"_s});
    EXPECT_EQ(0, again.status);
    EXPECT_EQ(2, creation(again)["batch"_s].toObject()["number"_s].toInt());
    EXPECT_TRUE(creation(again)["repeated"_s].toBool());
    EXPECT_EQ(2, atHome({"batches"_s}).json().array().size());
    EXPECT_EQ(3,
              creation(create(file, {"--accept"_s, "sameFile"_s}))["batch"_s].toObject()["number"_s].toInt())
        << "meant once more";
}

TEST_F(LedgerCommands, SayThatABatchWaitsForASecondPerson)
{
    writeData("limits.csv"_s, "account,strategy,approvalAmount\n*,*,1\n");
    const Run waiting = create(table(goodRow()));
    EXPECT_EQ(6, waiting.status);
    EXPECT_EQ("waiting"_s, creation(waiting)["batch"_s].toObject()["state"_s].toString());
}

TEST_F(LedgerCommands, ShowWhoOptedOutOfTheGeneralCeilings)
{
    writeData("limits.csv"_s, "account,strategy,maxRowQuantity,replacesGeneral\n*,*,999,\nA1,*,5000,1\n");
    const Run made = create(table(goodRow()));
    EXPECT_EQ(0, made.status) << made.out.constData();
    EXPECT_EQ(QJsonValue(QJsonArray{"A1 *"_s}), guard(made)["summary"_s].toObject()["optedOut"_s]);
}

/// What a desk's rules.csv says is what is done, above the product's floors.
TEST_F(LedgerCommands, DoAboutARuleWhatTheDeskSays)
{
    const QString twice = table(goodRow() + goodRow());
    const QStringList accepting = {"--accept"_s, "row.repeated"_s};
    writeData("rules.csv"_s, "rule,action\nrow.repeated,refuse\n");
    EXPECT_EQ(QStringList{"row.repeated"_s}, rules(create(twice, accepting), "refusals"_s));
    writeData("rules.csv"_s, "rule,action\nrow.repeated,tell\n");
    expectRefused(create(twice), "rules.csv:2"_s);
    writeData("rules.csv"_s, "rule,action\nrow.repeated,ask\n");
    EXPECT_EQ(QStringList{"row.repeated"_s}, rules(create(twice), "warnings"_s));
    EXPECT_EQ(0, create(twice, accepting).status);
}

TEST_F(LedgerCommands, LetNobodySplitABatchBelowACeilingOfTheDay)
{
    writeData("limits.csv"_s, "account,strategy,maxDayInstances\n*,*,2\n");
    EXPECT_EQ(0, create(table(goodRow())).status);
    EXPECT_EQ(0, create(table("600000,SH,2000,1,0,7\n", "b.csv"_s)).status);
    const Run third = create(table("600000,SH,3000,1,0,7\n", "c.csv"_s));
    EXPECT_EQ(1, third.status);
    EXPECT_EQ(QStringList{"dayInstances"_s}, rules(third, "refusals"_s));
}

TEST_F(LedgerCommands, PrintWhatTheirSchemasDescribe)
{
    const QString file = table(goodRow() + "000001,SZ,200,2,0,0\n");
    const Run created = create(file);
    ASSERT_EQ(0, created.status) << created.out.constData();
    expectValid(creation(created), "create.schema.json"_s);
    expectValid(creation(create(file)), "create.schema.json"_s);
    expectValid(atHome({"batches"_s}).json().array(), "batches.schema.json"_s);
    expectValid(atHome({"instances"_s}).json().array(), "instances.schema.json"_s);
    const QString edited = table("600000,SH,2000,1,0,7\n" + badRow() + goodRow(), "edited.csv"_s);
    const Run diff = atHome({"diff"_s, "1"_s, edited, "--data"_s, dataFolder()});
    EXPECT_EQ(1, diff.object()["messageBoxes"_s].toArray().size());
    expectValid(diff.object(), "diff.schema.json"_s);
    expectValid(atHome({"undo"_s, "1"_s}).object(), "undo.schema.json"_s);
    for (const QStringList& wrong :
         {QStringList{"undo"_s, "9"_s}, {"instances"_s, "--batch"_s, "9"_s}, {"diff"_s, "9"_s, edited}}) {
        expectValid(atHome(wrong).object(), "error.schema.json"_s);
    }
}

TEST_F(LedgerCommands, ComparesAnEditedFileWithItsBatch)
{
    ASSERT_EQ(0, create(table(goodRow())).status);
    const QString edited = table("600000,SH,2000,1,0,7\n", "edited.csv"_s);
    const Run diff = atHome({"diff"_s, "1"_s, edited, "--data"_s, dataFolder()});
    EXPECT_EQ(0, diff.status);
    const QJsonObject change = diff.object().value("cellsChanged"_s).toArray().at(0).toObject();
    EXPECT_EQ("委托数量"_s, change.value("column"_s).toString());
    EXPECT_EQ("1000"_s, change.value("before"_s).toString());
    EXPECT_EQ("2000"_s, change.value("after"_s).toString());
}

TEST_F(LedgerCommands, WritesAsManyRefusedRowsAsThereAreErrors)
{
    const QString rejects = folder() + "/rejects.csv"_s;
    const Run run =
        import(table(goodRow() + badRow() + badRow()), aitwap() + QStringList{"--rejects"_s, rejects});
    EXPECT_EQ(2, run.object().value("rejects"_s).toObject().value("rows"_s).toInt());
    QFile file(rejects);
    ASSERT_TRUE(file.open(QIODevice::ReadOnly));
    EXPECT_EQ(3, file.readAll().count("\r\n"));
}

TEST_F(LedgerCommands, WriteNoRejectsOfAFileThatCannotBeRead)
{
    const QString rejects = write("rejects.csv"_s, "kept");
    const Run run =
        import(write("page.csv"_s, "<html></html>"), aitwap() + QStringList{"--rejects"_s, rejects});
    EXPECT_EQ(1, run.status);
    EXPECT_FALSE(run.object()["rejects"_s].toObject()["error"_s].toString().isEmpty());
    QFile file(rejects);
    ASSERT_TRUE(file.open(QIODevice::ReadOnly));
    EXPECT_EQ("kept", file.readAll());
}

TEST_F(LedgerCommands, SayByTheirStatusThatRejectsCouldNotBeWritten)
{
    const Run run = import(table(goodRow()), aitwap() + QStringList{"--rejects"_s, folder() + "/no/r.csv"_s});
    EXPECT_EQ(1, run.status);
    EXPECT_FALSE(run.object()["rejects"_s].toObject()["error"_s].toString().isEmpty());
}

TEST_F(LedgerCommands, WriteTheRowOfALockWhoseLegsAreAtFaultAndNotTheOneThatItsNumberNames)
{
    const QString file =
        write("lock.csv"_s, "证券代码,市场,委托数量,交易方向,委托属性,委托限价,创建后是否立即启动\n"
                            "999999,SH,1000,1/2,0/0,9/9,7\n"
                            "600000,SH,1100,1/2,0/0,9/9,7\n"
                            "600000,SH,1200,1/2,0,9/9,7\n");
    const QString rejects = folder() + "/rejects.csv"_s;
    const Run run = import(file, {"--strategy"_s, "AILOCK"_s, "--account"_s, "A1"_s, "--rejects"_s, rejects});
    EXPECT_EQ((QJsonObject{{"file"_s, rejects}, {"rows"_s, 2}, {"error"_s, QString()}}),
              run.object()["rejects"_s].toObject());
    QFile written(rejects);
    ASSERT_TRUE(written.open(QIODevice::ReadOnly));
    const QByteArray bytes = written.readAll();
    EXPECT_TRUE(bytes.contains("999999,SH,1000,") && bytes.contains("600000,SH,1200,")) << bytes.constData();
    EXPECT_FALSE(bytes.contains("600000,SH,1100,")) << "it was imported: it would be traded twice";
}

TEST_F(LedgerCommands, NamesABatchThatIsNotThere)
{
    expectRefused(atHome({"undo"_s, "first"_s}), "first"_s);
    ASSERT_EQ(0, create(table(goodRow())).status);
    for (const QStringList& arguments : {QStringList{"undo"_s, "7"_s},
                                         {"instances"_s, "--batch"_s, "7"_s},
                                         {"diff"_s, "7"_s, "list.csv"_s}}) {
        const Run run = atHome(arguments);
        EXPECT_EQ(1, run.status);
        EXPECT_TRUE(run.object()["error"_s].toString().contains("没有批次 7"_s)) << run.out.constData();
    }
}

TEST_F(LedgerCommands, HaltKeepsEverythingFromBeingCreatedUntilItIsResumed)
{
    const Run halted = atHome({"halt"_s, "--reason"_s, "演练"_s});
    ASSERT_EQ(0, halted.status) << halted.out.constData();
    const QJsonObject halt = halted.object()["halts"_s].toArray().first().toObject();
    EXPECT_EQ("*"_s, halt["account"_s].toString());
    EXPECT_EQ("演练"_s, halt["reason"_s].toString());
    const Run refused = create(table(goodRow()));
    EXPECT_EQ(1, refused.status);
    EXPECT_EQ(QStringList{"halted"_s}, rules(refused, "refusals"_s));
    EXPECT_TRUE(atHome({"resume"_s, "--reason"_s, "结束"_s}).object()["halts"_s].toArray().isEmpty());
    EXPECT_EQ(0, create(table(goodRow())).status);
    const QJsonObject day = atHome({"status"_s}).object()["day"_s].toArray().first().toObject();
    EXPECT_EQ("A1"_s, day["account"_s].toString());
    EXPECT_EQ(1, day["instances"_s].toInt());
    expectRefused(atHome({"halt"_s}), "--reason"_s);
}

TEST_F(LedgerCommands, ReportTheProgrammeTradingOfADay)
{
    ASSERT_EQ(0, create(table(goodRow() + goodRow()), {"--accept"_s, "row.repeated"_s}).status);
    const QString out = folder() + "/report.csv"_s;
    const Run report = atHome({"report"_s, "--out"_s, out});
    ASSERT_EQ(0, report.status) << report.out.constData();
    const QJsonArray counts = report.object()["counts"_s].toArray();
    ASSERT_EQ(2, counts.size());
    EXPECT_EQ("AITWAP"_s, counts.at(0).toObject()["strategy"_s].toString());
    EXPECT_EQ(2, counts.at(0).toObject()["orders"_s].toInt());
    EXPECT_EQ("*"_s, counts.at(1).toObject()["strategy"_s].toString());
    QFile file(out);
    ASSERT_TRUE(file.open(QIODevice::ReadOnly));
    EXPECT_TRUE(file.readAll().contains("algodesk"));
    EXPECT_TRUE(atHome({"report"_s, "--day"_s, "2001-01-01"_s}).object()["counts"_s].toArray().isEmpty());
    expectRefused(atHome({"report"_s, "--day"_s, "gestern"_s}), "--day"_s);
}
