#pragma once

#include "gateway/recovery/Recovery.h"
#include "table/Outcome.h"

#include <QHash>
#include <QList>
#include <QSet>

#include <optional>

/// All that the gateway asks of a ledger. Every call is one transaction that is durable when it answers; an
/// error means that nothing was changed, and may pass: the same call is made again.
namespace gateway {

/// What others decided meanwhile.
struct Wishes {
    Halts halts;
    QHash<QString, State> states; ///< of what is open, by ClOrdID; what is not in it is settled
    QSet<QString> takenBack;      ///< of those, what somebody wants back
};

class LedgerPort {
public:
    virtual ~LedgerPort() = default;

    /// What is sending, running, stopping or unknown.
    virtual Outcome<QList<OpenInstance>> open() = 0;
    /// What is queued and not halted, in order of batch and row; at most so many.
    virtual Outcome<QList<OpenInstance>> queued(int most) = 0;
    /// Writes those down as `sending` that are still queued and not halted; answers which. They may be sent.
    virtual Outcome<QSet<QString>> take(const QList<InstanceKey>& keys) = 0;
    /// All orders of a batch, in order of rows, whatever became of them.
    virtual Outcome<QList<Order>> ordersOf(qint64 batch) = 0;
    /// The instance of a ClOrdID, at whatever state; nothing where there is none.
    virtual Outcome<std::optional<OpenInstance>> find(const QString& clOrdId) = 0;

    /// Moves when anything in the ledger was changed, by whatever program; cheap.
    virtual qint64 changeCount() = 0;
    virtual Outcome<Wishes> wishes() = 0;

    /// Writes a step's changes and kept reports down, all or none. What a change met that it must not touch
    /// (a report counted before, an instance settled by hand) is left as it is; answers how each instance
    /// that was named stands afterwards, by ClOrdID.
    virtual Outcome<QHash<QString, Standing>> record(const Step& step) = 0;

    /// What the session does, for people to see.
    virtual Outcome<void> noteSession(const QString& state, const QString& text) = 0;
};

} // namespace gateway
