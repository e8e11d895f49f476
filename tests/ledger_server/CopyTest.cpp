// A ledger that goes from a file to a server, and back.

#include "ledger/LedgerCopy.h"
#include "ledger/Outbox.h"
#include "tests/ledger/SampleDrafts.h"
#include "tests/ledger_server/TestServer.h"

#include <gtest/gtest.h>

using namespace ledger;

namespace {

Address file(const QTemporaryDir& folder, const char* name)
{
    return Address::ofFile(folder.filePath(QString::fromLatin1(name)));
}

/// A day on a ledger: batches, one undone, one that waits, a halt, an order that was filled.
void fill(const Address& address)
{
    const auto ledger = Ledger::open(address).value;
    CreationTerms terms;
    terms.limits.approvalAmount = 1;
    BatchDraft dear = sampleDraft(3);
    dear.instances[0].legs[0].amount = 1000.10_d;
    ledger->createBatch(sampleDraft(2));
    ledger->createBatch(dear, terms);
    ledger->createBatch(sampleDraft(1));
    ledger->undo(3);
    ledger->halt("7"_s, "行情异常"_s);
    const auto outbox = Outbox::claim(ledger, {"S"_s, {}, "h"_s, 1, "loggedOn"_s, {}}).value;
    ledger->start({{{1, 1}}, std::nullopt});
    Execution execution;
    execution.execId = "e1"_s;
    execution.clOrdId = outbox->take(10).value.value(0).clOrdId;
    execution.state = InstanceState::Running;
    execution.filled = 100;
    execution.average = 10.5_d;
    outbox->record({execution});
}

QString textOf(const Address& address)
{
    const auto ledger = Ledger::open(address).value;
    QStringList lines;
    for (const Batch& batch : allBatches(*ledger).value) {
        lines.append("%1 %2 %3 %4"_s.arg(batch.number)
                         .arg(batch.draftId.toString(), nameOf(batch.state), batch.createdBy));
    }
    for (const Instance& instance : allInstances(*ledger).value) {
        lines.append("%1 %2 %3 %4 %5"_s.arg(instance.id.text(), nameOf(instance.state), instance.clOrdId,
                                            instance.filledQuantity.text(), instance.legs.value(0).symbol));
    }
    const Status status = ledger->status().value;
    lines.append("%1 %2 %3"_s.arg(status.halts.size()).arg(status.waiting).arg(status.gateways.size()));
    lines.append(ledger->verifyAudit().value.head);
    return lines.join(QLatin1Char('\n'));
}

} // namespace

TEST(ACopy, ToAServerAndBackIsTheSameLedger)
{
    TestServer& server = TestServer::instance();
    const QTemporaryDir folder;
    const Address first = file(folder, "first.sqlite");
    const Address second = file(folder, "second.sqlite");
    const Address onServer = server.address(server.makeLedger(), "postgres"_s);
    fill(first);
    const auto there = copyLedger(first, onServer);
    ASSERT_EQ(there.error, QString());
    EXPECT_EQ(there.value.batches, 3);
    EXPECT_EQ(there.value.instances, 6);
    EXPECT_EQ(textOf(onServer), textOf(first));
    EXPECT_EQ(Ledger::open(onServer).value->verify(), QString());
    ASSERT_EQ(copyLedger(onServer, second).error, QString());
    EXPECT_EQ(textOf(second), textOf(first));
    EXPECT_EQ(Ledger::open(second).value->verify(), QString());
}

TEST(ACopy, GoesOnlyIntoALedgerThatWasNeverUsed)
{
    TestServer& server = TestServer::instance();
    const QTemporaryDir folder;
    const Address from = file(folder, "from.sqlite");
    fill(from);
    const Address to = file(folder, "to.sqlite");
    Ledger::open(to).value->createBatch(sampleDraft(1));
    EXPECT_TRUE(copyLedger(from, to).error.contains("不是空的"_s));
    EXPECT_EQ(allBatches(*Ledger::open(to).value).value.size(), 1);
    server.makeLogin("trader"_s);
    const QString database = server.makeLedger();
    EXPECT_NE(copyLedger(from, server.address(database, "trader"_s)).error, QString()) << "the owner alone";
    EXPECT_EQ(copyLedger(from, server.address(database, "postgres"_s)).error, QString());
}

TEST(ACopy, KeepsTheRulesOfTheServer)
{
    TestServer& server = TestServer::instance();
    const QTemporaryDir folder;
    const Address from = file(folder, "from.sqlite");
    fill(from);
    const QString database = server.makeLedger();
    ASSERT_EQ(copyLedger(from, server.address(database, "postgres"_s)).error, QString());
    EXPECT_EQ(server.codeOf(database, "postgres"_s, "DELETE FROM audit_entry"_s), "AL001"_s);
    EXPECT_EQ(server.codeOf(database, "postgres"_s, "UPDATE instance SET parameters = ''"_s), "AL001"_s);
    server.makeLogin("trader"_s);
    const auto ledger = Ledger::open(server.address(database, "trader"_s)).value;
    EXPECT_EQ(ledger->createBatch(sampleDraft(1)).value.number, 4);
}
