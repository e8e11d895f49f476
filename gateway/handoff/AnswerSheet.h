#pragma once

#include "gateway/messages/Message.h"

#include <QByteArray>
#include <QList>
#include <QStringList>

#include <vector>

/// A csv file of answers, read as messages.
namespace gateway {

/// A header of fields (FieldNames.h), ClOrdID and OrdStatus among them, and a row an answer: an execution
/// report, or what MsgType says. At most 4 MiB and 20,000 rows, UTF-8.
///
///     ClOrdID,ExecID,ExecType,OrdStatus,CumQty,AvgPx,Text
///     NW66TGW5HBELBA4MNSSDJLTPKQ-7,E17,F,1,400,11.50,
struct AnswerSheet {
    QString fault;                ///< why nothing of the file can be read; empty: it can
    bool isWhole = false;         ///< its last row is ended: what is not may be half a number
    QList<QStringList> rows;      ///< ended ones, behind the header; blank ones left out
    std::vector<Message> answers; ///< of each row; one without a type is none, and says why in 58

    static AnswerSheet read(const QByteArray& bytes);
};

/// What the file may be; more is not read.
constexpr qint64 MostAnswerBytes = 4 * 1024 * 1024;

/// A message that tells of something that could not be read.
Message unreadable(const QString& why);

} // namespace gateway
