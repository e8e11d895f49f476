#pragma once

#include "gateway/program/Dispatch.h"
#include "tests/gateway/Counterparty.h"
#include "tests/gateway/DeskLedger.h"

#include <QBuffer>
#include <QTemporaryDir>

#include <atomic>
#include <memory>
#include <thread>

/// A gateway at work between a ledger and a counterparty, in a thread of its own. The ledger's folder lives
/// on, so that the next run has the sequence numbers of this one.
class GatewayRun {
public:
    struct Options {
        QString beginString = QStringLiteral("FIX.4.4");
        bool resetsSequence = false;
        gateway::Profile profile;
        QHash<QString, int> ordersPerSecond;
    };

    GatewayRun(const DeskLedger& desk, int port, const Options& options);
    /// Ends it in order: logs out.
    ~GatewayRun();

    QByteArray output() const { return mOutput.data(); }

private:
    void run(const Options& options);

    const ledger::Address mLedger;
    gateway::Inbox mInbox;
    QBuffer mOutput;
    gateway::Printer mPrinter;
    std::unique_ptr<gateway::Engine> mEngine;
    std::atomic<bool> mEnds{false};
    std::thread mThread;
};

/// The settings of an initiator DESK -> BROKER that reconnects every second.
QString settingsFile(const QTemporaryDir& folder, int port, const QString& beginString);

/// How long a gateway waits for an answer that comes, on a busy machine too: whoever gives up too soon leaves
/// an order to a person.
constexpr int PatientSeconds = 15;
/// The same for an answer that never comes.
constexpr int SilentSeconds = 2;

/// The broker's profile of the samples, with so long a wait for an answer.
QString profileFile(const QTemporaryDir& folder, int statusTimeoutSeconds);

/// The counterparty executed each of so many orders once, and nothing but gap fills was sent again by the
/// session.
void expectEachOnce(const Counterparty& counterparty, int count);
