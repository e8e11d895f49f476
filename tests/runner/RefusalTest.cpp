#include "tests/runner/RunnerTest.h"

#include <QFile>
#include <QJsonArray>

/// Exit status 2: what cannot begin says why in one line, and prints nothing.
class Refusal : public RunnerTest {
protected:
    void expectBadData(const QString& name, const QByteArray& bytes, const QString& place)
    {
        writeData(name, bytes);
        expectRefused(import(table(goodRow())), place);
        expectRefused(run({"accounts"_s, "--data"_s, dataFolder()}), place);
    }
};

TEST_F(Refusal, OfAnUnknownStrategyOrAccount)
{
    const QString file = table(goodRow());
    expectRefused(import(file, {"--strategy"_s, "NONE"_s, "--account"_s, "A1"_s}), "NONE"_s);
    expectRefused(import(file, {"--strategy"_s, "AITWAP"_s, "--account"_s, "A9"_s}), "A9"_s);
    expectRefused(import(file, aitwap() + QStringList{"--switch-account"_s, "A8"_s}), "A8"_s);
    expectRefused(import(file, {"--strategy"_s, "aitwap"_s, "--account"_s, "A1"_s}), "aitwap"_s);
}

TEST_F(Refusal, OfAStrategyThatIsNotInTheDialogsCatalogue)
{
    expectRefused(import(table(goodRow()), {"--strategy"_s, "OTHER"_s, "--account"_s, "A1"_s}), "OTHER"_s);
}

TEST_F(Refusal, OfWrongUsage)
{
    const QString file = table(goodRow());
    expectRefused(import(file, {"--account"_s, "A1"_s}), "--strategy"_s);
    expectRefused(import(file, {"--strategy"_s, "AITWAP"_s}), "--account"_s);
    expectRefused(import(file, aitwap() + QStringList{"--answer"_s, "maybe"_s}), "maybe"_s);
    expectRefused(import(file, aitwap() + QStringList{"--nonsense"_s}), "nonsense"_s);
    expectRefused(import(file, aitwap() + QStringList{"--create"_s}), "--confirm"_s);
    expectRefused(import(file, aitwap() + QStringList{"--confirm"_s, "--yes"_s}), "--create"_s);
    expectRefused(import(file, aitwap() + QStringList{"--confirm"_s, "--amount"_s, "1"_s}), "--create"_s);
    expectRefused(import(file, aitwap() + QStringList{"second.csv"_s}),
                  "import 的参数应为 FILE，却给了 2 个"_s);
    expectRefused(import(file, aitwap() + QStringList{"--switch-account"_s}), "switch-account"_s);
    expectRefused(run(QStringList{"import"_s, "--data"_s, dataFolder()} + aitwap()),
                  "import 的参数应为 FILE"_s);
    expectRefused(run({"imports"_s}), "imports"_s);
    expectRefused(run({"rows"_s}), "rows 的参数应为 FILE，却给了 0 个"_s);
    expectRefused(run({"accounts"_s, "extra"_s}), "accounts 不带参数"_s);
}

TEST_F(Refusal, OfAnOptionThatTheSubcommandDoesNotHave)
{
    expectRefused(run({"accounts"_s, "--confirm"_s}), "confirm"_s);
}

TEST_F(Refusal, OfADuplicateKeyNamesFileAndLine)
{
    expectBadData("accounts.csv"_s, "tradingAccount,name,fundAccountType\nA1,a,Cash\nA2,b,Cash\nA1,c,Cash\n",
                  "accounts.csv:4: "_s);
}

TEST_F(Refusal, OfATextWhereANumberBelongsNamesFileAndLine)
{
    expectBadData(
        "securities.csv"_s,
        "symbol,code,name,post,exchanges,dispFactor\n600000.SH,600000,甲,SH,SH,1\n1.SZ,1,乙,SZ,SZ,viel\n",
        "securities.csv:3: "_s);
}

TEST_F(Refusal, OfAMissingHeaderNamesFileAndLine)
{
    expectBadData("markets.csv"_s, "SH,上海,SH,6,\n", "markets.csv:1: "_s);
}

TEST_F(Refusal, OfABrokenCatalogueNamesFileAndLine)
{
    expectBadData("strategies.json"_s, "[\n  {\"name\": \"AITWAP\",\n  }\n]\n", "strategies.json:"_s);
}

