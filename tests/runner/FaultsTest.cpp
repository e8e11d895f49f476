#include "tests/runner/RunnerTest.h"
#include "tests/support/SchemaCheck.h"

#include <QFile>
#include <QJsonArray>

/// What is wrong, as data beside the messages.
class Faults : public RunnerTest {
protected:
    static QStringList rulesOf(const Run& run)
    {
        QStringList rules;
        for (const QJsonValue& fault : run.object()["faults"_s].toArray()) {
            rules.append(fault.toObject()["rule"_s].toString());
        }
        return rules;
    }

    Run check(const QString& file, const QStringList& more = aitwap())
    {
        return run(QStringList{"check"_s, file, "--data"_s, dataFolder(), "--home"_s, home()} + more);
    }
};

TEST_F(Faults, NameRuleLineColumnAndCell)
{
    const Run result = import(table(goodRow() + badRow()), aitwap() + QStringList{"--faults"_s});
    EXPECT_EQ(1, result.status);
    const QJsonObject expected = {{"rule"_s, "import.unknownCode"_s},
                                  {"severity"_s, "error"_s},
                                  {"line"_s, 3},
                                  {"row"_s, 2},
                                  {"column"_s, "证券代码"_s},
                                  {"cell"_s, "999999"_s},
                                  {"arguments"_s, QJsonArray{"999999"_s}},
                                  {"text"_s, "证券代码999999不合法，未获取到市场"_s}};
    EXPECT_EQ(QJsonArray{expected}, result.object()["faults"_s].toArray()) << result.out.constData();
    EXPECT_EQ(QStringList(), faultsBySchema(result.object(), "import.schema.json"_s));
}

TEST_F(Faults, ArePrintedOnlyWhereTheyAreAskedFor)
{
    const Run result = import(table(badRow()), aitwap());
    EXPECT_FALSE(result.object().contains("faults"_s));
    EXPECT_EQ(QStringList(), faultsBySchema(result.object(), "import.schema.json"_s));
}

TEST_F(Faults, AreNoneOfAGoodFile)
{
    const Run result = import(table(goodRow()), aitwap() + QStringList{"--faults"_s, "--confirm"_s});
    EXPECT_EQ(0, result.status);
    EXPECT_EQ(QJsonValue(QJsonArray()), result.object()["faults"_s]);
    EXPECT_EQ(QStringList(), faultsBySchema(result.object(), "import.schema.json"_s));
}

TEST_F(Faults, TellOfTheBatchBehindThoseOfTheFile)
{
    const QStringList all = aitwap() + QStringList{"--faults"_s, "--confirm"_s, "--switch-account"_s, "A2"_s};
    EXPECT_EQ(QStringList({"import.unknownCode"_s, "validation.entrustProperty"_s}),
              rulesOf(import(table(goodRow() + badRow()), all)));
    EXPECT_EQ(QStringList{"validation.marketNotHeld"_s},
              rulesOf(import(table("000001,SZ,1000,1,0,7\n"), all)));
}

TEST_F(Faults, SayWhyAFileWasRefusedAsAWhole)
{
    const QStringList faults = aitwap() + QStringList{"--faults"_s};
    EXPECT_EQ(QStringList{"import.missingColumn"_s}, rulesOf(import(write("x.csv"_s, "a,b\n1,2\n"), faults)));
    EXPECT_EQ(QStringList{"import.readerError"_s}, rulesOf(import(folder() + "/nowhere.csv"_s, faults)));
}

TEST_F(Faults, AreNoneOfALongFileThatWasDeclined)
{
    QByteArray rows = badRow();
    for (int row = 0; row < 1000; ++row) {
        rows += goodRow();
    }
    const QStringList declined = aitwap() + QStringList{"--faults"_s, "--answer"_s, "no"_s};
    EXPECT_EQ(QStringList(), rulesOf(import(table(rows), declined)));
}

TEST_F(Faults, StandInTheReportOnAFileToo)
{
    const Run result = check(table(goodRow() + badRow()));
    EXPECT_EQ(QStringList{"import.unknownCode"_s}, rulesOf(result));
    EXPECT_EQ(QStringList(), faultsBySchema(result.object(), "check.schema.json"_s));
    const Run alone = check(table(badRow()), {});
    EXPECT_EQ(QStringList(), rulesOf(alone));
    EXPECT_EQ(QStringList(), faultsBySchema(alone.object(), "check.schema.json"_s));
}

TEST_F(Faults, OfSpoiltRowsAndOfACreationFollowTheSchema)
{
    const Run result =
        import(table(goodRow() + badRow()),
               aitwap() + QStringList{"--faults"_s, "--confirm"_s, "--create"_s, "--yes"_s, "--accept"_s,
                                      "rows.missing"_s, "--rejects"_s, folder() + "/rejects.csv"_s});
    EXPECT_TRUE(result.object()["creation"_s].toObject()["batch"_s].isObject()) << result.out.constData();
    EXPECT_EQ(1, result.object()["rejects"_s].toObject()["rows"_s].toInt());
    EXPECT_EQ(QStringList(), faultsBySchema(result.object(), "import.schema.json"_s));
}

/// Rows that the dialog passes over as notes are orders all the same.
TEST_F(Faults, TellOfOrdersThatLostTheirCodeAndTheCountsAndRejectsHoldThem)
{
    const QString out = folder() + "/rejects.csv"_s;
    const QString file = table(goodRow() + ",,2000,1,0,7\n" + badRow());
    const Run result = import(file, aitwap() + QStringList{"--faults"_s, "--rejects"_s, out});
    EXPECT_EQ(QStringList({"row.code"_s, "import.unknownCode"_s}), rulesOf(result));
    EXPECT_EQ(3, result.object()["faults"_s].toArray().first().toObject()["line"_s].toInt());
    const QJsonObject counts = {{"orders"_s, 3}, {"imported"_s, 1}, {"refused"_s, 1}, {"skipped"_s, 1}};
    EXPECT_EQ(QJsonValue(counts), result.object()["counts"_s]) << result.out.constData();
    EXPECT_EQ(2, result.object()["rejects"_s].toObject()["rows"_s].toInt());
    QFile rejects(out);
    ASSERT_TRUE(rejects.open(QIODevice::ReadOnly));
    EXPECT_TRUE(rejects.readAll().contains(",,2000,1,0,7,"));
    EXPECT_EQ(QStringList(), faultsBySchema(result.object(), "import.schema.json"_s));

    const Run checked = check(file);
    EXPECT_EQ(QJsonValue(counts), checked.object()["counts"_s]);
    EXPECT_EQ(3, checked.status);
}

TEST_F(Faults, OfABatchNameTheLineAndTheCellOfTheFile)
{
    const QStringList all = aitwap() + QStringList{"--faults"_s, "--confirm"_s, "--switch-account"_s, "A2"_s};
    const Run result = import(table(badRow() + goodRow()), all);
    const QJsonObject fault = result.object()["faults"_s].toArray().last().toObject();
    EXPECT_EQ("validation.entrustProperty"_s, fault["rule"_s].toString()) << result.out.constData();
    EXPECT_EQ(1, fault["row"_s].toInt());
    EXPECT_EQ(3, fault["line"_s].toInt());
    EXPECT_EQ("委托属性"_s, fault["column"_s].toString());
    EXPECT_EQ("0"_s, fault["cell"_s].toString());
}
