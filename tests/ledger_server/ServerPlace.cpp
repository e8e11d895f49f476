#include "tests/ledger/LedgerPlace.h"
#include "tests/ledger_server/TestServer.h"

#include <QHash>

namespace {

QString databaseOf(const QString& home)
{
    static QHash<QString, QString> made;
    if (!made.contains(home)) {
        made[home] = TestServer::instance().makeLedger();
    }
    return made.value(home);
}

} // namespace

ledger::Address ledgerPlace(const QString& home, const QString& user)
{
    const QString login = user.isEmpty() ? QStringLiteral("trader") : user;
    const QString database = databaseOf(home);
    TestServer::instance().makeLogin(login);
    return TestServer::instance().address(database, login);
}

bool tamperWith(const QString& home, const QString& statement)
{
    int changed = 0;
    const QString script = QStringLiteral("SET session_replication_role = replica; ") + statement;
    const QString error = TestServer::instance().run(databaseOf(home), script, &changed);
    return error.isEmpty();
}