TEST_F(Refusal, OfAMissingCompulsoryFileNamesIt)
{
    for (const QString& name : {"markets.csv"_s, "securities.csv"_s, "accounts.csv"_s, "strategies.json"_s}) {
        SetUp();
        ASSERT_TRUE(QFile::remove(dataFolder() + QLatin1Char('/') + name));
        expectRefused(import(table(goodRow())), name);
    }
}

TEST_F(Refusal, NotOfMissingFurtherFiles)
{
    for (const QString& name : {"quotes.csv"_s, "security_accounts.csv"_s}) {
        ASSERT_TRUE(QFile::remove(dataFolder() + QLatin1Char('/') + name));
    }
    EXPECT_EQ(1, import(table(goodRow())).status) << "the account has no market";
}

TEST_F(Refusal, OfADataFolderThatIsNotThere)
{
    expectRefused(run({"accounts"_s, "--data"_s, folder() + "/nowhere"_s}), "nowhere"_s);
}

TEST_F(Refusal, OfBadDataComesBeforeEverythingElse)
{
    writeData("accounts.csv"_s, "tradingAccount,name\nA1,a\nA1,b\n");
    expectRefused(import(folder() + "/nowhere.csv"_s, {"--strategy"_s, "NONE"_s, "--account"_s, "A9"_s}),
                  "accounts.csv:3: "_s);
}

TEST_F(Refusal, OfAValueThatIsEmpty)
{
    const QString file = table(goodRow());
    for (const QString& option : {"--switch-account"_s, "--strategy"_s, "--account"_s, "--data"_s, "--home"_s,
                                  "--rejects"_s, "--amount"_s, "--answer"_s}) {
        expectRefused(import(file, aitwap() + QStringList{option, QString()}), option + " 缺少取值"_s);
    }
    expectRefused(import(file, aitwap() + QStringList{"--confirm"_s, "--switch-account="_s}),
                  "--switch-account 缺少取值"_s);
    expectRefused(run({"instances"_s, "--batch"_s, QString()}), "--batch 缺少取值"_s);
    expectRefused(run({"rows"_s, file, "--encoding"_s, QString()}), "--encoding 缺少取值"_s);
    expectRefused(run({"--home"_s, QString()}), "--home 缺少取值"_s);
    expectRefused(import(file, aitwap() + QStringList{"--rejects"_s, "--confirm"_s}), "--rejects 缺少取值"_s);
}

TEST_F(Refusal, NotOfPathsThatBeginWithAColon)
{
    ASSERT_TRUE(QFile::rename(table(goodRow()), folder() + "/:list.csv"_s));
    ASSERT_TRUE(QFile::rename(dataFolder(), folder() + "/:data"_s));
    const Run created = run(QStringList{"import"_s, ":list.csv"_s, "--data"_s, ":data"_s, "--home"_s,
                                        ":home"_s, "--confirm"_s, "--create"_s} +
                            aitwap());
    EXPECT_EQ(0, created.status) << created.err.constData() << created.out.constData();
    EXPECT_EQ(1, run({"batches"_s, "--home"_s, ":home"_s}).json().array().size());
    EXPECT_TRUE(QFile::exists(folder() + "/:home/ledger.sqlite"_s));
}

TEST_F(Refusal, OfAnArgumentThatIsEmpty)
{
    expectRefused(import(QString()), "FILE 不能为空"_s);
    expectRefused(run({"undo"_s, QString()}), "N 不能为空"_s);
}

TEST_F(Refusal, OfRejectsThatWouldReplaceTheFileItself)
{
    const QString file = table(goodRow() + badRow());
    const QString link = folder() + "/link.csv"_s;
    ASSERT_TRUE(QFile::link(file, link));
    for (const QString& out : {file, folder() + "/data/../list.csv"_s, "list.csv"_s, link}) {
        expectRefused(import(file, aitwap() + QStringList{"--rejects"_s, out}), "不能就是 FILE"_s);
    }
    EXPECT_EQ(0, import(table(goodRow())).status) << "the file is as it was";
}

TEST_F(Refusal, OfRejectsOfAnotherKind)
{
    const QString file = table(badRow());
    for (const QString& out : {"rejects.xls"_s, "rejects"_s}) {
        expectRefused(import(file, aitwap() + QStringList{"--rejects"_s, out}), ".xlsx 或 .csv"_s);
        EXPECT_FALSE(QFile::exists(folder() + QLatin1Char('/') + out));
    }
}
