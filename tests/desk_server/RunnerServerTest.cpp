#include "tests/ledger_server/TestServer.h"
#include "tests/runner/RunnerTest.h"

#include <sys/stat.h>
#include <unistd.h>

#include <QFile>
#include <QFileInfo>
#include <QJsonArray>

/// What a ledger on a server has beyond one in a file: its making, its ceilings, its roles, encryption.
class ServerCommands : public RunnerTest {
protected:
    using Environment = QMap<QString, QString>;

    ServerCommands() : mServer(TestServer::instance()), mDatabase(mServer.makeLedger())
    {
        mServer.makeLogin("trader_only"_s, {"trader"_s});
        mServer.makeLogin("approver_only"_s, {"approver"_s});
        mServer.makeLogin("risk_only"_s, {"risk"_s});
    }

    QString addressOf(const QString& user) const { return mServer.address(mDatabase, user).shown(); }
    Environment as(const QString& user) const { return {{"ALGODESK_LEDGER"_s, addressOf(user)}}; }
    Run runAs(const QString& user, const QStringList& arguments)
    {
        return run(arguments + QStringList{"--home"_s, home()}, as(user));
    }
    Run createAs(const QString& user, const QString& file, const Environment& more = {})
    {
        Environment environment = as(user);
        for (auto entry = more.begin(); entry != more.end(); ++entry) {
            environment.insert(entry.key(), entry.value());
        }
        return run(importArguments(file, aitwap() + QStringList{"--confirm"_s, "--create"_s}), environment);
    }
    static void expectComplaint(const Run& run, const QString& reason)
    {
        EXPECT_EQ(1, run.status);
        expectValid(run.object(), "error.schema.json"_s);
        const QString error = run.object()["error"_s].toString();
        EXPECT_TRUE(error.contains(reason)) << run.out.constData();
    }

    TestServer& mServer;
    const QString mDatabase;
};

TEST_F(ServerCommands, MakeALedgerAndAreHarmlessWhenRepeated)
{
    const QString administrator = QString::fromLocal8Bit(qgetenv("PGUSER"));
    const QString address = mServer.address(mServer.makeDatabase(), administrator).shown();
    expectComplaint(run({"batches"_s, "--ledger"_s, address}), "ledger init"_s);
    for (int time = 0; time < 2; ++time) {
        const Run made = run({"ledger"_s, "init"_s, address});
        EXPECT_EQ(0, made.status) << made.out.constData();
        EXPECT_EQ(address, made.object()["ledger"_s].toString());
    }
    EXPECT_EQ(0, create(table(goodRow()), {"--ledger"_s, address}).status);
    EXPECT_EQ(1, run({"batches"_s, "--ledger"_s, address}).json().array().size());
}

/// The trader's own folder has no ceilings any more: the database holds them all the same.
TEST_F(ServerCommands, LoadCeilingsThatHoldWhateverTheProgramKnows)
{
    writeData("limits.csv"_s, "account,strategy,maxRowQuantity,maxDayBuy,maxDayInstances,maxPriceDistance,"
                              "replacesGeneral\n*,*,500,1e6,9.5,3,\nA2,*,5000,,,,1\n");
    const QStringList load = {"ledger"_s, "limits"_s, addressOf("risk_only"_s), "--data"_s, dataFolder()};
    const Run loaded = run(load);
    EXPECT_EQ(0, loaded.status) << loaded.out.constData();
    EXPECT_EQ(2, loaded.object()["limits"_s].toInt());
    EXPECT_EQ(0, run(load).status) << "in place of those before";
    ASSERT_TRUE(QFile::remove(dataFolder() + "/limits.csv"_s));

    const Run above = createAs("trader_only"_s, table(goodRow()));
    EXPECT_EQ(1, above.status);
    EXPECT_TRUE(creation(above)["error"_s].toString().contains("上限"_s)) << above.out.constData();
    EXPECT_EQ(0, createAs("trader_only"_s, table("600000,SH,400,1,0,7\n")).status);
    const Run replaced =
        run(importArguments(table("600000,SH,1000,1,9,7\n"),
                            {"--strategy"_s, "AITWAP"_s, "--account"_s, "A2"_s, "--confirm"_s, "--create"_s}),
            as("trader_only"_s));
    EXPECT_EQ(0, replaced.status) << "the general row does not hold for it" << replaced.out.constData();

    const QJsonArray entries = runAs("trader_only"_s, {"audit"_s}).json().array();
    EXPECT_EQ("limits"_s, entries.at(0).toObject()["what"_s].toString());
    EXPECT_TRUE(entries.at(0).toObject()["detail"_s].toString().contains("maxRowQuantity"_s));
    EXPECT_EQ("risk_only"_s, entries.at(0).toObject()["by"_s].toString());
}

