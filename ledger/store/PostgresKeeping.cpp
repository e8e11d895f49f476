// Making a ledger on a server and bringing it up to date, its errors as sentences, and looking after it.

#include "ledger/store/LedgerLog.h"
#include "ledger/store/postgres/ServerTexts.h"
#include "ledger/store/PostgresStore.h"
#include "ledger/store/Schema.h"
#include "ledger/store/Statements.h"

#include <QFile>

/// Outside of any namespace, as Qt's macro wants it.
static void initLedgerResources()
{
    Q_INIT_RESOURCE(ledger_postgres);
}

namespace ledger {

namespace {

QString scriptNamed(const char* name)
{
    initLedgerResources();
    QFile file(QStringLiteral(":/ledger/postgres/") + QLatin1String(name));
    const bool isOpen = file.open(QIODevice::ReadOnly);
    Q_ASSERT(isOpen);
    return isOpen ? QString::fromUtf8(file.readAll()) : QString();
}

struct CodedSentence {
    const char* code; ///< of the server, or its class
    QString (*sentence)(const QString& ledger);
};

const CodedSentence Sentences[] = {
    {"AL001", texts::historyStays},       {"AL002", texts::notPermitted},
    {"AL003", texts::aboveCeiling},       {"AL004", texts::haltedOnServer},
    {"AL005", texts::secondPersonNeeded}, {"AL006", texts::notWhole},
    {"AL007", texts::notAudited},         {"AL008", texts::wrongClock},
    {"42501", texts::notPermitted},       {"55P03", texts::busyServer},
    {"40001", texts::busyServer},         {"40P01", texts::busyServer},
    {"53100", texts::fullServer},         {"08", texts::lostServer},
    {"57P", texts::lostServer},           {"25P03", texts::lostServer},
    {"25006", texts::lostServer},
};

/// What must be so in a sound ledger, each with a statement that finds where it is not.
const struct {
    const char* what;
    const char* statement;
} Checks[] = {
    {"batch",
     "SELECT b.number FROM batch b LEFT JOIN instance i ON i.batch_number = b.number AND i.account = "
     "b.account GROUP BY b.number, b.account, b.row_count HAVING count(i.row_no) <> b.row_count LIMIT 1"},
    {"instance",
     "SELECT i.batch_number FROM instance i WHERE NOT EXISTS (SELECT 1 FROM instance_leg l WHERE "
     "l.batch_number = i.batch_number AND l.row_no = i.row_no AND l.account = i.account) LIMIT 1"},
    {"account_day",
     "SELECT 1 FROM (SELECT b.account, b.day, "
     "coalesce(sum(l.amount) FILTER (WHERE l.direction NOT LIKE 'Sell%'), 0) AS buy, "
     "coalesce(sum(l.amount) FILTER (WHERE l.direction NOT LIKE 'Buy%' OR l.direction = 'Buy/Sell'), 0) AS "
     "sell "
     "FROM batch b JOIN instance i ON i.batch_number = b.number AND i.account = b.account AND i.state <> "
     "'withdrawn' JOIN instance_leg l ON l.batch_number = i.batch_number AND l.row_no = i.row_no AND "
     "l.account = "
     "i.account GROUP BY b.account, b.day) s FULL JOIN account_day d ON d.account = s.account AND d.day = "
     "s.day "
     "WHERE coalesce(s.buy, 0) <> coalesce(d.buy, 0) OR coalesce(s.sell, 0) <> coalesce(d.sell, 0) LIMIT 1"},
    {"ledger_number",
     "SELECT 1 FROM ledger_number n WHERE (n.name = 'last_batch' AND n.value <> (SELECT "
     "coalesce(max(number), 0) FROM batch)) OR (n.name = 'last_audit' AND n.value <> (SELECT "
     "coalesce(max(number), 0) FROM audit_entry)) LIMIT 1"},
};

/// The first version that there was on a server.
constexpr int FirstVersion = 3;

QString alterAll(const QStringList& tables, const char* change)
{
    QStringList statements;
    for (const QString& table : tables) {
        statements.append(QStringLiteral("ALTER TABLE %1 %2").arg(table, QLatin1String(change)));
    }
    return statements.join(QLatin1Char(';'));
}

/// A step that writes to all rows, whose triggers would take it for a change that nobody entered.
QStringList unwatched(const QStringList& step)
{
    const QStringList tables{QStringLiteral("instance")};
    return QStringList{alterAll(tables, "DISABLE TRIGGER USER")} + step +
           QStringList{alterAll(tables, "ENABLE TRIGGER USER")};
}

} // namespace

QString PostgresStore::sentenceFor(const QSqlError& error) const
{
    const QString code = error.nativeErrorCode();
    qCInfo(lcLedger) << name() << code << error.text();
    for (const CodedSentence& known : Sentences) {
        if (code.startsWith(QLatin1String(known.code))) {
            return known.sentence(name());
        }
    }
    const bool isDrivers = code.isEmpty() && (error.type() == QSqlError::ConnectionError || !isAlive());
    return isDrivers ? texts::lostServer(name()) : texts::failedServer(name(), error.databaseText());
}

QString PostgresStore::initialise()
{
    return initialise({});
}

QString PostgresStore::initialise(const Migrations& further)
{
    const QString fault = connect();
    if (!fault.isEmpty()) {
        return fault;
    }
    // Changes wait, and so does another program that wants to migrate. Readers go on until a table is
    // altered.
    QSqlError error = begin(Begin::Write);
    QString refused = error.isValid() ? sentenceFor(error) : migrate(further);
    if (refused.isEmpty()) {
        error = commit();
        refused = error.isValid() ? sentenceFor(error) : QString();
    }
    if (!refused.isEmpty()) {
        rollback();
    }
    return refused;
}

/// Under the lock: of two programs the second finds nothing to do.
QString PostgresStore::migrate(const Migrations& further)
{
    Statements statements(database());
    const bool isUtf8 =
        statements.single(QStringLiteral("SELECT current_setting('server_encoding')")).toString() ==
        QLatin1String("UTF8");
    const bool isMade =
        statements.single(QStringLiteral("SELECT to_regclass('public.ledger_number') IS NOT NULL")).toBool();
    const qint64 tables =
        statements.single(QStringLiteral("SELECT COUNT(*) FROM pg_tables WHERE schemaname = 'public'"))
            .toLongLong();
    const Migrations steps = Migrations{unwatched(stepsToVersionFour()), stepsToVersionFive()} + further;
    const qint64 newest = FirstVersion + steps.size();
    const qint64 version =
        isMade ? statements
                     .single(QStringLiteral("SELECT value FROM ledger_number WHERE name = 'schema_version'"))
                     .toLongLong()
               : 0;
    if (statements.failed()) {
        return sentenceFor(statements.error());
    }
    if (!isUtf8 || (!isMade && tables > 0)) {
        return isUtf8 ? texts::foreignServer(name()) : texts::wrongEncoding(name());
    }
    if (version > newest) {
        return texts::newerServer(name(), version, newest);
    }
    QStringList scripts = isMade ? QStringList() : tablesOfToday(decimalType());
    for (qint64 next = isMade ? version : schemaVersion(); next < newest; ++next) {
        scripts += steps.at(static_cast<int>(next - FirstVersion));
    }
    scripts += {scriptNamed("rules.sql"), scriptNamed("roles.sql")};
    if (version < newest) {
        scripts.append(versionStatement(static_cast<int>(newest)));
    }
    for (const QString& script : qAsConst(scripts)) {
        const QSqlError error = run(script);
        if (error.isValid()) {
            return sentenceFor(error);
        }
    }
    return QString();
}

QSqlError PostgresStore::beginLoading(const QStringList& tables)
{
    return run(alterAll(tables, "DISABLE TRIGGER USER"));
}

QSqlError PostgresStore::endLoading(const QStringList& tables)
{
    return run(alterAll(tables, "ENABLE TRIGGER USER"));
}

QString PostgresStore::verify()
{
    Statements statements(database());
    for (const auto& check : Checks) {
        const bool isFound = statements.single(QString::fromLatin1(check.statement)).isValid();
        if (isFound) {
            return texts::unsoundServer(name(), QString::fromLatin1(check.what));
        }
    }
    return statements.failed() ? sentenceFor(statements.error()) : QString();
}

QString PostgresStore::backup(const QString&)
{
    return texts::backupOnServer(name());
}

QString PostgresStore::vacuum()
{
    const QSqlError error = run(QStringLiteral("VACUUM (ANALYZE)"));
    return error.isValid() ? sentenceFor(error) : QString();
}

} // namespace ledger
