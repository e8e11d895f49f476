#include "gateway/recovery/Pacing.h"

namespace gateway {

namespace {

/// A second as the counterparty's clock sees it: what leaves evenly may arrive in a bunch.
const qint64 Second = 1020;

} // namespace

Pacing::Pacing(const QHash<QString, int>& ofAccounts, int inAll) : mCeilings(ofAccounts), mCeilingInAll(inAll)
{
}

bool Pacing::isFree(const Times& times, int ceiling, qint64 now)
{
    return ceiling <= 0 || times.size() < static_cast<std::size_t>(ceiling) || now - times.front() >= Second;
}

void Pacing::add(Times& times, int ceiling, qint64 now)
{
    if (ceiling <= 0) {
        return;
    }
    times.push_back(now);
    if (times.size() > static_cast<std::size_t>(ceiling)) {
        times.pop_front();
    }
}

bool Pacing::allows(const QString& account, qint64 now) const
{
    return isFree(mInAll, mCeilingInAll, now) &&
           isFree(mOfAccounts.value(account), mCeilings.value(account), now);
}

void Pacing::assumeSpent(qint64 now)
{
    if (mCeilingInAll > 0) {
        mInAll.assign(static_cast<std::size_t>(mCeilingInAll), now);
    }
    for (auto it = mCeilings.begin(); it != mCeilings.end(); ++it) {
        if (it.value() > 0) {
            mOfAccounts[it.key()].assign(static_cast<std::size_t>(it.value()), now);
        }
    }
}

void Pacing::count(const QString& account, qint64 now)
{
    add(mInAll, mCeilingInAll, now);
    if (mCeilings.value(account) > 0) {
        add(mOfAccounts[account], mCeilings.value(account), now);
    }
}

} // namespace gateway
