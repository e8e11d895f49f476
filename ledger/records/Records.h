#pragma once

#include "ledger/draft/BatchDraft.h"
#include "ledger/records/States.h"
#include "table/Outcome.h"

#include <QDateTime>
#include <QList>
#include <QString>

#include <optional>

/// What the ledger holds.
namespace ledger {

struct Batch {
    qint64 number = 0; ///< 1, 2, …: the order in which batches were committed, whatever the clock said
    QUuid draftId;
    QString fileName;
    QString fileSha256;
    QJsonArray fileEdits; ///< BatchDraft::fileEdits
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
    /// Nothing where the text is none.
    static std::optional<InstanceId> fromText(const QString& text);

    friend bool operator==(const InstanceId& left, const InstanceId& right)
    {
        return left.batch == right.batch && left.row == right.row;
    }
};

struct Instance {
    InstanceId id;
    QString account;
    QString strategy;
    InstanceState state = InstanceState::Created;
    QDateTime changedAt; ///< UTC, of the last change
    QList<Leg> legs;     ///< without exchange and typed amount
    QMap<QString, QVariant> parameters;
    QString clOrdId;        ///< empty before it was taken to be sent
    Decimal filledQuantity; ///< of one leg; of two it stands in each
    Decimal averagePrice;
    QString reason;           ///< of a rejection, or of whoever settled it
    bool startsNow = false;   ///< started where it was created, or where the batch is approved
    bool isTakenBack = false; ///< to be cancelled as soon as the counterparty knows it
    bool isCancelDue = false; ///< a cancel is to be sent
    int cancels = 0;          ///< that were sent
};

/// An instance whose state was changed, or could not be.
struct ChangedInstance {
    InstanceId id;
    QStringList symbols;
    InstanceState before = InstanceState::Created;
    InstanceState after = InstanceState::Created;
    QString refusal = {}; ///< why it was not changed; empty: it was
};

struct UndoReport {
    qint64 batch = 0;
    BatchState state = BatchState::Created; ///< of the batch, afterwards
    QList<ChangedInstance> withdrawn;       ///< had not been sent
    QList<ChangedInstance> stopped;         ///< were running; with a gateway a cancel is on its way
    QList<ChangedInstance> notReversed;     ///< over: what they traded stands
    int alreadyUndone = 0;                  ///< taken back by an earlier undo
};

/// Nothing is created and nothing is sent while it holds.
struct Halt {
    QString account; ///< "*": all
    QString reason;
    QString by;
    QDateTime at; ///< UTC
};

/// What an account did on an exchange day (UTC+8); what was withdrawn before it was sent does not count.
struct AccountDay {
    QString account;
    QDate day;
    Decimal buy;  ///< CNY
    Decimal sell; ///< CNY
    qint64 batches = 0;
    qint64 instances = 0;
};

/// A program that sends what is queued.
struct Gateway {
    QString session;      ///< as its configuration names it
    QStringList accounts; ///< "*": all
    QString host;
    qint64 pid = 0;
    QString state; ///< of the session, by its last word: connected, loggedOn, loggedOut, disconnected
    QDateTime since;
    /// It serves its accounts no longer, whatever it said last: it was ended, or killed.
    bool isGone = false;
};

/// What a second person is asked to approve.
struct Approval {
    qint64 batch = 0;
    QString digest;  ///< of draft, limits and verdict: SHA-256, hexadecimal digits
    QString verdict; ///< the guard's, as JSON text
    QString askedBy;
    QDateTime askedAt;
    QString decidedBy; ///< empty: not yet
    QDateTime decidedAt;
    QString reason; ///< of a refusal
};

struct Status {
    QList<Halt> halts;
    QList<Gateway> gateways;
    qint64 waiting = 0;     ///< batches
    QList<AccountDay> days; ///< of today
};

/// A report of something that is not ours, or cannot be.
struct StrayReport {
    qint64 number = 0;
    QDateTime at;
    QString clOrdId;
    QString execId;
    QString text;
};

/// A message of a gateway's session, as it stood on the wire.
struct WireMessage {
    qint64 entry = 0; ///< number of the audit entry that holds it
    QDateTime at;     ///< UTC
    QString session;
    bool isOutgoing = false;
    QString text; ///< "8=FIX.4.4", "9=120", … each with its separator (1); credentials as stars
};

struct AuditEntry {
    qint64 number = 0; ///< 1, 2, …
    QDateTime at;      ///< UTC
    QString by;
    QString program; ///< with its version
    QString what;    ///< create, start, stop, …
    QString subject; ///< such as a batch's number
    QString detail;  ///< JSON
    QString hash;    ///< SHA-256 over the entry and the hash before it, hexadecimal digits
};

struct AuditVerdict {
    qint64 entries = 0;
    QString head;                 ///< hash of the last entry; of an empty ledger the fixed first one
    std::optional<qint64> broken; ///< number of the first entry that is changed, missing or out of place
};

} // namespace ledger
