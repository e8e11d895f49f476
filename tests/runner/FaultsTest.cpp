#include "tests/runner/RunnerTest.h"
#include "tests/support/SchemaCheck.h"

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
    const Run result = import(table(goodRow() + badRow()),
                              aitwap() + QStringList{"--faults"_s, "--confirm"_s, "--create"_s, "--yes"_s,
                                                     "--rejects"_s, folder() + "/rejects.csv"_s});
    EXPECT_TRUE(result.object()["creation"_s].toObject()["batch"_s].isObject()) << result.out.constData();
    EXPECT_EQ(1, result.object()["rejects"_s].toObject()["rows"_s].toInt());
    EXPECT_EQ(QStringList(), faultsBySchema(result.object(), "import.schema.json"_s));
}
