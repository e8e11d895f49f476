#include "gateway/messages/OrderMessages.h"
#include "tests/catalogue/SampleTable.h"
#include "tests/catalogue/ShippedDialog.h"

#include <QRegularExpression>
#include <QUuid>

#include <tuple>

namespace {

using sample_table::Sample;

using Case = std::tuple<Sample, const char*>;

std::string caseName(const testing::TestParamInfo<Case>& info)
{
    return QString(std::get<0>(info.param).file + QLatin1Char('_') + QLatin1String(std::get<1>(info.param)))
        .replace(QRegularExpression(QStringLiteral("[^A-Za-z0-9]")), QStringLiteral("_"))
        .toStdString();
}

/// Every sample that imports goes out to either broker.
class SampleProfiles : public ShippedDialog, public testing::WithParamInterface<Case> {};

TEST_P(SampleProfiles, LetEveryRowOut)
{
    const Sample& sample = std::get<0>(GetParam());
    const Outcome<gateway::Profile> profile = gateway::loadProfile(shipped::path(
        QStringLiteral("samples/gateway/broker-%1.json").arg(QLatin1String(std::get<1>(GetParam())))));
    ASSERT_EQ(profile.error, QString());
    open(sample.strategy, sample.account);
    importFile(shipped::path(QStringLiteral("samples/") + sample.file));
    const QList<QMap<QString, QVariant>> instances = dialog->getWidgetData();
    ASSERT_EQ(instances.size(), sample.effect.toInt());
    QList<gateway::Order> batch;
    for (const QMap<QString, QVariant>& parameters : instances) {
        batch.append({QUuid::createUuid(), batch.size() + 1, sample.strategy, parameters});
    }
    const QHash<int, QString> refusals =
        gateway::refusalsOf(profile.value, batch, QDateTime::currentDateTimeUtc());
    for (auto it = refusals.begin(); it != refusals.end(); ++it) {
        ADD_FAILURE() << "row " << it.key() << ": " << it.value().toStdString();
    }
}

INSTANTIATE_TEST_SUITE_P(Samples, SampleProfiles,
                         testing::Combine(testing::ValuesIn(sample_table::goodSamples()),
                                          testing::Values("4.4", "5.0SP2")),
                         caseName);

} // namespace
