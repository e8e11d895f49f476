#include "host/SolveyUtils.h"
#include "tests/catalogue/SampleTable.h"
#include "tests/catalogue/ShippedDialog.h"
#include "tests/support/Readings.h"
#include "validation/BatchRules.h"
#include "validation/ValidationTexts.h"

#include <QDir>
#include <QRegularExpression>
#include <QSet>
#include <QSignalSpy>

namespace {

using sample_table::Sample;

std::string testName(const testing::TestParamInfo<Sample>& info)
{
    return QString(info.param.file)
        .replace(QRegularExpression(QStringLiteral("[^A-Za-z0-9]")), "_"_s)
        .toStdString();
}

class SampleDialog : public ShippedDialog, public testing::WithParamInterface<Sample> {
protected:
    void importSample()
    {
        open(GetParam().strategy, GetParam().account);
        ASSERT_EQ(accounts().GetCurTradingAccount(), GetParam().account);
        importFile(shipped::path("samples/"_s + GetParam().file));
    }
};

class GoodSample : public SampleDialog {};

TEST_P(GoodSample, ImportsEveryRowAndConfirmsWithoutAMessage)
{
    importSample();
    EXPECT_EQ(lastBoxText(), QString());
    EXPECT_EQ(dialog->getWidgetData().size(), GetParam().effect.toInt());
    EXPECT_EQ(table().getViewData().size(), GetParam().effect.toInt());

    const QSignalSpy confirmed(dialog.get(), &AlgoBatchImportParamSetting::signalBtnOkClicked);
    button("btn_ok").click();
    EXPECT_EQ(lastBoxText(), QString());
    EXPECT_EQ(confirmed.count(), 1);
}

TEST_P(GoodSample, LeavesNoParameterEmptyThatTheServerNeeds)
{
    importSample();
    const QList<QMap<QString, QVariant>> instances = dialog->getWidgetData();
    ASSERT_FALSE(instances.isEmpty());
    for (const QMap<QString, QVariant>& instance : instances) {
        const QVariantMap leg = instance.value("证券代码和委托数量"_s).toList().value(0).toMap();
        const QString direction = leg.value("交易方向"_s, instance.value("交易方向"_s)).toString();
        EXPECT_FALSE(direction.isEmpty());
        EXPECT_FALSE(leg.value("证券代码"_s).toString().isEmpty());
        EXPECT_FALSE(leg.value("证券账号"_s).toString().isEmpty());
        EXPECT_GT(leg.value("委托数量"_s, leg.value("委托金额"_s)).toDouble(), 0.0);
    }
}

INSTANTIATE_TEST_SUITE_P(Samples, GoodSample, testing::ValuesIn(sample_table::goodSamples()), testName);

class FaultySample : public SampleDialog {};

TEST_P(FaultySample, SaysWhatTheTableSays)
{
    importSample();
    if (GetParam().atConfirmation) {
        EXPECT_EQ(lastBoxText(), QString());
        button("btn_ok").click();
    }
    EXPECT_EQ(lastBoxText().trimmed().replace("\r\n"_s, "<br>"_s), GetParam().effect);
}

INSTANTIATE_TEST_SUITE_P(Samples, FaultySample, testing::ValuesIn(sample_table::faultySamples()), testName);

/// What a reading without the dialog gives is what the dialog shows and says.
class AnySample : public SampleDialog {
protected:
    import::Reading reading() { table::Table read;
    const QString path = shipped::path("samples/"_s + GetParam().file);
    read.rows = SolveyUtils::ReadTableData(path, ReadTableCfg(1), read.error);
    return import::readRows(strategy, read,
                            {accounts().GetCurTradingAccount(), accounts().GetCurAccountAssetProp()},
                            inspect().dateTimeFormat());
}

/// Without what is filled in by the clock.
QList<QMap<QString, QVariant>>
withoutNow(QList<QMap<QString, QVariant>> instances) const
{
    for (const strategy::Column& column : strategy.columns) {
        for (QMap<QString, QVariant>& instance : instances) {
            if (column.defaultValue == "currentTime"_s) {
                instance.remove(column.id);
            }
        }
    }
    return instances;
}

strategy::Strategy strategy;
}; // namespace

TEST_P(AnySample, ReadWithoutTheDialogGivesWhatTheDialogShowsAndSays)
{
    importSample();
    strategy = readings::parsed(dialog->getStrategy());
    const import::Reading read = reading();
    EXPECT_EQ(readings::boxText(read), readings::errorTexts(prompts));
    EXPECT_EQ(withoutNow(read.instances), withoutNow(dialog->getWidgetData()));
    EXPECT_EQ(read.lines.size(), read.records.size());
    if (!read.end) {
        EXPECT_EQ(read.records.size(), table().getViewData().size());
    }

    prompts.clear();
    button("btn_ok").click();
    const QString account = accounts().GetCurTradingAccount();
    EXPECT_EQ(validation::textOfBatch(
                  validation::faultsOfBatch(read.instances, strategy.traits, {account, {}, {}})),
              readings::errorTexts(prompts));
}

INSTANTIATE_TEST_SUITE_P(Samples, AnySample,
                         testing::ValuesIn(sample_table::goodSamples() + sample_table::faultySamples()),
                         testName);

QSet<QString> listed(const QList<Sample>& samples)
{
    QSet<QString> files;
    for (const Sample& sample : samples) {
        files.insert(sample.file);
    }
    return files;
}

QSet<QString> present(const QString& folder, const QString& prefix)
{
    const QStringList names =
        QDir(shipped::path(folder)).entryList({"*.csv"_s, "*.xlsx"_s, "*.xls"_s}, QDir::Files);
    QSet<QString> files;
    for (const QString& name : names) {
        files.insert(prefix + name);
    }
    return files;
}

TEST(SampleTable, ListsEverySampleFile)
{
    EXPECT_EQ(listed(sample_table::goodSamples()), present("samples"_s, QString()));
    EXPECT_EQ(listed(sample_table::faultySamples()), present("samples/faulty"_s, "faulty/"_s));
}

TEST(SampleTable, HasASampleForEveryStrategyUnderItsCode)
{
    const QList<AesStrategy> strategies = shipped::tables().strategies;
    ASSERT_FALSE(strategies.isEmpty());
    QSet<QString> codes;
    for (const QString& file : listed(sample_table::goodSamples())) {
        codes.insert(file.section("."_s, 0, 0));
    }
    for (const AesStrategy& strategy : strategies) {
        EXPECT_TRUE(codes.contains(strategy.name())) << qPrintable(strategy.name());
    }
}

} // namespace
