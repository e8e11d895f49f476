#include "tests/runner/RunnerTest.h"

#include <unistd.h>

#include <QDir>
#include <QJsonArray>

class ListCommands : public RunnerTest {
protected:
    QJsonArray list(const QString& command)
    {
        const Run result = run({command, "--data"_s, dataFolder()});
        EXPECT_EQ(0, result.status);
        EXPECT_EQ(QByteArray(), result.err);
        EXPECT_TRUE(result.json().isArray());
        return result.json().array();
    }
    static QStringList texts(const QJsonArray& array, const QString& key)
    {
        QStringList result;
        for (const QJsonValue& value : array) {
            result.append(value.toObject()[key].toString());
        }
        return result;
    }
    static QJsonArray row(const QJsonObject& table, int index)
    {
        return table["rows"_s].toArray().at(index).toArray();
    }
};

TEST_F(ListCommands, ListStrategiesInCatalogueOrder)
{
    const QJsonArray strategies = list("strategies"_s);
    EXPECT_EQ(
        (QStringList{"AITWAP"_s, "AILOCK"_s, "KF_TWAPPLUS"_s, "PursueHighLimit"_s, "OTHER"_s, "BROKEN"_s}),
        texts(strategies, "name"_s));
    EXPECT_EQ("策略AITWAP"_s, strategies.first().toObject()["alias"_s].toString());
}

TEST_F(ListCommands, ListAccounts)
{
    const QJsonArray accounts = list("accounts"_s);
    EXPECT_EQ((QStringList{"A1"_s, "A2"_s}), texts(accounts, "tradingAccount"_s));
    EXPECT_EQ((QStringList{"Cash"_s, "Credit"_s}), texts(accounts, "assetProp"_s));
}

TEST_F(ListCommands, ListSecuritiesWithTheirDefaults)
{
    const QJsonArray securities = list("securities"_s);
    EXPECT_EQ((QStringList{"600000.SH"_s, "000001.SZ"_s, "00700.HK"_s}), texts(securities, "symbol"_s));
    const QJsonObject first = securities.first().toObject();
    EXPECT_EQ("STOCK"_s, first["securityType"_s].toString());
    EXPECT_EQ(1, first["dispFactor"_s].toInt());
    EXPECT_EQ(100, first["minQtyPerOrder"_s].toInt());
    EXPECT_EQ(100, first["qtyStep"_s].toInt());
    EXPECT_EQ(2, first["pricePrecision"_s].toInt());
    EXPECT_EQ(100, securities.at(1).toObject()["dispFactor"_s].toInt());
}

TEST_F(ListCommands, TheShippedReferenceDataIsTheDefault)
{
    const Run result = run({"accounts"_s});
    EXPECT_EQ(0, result.status);
    EXPECT_LE(6, result.json().array().size());
}

TEST_F(ListCommands, RowsAreWhatTheTableReaderReturns)
{
    const Run result = run({"rows"_s, write("t.csv"_s, " a ,\"b\"\"\n\",\n\n1,2,3\n")});
    EXPECT_EQ(0, result.status);
    EXPECT_EQ((QStringList{"encoding"_s, "error"_s, "format"_s, "rows"_s}), result.object().keys());
    EXPECT_EQ((QJsonArray{" a "_s, "b\"\n"_s, QString()}), row(result.object(), 0));
    EXPECT_EQ(QJsonArray{QString()}, row(result.object(), 1));
    EXPECT_EQ((QJsonArray{"1"_s, "2"_s, "3"_s}), row(result.object(), 2));
    EXPECT_EQ(3, result.object()["rows"_s].toArray().size());
    EXPECT_EQ("csv"_s, result.object()["format"_s].toString());
    EXPECT_EQ("UTF-8"_s, result.object()["encoding"_s].toString());
    EXPECT_EQ(QString(), result.object()["error"_s].toString());
}

TEST_F(ListCommands, RowsOfAFileOfTheTradersEncoding)
{
    const Run result = run({"rows"_s, write("gb.csv"_s, QByteArray("\xd6\xa4\xc8\xaf\xb4\xfa\xc2\xeb,1\n"))});
    EXPECT_EQ("GB18030"_s, result.object()["encoding"_s].toString());
    EXPECT_EQ((QJsonArray{"证券代码"_s, "1"_s}), row(result.object(), 0));
}