TEST_F(ServerCommands, LetNobodyButRiskLoadCeilings)
{
    writeData("limits.csv"_s, "account,strategy,maxRowQuantity\n*,*,\n");
    for (const QString& user : {"trader_only"_s, "approver_only"_s}) {
        expectComplaint(run({"ledger"_s, "limits"_s, addressOf(user), "--data"_s, dataFolder()}), "角色"_s);
    }
    expectComplaint(run({"ledger"_s, "limits"_s, home() + "/ledger.sqlite"_s, "--data"_s, dataFolder()}),
                    "limits.csv"_s);
    writeData("limits.csv"_s, "account,strategy,maxRowQuantity\n*,*,-1\n");
    expectRefused(run({"ledger"_s, "limits"_s, addressOf("risk_only"_s), "--data"_s, dataFolder()}),
                  "limits.csv:2: "_s);
}

TEST_F(ServerCommands, LetASecondPersonApproveAndNobodyElse)
{
    writeData("limits.csv"_s, "account,strategy,approvalAmount\n*,*,1\n");
    EXPECT_EQ(6, createAs("trader_only"_s, table(goodRow())).status);
    const QStringList approve = {"approve"_s, "1"_s, "--data"_s, dataFolder()};
    EXPECT_EQ(1, runAs("trader_only"_s, approve).status);
    EXPECT_EQ(1, runAs("risk_only"_s, approve).status);
    const Run approved = runAs("approver_only"_s, approve);
    EXPECT_EQ(0, approved.status) << approved.out.constData();
    EXPECT_EQ("created"_s, approved.object()["state"_s].toString());
    EXPECT_EQ(0, runAs("trader_only"_s, {"halt"_s, "--reason"_s, "演练"_s}).status);
    EXPECT_EQ(1, runAs("trader_only"_s, {"resume"_s, "--reason"_s, "结束"_s}).status);
    EXPECT_EQ(0, runAs("risk_only"_s, {"resume"_s, "--reason"_s, "结束"_s}).status);
    EXPECT_EQ(0, runAs("trader_only"_s, {"audit"_s, "--verify"_s}).status);
}

TEST_F(ServerCommands, NameTheServersOwnToolsForBackups)
{
    expectComplaint(runAs("trader_only"_s, {"backup"_s, folder() + "/b"_s}), "pg_dump"_s);
    EXPECT_FALSE(QFile::exists(folder() + "/b"_s));
    expectComplaint(runAs("trader_only"_s, {"restore"_s, write("b"_s, "b")}), "pg_restore"_s);
    EXPECT_EQ(0, runAs("trader_only"_s, {"vacuum"_s}).status);
}

TEST_F(ServerCommands, SayThatAServerIsOutOfReachAndTellNoPassword)
{
    const Run away = run({"batches"_s, "--ledger"_s, "postgresql://trader@127.0.0.1:1/desk"_s},
                         {{"PGPASSWORD"_s, "hush-hush"_s}});
    expectComplaint(away, "127.0.0.1"_s);
    const Run wrong = run({"batches"_s}, {{"PGPASSWORD"_s, "hush-hush"_s},
                                          {"ALGODESK_LEDGER"_s, addressOf("trader_only"_s)},
                                          {"QT_LOGGING_RULES"_s, "*.debug=true"_s}});
    EXPECT_EQ(1, wrong.status);
    for (const QByteArray& said : {away.out, away.err, wrong.out, wrong.err}) {
        EXPECT_FALSE(said.contains("hush-hush"));
    }
}

/// A server that encrypts, with a certificate that the test has made.
class EncryptedServer : public ServerCommands {
protected:
    void SetUp() override
    {
        ServerCommands::SetUp();
        makeCertificate("server"_s);
        makeCertificate("stranger"_s);
        giveToServer("server.key"_s);
        giveToServer("server.crt"_s);
        set("ssl_cert_file"_s, "'%1'"_s.arg(path("server.crt"_s)));
        set("ssl_key_file"_s, "'%1'"_s.arg(path("server.key"_s)));
        set("ssl"_s, "on"_s);
    }
    void TearDown() override
    {
        for (const QString& name : {"ssl"_s, "ssl_cert_file"_s, "ssl_key_file"_s}) {
            EXPECT_EQ(QString(), mServer.run("postgres"_s, "ALTER SYSTEM RESET "_s + name));
        }
        EXPECT_EQ(QString(), mServer.run("postgres"_s, "SELECT pg_reload_conf()"_s));
        ServerCommands::TearDown();
    }

