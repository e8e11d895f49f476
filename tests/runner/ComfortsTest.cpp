// What makes a command line comfortable: standard input, names that were nearly right, the manual and
// completion.

#include "tests/runner/RunnerTest.h"

#include <QFile>
#include <QJsonArray>
#include <QRegularExpression>

class Comforts : public RunnerTest {
protected:
    Run runOn(const QByteArray& input, const QStringList& arguments)
    {
        QProcess process;
        prepare(process);
        process.setArguments(arguments);
        process.start();
        process.write(input);
        process.closeWriteChannel();
        return finish(process);
    }

    static QByteArray textOf(const QString& path)
    {
        QFile file(path);
        EXPECT_TRUE(file.open(QIODevice::ReadOnly)) << qPrintable(path);
        return file.readAll();
    }

    /// Every option of the help text.
    QSet<QString> options()
    {
        static const QRegularExpression option("(?<![\\w-])--[a-z-]+"_s);
        QSet<QString> found;
        auto match = option.globalMatch(QString::fromUtf8(run({"--help"_s}).out));
        while (match.hasNext()) {
            found.insert(match.next().captured());
        }
        return found;
    }

    /// What bash offers at the end of that line.
    QStringList completed(const QStringList& words)
    {
        QProcess bash;
        prepare(bash);
        const QString program = bash.program();
        const QString script =
            ". \"$1\"; shift; COMP_WORDS=(\"$@\"); COMP_CWORD=$((${#COMP_WORDS[@]} - 1)); _algodesk; printf '%s\\n' \"${COMPREPLY[@]}\""_s;
        bash.setProgram("bash"_s);
        bash.setArguments(QStringList{"-c"_s, script, "bash"_s, QStringLiteral(COMPLETION), program} + words);
        bash.start();
        const Run done = finish(bash);
        EXPECT_EQ(done.err, QByteArray());
        return QString::fromUtf8(done.out).split(QLatin1Char('\n'), Qt::SkipEmptyParts);
    }
};

TEST_F(Comforts, ADashIsStandardInput)
{
    const QByteArray bytes = textOf(table(goodRow() + badRow()));
    const QJsonObject ofFile = run({"rows"_s, table(goodRow() + badRow())}).object();
    EXPECT_EQ(runOn(bytes, {"rows"_s, "-"_s}).object(), ofFile);

    const QStringList data{"--data"_s, dataFolder(), "--home"_s, home()};
    const Run check = runOn(bytes, QStringList{"check"_s, "-"_s} + aitwap() + data);
    EXPECT_EQ(check.status, 3) << check.err.constData();
    EXPECT_EQ(check.object().value("file"_s), "-"_s);
    const Run imported = runOn(bytes, QStringList{"import"_s, "-"_s} + aitwap() + data);
    EXPECT_EQ(imported.status, 1) << imported.err.constData();
    EXPECT_EQ(imported.object().value("records"_s).toArray().size(), 1);
}

TEST_F(Comforts, NothingOnStandardInputIsAnEmptyFile)
{
    const QJsonObject rows = runOn({}, {"rows"_s, "-"_s}).object();
    EXPECT_EQ(rows.value("rows"_s).toArray().size(), 0);
    EXPECT_EQ(rows.value("error"_s), QString());
}

TEST_F(Comforts, WhatWasNearlyRightIsNamed)
{
    expectRefused(run({"imprt"_s, "a.csv"_s}), "是否应为“import”"_s);
    expectRefused(run({"gatway"_s}), "是否应为“gateway”"_s);
    expectRefused(run({"accounts"_s, "--hoem"_s, home()}), "是否应为“home”"_s);
    const QString file = table(goodRow());
    expectRefused(import(file, {"--strategy"_s, "AITWPA"_s, "--account"_s, "A1"_s}), "是否应为“AITWAP”"_s);
    EXPECT_FALSE(run({"nonsense"_s}).err.contains("是否应为"));
}

TEST_F(Comforts, TheManualKnowsEveryCommandAndOption)
{
    const QString manual = QString::fromUtf8(textOf(QStringLiteral(MANUAL))).remove(QLatin1Char('\\'));
    for (const QString& option : options()) {
        EXPECT_TRUE(manual.contains(option)) << qPrintable(option);
    }
    for (const QString& command : completed({QString()})) {
        EXPECT_TRUE(manual.contains(command)) << qPrintable(command);
    }
}

TEST_F(Comforts, BashCompletesCommandsTheirOptionsAndValues)
{
    EXPECT_EQ(completed({"imp"_s}), QStringList{"import"_s});
    EXPECT_EQ(completed({"rows"_s, "--enc"_s}), QStringList{"--encoding"_s});
    EXPECT_EQ(completed({"ledger"_s, "co"_s}), QStringList{"copy"_s});
    EXPECT_EQ(completed({"settle"_s, "1-1"_s, "--as"_s, "qu"_s}), QStringList{"queued"_s});
    EXPECT_EQ(completed({"import"_s, "a.csv"_s, "--strategy"_s, "AITWAP7"_s}), QStringList{"AITWAP7"_s})
        << "of the data that ship";
    const QString file = table(goodRow());
    EXPECT_EQ(completed({"check"_s, file.chopped(2)}), QStringList{file});
}

TEST_F(Comforts, BashKnowsEveryOptionOfTheHelpText)
{
    QSet<QString> known;
    for (const QString& command : completed({QString()}) + QStringList{QString()}) {
        const QStringList line = command.isEmpty() ? QStringList{"--"_s} : QStringList{command, "--"_s};
        for (const QString& option : completed(line)) {
            known.insert(option);
        }
    }
    for (const QString& option : options()) {
        EXPECT_TRUE(known.contains(option)) << qPrintable(option);
    }
}
