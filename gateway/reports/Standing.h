#pragma once

#include <QList>
#include <QString>

/// Where an instance stands at the counterparty, as the ledger holds it.
namespace gateway {

enum class State {
    Created,
    Queued,
    Sending,
    Running,
    Stopping,
    Stopped,
    Finished,
    Rejected,
    Unknown,
    Withdrawn,
};

/// "created", "queued", …: as stored and printed.
QString nameOf(State state);
/// Sent, perhaps, and not at an end.
bool isOpen(State state);
/// At an end that the counterparty told.
bool isOver(State state);

/// What was traded: CumQty (14) and AvgPx (6), as they stood on the wire; empty before the first report.
struct Fill {
    QString quantity;
    QString averagePrice;
};

struct Standing {
    State state = State::Created;
    Fill fill;                ///< of an instance of one leg
    QList<Fill> legs;         ///< of each of two legs; empty for one
    QString reason;           ///< why it is rejected, stopped or unknown
    bool cancelAsked = false; ///< somebody wants it back, and nobody has refused that yet
};

bool operator==(const Fill& left, const Fill& right);
bool operator==(const Standing& left, const Standing& right);

/// What a report is held against: the order's quantity, and each leg's with its code.
struct OrderSize {
    struct Leg {
        QString symbol;
        QString quantity;
    };
    QString quantity; ///< empty for an amount
    QList<Leg> legs;  ///< of two legs; empty for one
};

} // namespace gateway
