// The English of every text, against the texts as the sources have them now.

#include "tests/support/Text.h"

#include <gtest/gtest.h>

#include <QFile>
#include <QMap>
#include <QProcess>
#include <QRegularExpression>
#include <QTemporaryDir>
#include <QXmlStreamReader>

namespace {

const QString Tree = QStringLiteral(SOURCE_ROOT);
const QString Shipped = Tree + QStringLiteral("/words/algodesk_en.ts");

/// Text -> its English, empty where it is not finished.
using Texts = QMap<QString, QString>;

Texts textsIn(const QString& path)
{
    QFile file(path);
    EXPECT_TRUE(file.open(QIODevice::ReadOnly)) << qPrintable(path);
    QXmlStreamReader xml(&file);
    Texts texts;
    QString source;
    while (!xml.atEnd()) {
        xml.readNext();
        if (xml.isStartElement() && xml.name() == "name"_s) {
            EXPECT_EQ(xml.readElementText(), "Words"_s) << "every text is one of the house's words";
        } else if (xml.isStartElement() && xml.name() == "source"_s) {
            source = xml.readElementText();
        } else if (xml.isStartElement() && xml.name() == "translation"_s) {
            const bool isFinished = !xml.attributes().hasAttribute("type"_s);
            const QString text = xml.readElementText();
            texts.insert(source, isFinished ? text : QString());
        }
    }
    EXPECT_FALSE(xml.hasError()) << qPrintable(xml.errorString());
    return texts;
}

/// What the sources say, with what is translated of it.
Texts textsOfSources()
{
    const QTemporaryDir folder;
    const QString path = folder.filePath("texts.ts"_s);
    EXPECT_TRUE(QFile::copy(Shipped, path));
    EXPECT_TRUE(QFile::setPermissions(path, QFile::ReadOwner | QFile::WriteOwner));
    QProcess lupdate;
    lupdate.setWorkingDirectory(Tree);
    lupdate.start(QStringLiteral(LUPDATE),
                  QStringList{"-silent"_s, "-I"_s, "."_s, "-no-obsolete"_s, "-locations"_s, "none"_s} +
                      QStringLiteral(TEXT_ROOMS).split(QLatin1Char(' ')) + QStringList{"-ts"_s, path});
    EXPECT_TRUE(lupdate.waitForFinished(300'000));
    EXPECT_EQ(lupdate.exitCode(), 0) << lupdate.readAllStandardError().constData();
    return textsIn(path);
}

QStringList placeholdersOf(const QString& text)
{
    static const QRegularExpression pattern("%\\d|%n"_s);
    QStringList found;
    auto match = pattern.globalMatch(text);
    while (match.hasNext()) {
        found.append(match.next().captured());
    }
    found.removeDuplicates();
    found.sort();
    return found;
}

/// Names of the dialog's own buttons stand in both languages.
QString withoutNamesOfTheDialog(QString text)
{
    for (const QString& name : {"导入算法"_s, "确定"_s}) {
        text.remove(name);
    }
    return text;
}

TEST(Translation, EveryTextHasItsEnglish)
{
    const Texts texts = textsOfSources();
    EXPECT_GT(texts.size(), 600);
    for (auto text = texts.begin(); text != texts.end(); ++text) {
        EXPECT_FALSE(text->isEmpty())
            << "bring words/algodesk_en.ts up (target texts) and translate: " << qPrintable(text.key());
    }
    const QStringList kept = textsIn(Shipped).keys();
    EXPECT_EQ(kept, texts.keys()) << "texts that nobody says any more; the target texts drops them";
}

TEST(Translation, TheEnglishTakesTheSameArguments)
{
    const Texts texts = textsIn(Shipped);
    for (auto text = texts.begin(); text != texts.end(); ++text) {
        EXPECT_EQ(placeholdersOf(text.value()), placeholdersOf(text.key())) << qPrintable(text.key());
    }
}

TEST(Translation, TheEnglishIsEnglish)
{
    static const QRegularExpression chinese("[\\x{3001}-\\x{9fff}\\x{ff00}-\\x{ffef}]"_s);
    const Texts texts = textsIn(Shipped);
    for (auto text = texts.begin(); text != texts.end(); ++text) {
        EXPECT_FALSE(withoutNamesOfTheDialog(text.value()).contains(chinese)) << qPrintable(text.value());
    }
}

} // namespace
