#pragma once

#include "gateway/messages/Message.h"
#include "table/Outcome.h"

#include <QString>

/// What the counterparty says of an order, read from its message.
namespace gateway {

struct Report {
    enum class Kind {
        Execution,      ///< 8
        CancelReject,   ///< 9
        BusinessReject, ///< j
        SessionReject,  ///< 3
    };

    Kind kind = Kind::Execution;
    QString clOrdId;    ///< of the order, even where the report names its cancel; empty where it names none
    QString execId;     ///< 17; empty for an answer to a status request
    QString execRefId;  ///< 19: the report that a bust or correction is about
    QString execType;   ///< 150
    QString ordStatus;  ///< 39
    QString orderId;    ///< 37
    QString cumQty;     ///< 14
    QString avgPx;      ///< 6
    QString rejectCode; ///< 103, 102, 380 or 373, by kind
    QString text;       ///< 58
    QString legReport;  ///< 442
    QString legNumber;  ///< 654
    QString symbol;     ///< 55
    QString refSeqNum;  ///< 45 of a reject: the message of ours that it is about
    QString refMsgType; ///< 372 of a reject
    QString requestId;  ///< 790 of an answer to a status request; empty where it is not echoed
    bool isResent = false; ///< 43=Y: from an earlier connection, perhaps

    bool isStatusAnswer() const { return execType == QLatin1String("I"); }
    /// "I do not know that order", as an answer to a status request.
    bool deniesOrder() const;
    /// The order is refused.
    bool rejects() const { return execType == QLatin1String("8"); }
    /// "I have that one already."
    bool saysDuplicate() const;
    /// A bust or a correction: quantities may go down.
    bool takesBack() const { return execType == QLatin1String("H") || execType == QLatin1String("G"); }
    bool isOfOneLeg() const { return legReport == QLatin1String("2"); }
};

/// Whether a message of this type (35) is one of those.
bool isReport(const std::string& type);
/// The error says what makes the message no report.
Outcome<Report> readReport(const Message& message);

} // namespace gateway
