#include "tests/runner/RunnerTest.h"

#include <QJsonArray>

/// Programs read what a command prints, under whatever locale they run: only who asks is answered in English.
using RunnerLanguage = RunnerTest;

TEST_F(RunnerLanguage, IsChineseUnderAnyLocaleUntilItIsAskedFor)
{
    for (const QString& locale : {"C"_s, "de_DE.UTF-8"_s, "en_US.UTF-8"_s}) {
        const Run help = run({"--help"_s}, {{"LC_ALL"_s, locale}});
        EXPECT_TRUE(help.out.startsWith("用法：algodesk")) << qPrintable(locale);
    }
    for (const QStringList& asking : {QStringList{"--language"_s, "en"_s}, QStringList{"--language=en"_s}}) {
        EXPECT_TRUE(run(asking + QStringList{"--help"_s}).out.startsWith("Usage: algodesk"));
        EXPECT_TRUE(run(QStringList{"--help"_s} + asking).out.startsWith("Usage: algodesk"));
    }
    EXPECT_TRUE(run({"--help"_s}, {{"ALGODESK_LANGUAGE"_s, "en"_s}}).out.startsWith("Usage: algodesk"));
}

TEST_F(RunnerLanguage, OfRefusalsTooIsTheChosenOne)
{
    expectRefused(run({"accounts"_s, "extra"_s, "--language"_s, "en"_s}), "accounts takes no argument"_s);
    expectRefused(run({"--language"_s, "klingon"_s, "accounts"_s}), "klingon"_s);
    const QString none = folder() + "/none"_s;
    expectRefused(run({"accounts"_s, "--data"_s, none, "--language"_s, "en"_s}), "the file does not exist"_s);
    expectRefused(run({"accounts"_s, "--data"_s, none}), "文件不存在"_s);
}

TEST_F(RunnerLanguage, ChangesSentencesOfTheDeskAndNeitherKeysNorTheDialogsBoxes)
{
    const QString file = table(badRow());
    const QStringList faults = aitwap() + QStringList{"--faults"_s};
    const QJsonObject chinese = import(file, faults).object();
    const QJsonObject english = import(file, faults + QStringList{"--language"_s, "en"_s}).object();
    EXPECT_EQ(chinese.keys(), english.keys());
    EXPECT_FALSE(chinese.value("messageBoxes"_s).toArray().isEmpty());
    EXPECT_EQ(chinese.value("messageBoxes"_s), english.value("messageBoxes"_s));
    EXPECT_EQ(chinese.value("columns"_s), english.value("columns"_s));
    EXPECT_EQ(chinese.value("faults"_s), english.value("faults"_s));
}
