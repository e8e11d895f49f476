#pragma once

#include "gateway/messages/Order.h"
#include "ledger/Outbox.h"

#include <QString>
#include <QTemporaryDir>

/// The desk's ledger in a place of the test's own, with a gateway registered, so that what is started is
/// queued. Others (a gateway in a thread or a process) open it by its address.
class DeskLedger {
public:
    DeskLedger();

    ledger::Address address() const;
    QString folderPath() const { return mFolder.path(); }
    const QTemporaryDir& folder() const { return mFolder; }
    ledger::Ledger& ledger() { return *mLedger; }

    /// A batch of started instances like sample::single(), each of 1,000; its number.
    qint64 create(int rows);
    /// A batch of one started instance, with the order's draft, strategy and parameters.
    qint64 create(const gateway::Order& order);

    int countOf(ledger::InstanceState state) const;
    ledger::Instance instance(qint64 batch, int row) const;
    /// 11 of an instance.
    std::string idOf(qint64 batch, int row) const;
    /// As a trader does.
    void stop(qint64 batch, int row);
    void haltAll(bool isHalted);
    /// What was kept without being counted.
    QStringList kept() const;
    /// What the session did: "state text", oldest first.
    QStringList sessions() const;
    /// States and how many there are of each, for a test that fails.
    std::string story() const;

private:
    QString reasons() const;
    qint64 create(const ledger::BatchDraft& draft);

    QTemporaryDir mFolder;
    std::shared_ptr<ledger::Ledger> mLedger;
};
