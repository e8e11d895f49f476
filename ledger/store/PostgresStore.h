#pragma once

#include "ledger/store/Store.h"

#include <QStringList>

#include <functional>

namespace ledger {

/// A ledger in a database of a PostgreSQL server, 13 or newer, through Qt's driver. The password is libpq's
/// business: PGPASSWORD, the password file or a service; nothing here ever sees it.
///
/// Changes of a ledger follow each other: each begins by taking one lock of the database, which ends with its
/// transaction. So the statements of a change see one state, and numbers have the order of commits, as in a
/// file; what that costs stands in docs/ledger.md.
class PostgresStore : public Store {
public:
    PostgresStore(const Address& address, const Settings& settings);
    ~PostgresStore() override;
    PostgresStore(const PostgresStore&) = delete;
    PostgresStore& operator=(const PostgresStore&) = delete;

    QString open() override;
    QSqlDatabase database() const override;
    QString name() const override { return mAddress.shown(); }
    QString user() const override { return mUser; }
    bool keepsDays() const override { return true; }
    bool holdsCeilings() const override { return true; }
    QSqlError begin(Begin kind) override;
    QSqlError commit() override;
    void rollback() override;
    QString settle() override;
    Failure failureOf(const QSqlError& error) const override;
    QString sentenceFor(const QSqlError& error) const override;
    QSqlError insertRows(const NewRows& rows) override;
    QString decimalType() const override { return QStringLiteral("NUMERIC"); }
    QString listOf(const QString& column) const override
    {
        return QStringLiteral("string_agg(%1::text, ',')").arg(column);
    }
    QString forUpdate() const override { return QString(); } // the lock of begin() covers every row
    void notify() override;
    bool listen(const std::function<void()>& changed) override;
    QSqlError beginLoading(const QStringList& tables) override;
    QSqlError endLoading(const QStringList& tables) override;
    std::unique_ptr<AccountClaim> claim(const QStringList& accounts, QString& holder) override;
    std::optional<bool> isClaimed(const QString& account) const override;
    QString verify() override;
    QString backup(const QString& file) override;
    QString vacuum() override;

    /// Makes tables, rules and roles, or brings older ones up to date; harmless when repeated. Whoever runs
    /// it owns the tables and may create roles.
    QString initialise();
    /// The statements that lead from each version of the schema to the next one, oldest first.
    using Migrations = QList<QStringList>;
    /// The same with further steps, of a newer program.
    QString initialise(const Migrations& further);

private:
    class Claim;

    QString connect();
    void disconnect();
    QString connectOptions() const;
    QString inspect();
    QString takeLocks(const QStringList& accounts);
    QString migrate(const Migrations& further);
    QString holderOf(const QString& account) const;
    QSqlError run(const QString& script) const;
    bool isAlive() const;
    bool subscribe();
    QString settleOnce(qint64 process, const QString& started);
    void endSession(qint64 process, const QString& started) const;

    const Address mAddress;
    const Settings mSettings;
    const QString mConnection;
    QString mUser;
    qint64 mSession = 0;     ///< process of the server that serves this connection
    QString mSessionStarted; ///< and when it began: process numbers come again
    QStringList mClaimed;    ///< accounts that a claim of this store holds
    std::function<void()> mChanged;
};

} // namespace ledger
