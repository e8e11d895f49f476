#include "tests/runner/RunnerTest.h"

#include <QFile>
#include <QJsonArray>

/// From a confirmed import to instances, and back: --create, batches, instances, undo, diff; and the refused
/// rows.
class LedgerCommands : public RunnerTest {
protected:
    Run create(const QString& file, const QStringList& more = {})
    {
        return import(file, aitwap() + QStringList{"--confirm"_s, "--create"_s} + more);
    }

    /// A subcommand on the home of the imports.
    Run atHome(const QStringList& arguments)
    {
        return run(arguments + QStringList{"--home"_s, folder() + "/home"_s});
    }

    static QJsonObject guard(const Run& created)
    {
        return created.object().value("creation"_s).toObject().value("guard"_s).toObject();
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
    const Run created = create(table(goodRow() + goodRow()), {"--yes"_s});
    ASSERT_EQ(0, created.status) << created.out.constData();

    const QJsonArray batches = atHome({"batches"_s}).json().array();
    ASSERT_EQ(1, batches.size());
    EXPECT_EQ(2, batches.at(0).toObject().value("rowCount"_s).toInt());
    EXPECT_EQ(2, atHome({"instances"_s, "--batch"_s, "1"_s}).json().array().size());

    EXPECT_EQ("withdrawn"_s, atHome({"undo"_s, "1"_s}).object().value("state"_s).toString());
    const QJsonArray after = atHome({"batches"_s}).json().array();
    EXPECT_EQ("withdrawn"_s, after.at(0).toObject().value("state"_s).toString());
}

TEST_F(LedgerCommands, WantsConsentToASecondImportOfTheSameFile)
{
    const QString file = table(goodRow());
    ASSERT_EQ(0, create(file).status);
    const Run again = create(file);
    EXPECT_EQ(1, again.status);
    EXPECT_TRUE(rules(again, "warnings"_s).contains("sameFile"_s)) << again.out.constData();
    EXPECT_EQ(1, atHome({"batches"_s}).json().array().size());
    EXPECT_EQ(0, create(file, {"--yes"_s}).status);
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
    const Run complained = import(table(badRow()), aitwap() + QStringList{"--confirm"_s, "--create"_s});
    EXPECT_EQ(1, complained.status);
    EXPECT_FALSE(complained.object().contains("creation"_s));
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

TEST_F(LedgerCommands, NamesABatchThatIsNotThere)
{
    expectRefused(atHome({"undo"_s, "first"_s}), "first"_s);
    EXPECT_EQ(1, atHome({"undo"_s, "7"_s}).status);
}
