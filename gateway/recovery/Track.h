#pragma once

#include "gateway/messages/Message.h"
#include "gateway/messages/Order.h"
#include "gateway/reports/Standing.h"

#include <QList>
#include <QSet>

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
    int cancelAttempts = 0;   ///< cancel requests that went out, or were about to
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
    bool haltIsOver = false;    ///< the halt's own cancel was sent and refused: no second one
    bool saidDuplicate = false; ///< the counterparty had it when it was sent again
};

/// A change that the ledger keeps before anything goes out because of it.
struct Change {
    InstanceKey key;
    QString clOrdId;
    Standing before;
    Standing after;
    int cancelAttempts = 0;
    QStringList countedIds; ///< reports that were counted with it
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
