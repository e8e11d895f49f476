#pragma once

#include "ledger/Outbox.h"

#include <QString>
#include <QTemporaryDir>

/// The desk's ledger in a folder of the test's own, with a gateway registered, so that what is started is
/// queued.
class DeskLedger {
public:
    DeskLedger();

    QString path() const;
    QString folderPath() const { return mFolder.path(); }
    const QTemporaryDir& folder() const { return mFolder; }
    ledger::Ledger& ledger() { return *mLedger; }
    std::shared_ptr<ledger::Ledger> shared() { return mLedger; }

    /// A batch of started instances like sample::single(), each of 1,000; its number.
    qint64 create(int rows);
    int countOf(ledger::InstanceState state) const;
    ledger::Instance instance(qint64 batch, int row) const;
    /// States and how many there are of each, for a test that fails.
    std::string story() const;

private:
    QTemporaryDir mFolder;
    std::shared_ptr<ledger::Ledger> mLedger;
};
