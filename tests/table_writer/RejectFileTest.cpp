#include "embedded_host/table_writer/RejectFile.h"

#include "table/HarmlessCell.h"
#include "tests/table_reader/Reading.h"

#include <QDir>
#include <QFile>
#include <QTemporaryDir>

using table::harmlessCell;
using table::restoredCell;
using table_reader::readTable;
using table_writer::RefusedRow;
using table_writer::writeRejects;

namespace {

const QStringList Texts = {
    QStringLiteral("=1+1"),     QStringLiteral("+cmd"), QStringLiteral("-1+2"),
    QStringLiteral("@SUM(A1)"), QStringLiteral("\tx"),  QStringLiteral("\rx"),
    QStringLiteral("'=1"),      QStringLiteral("''@"),  QStringLiteral("'plain"),
    QStringLiteral("-5"),       QStringLiteral("+3.5"), QStringLiteral("=\"a,b\"\r\nc"),
    QStringLiteral("000001"),   QStringLiteral("买入"), QStringLiteral(" blank "),
    QStringLiteral("_x000D_"),  QStringLiteral("＝1"),  QStringLiteral("+nan"),
    QStringLiteral("'"),        QStringLiteral("1e5")};

QByteArray contentOf(const QString& path)
{
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

} // namespace

TEST(HarmlessCells, BeginWithNothingThatCouldBeAFormula)
{
    EXPECT_EQ("'=1+1", harmlessCell(QStringLiteral("=1+1")).toStdString());
    EXPECT_EQ("'\tx", harmlessCell(QStringLiteral("\tx")).toStdString());
    EXPECT_EQ("'+nan", harmlessCell(QStringLiteral("+nan")).toStdString());
    EXPECT_EQ("-5", harmlessCell(QStringLiteral("-5")).toStdString());
    EXPECT_EQ("'plain", harmlessCell(QStringLiteral("'plain")).toStdString());
}

TEST(HarmlessCells, ComeBackUnchanged)
{
    for (const QString& text : Texts) {
        EXPECT_EQ(text.toStdString(), restoredCell(harmlessCell(text)).toStdString());
    }
}

TEST(RejectFile, ComesBackUnchangedThroughTheReader)
{
    const QTemporaryDir folder;
    for (const char* const name : {"拒绝.csv", "拒绝.XLSX"}) {
        const QString path = folder.filePath(QString::fromUtf8(name));
        QStringList header;
        for (int column = 0; column < Texts.size(); ++column) {
            header.append(QStringLiteral("列%1").arg(column));
        }
        ASSERT_EQ("", writeRejects(
                          path, header,
                          {{Texts, QStringLiteral("=原因")}, {{QStringLiteral("x")}, QStringLiteral("短")}})
                          .toStdString());
        const table::Table table = readTable(path);
        ASSERT_EQ("", table.error.toStdString());
        ASSERT_EQ(3, table.rows.size());
        EXPECT_EQ(header + QStringList{QStringLiteral("错误原因")}, table.rows.at(0));
        EXPECT_EQ(Texts + QStringList{QStringLiteral("=原因")}, table.rows.at(1)) << name;
        EXPECT_EQ("x", table.rows.at(2).first().toStdString());
        EXPECT_EQ("短", table.rows.at(2).last().toStdString());
    }
}

TEST(RejectFile, OfARejectFileHasOneColumnOfReasons)
{
    const QTemporaryDir folder;
    const QString path = folder.filePath(QStringLiteral("a.csv"));
    ASSERT_EQ("", writeRejects(path, {QStringLiteral("市场"), table::reasonTitle()},
                               {{{QStringLiteral("沪"), QStringLiteral("old")}, QStringLiteral("new")}})
                      .toStdString());
    EXPECT_EQ("市场|错误原因\n沪|new\n", shown(readTable(path)));
}

TEST(RejectFile, IsUtf8WithMarkAndHarmlessCellsAsCsv)
{
    const QTemporaryDir folder;
    const QString path = folder.filePath(QStringLiteral("a.csv"));
    ASSERT_EQ("", writeRejects(path, {QStringLiteral("a")}, {{{QStringLiteral("=1,2")}, QStringLiteral("r")}})
                      .toStdString());
    EXPECT_EQ("\xEF\xBB\xBF"
              "a,错误原因\r\n\"'=1,2\",r\r\n",
              contentOf(path).toStdString());
}

TEST(RejectFile, WithATitleThatWasMadeHarmlessIsKnownByIt)
{
    EXPECT_EQ("=a|b\n=1|2\n", shown("'=a,b\n'=1,2\n"));
}

TEST(RejectFile, LeavesAnotherCsvFilesApostrophesAlone)
{
    EXPECT_EQ("a|b\n'=1|2\n", shown("a,b\n'=1,2\n"));
}

TEST(RejectFile, LeavesTheOldFileWhereTheNewOneCannotBeWritten)
{
    const QTemporaryDir folder;
    const QString path = folder.filePath(QStringLiteral("a.xlsx"));
    ASSERT_EQ("", writeRejects(path, {QStringLiteral("a")}, {}).toStdString());
    const QByteArray before = contentOf(path);
    const QString tooLong(40000, QLatin1Char('x'));
    EXPECT_TRUE(writeRejects(path, {QStringLiteral("a")}, {{{tooLong}, QString()}})
                    .endsWith(QStringLiteral("单元格A2过长")));
    EXPECT_EQ(before, contentOf(path));
    EXPECT_FALSE(writeRejects(folder.filePath(QStringLiteral("none/a.csv")), {}, {}).isEmpty());
    EXPECT_EQ(QStringList{QStringLiteral("a.xlsx")}, QDir(folder.path()).entryList(QDir::Files));
}
