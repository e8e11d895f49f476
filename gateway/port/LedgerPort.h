#pragma once

#include "gateway/recovery/Recovery.h"
#include "gateway/session/Engine.h"
#include "table/Outcome.h"

#include <QHash>
#include <QList>
#include <QSet>

#include <optional>
#include <vector>

/// All that the gateway asks of a ledger. Every call is one transaction that is durable when it answers; an
/// error means that nothing was changed, and may pass: the same call is made again.
namespace gateway {

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
    /// Cancels to be sent: of what was stopped, undone or halted, and is known to the counterparty. Each is
    /// given once, and once more where the counterparty says that it works on as if nobody had asked.
    virtual Outcome<QList<CancelOrder>> takeCancels(int most) = 0;

    /// Writes a step's changes and kept reports down, all or none. The ledger's word holds: a report that was
    /// counted before, an instance settled by hand, taken back or halted meanwhile stays as it is or goes
    /// where it must. Answers how each instance that was named stands afterwards, by ClOrdID.
    virtual Outcome<QHash<QString, Standing>> record(const Step& step) = 0;

    /// What the session does, for people to see.
    virtual Outcome<void> noteSession(const QString& state, const QString& text) = 0;
    /// What was said and heard, likewise.
    virtual Outcome<void> noteTraffic(const std::vector<Traffic>& traffic) = 0;
};

} // namespace gateway
