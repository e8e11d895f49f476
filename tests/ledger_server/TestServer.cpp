#include "tests/ledger_server/TestServer.h"

#include "ledger/store/PostgresStore.h"
#include "ledger/store/Schema.h"

#include <gtest/gtest.h>

#include <QProcess>
#include <QSqlError>
#include <QSqlQuery>
#include <QUuid>

#include <cstdio>

using namespace ledger;

namespace {

const QString Administrator = QString::fromLocal8Bit(qgetenv("PGUSER"));
const QString Template = QStringLiteral("ledger_template");
const QStringList AllRoles{QStringLiteral("trader"), QStringLiteral("approver"), QStringLiteral("risk"),
                           QStringLiteral("auditor"), QStringLiteral("gateway")};

QString currentTest()
{
    const testing::TestInfo* test = testing::UnitTest::GetInstance()->current_test_info();
    return QString::fromLatin1(test->test_suite_name()) + QLatin1Char('.') +
           QString::fromLatin1(test->name());
}

int control(const QStringList& options, const QString& action)
{
    const QString version = QString::fromLocal8Bit(qgetenv("PGVERSION"));
    return QProcess::execute(QStringLiteral("pg_ctlcluster"),
                             options + QStringList{version, QStringLiteral("regress"), action});
}

/// Empties a ledger that an earlier test has left: quicker than a new database.
QString wipe()
{
    QStringList tables = tableNames();
    tables.removeOne(QStringLiteral("ledger_number"));
    return QStringLiteral("SET session_replication_role = replica; TRUNCATE %1, ledger_limit, ledger_price; "
                          "UPDATE ledger_number SET value = 0 WHERE name LIKE 'last%'")
        .arg(tables.join(QLatin1Char(',')));
}

} // namespace

TestServer& TestServer::instance()
{
    static TestServer server;
    return server;
}

TestServer::TestServer()
    : mHost(QString::fromLocal8Bit(qgetenv("PGHOST"))), mPort(qEnvironmentVariableIntValue("PGPORT"))
{
    if (mHost.isEmpty() || !qEnvironmentVariableIsSet("PG_CLUSTER_CONF_ROOT")) {
        std::fputs("there is no server to test on: start this program by pg_virtualenv -t\n", stderr);
        std::exit(1);
    }
    std::printf("tests on the throw-away PostgreSQL server at %s:%d\n", qPrintable(mHost), mPort);
    run(QStringLiteral("postgres"), QStringLiteral("CREATE DATABASE ") + Template);
    const QString fault = PostgresStore(address(Template, Administrator), {}).initialise();
    EXPECT_EQ(fault, QString());
    const QString years =
        QStringLiteral("UPDATE ledger_number SET value = 1000000000000000 WHERE name = 'clock_tolerance'");
    EXPECT_EQ(run(Template, years), QString());
}

QSqlDatabase TestServer::connected(const QString& database, const QString& user,
                                   const QString& connection) const
{
    QSqlDatabase opened = QSqlDatabase::addDatabase(QStringLiteral("QPSQL"), connection);
    opened.setHostName(mHost);
    opened.setPort(mPort);
    opened.setDatabaseName(database);
    opened.setUserName(user);
    EXPECT_TRUE(opened.open()) << opened.lastError().text().toStdString();
    return opened;
}

QString TestServer::run(const QString& database, const QString& script, int* changed) const
{
    QString error;
    const QString connection = QUuid::createUuid().toString();
    {
        QSqlQuery query(connected(database, Administrator, connection));
        query.exec(script);
        while (query.nextResult()) {
        }
        error = query.lastError().text().trimmed();
        if (changed) {
            *changed = query.numRowsAffected();
        }
    }
    QSqlDatabase::removeDatabase(connection);
    return error;
}

QVariant TestServer::single(const QString& database, const QString& statement) const
{
    QVariant value;
    const QString connection = QUuid::createUuid().toString();
    {
        QSqlQuery query(connected(database, Administrator, connection));
        EXPECT_TRUE(query.exec(statement)) << query.lastError().text().toStdString();
        value = query.next() ? query.value(0) : QVariant();
    }
    QSqlDatabase::removeDatabase(connection);
    return value;
}

QString TestServer::codeOf(const QString& database, const QString& user, const QString& script) const
{
    QString code;
    const QString connection = QUuid::createUuid().toString();
    {
        QSqlQuery query(connected(database, user, connection));
        query.exec(script);
        while (query.nextResult()) {
        }
        code = query.lastError().nativeErrorCode();
    }
    QSqlDatabase::removeDatabase(connection);
    return code;
}

QString TestServer::makeDatabase()
{
    const QString name = QStringLiteral("empty_%1").arg(++mMade);
    EXPECT_EQ(run(QStringLiteral("postgres"), QStringLiteral("CREATE DATABASE ") + name), QString());
    return name;
}

QString TestServer::makeLedger()
{
    const QString test = currentTest();
    for (auto used = mLedgers.begin(); used != mLedgers.end(); ++used) {
        if (*used != test) {
            *used = test;
            EXPECT_EQ(run(used.key(), wipe()), QString());
            return used.key();
        }
    }
    const QString name = QStringLiteral("ledger_%1").arg(++mMade);
    mLedgers[name] = test;
    const QString statement = QStringLiteral("CREATE DATABASE %1 TEMPLATE %2").arg(name, Template);
    EXPECT_EQ(run(QStringLiteral("postgres"), statement), QString());
    return name;
}

void TestServer::makeLogin(const QString& user, const QStringList& roles)
{
    if (mLogins.contains(user)) {
        return;
    }
    QStringList names;
    for (const QString& role : roles.isEmpty() ? AllRoles : roles) {
        names.append(QStringLiteral("algodesk_") + role);
    }
    const QString statement =
        QStringLiteral("CREATE ROLE \"%1\" LOGIN PASSWORD '%2' IN ROLE %3")
            .arg(user, QString::fromLocal8Bit(qgetenv("PGPASSWORD")), names.join(QLatin1Char(',')));
    EXPECT_EQ(run(QStringLiteral("postgres"), statement), QString());
    mLogins.append(user);
}

Address TestServer::address(const QString& database, const QString& user) const
{
    Address address;
    address.kind = Address::Kind::Server;
    address.hosts = {{mHost, mPort}};
    address.database = database;
    address.user = user;
    return address;
}

void TestServer::stop()
{
    EXPECT_EQ(control({QStringLiteral("--mode"), QStringLiteral("immediate")}, QStringLiteral("stop")), 0);
}

void TestServer::start()
{
    EXPECT_EQ(control({}, QStringLiteral("start")), 0);
}

void TestServer::restart()
{
    stop();
    start();
}
