// The arrows between the rooms, as docs/architecture.md draws them, against the includes as they are.

#include "tests/architecture/Tree.h"

#include <gtest/gtest.h>

#include <QDir>
#include <QDirIterator>
#include <QFile>
#include <QMap>
#include <QRegularExpression>

using tree::Root;
using tree::textOf;

namespace {

/// Room -> rooms that it may include, beside itself.
QMap<QString, QStringList> arrows()
{
    const auto rooms = [](const char* names) { return QString::fromLatin1(names).split(QLatin1Char(' ')); };
    return {{QStringLiteral("table"), {}},
            {QStringLiteral("strategy"), rooms("table")}, // and the host's constants
            {QStringLiteral("host"), {}},
            {QStringLiteral("amounts"), rooms("strategy table host")},
            {QStringLiteral("validation"), rooms("strategy table host")},
            {QStringLiteral("schema"), rooms("amounts strategy table host")},
            {QStringLiteral("import"), rooms("schema amounts validation strategy table host")},
            {QStringLiteral("dialog"), rooms("import schema amounts validation strategy table host")},
            {QStringLiteral("words"), rooms("table")},
            {QStringLiteral("files"), rooms("words table")},
            {QStringLiteral("ledger"), rooms("files words table")},
            {QStringLiteral("gateway"), rooms("ledger files words table")},
            {QStringLiteral("atdl"), rooms("gateway strategy words table")}, // and the host's constants
            {QStringLiteral("embedded_host"), rooms("files strategy words table host")},
            {QStringLiteral("desk"),
             rooms("atdl gateway ledger embedded_host files import amounts validation strategy words table "
                   "host")}};
}

/// Headers beyond the rooms of a room's arrows.
QMap<QString, QStringList> furtherHeaders()
{
    const QString dialog = QStringLiteral("dialog/AlgoBatchImportParamSetting.h");
    const QString form = QStringLiteral("ui_AlgoBatchImportParamSetting.h");
    const QStringList ofMembers = {dialog, QStringLiteral("dialog/ErrorBox.h"), form};
    return {{QStringLiteral("strategy"),
             {QStringLiteral("host/AlgoConstants.h"), QStringLiteral("host/NorvikConstants.h"),
              QStringLiteral("host/SolveyConstants.h")}},
            {QStringLiteral("atdl"), {QStringLiteral("host/AlgoConstants.h")}},
            {QStringLiteral("amounts"), ofMembers},
            {QStringLiteral("validation"), ofMembers},
            {QStringLiteral("schema"), ofMembers},
            {QStringLiteral("import"), ofMembers},
            {QStringLiteral("dialog"), {form}},
            {QStringLiteral("desk"), {dialog}}};
}

struct Include {
    QString file;
    QString target;

