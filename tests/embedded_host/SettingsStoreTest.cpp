#include "embedded_host/settings/SettingsStore.h"

#include "embedded_host/EmbeddedHost.h"
#include "host/ZelCore.h"
#include "tests/embedded_host/SampleTables.h"
#include "tests/embedded_host/Support.h"

#include <gtest/gtest.h>

#include <QDir>
#include <QFile>
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
    EXPECT_FALSE(afterRestart(u"IS_CREATED_CLOSE"_s).isValid());
    EXPECT_FALSE(SettingsStore(QString()).value(u"IS_CREATED_CLOSE"_s).isValid());
}

TEST_F(SettingsStoreTest, TruthValueSurvivesARestartAsATruthValue)
{
    save(u"yes"_s, true);
    save(u"no"_s, false);
    EXPECT_EQ(afterRestart(u"yes"_s).type(), QVariant::Bool);
    EXPECT_EQ(afterRestart(u"yes"_s), QVariant(true));
    EXPECT_EQ(afterRestart(u"no"_s).type(), QVariant::Bool);
    EXPECT_EQ(afterRestart(u"no"_s), QVariant(false));
}

TEST_F(SettingsStoreTest, TextSurvivesARestartAsAText)
{
    for (const QString& text : {u"maybe"_s, u"true"_s, u"智能,\"TWAP\"; 100%"_s, u" 空 "_s, u"@x"_s}) {
        save(u"text"_s, text);
        EXPECT_EQ(afterRestart(u"text"_s).type(), QVariant::String);
        EXPECT_EQ(afterRestart(u"text"_s), QVariant(text));
    }
}

TEST_F(SettingsStoreTest, NumbersAndListsSurviveARestart)
{
    save(u"number"_s, 0.1);
    save(u"list"_s, QStringList{u"a,b"_s, u"c"_s});
    EXPECT_EQ(afterRestart(u"number"_s).type(), QVariant::Double);
    EXPECT_EQ(afterRestart(u"number"_s), QVariant(0.1));
    EXPECT_EQ(afterRestart(u"list"_s), QVariant(QStringList{u"a,b"_s, u"c"_s}));
}

TEST_F(SettingsStoreTest, ValueThatChangesItsTypeComesBackWithTheNewOne)
{
    save(u"K"_s, true);
    save(u"K"_s, u"maybe"_s);
    EXPECT_EQ(afterRestart(u"K"_s).type(), QVariant::String);
    EXPECT_EQ(afterRestart(u"K"_s), QVariant(u"maybe"_s));
}

TEST_F(SettingsStoreTest, TextWrittenByHandIsAText)
{
    QFile file(SettingsStore(folder.path()).pathOf(QString()));
    ASSERT_TRUE(file.open(QIODevice::WriteOnly));
    file.write("[General]\nIS_CREATED_CLOSE=maybe\n");
    file.close();
    EXPECT_EQ(afterRestart(u"IS_CREATED_CLOSE"_s), QVariant(u"maybe"_s));
}

TEST_F(SettingsStoreTest, GroupsAndFilesAreStoresOfTheirOwn)
{
    {
        SettingsStore store(folder.path());
        store.setValue(u"K"_s, 1);
        store.setValue(u"K"_s, 2, u"Group"_s);
        store.setValue(u"K"_s, 3, QString(), u"Other"_s);
    }
    EXPECT_EQ(afterRestart(u"K"_s), QVariant(1));
    EXPECT_EQ(afterRestart(u"K"_s, u"Group"_s), QVariant(2));
    EXPECT_EQ(afterRestart(u"K"_s, QString(), u"Other"_s), QVariant(3));
    EXPECT_FALSE(afterRestart(u"K"_s, u"Group"_s, u"Other"_s).isValid());
    EXPECT_EQ(QDir(folder.path()).entryList({u"*.ini"_s}), (QStringList{u"Other.ini"_s, u"settings.ini"_s}));
}

TEST_F(SettingsStoreTest, GroupsAndFilesAreStoresOfTheirOwnInMemory)
{
    SettingsStore store{QString()};
    store.setValue(u"K"_s, true);
    store.setValue(u"K"_s, 2, u"Group"_s);
    store.setValue(u"K"_s, 3, QString(), u"Other"_s);
    EXPECT_EQ(store.value(u"K"_s), QVariant(true));
    EXPECT_EQ(store.value(u"K"_s, u"Group"_s), QVariant(2));
    EXPECT_EQ(store.value(u"K"_s, QString(), u"Other"_s), QVariant(3));
}

TEST_F(SettingsStoreTest, FileNeverLeavesTheHome)
{
    const SettingsStore store(folder.path());
    EXPECT_EQ(store.pathOf(u"../../Other.ini"_s), folder.filePath(u"Other.ini"_s));
    EXPECT_EQ(store.pathOf(u"/etc/Other"_s), folder.filePath(u"Other.ini"_s));
    EXPECT_EQ(store.pathOf(QString()), folder.filePath(u"settings.ini"_s));
}

TEST_F(SettingsStoreTest, HomeIsMadeWhenItIsMissing)
{
    const QString home = folder.filePath(u"new/home"_s);
    SettingsStore(home).setValue(u"K"_s, true);
    EXPECT_EQ(SettingsStore(home).value(u"K"_s), QVariant(true));
}

TEST_F(SettingsStoreTest, HomeThatCannotBeWrittenIsNotFatal)
{
    QFile file(folder.filePath(u"file"_s));
    ASSERT_TRUE(file.open(QIODevice::WriteOnly));
    SettingsStore store(file.fileName() + u"/home"_s); // a folder inside a file
    store.setValue(u"K"_s, false);
    EXPECT_EQ(store.value(u"K"_s), QVariant(false));
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
        ZelCore::instance()->saveSetting(u"IS_CREATED_CLOSE"_s, false, QString(), QString(),
                                         QSettings::UserScope);
    }
    const EmbeddedHost host(ReferenceData(sampleTables()), options);
    EXPECT_EQ(
        ZelCore::instance()->settings(u"IS_CREATED_CLOSE"_s, QString(), QString(), QSettings::UserScope),
        QVariant(false));
}

} // namespace
