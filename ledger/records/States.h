#pragma once

#include <QList>
#include <QString>

/// The lives of batches and instances, each as one table.
namespace ledger {

enum class BatchState {
    Created,
    Waiting, ///< for a second person
    Withdrawn,
    PartlyReversed,
    Refused, ///< by the second person
    Lapsed,  ///< the day ended, or what was to be approved is no longer the same
};

enum class InstanceState {
    Created,   ///< not to be started yet
    Queued,    ///< started; waits for the gateway
    Sending,   ///< taken by the gateway, written down before the first byte went out
    Running,   ///< acknowledged; without a gateway: started
    Stopping,  ///< a cancel was asked for
    Stopped,   ///< cancelled
    Finished,  ///< filled, done for the day, expired
    Rejected,  ///< Instance::reason says why
    Unknown,   ///< sent, and the counterparty cannot tell
    Withdrawn, ///< taken back before it was sent, or never had by the counterparty
};

/// Stable identifiers, as stored and printed: created, partly_reversed, …
QString nameOf(BatchState state);
QString nameOf(InstanceState state);
/// Shown names in Chinese.
QString shownName(BatchState state);
QString shownName(InstanceState state);
/// The state of that name; one that nobody knows, of a newer program, reads as Lapsed and Unknown.
BatchState batchStateNamed(const QString& name);
InstanceState instanceStateNamed(const QString& name);

const QList<InstanceState>& allInstanceStates();

/// What may become of an instance. A report may come twice, late and in any order: what is over stays so.
bool mayBecome(InstanceState before, InstanceState after);
/// Likewise where the counterparty takes a trade back (a bust or a correction), which opens what was over.
bool mayBecomeByCorrection(InstanceState before, InstanceState after);
/// What a person may ask of an instance: to start it, to have it stopped, to take it back before it works.
bool mayBeStarted(InstanceState state);
bool mayBeStopped(InstanceState state);
bool mayBeWithdrawn(InstanceState state);
/// Nothing more comes of it.
bool isOver(InstanceState state);
/// The counterparty has it or may have it: it is asked for after every break.
bool isOpen(InstanceState state);

} // namespace ledger
