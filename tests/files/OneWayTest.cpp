// No room writes a user's file in a way of its own.

#include <gtest/gtest.h>

#include <QDirIterator>
#include <QFile>
#include <QRegularExpression>

namespace {

const QString Root = QStringLiteral(SOURCE_ROOT);

QString textOf(const QString& path)
{
    QFile file(path);
    EXPECT_TRUE(file.open(QIODevice::ReadOnly)) << qPrintable(path);
    return QString::fromUtf8(file.readAll());
}

/// Files of the room that open one for writing by themselves.
QStringList writersIn(const QString& room)
{
    static const QRegularExpression writing(
        QStringLiteral("QSaveFile|ofstream|\\bfopen\\b|\\.open\\(QIODevice::(WriteOnly|ReadWrite|Append)"));
    QStringList writers;
    QDirIterator sources(Root + QLatin1Char('/') + room, {QStringLiteral("*.h"), QStringLiteral("*.cpp")},
                         QDir::Files, QDirIterator::Subdirectories);
    while (sources.hasNext()) {
        const QString path = sources.next();
        if (textOf(path).contains(writing)) {
            writers.append(path.mid(Root.size() + 1));
        }
    }
    return writers;
}

} // namespace

TEST(OneWayToSave, NoRoomOpensAUsersFileForWriting)
{
    const QStringList rooms = {
        QStringLiteral("dialog"),     QStringLiteral("schema"),  QStringLiteral("import"),
        QStringLiteral("validation"), QStringLiteral("amounts"), QStringLiteral("embedded_host"),
        QStringLiteral("desk"),       QStringLiteral("table"),   QStringLiteral("tools/catalogue")};
    for (const QString& room : rooms) {
        EXPECT_EQ(QStringList(), writersIn(room)) << qPrintable(room);
    }
}

TEST(OneWayToSave, TheSourcesAreReallyRead)
{
    EXPECT_FALSE(writersIn(QStringLiteral("tests/files")).isEmpty());
}
