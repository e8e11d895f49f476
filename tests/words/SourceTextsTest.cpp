// Chinese in the sources of the rooms that show texts is either a text that can be translated, or data.

#include "tests/support/Text.h"

#include <gtest/gtest.h>

#include <QDirIterator>
#include <QFile>
#include <QRegularExpression>

namespace {

const QString Root = QStringLiteral(SOURCE_ROOT);

/// Files whose Chinese is not said but recognised or written for programs: titles of columns, words of a
/// cell.
const QStringList Data = {
    "atdl/Columns.cpp"_s,
    "atdl/OrderColumns.cpp"_s,
    "atdl/OrderColumns.h"_s,
    "atdl/Parameters.cpp"_s,
    "atdl/Titles.cpp"_s,
    "desk/check/ImportExpectation.cpp"_s,
    "desk/mapping/Cells.cpp"_s,
    "desk/mapping/Mapping.cpp"_s,
    "desk/mapping/Suggestion.cpp"_s,
    "desk/verdict/OrderRules.cpp"_s,
    "embedded_host/table_check/HeaderLint.cpp"_s,
    "embedded_host/table_check/NumberLint.cpp"_s,
    "embedded_host/table_check/RowLint.cpp"_s,
    "embedded_host/table_check/TitleLint.cpp"_s,
    "embedded_host/table_reader/ods/OdsSheet.cpp"_s,
    "embedded_host/templates/TemplateSheet.cpp"_s,
    "gateway/messages/Order.cpp"_s,
    "gateway/messages/OrderLegs.cpp"_s,
};

/// A comment, a character, or literals in a row with what stands before them.
const QRegularExpression& pieces()
{
    static const QRegularExpression pattern(
        "//[^\\n]*|/\\*.*?\\*/|'(?:[^'\\\\\\n]|\\\\.)'|"
        "(?<before>[\\w:]*\\(\\s*(?:\"Words\",)?\\s*)?(?<literals>(?:\"(?:[^\"\\\\\\n]|\\\\.)*\"\\s*)+)"_s,
        QRegularExpression::DotMatchesEverythingOption);
    return pattern;
}

bool isChinese(const QString& text)
{
    static const QRegularExpression pattern("[\\x{3000}-\\x{9fff}\\x{ff00}-\\x{ffef}]"_s);
    return pattern.match(text).hasMatch();
}

QStringList untranslatable(const QString& source)
{
    QStringList found;
    auto match = pieces().globalMatch(source);
    while (match.hasNext()) {
        const QRegularExpressionMatch piece = match.next();
        const QString literals = piece.captured("literals"_s);
        const QString before = piece.captured("before"_s).remove(QLatin1Char(' ')).remove(QLatin1Char('\n'));
        const bool isMarked = before == "Words::tr("_s || before == "QT_TRANSLATE_NOOP(\"Words\","_s;
        if (isChinese(literals) && !isMarked) {
            found.append(literals.trimmed());
        }
    }
    return found;
}

QString textOf(const QString& path)
{
    QFile file(path);
    EXPECT_TRUE(file.open(QIODevice::ReadOnly)) << qPrintable(path);
    return QString::fromUtf8(file.readAll());
}

TEST(SourceTexts, ThePatternTellsATextFromOneThatNobodyCanTranslate)
{
    EXPECT_EQ(untranslatable("a(Words::tr(\"批次\")); // \"批次\"\n"_s), QStringList());
    EXPECT_EQ(untranslatable("Words::tr(\n    \"批\"\n    \"次\")"_s), QStringList());
    EXPECT_EQ(untranslatable("{\"A\", QT_TRANSLATE_NOOP(\"Words\", \"登录\")}"_s), QStringList());
    EXPECT_EQ(untranslatable("QStringLiteral(\"批次\")"_s), QStringList{"\"批次\""_s});
    EXPECT_EQ(untranslatable("f(Words::tr(\"a\"), \"批次\")"_s), QStringList{"\"批次\""_s});
}

TEST(SourceTexts, EveryChineseTextCanBeTranslated)
{
    for (const QString& room : QStringLiteral(TEXT_ROOMS).split(QLatin1Char(' '))) {
        QDirIterator files(Root + QLatin1Char('/') + room, {"*.h"_s, "*.cpp"_s}, QDir::Files,
                           QDirIterator::Subdirectories);
        while (files.hasNext()) {
            const QString path = files.next();
            const QString name = path.mid(Root.size() + 1);
            if (!Data.contains(name)) {
                EXPECT_EQ(untranslatable(textOf(path)), QStringList()) << qPrintable(name);
            }
        }
    }
}

TEST(SourceTexts, EveryFileOfDataHasSome)
{
    for (const QString& name : Data) {
        EXPECT_FALSE(untranslatable(textOf(Root + QLatin1Char('/') + name)).isEmpty()) << qPrintable(name);
    }
}

} // namespace
