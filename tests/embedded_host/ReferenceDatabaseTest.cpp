#include "embedded_host/reference_data/ReferenceDatabase.h"

#include "embedded_host/reference_data/ReferenceColumns.h"
#include "tests/embedded_host/DataFolder.h"
#include "tests/support/Text.h"

#include <gtest/gtest.h>

#include <QDir>
#include <QFile>
#include <QSqlDatabase>
#include <QSqlError>
#include <QSqlQuery>

namespace {

/// Every table as lines of cells, for comparison.
QStringList linesOf(const ReferenceTables& tables)
{
    QStringList lines{tables.everythingAllowed ? "everything allowed"_s : "as listed"_s};
    forEachTable([&](const auto& table) {
        for (const auto& row : tables.*table.rows) {
            QStringList cells{table.name};
            for (const auto& column : table.columns) {
                cells.append(column.write(row));
            }
            lines.append(cells.join(";"_s));
        }
        return true;
    });
    return lines;
}

class ReferenceDatabaseTest : public testing::Test {
protected:
    ReferenceDatabaseTest() : path(folder.filePath("home/reference.sqlite"_s)) { writeEveryFile(); }

    void writeEveryFile() const
    {
        folder.write("markets.csv"_s,
                     "exchange,name,post,codeLength,aliases\nSH,上海,SH,6,沪市|SSE\nSZ,,SZ,,\n");
        folder.write(
            "securities.csv"_s,
            "symbol,code,name,post,exchanges,securityType,subType,dispFactor,minQtyPerOrder,qtyStep,"
            "pricePrecision,bondRepo\nB,2,乙,HK,HKSC|HKSZ,STOCK,HK_MAIN,0,200,0,3,0\nA,1,,SH,,,,,,,,1\n");
        folder.write("futures.csv"_s, "symbol,multiplier,pricePrecision\nIF,300,1\n");
        folder.write("security_accounts.csv"_s, "tradingAccount,exchange,securityAccount\n1001,SH,A1\n");
        folder.write("authorities.csv"_s, "tradingAccount,strategy\n*,AITWAP\n*,AITWAP\n");
        folder.write("quotes.csv"_s, "symbol,LastPx,MaxPx\nA,10.00,\nB,,\n");
        folder.write("hk_rates.csv"_s, "exchange,HKSExchgRateBuy\nHKSC,0.90\nHKSZ,\n");
        folder.write("strategies.json"_s,
                     R"([{"name": "Z"}, {"name": "AITWAP", "alias": "智能", "paramFormats": [1]}])");
    }

    QStringList refreshed() const
    {
        QString error;
        const std::optional<ReferenceTables> tables = ReferenceDatabase::refresh(folder.path(), path, error);
        EXPECT_EQ(error, QString());
        return tables ? linesOf(*tables) : QStringList();
    }

    /// Runs a statement on the database behind the program's back; the first field of its first row.
    QVariant tamper(const QString& statement) const
    {
        QVariant result;
        {
            QSqlDatabase database = QSqlDatabase::addDatabase("QSQLITE"_s, "tamper"_s);
            database.setDatabaseName(path);
            EXPECT_TRUE(database.open());
            QSqlQuery query(database);
            EXPECT_TRUE(query.exec(statement)) << query.lastError().text().toStdString();
            result = query.next() ? query.value(0) : QVariant();
        }
        QSqlDatabase::removeDatabase("tamper"_s);
        return result;
    }

    void overwrite(const QByteArray& bytes) const
    {
        QFile file(path);
        ASSERT_TRUE(file.open(QIODevice::WriteOnly));
        file.write(bytes);
    }

