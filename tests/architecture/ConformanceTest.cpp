// docs/conformance.md against the tests as they are: it promises none that does not exist.

#include "tests/architecture/Tree.h"

#include <gtest/gtest.h>

#include <QDirIterator>
#include <QFile>
#include <QRegularExpression>
#include <QSet>

using tree::Root;
using tree::textOf;

namespace {

/// Suite.Test of every test, gtest's and those that CMake scripts are.
QSet<QString> existingTests()
{
    static const QRegularExpression pattern(
        QStringLiteral("\\b(?:TEST(?:_F|_P)?\\(\\s*(\\w+)\\s*,\\s*|add_test\\(NAME (\\w+)\\.)(\\w+)"));
    QSet<QString> names;
    QDirIterator files(Root + QStringLiteral("/tests"),
                       {QStringLiteral("*Test.cpp"), QStringLiteral("CMakeLists.txt")}, QDir::Files,
                       QDirIterator::Subdirectories);
    while (files.hasNext()) {
        auto match = pattern.globalMatch(textOf(files.next()));
        while (match.hasNext()) {
            const QRegularExpressionMatch found = match.next();
            names.insert(found.captured(1) + found.captured(2) + QLatin1Char('.') + found.captured(3));
        }
    }
    return names;
}

struct Row {
    QString behaviour;
    QStringList tests;
};

/// The rows of the page down to what no test shows, each a behaviour and, in backticks, its tests.
QList<Row> coveredRows()
{
    static const QRegularExpression row(QStringLiteral("^\\| (?!what the system does)(.+) \\|([^|\n]*)\\|$"),
                                        QRegularExpression::MultilineOption);
    const QString page = textOf(Root + QStringLiteral("/docs/conformance.md"));
    const QString end = QStringLiteral("\n## Not covered by a test\n");
    EXPECT_TRUE(page.contains(end));
    QList<Row> rows;
    auto match = row.globalMatch(page.left(page.indexOf(end)));
    while (match.hasNext()) {
        const QRegularExpressionMatch found = match.next();
        const QString tests = found.captured(2).remove(QLatin1Char('`'));
        rows.append({found.captured(1), tests.split(QLatin1Char(' '), Qt::SkipEmptyParts)});
    }
    return rows;
}

TEST(Conformance, EveryBehaviourIsShownByTestsThatExist)
{
    const QSet<QString> existing = existingTests();
    const QList<Row> rows = coveredRows();
    EXPECT_GT(rows.size(), 250) << "the page was not read";
    for (const Row& row : rows) {
        EXPECT_FALSE(row.tests.isEmpty()) << qPrintable(row.behaviour);
        for (const QString& test : row.tests) {
            EXPECT_TRUE(existing.contains(test)) << qPrintable(row.behaviour) << ": " << qPrintable(test);
        }
    }
}

} // namespace
