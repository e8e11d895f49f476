#include "ledger/store/SqliteMigrations.h"

#include "ledger/store/Schema.h"

namespace ledger {

namespace {

/// The guard tells rows created before; a revision is compared with the table imported before.
QStringList fromVersionOne()
{
    return {
        QStringLiteral("ALTER TABLE instance ADD COLUMN row_key VARCHAR(64) NOT NULL DEFAULT ''"),
        QStringLiteral("CREATE TABLE batch_table ("
                       "batch_number BIGINT NOT NULL PRIMARY KEY REFERENCES batch (number), "
                       "column_names TEXT NOT NULL, row_texts TEXT NOT NULL)"),
    };
}

/// All tables anew, with decimals instead of binary numbers, the account in every key, and what gateway,
/// approval, halt and audit need.
QStringList fromVersionTwo()
{
    const QStringList old{QStringLiteral("ledger_number"), QStringLiteral("batch"),
                          QStringLiteral("instance"), QStringLiteral("instance_leg"),
                          QStringLiteral("batch_table")};
    QStringList statements;
    for (const QString& table : old) {
        statements.append(QStringLiteral("ALTER TABLE %1 RENAME TO old_%1").arg(table));
    }
    statements += tablesOfToday(QStringLiteral("TEXT"));
    const QString day = QStringLiteral("strftime('%Y-%m-%d', b.created_at / 1000 + 28800, 'unixepoch')");
    statements += {
        QStringLiteral("UPDATE ledger_number SET value = (SELECT o.value FROM old_ledger_number o "
                       "WHERE o.name = 'last_batch') WHERE name = 'last_batch'"),
        QStringLiteral(
            "INSERT INTO batch SELECT b.number, b.account, b.draft_id, b.file_name, b.file_sha256, "
            "b.strategy, b.row_count, b.expected_buy, b.expected_sell, b.created_at, ") +
            day + QStringLiteral(", b.created_by, b.state, '' FROM old_batch b"),
        QStringLiteral(
            "INSERT INTO instance SELECT i.batch_number, i.row_no, i.account, i.strategy, i.state, "
            "i.changed_at, i.parameters, i.row_key, 0, 0, '', 0, 0, '0', '0', '', b.day FROM old_instance i "
            "JOIN batch b ON b.number = i.batch_number"),
        QStringLiteral(
            "INSERT INTO instance_leg SELECT l.batch_number, l.row_no, l.leg_no, i.account, l.symbol, '', "
            "l.direction, l.quantity, l.limit_price, l.amount, '0', '0' FROM old_instance_leg l "
            "JOIN old_instance i ON i.batch_number = l.batch_number AND i.row_no = l.row_no"),
        QStringLiteral(
            "INSERT INTO batch_table SELECT t.batch_number, b.account, t.column_names, t.row_texts "
            "FROM old_batch_table t JOIN old_batch b ON b.number = t.batch_number"),
        QStringLiteral("INSERT INTO account_day SELECT b.account, ") + day +
            QStringLiteral(", SUM(CASE WHEN l.direction NOT LIKE 'Sell%' THEN l.amount ELSE 0 END), "
                           "SUM(CASE WHEN l.direction NOT LIKE 'Buy%' OR l.direction = 'Buy/Sell' THEN "
                           "l.amount ELSE 0 END), "
                           "COUNT(DISTINCT b.number), COUNT(DISTINCT b.number || '-' || i.row_no) "
                           "FROM old_batch b JOIN old_instance i ON i.batch_number = b.number AND i.state <> "
                           "'withdrawn' "
                           "JOIN old_instance_leg l ON l.batch_number = i.batch_number AND l.row_no = "
                           "i.row_no GROUP BY 1, 2"),
    };
    for (auto table = old.crbegin(); table != old.crend(); ++table) {
        statements.append(QStringLiteral("DROP TABLE old_%1").arg(*table));
    }
    return statements;
}

} // namespace

QStringList sqliteMigrationFrom(int version)
{
    switch (version) {
    case 0:
        return tablesOfToday(QStringLiteral("TEXT"));
    case 1:
        return fromVersionOne() + fromVersionTwo();
    case 2:
        return fromVersionTwo();
    case 3:
        return stepsToVersionFour() + stepsToVersionFive();
    default:
        return stepsToVersionFive();
    }
}

} // namespace ledger
