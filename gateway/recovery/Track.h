#pragma once

#include "gateway/messages/Message.h"
#include "gateway/messages/Order.h"
#include "gateway/reports/Report.h"
#include "gateway/reports/Standing.h"

#include <QList>
#include <QSet>

#include <optional>

/// An instance on its way, as recovery follows it.
namespace gateway {

struct InstanceKey {
    qint64 batch = 0;
    int row = 0; ///< 1-based row of the batch's table

    QString text() const { return QStringLiteral("%1-%2").arg(batch).arg(row); }
};

/// As the ledger holds it.
struct OpenInstance {
    InstanceKey key;
    QString account;
    Order order;
    Standing standing;
    bool wasSent = false;     ///< it was `sending` before: it may be known out there
    QSet<QString> countedIds; ///< execution reports (17) that were counted
};

/// What the gateway waits for.
enum class Waiting {
    Nothing,
    Acknowledgement, ///< of an order
    StatusAnswer,    ///< to a status request
    CancelAnswer,    ///< to a cancel request
    Turn,            ///< to be sent again, when the pace allows
    Question,        ///< to be asked for, when some of those asked before are answered
};

struct Track {
    OpenInstance instance;
    Message message;        ///< the order as it went out, or would
    bool isSendable = true; ///< the profile still lets it out
    OrderSize size;
    Waiting waiting = Waiting::Nothing;
    qint64 since = 0;           ///< when that began, milliseconds
    QString requestId;          ///< 790 of the last status request
    bool isCancelOpen = false;  ///< a cancel request is out, on this connection, without an answer
    qint64 refusedAt = -1;      ///< when a cancel was refused last, milliseconds; below 0: never
    bool saidDuplicate = false; ///< the counterparty had it when it was sent again
};

/// A change that the ledger keeps before anything goes out because of it.
struct Change {
    InstanceKey key;
    QString clOrdId;
    Standing before;
    Standing after;
    /// What a report said, where one brought the change; else it is a decision of the gateway's own.
    std::optional<Report> report;
    std::optional<State> told; ///< by its OrdStatus
    int leg = 0;               ///< 1, 2: it is about that leg; 0: about the order
    QString ordered;           ///< what the leg or the order may be filled to; empty: not known
};

/// A cancel that the ledger gave out, and wrote down.
struct CancelOrder {
    QString clOrdId;
    QString cancelId; ///< its own identifier: "…-C1"
};

/// A report that changed nothing, kept for people to see.
struct KeptReport {
    QString clOrdId; ///< empty where it names none
    QString execId;
    QString complaint;
};

struct Outgoing {
    QString clOrdId;
    QString account;
    Message message;
};

/// What is to be written down, then sent: in this order, and the second only after the first.
struct Step {
    QList<Change> changes;
    QList<KeptReport> kept;
    QList<Outgoing> messages;

    bool isEmpty() const { return changes.isEmpty() && kept.isEmpty() && messages.isEmpty(); }
};

} // namespace gateway
