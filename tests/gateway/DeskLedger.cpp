#include "tests/gateway/DeskLedger.h"

#include "tests/gateway/SampleOrders.h"

#include <gtest/gtest.h>

using namespace ledger;

DeskLedger::DeskLedger()
{
    const auto opened = Ledger::open(Address::ofFile(path()));
    EXPECT_EQ(opened.error, QString());
    mLedger = opened.value;
    Gateway gateway;
    gateway.session = QStringLiteral("FIX.4.4:DESK->BROKER");
    gateway.accounts = QStringList{QStringLiteral("80010001")};
    EXPECT_EQ(Outbox::claim(mLedger, gateway).error, QString());
}

QString DeskLedger::path() const
{
    return mFolder.filePath(QStringLiteral("ledger.sqlite"));
}

qint64 DeskLedger::create(int rows)
{
    BatchDraft draft;
    draft.id = QUuid::createUuid();
    draft.account = QStringLiteral("80010001");
    draft.strategy = QStringLiteral("AITWAP");
    draft.createdBy = QStringLiteral("test");
    draft.table.columns = QStringList{QStringLiteral("证券代码")};
    for (int row = 0; row < rows; ++row) {
        InstanceDraft instance;
        instance.parameters = sample::single().parameters;
        instance.startsNow = true;
        Leg leg;
        leg.symbol = QStringLiteral("600000.SH");
        leg.exchange = QStringLiteral("SH");
        leg.direction = QStringLiteral("Buy");
        leg.quantity = Decimal(1000);
        instance.legs.append(leg);
        draft.instances.append(instance);
        draft.table.rows.append(QStringList{leg.symbol});
    }
    const Outcome<Batch> created = mLedger->createBatch(draft);
    EXPECT_EQ(created.error, QString());
    return created.value.number;
}

int DeskLedger::countOf(InstanceState state) const
{
    return static_cast<int>(mLedger->counts().value.value(state));
}

Instance DeskLedger::instance(qint64 batch, int row) const
{
    return mLedger->instancesOf(batch).value.value(row - 1);
}

std::string DeskLedger::story() const
{
    QString text;
    const QMap<InstanceState, qint64> counts = mLedger->counts().value;
    for (auto it = counts.begin(); it != counts.end(); ++it) {
        text += QStringLiteral("%1 %2 ").arg(it.value()).arg(nameOf(it.key()));
    }
    return text.toStdString();
}