    QString path(const QString& name) const { return folder() + QLatin1Char('/') + name; }
    void set(const QString& name, const QString& value)
    {
        EXPECT_EQ(QString(), mServer.run("postgres"_s, "ALTER SYSTEM SET %1 = %2"_s.arg(name, value)));
        EXPECT_EQ(QString(), mServer.run("postgres"_s, "SELECT pg_reload_conf()"_s));
    }
    void makeCertificate(const QString& name)
    {
        EXPECT_EQ(0,
                  QProcess::execute("openssl"_s, {"req"_s, "-x509"_s, "-newkey"_s, "ec"_s, "-pkeyopt"_s,
                                                  "ec_paramgen_curve:prime256v1"_s, "-nodes"_s, "-days"_s,
                                                  "2"_s, "-subj"_s, "/CN=localhost"_s, "-addext"_s,
                                                  "subjectAltName=DNS:localhost"_s, "-keyout"_s,
                                                  path(name + ".key"_s), "-out"_s, path(name + ".crt"_s)}));
    }
    /// The server may run as a user of its own.
    void giveToServer(const QString& name)
    {
        const QString data = mServer.single("postgres"_s, "SHOW data_directory"_s).toString();
        struct stat owner = {};
        EXPECT_EQ(0, stat(QFile::encodeName(data).constData(), &owner));
        const QByteArray file = QFile::encodeName(path(name));
        EXPECT_EQ(0, chown(file.constData(), owner.st_uid, owner.st_gid));
        EXPECT_EQ(0, chmod(file.constData(), 0600));
        EXPECT_EQ(0, chmod(QFile::encodeName(folder()).constData(), 0711));
    }
    Environment trusting(const QString& certificate) const
    {
        return {{"PGSSLMODE"_s, "verify-full"_s}, {"PGSSLROOTCERT"_s, path(certificate)}};
    }
};

TEST_F(EncryptedServer, IsTalkedToWhereItsCertificateIsTheRightOne)
{
    mServer.run(mDatabase,
                "CREATE TABLE seen (ssl boolean, version text); GRANT INSERT ON seen TO PUBLIC; "
                "CREATE FUNCTION see() RETURNS trigger LANGUAGE plpgsql SECURITY DEFINER AS $$ BEGIN "
                "INSERT INTO seen SELECT s.ssl, s.version FROM pg_stat_ssl s WHERE pid = "
                "pg_backend_pid(); RETURN NULL; END $$; "
                "CREATE TRIGGER see AFTER INSERT ON batch FOR EACH ROW EXECUTE FUNCTION see()"_s);
    const QString file = table(goodRow());
    const Run created = createAs("trader_only"_s, file, trusting("server.crt"_s));
    EXPECT_EQ(0, created.status) << created.out.constData();
    EXPECT_TRUE(mServer.single(mDatabase, "SELECT bool_and(ssl) FROM seen"_s).toBool()) << "it was encrypted";
    mServer.run(mDatabase, "DROP TRIGGER see ON batch; DROP FUNCTION see(); DROP TABLE seen"_s);
}

TEST_F(EncryptedServer, IsNotTalkedToWhereItsCertificateIsAnothersOrNamesAnotherHost)
{
    const Environment stranger = trusting("stranger.crt"_s);
    Environment environment = as("trader_only"_s);
    for (auto entry = stranger.begin(); entry != stranger.end(); ++entry) {
        environment.insert(entry.key(), entry.value());
    }
    expectComplaint(run({"batches"_s}, environment), "无法连接"_s);
    const QString byNumber = addressOf("trader_only"_s).replace("localhost"_s, "127.0.0.1"_s);
    environment = trusting("server.crt"_s);
    environment.insert("ALGODESK_LEDGER"_s, byNumber);
    ASSERT_NE(byNumber, addressOf("trader_only"_s));
    expectComplaint(run({"batches"_s}, environment), "无法连接"_s);
}

TEST_F(EncryptedServer, IsFoundByAServiceOfLibpqToo)
{
    const QString service =
        write("services.conf"_s,
              "[desk]\nsslmode=verify-full\nsslrootcert=" + path("server.crt"_s).toUtf8() + "\n");
    Environment environment = as("trader_only"_s);
    environment.insert("PGSERVICEFILE"_s, service);
    environment.insert("PGSERVICE"_s, "desk"_s);
    EXPECT_EQ(0, run({"batches"_s}, environment).status);
    write("services.conf"_s,
          "[desk]\nsslmode=verify-full\nsslrootcert=" + path("stranger.crt"_s).toUtf8() + "\n");
    expectComplaint(run({"batches"_s}, environment), "无法连接"_s);
}
