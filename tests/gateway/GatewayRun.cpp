#include "tests/gateway/GatewayRun.h"

#include "gateway/port/LedgerOutbox.h"
#include "tests/gateway/SampleOrders.h"
#include "tests/gateway/Wire.h"

#include <gtest/gtest.h>

#include <QFile>

QString settingsFile(const QTemporaryDir& folder, int port, const QString& beginString)
{
    const QString path = folder.filePath(QStringLiteral("session.cfg"));
    QFile file(path);
    EXPECT_TRUE(file.open(QIODevice::WriteOnly | QIODevice::Truncate));
    file.write(QStringLiteral("[DEFAULT]\nConnectionType=initiator\nReconnectInterval=1\nHeartBtInt=30\n"
                              "StartTime=00:00:00\nEndTime=00:00:00\nFileStorePath=%1\nFileLogPath=%1\n"
                              "[SESSION]\nBeginString=%2\nSenderCompID=DESK\nTargetCompID=BROKER\n"
                              "Username=trader\nPassword=geheim\n"
                              "SocketConnectHost=127.0.0.1\nSocketConnectPort=%3\n")
                   .arg(folder.filePath(QStringLiteral("store")), beginString, QString::number(port))
                   .toUtf8());
    return path;
}

GatewayRun::GatewayRun(const DeskLedger& desk, int port, const Options& options)
    : mLedger(desk.address()), mPrinter(mOutput)
{
    mOutput.open(QIODevice::WriteOnly);
    gateway::Engine::Options engine;
    engine.settingsFile = settingsFile(desk.folder(), port, options.beginString).toStdString();
    engine.dictionaryFolder = DICTIONARIES;
    engine.resetsSequence = options.resetsSequence;
    std::string error;
    mEngine = gateway::Engine::open(engine, mInbox, error);
    EXPECT_EQ(error, "");
    if (mEngine) {
        mThread = std::thread([this, options] { run(options); });
    }
}

/// A ledger belongs to the thread that opened it.
void GatewayRun::run(const Options& options)
{
    const auto opened = ledger::Ledger::open(mLedger);
    ASSERT_EQ(opened.error, QString());
    ledger::Gateway self;
    self.session = QString::fromStdString(mEngine->session());
    self.accounts = QStringList{QStringLiteral("80010001")};
    auto claimed = ledger::Outbox::claim(opened.value, self);
    ASSERT_EQ(claimed.error, QString());
    gateway::LedgerOutbox port(opened.value, std::move(claimed.value));
    gateway::Dispatch::Terms terms;
    terms.profile = options.profile;
    terms.ordersPerSecond = options.ordersPerSecond;
    terms.isAskedToEnd = [this] { return mEnds.load(); };
    gateway::Dispatch dispatch(terms, port, *mEngine, mInbox, mPrinter);
    EXPECT_EQ(dispatch.begin().error, QString());
    EXPECT_EQ(mEngine->start(), "");
    dispatch.run();
    mEngine->stop();
    dispatch.finish();
}

GatewayRun::~GatewayRun()
{
    mEnds = true;
    if (mThread.joinable()) {
        mThread.join();
    }
}

QString profileFile(const QTemporaryDir& folder, int statusTimeoutSeconds)
{
    const QString path = folder.filePath(QStringLiteral("profile.json"));
    QFile file(path);
    EXPECT_TRUE(file.open(QIODevice::WriteOnly));
    file.write(QByteArray(sample::profileJson())
                   .replace("\"exchanges\"",
                            "\"statusTimeoutSeconds\": " + QByteArray::number(statusTimeoutSeconds) +
                                ", \"exchanges\""));
    return path;
}

void expectEachOnce(const Counterparty& counterparty, int count)
{
    const auto orders = counterparty.orders();
    EXPECT_EQ(orders.size(), static_cast<std::size_t>(count));
    for (const auto& order : orders) {
        EXPECT_EQ(order.second.executions, 1) << order.first;
    }
    for (const std::string& message : counterparty.received()) {
        const wire::Fields fields = wire::parse(message);
        EXPECT_FALSE(wire::get(fields, 43) == "Y" && wire::get(fields, 35) != "4") << wire::shown(message);
    }
}