    /// The first folder; the file's own name where the include does not say in which room it is.
    QString room() const { return target.section(QLatin1Char('/'), 0, 0); }
};

/// Every include in quotation marks.
QList<Include> includesOfFile(const QString& path)
{
    static const QRegularExpression pattern(QStringLiteral("^\\s*#\\s*include\\s*\"([^\"]+)\""),
                                            QRegularExpression::MultilineOption);
    QList<Include> includes;
    auto match = pattern.globalMatch(textOf(path));
    while (match.hasNext()) {
        includes.append({path, match.next().captured(1)});
    }
    return includes;
}

QList<Include> includesOf(const QString& room)
{
    QList<Include> includes;
    QDirIterator files(Root + QLatin1Char('/') + room, {QStringLiteral("*.h"), QStringLiteral("*.cpp")},
                       QDir::Files, QDirIterator::Subdirectories);
    while (files.hasNext()) {
        includes += includesOfFile(files.next());
    }
    return includes;
}

/// Of the dialog, whose members are defined in the rooms of their subjects.
bool isOfDialog(const Include& include)
{
    return include.room() == QLatin1String("dialog") || include.target.startsWith(QLatin1String("ui_"));
}

TEST(Architecture, EveryRoomIncludesOnlyWhatItsArrowsAllow)
{
    const QMap<QString, QStringList> map = arrows();
    for (auto room = map.constBegin(); room != map.constEnd(); ++room) {
        const QStringList allowed = QStringList{room.key()} + room.value();
        const QStringList further = furtherHeaders().value(room.key());
        for (const Include& include : includesOf(room.key())) {
            EXPECT_TRUE(allowed.contains(include.room()) || further.contains(include.target))
                << qPrintable(include.file) << " includes " << qPrintable(include.target);
        }
    }
}

/// Room -> rooms, as the second table of the document says; what stands behind a semicolon are single
/// headers.
QMap<QString, QStringList> documentedArrows()
{
    static const QRegularExpression row(QStringLiteral("^\\| `(\\w+)/` \\| ([^;|]*)"),
                                        QRegularExpression::MultilineOption);
    static const QRegularExpression name(QStringLiteral("`(\\w+)/`"));
    const QString text = textOf(Root + QStringLiteral("/docs/architecture.md"));
    const QString table = text.mid(text.indexOf(QStringLiteral("| room | includes, beside itself |")))
                              .section(QStringLiteral("\n\n"), 0, 0);
    QMap<QString, QStringList> documented;
    auto rows = row.globalMatch(table);
    while (rows.hasNext()) {
        const auto match = rows.next();
        QStringList& below = documented[match.captured(1)];
        auto names = name.globalMatch(match.captured(2));
        while (names.hasNext()) {
            below.append(names.next().captured(1));
        }
        below.sort();
    }
    return documented;
}

TEST(Architecture, TheDocumentDrawsTheseArrowsAndNoOther)
{
    QMap<QString, QStringList> asked = arrows();
    for (QStringList& below : asked) {
        below.sort();
    }
    const QMap<QString, QStringList> documented = documentedArrows();
    EXPECT_EQ(documented.keys(), asked.keys());
    for (auto room = asked.constBegin(); room != asked.constEnd(); ++room) {
        EXPECT_EQ(documented.value(room.key()), room.value()) << qPrintable(room.key());
    }
}

TEST(Architecture, EveryFolderWithSourcesIsARoomOrAboutThem)
{
    const QStringList about = {QStringLiteral("bench"),    QStringLiteral("build"), QStringLiteral("cmake"),
                               QStringLiteral("examples"), QStringLiteral("fuzz"),  QStringLiteral("tests"),
                               QStringLiteral("tools")};
    for (const QString& folder : QDir(Root).entryList(QDir::Dirs | QDir::NoDotAndDotDot)) {
        QDirIterator sources(Root + QLatin1Char('/') + folder,
                             {QStringLiteral("*.h"), QStringLiteral("*.cpp")}, QDir::Files,
                             QDirIterator::Subdirectories);
        EXPECT_TRUE(arrows().contains(folder) || about.contains(folder) || !sources.hasNext())
            << qPrintable(folder) << " has no arrows";
    }
}

TEST(Architecture, NoRoomIncludesOneThatIncludesIt)
{
    const QMap<QString, QStringList> map = arrows();
    for (auto room = map.constBegin(); room != map.constEnd(); ++room) {
        for (const QString& below : room.value()) {
            EXPECT_FALSE(map.value(below).contains(room.key()))
                << qPrintable(room.key()) << " and " << qPrintable(below);
        }
    }
}

TEST(Architecture, HeadersBelowTheDialogKnowNothingOfIt)
{
    for (const char* room : {"amounts", "validation", "schema", "import"}) {
        for (const Include& include : includesOf(QLatin1String(room))) {
            EXPECT_FALSE(include.file.endsWith(QLatin1String(".h")) && isOfDialog(include))
                << qPrintable(include.file) << " includes " << qPrintable(include.target);
        }
    }
}

/// The sources that others link without a dialog.
TEST(Architecture, WhatReadsRowsKnowsNoDialog)
{
    static const QRegularExpression source(QStringLiteral("^  (\\S+\\.cpp)\\)?$"),
                                           QRegularExpression::MultilineOption);
    auto match = source.globalMatch(textOf(Root + QStringLiteral("/import/CMakeLists.txt")));
    int sources = 0;
    while (match.hasNext()) {
        ++sources;
        for (const Include& include :
             includesOfFile(Root + QStringLiteral("/import/") + match.next().captured(1))) {
            EXPECT_FALSE(isOfDialog(include))
                << qPrintable(include.file) << " includes " << qPrintable(include.target);
        }
    }
    EXPECT_GT(sources, 10) << "the list was not read";
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
