#include "tests/runner/RunnerTest.h"

#include <QDir>
#include <QFile>
#include <QJsonArray>

/// algodesk on a disk that is full: a small file system in memory, of the test's own, with no byte left.
class FullDisk : public RunnerTest {
protected:
    struct Left {
        Run run;
        QByteArray oldFiles; ///< what the files that were there before hold afterwards, one behind the other
        QByteArray names;    ///< of all files there afterwards
    };

    void SetUp() override
    {
        RunnerTest::SetUp();
        ASSERT_TRUE(QDir(folder()).mkpath("disk"_s));
        mIsPossible = inShell("true"_s, {}).status == 0;
    }

    /// In name spaces of its own, so that nobody else sees the disk and it goes with the process.
    Run inShell(const QString& script, const QMap<QString, QString>& environment)
    {
        QProcess process;
        prepare(process, environment);
        process.setProgram("unshare"_s);
        process.setArguments({"--map-root-user"_s, "--mount"_s, "sh"_s, "-c"_s,
                              "mount -t tmpfs -o size=64k none disk && "_s + script});
        process.start(QIODevice::ReadOnly);
        return finish(process);
    }

    /// Runs algodesk where 64 KiB hold the old files, each of the text "old", and nothing more.
    Left runOnFullDisk(const QStringList& arguments, const QStringList& oldFiles,
                       const QMap<QString, QString>& environment = {})
    {
        QStringList commands;
        for (const QString& name : oldFiles) {
            commands.append("printf old > disk/"_s + name);
        }
        commands.append(
            "{ cat /dev/zero > disk/filler; } 2>/dev/null; %1 '%2' >out 2>err; status=$?; cat %3 >kept; "
            "ls -A disk >names; exit $status"_s.arg(QStringLiteral(ALGODESK), arguments.join("' '"_s),
                                                    "disk/"_s + oldFiles.join(" disk/"_s)));
        Left left;
        left.run = inShell(commands.join(" && "_s), environment);
        left.run.out = contentOf("out"_s);
        left.oldFiles = contentOf("kept"_s);
        left.names = contentOf("names"_s);
        return left;
    }

    QByteArray contentOf(const QString& name) const
    {
        QFile file(folder() + QLatin1Char('/') + name);
        EXPECT_TRUE(file.open(QIODevice::ReadOnly)) << qPrintable(name);
        return file.readAll();
    }

    bool mIsPossible = false;
};

#define NEEDS_A_DISK()                                                                                       \
    if (!mIsPossible) {                                                                                      \
        GTEST_SKIP() << "this machine lets nobody mount a file system of his own (unshare --mount)";         \
    }

TEST_F(FullDisk, LeavesTheOldTemplatesAndSaysSo)
{
    NEEDS_A_DISK();
    const QStringList arguments = {"template"_s, "--data"_s, dataFolder(), "--all"_s, "disk/all.csv"_s};
    const Left left = runOnFullDisk(arguments, {"all-AITWAP.csv"_s, "all-AILOCK.csv"_s});
    EXPECT_EQ(1, left.run.status);
    EXPECT_EQ("模板未保存：disk/all-AITWAP.csv（磁盘空间不足）"_s, left.run.object()["error"_s].toString());
    EXPECT_EQ(QJsonArray(), left.run.object()["files"_s].toArray());
    EXPECT_EQ(QByteArray("oldold"), left.oldFiles);
    EXPECT_EQ(QByteArray("all-AILOCK.csv\nall-AITWAP.csv\nfiller\n"), left.names);
}

TEST_F(FullDisk, LeavesAnOldWorkbookWhetherItOrItsDraftFindsNoRoom)
{
    NEEDS_A_DISK();
    const QStringList arguments = {"template"_s, "--data"_s, dataFolder(), "--all"_s, "disk/all.xlsx"_s};
    const Left left = runOnFullDisk(arguments, {"all.xlsx"_s});
    EXPECT_EQ(1, left.run.status);
    EXPECT_EQ("模板未保存：disk/all.xlsx（磁盘空间不足）"_s, left.run.object()["error"_s].toString());
    EXPECT_EQ(QByteArray("old"), left.oldFiles);

    const QString drafts = folder() + "/disk"_s;
    const Left noDraft = runOnFullDisk(arguments, {"all.xlsx"_s}, {{"TMPDIR"_s, drafts}});
    EXPECT_EQ(1, noDraft.run.status);
    EXPECT_EQ("模板未保存：disk/all.xlsx（临时文件夹%1无法写入或空间不足）"_s.arg(drafts),
              noDraft.run.object()["error"_s].toString());
    EXPECT_EQ(QByteArray("old"), noDraft.oldFiles);
}

TEST_F(FullDisk, LeavesAnOldRejectFileAndSaysSo)
{
    NEEDS_A_DISK();
    const QString file = table(goodRow() + badRow());
    for (const QString& name : {"rejects.csv"_s, "rejects.xlsx"_s}) {
        const Left left = runOnFullDisk(
            importArguments(file, aitwap() + QStringList{"--rejects"_s, "disk/"_s + name}), {name});
        EXPECT_EQ(1, left.run.status);
        const QJsonObject rejects = left.run.object()["rejects"_s].toObject();
        EXPECT_EQ("无法写入文件“disk/%1”：磁盘空间不足"_s.arg(name), rejects["error"_s].toString());
        EXPECT_EQ(QByteArray("old"), left.oldFiles) << qPrintable(name);
    }
}
