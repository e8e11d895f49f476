#include "ledger/store/LedgerSchema.h"

#include "ledger/store/SqliteFile.h"

#include <QSqlQuery>
#include <QStringList>
#include <QVariant>

namespace ledger {

namespace {

/// Migration n leads from version n to version n + 1. One that was released is never edited: a change of the
/// tables is a new migration. Times are milliseconds since 1970 in UTC.
const QList<QStringList>& migrations()
{
    static const QList<QStringList> list{
        {
            QStringLiteral("CREATE TABLE ledger_number ("
                           "name VARCHAR(40) NOT NULL PRIMARY KEY, value BIGINT NOT NULL)"),
            QStringLiteral("INSERT INTO ledger_number (name, value) VALUES ('schema_version', 0)"),
            QStringLiteral("INSERT INTO ledger_number (name, value) VALUES ('last_batch', 0)"),
            QStringLiteral(
                "CREATE TABLE batch ("
                "number BIGINT NOT NULL PRIMARY KEY, draft_id VARCHAR(36) NOT NULL UNIQUE, "
                "file_name TEXT NOT NULL, file_sha256 VARCHAR(64) NOT NULL, "
                "account TEXT NOT NULL, strategy TEXT NOT NULL, row_count INTEGER NOT NULL, "
                "expected_buy DOUBLE PRECISION NOT NULL, expected_sell DOUBLE PRECISION NOT NULL, "
                "created_at BIGINT NOT NULL, created_by TEXT NOT NULL, state VARCHAR(20) NOT NULL)"),
            QStringLiteral("CREATE INDEX batch_by_account ON batch (account, created_at)"),
            QStringLiteral("CREATE TABLE instance ("
                           "batch_number BIGINT NOT NULL REFERENCES batch (number), row_no INTEGER NOT NULL, "
                           "account TEXT NOT NULL, strategy TEXT NOT NULL, state VARCHAR(20) NOT NULL, "
                           "changed_at BIGINT NOT NULL, parameters TEXT NOT NULL, "
                           "PRIMARY KEY (batch_number, row_no))"),
            QStringLiteral(
                "CREATE TABLE instance_leg ("
                "batch_number BIGINT NOT NULL, row_no INTEGER NOT NULL, leg_no INTEGER NOT NULL, "
                "symbol TEXT NOT NULL, direction TEXT NOT NULL, quantity DOUBLE PRECISION NOT NULL, "
                "limit_price DOUBLE PRECISION NOT NULL, amount DOUBLE PRECISION NOT NULL, "
                "PRIMARY KEY (batch_number, row_no, leg_no), "
                "FOREIGN KEY (batch_number, row_no) REFERENCES instance (batch_number, row_no))"),
            QStringLiteral("CREATE INDEX leg_by_symbol ON instance_leg (symbol)"),
        },
        {
            // the guard tells rows created before; a revision is compared with the table imported before
            QStringLiteral("ALTER TABLE instance ADD COLUMN row_key VARCHAR(64) NOT NULL DEFAULT ''"),
            QStringLiteral("CREATE TABLE batch_table ("
                           "batch_number BIGINT NOT NULL PRIMARY KEY REFERENCES batch (number), "
                           "column_names TEXT NOT NULL, row_texts TEXT NOT NULL)"),
        },
    };
    return list;
}

bool runAll(const QSqlDatabase& database, const QStringList& statements, QSqlError& error)
{
    QSqlQuery query(database);
    for (const QString& statement : statements) {
        if (!query.exec(statement)) {
            error = query.lastError();
            return false;
        }
    }
    return true;
}

} // namespace

int schemaVersion()
{
    return migrations().size();
}

qint64 versionOf(const QSqlDatabase& database)
{
    QSqlQuery query(database);
    const bool hasTables =
        query.exec(QStringLiteral("SELECT value FROM ledger_number WHERE name = 'schema_version'")) &&
        query.next();
    return hasTables ? query.value(0).toLongLong() : 0;
}

QSqlError migrate(const QSqlDatabase& database, int version)
{
    QSqlError error;
    Transaction transaction(database);
    if (!transaction.isOpen()) {
        return transaction.error();
    }
    for (int from = static_cast<int>(versionOf(database)); from < version; ++from) {
        const QString seal =
            QStringLiteral("UPDATE ledger_number SET value = %1 WHERE name = 'schema_version'").arg(from + 1);
        if (!runAll(database, migrations().at(from) + QStringList{seal}, error)) {
            return error;
        }
    }
    return transaction.commit() ? QSqlError() : transaction.error();
}

} // namespace ledger
