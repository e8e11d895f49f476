// A connection that breaks around a COMMIT: the desk says created, or not created, and it is so.

#include "tests/ledger/SampleDrafts.h"
#include "tests/ledger_server/CuttingProxy.h"
#include "tests/ledger_server/TestServer.h"
#include "tests/support/WarningGuard.h"

#include <gtest/gtest.h>

using namespace ledger;

namespace {

constexpr int Trials = 10;

/// A ledger that is reached through a proxy, in the clear so that the proxy sees what goes by.
class ProxiedLedger {
public:
    ProxiedLedger() : mDatabase(TestServer::instance().makeLedger()), proxy(TestServer::instance().port())
    {
        qputenv("PGSSLMODE", "disable");
        qputenv("PGGSSENCMODE", "disable");
        TestServer::instance().makeLogin("trader"_s);
        Address address = TestServer::instance().address(mDatabase, "trader"_s);
        address.hosts = {{"127.0.0.1"_s, proxy.port()}};
        ledger = Ledger::open(address).value;
    }
    ~ProxiedLedger()
    {
        ledger.reset();
        qunsetenv("PGSSLMODE");
        qunsetenv("PGGSSENCMODE");
    }

    /// What another program sees.
    QList<Batch> batches() const
    {
        const auto opened = Ledger::open(TestServer::instance().address(mDatabase, "trader"_s));
        EXPECT_FALSE(opened.value->verifyAudit().value.broken.has_value());
        EXPECT_EQ(opened.value->verify(), QString());
        return allBatches(*opened.value).value;
    }

private:
    const QString mDatabase;

public:
    CuttingProxy proxy;
    std::shared_ptr<Ledger> ledger;
};

/// Creates with a cut around each commit; what was said is so.
void expectSettled(CuttingProxy::Cut cut)
{
    ProxiedLedger place;
    ASSERT_TRUE(place.ledger);
    for (int trial = 1; trial <= Trials; ++trial) {
        place.proxy.cutNext(cut);
        const BatchDraft draft = sampleDraft(2);
        const Outcome<Batch> created = place.ledger->createBatch(draft);
        EXPECT_EQ(created.error, QString());
        EXPECT_EQ(created.value.number, trial);
        EXPECT_EQ(place.ledger->batchOfDraft(draft.id).value.has_value(), created.ok());
        EXPECT_EQ(place.proxy.cuts(), trial);
    }
    EXPECT_EQ(place.batches().size(), Trials);
}

} // namespace

TEST(AConnectionCut, BeforeTheCommitIsMadeAnewAndTheBatchCreated)
{
    expectSettled(CuttingProxy::Cut::BeforeCommit);
}

TEST(AConnectionCut, AfterTheCommitCreatesNothingTwice)
{
    expectSettled(CuttingProxy::Cut::AfterCommit);
}

TEST(AConnectionCut, ThatTheServerHasNotNoticedIsEndedBeforeAnythingIsSaid)
{
    expectSettled(CuttingProxy::Cut::WithTheServerOn);
}
