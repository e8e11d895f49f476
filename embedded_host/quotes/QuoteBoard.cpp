#include "embedded_host/quotes/QuoteBoard.h"

#include "host/QuotaFields.h"

#include <algorithm>

QuoteBoard::QuoteBoard(const ReferenceData& referenceData, const Options& options)
    : mReferenceData(referenceData), mOptions(options),
      mRandom(options.seed != 0 ? options.seed : std::random_device{}())
{
    if (mOptions.moving) {
        mThread = std::thread(&QuoteBoard::run, this);
    }
}

QuoteBoard::~QuoteBoard()
{
    if (!mThread.joinable()) {
        return;
    }
    {
        const std::lock_guard lock(mMutex);
        mStopping = true;
    }
    mWake.notify_all();
    mThread.join();
}

void QuoteBoard::subscribe(const QStringList& symbols)
{
    QStringList delivered;
    {
        const std::lock_guard lock(mMutex);
        for (const QString& symbol : symbols) {
            if (!symbol.isEmpty() && !mSubscribedSet.contains(symbol)) {
                mSubscribedSet.insert(symbol);
                mSubscribed.append(symbol);
                mAwaited.append(symbol);
            }
        }
        if (!mOptions.moving) {
            delivered = deliverFirst();
        } else if (!mAwaited.isEmpty()) {
            mWake.notify_all();
        }
    }
    if (!delivered.isEmpty()) {
        emit quotesChanged(delivered);
    }
}

void QuoteBoard::unsubscribe(const QStringList& symbols)
{
    const std::lock_guard lock(mMutex);
    for (const QString& symbol : symbols) {
        mSubscribedSet.remove(symbol);
        mSnapshots.remove(symbol);
        mWalks.remove(symbol);
    }
    const auto isGone = [this](const QString& symbol) { return !mSubscribedSet.contains(symbol); };
    mSubscribed.erase(std::remove_if(mSubscribed.begin(), mSubscribed.end(), isGone), mSubscribed.end());
    mAwaited.erase(std::remove_if(mAwaited.begin(), mAwaited.end(), isGone), mAwaited.end());
}

QStringList QuoteBoard::subscribedSymbols() const
{
    const std::lock_guard lock(mMutex);
    return mSubscribed;
}

QMap<QString, QVariant> QuoteBoard::snapshot(const QString& symbol) const
{
    const std::lock_guard lock(mMutex);
    return mSnapshots.value(symbol);
}

/// The quote thread: first quotes as soon as a subscription wakes it, moves whenever an interval passes
/// undisturbed.
void QuoteBoard::run()
{
    std::unique_lock lock(mMutex);
    const auto hasWork = [this] { return mStopping || !mAwaited.isEmpty(); };
    while (!mStopping) {
        const QStringList changed = mAwaited.isEmpty() ? moveAll() : deliverFirst();
        if (!changed.isEmpty()) {
            lock.unlock(); // a receiver may ask for snapshots at once
            emit quotesChanged(changed);
            lock.lock();
        }
        if (mWalks.isEmpty()) {
            mWake.wait(lock, hasWork);
        } else {
            mWake.wait_for(lock, mOptions.interval, hasWork);
        }
    }
}

/// Under the mutex. Returns the symbols that have a quote.
QStringList QuoteBoard::deliverFirst()
{
    QStringList delivered;
    for (const QString& symbol : qAsConst(mAwaited)) {
        const Quote* quote = mReferenceData.quote(symbol);
        if (!quote) {
            continue;
        }
        mSnapshots.insert(symbol, quote->fields);
        delivered.append(symbol);
        const PriceWalk walk = mOptions.moving ? walkOf(*quote) : PriceWalk();
        if (walk.canMove()) {
            mWalks.insert(symbol, walk);
        }
    }
    mAwaited.clear();
    return delivered;
}

/// Under the mutex. Walks in the order of subscription, so that a seed gives the same prices every time.
QStringList QuoteBoard::moveAll()
{
    QStringList moved;
    for (const QString& symbol : qAsConst(mSubscribed)) {
        const auto walk = mWalks.find(symbol);
        if (walk != mWalks.end()) {
            mSnapshots[symbol].insert(QuotaFields::LastPx, walk->next(mRandom));
            moved.append(symbol);
        }
    }
    return moved;
}

PriceWalk QuoteBoard::walkOf(const Quote& quote) const
{
    if (const FuturesContract* contract = mReferenceData.futuresContract(quote.symbol)) {
        return PriceWalk(quote.fields, contract->pricePrecision);
    }
    const Security* security = mReferenceData.security(quote.symbol);
    return PriceWalk(quote.fields, security ? security->pricePrecision : Security().pricePrecision);
}
