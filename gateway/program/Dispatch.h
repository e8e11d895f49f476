#pragma once

#include "gateway/port/LedgerPort.h"
#include "gateway/program/Inbox.h"
#include "gateway/program/Printer.h"
#include "gateway/recovery/Recovery.h"

#include <QElapsedTimer>

#include <functional>
#include <map>

namespace gateway {

/// The gateway at work: from the ledger to the counterparty and back, round after round. Each round writes
/// down what it heard and decided, and only then sends.
class Dispatch {
public:
    struct Terms {
        Profile profile;
        QHash<QString, int> ordersPerSecond; ///< by trading account
        int ordersPerSecondInAll = 0;        ///< 0: no ceiling
        std::function<bool()> isAskedToEnd;
    };

    Dispatch(const Terms& terms, LedgerPort& ledger, Engine& engine, Inbox& inbox, Printer& printer);

    /// Adopts what is open; the error says why the ledger cannot be read.
    Outcome<void> begin();
    /// Until it is asked to end.
    void run();
    /// One round: hears, looks into the ledger, sends; waits at most so long for something to hear.
    void round(std::chrono::milliseconds patience);
    /// The last round, when the session has ended.
    void finish();

private:
    struct Sent {
        std::string type;
        QString clOrdId;
    };

    Moment now() const;
    /// Calls until it answers: what was heard must not be lost because the ledger is busy. An error means
    /// that the program is asked to end.
    template <typename Value> Outcome<Value> insist(const std::function<Outcome<Value>()>& call);
    void hear(const std::vector<Inbox::Item>& items, Step& step);
    void hearNews(const SessionNews& news, Step& step);
    void hearGap(const SessionNews& news, Step& step);
    void hearMessage(const Message& message, Step& step);
    void hearReject(Report report, Step& step);
    void hearReport(const Report& report, Step& step);
    void look(Step& step);
    void takeQueued();
    QList<OpenInstance> refuse(const QList<OpenInstance>& queued, Step& step);
    std::optional<QString> refusalOf(const OpenInstance& instance);
    bool isTimeToLook() const;
    void write(const Step& step);
    void send(const Step& step);
    void settle(const Change& change, const Standing& standing);
    void settle(const Step& step, const QHash<QString, Standing>& standings);
    void takeThese(const QList<OpenInstance>& chosen);
    void keepTraffic();

    Terms mTerms;
    LedgerPort& mLedger;
    Engine& mEngine;
    Inbox& mInbox;
    Printer& mPrinter;
    Recovery mRecovery;
    QElapsedTimer mClock;
    std::map<int, Sent> mSent; ///< by sequence number: what a reject of this session is about
    QHash<qint64, QHash<int, QString>> mRefusals; ///< by batch: rows that cannot go out, and why
    QSet<QString> mVetoed;    ///< whose change the ledger did not take: nothing goes out for them
    qint64 mSeen = -1;        ///< the ledger's change count when it was last looked into
    qint64 mLookedAt = -1000; ///< milliseconds
    qint64 mTrafficAt = 0;    ///< when traffic was kept last, milliseconds
    bool mMayBeQueued = true; ///< something may have come into the queue since it was empty
    bool mEnds = false;       ///< asked to end while something was not written down
    QString mSession;
};

} // namespace gateway
