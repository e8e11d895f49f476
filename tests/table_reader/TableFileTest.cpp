#include "embedded_host/table_reader/TableFile.h"

#include "tests/table_reader/Reading.h"

#include <QCryptographicHash>
#include <QDir>
#include <QTemporaryDir>

#include <thread>

using table_reader::TableFile;

namespace {

class TableFileTest : public testing::Test {
protected:
    QString put(const QByteArray& bytes, const QString& name = QStringLiteral("list.csv"))
    {
        const QString path = mFolder.filePath(name);
        QFile file(path);
        EXPECT_TRUE(file.open(QIODevice::WriteOnly));
        EXPECT_EQ(bytes.size(), file.write(bytes));
        return path;
    }
    static QString digestOf(const QByteArray& bytes)
    {
        return QString::fromLatin1(QCryptographicHash::hash(bytes, QCryptographicHash::Sha256).toHex());
    }

    QTemporaryDir mFolder;
};

} // namespace

TEST_F(TableFileTest, GivesTheHeadOfALongFileAndTheDigestOfAllOfIt)
{
    const QByteArray bytes = QByteArray("a,b\n").repeated(500'000);
    TableFile file(put(bytes));
    EXPECT_EQ(table::RowsToRead, file.read().rows.size());
    EXPECT_EQ(digestOf(bytes), file.sha256().value);
    EXPECT_EQ(table::RowsToRead, file.read().rows.size()) << "again, after the digest";
}

TEST_F(TableFileTest, DigestsInTheBackgroundWhatWasReadAndNotWhatTookItsPlace)
{
    const QByteArray bytes("a,b\n1,2\n");
    const QString path = put(bytes);
    TableFile file(path);
    EXPECT_EQ("a|b\n1|2\n", shown(file.read()));
    put("c,d\n", QStringLiteral("other.csv"));
    ASSERT_EQ(0, std::rename(QFile::encodeName(mFolder.filePath(QStringLiteral("other.csv"))).constData(),
                             QFile::encodeName(path).constData()));
    QString digest;
    std::thread([&] { digest = file.sha256().value; }).join();
    EXPECT_EQ(digestOf(bytes), digest);
}

TEST_F(TableFileTest, SaysThatTheFileWasWrittenToSince)
{
    const QString path = put("a,b\n1,2\n");
    TableFile file(path);
    file.read();
    put("a,b\n1,2\n3,4\n");
    EXPECT_EQ("文件在读取之后被修改，请重新导入", file.sha256().error.toStdString());
    EXPECT_EQ(QString(), file.sha256().value);
}

TEST_F(TableFileTest, RefusesBothAlike)
{
    TableFile none(mFolder.filePath(QStringLiteral("none.csv")));
    EXPECT_EQ("文件不存在", none.read().error.toStdString());
    EXPECT_EQ("文件不存在", none.sha256().error.toStdString());
    TableFile folder(mFolder.path());
    EXPECT_EQ("所选路径是文件夹，不是文件", folder.read().error.toStdString());
}
