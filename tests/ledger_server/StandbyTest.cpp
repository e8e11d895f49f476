// A primary that dies in the middle of creations, and its synchronous standby that takes over: both real.

#include "ledger/LedgerCopy.h"
#include "tests/ledger/SampleDrafts.h"
#include "tests/ledger_server/Desks.h"
#include "tests/ledger_server/Workload.h"

#include <gtest/gtest.h>
#include <netinet/in.h>
#include <pwd.h>
#include <sys/socket.h>
#include <unistd.h>

#include <QFile>
#include <QFileInfo>
#include <QProcess>
#include <QSqlError>
#include <QSqlQuery>
#include <QUuid>

using namespace ledger;

namespace {

int freePort()
{
    const int probe = socket(AF_INET, SOCK_STREAM | SOCK_CLOEXEC, 0);
    sockaddr_in address = {};
    address.sin_family = AF_INET;
    address.sin_addr.s_addr = htonl(INADDR_LOOPBACK);
    socklen_t length = sizeof address;
    auto* generic = reinterpret_cast<sockaddr*>(&address); // the C interface takes any family so
    EXPECT_EQ(bind(probe, generic, length), 0);
    EXPECT_EQ(getsockname(probe, generic, &length), 0);
    close(probe);
    return ntohs(address.sin_port);
}

/// A server in a folder, run by the system's postgres user where this is root, since no server runs as root.
class OwnServer {
public:
    explicit OwnServer(const QString& folder) : mFolder(folder), port(freePort()) {}
    ~OwnServer()
    {
        if (mIsRunning) {
            stop();
        }
    }

    /// Runs a program of the server's; false where it failed.
    static bool run(const QString& program, QStringList arguments)
    {
        QString command = QFileInfo(QString::fromLocal8Bit(qgetenv("PG_CONFIG"))).absolutePath() +
                          QLatin1Char('/') + program;
        if (geteuid() == 0) {
            arguments = QStringList{"-u"_s, "postgres"_s, "--"_s, command} + arguments;
            command = "runuser"_s;
        }
        QProcess process;
        process.setWorkingDirectory("/"_s);
        process.setStandardOutputFile(QProcess::nullDevice());
        process.setStandardErrorFile(QProcess::nullDevice());
        process.start(command, arguments);
        return process.waitForFinished(60000) && process.exitCode() == 0;
    }
    bool make() const
    {
        return run("initdb"_s, {"-D"_s, mFolder, "-U"_s, "postgres"_s, "-A"_s, "trust"_s, "-E"_s, "UTF8"_s,
                                "--no-sync"_s});
    }
    bool copyFrom(const OwnServer& primary) const
    {
        return run("pg_basebackup"_s,
                   {"-D"_s, mFolder, "-h"_s, "127.0.0.1"_s, "-p"_s, QString::number(primary.port), "-U"_s,
                    "postgres"_s, "-R"_s, "-c"_s, "fast"_s, "--no-sync"_s});
    }
    void configure(const QStringList& lines) const
    {
        QFile file(mFolder + "/postgresql.auto.conf"_s);
        ASSERT_TRUE(file.open(QIODevice::Append));
        file.write((lines + QStringList{"port = %1"_s.arg(port), "listen_addresses = '127.0.0.1'"_s,
                                        "unix_socket_directories = ''"_s, "fsync = off"_s, QString()})
                       .join(QLatin1Char('\n'))
                       .toUtf8());
    }
    bool start()
    {
        mIsRunning = run("pg_ctl"_s, {"-D"_s, mFolder, "-l"_s, mFolder + "/server.log"_s, "-w"_s, "start"_s});
        return mIsRunning;
    }
    void stop()
    {
        run("pg_ctl"_s, {"-D"_s, mFolder, "-m"_s, "immediate"_s, "stop"_s});
        mIsRunning = false;
    }
    bool promote() const { return run("pg_ctl"_s, {"-D"_s, mFolder, "-w"_s, "promote"_s}); }

    QString sql(const QString& database, const QString& script) const
    {
        QString answer;
        const QString connection = QUuid::createUuid().toString();
        {
            QSqlDatabase opened = QSqlDatabase::addDatabase("QPSQL"_s, connection);
            opened.setHostName("127.0.0.1"_s);
            opened.setPort(port);
            opened.setDatabaseName(database);
            opened.setUserName("postgres"_s);
            EXPECT_TRUE(opened.open()) << opened.lastError().text().toStdString();
            QSqlQuery query(opened);
            EXPECT_TRUE(query.exec(script)) << query.lastError().text().toStdString();
            answer = query.next() ? query.value(0).toString() : QString();
        }
        QSqlDatabase::removeDatabase(connection);
        return answer;
    }

private:
    const QString mFolder;
    bool mIsRunning = false;

public:
    const int port;
};

void giveToServer(const QString& folder)
{
    const passwd* user = getpwnam("postgres");
    if (geteuid() == 0 && user) {
        EXPECT_EQ(chown(QFile::encodeName(folder).constData(), user->pw_uid, user->pw_gid), 0);
    }
}

} // namespace

TEST(AStandbyThatTakesOver, HasWhateverWasReportedAndNothingTwice)
{
    const QTemporaryDir folder;
    giveToServer(folder.path());
    OwnServer primary(folder.filePath("primary"_s));
    OwnServer standby(folder.filePath("standby"_s));
    ASSERT_TRUE(primary.make());
    primary.configure({});
    ASSERT_TRUE(primary.start());
    ASSERT_TRUE(standby.copyFrom(primary));
    standby.configure(
        {"primary_conninfo = 'host=127.0.0.1 port=%1 user=postgres application_name=standby'"_s.arg(
             primary.port),
         "synchronous_standby_names = ''"_s});
    ASSERT_TRUE(standby.start());
    primary.sql("postgres"_s, "CREATE DATABASE desk"_s);
    primary.sql("postgres"_s, "ALTER SYSTEM SET synchronous_standby_names = 'standby'"_s);
    primary.sql("postgres"_s, "SELECT pg_reload_conf()"_s);

    Address address;
    address.kind = Address::Kind::Server;
    address.hosts = {{"127.0.0.1"_s, primary.port}, {"127.0.0.1"_s, standby.port}};
    address.database = "desk"_s;
    address.user = "postgres"_s;
    ASSERT_EQ(initLedger(address).error, QString());
    primary.sql("desk"_s, "CREATE ROLE trader LOGIN IN ROLE algodesk_trader"_s);
    ASSERT_EQ(primary.sql("desk"_s, "SELECT sync_state FROM pg_stat_replication"_s), "sync"_s);

    address.user = "trader"_s;
    const int files = 200;
    Desks desks(address.shown(), 4, files, Decimal::fromText("1000000000"_s));
    desks.startAll();
    while (desks.created.size() < files / 4) {
        ASSERT_FALSE(desks.work(20)) << "the desks were through too soon";
    }
    primary.stop();
    const int before = desks.created.size();
    desks.work(300);
    ASSERT_TRUE(standby.promote());
    ASSERT_TRUE(desks.work(120000));
    EXPECT_EQ(desks.created.size(), files);
    expectSoundAfter(address, desks);
    std::printf("the primary died after %d of %d batches\n", before, files);
}