    DataFolder folder;
    const QString path;
};

TEST_F(ReferenceDatabaseTest, FirstRefreshReadsTheFolder)
{
    EXPECT_EQ(refreshed(), linesOf(folder.tables()));
    EXPECT_TRUE(QFile::exists(path));
}

TEST_F(ReferenceDatabaseTest, UnchangedFolderComesFromTheDatabase)
{
    refreshed();
    tamper("UPDATE securities SET name = 'from the database' WHERE symbol = 'A'"_s);
    EXPECT_TRUE(refreshed().join("\n"_s).contains("from the database"_s));
}

TEST_F(ReferenceDatabaseTest, DatabaseGivesEveryTableAsTheFolderDoes)
{
    const QStringList expected = linesOf(folder.tables());
    refreshed();
    EXPECT_EQ(refreshed(), expected);
    EXPECT_EQ(expected.first(), "as listed"_s);
}

TEST_F(ReferenceDatabaseTest, ChangedFileIsReadAnew)
{
    refreshed();
    folder.write("quotes.csv"_s, "symbol,LastPx,MaxPx\nA,10.01,\nB,,\n"); // as long as before
    EXPECT_EQ(refreshed(), linesOf(folder.tables()));
    EXPECT_TRUE(refreshed().join("\n"_s).contains("10.01"_s));
}

TEST_F(ReferenceDatabaseTest, FileThatGoesOrComesIsNoticed)
{
    refreshed();
    folder.remove("authorities.csv"_s);
    EXPECT_EQ(refreshed().first(), "everything allowed"_s);
    EXPECT_EQ(refreshed().first(), "everything allowed"_s) << "from the database";
    folder.write("authorities.csv"_s, "tradingAccount,strategy\n");
    EXPECT_EQ(refreshed().first(), "as listed"_s);
}

TEST_F(ReferenceDatabaseTest, LinkThatLeadsNowhereIsNotTakenForAnAbsentFile)
{
    folder.remove("authorities.csv"_s);
    EXPECT_EQ(refreshed().first(), "everything allowed"_s);
    folder.link(folder.filePath("gone.csv"_s), "authorities.csv"_s);
    QString error;
    EXPECT_FALSE(ReferenceDatabase::refresh(folder.path(), path, error));
    EXPECT_EQ(error, folder.filePath("authorities.csv"_s) + ":1: 文件不存在"_s);
}

TEST_F(ReferenceDatabaseTest, FaultyFolderIsToldAndTheDatabaseStays)
{
    refreshed();
    folder.write("quotes.csv"_s, "symbol,LastPx\nA,x\n");
    QString error;
    EXPECT_FALSE(ReferenceDatabase::refresh(folder.path(), path, error));
    EXPECT_EQ(error, folder.filePath("quotes.csv"_s) + ":2: LastPx 应为数字：x"_s);
    EXPECT_EQ(tamper("SELECT LastPx FROM quotes WHERE symbol = 'A'"_s), QVariant("10.00"_s));
}

TEST_F(ReferenceDatabaseTest, DamagedFileIsReplaced)
{
    refreshed();
    overwrite(QByteArray(8192, 'x'));
    EXPECT_EQ(refreshed(), linesOf(folder.tables()));
    EXPECT_EQ(tamper("SELECT count(*) FROM securities"_s).toInt(), 2);
}

TEST_F(ReferenceDatabaseTest, FileCutShortIsReplaced)
{
    refreshed();
    ASSERT_TRUE(QFile::resize(path, QFileInfo(path).size() / 2));
    EXPECT_EQ(refreshed(), linesOf(folder.tables()));
    EXPECT_EQ(tamper("PRAGMA integrity_check"_s).toString(), "ok"_s);
}

TEST_F(ReferenceDatabaseTest, DatabaseOfAnotherProgramIsReplaced)
{
    ASSERT_TRUE(QDir().mkpath(folder.filePath("home"_s)));
    tamper("CREATE TABLE securities (x)"_s);
    EXPECT_EQ(refreshed(), linesOf(folder.tables()));
    EXPECT_EQ(tamper("SELECT count(*) FROM securities"_s).toInt(), 2);
}

TEST_F(ReferenceDatabaseTest, DatabaseOfAnotherVersionIsWrittenAnew)
{
    refreshed();
    tamper("PRAGMA user_version = 99"_s);
    tamper("UPDATE securities SET name = 'old'"_s);
    EXPECT_FALSE(refreshed().join("\n"_s).contains("old"_s));
    EXPECT_EQ(tamper("PRAGMA user_version"_s).toInt(), ReferenceDatabase::SchemaVersion);
}

TEST_F(ReferenceDatabaseTest, CellThatTheTableCannotHoldMakesTheDatabaseDamaged)
{
    refreshed();
    tamper("UPDATE securities SET qtyStep = 'x'"_s);
    EXPECT_EQ(refreshed(), linesOf(folder.tables()));
}

TEST_F(ReferenceDatabaseTest, MissingTableMakesTheDatabaseDamaged)
{
    refreshed();
    tamper("DROP TABLE accounts"_s);
    EXPECT_EQ(refreshed(), linesOf(folder.tables()));
}

TEST_F(ReferenceDatabaseTest, DatabaseThatCannotBeWrittenIsNotFatal)
{
    QString error;
    const QString insideAFile = folder.filePath("markets.csv/reference.sqlite"_s);
    const auto tables = ReferenceDatabase::refresh(folder.path(), insideAFile, error);
    ASSERT_TRUE(tables.has_value());
    EXPECT_EQ(linesOf(*tables), linesOf(folder.tables()));
}

TEST_F(ReferenceDatabaseTest, KeysAndCodesAreIndexed)
{
    refreshed();
    const int indexes = tamper("SELECT count(*) FROM sqlite_master WHERE type = 'index' AND name IN "
                               "('securities_by_key', 'securities_by_code', 'security_accounts_by_key')"_s)
                            .toInt();
    EXPECT_EQ(indexes, 3);
}

} // namespace
