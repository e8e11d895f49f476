#include "embedded_host/settings/SettingsStore.h"
#include "tests/support/DialogFixture.h"
#include "tests/support/LogCapture.h"

#include <QCheckBox>
#include <QCoreApplication>
#include <QDir>
#include <QSettings>
#include <QSignalSpy>

namespace {

const QString ClosesKey = QStringLiteral("IS_CREATED_CLOSE");
const QString DefaultAlgo = QStringLiteral("My_DefaultBatch_Algo");

class Settings : public DialogFixture {
protected:
    QString work() const
    {
        return QCoreApplication::applicationDirPath() + "/work/"_s + options.loginAccount;
    }
    QString iniPath() const { return work() + "/AlgoMode.ini"_s; }
    QCheckBox& closeBox() { return child<QCheckBox>("checkbx_createdClose"); }

    /// A host that remembers a value, and a dialog on it.
    void openWithStored(const QVariant& stored)
    {
        openHost();
        host->settings().setValue(ClosesKey, stored);
        dialog = std::make_unique<AlgoBatchImportParamSetting>(nullptr, SelectableStrategy);
        host->journal().clear();
        load("AITWAP"_s);
    }

    QList<HostJournal::Call> saves() { return callsOf("ZelCore::saveSetting"); }
    void expectChoice(bool createdClose)
    {
        EXPECT_EQ(closeBox().isChecked(), createdClose);
        EXPECT_EQ(inspect().isCreatedClose(), createdClose);
        EXPECT_EQ(host->settings().value(ClosesKey), QVariant(createdClose));
        EXPECT_EQ(host->settings().value(ClosesKey).type(), QVariant::Bool);
    }

    QVariant remembered() { return QSettings(iniPath(), QSettings::IniFormat).value(DefaultAlgo); }
};

} // namespace

TEST_F(Settings, OnFirstUseTheBoxIsTickedAndTheChoiceStored)
{
    open();
    expectChoice(true);
}

TEST_F(Settings, AStoredFalseUnticksTheBoxAndWritesNothing)
{
    openWithStored(false);
    expectChoice(false);
    EXPECT_TRUE(saves().isEmpty());
}

TEST_F(Settings, AStoredTrueTicksTheBox)
{
    openWithStored(true);
    expectChoice(true);
}

TEST_F(Settings, AStoredValueThatConvertsToABooleanCounts)
{
    for (const QVariant& no : {QVariant("false"_s), QVariant(0), QVariant("0"_s)}) {
        openWithStored(no);
        EXPECT_FALSE(closeBox().isChecked()) << no.typeName();
        EXPECT_FALSE(inspect().isCreatedClose());
        EXPECT_TRUE(saves().isEmpty());
    }
    for (const QVariant& yes : {QVariant("true"_s), QVariant(1)}) {
        openWithStored(yes);
        expectChoice(true);
    }
}

TEST_F(Settings, AStoredValueThatIsNoBooleanFallsBackToTrueAndIsWrittenBack)
{
    for (const QVariant& other :
         {QVariant(QVariantList{1, 2}), QVariant(QVariantMap{{"a"_s, 1}}), QVariant()}) {
        openWithStored(other);
        expectChoice(true);
        EXPECT_GE(saves().size(), 1);
    }
}

TEST_F(Settings, ReadsAndWritesTheHostsDefaultStoreForTheUser)
{
    open();
    const auto reads = callsOf("ZelCore::settings");
    ASSERT_EQ(reads.size(), 1);
    EXPECT_EQ(reads.first().arguments,
              (QVariantList{ClosesKey, QString(), QString(), int(QSettings::UserScope)}));
    for (const HostJournal::Call& save : saves()) {
        EXPECT_EQ(save.arguments,
                  (QVariantList{ClosesKey, true, QString(), QString(), int(QSettings::UserScope)}));
    }
    EXPECT_EQ(saves().size(), 2) << "the default itself, and the box that it ticked";
}

TEST_F(Settings, ATogglesStateIsStoredAtOnce)
{
    open();
    host->journal().clear();
    closeBox().click();
    ASSERT_EQ(saves().size(), 1);
    EXPECT_EQ(saves().first().arguments,
              (QVariantList{ClosesKey, false, QString(), QString(), int(QSettings::UserScope)}));
    expectChoice(false);
    closeBox().click();
    expectChoice(true);
}

