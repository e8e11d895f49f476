#include "desk/window/FileDigest.h"

#include "desk/batch/DraftBuilder.h"
#include "tests/support/Text.h"

#include <gtest/gtest.h>
#include <sys/stat.h>

#include <QFile>
#include <QProgressDialog>
#include <QPushButton>
#include <QTemporaryDir>
#include <QTimer>
#include <QWidget>

class FileDigestTest : public testing::Test {
protected:
    /// A pipe keeps its reader waiting until something is written to it.
    QString makePipe()
    {
        const QString path = folder.filePath("pipe"_s);
        EXPECT_EQ(mkfifo(QFile::encodeName(path).constData(), 0600), 0);
        return path;
    }

    QString makeFile(const QString& name, const QByteArray& bytes)
    {
        QFile file(folder.filePath(name));
        EXPECT_TRUE(file.open(QIODevice::WriteOnly));
        file.write(bytes);
        return file.fileName();
    }

    static void write(const QString& path, const QByteArray& bytes)
    {
        QFile file(path);
        ASSERT_TRUE(file.open(QIODevice::WriteOnly | QIODevice::Unbuffered));
        file.write(bytes);
    }

    static FileDigest::Take of(const QString& path)
    {
        return [path] { return Outcome<QString>{batch::sha256OfFile(path), {}}; };
    }

    QTemporaryDir folder;
    QWidget window;
    FileDigest digest;
    bool cancelled = false;
};

TEST_F(FileDigestTest, IsThatOfTheFileWaitedForWhateverIsStartedMeanwhile)
{
    const QString first = makePipe();
    const QString second = makeFile("second"_s, "B");
    const QString expected = batch::sha256OfFile(makeFile("same"_s, "A"));
    digest.start(of(first));
    QTimer::singleShot(50, &window, [&] {
        digest.start(of(second));
        write(first, "A");
    });
    EXPECT_EQ(digest.wait(&window, cancelled).value, expected);
    EXPECT_FALSE(cancelled);
    EXPECT_EQ(digest.wait(&window, cancelled).value, batch::sha256OfFile(second));
}

TEST_F(FileDigestTest, IsGivenUpWhereTheUserDoesNotWant)
{
    const QString path = makePipe();
    window.show();
    digest.start(of(path));
    QTimer poll;
    QObject::connect(&poll, &QTimer::timeout, &window, [&] {
        auto* progress = window.findChild<QProgressDialog*>();
        if (progress && progress->isVisible()) {
            progress->findChild<QPushButton*>()->click();
        }
    });
    poll.start(20);
    EXPECT_EQ(digest.wait(&window, cancelled).value, QString());
    EXPECT_TRUE(cancelled);
    write(path, "A"); // lets the reader end
}

TEST_F(FileDigestTest, IsEmptyBeforeAnyFile)
{
    EXPECT_EQ(digest.wait(&window, cancelled).value, QString());
    EXPECT_FALSE(cancelled);
}
