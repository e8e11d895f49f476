#pragma once

#include "gateway/port/LedgerPort.h"

#include <QMap>

#include <mutex>

/// The port's promises on a map, for tests of what is not the ledger's. It outlives the gateways that use it,
/// as a ledger does.
class MemoryLedger : public gateway::LedgerPort {
public:
    /// Queued; the key is batch 1 and the order's row.
    void add(const gateway::Order& order, const QString& account = QStringLiteral("80010001"));
    void takeBack(int row);
    void halt(bool isHalted);
    gateway::Standing standing(int row) const;
    int countOf(gateway::State state) const;
    QStringList kept() const;     ///< complaints
    QStringList sessions() const; ///< "state text"

    Outcome<QList<gateway::OpenInstance>> open() override;
    Outcome<QList<gateway::OpenInstance>> queued(int most) override;
    Outcome<QSet<QString>> take(const QList<gateway::InstanceKey>& keys) override;
    Outcome<QList<gateway::Order>> ordersOf(qint64 batch) override;
    Outcome<std::optional<gateway::OpenInstance>> find(const QString& clOrdId) override;
    qint64 changeCount() override;
    Outcome<QList<gateway::CancelOrder>> takeCancels(int most) override;
    Outcome<QHash<QString, gateway::Standing>> record(const gateway::Step& step) override;
    Outcome<void> noteSession(const QString& state, const QString& text) override;

private:
    void decide(gateway::Standing& standing) const;
    void apply(const gateway::Change& change);

    mutable std::mutex mMutex;
    QMap<int, gateway::OpenInstance> mInstances; ///< by row
    QMap<int, int> mCancels;                     ///< given out, by row
    QSet<int> mDue;                              ///< rows whose cancel is to be given out
    QHash<QString, int> mRows;                   ///< by ClOrdID
    QStringList mKept;
    QStringList mSessions;
    qint64 mChanges = 0;
    bool mHalted = false;
};
