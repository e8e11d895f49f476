#include "desk/window/LedgerWatch.h"

#include "ledger/Ledger.h"

#include <QThread>
#include <QTimer>

#include <algorithm>
#include <optional>

namespace {

constexpr int PollMs = 1000;
/// After a hint: a burst of changes is one.
constexpr int HintMs = 100;
constexpr int FirstPauseSeconds = 1;
constexpr int LongestPauseSeconds = 30;
constexpr int ConnectSeconds = 2;

/// Lives in the thread.
class Look {
public:
    Look(LedgerWatch& watch, const ledger::Address& address) : mWatch(watch), mAddress(address)
    {
        mTimer.setSingleShot(true);
        QObject::connect(&mTimer, &QTimer::timeout, [this] { look(); });
        mTimer.start(0);
    }

private:
    void look()
    {
        const Outcome<qint64> count = ask();
        if (!count.ok()) {
            mLedger.reset();
            mIsLost = true;
            emit mWatch.lost(count.error, mPause);
            mTimer.start(mPause * 1000);
            mPause = std::min(mPause * 2, LongestPauseSeconds);
            return;
        }
        if (mIsLost) {
            emit mWatch.restored();
        }
        if (mIsLost || mCount != count.value) {
            emit mWatch.changed();
        }
        mCount = count.value;
        mIsLost = false;
        mPause = FirstPauseSeconds;
        mTimer.start(PollMs);
    }

    Outcome<qint64> ask()
    {
        if (!mLedger) {
            ledger::Ledger::Options options;
            options.access = ledger::Ledger::Access::Read;
            options.waitSeconds = ConnectSeconds;
            const auto opened = ledger::Ledger::open(mAddress, options);
            if (!opened.ok()) {
                return {0, opened.error};
            }
            mLedger = opened.value;
            mLedger->listen([this] { mTimer.start(HintMs); });
        }
        return mLedger->changeCount();
    }

    LedgerWatch& mWatch;
    const ledger::Address mAddress;
    QTimer mTimer;
    std::shared_ptr<ledger::Ledger> mLedger;
    std::optional<qint64> mCount;
    bool mIsLost = false;
    int mPause = FirstPauseSeconds;
};

class WatchThread : public QThread {
public:
    WatchThread(LedgerWatch& watch, const ledger::Address& address) : mWatch(watch), mAddress(address) {}

protected:
    void run() override
    {
        const Look look(mWatch, mAddress);
        exec();
    }

private:
    LedgerWatch& mWatch;
    const ledger::Address mAddress;
};

} // namespace

LedgerWatch::LedgerWatch(const ledger::Address& address, QObject* parent)
    : QObject(parent), mThread(new WatchThread(*this, address))
{
    mThread->start();
}

LedgerWatch::~LedgerWatch()
{
    mThread->quit();
    mThread->wait();
    delete mThread;
}
