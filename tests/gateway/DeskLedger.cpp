#include "tests/gateway/DeskLedger.h"

#include "tests/gateway/SampleOrders.h"
#include "tests/ledger/LedgerPlace.h"

#include <gtest/gtest.h>

#include <QJsonDocument>
#include <QJsonObject>

using namespace ledger;

namespace {

const QString Account = QStringLiteral("80010001");

Decimal numberIn(const QVariantMap& leg, const QString& key)
{
    const QString text = leg.value(key).toString();
    return text.isEmpty() ? Decimal() : Decimal::fromText(text);
}

InstanceDraft instanceOf(const gateway::Order& order)
{
    InstanceDraft instance;
    instance.parameters = order.parameters;
    instance.startsNow = true;
    const QVariantList legs = order.parameters.value(QStringLiteral("证券代码和委托数量")).toList();
    for (const QVariant& one : legs) {
        const QVariantMap own = one.toMap();
        Leg leg;
        leg.symbol = own.value(QStringLiteral("证券代码")).toString();
        leg.exchange = own.value(QStringLiteral("市场")).toString();
        leg.direction =
            own.value(QStringLiteral("交易方向"), order.parameters.value(QStringLiteral("交易方向")))
                .toString();
        leg.quantity = numberIn(own, QStringLiteral("委托数量"));
        instance.legs.append(leg);
    }
    return instance;
}

BatchDraft draftOf(const QUuid& id, const QString& strategy, const QList<InstanceDraft>& instances)
{
    BatchDraft draft;
    draft.id = id;
    draft.account = Account;
    draft.strategy = strategy;
    draft.createdBy = QStringLiteral("test");
    draft.table.columns = QStringList{QStringLiteral("证券代码")};
    draft.instances = instances;
    for (const InstanceDraft& instance : instances) {
        draft.table.rows.append(QStringList{instance.legs.first().symbol});
    }
    return draft;
}

} // namespace

DeskLedger::DeskLedger()
{
    const auto opened = Ledger::open(address());
    EXPECT_EQ(opened.error, QString());
    mLedger = opened.value;
    Gateway gateway;
    gateway.session = QStringLiteral("FIX.4.4:DESK->BROKER");
    gateway.accounts = QStringList{Account};
    EXPECT_EQ(Outbox::claim(mLedger, gateway).error, QString());
}

Address DeskLedger::address() const
{
    return ledgerPlace(mFolder.path(), QString());
}

qint64 DeskLedger::create(const BatchDraft& draft)
{
    const Outcome<Batch> created = mLedger->createBatch(draft);
    EXPECT_EQ(created.error, QString());
    return created.value.number;
}

qint64 DeskLedger::create(int rows)
{
    QList<InstanceDraft> instances;
    for (int row = 0; row < rows; ++row) {
        instances.append(instanceOf(sample::single()));
    }
    return create(draftOf(QUuid::createUuid(), sample::single().strategy, instances));
}

qint64 DeskLedger::create(const gateway::Order& order)
{
    return create(draftOf(order.draftId, order.strategy, {instanceOf(order)}));
}

int DeskLedger::countOf(InstanceState state) const
{
    return static_cast<int>(mLedger->counts().value.value(state));
}

Instance DeskLedger::instance(qint64 batch, int row) const
{
    return mLedger->instancesOf(batch).value.value(row - 1);
}

std::string DeskLedger::idOf(qint64 batch, int row) const
{
    return clOrdIdOf(mLedger->batch(batch).value.draftId, row).toStdString();
}

void DeskLedger::stop(qint64 batch, int row)
{
    Selection one;
    one.ids.append({batch, row});
    EXPECT_EQ(mLedger->stop(one).error, QString());
}

void DeskLedger::haltAll(bool isHalted)
{
    const QString why = QStringLiteral("测试");
    EXPECT_EQ((isHalted ? mLedger->halt(Account, why) : mLedger->resume(Account, why)).error, QString());
}

QStringList DeskLedger::kept() const
{
    QStringList texts;
    const QList<StrayReport> strays = mLedger->strays().value;
    for (const StrayReport& stray : strays) {
        texts.prepend(stray.text);
    }
    return texts;
}

QStringList DeskLedger::sessions() const
{
    QStringList texts;
    const QList<AuditEntry> entries = mLedger->audit(1, 100000).value;
    for (const AuditEntry& entry : entries) {
        if (entry.what == QLatin1String("session")) {
            const QJsonObject detail = QJsonDocument::fromJson(entry.detail.toUtf8()).object();
            texts.append((detail[QStringLiteral("state")].toString() + QLatin1Char(' ') +
                          detail[QStringLiteral("text")].toString())
                             .trimmed());
        }
    }
    return texts;
}

/// Of those that wait for a person, a line each.
QString DeskLedger::reasons() const
{
    QString text;
    const QList<Batch> batches = mLedger->batchesBefore({}).value;
    for (const Batch& batch : batches) {
        const QList<Instance> instances = mLedger->instancesOf(batch.number).value;
        for (const Instance& instance : instances) {
            if (instance.state == InstanceState::Unknown) {
                text +=
                    QStringLiteral("\n%1-%2 %3").arg(batch.number).arg(instance.id.row).arg(instance.reason);
            }
        }
    }
    return text;
}

std::string DeskLedger::story() const
{
    QString text;
    const QMap<InstanceState, qint64> counts = mLedger->counts().value;
    for (auto it = counts.begin(); it != counts.end(); ++it) {
        text += QStringLiteral("%1 %2 ").arg(it.value()).arg(nameOf(it.key()));
    }
    text += reasons();
    return text.toStdString();
}
