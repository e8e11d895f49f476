#pragma once

#include "ledger/store/Address.h"

#include <QHash>
#include <QSqlDatabase>
#include <QStringList>
#include <QVariant>

/// The throw-away PostgreSQL server that pg_virtualenv has started around this program, as PGHOST, PGPORT and
/// PGPASSWORD name it. All logins have its password. A database is a copy of one that was made once.
class TestServer {
public:
    static TestServer& instance();

    /// An empty ledger for the running test alone, whose clock may be years away.
    QString makeLedger();
    /// A new database with nothing in it.
    QString makeDatabase();
    /// Makes a login where there is none: a member of the roles ("trader", …), else of all.
    void makeLogin(const QString& user, const QStringList& roles = {});

    ledger::Address address(const QString& database, const QString& user) const;
    QString host() const { return mHost; }
    int port() const { return mPort; }

    /// Statements of the server's administrator; the error, if any.
    QString run(const QString& database, const QString& script, int* changed = nullptr) const;
    QVariant single(const QString& database, const QString& statement) const;
    /// Statements of a user, as another program would send them: the code of the server's refusal, or an
    /// empty one.
    QString codeOf(const QString& database, const QString& user, const QString& script) const;
    /// Hard, as a power cut would.
    void stop();
    void start();
    void restart();

private:
    TestServer();
    QSqlDatabase connected(const QString& database, const QString& user, const QString& connection) const;

    const QString mHost;
    const int mPort;
    int mMade = 0;
    QStringList mLogins;
    QHash<QString, QString> mLedgers; ///< databases, by the test that has them
};