TEST_F(Settings, ALaterLoadKeepsTheChoice)
{
    open();
    closeBox().click();
    load("AILOCK"_s);
    expectChoice(false);
}

TEST_F(Settings, AToggleIsLogged)
{
    open();
    LogCapture log;
    closeBox().click();
    EXPECT_TRUE(log.text().contains(
        "save IS_CREATED_CLOSE \"IS_CREATED_CLOSE\" varIsCreatedClose:  QVariant(bool, false)"_s))
        << qPrintable(log.text());
}

TEST_F(Settings, TheStrategiesThatAcceptHongKongSecuritiesAreSetAtTheLoad)
{
    open();
    const QStringList codes = {
        "AIPAIR"_s,      "AIPAIRBASIC"_s, "AIPAIRPLUS"_s, "AINHG"_s,     "AIVWAP3"_s,     "AIVWAP"_s,
        "AITWAP"_s,      "AITWAP3"_s,     "TWAP"_s,       "AIPOV"_s,     "AITWAPBASIC"_s, "AITWAPPLUS"_s,
        "AIVWAPBASIC"_s, "AIVWAPPLUS"_s,  "AIPOVBASIC"_s, "AIPOVPLUS"_s, "AIPOVZJC"_s,    "AITWAPZJC"_s,
        "AIVWAPZJC"_s,   "VWAP"_s,        "POV"_s,        "SUPERVWAP"_s, "SUPERTWAP"_s};
    EXPECT_EQ(inspect().strategyCodes(), codes);
    load("AILOCK"_s);
    EXPECT_EQ(inspect().strategyCodes(), codes) << "once, not twice";
}

// ---- the account's ini file

TEST_F(Settings, TheAccountsFileStandsBesideTheProgramUnderTheLoginAccount)
{
    open();
    ASSERT_NE(inspect().settings(), nullptr);
    EXPECT_EQ(inspect().settings()->fileName(), iniPath());
    EXPECT_EQ(inspect().settings()->format(), QSettings::IniFormat);
    EXPECT_FALSE(QFile::exists(iniPath())) << "nothing is written before a choice";
}

TEST_F(Settings, ALoginAccountIsUsedAsItIs)
{
    for (const QString& account : {"a:b*?\"<>|"_s, "../up"_s, QString(), "交易 员"_s}) {
        options.loginAccount = account;
        open();
        EXPECT_EQ(inspect().settings()->fileName(), QDir::cleanPath(iniPath())) << qPrintable(account);
    }
}

TEST_F(Settings, AChosenAlgorithmTypeIsRememberedByItsCode)
{
    open();
    chooseAlgoType("AIVWAP"_s);
    inspect().settings()->sync();
    EXPECT_EQ(remembered(), QVariant("AIVWAP"_s));
    chooseAlgoType("AILOCK"_s);
    inspect().settings()->sync();
    EXPECT_EQ(remembered(), QVariant("AILOCK"_s));
    EXPECT_EQ(QSettings(iniPath(), QSettings::IniFormat).allKeys(), QStringList{DefaultAlgo});
}

TEST_F(Settings, AFileThatCannotBeWrittenLosesTheChoiceWithoutAWord)
{
    QDir().mkpath(QFileInfo(work()).path());
    QFile inTheWay(work()); // where the account's folder belongs
    ASSERT_TRUE(inTheWay.open(QIODevice::WriteOnly));
    open();
    chooseAlgoType("AIVWAP"_s);
    inspect().settings()->sync();
    EXPECT_NE(inspect().settings()->status(), QSettings::NoError);
    EXPECT_EQ(dialog->getStrategy().name(), "AIVWAP"_s);
    EXPECT_TRUE(prompts.boxes().isEmpty());
    dialog.reset();
    EXPECT_TRUE(inTheWay.remove());
}

TEST_F(Settings, ALoadByTheHostIsNoChoice)
{
    open();
    load("AIVWAP"_s);
    inspect().settings()->sync();
    EXPECT_FALSE(remembered().isValid());
}

TEST_F(Settings, AFixedStrategysDialogRemembersNothing)
{
    open("AITWAP"_s, "CASH1"_s, FixedStrategy);
    chooseAlgoType("AIVWAP"_s);
    ASSERT_EQ(dialog->getStrategy().name(), "AIVWAP"_s);
    inspect().settings()->sync();
    EXPECT_FALSE(remembered().isValid());
}
