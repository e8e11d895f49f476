// The arrows between the rooms, as docs/architecture.md draws them, against the includes as they are.

#include <gtest/gtest.h>

#include <QDir>
#include <QDirIterator>
#include <QFile>
#include <QMap>
#include <QRegularExpression>

namespace {

const QString Root = QStringLiteral(SOURCE_ROOT);

/// Room -> rooms that it may include, beside itself.
QMap<QString, QStringList> arrows()
{
    const QStringList dialogRooms = {QStringLiteral("dialog"),  QStringLiteral("schema"),
                                     QStringLiteral("import"),  QStringLiteral("validation"),
                                     QStringLiteral("amounts"), QStringLiteral("host")};
    QMap<QString, QStringList> map;
    for (const QString& room : dialogRooms) {
        map[room] = dialogRooms;
    }
    const QStringList values = {QStringLiteral("table"), QStringLiteral("files")};
    map[QStringLiteral("table")] = QStringList{QStringLiteral("table")};
    map[QStringLiteral("files")] = values;
    map[QStringLiteral("host")] = QStringList{QStringLiteral("host")};
    map[QStringLiteral("embedded_host")] =
        QStringList{QStringLiteral("embedded_host"), QStringLiteral("host")} + values;
    map[QStringLiteral("ledger")] = QStringList{QStringLiteral("ledger"), QStringLiteral("table")};
    map[QStringLiteral("desk")] = QStringList{QStringLiteral("desk"), QStringLiteral("embedded_host"),
                                              QStringLiteral("host"), QStringLiteral("ledger")} +
                                  values;
    return map;
}

struct Include {
    QString file;
    QString target;

    /// The first folder; the file's own name where the include does not say in which room it is.
    QString room() const { return target.section(QLatin1Char('/'), 0, 0); }
};

/// Every include in quotation marks.
QList<Include> includesOf(const QString& room)
{
    static const QRegularExpression pattern(QStringLiteral("^\\s*#\\s*include\\s*\"([^\"]+)\""),
                                            QRegularExpression::MultilineOption);
    QList<Include> includes;
    QDirIterator files(Root + QLatin1Char('/') + room, {QStringLiteral("*.h"), QStringLiteral("*.cpp")},
                       QDir::Files, QDirIterator::Subdirectories);
    while (files.hasNext()) {
        QFile file(files.next());
        EXPECT_TRUE(file.open(QIODevice::ReadOnly));
        auto match = pattern.globalMatch(QString::fromUtf8(file.readAll()));
        while (match.hasNext()) {
            const QRegularExpressionMatch found = match.next();
            includes.append({file.fileName(), found.captured(1)});
        }
    }
    return includes;
}

bool isAllowed(const Include& include, const QString& room, const QStringList& allowed)
{
    const bool publicHeader = include.target == QLatin1String("dialog/AlgoBatchImportParamSetting.h");
    const bool form = include.target == QLatin1String("ui_AlgoBatchImportParamSetting.h");
    return allowed.contains(include.room()) || (room == QLatin1String("desk") && publicHeader) ||
           (allowed.contains(QStringLiteral("dialog")) && form);
}

TEST(Architecture, EveryRoomIncludesOnlyWhatItsArrowsAllow)
{
    const QMap<QString, QStringList> map = arrows();
    for (auto room = map.constBegin(); room != map.constEnd(); ++room) {
        const QList<Include> includes = includesOf(room.key());
        for (const Include& include : includes) {
            EXPECT_TRUE(isAllowed(include, room.key(), room.value()))
                << qPrintable(include.file) << " includes " << qPrintable(include.target);
        }
    }
}

TEST(Architecture, TheIncludesAreReallyRead)
{
    EXPECT_GT(includesOf(QStringLiteral("import")).size(), 10);
    EXPECT_GT(includesOf(QStringLiteral("embedded_host")).size(), 20);
}

TEST(Architecture, TheHostHoldsHeadersOnly)
{
    EXPECT_TRUE(QDir(Root + QStringLiteral("/host")).entryList({QStringLiteral("*.cpp")}).isEmpty());
}

} // namespace
