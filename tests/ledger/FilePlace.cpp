#include "ledger/Ledger.h"
#include "tests/ledger/LedgerPlace.h"

#include <QSqlDatabase>
#include <QSqlQuery>

ledger::Address ledgerPlace(const QString& home, const QString&)
{
    return ledger::Address::ofFile(ledger::Ledger::pathIn(home));
}

bool tamperWith(const QString& home, const QString& statement)
{
    bool isDone = false;
    const QString name = QStringLiteral("tamper");
    {
        QSqlDatabase database = QSqlDatabase::addDatabase(QStringLiteral("QSQLITE"), name);
        database.setDatabaseName(ledger::Ledger::pathIn(home));
        database.open();
        QSqlQuery query(database);
        isDone = query.exec(statement) && query.numRowsAffected() > 0;
    }
    QSqlDatabase::removeDatabase(name);
    return isDone;
}
