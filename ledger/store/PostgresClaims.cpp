// Accounts that a gateway serves: advisory locks of its session, which end with it however that ends.

#include "ledger/store/postgres/ServerTexts.h"
#include "ledger/store/PostgresStore.h"
#include "ledger/store/Statements.h"

namespace ledger {

namespace {

const QString AllAccounts = QStringLiteral("*");
const QString Key = QStringLiteral("hashtextextended(?, 4242)");

/// Of a row of pg_locks: that it is the lock of an account in this database, and somebody has it.
const QString IsLock =
    QStringLiteral("l.locktype = 'advisory' AND l.granted AND l.objsubid = 1 "
                   "AND l.database = (SELECT oid FROM pg_database WHERE datname = current_database()) "
                   "AND (l.classid::bigint << 32) | l.objid::bigint = ") +
    Key;

/// One lock for all accounts, which those that serve some share, and one for each account.
struct Lock {
    QString account;
    bool isShared;
};

QList<Lock> locksOf(const QStringList& accounts)
{
    QList<Lock> locks{{AllAccounts, !accounts.contains(AllAccounts)}};
    if (locks.first().isShared) {
        for (const QString& account : accounts) {
            locks.append({account, false});
        }
    }
    return locks;
}

} // namespace

class PostgresStore::Claim : public AccountClaim {
public:
    explicit Claim(PostgresStore& store) : mStore(store) {}
    ~Claim() override
    {
        mStore.mClaimed.clear();
        mStore.run(QStringLiteral("SELECT pg_advisory_unlock_all()"));
    }

private:
    PostgresStore& mStore; ///< outlives its claims: an outbox holds its ledger
};

/// Who has a lock, as the server lists it.
QString PostgresStore::holderOf(const QString& account) const
{
    return Statements(database())
        .single(
            QStringLiteral("SELECT a.application_name FROM pg_locks l JOIN pg_stat_activity a USING (pid) "
                           "WHERE ") +
                IsLock + QStringLiteral(" AND a.pid <> pg_backend_pid() ORDER BY l.pid LIMIT 1"),
            {account})
        .toString();
}

/// The list of locks is open to every role.
std::optional<bool> PostgresStore::isClaimed(const QString& account) const
{
    Statements statements(database());
    const qint64 count = statements
                             .single(QStringLiteral("SELECT COUNT(*) FROM pg_locks l WHERE "
                                                    "l.mode = 'ExclusiveLock' AND ") +
                                         IsLock,
                                     {account})
                             .toLongLong();
    return statements.failed() ? std::nullopt : std::optional<bool>(count > 0);
}

/// Takes the locks of `accounts`; empty, or who has one of them. The locks of a session that ended are taken
/// anew by the next one, unless another gateway was faster.
QString PostgresStore::takeLocks(const QStringList& accounts)
{
    for (const Lock& lock : locksOf(accounts)) {
        Statements statements(database());
        const QString call = QStringLiteral("SELECT pg_try_advisory_lock%1(%2)")
                                 .arg(lock.isShared ? QStringLiteral("_shared") : QString(), Key);
        const bool isTaken = statements.single(call, {lock.account}).toBool();
        if (statements.failed()) {
            return sentenceFor(statements.error());
        }
        if (!isTaken) {
            const QString holder = holderOf(lock.account);
            run(QStringLiteral("SELECT pg_advisory_unlock_all()"));
            return holder.isEmpty() ? texts::unknownHolder() : holder;
        }
    }
    return QString();
}

std::unique_ptr<AccountClaim> PostgresStore::claim(const QStringList& accounts, QString& holder)
{
    if (!mClaimed.isEmpty()) {
        holder = texts::thisProgram(); // a session would be given its own locks again
        return nullptr;
    }
    if (!isAlive()) {
        open();
    }
    const QStringList wanted = accounts.isEmpty() ? QStringList{AllAccounts} : accounts;
    holder = takeLocks(wanted);
    if (!holder.isEmpty()) {
        return nullptr;
    }
    mClaimed = wanted;
    return std::make_unique<Claim>(*this);
}

} // namespace ledger
