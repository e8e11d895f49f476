#include "tests/runner/RunnerTest.h"

#include <QCryptographicHash>
#include <QFile>
#include <QJsonArray>

/// algodesk check FILE: the report and its exit status.
class CheckCommand : public RunnerTest {
protected:
    Run check(const QString& file, const QStringList& more = aitwap())
    {
        return run(QStringList{"check"_s, file, "--data"_s, dataFolder(), "--home"_s, folder() + "/home"_s} +
                   more);
    }

    static QStringList codes(const Run& run)
    {
        QStringList codes;
        for (const QJsonValue& finding : run.object().value("findings"_s).toArray()) {
            codes.append(finding.toObject().value("code"_s).toString());
        }
        return codes;
    }
};

TEST_F(CheckCommand, AnswersZeroForACleanFile)
{
    const Run run = check(table(goodRow()));
    EXPECT_EQ(0, run.status) << run.out.constData();
    EXPECT_EQ(QStringList(), codes(run));
}

TEST_F(CheckCommand, ComparesNoTitlesWithoutAStrategy)
{
    const Run run = check(table(goodRow()), {});
    EXPECT_EQ(0, run.status) << run.out.constData();
    EXPECT_EQ(QStringList(), codes(run));
}

TEST_F(CheckCommand, AnswersOneForWarnings)
{
    const Run run =
        check(write("list.csv"_s, "证券代码,市场,委托数量,交易方向,委托属性,创建后是否立即启动,abcdef\n"
                                  "600000,SH,1000,1,0,7,x\n"));
    EXPECT_EQ(1, run.status) << run.out.constData();
    EXPECT_EQ(QStringList{"title.unknown"_s}, codes(run));
}

TEST_F(CheckCommand, AnswersThreeForErrors)
{
    const Run run = check(table("1,SH,1000,1,0,7\n"));
    EXPECT_EQ(3, run.status) << run.out.constData();
    EXPECT_EQ(QStringList{"code.zeros"_s}, codes(run));
}

TEST_F(CheckCommand, AnswersThreeWhereOnlyTheImportComplains)
{
    const Run run = check(table(badRow()));
    EXPECT_EQ(3, run.status) << run.out.constData();
    EXPECT_EQ(QStringList(), codes(run));
    EXPECT_EQ(1, run.object().value("messageBoxes"_s).toArray().size());
}

TEST_F(CheckCommand, AnswersFourForAFileThatCannotBeRead)
{
    for (const QStringList& more : {QStringList(), aitwap()}) {
        const Run run = check(write("page.csv"_s, "<html><body><table></table></body></html>"), more);
        EXPECT_EQ(4, run.status) << run.out.constData();
        EXPECT_NE(QString(), run.object().value("error"_s).toString());
    }
    EXPECT_EQ(4, check(folder() + "/nowhere.csv"_s, {}).status);
}

TEST_F(CheckCommand, PrintsHowTheFileWasReadAndEachFinding)
{
    const QString path = table("1,SH,1000,1,0,7\n");
    const QJsonObject report = check(path).object();
    EXPECT_EQ(
        QStringList({"counts"_s, "encoding"_s, "error"_s, "faults"_s, "file"_s, "findings"_s, "format"_s,
                     "guard"_s, "messageBoxes"_s, "rows"_s, "separator"_s, "sha256"_s, "sheet"_s}),
        report.keys());
    EXPECT_EQ(path, report.value("file"_s).toString());
    EXPECT_EQ("csv"_s, report.value("format"_s).toString());
    EXPECT_EQ("UTF-8"_s, report.value("encoding"_s).toString());
    EXPECT_EQ(","_s, report.value("separator"_s).toString());
    EXPECT_EQ(2, report.value("rows"_s).toInt());
    QFile file(path);
    ASSERT_TRUE(file.open(QIODevice::ReadOnly));
    EXPECT_EQ(
        QString::fromLatin1(QCryptographicHash::hash(file.readAll(), QCryptographicHash::Sha256).toHex()),
        report.value("sha256"_s).toString());

    const QJsonObject finding = report.value("findings"_s).toArray().first().toObject();
    EXPECT_EQ(QStringList({"address"_s, "chinese"_s, "code"_s, "english"_s, "line"_s, "raw"_s, "severity"_s,
                           "sheet"_s, "suggestions"_s}),
              finding.keys());
    EXPECT_EQ("error"_s, finding.value("severity"_s).toString());
    EXPECT_EQ("A2"_s, finding.value("address"_s).toString());
    EXPECT_EQ(2, finding.value("line"_s).toInt());
    EXPECT_EQ("1"_s, finding.value("raw"_s).toString());
    EXPECT_EQ(QJsonArray{"000001.SZ 样本乙"_s}, finding.value("suggestions"_s).toArray());
}

