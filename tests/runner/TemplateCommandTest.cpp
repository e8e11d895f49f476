#include "tests/runner/RunnerTest.h"

#include <QFile>
#include <QJsonArray>

/// algodesk template: what it writes is read back by algodesk rows.
class TemplateCommand : public RunnerTest {
protected:
    Run writeTemplate(const QStringList& arguments)
    {
        return run(QStringList{"template"_s, "--data"_s, dataFolder()} + arguments);
    }

    QJsonArray titlesOf(const QString& path)
    {
        return run({"rows"_s, path}).object()["rows"_s].toArray().at(0).toArray();
    }

    QString out(const QString& name) const { return folder() + QLatin1Char('/') + name; }
};

TEST_F(TemplateCommand, WritesTheColumnsOfOneStrategy)
{
    for (const QString& path : {out("one.csv"_s), out("one.xlsx"_s)}) {
        const Run result = writeTemplate({"--strategy"_s, "AITWAP"_s, path});
        EXPECT_EQ(0, result.status) << result.out.constData();
        EXPECT_EQ((QJsonObject{{"files"_s, QJsonArray{path}}, {"error"_s, QString()}}), result.object());
        const QJsonArray titles = titlesOf(path);
        for (const QString& title : {"证券代码"_s, "市场"_s, "委托数量"_s, "交易方向"_s}) {
            EXPECT_TRUE(titles.contains(title)) << title.toStdString() << path.toStdString();
        }
    }
}

TEST_F(TemplateCommand, WritesAFileForEveryStrategyThatCanBeImported)
{
    const Run result = writeTemplate({"--all"_s, out("all.csv"_s)});
    EXPECT_EQ(1, result.status);
    EXPECT_EQ("算法BROKEN的参数格式无法识别，模板未保存"_s, result.object()["error"_s].toString());
    EXPECT_EQ((QJsonArray{out("all-AITWAP.csv"_s), out("all-AILOCK.csv"_s), out("all-KF_TWAPPLUS.csv"_s),
                          out("all-PursueHighLimit.csv"_s)}),
              result.object()["files"_s].toArray());
    EXPECT_TRUE(titlesOf(out("all-AILOCK.csv"_s)).contains("委托限价"_s));
    EXPECT_FALSE(QFile::exists(out("all-OTHER.csv"_s)));
    EXPECT_FALSE(QFile::exists(out("all-BROKEN.csv"_s)));
}

TEST_F(TemplateCommand, WritesOneWorkbookForAllStrategies)
{
    const Run result = writeTemplate({"--all"_s, out("all.xlsx"_s)});
    EXPECT_EQ(QJsonArray{out("all.xlsx"_s)}, result.object()["files"_s].toArray());
    EXPECT_TRUE(titlesOf(out("all.xlsx"_s)).contains("委托数量"_s));
}

TEST_F(TemplateCommand, RefusesWhatAnImportRefusesAndFilesOfAnotherKind)
{
    expectRefused(writeTemplate({"--strategy"_s, "NONE"_s, out("x.csv"_s)}), "NONE"_s);
    expectRefused(writeTemplate({"--strategy"_s, "OTHER"_s, out("x.csv"_s)}), "OTHER"_s);
    expectRefused(writeTemplate({"--all"_s, out("x.xls"_s)}), ".xlsx 或 .csv"_s);
    expectRefused(writeTemplate({out("x.csv"_s)}), "--strategy"_s);
    expectRefused(writeTemplate({"--all"_s, "--strategy"_s, "AITWAP"_s, out("x.csv"_s)}), "--all"_s);
    EXPECT_FALSE(QFile::exists(out("x.csv"_s)));
}

TEST_F(TemplateCommand, SaysWhyItCannotWrite)
{
    const Run result = writeTemplate({"--strategy"_s, "AITWAP"_s, out("nowhere/x.csv"_s)});
    EXPECT_EQ(1, result.status);
    EXPECT_FALSE(result.object()["error"_s].toString().isEmpty());
    EXPECT_EQ(QJsonArray(), result.object()["files"_s].toArray());
}
