#include "embedded_host/settings/SettingsStore.h"

#include "embedded_host/EmbeddedHost.h"
#include "host/ZelCore.h"
#include "tests/embedded_host/SampleTables.h"
#include "tests/support/Text.h"

#include <gtest/gtest.h>

#include <QDir>
#include <QFile>
#include <QLockFile>
#include <QTemporaryDir>

namespace {

class SettingsStoreTest : public testing::Test {
protected:
    /// What a later run reads.
    QVariant afterRestart(const QString& key, const QString& group = QString(),
                          const QString& file = QString()) const
    {
        return SettingsStore(folder.path()).value(key, group, file);
    }

    void save(const QString& key, const QVariant& value)
    {
        SettingsStore(folder.path()).setValue(key, value);
    }

    QTemporaryDir folder;
};

TEST_F(SettingsStoreTest, ValueThatWasNeverSavedIsInvalid)
{
    EXPECT_FALSE(afterRestart("IS_CREATED_CLOSE"_s).isValid());
    EXPECT_FALSE(SettingsStore(QString()).value("IS_CREATED_CLOSE"_s).isValid());
}

TEST_F(SettingsStoreTest, TruthValueSurvivesARestartAsATruthValue)
{
    save("yes"_s, true);
    save("no"_s, false);
    EXPECT_EQ(afterRestart("yes"_s).type(), QVariant::Bool);
    EXPECT_EQ(afterRestart("yes"_s), QVariant(true));
    EXPECT_EQ(afterRestart("no"_s).type(), QVariant::Bool);
    EXPECT_EQ(afterRestart("no"_s), QVariant(false));
}

TEST_F(SettingsStoreTest, TextSurvivesARestartAsAText)
{
    for (const QString& text : {"maybe"_s, "true"_s, "智能,\"TWAP\"; 100%"_s, " 空 "_s, "@x"_s}) {
        save("text"_s, text);
        EXPECT_EQ(afterRestart("text"_s).type(), QVariant::String);
        EXPECT_EQ(afterRestart("text"_s), QVariant(text));
    }
}

TEST_F(SettingsStoreTest, NumbersAndListsSurviveARestart)
{
    save("number"_s, 0.1);
    save("list"_s, QStringList{"a,b"_s, "c"_s});
    EXPECT_EQ(afterRestart("number"_s).type(), QVariant::Double);
    EXPECT_EQ(afterRestart("number"_s), QVariant(0.1));
    EXPECT_EQ(afterRestart("list"_s), QVariant(QStringList{"a,b"_s, "c"_s}));
}

TEST_F(SettingsStoreTest, ListOfOneTextOrNoneIsStillAList)
{
    for (const QStringList& list : {QStringList{"a"_s}, QStringList{QString()}, QStringList()}) {
        save("list"_s, list);
        EXPECT_EQ(afterRestart("list"_s).type(), QVariant::StringList);
        EXPECT_EQ(afterRestart("list"_s).toStringList(), list);
    }
}

TEST_F(SettingsStoreTest, ValueThatChangesItsTypeComesBackWithTheNewOne)
{
    save("K"_s, true);
    save("K"_s, "maybe"_s);
    EXPECT_EQ(afterRestart("K"_s).type(), QVariant::String);
    EXPECT_EQ(afterRestart("K"_s), QVariant("maybe"_s));
}

TEST_F(SettingsStoreTest, TextWrittenByHandIsAText)
{
    QFile file(SettingsStore(folder.path()).pathOf(QString()));
    ASSERT_TRUE(file.open(QIODevice::WriteOnly));
    file.write("[General]\nIS_CREATED_CLOSE=maybe\n");
    file.close();
    EXPECT_EQ(afterRestart("IS_CREATED_CLOSE"_s), QVariant("maybe"_s));
}

TEST_F(SettingsStoreTest, GroupsAndFilesAreStoresOfTheirOwn)
{
    {
        SettingsStore store(folder.path());
        store.setValue("K"_s, 1);
        store.setValue("K"_s, 2, "Group"_s);
        store.setValue("K"_s, 3, QString(), "Other"_s);
    }
    EXPECT_EQ(afterRestart("K"_s), QVariant(1));
    EXPECT_EQ(afterRestart("K"_s, "Group"_s), QVariant(2));
    EXPECT_EQ(afterRestart("K"_s, QString(), "Other"_s), QVariant(3));
    EXPECT_FALSE(afterRestart("K"_s, "Group"_s, "Other"_s).isValid());
    EXPECT_EQ(QDir(folder.path()).entryList({"*.ini"_s}), (QStringList{"Other.ini"_s, "settings.ini"_s}));
}

TEST_F(SettingsStoreTest, GroupsAndFilesAreStoresOfTheirOwnInMemory)
{
    SettingsStore store{QString()};
    store.setValue("K"_s, true);
    store.setValue("K"_s, 2, "Group"_s);
    store.setValue("K"_s, 3, QString(), "Other"_s);
    EXPECT_EQ(store.value("K"_s), QVariant(true));
    EXPECT_EQ(store.value("K"_s, "Group"_s), QVariant(2));
    EXPECT_EQ(store.value("K"_s, QString(), "Other"_s), QVariant(3));
}

TEST_F(SettingsStoreTest, NamesOfOneFileAreOneStoreInMemoryToo)
{
    for (const QString& home : {QString(), folder.path()}) {
        SettingsStore store(home);
        store.setValue("K"_s, 1, QString(), "x"_s);
        store.setValue("K"_s, 2, QString(), "a/x"_s);
        store.setValue("K"_s, 3, QString(), "b/x.ini"_s);
        EXPECT_EQ(store.value("K"_s, QString(), "x"_s), QVariant(3)) << qPrintable(home);
        store.setValue("K"_s, 4, QString(), "settings"_s);
        EXPECT_EQ(store.value("K"_s), QVariant(4)) << qPrintable(home);
    }
}

TEST_F(SettingsStoreTest, FileNeverLeavesTheHome)
{
    const SettingsStore store(folder.path());
    EXPECT_EQ(store.pathOf("../../Other.ini"_s), folder.filePath("Other.ini"_s));
    EXPECT_EQ(store.pathOf("/etc/Other"_s), folder.filePath("Other.ini"_s));
    EXPECT_EQ(store.pathOf(QString()), folder.filePath("settings.ini"_s));
}

TEST_F(SettingsStoreTest, HomeIsMadeWhenItIsMissing)
{
    const QString home = folder.filePath("new/home"_s);
    SettingsStore(home).setValue("K"_s, true);
    EXPECT_EQ(SettingsStore(home).value("K"_s), QVariant(true));
}

TEST_F(SettingsStoreTest, HomeThatCannotBeWrittenIsNotFatal)
{
    QFile file(folder.filePath("file"_s));
    ASSERT_TRUE(file.open(QIODevice::WriteOnly));
    SettingsStore store(file.fileName() + "/home"_s); // a folder inside a file
    store.setValue("K"_s, false);
    EXPECT_EQ(store.value("K"_s), QVariant(false));
}

TEST_F(SettingsStoreTest, ALockThatIsNeverGivenBackHoldsNobodyUp)
{
    for (const QString& name : {"settings.ini.lock"_s, "settings.ini.writer.lock"_s}) {
        save("K"_s, 1);
        QLockFile stopped(folder.filePath(name));
        ASSERT_TRUE(stopped.lock());
        {
            SettingsStore store(folder.path());
            store.setValue("K"_s, 2);
            EXPECT_EQ(store.value("K"_s), QVariant(2)) << "until the end of the run";
        }
        EXPECT_EQ(afterRestart("K"_s), QVariant(1)) << qPrintable(name);
    }
}

TEST_F(SettingsStoreTest, WhatALockKeptFromTheFileFollowsWithTheNextValue)
{
    SettingsStore store(folder.path());
    {
        QLockFile slow(folder.filePath("settings.ini.lock"_s));
        ASSERT_TRUE(slow.lock());
        store.setValue("first"_s, 1);
    }
    store.setValue("second"_s, 2);
    EXPECT_EQ(afterRestart("first"_s), QVariant(1));
    EXPECT_EQ(afterRestart("second"_s), QVariant(2));
}

TEST_F(SettingsStoreTest, EmptyKeyIsIgnored)
{
    SettingsStore store(folder.path());
    store.setValue(QString(), true);
    EXPECT_FALSE(store.value(QString()).isValid());
}

TEST_F(SettingsStoreTest, ServiceKeepsTheUsersChoiceUntilTheNextRun)
{
    EmbeddedHost::Options options;
    options.home = folder.path();
    {
        const EmbeddedHost host(ReferenceData(sampleTables()), options);
        ZelCore::instance()->saveSetting("IS_CREATED_CLOSE"_s, false, QString(), QString(),
                                         QSettings::UserScope);
    }
    const EmbeddedHost host(ReferenceData(sampleTables()), options);
    EXPECT_EQ(ZelCore::instance()->settings("IS_CREATED_CLOSE"_s, QString(), QString(), QSettings::UserScope),
              QVariant(false));
}

} // namespace