TEST_F(CheckCommand, ReadsACsvInTheEncodingThatIsNamed)
{
    const QString path = write("list.csv"_s, QByteArray("\xa5\x4e\xbd\x58\n1\n", 7)); // 代碼 in Big5
    EXPECT_EQ("Big5"_s, check(path, {"--encoding"_s, "Big5"_s}).object().value("encoding"_s).toString());
}

TEST_F(CheckCommand, TakesStrategyAndAccountTogetherOrNeither)
{
    expectRefused(check(table(goodRow()), {"--strategy"_s, "AITWAP"_s}), "--account"_s);
}

TEST_F(CheckCommand, AnswersThreeForANumberThatTheImportTakesForNothing)
{
    for (const QByteArray& quantity : {QByteArray("\"1,000\""), QByteArray("1000股"), QByteArray("abc")}) {
        const Run run = check(table("600000,SH," + quantity + ",1,0,7\n"));
        EXPECT_EQ(3, run.status) << run.out.constData();
        EXPECT_EQ(QStringList{"number.invalid"_s}, codes(run));
    }
    EXPECT_EQ(QStringList({"digit.fullwidth"_s, "number.invalid"_s}),
              codes(check(table("600000,SH,１０００,1,0,7\n"))));
    EXPECT_EQ(QStringList{"number.fraction"_s}, codes(check(table("600000,SH,1000.5,1,0,7\n"))));
}

TEST_F(CheckCommand, TakesTwoPricesInACellForThoseOfALockStrategyAlone)
{
    const QStringList lock = {"--strategy"_s, "AILOCK"_s, "--account"_s, "A1"_s};
    const QByteArray header = "证券代码,市场,委托数量,交易方向,委托属性,委托限价,创建后是否立即启动\n";
    const QByteArray row = "600000,SH,1000,1/2,0/0,";
    EXPECT_EQ(QStringList(), codes(check(write("good.csv"_s, header + row + "9.8/9.9,7\n"), lock)));
    const Run bad = check(write("bad.csv"_s, header + row + "9.8/9.86元,7\n"), lock);
    EXPECT_EQ(QStringList{"number.invalid"_s}, codes(bad));
    EXPECT_EQ("“9.86元”不是数字，将按0处理，即不限价"_s,
              bad.object()["findings"_s].toArray().first().toObject()["chinese"_s].toString());
}

/// What the guard would refuse or ask, though nothing is wrong with any cell.
TEST_F(CheckCommand, SaysWhatTheGuardWouldSay)
{
    const Run run = check(table("600000,SH,0,1,0,7\n"));
    EXPECT_EQ(3, run.status) << run.out.constData();
    EXPECT_EQ(QStringList(), codes(run));
    const QJsonObject guard = run.object()["guard"_s].toObject();
    EXPECT_EQ("noQuantity"_s, guard["refusals"_s].toArray().first().toObject()["rule"_s].toString());
    EXPECT_EQ(2, guard["refusals"_s]
                     .toArray()
                     .first()
                     .toObject()["faults"_s]
                     .toArray()
                     .first()
                     .toObject()["line"_s]
                     .toInt());
    expectValid(run.object(), "check.schema.json"_s);
    EXPECT_TRUE(check(table(goodRow()), {}).object()["guard"_s].isNull());
    EXPECT_TRUE(check(table(badRow())).object()["guard"_s].isNull()) << "an empty batch";
}

TEST_F(CheckCommand, SaysWhatConfirmingWouldSay)
{
    const Run run = check(table(goodRow()), {"--strategy"_s, "AITWAP"_s, "--account"_s, "A2"_s});
    EXPECT_EQ(3, run.status) << run.out.constData();
    const QJsonObject fault = run.object()["faults"_s].toArray().first().toObject();
    EXPECT_EQ("validation.entrustProperty"_s, fault["rule"_s].toString()) << run.out.constData();
    EXPECT_EQ(2, fault["line"_s].toInt());
}
