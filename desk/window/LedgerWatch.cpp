#include "desk/window/LedgerWatch.h"

#include "ledger/Ledger.h"

#include <QStringList>
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

/// What moves when there is something to show. A gateway that was killed changes nothing in the ledger.
struct Sight {
    qint64 changes = 0;
    QStringList gone; ///< accounts of each gateway that is

    friend bool operator!=(const Sight& left, const Sight& right)
    {
        return left.changes != right.changes || left.gone != right.gone;
    }
};

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
        const Outcome<Sight> sight = ask();
        if (!sight.ok()) {
            mLedger.reset();
            mIsLost = true;
            emit mWatch.lost(sight.error, mPause);
            mTimer.start(mPause * 1000);
            mPause = std::min(mPause * 2, LongestPauseSeconds);
            return;
        }
        if (mIsLost) {
            emit mWatch.restored();
        }
        if (mIsLost || mSight != sight.value) {
            emit mWatch.changed();
        }
        mSight = sight.value;
        mIsLost = false;
        mPause = FirstPauseSeconds;
        mTimer.start(PollMs);
    }

    Outcome<Sight> ask()
    {
        if (!mLedger) {
            ledger::Ledger::Options options;
            options.access = ledger::Ledger::Access::Read;
            options.waitSeconds = ConnectSeconds;
            const auto opened = ledger::Ledger::open(mAddress, options);
            if (!opened.ok()) {
                return {{}, opened.error};
            }
            mLedger = opened.value;
            mLedger->listen([this] { mTimer.start(HintMs); });
        }
        const Outcome<qint64> count = mLedger->changeCount();
        const Outcome<QList<ledger::Gateway>> gateways =
            count.ok() ? mLedger->gateways() : Outcome<QList<ledger::Gateway>>{{}, count.error};
        Sight sight{count.value, {}};
        for (const ledger::Gateway& gateway : gateways.value) {
            sight.gone.append(gateway.isGone ? gateway.accounts.join(QLatin1Char(' ')) : QString());
        }
        return {sight, gateways.error};
    }

    LedgerWatch& mWatch;
    const ledger::Address mAddress;
    QTimer mTimer;
    std::shared_ptr<ledger::Ledger> mLedger;
    std::optional<Sight> mSight;
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
