#include "words/Language.h"

#include "table/CheckRules.h"
#include "table/Rules.h"
#include "tests/support/Text.h"

#include <gtest/gtest.h>

#include <QCoreApplication>

namespace {

using words::Language;

/// Whatever a test lets the program speak, the next one finds Chinese.
class LanguageTest : public testing::Test {
protected:
    ~LanguageTest() override { words::speak(Language::Chinese); }
};

QString buttonOfQt()
{
    return QCoreApplication::translate("QPlatformTheme", "Cancel");
}

TEST_F(LanguageTest, TextsOfTheDeskAndOfQtFollowTheLanguageBackAndForth)
{
    words::speak(Language::English);
    EXPECT_EQ(Words::tr("批次"), "Batch"_s);
    EXPECT_EQ(buttonOfQt(), "Cancel"_s);
    EXPECT_EQ(words::spoken(), Language::English);
    words::speak(Language::Chinese);
    EXPECT_EQ(Words::tr("批次"), "批次"_s);
    EXPECT_EQ(buttonOfQt(), "取消"_s);
    EXPECT_EQ(words::spoken(), Language::Chinese);
}

TEST_F(LanguageTest, SentencesOfTheDeskAreTranslatedAndThoseOfTheDialogAreNot)
{
    const table::Fault ofDesk = table::fault(table::rule::TotalRow, {"合计"_s});
    const table::Fault ofDialog = table::fault(table::rule::BadPairedFields);
    const QString chinese = words::sentence(ofDesk);
    const QString exact = words::sentence(ofDialog);
    words::speak(Language::English);
    EXPECT_EQ(words::sentence(ofDesk), table::sentence(ofDesk, Language::English));
    EXPECT_NE(words::sentence(ofDesk), chinese);
    EXPECT_EQ(words::sentence(ofDialog), exact);
}

TEST_F(LanguageTest, OnlyAnEnglishLocaleSpeaksEnglish)
{
    for (const char* english : {"en", "en_US", "en_GB.UTF-8", "en_HK"}) {
        EXPECT_EQ(words::languageOf(QLocale(QString::fromLatin1(english))), Language::English) << english;
    }
    for (const char* other : {"C", "POSIX", "C.UTF-8", "", "zh_CN.UTF-8", "zh_TW", "de_DE", "ja_JP"}) {
        EXPECT_EQ(words::languageOf(QLocale(QString::fromLatin1(other))), Language::Chinese) << other;
    }
}

TEST_F(LanguageTest, TheOptionIsTakenOutOfTheArgumentsWhereverItStands)
{
    for (const QStringList& asking : {QStringList{"--language"_s, "en"_s}, QStringList{"--language=en"_s}}) {
        QStringList behind = QStringList{"check"_s, "a.csv"_s} + asking;
        EXPECT_EQ(words::takeAsked(behind).language, Language::English);
        EXPECT_EQ(behind, (QStringList{"check"_s, "a.csv"_s}));
        QStringList before = asking + QStringList{"check"_s, "a.csv"_s};
        EXPECT_EQ(words::takeAsked(before).language, Language::English);
        EXPECT_EQ(before, (QStringList{"check"_s, "a.csv"_s}));
    }
    QStringList plain{"check"_s, "--"_s, "--language"_s, "en"_s};
    EXPECT_EQ(words::takeAsked(plain).language, std::nullopt);
    EXPECT_EQ(plain.size(), 4);
}

TEST_F(LanguageTest, AnUnknownLanguageIsNamed)
{
    for (QStringList wrong :
         {QStringList{"--language"_s, "fr"_s}, QStringList{"--language"_s}, QStringList{"--language="_s}}) {
        const words::Asked asked = words::takeAsked(wrong);
        EXPECT_TRUE(asked.error.contains("--language"_s));
        EXPECT_EQ(asked.language, std::nullopt);
    }
}

TEST_F(LanguageTest, TheOptionCountsMoreThanTheEnvironment)
{
    qputenv("ALGODESK_LANGUAGE", "en");
    QStringList none;
    EXPECT_EQ(words::takeAsked(none).language, Language::English);
    QStringList chinese{"--language"_s, "zh"_s};
    EXPECT_EQ(words::takeAsked(chinese).language, Language::Chinese);
    qputenv("ALGODESK_LANGUAGE", "klingon");
    EXPECT_TRUE(words::takeAsked(none).error.contains("klingon"_s));
    qunsetenv("ALGODESK_LANGUAGE");
}

} // namespace
