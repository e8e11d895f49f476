#pragma once

#include "ledger/draft/BatchDraft.h"
#include "table/Outcome.h"

#include <QDateTime>
#include <QList>
#include <QString>

/// What the ledger holds.
namespace ledger {

enum class BatchState { Created, Withdrawn, PartlyReversed };
enum class InstanceState { Created, Running, Stopped, Finished, Withdrawn };

/// Stable identifiers, as stored and printed: created, partly_reversed, …
QString nameOf(BatchState state);
QString nameOf(InstanceState state);
/// Shown names in Chinese.
QString shownName(BatchState state);
QString shownName(InstanceState state);

struct Batch {
    qint64 number = 0; ///< 1, 2, …: the order of creation, whatever the clock said
    QUuid draftId;
    QString fileName;
    QString fileSha256;
    QString account;
    QString strategy;
    int rowCount = 0;
    Decimal expectedBuy;
    Decimal expectedSell;
    QDateTime createdAt; ///< UTC
    QString createdBy;
    BatchState state = BatchState::Created;
};

struct InstanceId {
    qint64 batch = 0;
    int row = 0; ///< 1-based row of the batch's table

    QString text() const; ///< such as "12-3"
};

struct Instance {
    InstanceId id;
    QString account;
    QString strategy;
    InstanceState state = InstanceState::Created;
    QDateTime changedAt; ///< UTC, of the last change of state
    QList<Leg> legs;     ///< without exchange and typed amount
    QMap<QString, QVariant> parameters;
};

/// An instance that undo took back, or could not.
struct UndoneInstance {
    InstanceId id;
    QStringList symbols;
    InstanceState before = InstanceState::Created;
    InstanceState after = InstanceState::Created;
};

struct UndoReport {
    qint64 batch = 0;
    BatchState state = BatchState::Created; ///< of the batch, afterwards
    QList<UndoneInstance> withdrawn;        ///< had not started
    QList<UndoneInstance> stopped;          ///< were running
    QList<UndoneInstance> notReversed;      ///< finished: what they traded stands
    int alreadyUndone = 0;                  ///< taken back by an earlier undo
};

} // namespace ledger
