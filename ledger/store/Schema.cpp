#include "ledger/store/Schema.h"

namespace ledger {

namespace {

// Times are milliseconds since 1970 in UTC, days are those of the exchanges (UTC+8) as yyyy-MM-dd, decimals
// are exact. Every table has the account in its key, so that a server may part them by account; what all
// accounts share is ledger_number, halt and audit_entry.
/// Keys are hashes: below their day, or a batch would touch a page of the index for each of its rows.
constexpr char InstanceByKey[] =
    "CREATE INDEX instance_by_key ON instance (account, day, row_key, batch_number) "
    "WHERE state <> 'withdrawn'";

const char* const Tables[] = {
    "CREATE TABLE ledger_number (name VARCHAR(40) NOT NULL PRIMARY KEY, value BIGINT NOT NULL)",

    "CREATE TABLE batch ("
    "number BIGINT NOT NULL, account TEXT NOT NULL, draft_id VARCHAR(36) NOT NULL, "
    "file_name TEXT NOT NULL, file_sha256 VARCHAR(64) NOT NULL, strategy TEXT NOT NULL, "
    "row_count INTEGER NOT NULL, expected_buy %1 NOT NULL, expected_sell %1 NOT NULL, "
    "created_at BIGINT NOT NULL, day VARCHAR(10) NOT NULL, created_by TEXT NOT NULL, state VARCHAR(20) NOT "
    "NULL, file_edits TEXT NOT NULL DEFAULT '', "
    "PRIMARY KEY (number, account), UNIQUE (draft_id, account))",
    "CREATE INDEX batch_by_file ON batch (file_sha256, created_at)",
    "CREATE INDEX batch_by_session ON batch (account, created_at, day, number)",
    "CREATE INDEX batch_by_day ON batch (day, number)",
    "CREATE INDEX batch_by_state ON batch (state, day)",

    "CREATE TABLE instance ("
    "batch_number BIGINT NOT NULL, row_no INTEGER NOT NULL, account TEXT NOT NULL, strategy TEXT NOT NULL, "
    "state VARCHAR(20) NOT NULL, changed_at BIGINT NOT NULL, parameters TEXT NOT NULL, "
    "row_key VARCHAR(64) NOT NULL, starts_now INTEGER NOT NULL, taken_back INTEGER NOT NULL, "
    "cl_ord_id VARCHAR(40) NOT NULL, cancels INTEGER NOT NULL, cancel_due INTEGER NOT NULL, "
    "filled %1 NOT NULL, average %1 NOT NULL, reason TEXT NOT NULL, day VARCHAR(10) NOT NULL DEFAULT '', "
    "PRIMARY KEY (batch_number, row_no, account), "
    "FOREIGN KEY (batch_number, account) REFERENCES batch (number, account))",
    InstanceByKey,
    "CREATE INDEX instance_by_state ON instance (state, account, batch_number, row_no)",

    "CREATE TABLE instance_leg ("
    "batch_number BIGINT NOT NULL, row_no INTEGER NOT NULL, leg_no INTEGER NOT NULL, account TEXT NOT NULL, "
    "symbol TEXT NOT NULL, exchange TEXT NOT NULL, direction TEXT NOT NULL, quantity %1 NOT NULL, "
    "limit_price %1 NOT NULL, amount %1 NOT NULL, filled %1 NOT NULL, average %1 NOT NULL, "
    "PRIMARY KEY (batch_number, row_no, leg_no, account), "
    "FOREIGN KEY (batch_number, row_no, account) REFERENCES instance (batch_number, row_no, account))",

    "CREATE TABLE batch_table ("
    "batch_number BIGINT NOT NULL, account TEXT NOT NULL, column_names TEXT NOT NULL, row_texts TEXT NOT "
    "NULL, "
    "PRIMARY KEY (batch_number, account), "
    "FOREIGN KEY (batch_number, account) REFERENCES batch (number, account))",

    "CREATE TABLE account_day ("
    "account TEXT NOT NULL, day VARCHAR(10) NOT NULL, buy %1 NOT NULL, sell %1 NOT NULL, "
    "batches BIGINT NOT NULL, instances BIGINT NOT NULL, PRIMARY KEY (account, day))",
    "CREATE INDEX account_day_by_day ON account_day (day, account)",

    "CREATE TABLE approval ("
    "batch_number BIGINT NOT NULL, account TEXT NOT NULL, digest VARCHAR(64) NOT NULL, verdict TEXT NOT "
    "NULL, "
    "asked_by TEXT NOT NULL, asked_at BIGINT NOT NULL, decided_by TEXT NOT NULL, decided_at BIGINT NOT NULL, "
    "reason TEXT NOT NULL, PRIMARY KEY (batch_number, account), "
    "FOREIGN KEY (batch_number, account) REFERENCES batch (number, account))",

    "CREATE TABLE halt (account TEXT NOT NULL PRIMARY KEY, reason TEXT NOT NULL, halted_by TEXT NOT NULL, "
    "halted_at BIGINT NOT NULL)",

    "CREATE TABLE gateway (account TEXT NOT NULL PRIMARY KEY, session TEXT NOT NULL, host TEXT NOT NULL, "
    "pid BIGINT NOT NULL, state VARCHAR(20) NOT NULL, since BIGINT NOT NULL)",

    "CREATE TABLE execution ("
    "cl_ord_id VARCHAR(40) NOT NULL, exec_id TEXT NOT NULL, account TEXT NOT NULL, "
    "recorded_at BIGINT NOT NULL, PRIMARY KEY (cl_ord_id, exec_id, account))",

    "CREATE TABLE stray_report ("
    "number BIGINT NOT NULL PRIMARY KEY, recorded_at BIGINT NOT NULL, cl_ord_id TEXT NOT NULL, "
    "exec_id TEXT NOT NULL, message TEXT NOT NULL)",
    "CREATE INDEX stray_by_order ON stray_report (cl_ord_id, exec_id)",

    "CREATE TABLE audit_entry ("
    "number BIGINT NOT NULL PRIMARY KEY, entered_at BIGINT NOT NULL, entered_by TEXT NOT NULL, "
    "program TEXT NOT NULL, what VARCHAR(40) NOT NULL, subject TEXT NOT NULL, detail TEXT NOT NULL, "
    "hash VARCHAR(64) NOT NULL)",

    "INSERT INTO ledger_number (name, value) VALUES ('schema_version', 0)",
    "INSERT INTO ledger_number (name, value) VALUES ('last_batch', 0)",
    "INSERT INTO ledger_number (name, value) VALUES ('last_audit', 0)",
    "INSERT INTO ledger_number (name, value) VALUES ('last_stray', 0)",
};

} // namespace

int schemaVersion()
{
    return 5;
}

QStringList tablesOfToday(const QString& decimalType)
{
    QStringList statements;
    for (const char* statement : Tables) {
        statements.append(QString::fromLatin1(statement).replace(QLatin1String("%1"), decimalType));
    }
    return statements;
}

QStringList tableNames()
{
    QStringList names;
    for (const char* statement : Tables) {
        const QStringList words = QString::fromLatin1(statement).split(QLatin1Char(' '));
        if (words.value(1) == QLatin1String("TABLE")) {
            names.append(words.value(2));
        }
    }
    return names;
}

QSet<QString> decimalColumns()
{
    QSet<QString> columns;
    for (const char* statement : Tables) {
        const QStringList words = QString::fromLatin1(statement).split(QLatin1Char(' '));
        for (int i = 1; i < words.size(); ++i) {
            if (words.at(i) == QLatin1String("%1")) {
                columns.insert(words.at(i - 1));
            }
        }
    }
    return columns;
}

QStringList stepsToVersionFour()
{
    return {
        QStringLiteral("ALTER TABLE instance ADD COLUMN day VARCHAR(10) NOT NULL DEFAULT ''"),
        QStringLiteral("UPDATE instance SET day = (SELECT b.day FROM batch b "
                       "WHERE b.number = instance.batch_number AND b.account = instance.account)"),
        QStringLiteral("DROP INDEX batch_by_state"),
        QStringLiteral("DROP INDEX instance_by_key"),
        QStringLiteral("CREATE INDEX batch_by_session ON batch (account, created_at, day, number)"),
        QStringLiteral("CREATE INDEX batch_by_day ON batch (day, number)"),
        QStringLiteral("CREATE INDEX batch_by_state ON batch (state, day)"),
        QString::fromLatin1(InstanceByKey),
        QStringLiteral("CREATE INDEX account_day_by_day ON account_day (day, account)"),
    };
}

QStringList stepsToVersionFive()
{
    return {QStringLiteral("ALTER TABLE batch ADD COLUMN file_edits TEXT NOT NULL DEFAULT ''")};
}

QString versionStatement(int version)
{
    return QStringLiteral("UPDATE ledger_number SET value = %1 WHERE name = 'schema_version'").arg(version);
}

} // namespace ledger
