#include "desk/window/LedgerWatch.h"

#include "ledger/Ledger.h"

namespace {

constexpr int LookEveryMs = 500;

} // namespace

LedgerWatch::LedgerWatch(std::shared_ptr<ledger::Ledger> ledger, QObject* parent)
    : QObject(parent), mLedger(std::move(ledger))
{
    connect(&mTimer, &QTimer::timeout, this, &LedgerWatch::look);
    if (mLedger) {
        mTimer.start(LookEveryMs);
    }
}

void LedgerWatch::look()
{
    const Outcome<qint64> count = mLedger ? mLedger->changeCount() : Outcome<qint64>{mSeen, QString()};
    if (count.ok() && count.value != mSeen) {
        mSeen = count.value;
        emit changed();
    }
}
