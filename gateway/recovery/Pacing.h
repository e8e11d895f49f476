#pragma once

#include <QHash>
#include <QString>

#include <deque>

/// How many orders may go out in a second: of each account, and in all.
namespace gateway {

class Pacing {
public:
    /// `ofAccounts`: most orders in a second by trading account; 0 or absent: no ceiling. `inAll`: of all
    /// accounts together; 0: none.
    Pacing(const QHash<QString, int>& ofAccounts, int inAll);

    /// Whether one more may go out now. Times are milliseconds of a clock that never goes back.
    bool allows(const QString& account, qint64 now) const;
    /// What a program before this one sent nobody knows: a second passes as if it had sent all it could.
    void assumeSpent(qint64 now);
    /// One went out.
    void count(const QString& account, qint64 now);

private:
    using Times = std::deque<qint64>; ///< the last ones, oldest first, no more than the ceiling

    static bool isFree(const Times& times, int ceiling, qint64 now);
    static void add(Times& times, int ceiling, qint64 now);

    QHash<QString, int> mCeilings;
    int mCeilingInAll = 0;
    QHash<QString, Times> mOfAccounts;
    Times mInAll;
};

} // namespace gateway