TEST_F(ListCommands, RowsEndAfterOneMoreThanTheImportTakes)
{
    const Run result = run({"rows"_s, write("long.csv"_s, QByteArray("a,b\n").repeated(5000))});
    EXPECT_EQ(1002, result.object()["rows"_s].toArray().size());
}

TEST_F(ListCommands, AFileThatCannotBeReadIsAnErrorTextAndStatusOne)
{
    const Run result = run({"rows"_s, folder() + "/nowhere.csv"_s});
    EXPECT_EQ(1, result.status);
    EXPECT_EQ(QByteArray(), result.err);
    EXPECT_FALSE(result.object()["error"_s].toString().isEmpty());
    EXPECT_EQ(0, result.object()["rows"_s].toArray().size());
}

TEST_F(ListCommands, PrintWhatTheirSchemasDescribe)
{
    for (const char* list : {"strategies", "accounts", "securities"}) {
        const QString name = QString::fromLatin1(list);
        expectValid(run({name}).json().array(), name + ".schema.json"_s); // of what ships
    }
    expectValid(run({"rows"_s, table(goodRow())}).object(), "rows.schema.json"_s);
    expectValid(run({"template"_s, "--strategy"_s, "AITWAP"_s, folder() + "/t.csv"_s}).object(),
                "template.schema.json"_s);
    expectValid(run({"report"_s, "--home"_s, home(), "--out"_s, folder() + "/r.csv"_s}).object(),
                "report.schema.json"_s);
}

TEST_F(ListCommands, HelpAndVersionAreText)
{
    const Run help = run({"--help"_s});
    EXPECT_EQ(0, help.status);
    EXPECT_TRUE(help.out.contains("import FILE --strategy CODE --account ACCOUNT"));
    const Run version = run({"--version"_s});
    EXPECT_EQ(0, version.status);
    EXPECT_TRUE(version.out.startsWith("algodesk "));
}

TEST_F(ListCommands, HelpBehindASubcommandDoesNothingElse)
{
    for (const QString& help : {"-h"_s, "--help"_s}) {
        const Run result = run({"undo"_s, "1"_s, help, "--home"_s, home()});
        EXPECT_EQ(0, result.status) << help.toStdString();
        EXPECT_TRUE(result.out.startsWith("用法：algodesk")) << result.out.constData();
        EXPECT_EQ(0, run({"import"_s, help}).status);
    }
    EXPECT_TRUE(run({"--home"_s, home(), "--help"_s}).out.startsWith("用法：algodesk")) << "of the window";
    EXPECT_FALSE(QDir(home()).exists());
    expectRefused(run({"undo"_s, "1"_s, "--help-all"_s}), "help-all"_s);
}

namespace {

/// A process whose standard output is a pipe that nobody reads.
class UnreadProcess : public QProcess {
public:
    UnreadProcess()
    {
        EXPECT_EQ(0, ::pipe(mEnds));
        ::close(mEnds[0]);
    }
    ~UnreadProcess() override { ::close(mEnds[1]); }

protected:
    void setupChildProcess() override { ::dup2(mEnds[1], STDOUT_FILENO); }

private:
    int mEnds[2] = {-1, -1};
};

} // namespace

TEST_F(ListCommands, SaySoWhereTheReaderOfStandardOutputWentAway)
{
    UnreadProcess process;
    prepare(process);
    process.setArguments({"accounts"_s, "--data"_s, dataFolder()});
    process.start(QIODevice::ReadOnly);
    const Run result = finish(process);
    EXPECT_EQ(5, result.status) << "and no signal ended it";
    EXPECT_TRUE(result.err.startsWith("无法写到标准输出：")) << result.err.constData();
}

TEST_F(ListCommands, SaySoWhereStandardOutputTakesNoMore)
{
    QProcess process;
    prepare(process);
    process.setArguments({"accounts"_s, "--data"_s, dataFolder()});
    process.setStandardOutputFile("/dev/full"_s);
    process.start(QIODevice::ReadOnly);
    const Run result = finish(process);
    EXPECT_EQ(5, result.status);
    EXPECT_TRUE(result.err.startsWith("无法写到标准输出：")) << result.err.constData();
    EXPECT_EQ(1, result.err.count('\n'));
}
