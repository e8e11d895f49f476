#include "files/Save.h"

#include "tests/support/FaultyDisk.h"
#include "tests/support/Text.h"

#include <gtest/gtest.h>
#include <sys/stat.h>
#include <unistd.h>

#include <QDir>
#include <QFile>
#include <QTemporaryDir>

namespace {

const QByteArray Old("the old bytes");

class Save : public testing::Test {
protected:
    void SetUp() override { ASSERT_TRUE(QDir(mFolder.path()).mkpath("out"_s)); }

    QString path(const QString& name = "list.csv"_s) const { return mFolder.filePath("out/"_s + name); }
    QStringList names() const
    {
        return QDir(mFolder.filePath("out"_s)).entryList(QDir::Files | QDir::Hidden);
    }

    static QByteArray contentOf(const QString& file)
    {
        QFile read(file);
        EXPECT_TRUE(read.open(QIODevice::ReadOnly)) << qPrintable(file);
        return read.readAll();
    }
    static void put(const QString& file, const QByteArray& bytes)
    {
        QFile written(file);
        ASSERT_TRUE(written.open(QIODevice::WriteOnly));
        ASSERT_EQ(bytes.size(), written.write(bytes));
    }

    /// Every call fails once, until none is left. How many there were.
    int failEveryCall(faulty_disk::Kind kind, const QString& reason, int size)
    {
        const QByteArray fresh(size, 'n');
        for (int at = 1;; ++at) {
            put(path(), Old);
            faulty_disk::arm(mFolder.filePath("out"_s), kind, at);
            const Outcome<void> saved = files::save(path(), fresh);
            const bool isFaulty = faulty_disk::disarm();
            EXPECT_EQ(QStringList{"list.csv"_s}, names()) << "call " << at;
            if (!isFaulty || reason.isEmpty()) {
                EXPECT_EQ(QString(), saved.error);
                EXPECT_EQ(fresh, contentOf(path()));
            } else {
                EXPECT_TRUE(saved.error.contains(reason)) << "call " << at << qPrintable(saved.error);
                // Of the folder's own sync it is too late to take anything back: then all of the new is
                // there.
                EXPECT_EQ(saved.error.startsWith("已写入"_s) ? fresh : Old, contentOf(path()))
                    << "call " << at;
            }
            if (!isFaulty) {
                return at - 1;
            }
        }
    }

    QTemporaryDir mFolder;
};

} // namespace

TEST_F(Save, MakesAFileAndReplacesOne)
{
    for (const QByteArray& bytes : {QByteArray("first"), QByteArray("second, longer"), QByteArray()}) {
        const Outcome<void> saved = files::save(path(), bytes);
        EXPECT_TRUE(saved.ok()) << qPrintable(saved.error);
        EXPECT_EQ(bytes, contentOf(path()));
        EXPECT_EQ(QStringList{"list.csv"_s}, names());
    }
}

TEST_F(Save, KeepsThePermissionsOfAnOldFileAndTheUsersMaskForANewOne)
{
    const mode_t mask = ::umask(027);
    ASSERT_TRUE(files::save(path(), "x").ok());
    ::umask(mask);
    struct stat made;
    ASSERT_EQ(0, ::stat(path().toUtf8().constData(), &made));
    EXPECT_EQ(0640U, made.st_mode & 0777U);

    ASSERT_EQ(0, ::chmod(path().toUtf8().constData(), 0604));
    ASSERT_TRUE(files::save(path(), "y").ok());
    ASSERT_EQ(0, ::stat(path().toUtf8().constData(), &made));
    EXPECT_EQ(0604U, made.st_mode & 0777U);
}

TEST_F(Save, ReplacesWhatALinkLeadsTo)
{
    put(path("real.csv"_s), Old);
    ASSERT_TRUE(QFile::link("real.csv"_s, path("link.csv"_s)));
    ASSERT_TRUE(files::save(path("link.csv"_s), "new").ok());
    EXPECT_TRUE(QFileInfo(path("link.csv"_s)).isSymLink());
    EXPECT_EQ(QByteArray("new"), contentOf(path("real.csv"_s)));
}

TEST_F(Save, RefusesWhatNoFileCanReplace)
{
    EXPECT_EQ("该名称是一个文件夹"_s, files::save(mFolder.filePath("out"_s), "x").error);
    EXPECT_EQ("文件夹不存在"_s, files::save(path("no/such.csv"_s), "x").error);
    EXPECT_EQ("不是普通文件"_s, files::save("/dev/null"_s, "x").error);
    EXPECT_EQ("文件名过长"_s, files::save(path(QString(300, QLatin1Char('x'))), "x").error);
    EXPECT_TRUE(names().isEmpty());
}

TEST_F(Save, SaysWhichFileCouldNotBeWritten)
{
    EXPECT_EQ("无法写入文件“/a/b.csv”：磁盘空间不足"_s, files::cannotWrite("/a/b.csv"_s, "磁盘空间不足"_s));
}

TEST_F(Save, LeavesTheOldFileAtAFaultOfAnyCall)
{
    const int fewest = 5; // open, permissions, write, close, rename
    EXPECT_GE(failEveryCall(faulty_disk::Kind::NoSpace, "磁盘空间不足"_s, 100), fewest);
    EXPECT_GE(failEveryCall(faulty_disk::Kind::InputOutput, "磁盘读写出错"_s, 3 << 20), fewest);
    EXPECT_GE(failEveryCall(faulty_disk::Kind::NoSpace, "磁盘空间不足"_s, 0), fewest - 1);
    EXPECT_EQ(failEveryCall(faulty_disk::Kind::Sync, "磁盘读写出错"_s, 100), 2) << "the file, its folder";
}

TEST_F(Save, GoesOnWhereAWriteTookOnlyHalf)
{
    EXPECT_GE(failEveryCall(faulty_disk::Kind::ShortWrite, QString(), 100), 1);
}

TEST_F(Save, MovesAFileWhole)
{
    put(path("from.csv"_s), "new");
    put(path("to.csv"_s), Old);
    EXPECT_EQ(QString(), files::move(path("from.csv"_s), path("to.csv"_s)).error);
    EXPECT_EQ(QStringList{"to.csv"_s}, names());
    EXPECT_EQ(QByteArray("new"), contentOf(path("to.csv"_s)));
}

TEST_F(Save, LeavesAFileThatCannotBeMoved)
{
    put(path("from.csv"_s), Old);
    EXPECT_EQ("文件夹不存在"_s, files::move(path("from.csv"_s), path("no/such.csv"_s)).error);
    EXPECT_EQ(Old, contentOf(path("from.csv"_s)));
}
